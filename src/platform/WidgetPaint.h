#pragma once

#include <QtGlobal>

#include <optional>

class QWidget;

namespace WidgetPaint {

// Paints a widget with colours of the settings (0xBBGGRR or a system colour) as its
// background and text, and sets its font bold when asked.
void paint(QWidget* widget, qint32 back, qint32 fore, std::optional<bool> bold = std::nullopt);

} // namespace WidgetPaint
