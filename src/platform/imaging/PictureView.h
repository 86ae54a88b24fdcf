#pragma once

#include <QImage>
#include <QWidget>

// Paints one picture at its natural size from the top-left corner, or stretched over the whole
// widget, on the widget's background colour.
class PictureView : public QWidget {
    Q_OBJECT
public:
    enum PaintSizeMode { Normal = 0, Stretch = 1, Loading = 3 };

    explicit PictureView(QWidget* parent = nullptr);

    void setImage(const QImage& image);
    const QImage& image() const { return m_image; }
    QImage& editableImage() { return m_image; }
    void setPaintSizeMode(int mode);
    int paintSizeMode() const { return m_mode; }
    // Off while a change is under way; on again repaints once.
    void setAutoRepaint(bool on);
    // The pixel of the picture under a point of the view: the same point at natural size, the
    // point scaled to the picture when stretched.
    QPoint imagePoint(QPoint viewPoint) const;
    static QPoint imagePoint(QPoint viewPoint, QSize view, QSize image, int mode);

Q_SIGNALS:
    void doubleClicked();
    void mousePressed(Qt::MouseButton button, QPoint position);
    void mouseReleased(Qt::MouseButton button, QPoint position);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QImage m_image;
    int m_mode = Loading;
    bool m_autoRepaint = true;
};
