#include "printing/PicturePage.h"

#include "printing/PrinterSurface.h"
#include "settings/SettingsText.h"

#include <QImage>
#include <QRectF>

#include <cmath>

namespace PicturePage {

namespace {

// Whole numbers as the program counts them: halves go to the even neighbour.
double whole(double value) {
    return std::nearbyint(value);
}

} // namespace

QString numberText(double value) {
    return SettingsText::fromNumber(value).trimmed();
}

QString cutToBox(const QString& text, const QString& otherBox) {
    return text.left(otherBox.size() < 5 ? otherBox.size() : 5);
}

Fit FitPicture(double width, double height, const QString& widthText, const QString& heightText) {
    Fit fit{widthText, heightText, 0, 0};
    if (width <= 0 || height <= 0)
        return fit;
    if (SettingsText::leadingNumber(fit.heightText) == 0)
        fit.heightText = numberText(height);
    if (SettingsText::leadingNumber(fit.widthText) == 0)
        fit.widthText = numberText(width);
    const double typedHeight = whole(SettingsText::leadingNumber(fit.heightText));
    const double typedWidth = whole(SettingsText::leadingNumber(fit.widthText));
    if (height * PrinterSurface::PageWidth / width < PrinterSurface::PageHeight) {
        fit.PictureWidth = int(typedWidth);
        fit.PictureHeight = height * typedWidth / width;
    } else {
        fit.PictureHeight = typedHeight;
        fit.PictureWidth = int(whole(width * typedHeight / height));
    }
    return fit;
}

double centredX(double titleWidth) {
    return (PrinterSurface::PageWidth - whole(titleWidth)) / 2;
}

void print(PrinterSurface& surface, const Layout& layout, const QImage& picture) {
    surface.CurrentX = layout.titleX;
    surface.CurrentY = layout.titleY;
    surface.print(layout.title);
    surface.drawImage(picture, QRectF(layout.x, layout.y, layout.width, layout.height));
}

} // namespace PicturePage
