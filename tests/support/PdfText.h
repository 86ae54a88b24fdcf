#pragma once

#include <QImage>
#include <QList>
#include <QProcess>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <algorithm>

// What a PDF shows, read back with poppler's pdftotext -bbox: the size of each page and every
// word with its page and box, in points from the top-left corner of its page.
struct PdfText {
    struct Word {
        int page = 0;
        QRectF box;
        QString text;
    };
    QList<QSizeF> pages;
    QList<Word> words;

    static PdfText read(const QString& path) {
        QProcess run;
        run.start(QStringLiteral("pdftotext"),
                  {QStringLiteral("-bbox"), path, QStringLiteral("-")});
        run.waitForFinished(60000);
        PdfText pdf;
        QXmlStreamReader xml(run.readAllStandardOutput());
        while (!xml.atEnd()) {
            if (!xml.readNextStartElement())
                continue;
            const auto number = [&](const char* name) {
                return xml.attributes().value(QLatin1String(name)).toDouble();
            };
            if (xml.name() == QLatin1String("page")) {
                pdf.pages.append(QSizeF(number("width"), number("height")));
            } else if (xml.name() == QLatin1String("word")) {
                const QRectF box(QPointF(number("xMin"), number("yMin")),
                                 QPointF(number("xMax"), number("yMax")));
                // Ligatures come back as the letters they join.
                pdf.words.append({int(pdf.pages.size()), box,
                                  xml.readElementText().normalized(QString::NormalizationForm_KC)});
            }
        }
        return pdf;
    }

    // The words of a page (from 1) line by line from the top, each line from the left, joined
    // by blanks. Text printed at the same height counts as one line whatever its size.
    QString pageText(int page) const {
        QList<Word> onPage;
        for (const Word& w : words) {
            if (w.page == page)
                onPage.append(w);
        }
        std::stable_sort(onPage.begin(), onPage.end(), [](const Word& a, const Word& b) {
            const int ya = qRound(a.box.top()), yb = qRound(b.box.top());
            return ya != yb ? ya < yb : a.box.left() < b.box.left();
        });
        QStringList texts;
        for (const Word& w : onPage)
            texts.append(w.text);
        return texts.join(QLatin1Char(' '));
    }

    // The first word of a page that is exactly `text`; a word of page 0 when there is none.
    Word find(const QString& text, int page = 0) const {
        for (const Word& w : words) {
            if (w.text == text && (page == 0 || w.page == page))
                return w;
        }
        return {};
    }

    // A page rendered at `dpi` by pdftoppm, for what words cannot show (pictures).
    static QImage render(const QString& path, int page, int dpi) {
        QTemporaryDir dir;
        const QString stem = dir.filePath(QStringLiteral("page"));
        QProcess::execute(QStringLiteral("pdftoppm"),
                          {QStringLiteral("-r"), QString::number(dpi), QStringLiteral("-f"),
                           QString::number(page), QStringLiteral("-l"), QString::number(page),
                           QStringLiteral("-singlefile"), QStringLiteral("-png"), path, stem});
        return QImage(stem + QStringLiteral(".png"));
    }
};
