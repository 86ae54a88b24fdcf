#include "printing/PrinterSurface.h"

#include "platform/FontNames.h"
#include <QFontMetricsF>
#include <QImage>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QRectF>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

PrinterSurface::PrinterSurface(QPagedPaintDevice& device) : m_device(device) {
    setFontName(u"MS Sans Serif"_s);
    m_font.setPointSizeF(10);
}

PrinterSurface::~PrinterSurface() {
    endDoc();
}

void PrinterSurface::setFontName(const QString& name) {
    m_font.setFamily(FontNames::familyOf(name));
    m_font.setStyleHint(FontNames::isSystemSans(name) ? QFont::SansSerif : QFont::AnyStyle);
}

void PrinterSurface::setFontSize(double points) {
    if (points > 0)
        m_font.setPointSizeF(points);
}

void PrinterSurface::setFontBold(bool bold) {
    m_font.setBold(bold);
}

void PrinterSurface::setFontItalic(bool italic) {
    m_font.setItalic(italic);
}

double PrinterSurface::dotsPerInch() const {
    return m_device.logicalDpiY();
}

double PrinterSurface::textWidth(const QString& text) const {
    return QFontMetricsF(m_font, &m_device).horizontalAdvance(text) / m_device.logicalDpiX();
}

double PrinterSurface::textHeight() const {
    return QFontMetricsF(m_font, &m_device).lineSpacing() / dotsPerInch();
}

bool PrinterSurface::begin() {
    if (m_ended)
        return false;
    if (!m_begun) {
        m_begun = true;
        m_painter = std::make_unique<QPainter>();
        if (!m_painter->begin(&m_device))
            return false;
        m_pages = 1;
    }
    if (!m_painter->isActive())
        return false;
    m_pageMarked = true;
    return true;
}

QPainter& PrinterSurface::painter() {
    begin();
    return *m_painter;
}

bool PrinterSurface::failed() const {
    if (m_begun && (!m_painter || !m_painter->isActive()) && !m_ended)
        return true;
    return m_failureCheck && m_failureCheck();
}

void PrinterSurface::drawText(const QString& text) {
    if (text.isEmpty() || !begin())
        return;
    m_painter->setFont(m_font);
    const QFontMetricsF metrics(m_font, &m_device);
    const double dpiX = m_device.logicalDpiX();
    const QPointF baseline(CurrentX * dpiX, CurrentY * dotsPerInch() + metrics.ascent());
    m_painter->drawText(baseline, text);
    CurrentX += metrics.horizontalAdvance(text) / dpiX;
}

void PrinterSurface::lineFeed() {
    CurrentX = 0;
    CurrentY += textHeight();
}

void PrinterSurface::printPart(const QString& text) {
    // Each line break of the text ends a printed line.
    QString normal = text;
    normal.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    const QStringList lines = normal.split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0)
            lineFeed();
        drawText(lines.at(i));
    }
}

void PrinterSurface::print(const QString& text) {
    printPart(text);
    lineFeed();
}

void PrinterSurface::tab(int column) {
    const double width =
        QFontMetricsF(m_font, &m_device).averageCharWidth() / m_device.logicalDpiX();
    const double x = std::max(column, 0) * width;
    // A little slack, so that text ending exactly at the column does not count as past it.
    if (CurrentX > x + width / 100)
        lineFeed();
    CurrentX = x;
}

void PrinterSurface::drawImage(const QImage& image, const QRectF& inches) {
    if (image.isNull() || !begin())
        return;
    const double dpiX = m_device.logicalDpiX();
    const double dpiY = dotsPerInch();
    const QRectF target(inches.x() * dpiX, inches.y() * dpiY, inches.width() * dpiX,
                        inches.height() * dpiY);
    m_painter->setRenderHint(QPainter::SmoothPixmapTransform);
    m_painter->drawImage(target, image);
}

void PrinterSurface::newPage() {
    CurrentX = 0;
    CurrentY = 0;
    if (!m_pageMarked || !m_painter || !m_painter->isActive())
        return;
    if (m_device.newPage())
        ++m_pages;
    m_pageMarked = false;
}

void PrinterSurface::endDoc() {
    if (m_ended)
        return;
    m_ended = true;
    if (m_painter && m_painter->isActive())
        m_painter->end();
}
