#pragma once

#include <QFont>
#include <QString>

#include <functional>
#include <memory>

class QImage;
class QPagedPaintDevice;
class QPainter;
class QRectF;

// A printer as the print jobs see it: positions and sizes in inches from the top-left corner of
// the printable area of a Letter page, a print position that text moves on, a font, lines that
// end or go on, character columns to tab to, new pages and the end of the document.
//
// Painting begins with the first thing printed, so that a job that prints nothing leaves an
// empty document; a new page asked for on a page that is still blank starts none.
class PrinterSurface {
public:
    static constexpr double PageWidth = 8.5;
    static constexpr double PageHeight = 11.0;

    explicit PrinterSurface(QPagedPaintDevice& device);
    ~PrinterSurface();
    PrinterSurface(const PrinterSurface&) = delete;
    PrinterSurface& operator=(const PrinterSurface&) = delete;

    // The print position, in inches.
    double CurrentX = 0;
    double CurrentY = 0;

    // "MS Sans Serif" stands for the system's sans-serif font.
    void setFontName(const QString& name);
    void setFontSize(double points);
    void setFontBold(bool bold);
    void setFontItalic(bool italic);
    double fontSize() const { return m_font.pointSizeF(); }
    const QFont& font() const { return m_font; }

    // Prints the text at the print position and ends the line: X goes back to 0 and Y down by
    // the height of a line. A line break in the text starts a new line the same way.
    void print(const QString& text = QString());
    // Prints the text and leaves the print position behind it.
    void printPart(const QString& text);
    // Moves the print position to a character column (columns as wide as the font's average
    // character, the first at 0); when the position is past it already, to that column of the
    // next line.
    void tab(int column);

    double textWidth(const QString& text) const;
    double textHeight() const;

    // Draws a picture into a rectangle given in inches.
    void drawImage(const QImage& image, const QRectF& inches);

    // Ends the page; the print position returns to the top-left corner.
    void newPage();
    // Ends the document. Nothing printed means nothing was sent.
    void endDoc();

    // Pages begun so far.
    int pages() const { return m_pages; }
    // Whether the device can no longer take pages (a printer gone, a file that cannot be
    // written). Jobs stop printing when it says so.
    bool failed() const;
    // A further test of the device's health, for devices that know more than their painter.
    void setFailureCheck(std::function<bool()> check) { m_failureCheck = std::move(check); }

    // The painter on the current page (begun when needed) and the device's dots an inch, for
    // content that lays itself out, such as a text document.
    QPainter& painter();
    double dotsPerInch() const;

private:
    bool begin();
    void lineFeed();
    void drawText(const QString& text);

    QPagedPaintDevice& m_device;
    std::unique_ptr<QPainter> m_painter;
    QFont m_font;
    std::function<bool()> m_failureCheck;
    bool m_begun = false;
    bool m_ended = false;
    bool m_pageMarked = false;
    int m_pages = 0;
};
