#include "shell/FindFile1.h"
#include "shell/ShellList.h"
#include "shell/ShellTreeModel.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"

#include <QDir>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

// The main window follows the search: the tree shows the folder found, the file list shows it
// filtered by the mask, the caption names it.
class SearchWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    QString root() const { return h->folder().file(u"tree"_s); }

    // tree/ holds a/ (a1/ with a picture, a2/ with an archive) and b/ (b1/ with a picture).
    void makeTree() {
        QDir folder(h->folder().path());
        for (const char* sub : {"tree/a/a1", "tree/a/a2", "tree/b/b1"})
            folder.mkpath(QString::fromLatin1(sub));
        h->folder().write(u"tree/a/a1/one.bmp"_s, "BM");
        h->folder().write(u"tree/a/a1/one.qvz"_s, "x");
        h->folder().write(u"tree/a/a2/pack.zip"_s, "PK");
        h->folder().write(u"tree/b/b1/two.BMP"_s, "BM");
        h->folder().write(u"tree/b/b1/two.qvz"_s, "x");
        h->folder().write(u"tree/b/three.qvz"_s, "x");
    }

    // Selects the top of the generated tree, as a click on it would; gives its node index.
    int selectTreeRoot() {
        ShellTreeModel* model = h->window()->shellTree();
        if (!model->revealPath(root()))
            return -1;
        return model->shellNamespace().indexOfPath(root());
    }

    QString listFolder() { return h->window()->shellList()->folder(); }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        makeTree();
        h->start();
    }

    void cleanup() { h.reset(); }

    void findNextWithoutAMaskFindsBitmapsFolderByFolder() {
        QVERIFY(selectTreeRoot() > 0);
        QVERIFY(globals().gSearchMask.isEmpty());
        h->window()->findChild<QToolButton*>(u"FindNextBtn"_s)->click();
        QCOMPARE(globals().gSearchMask, u"*.BMP"_s);
        QCOMPARE(listFolder(), root() + u"/a/a1"_s);
        QCOMPARE(h->window()->shellList()->filter(), u"*.BMP"_s);
        QCOMPARE(h->window()->windowTitle(), u"a1 - Quorvane 2.5"_s);
        QVERIFY(!h->window()->findChild<QFrame*>(u"Frame3"_s)->isVisible());
        QVERIFY(!h->window()->searchRunning());
        QVERIFY(globals().gSearchArmed);

        // The next search goes on behind the folder found.
        h->window()->FindNext();
        QCOMPARE(listFolder(), root() + u"/b/b1"_s);
        QVERIFY(h->messages().texts().isEmpty());
    }

    void cancellingTheFindWindowSearchesNothing() {
        QVERIFY(selectTreeRoot() > 0);
        const QString before = listFolder();
        answerModal<FindFile1>([](FindFile1* find) { find->CancelBtn->click(); });
        h->window()->FindFileRoutine();
        QVERIFY(globals().gFindCancelled);
        QCOMPARE(listFolder(), before);
        QVERIFY(globals().gSearchArmed); // armed again for the next time
    }

    void noAtTheLimitLeavesTheFileListWhereItWas() {
        const int top = selectTreeRoot();
        QVERIFY(top > 0);
        const QString before = listFolder();
        Globals& g = globals();
        g.gSearchInitial = top + 5;
        g.gSearchAdditional = 1;
        g.gSearchMask = u"*.NONE"_s;
        h->window()->FindNext();
        QCOMPARE(h->messages().texts(),
                 QStringList{u"Do you want to continue the Search for - *.NONE ?"_s});
        QCOMPARE(listFolder(), before);
        QVERIFY(!h->window()->findChild<QFrame*>(u"Frame3"_s)->isVisible());
    }
};

QTEST_MAIN(SearchWindowTest)
#include "SearchWindowTest.moc"
