#pragma once

#include <QSizeF>

// The size of a text document's text box, in twips, when its window is resized: the window's
// height less 420 once the window is at least 420 high, its width less 100 once it is wider
// than 100. Below those limits the box keeps the side it had.
namespace TextLayout {

QSizeF textSize(const QSizeF& window, const QSizeF& current);

} // namespace TextLayout
