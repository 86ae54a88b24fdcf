#include "platform/SettingColor.h"

#include <QGuiApplication>
#include <QPalette>

namespace SettingColor {

bool isSystemColor(qint32 value) {
    return (static_cast<quint32>(value) & 0xFFFFFF00U) == 0x80000000U;
}

QColor toQColor(qint32 value) {
    const auto bits = static_cast<quint32>(value);
    if (isSystemColor(value)) {
        const QPalette palette = QGuiApplication::palette();
        switch (bits & 0xFFU) {
        case 0x05: // window
            return palette.color(QPalette::Base);
        case 0x08: // window text
            return palette.color(QPalette::Text);
        case 0x09: // caption text, light on the caption
            return palette.color(QPalette::BrightText);
        case 0x0D: // highlight
            return palette.color(QPalette::Highlight);
        case 0x0E: // highlighted text
            return palette.color(QPalette::HighlightedText);
        case 0x12: // button text
            return palette.color(QPalette::ButtonText);
        default: // 0x0F button face, and the rest of the system colours
            return palette.color(QPalette::Button);
        }
    }
    return QColor(static_cast<int>(bits & 0xFFU), static_cast<int>((bits >> 8) & 0xFFU),
                  static_cast<int>((bits >> 16) & 0xFFU));
}

qint32 fromQColor(const QColor& color) {
    const QColor rgb = color.toRgb();
    return static_cast<qint32>(static_cast<quint32>(rgb.red()) |
                               (static_cast<quint32>(rgb.green()) << 8) |
                               (static_cast<quint32>(rgb.blue()) << 16));
}

} // namespace SettingColor
