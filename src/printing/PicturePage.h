#pragma once

#include <QString>

class PrinterSurface;
class QImage;

// One picture on one page under a one-line title; everything in inches on a Letter page.
namespace PicturePage {

// The size a picture of `width` by `height` inches prints at, from what the two size boxes
// read: the side the page limits takes the whole inches typed for it, the other follows the
// picture's proportions. A box that reads 0 takes the picture's own size first.
struct Fit {
    QString widthText; // the boxes as FitPicture leaves them
    QString heightText;
    int PictureWidth = 0;
    double PictureHeight = 0;
};
Fit FitPicture(double width, double height, const QString& widthText, const QString& heightText);

// The text of a number in a box, and that text cut to the length of another box's text when it
// has fewer than five characters, else to five.
QString numberText(double value);
QString cutToBox(const QString& text, const QString& otherBox);

// Where a title of the given printed width starts so that it stands in the middle of the page.
double centredX(double titleWidth);

struct Layout {
    QString title;
    double titleX = 0;
    double titleY = 1.0;
    double x = 0;
    double y = 2.0;
    int width = 0;
    double height = 0;
};
// Prints the title as one line at its place, then the picture at its place and size.
void print(PrinterSurface& surface, const Layout& layout, const QImage& picture);

} // namespace PicturePage
