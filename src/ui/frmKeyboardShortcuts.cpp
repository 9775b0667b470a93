#include "frmKeyboardShortcuts.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

const std::vector<std::pair<const char*, const char*>>& KeyboardShortcutList() {
    // Up looks down and Down looks up: the pitch enters the view as 360 minus the angle.
    static const std::vector<std::pair<const char*, const char*>> list = {
        {"W", "Move Forward"},
        {"S", "Move Backward"},
        {"A", "Strafe Left"},
        {"D", "Strafe Right"},
        {"Page Up", "Move Up"},
        {"Page Down", "Move Down"},
        {"Up Arrow", "Look Down"},
        {"Down Arrow", "Look Up"},
        {"Left Arrow", "Turn Left"},
        {"Right Arrow", "Turn Right"},
        {"Shift", "Move Faster"},
        {"Control", "Move Slower"},
        {"B", "Move Extra Fast"},
        {"Space", "Toggle Camera Move / Terrain Mode"},
        {"Enter", "Move Cursor Into View"},
        {"Z  or  Ctrl+Z", "Undo"},
        {"X  or  Ctrl+Y  or  Ctrl+Shift+Z", "Redo"},
        {"C  or  Ctrl+C", "Copy Terrain Effect Area"},
        {"V  or  Ctrl+V", "Paste Terrain Effect Area"},
        {"F", "Flip Terrain Effect Area"},
        {"M", "Mirror Terrain Effect Area"},
        {"I", "Invert Terrain Effect Area"},
        {"R", "Toggle Relational/Absolute Mode"},
        {"1 2 3 4 5 6", "Tiny Small Medium Large Huge Gigantic"},
        {"Ctrl+O", "Open Track"},
        {"F2  or  Ctrl+S", "Save Track"},
        {"F5", "Ride Track in Simulator"},
        {"F12", "Save Track As"},
        {"F1", "Help Index"},
    };
    return list;
}

frmKeyboardShortcuts::frmKeyboardShortcuts(QWidget* parent) : QDialog(parent) {
    setObjectName("frmKeyboardShortcuts");
    setWindowTitle("Keyboard Shortcuts");
    const auto& list = KeyboardShortcutList();
    lstShortcuts = new QTableWidget(static_cast<int>(list.size()), 2, this);
    lstShortcuts->setObjectName("lstShortcuts");
    lstShortcuts->setHorizontalHeaderLabels({"Key", "Action"});
    lstShortcuts->verticalHeader()->hide();
    lstShortcuts->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    lstShortcuts->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstShortcuts->setSelectionMode(QAbstractItemView::NoSelection);
    for (int row = 0; row < static_cast<int>(list.size()); ++row) {
        lstShortcuts->setItem(row, 0, new QTableWidgetItem(list[static_cast<std::size_t>(row)].first));
        lstShortcuts->setItem(row, 1, new QTableWidgetItem(list[static_cast<std::size_t>(row)].second));
    }
    lstShortcuts->resizeColumnsToContents();
    lstShortcuts->horizontalHeader()->setStretchLastSection(true);
    btnOkay = new QPushButton("OK", this);
    btnOkay->setObjectName("btnOkay");
    btnOkay->setDefault(true);
    connect(btnOkay, &QPushButton::clicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstShortcuts);
    layout->addWidget(btnOkay, 0, Qt::AlignRight);
    resize(440, 620);
}
