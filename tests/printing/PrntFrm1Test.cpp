#include "printing/PrntFrm1.h"
#include "platform/PathUtil.h"
#include "platform/PrinterChoice.h"
#include "shell/FindFile1.h"
#include "shell/ShellTreeModel.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"
#include "support/PdfText.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

// The print window as the user drives it, printing to PDF files that are read back.
class PrntFrm1Test : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    // Opens the print window for a file, as a document window ("M") or the main window ("F")
    // hands it over.
    QPointer<PrntFrm1> open(const QString& path, const QString& printFile, const QString& caller) {
        Globals& g = globals();
        g.gOpenFile = path;
        g.gPrintFolder = PathUtil::folderOf(path);
        g.gPrintFile = printFile;
        g.gCallerTag = caller;
        WindowRegistry::show(PrntFrm1::WindowName());
        return qobject_cast<PrntFrm1*>(WindowRegistry::find(PrntFrm1::WindowName()));
    }

    // Clicks OK, answering the PDF's name; the PDF as read back.
    PdfText printTo(PrntFrm1* window, const QString& name) {
        h->messages().answer(h->folder().file(name));
        window->OKBtn->click();
        return PdfText::read(h->folder().file(name));
    }

    // The texts of the message boxes shown, questions and dialogs left out.
    QStringList boxes() const {
        QStringList texts;
        for (const RecordingMessages::Shown& shown : h->messages().shown()) {
            if (shown.kind == u"inform"_s)
                texts.append(shown.text);
        }
        return texts;
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->start();
        PrinterChoice::printer().setOutputFormat(QPrinter::PdfFormat);
        PrinterChoice::printer().setPageOrientation(QPageLayout::Portrait);
    }

    void cleanup() { h.reset(); }

    void aLandscapePrinterIsToldThePicturePrintsPortraitAtAWholeInchWidthAndLandscapeReturns() {
        // 300 x 150 pixels at 100 an inch: 3 by 1.5 inches.
        QImage red(300, 150, QImage::Format_RGB32);
        red.fill(Qt::red);
        red.setDotsPerMeterX(qRound(100 / 0.0254));
        red.setDotsPerMeterY(qRound(100 / 0.0254));
        red.save(h->folder().file(u"pic.png"_s));
        PrinterChoice::printer().setPageOrientation(QPageLayout::Landscape);
        QPointer<PrntFrm1> window = open(h->folder().file(u"pic.png"_s), u"pic.png"_s, u"M"_s);
        QCOMPARE(window->selectedTab(), int(PrntFrm1::PicturesTab));
        QCOMPARE(window->XPos->text(), u"2.75"_s);
        window->PictWidth->setText(u"5.5"_s);
        window->XPos->setText(u"1"_s);
        const double titleX = window->DXPos->text().toDouble();

        // A PDF that cannot be written is told, and the window stays for another try.
        const QString nowhere = h->folder().file(u"missing/page.pdf"_s);
        h->messages().answer(nowhere);
        window->OKBtn->click();
        const QString portrait = u"Database Listings only support Portrait - Please use 8.5 x 11"_s;
        QCOMPARE(boxes(), (QStringList{portrait, u"File - "_s + nowhere + u" Not Saved"_s}));
        QVERIFY(window && window->OKBtn->isEnabled() && window->CancelBtn->isEnabled());
        h->messages().clear();

        const PdfText pdf = printTo(window, u"page.pdf"_s);
        QTRY_VERIFY(!window);
        QCOMPARE(boxes(), QStringList{portrait});
        QCOMPARE(PrinterChoice::printer().pageLayout().orientation(), QPageLayout::Landscape);
        QCOMPARE(pdf.pages, QList<QSizeF>{QSizeF(612, 792)});
        const PdfText::Word title = pdf.words.value(0);
        QCOMPARE(title.text, h->folder().file(u"pic.png"_s));
        QVERIFY(qAbs(title.box.left() - titleX * 72) < 1);
        QVERIFY(qAbs(title.box.top() - 72) < 2);
        // The picture: 6 inches wide from 1, 3 high from 2, seen at 20 dots an inch.
        const QImage page = PdfText::render(h->folder().file(u"page.pdf"_s), 1, 20);
        QRect reds;
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x)
                if (qRed(page.pixel(x, y)) > 200 && qGreen(page.pixel(x, y)) < 60)
                    reds |= QRect(x, y, 1, 1);
        QVERIFY2(qAbs(reds.left() - 20) <= 1 && qAbs(reds.width() - 120) <= 2,
                 qPrintable(u"%1 %2"_s.arg(reds.left()).arg(reds.width())));
        QVERIFY(qAbs(reds.top() - 40) <= 1 && qAbs(reds.height() - 60) <= 2);
    }

    void listingsOpenTheirTableWithItsPasswordButNotAnAccessPathFromTheMainWindow() {
        const QString mdb = QStringLiteral(QUORVANE_SHARED_FIXTURES "/mdb/V2003_with-password.mdb");
        const QString dbf = QStringLiteral(QUORVANE_GENERATED_TABLES "/SALES.DBF");
        globals().gDbPassword = u"password"_s;
        globals().gPrintListItem = u"Table1"_s;
        const struct {
            QString path;
            QString printFile; // a path from the main window
            QString printed;   // empty for a table that cannot be opened
        } cases[] = {
            {mdb, mdb, {}},
            {mdb, PathUtil::nameOf(mdb), u"Page No. 1 Data One Two Three"_s},
            {dbf, dbf, u"Page No. 1 NAME QTY PRICE SOLD PAID NOTES Widget 12"_s},
        };
        for (const auto& c : cases) {
            h->messages().clear();
            QPointer<PrntFrm1> window = open(c.path, c.printFile, u"F"_s);
            QCOMPARE(window->selectedTab(), int(PrntFrm1::DatabaseTab));
            if (c.printed.isEmpty()) {
                QCOMPARE(window->List1->count(), 0);
                window->OKBtn->click();
                QCOMPARE(boxes(), QStringList{u"Database File Cannot be Opened"_s});
                QVERIFY(window && window->isVisible());
                window->close();
                QTRY_VERIFY(!window);
                continue;
            }
            if (c.path == mdb) {
                QCOMPARE(window->List3->currentItem()->text(), u"Table1"_s);
                window->List1->setCurrentRow(1); // Data alone
                window->RightBtn->click();
            }
            // The words of the page without its rules.
            const QString text = printTo(window, u"list.pdf"_s)
                                     .pageText(1)
                                     .remove(QRegularExpression(u"-{5,}"_s))
                                     .simplified();
            QVERIFY2(text.contains(c.printed), qPrintable(text));
            QVERIFY(!text.contains(u" ID "_s));
            QTRY_VERIFY(!window);
        }
    }

    void theLocationReportNeedsAChoiceThenPrintsEveryFolderWithTheFileInVisitOrder() {
        QDir(h->folder().path()).mkpath(u"tree/a/a1"_s);
        QDir(h->folder().path()).mkpath(u"tree/b/b1"_s);
        for (const QString& name :
             {u"tree/a/a1/one.bmp"_s, u"tree/b/b1/one.bmp"_s, u"tree/b/two.bmp"_s})
            h->folder().write(name, "BM");
        ShellTreeModel* tree = h->window()->shellTree();
        QVERIFY(tree->revealPath(h->folder().file(u"tree"_s)));
        // The walk asks to go on a little past the generated tree, and is told No.
        globals().gSearchInitial =
            tree->shellNamespace().indexOfPath(h->folder().file(u"tree"_s)) + 20;
        h->window()->chooseFolderInTree(h->folder().file(u"tree"_s));

        const QString file = h->folder().file(u"tree/a/a1/one.bmp"_s);
        QPointer<PrntFrm1> window = open(file, file, u"F"_s);
        answerModal<FindFile1>([](FindFile1* find) { find->CancelBtn->click(); });
        window->selectTab(PrntFrm1::SystemTab);
        QTRY_COMPARE(window->Label4[0]->text(), u"No File Types Selected"_s);
        window->OKBtn->click();
        QCOMPARE(boxes(), QStringList{u"You must Select File or File Type for Report"_s});
        QVERIFY(window->OKBtn->isEnabled() && window->CancelBtn->isEnabled());

        window->Check1->click();
        h->messages().answer(false); // no going on past the generated tree
        const PdfText pdf = printTo(window, u"report.pdf"_s);
        const QString text = pdf.pageText(1);
        const QString a = h->folder().file(u"tree/a/a1"_s), b = h->folder().file(u"tree/b/b1"_s);
        QVERIFY2(text.contains(u"Folder Locations for File: one.bmp Page No. 1 "_s + a +
                               u" one.bmp "_s + b + u" one.bmp"_s),
                 qPrintable(text));
        QVERIFY(!text.contains(u"two.bmp"_s));
        QTRY_VERIFY(!window);
        QVERIFY(!globals().gFindForReport);
    }
};

QTEST_MAIN(PrntFrm1Test)
#include "PrntFrm1Test.moc"
