#include "platform/WidgetPaint.h"

#include "platform/SettingColor.h"

#include <QWidget>

namespace WidgetPaint {

void paint(QWidget* widget, qint32 back, qint32 fore, std::optional<bool> bold) {
    QPalette palette = widget->palette();
    const QColor backColor = SettingColor::toQColor(back);
    const QColor foreColor = SettingColor::toQColor(fore);
    for (QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, backColor);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, foreColor);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
    if (bold) {
        QFont font = widget->font();
        font.setBold(*bold);
        widget->setFont(font);
    }
}

} // namespace WidgetPaint
