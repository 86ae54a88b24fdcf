#pragma once

#include <QDialog>
#include <QTimer>

// A window of a later part of the program, standing in for it in the registry: it counts its
// showings, and shown as a dialog it closes itself at once.
class StandIn : public QDialog {
public:
    int shows = 0;

protected:
    void showEvent(QShowEvent* event) override {
        ++shows;
        QDialog::showEvent(event);
        if (isModal())
            QTimer::singleShot(0, this, &QDialog::reject);
    }
};
