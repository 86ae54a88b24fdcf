#pragma once

#include <QColor>
#include <QtGlobal>

// Colours of the settings are 32-bit integers in blue, green, red order (0xBBGGRR).
// Values of the form 0x800000nn stand for a colour of the desktop's palette.
namespace SettingColor {

inline constexpr qint32 ButtonFace = static_cast<qint32>(0x8000000FU);

bool isSystemColor(qint32 value);
QColor toQColor(qint32 value);
qint32 fromQColor(const QColor& color);

} // namespace SettingColor
