#pragma once

class QAbstractButton;
class QDialog;
class QHBoxLayout;
class QPushButton;

// The OK and Cancel buttons of a small dialog, named OKBtn and CancelBtn, right-aligned in a row;
// OK is the default button and Cancel rejects the dialog.
struct DialogButtons {
    QPushButton* ok = nullptr;
    QPushButton* cancel = nullptr;
    QHBoxLayout* row = nullptr;

    static DialogButtons okCancel(QDialog* dialog);
    // Return and Enter click `ok` whichever control of the dialog has the focus, its other
    // buttons included.
    static void enterAnywhereClicks(QDialog* dialog, QAbstractButton* ok);
};
