#include "shell/NamedWidgets.h"

#include "platform/WidgetPaint.h"
#include "shell/Globals.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>

namespace NamedWidgets {

QPushButton* button(QWidget* parent, const char* name, const QString& caption, const QString& tip) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setToolTip(tip);
    b->setAccessibleName(caption.isEmpty() ? tip : QString(caption).remove(u'&'));
    return b;
}

QLabel* label(QWidget* parent, const QString& name, const QString& text) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(name);
    l->setAccessibleName(text);
    return l;
}

QLineEdit* entry(QWidget* parent, const char* name, const QString& tip) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(QString::fromLatin1(name));
    e->setToolTip(tip);
    e->setAccessibleName(tip);
    return e;
}

QHBoxLayout* rightAligned(std::initializer_list<QWidget*> widgets) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (QWidget* widget : widgets)
        row->addWidget(widget);
    return row;
}

void paintWindow(QWidget* window) {
    const Globals& g = globals();
    WidgetPaint::paint(window, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    for (QWidget* child : window->findChildren<QWidget*>()) {
        if (qobject_cast<QPushButton*>(child) || qobject_cast<QToolButton*>(child))
            WidgetPaint::paint(child, g.gButtonColor, g.gWindowForeColor, g.gBoldType);
        else if (qobject_cast<QAbstractButton*>(child)) // check boxes and option buttons
            WidgetPaint::paint(child, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
        else if (qobject_cast<QLineEdit*>(child) || qobject_cast<QPlainTextEdit*>(child) ||
                 qobject_cast<QTextEdit*>(child) || qobject_cast<QComboBox*>(child))
            WidgetPaint::paint(child, g.gEntryBackColor, g.gEntryForeColor, g.gBoldType);
        else if (qobject_cast<QListWidget*>(child))
            WidgetPaint::paint(child, g.gListBackColor, g.gListForeColor, g.gBoldType);
        else if (qobject_cast<QLabel*>(child))
            WidgetPaint::paint(child, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    }
}

} // namespace NamedWidgets
