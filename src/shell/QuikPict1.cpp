#include "shell/QuikPict1.h"

#include "platform/Activation.h"
#include "platform/Twips.h"
#include "platform/WidgetPaint.h"
#include "platform/WindowRegistry.h"
#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/PictureView.h"
#include "shell/Globals.h"

#include <QEvent>
#include <QFrame>

using namespace Qt::StringLiterals;

QString QuikPict1::WindowName() {
    return u"QuikPict1"_s;
}

QuikPict1::QuikPict1(QWidget* parent) : QWidget(parent, Qt::Tool) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Quick View"));
    Frame1 = new QFrame(this);
    Frame1->setObjectName(u"Frame1"_s);
    Frame1->setFrameShape(QFrame::StyledPanel);
    Image1 = new PictureView(Frame1);
    Image1->setObjectName(u"Image1"_s);
    Image1->setAccessibleName(tr("Quick View"));
    connect(Image1, &PictureView::mouseReleased, this, [this](Qt::MouseButton button, QPoint) {
        if (button == Qt::LeftButton)
            Image1_Click();
    });
    resize(Twips::toPixels(3600), Twips::toPixels(3200));
    globals().gQuikPictOpen = true;
}

QuikPict1::~QuikPict1() {
    globals().gQuikPictOpen = false;
}

void QuikPict1::loadPicture(const QString& path) {
    const ImageCodec::Picture picture = ImageCodec::decode(path);
    if (picture.error)
        return;
    Image1->setImage(picture.image);
    if (Image1->paintSizeMode() == PictureView::Loading)
        Image1->setPaintSizeMode(PictureView::Stretch);
}

void QuikPict1::Image1_Click() {
    if (Image1->paintSizeMode() == PictureView::Normal)
        Image1->setPaintSizeMode(PictureView::Stretch);
    else if (Image1->paintSizeMode() == PictureView::Stretch)
        Image1->setPaintSizeMode(PictureView::Normal);
}

void QuikPict1::Form_Activate() {
    const Globals& g = globals();
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor);
    WidgetPaint::paint(Frame1, g.gMainBackColor, g.gMainForeColor);
}

void QuikPict1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (Activation::becameActive(this, event))
        Form_Activate();
}

void QuikPict1::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Form_Activate();
}

void QuikPict1::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const double w = Twips::fromPixels(width());
    const double h = Twips::fromPixels(height());
    Frame1->setGeometry(Twips::toPixels(60), Twips::toPixels(60),
                        std::max(0, Twips::toPixels(w - 195)),
                        std::max(0, Twips::toPixels(h - 495)));
    Image1->setGeometry(Twips::toPixels(135), Twips::toPixels(135),
                        std::max(0, Twips::toPixels(w - 465)),
                        std::max(0, Twips::toPixels(h - 720)));
}
