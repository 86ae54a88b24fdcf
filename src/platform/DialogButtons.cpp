#include "platform/DialogButtons.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>

namespace {

// Sees the keys of every control before the control does, and turns Return and Enter in its
// dialog into a click of the dialog's OK button. It goes with the dialog.
class EnterClicksOk final : public QObject {
public:
    EnterClicksOk(QDialog* dialog, QAbstractButton* ok)
        : QObject(dialog), m_dialog(dialog), m_ok(ok) {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !m_ok)
            return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        auto* widget = qobject_cast<QWidget*>(watched);
        if ((key != Qt::Key_Return && key != Qt::Key_Enter) || !widget ||
            widget->window() != m_dialog)
            return false;
        if (m_ok->isEnabled())
            m_ok->click();
        return true;
    }

private:
    QDialog* m_dialog;
    QPointer<QAbstractButton> m_ok;
};

} // namespace

DialogButtons DialogButtons::okCancel(QDialog* dialog) {
    DialogButtons buttons;
    buttons.ok = new QPushButton(QDialog::tr("OK"), dialog);
    buttons.ok->setObjectName(QStringLiteral("OKBtn"));
    buttons.ok->setDefault(true);
    buttons.cancel = new QPushButton(QDialog::tr("Cancel"), dialog);
    buttons.cancel->setObjectName(QStringLiteral("CancelBtn"));
    buttons.row = new QHBoxLayout;
    buttons.row->addStretch();
    buttons.row->addWidget(buttons.ok);
    buttons.row->addWidget(buttons.cancel);
    QObject::connect(buttons.cancel, &QPushButton::clicked, dialog, &QDialog::reject);
    return buttons;
}

void DialogButtons::enterAnywhereClicks(QDialog* dialog, QAbstractButton* ok) {
    new EnterClicksOk(dialog, ok);
}
