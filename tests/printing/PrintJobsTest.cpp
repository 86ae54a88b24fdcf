#include "platform/tables/TableRecordset.h"
#include "printing/DatabaseListing.h"
#include "printing/LocationReport.h"
#include "printing/PrintHeading.h"
#include "printing/PrintMetrics.h"
#include "printing/PrinterSurface.h"
#include "printing/TextPrinting.h"
#include "support/PdfText.h"
#include "support/TempFolder.h"

#include <QPageLayout>
#include <QPdfWriter>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QDateTime kWhen(QDate(2026, 3, 4), QTime(9, 5, 7));

// Prints to a PDF file as the program does; gives the pages begun.
int printPdf(const QString& path, const std::function<void(PrinterSurface&)>& job) {
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    QPdfWriter writer(&file);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, {}));
    PrinterSurface surface(writer);
    job(surface);
    surface.endDoc();
    return surface.pages();
}

PdfText listTable(const QString& dbf, double points, int* pages = nullptr) {
    TableRecordset::Opened opened =
        TableRecordset::open(u"dBASE 5.0;"_s, QStringLiteral(QUORVANE_GENERATED_TABLES), dbf);
    EXPECT_FALSE(opened.error) << dbf.toStdString();
    DatabaseListing::Job job;
    const QList<TableField>& fields = opened.recordset->fields();
    for (int i = 0; i < fields.size(); ++i)
        job.fields.append({fields[i].name, i, fields[i].size});
    job.metrics = PrintMetrics::forFont(points, false);
    job.fontSize = points;
    job.printFile = dbf;
    job.when = kWhen;
    TempFolder folder;
    const int begun = printPdf(folder.file(u"list.pdf"_s), [&](PrinterSurface& s) {
        s.setFontSize(points);
        DatabaseListing::print(s, *opened.recordset, job);
    });
    if (pages)
        *pages = begun;

    return PdfText::read(folder.file(u"list.pdf"_s));
}

} // namespace

TEST(PrintMetrics, SizesAtTheEdgesOfTheRowsAndBold) {
    const struct {
        double points;
        bool bold;
        PrintMetrics want;
    } cases[] = {
        {10.5, false, {90, 14, 35, 18}}, {20, false, {90, 14, 35, 18}},
        {19, false, {85, 14, 35, 40}},   {22, false, {80, 14, 35, 33}},
        {21.5, false, {80, 14, 35, 33}}, {6.5, false, {154, 18, 125, 90}},
        {14, true, {75, 14, 25, 47}},    {8, false, {142, 16, 100, 80}},
    };
    for (const auto& c : cases) {
        const PrintMetrics m = PrintMetrics::forFont(c.points, c.bold);
        EXPECT_EQ(m.LineWidth, c.want.LineWidth) << c.points;
        EXPECT_EQ(m.ColumnGap, c.want.ColumnGap) << c.points;
        EXPECT_EQ(m.RuleExtra, c.want.RuleExtra) << c.points;
        EXPECT_EQ(m.LinesPerPage, c.want.LinesPerPage) << c.points;
    }
}

TEST(DatabaseListing, EveryPageIsNumberedAndHeadedWithTheColumnsAndRecordsAreRuled) {
    const struct {
        double points;
        bool severalPages;
    } cases[] = {{8, false}, {20, true}};
    for (const auto& c : cases) {
        const PdfText pdf = listTable(u"ITEMS.DBF"_s, c.points);
        ASSERT_FALSE(pdf.pages.isEmpty());
        EXPECT_EQ(pdf.pages.size() > 1, c.severalPages) << c.points;
        int records = 0;
        for (int page = 1; page <= pdf.pages.size(); ++page) {
            const QString text = pdf.pageText(page);
            EXPECT_TRUE(text.contains(u"Page No. %1 "_s.arg(page))) << text.toStdString();
            EXPECT_TRUE(text.contains(u"List Data for File: ITEMS.DBF"_s));
            const PdfText::Word code = pdf.find(u"CODE"_s, page);
            const PdfText::Word item = pdf.find(u"ITEM"_s, page);
            EXPECT_EQ(code.page, page);
            EXPECT_NEAR(code.box.top(), item.box.top(), 1);
            EXPECT_GT(item.box.left(), code.box.right());
            records += int(text.count(u" C00"_s));
        }
        EXPECT_EQ(records, 20) << c.points;
        // The rule is wider than the page and runs off its right edge.
        const auto rule = std::find_if(pdf.words.begin(), pdf.words.end(),
                                       [](const auto& w) { return w.text.startsWith(u"-----"_s); });
        ASSERT_NE(rule, pdf.words.end());
        EXPECT_NEAR(rule->box.left(), 0, 1);
        EXPECT_GT(rule->box.right(), pdf.pages.first().width() - 2);
    }
}

TEST(DatabaseListing, FieldsPastTheLineStartAgainAtColumnZeroAndAnEmptyTablePrintsNothing) {
    // At 14 points a line holds 90 characters: PAID would start at 97.
    const PdfText sales = listTable(u"SALES.DBF"_s, 14);
    const PdfText::Word name = sales.find(u"NAME"_s);
    const PdfText::Word paid = sales.find(u"PAID"_s);
    const PdfText::Word qty = sales.find(u"QTY"_s);
    EXPECT_NEAR(paid.box.left(), name.box.left(), 1);
    EXPECT_GT(paid.box.top(), name.box.bottom());
    EXPECT_NEAR(qty.box.top(), name.box.top(), 1);

    int pages = -1;
    EXPECT_TRUE(listTable(u"EMPTY.DBF"_s, 8, &pages).pages.isEmpty());
    EXPECT_EQ(pages, 0);
}

TEST(TextPrinting, AHeadingPageOfItsOwnThenTheBodyAndAnEmptyFileGivesTheHeadingAlone) {
    for (const QString& body : {u"first line\nsecond line"_s, QString()}) {
        TempFolder folder;
        TextPrinting::Job job{u"notes.txt"_s, u"MS Sans Serif"_s, 8, kWhen};
        printPdf(folder.file(u"t.pdf"_s),
                 [&](PrinterSurface& s) { TextPrinting::print(s, job, body, false); });
        const PdfText pdf = PdfText::read(folder.file(u"t.pdf"_s));
        ASSERT_EQ(pdf.pages.size(), body.isEmpty() ? 1 : 2);
        const QString heading = pdf.pageText(1);
        EXPECT_TRUE(heading.startsWith(PrintHeading::dateText(kWhen).simplified()))
            << heading.toStdString();
        EXPECT_TRUE(heading.contains(u"List Data for File: notes.txt Page No. 1"_s));
        EXPECT_FALSE(heading.contains(u"first"_s));
        if (!body.isEmpty()) {
            EXPECT_EQ(pdf.pageText(2), u"first line second line"_s);
        }
        // The title stands at 2.9 inches, the page number at 7.2.
        EXPECT_NEAR(pdf.find(u"List"_s).box.left(), 2.9 * 72, 1);
        EXPECT_NEAR(pdf.find(u"Page"_s).box.left(), 7.2 * 72, 1);
    }
    EXPECT_EQ(PrintHeading::pageText(1), u"Page No.  1"_s);
    EXPECT_EQ(DatabaseListing::rule(PrintMetrics::forFont(8, false)).size(), 242);
}

TEST(LocationReport, FoldersInOrderEachNamedAgainOnAPageItGoesOnToAndNoHitsNoPage) {
    TempFolder folder;
    QByteArray lines = "##/data/a\r\nuno.bmp\r\n##/data/b\r\n";
    for (int i = 0; i < 30; ++i)
        lines += "pic" + QByteArray::number(i) + ".bmp\r\n";
    folder.write(u"F@Prnt.INI"_s, lines);
    folder.write(u"empty.INI"_s, {});
    LocationReport::Job job{u"pic.bmp"_s, true, PrintMetrics::forFont(20, false), 20, kWhen};
    printPdf(folder.file(u"r.pdf"_s), [&](PrinterSurface& s) {
        EXPECT_TRUE(LocationReport::print(s, folder.file(u"F@Prnt.INI"_s), job));
    });
    const PdfText pdf = PdfText::read(folder.file(u"r.pdf"_s));
    ASSERT_GT(pdf.pages.size(), 2);
    EXPECT_TRUE(pdf.pageText(1).contains(u"Folder Locations for File: pic.bmp Page No. 1 "
                                         "/data/a uno.bmp /data/b pic0.bmp"_s));
    for (int page = 2; page <= pdf.pages.size(); ++page) {
        const PdfText::Word named = pdf.find(u"/data/b"_s, page);
        EXPECT_EQ(named.page, page);
        EXPECT_LT(named.box.top(), 1.5 * 72);
        EXPECT_TRUE(pdf.pageText(page).contains(u"/data/b pic"_s)) << page;
    }
    // File names are indented under their folder.
    EXPECT_GT(pdf.find(u"uno.bmp"_s).box.left(), pdf.find(u"/data/a"_s).box.left() + 5);

    const int pages = printPdf(folder.file(u"e.pdf"_s), [&](PrinterSurface& s) {
        LocationReport::print(s, folder.file(u"empty.INI"_s), job);
    });
    EXPECT_EQ(pages, 0);
}
