#include "media/ProPert1.h"
#include "documents/Login.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

// The file properties window, opened from the main window for the selected file.
class ProPert1Test : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;
    QString fields; // the field list the window showed last

    // The values the window shows for a file, row by row, as "name value".
    QStringList rowsFor(const QString& name, const QString& caller = u"F"_s) {
        globals().gOpenFile = h->folder().file(name);
        globals().gCallerTag = caller;
        QStringList rows;
        answerModal<ProPert1>([this, &rows](ProPert1* window) {
            fields = window->Text1->toPlainText();
            for (int i = 1; i <= 9; ++i) {
                if (!window->Label1[size_t(i)]->isHidden())
                    rows.append(window->Label1[size_t(i)]->text() + u' ' +
                                window->Label2[size_t(i)]->text());
            }
            window->OKBtn->click();
        });
        WindowRegistry::show(ProPert1::WindowName(), WindowRegistry::Modal);
        return rows;
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->start();
    }
    void cleanup() { h.reset(); }

    void aDocumentShowsItsSizeAloneAndAPictureItsFacts() {
        h->folder().write(u"notes.txt"_s, QByteArray(1234, 'x'));
        QCOMPARE(rowsFor(u"notes.txt"_s),
                 QStringList{u"File Size:"_s + u' ' + QLocale::system().toString(1234)});

        h->folder().writePicture(u"pic.png"_s, QSize(40, 30));
        const QStringList rows = rowsFor(u"pic.png"_s);
        QCOMPARE(rows.size(), 9);
        QCOMPARE(rows.value(1), u"Color Count: 2"_s);
        QCOMPARE(rows.value(2), u"Image Format: Portable Network Graphics"_s);
        QCOMPARE(rows.value(3), u"Image Height: 30"_s);
        QCOMPARE(rows.value(4), u"Image Width: 40"_s);

        rowsFor(u"unknown.xyz"_s);
        QCOMPARE(h->messages().texts(),
                 QStringList{u"Cannot determine File Properties for this type of File"_s});
    }

    void aProtectedAccessTableShowsAccessAndItsFields() {
        QFile::copy(QStringLiteral(QUORVANE_SHARED_FIXTURES "/mdb/V2003_with-password.mdb"),
                    h->folder().file(u"locked.mdb"_s));
        answerModal<Login>([](Login* login) {
            login->txtPassword->setText(u"password"_s);
            login->OKbtn->click();
        });
        QVERIFY(h->openDocument(u"locked.mdb"_s));
        const QStringList rows = rowsFor(u"locked.mdb"_s, u"M"_s);
        QCOMPARE(rows.value(0), u"File Type: Access"_s);
        QCOMPARE(rows.value(2), u"Current Table: Table1"_s);
        QCOMPARE(rows.value(3), u"Record Count: 3"_s);
        QVERIFY2(fields.startsWith(u"ID - Long Integer - 4\nData - Text - "_s), qPrintable(fields));
    }
};

QTEST_MAIN(ProPert1Test)
#include "ProPert1Test.moc"
