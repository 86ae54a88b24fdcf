#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

// Acts on the modal dialog of type D as soon as it shows: call before the command that opens
// it. The dialog is looked for until it is there, for at most five seconds.
template <class D> void answerModal(std::function<void(D*)> act, int triesLeft = 500) {
    QTimer::singleShot(triesLeft == 500 ? 0 : 10, [act, triesLeft] {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (auto* dialog = qobject_cast<D*>(w); dialog && dialog->isVisible()) {
                act(dialog);
                return;
            }
        }
        if (triesLeft > 0)
            answerModal<D>(act, triesLeft - 1);
    });
}
