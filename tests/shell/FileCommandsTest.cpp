#include "platform/imaging/ImageCodec.h"
#include "shell/MoveFile1.h"
#include "shell/Rename1.h"
#include "shell/ShellList.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

class FileCommandsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;
    std::unique_ptr<TempFolder> m_dataHome;
    QByteArray m_oldDataHome;

    QAction* action(const char* name) {
        return h->window()->findChild<QAction*>(QString::fromLatin1(name));
    }
    void select(const QString& name) { QVERIFY(h->window()->shellList()->selectName(name)); }
    QStringList filesIn(const QString& folder) {
        return QDir(folder).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase);
    }

private Q_SLOTS:
    void init() {
        m_dataHome = std::make_unique<TempFolder>();
        m_oldDataHome = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_dataHome->path()));
        h = std::make_unique<MainWindowHarness>();
        for (const char* name :
             {"SALES.DBF", "SALES.DBT", "SALES.MDX", "OTHER.DBF", "notes.txt", "taken.txt"})
            h->folder().write(QString::fromLatin1(name), name);
        h->folder().writePicture(u"photo.jpg"_s);
        h->start();
    }

    void cleanup() {
        h.reset();
        qputenv("XDG_DATA_HOME", m_oldDataHome);
        m_dataHome.reset();
    }

    void deletingATableSendsItsWholeFamilyToTheTrash() {
        select(u"SALES.DBF"_s);
        for (int i = 0; i < 3; ++i)
            h->messages().answer(true);
        action("mnuFileDelete")->trigger();
        QCOMPARE(h->messages().shown().size(), 3);
        QCOMPARE(h->messages().shown().first().kind, u"askYesNo"_s);
        const QStringList left = filesIn(h->folder().path());
        for (const QString& gone : {u"SALES.DBF"_s, u"SALES.DBT"_s, u"SALES.MDX"_s})
            QVERIFY2(!left.contains(gone), qPrintable(gone));
        QVERIFY(left.contains(u"OTHER.DBF"_s));
        const QStringList trashed = filesIn(m_dataHome->file(u"Trash/files"_s));
        QCOMPARE(trashed, (QStringList{u"SALES.DBF"_s, u"SALES.DBT"_s, u"SALES.MDX"_s}));
    }

    void renamingToATakenNameKeepsBothFiles() {
        select(u"notes.txt"_s);
        answerModal<Rename1>([](Rename1* dialog) {
            dialog->newNameBox()->setText(u"taken"_s);
            dialog->findChild<QPushButton*>(u"OKBtn"_s)->click();
            QTimer::singleShot(0, dialog, &QDialog::reject);
        });
        action("mnuFileRename")->trigger();
        QCOMPARE(h->messages().texts(),
                 QStringList{u"File already exists - Cannot use this new File Name"_s});
        QCOMPARE(h->folder().read(u"notes.txt"_s), QByteArray("notes.txt"));
        QCOMPARE(h->folder().read(u"taken.txt"_s), QByteArray("taken.txt"));

        h->messages().clear();
        select(u"notes.txt"_s);
        answerModal<Rename1>([](Rename1* dialog) {
            dialog->newNameBox()->setText(u"renamed"_s);
            dialog->findChild<QPushButton*>(u"OKBtn"_s)->click();
        });
        action("mnuFileRename")->trigger();
        QCOMPARE(h->messages().texts(), QStringList{u"File Rename Successful"_s});
        QVERIFY(!h->folder().exists(u"notes.txt"_s));
        QCOMPARE(h->folder().read(u"renamed.txt"_s), QByteArray("notes.txt"));
    }

    void movingAFamilyWhereOneNameIsTakenMovesNone() {
        QDir(h->folder().path()).mkdir(u"archive"_s);
        h->folder().write(u"archive/SALES.DBT"_s, "someone else's");
        select(u"SALES.DBF"_s);
        h->messages().answer(h->folder().file(u"archive/SALES.DBF"_s));
        answerModal<MoveFile1>([](MoveFile1* dialog) {
            dialog->findChild<QPushButton*>(u"OKBtn"_s)->click();
            QTimer::singleShot(0, dialog, &QDialog::reject);
        });
        action("mnuFileMove")->trigger();
        QCOMPARE(filesIn(h->folder().file(u"archive"_s)), QStringList{u"SALES.DBT"_s});
        for (const QString& name : {u"SALES.DBF"_s, u"SALES.DBT"_s, u"SALES.MDX"_s})
            QVERIFY2(h->folder().exists(name), qPrintable(name));
        QCOMPARE(h->folder().read(u"archive/SALES.DBT"_s), QByteArray("someone else's"));
    }

    void saveAsWritesPicturesInTheFormatOfTheirExtensionAndCopiesTheRest() {
        select(u"photo.jpg"_s);
        h->messages().answer(h->folder().file(u"copy.jpg"_s));
        action("mnuFileSave")->trigger();
        QCOMPARE(h->messages().shown().first().kind, u"save"_s);
        QCOMPARE(h->messages().shown().first().text, u"JPG|*.JPG"_s);
        const ImageCodec::Picture copy = ImageCodec::decode(h->folder().file(u"copy.jpg"_s));
        QVERIFY(!copy.error);
        QCOMPARE(copy.image.size(), QSize(40, 30));
        QVERIFY(h->folder().read(u"copy.jpg"_s).startsWith("\xFF\xD8"));

        // Saved under a BMP name the picture keeps its JPEG format, and still opens.
        h->messages().clear();
        select(u"photo.jpg"_s);
        h->messages().answer(h->folder().file(u"as.BMP"_s));
        action("mnuFileSave")->trigger();
        QVERIFY(h->folder().read(u"as.BMP"_s).startsWith("\xFF\xD8"));
        const ImageCodec::Picture asBmp = ImageCodec::decode(h->folder().file(u"as.BMP"_s));
        QVERIFY(!asBmp.error);
        QCOMPARE(asBmp.image.size(), QSize(40, 30));

        h->messages().clear();
        select(u"notes.txt"_s);
        h->messages().answer(h->folder().file(u"taken.txt"_s));
        action("mnuFileSave")->trigger();
        QCOMPARE(h->messages().texts().last(), u"Error Copying File - 0"_s);
        QCOMPARE(h->folder().read(u"taken.txt"_s), QByteArray("taken.txt"));
    }

    void aNameTypedWithoutExtensionGetsTheFilesOwn() {
        QDir(h->folder().path()).mkdir(u"sub"_s);
        select(u"photo.jpg"_s);
        h->messages().answer(h->folder().file(u"sub/moved"_s));
        answerModal<MoveFile1>(
            [](MoveFile1* dialog) { dialog->findChild<QPushButton*>(u"OKBtn"_s)->click(); });
        action("mnuFileMove")->trigger();
        QVERIFY(h->folder().exists(u"sub/moved.jpg"_s));
        QVERIFY(h->messages().texts().last().startsWith(u"File Moved to - "_s));

        select(u"notes.txt"_s);
        h->messages().answer(h->folder().file(u"copy"_s));
        action("mnuFileSave")->trigger();
        QCOMPARE(h->folder().read(u"copy.txt"_s), QByteArray("notes.txt"));
    }

    void saveAsOfAPictureThatCannotBeReadSaysItIsNotSaved() {
        h->folder().write(u"broken.jpg"_s, "not a picture");
        h->window()->shellList()->refresh();
        select(u"broken.jpg"_s);
        h->messages().answer(h->folder().file(u"out.jpg"_s));
        action("mnuFileSave")->trigger();
        QCOMPARE(h->messages().texts().last(),
                 u"File - "_s + h->folder().file(u"broken.jpg"_s) + u" Not Saved"_s);
        QVERIFY(!h->folder().exists(u"out.jpg"_s));
    }

    void aDeclinedOrFailedDeleteLeavesTheMenusAsTheyWere() {
        select(u"notes.txt"_s);
        QVERIFY(action("mnuFileMove")->isEnabled());
        h->messages().answer(false);
        action("mnuFileDelete")->trigger();
        QCOMPARE(h->messages().shown().size(), 1);
        QVERIFY(h->folder().exists(u"notes.txt"_s));
        QVERIFY(action("mnuFileMove")->isEnabled());
        QCOMPARE(h->window()->shellList()->selectedPath(), h->folder().file(u"notes.txt"_s));
    }
};

QTEST_MAIN(FileCommandsTest)
#include "FileCommandsTest.moc"
