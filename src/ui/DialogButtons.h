#pragma once
// The OK and Cancel buttons every dialog of the editor ends with, right-aligned, OK the default.

#include <QHBoxLayout>
#include <QPushButton>

// Makes btnOkay and btnCancel (with those objectNames) on parent and returns their row. Cancel
// rejects the dialog; what OK does is the caller's to connect.
inline QHBoxLayout* OkCancelRow(QWidget* parent, QPushButton*& btnOkay, QPushButton*& btnCancel) {
    btnOkay = new QPushButton("OK", parent);
    btnOkay->setObjectName("btnOkay");
    btnOkay->setDefault(true);
    btnCancel = new QPushButton("Cancel", parent);
    btnCancel->setObjectName("btnCancel");
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(btnOkay);
    row->addWidget(btnCancel);
    return row;
}
