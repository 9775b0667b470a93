#pragma once
// The list of keyboard shortcuts, as a two-column table, with an OK button.

#include <QDialog>

#include <utility>
#include <vector>

class QPushButton;
class QTableWidget;

// Every shortcut the editor knows: the key and what it does, in the order shown.
const std::vector<std::pair<const char*, const char*>>& KeyboardShortcutList();

class frmKeyboardShortcuts : public QDialog {
    Q_OBJECT
public:
    explicit frmKeyboardShortcuts(QWidget* parent);

    QTableWidget* lstShortcuts = nullptr;
    QPushButton* btnOkay = nullptr;
};
