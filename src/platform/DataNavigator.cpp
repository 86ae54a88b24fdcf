#include "platform/DataNavigator.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

using namespace Qt::StringLiterals;

DataNavigator::DataNavigator(QWidget* parent) : QWidget(parent) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    struct Button {
        Action action;
        const char* name;
        const char* text;
        const char* tip;
    };
    static const Button buttons[] = {
        {MoveFirst, "FirstRecord", "|<", QT_TR_NOOP("First Record")},
        {MovePrevious, "PreviousRecord", "<", QT_TR_NOOP("Previous Record")},
        {MoveNext, "NextRecord", ">", QT_TR_NOOP("Next Record")},
        {MoveLast, "LastRecord", ">|", QT_TR_NOOP("Last Record")},
    };
    m_caption = new QLabel(this);
    m_caption->setObjectName(u"Caption"_s);
    m_caption->setFrameShape(QFrame::Panel);
    m_caption->setFrameShadow(QFrame::Sunken);
    m_caption->setTextInteractionFlags(Qt::NoTextInteraction);
    m_caption->setMinimumWidth(0);
    m_caption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    for (const Button& b : buttons) {
        auto* button = new QToolButton(this);
        button->setObjectName(QString::fromLatin1(b.name));
        button->setText(QString::fromLatin1(b.text));
        button->setToolTip(tr(b.tip));
        button->setAccessibleName(tr(b.tip));
        button->setAutoRepeat(b.action == MovePrevious || b.action == MoveNext);
        const Action action = b.action;
        connect(button, &QToolButton::clicked, this, [this, action] { navigate(action); });
        m_buttons[b.action - 1] = button;
    }
    layout->addWidget(m_buttons[0]);
    layout->addWidget(m_buttons[1]);
    layout->addWidget(m_caption, 1);
    layout->addWidget(m_buttons[2]);
    layout->addWidget(m_buttons[3]);
}

QString DataNavigator::Caption() const {
    return m_caption->text();
}

void DataNavigator::setCaption(const QString& caption) {
    m_caption->setText(caption);
    m_caption->setToolTip(caption);
}

QToolButton* DataNavigator::button(Action action) const {
    return m_buttons[action - 1];
}

void DataNavigator::navigate(Action action) {
    Q_EMIT Validate(action);
    moveRecord(action);
    Q_EMIT Reposition();
}
