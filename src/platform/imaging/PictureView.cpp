#include "platform/imaging/PictureView.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
    setAutoFillBackground(true);
    setFocusPolicy(Qt::ClickFocus);
}

void PictureView::setImage(const QImage& image) {
    m_image = image;
    if (m_autoRepaint)
        update();
}

void PictureView::setPaintSizeMode(int mode) {
    m_mode = mode;
    if (m_autoRepaint)
        update();
}

void PictureView::setAutoRepaint(bool on) {
    m_autoRepaint = on;
    if (on)
        update();
}

QPoint PictureView::imagePoint(QPoint viewPoint) const {
    return imagePoint(viewPoint, size(), m_image.size(), m_mode);
}

QPoint PictureView::imagePoint(QPoint viewPoint, QSize view, QSize image, int mode) {
    if (mode != Stretch || view.isEmpty() || image.isEmpty())
        return viewPoint;
    const auto scale = [](int at, int from, int to) {
        return static_cast<int>(std::floor(double(at) * to / from));
    };
    return {scale(viewPoint.x(), view.width(), image.width()),
            scale(viewPoint.y(), view.height(), image.height())};
}

void PictureView::paintEvent(QPaintEvent*) {
    if (m_image.isNull() || m_mode == Loading)
        return;
    QPainter painter(this);
    if (m_mode == Stretch) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect(), m_image);
    } else {
        painter.drawImage(0, 0, m_image);
    }
}

void PictureView::mouseDoubleClickEvent(QMouseEvent* event) {
    Q_EMIT doubleClicked();
    event->accept();
}

void PictureView::mousePressEvent(QMouseEvent* event) {
    Q_EMIT mousePressed(event->button(), event->position().toPoint());
    event->accept();
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
    Q_EMIT mouseReleased(event->button(), event->position().toPoint());
    event->accept();
}
