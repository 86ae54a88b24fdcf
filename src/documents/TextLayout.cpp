#include "documents/TextLayout.h"

namespace TextLayout {

QSizeF textSize(const QSizeF& window, const QSizeF& current) {
    QSizeF size = current;
    if (window.height() >= 420)
        size.setHeight(window.height() - 420);
    if (window.width() > 100)
        size.setWidth(window.width() - 100);
    return size;
}

} // namespace TextLayout
