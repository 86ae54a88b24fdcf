#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

// Acts on the modal dialog of type D as soon as it shows: call before the command that opens it.
template <class D> void answerModal(std::function<void(D*)> act) {
    QTimer::singleShot(0, [act] {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (auto* dialog = qobject_cast<D*>(w); dialog && dialog->isVisible()) {
                act(dialog);
                return;
            }
        }
    });
}
