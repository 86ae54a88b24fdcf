#include "shell/SearchWalk.h"

#include "platform/FileMask.h"
#include "shell/SearchReport.h"
#include "shell/ShellNamespace.h"
#include "support/TempFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

// Answers questions from a list (then with `otherAnswers`), keeps every question, message and
// reported folder, and writes the report file as the main window does.
class RecordingHost : public SearchHost {
public:
    QStringList questions;
    QStringList messages;
    QStringList reported;
    QList<bool> answers;
    bool otherAnswers = true;
    QString reportFile;
    // Runs before a node is expanded, to change the tree under the walk.
    std::function<void(const ShellNamespace::Node&)> beforeExpand;

    bool askYesNo(const QString& text) override {
        questions.append(text);
        return answers.isEmpty() ? otherAnswers : answers.takeFirst();
    }
    void inform(const QString& text) override { messages.append(text); }
    int expand(ShellNamespace& tree, int index) override {
        if (beforeExpand)
            beforeExpand(tree.node(index));
        return SearchHost::expand(tree, index);
    }
    void reportFolder(const QString& folder, const QStringList& fileNames) override {
        reported.append(folder);
        if (!reportFile.isEmpty())
            SearchReport::addFolder(reportFile, folder, fileNames);
    }
};

struct SearchFixture : ::testing::Test {
    TempFolder dir;
    RecordingHost host;
    std::unique_ptr<ShellNamespace> tree;

    // Makes each path under the temporary folder: a folder when it ends with "/", else an
    // empty file in its folder.
    void make(std::initializer_list<const char*> paths) const {
        for (const char* item : paths) {
            const QString path = QString::fromUtf8(item);
            if (path.endsWith(u'/')) {
                ASSERT_TRUE(QDir(dir.path()).mkpath(path));
            } else {
                ASSERT_TRUE(QDir(dir.path()).mkpath(QFileInfo(path).path()));
                dir.write(path, "x");
            }
        }
    }
    QString at(const char* relative) const { return dir.file(QString::fromUtf8(relative)); }

    static SearchWalk::Request request(const QString& mask, int startIndex = 0) {
        SearchWalk::Request r;
        r.mask = mask;
        r.startIndex = startIndex;
        return r;
    }

    // Runs a search over the folder's tree, made at the first search and kept for the next.
    SearchWalk::Result run(const SearchWalk::Request& r) {
        if (!tree)
            tree = std::make_unique<ShellNamespace>(dir.path());
        return SearchWalk::run(*tree, r, host);
    }
    SearchWalk::Result run(int startIndex = 0) { return run(request(u"*.BMP"_s, startIndex)); }
};

} // namespace

// --- The order of the walk and where the next search starts ---

TEST_F(SearchFixture, ReportModeVisitsEveryFolderInPreOrderAndWritesEachGroup) {
    make({"b/B2/pic.BMP", "b/one.bmp", "A/a1/deep/z.bmp", "A/a1/deep/Y.Bmp", "A/a2/note.txt",
          "A/top.bmp", "c/", "top.bmp", "top.txt"});
    host.reportFile = dir.file(u"F@Prnt.INI"_s);
    SearchWalk::Request r = request(u"*.BMP"_s);
    r.toReport = true;

    const SearchWalk::Result result = run(r);

    EXPECT_EQ(host.reported,
              (QStringList{dir.path(), at("A"), at("A/a1/deep"), at("b"), at("b/B2")}));
    EXPECT_EQ(dir.read(u"F@Prnt.INI"_s),
              crlfLines({"##" + QFile::encodeName(dir.path()), "top.bmp",
                         "##" + QFile::encodeName(at("A")), "top.bmp",
                         "##" + QFile::encodeName(at("A/a1/deep")), "Y.Bmp", "z.bmp",
                         "##" + QFile::encodeName(at("b")), "one.bmp",
                         "##" + QFile::encodeName(at("b/B2")), "pic.BMP"}));
    // Every node was expanded on the way: the whole tree is in the list.
    EXPECT_EQ(tree->count(), 8);
    EXPECT_EQ(host.messages, QStringList{u" End of Search . . ."_s});
    EXPECT_TRUE(host.questions.isEmpty());
    EXPECT_EQ(result.found, at("b/B2"));
    EXPECT_EQ(result.startIndex, 0);
}

TEST_F(SearchFixture, EachSearchStopsAtTheNextFolderWithHitsAndTheEndStartsOverAtTheTop) {
    // Nodes in order: root, A, a1, a2, B, C.
    make({"A/a1/p.bmp", "A/a2/", "B/q.BMP", "C/r.txt"});

    SearchWalk::Result result = run();
    EXPECT_EQ(result.found, at("A/a1"));
    EXPECT_EQ(result.startIndex, 3);
    EXPECT_FALSE(tree->node(4).expanded); // the walk stopped before B

    result = run(result.startIndex);
    EXPECT_EQ(result.found, at("B"));
    EXPECT_EQ(result.startIndex, 5);
    EXPECT_TRUE(host.messages.isEmpty());

    result = run(result.startIndex);
    EXPECT_TRUE(result.found.isEmpty());
    EXPECT_EQ(result.startIndex, 0);
    EXPECT_EQ(host.messages, QStringList{u" End of Search . . ."_s});

    result = run(result.startIndex);
    EXPECT_EQ(result.found, at("A/a1"));
    EXPECT_TRUE(host.questions.isEmpty());
}

TEST_F(SearchFixture, AHitInTheLastNodeIsFoundAndEndsTheTree) {
    make({"A/", "B/last.bmp"});
    const SearchWalk::Result result = run(request(u"*.bmp"_s));
    EXPECT_EQ(result.found, at("B"));
    EXPECT_EQ(result.startIndex, 0);
    EXPECT_EQ(host.messages, QStringList{u" End of Search . . ."_s});
}

TEST_F(SearchFixture, MasksMatchFileNamesOnlyWithoutRegardToCase) {
    make({"a/data.txt", "b/folder.zip/", "c/CATALOG/", "d/Backup.ZiP", "d/old.zip", "e/sys.LOG"});
    SearchWalk::Result result = run(request(u"*.ZIP"_s));
    EXPECT_EQ(result.found, at("d"));

    result = run(request(u"*.JPG;*LOG"_s));
    EXPECT_EQ(result.found, at("e"));
    EXPECT_EQ(SearchWalk::maskOrDefault(u" "_s), u"*.BMP"_s);
    EXPECT_EQ(SearchWalk::maskOrDefault(u"*.PCX"_s), u"*.PCX"_s);
}

// --- The node limit ---

struct LimitFixture : SearchFixture {
    // Nodes in order: root (0), f00 .. f09 (1 .. 10), z (11) with its hit, zz (12).
    void SetUp() override {
        for (int n = 0; n < 10; ++n)
            ASSERT_TRUE(QDir(dir.path()).mkpath(u"f%1"_s.arg(n, 2, 10, QChar(u'0'))));
        make({"z/hit.bmp", "zz/"});
    }
    // A limit of 5 nodes, 2 more with each Yes.
    static SearchWalk::Request smallLimit(int startIndex = 0) {
        SearchWalk::Request r = request(u"*.BMP"_s, startIndex);
        r.initial = 3;
        r.additional = 2;
        return r;
    }
};

TEST_F(LimitFixture, PastTheLimitYesGoesOnUntilTheFolderIsFound) {
    const SearchWalk::Result result = run(smallLimit());
    EXPECT_EQ(result.found, at("z"));
    EXPECT_EQ(result.startIndex, 12);
    // Asked behind node 6, then behind nodes 8 and 10 as each Yes adds two nodes.
    EXPECT_EQ(host.questions,
              QStringList(3, u"Do you want to continue the Search for - *.BMP ?"_s));
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(LimitFixture, NoEndsTheSearchEmptyAndTheLimitCountsFromTheTopOfTheList) {
    host.otherAnswers = false;
    SearchWalk::Result result = run(smallLimit());
    EXPECT_TRUE(result.found.isEmpty());
    EXPECT_EQ(result.startIndex, 7);
    EXPECT_EQ(host.questions.size(), 1);

    // The next search starts behind node 6, past the limit already: it asks after one node.
    host.questions.clear();
    result = run(smallLimit(result.startIndex));
    EXPECT_TRUE(result.found.isEmpty());
    EXPECT_EQ(result.startIndex, 8);
    EXPECT_EQ(host.questions.size(), 1);
}

// --- Folders that cannot be searched ---

TEST_F(SearchFixture, FoldersThatVanishUnderTheWalkArePassedInSilence) {
    make({"A/x/", "B/hidden.bmp", "B/sub/more.bmp", "C/d/e/", "D/found.bmp", "E/"});
    host.beforeExpand = [this](const ShellNamespace::Node& node) {
        // B goes after the root listed it; C goes after its own children were read.
        if (node.path == at("A"))
            QDir(at("B")).removeRecursively();
        if (node.path == at("C"))
            QDir(at("C")).removeRecursively();
    };
    const SearchWalk::Result result = run();
    EXPECT_EQ(result.found, at("D"));
    EXPECT_TRUE(host.questions.isEmpty());
    EXPECT_TRUE(host.messages.isEmpty());
    EXPECT_EQ(tree->indexOfPath(at("B/sub")), -1); // the children of a missing folder stay out

    // The last node vanishing ends the search without a message.
    QDir(at("E")).removeRecursively();
    const SearchWalk::Result end = run(result.startIndex);
    EXPECT_TRUE(end.found.isEmpty());
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(SearchFixture, AFolderWithoutReadPermissionIsPassedInSilence) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "the super-user reads every folder";
    make({"A/locked.bmp", "B/open.bmp", "C/"});
    ASSERT_EQ(::chmod(QFile::encodeName(at("A")).constData(), 0), 0);
    const SearchWalk::Result result = run();
    ::chmod(QFile::encodeName(at("A")).constData(), 0755);
    EXPECT_EQ(result.found, at("B"));
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(SearchFixture, ReadingAFolderGivesTheProgramsErrorNumbers) {
    make({"plain.bmp"});
    const FileMask::Compiled mask(u"*.BMP"_s);
    EXPECT_EQ(SearchWalk::matchingFiles(at("missing"), mask).error, AppError::PathNotFound);
    EXPECT_EQ(SearchWalk::matchingFiles(at("plain.bmp"), mask).error, AppError::PathFileAccess);
    EXPECT_EQ(SearchWalk::matchingFiles(dir.path(), mask).error, 0);
}

TEST_F(SearchFixture, LinksCountAsWhatTheyPointToAndALinkToAnAncestorNeverLoops) {
    make({"A/", "B/hit.bmp", "top.bmp", ".secret.bmp"});
    ASSERT_EQ(::symlink(QFile::encodeName(dir.path()).constData(),
                        QFile::encodeName(at("A/loop.bmp")).constData()),
              0);
    ASSERT_EQ(::symlink(QFile::encodeName(at("top.bmp")).constData(),
                        QFile::encodeName(at("B/linked.BMP")).constData()),
              0);
    SearchWalk::Request r = request(u"*.BMP"_s);
    r.toReport = true;
    run(r);
    // The link shows the files of the folder it points to, once; a link to a file is a file.
    EXPECT_EQ(host.reported, (QStringList{dir.path(), at("A/loop.bmp"), at("B")}));
    EXPECT_EQ(SearchWalk::matchingFiles(at("B"), FileMask::Compiled(u"*.bmp"_s)).names,
              (QStringList{u"hit.bmp"_s, u"linked.BMP"_s}));
    EXPECT_EQ(host.messages, QStringList{u" End of Search . . ."_s});
}

TEST_F(SearchFixture, AFolderNamedLikeTheComputerIsNotSearched) {
    make({"HOST/in.bmp", "other/out.bmp"});
    SearchWalk::Request r = request(u"*.BMP"_s);
    r.computerName = u"HOST"_s;
    EXPECT_EQ(run(r).found, at("other"));
}

// --- The network ---

struct NetworkFixture : SearchFixture {
    TempFolder net;
    void SetUp() override {
        make({"A/", "B/"});
        ASSERT_TRUE(QDir(net.path()).mkpath(u"share1/docs"_s));
        ASSERT_TRUE(QDir(net.path()).mkpath(u"share2"_s));
        net.write(u"share1/docs/scan.bmp"_s, "x");
        net.write(u"share2/photo.bmp"_s, "x");
    }
    // Nodes in order: root, A, B, Network, then share1, docs, share2 once expanded.
    void addNetwork() {
        tree = std::make_unique<ShellNamespace>(dir.path());
        tree->setNetworkMounts({net.file(u"share1"_s), net.file(u"share2"_s)});
    }
};

TEST_F(NetworkFixture, NoLeavesTheNetworksFoldersOut) {
    addNetwork();
    host.otherAnswers = false;
    const SearchWalk::Result result = run();
    EXPECT_TRUE(result.found.isEmpty());
    EXPECT_EQ(host.questions, QStringList{u"Do You want to Search the Network?"_s});
    EXPECT_EQ(tree->count(), 4);
    EXPECT_TRUE(tree->node(3).isNetwork);
}

TEST_F(NetworkFixture, YesSearchesTheMountedFoldersAndAsksOncePerSearch) {
    addNetwork();
    SearchWalk::Result result = run();
    EXPECT_EQ(result.found, net.file(u"share1/docs"_s));
    EXPECT_EQ(host.questions.size(), 1);

    // Resumed behind the hit, the search no longer passes the network node.
    result = run(result.startIndex);
    EXPECT_EQ(result.found, net.file(u"share2"_s));
    EXPECT_EQ(host.questions.size(), 1);

    host.questions.clear();
    SearchWalk::Request r = request(u"*.BMP"_s);
    r.toReport = true;
    run(r);
    EXPECT_EQ(host.questions, QStringList{u"Do You want to Search the Network?"_s});
    EXPECT_EQ(host.reported.mid(host.reported.size() - 2),
              (QStringList{net.file(u"share1/docs"_s), net.file(u"share2"_s)}));
}

// --- The report file ---

TEST(SearchReportTest, GroupsAreAppendedAndAFailedWriteIsOnlyReturned) {
    TempFolder dir;
    const QString report = dir.file(SearchReport::fileName());
    EXPECT_FALSE(SearchReport::addFolder(report, u"/data/a"_s, {u"x.bmp"_s}).isError());
    EXPECT_FALSE(SearchReport::addFolder(report, u"/data/b"_s, {}).isError());
    EXPECT_EQ(dir.read(SearchReport::fileName()), crlfLines({"##/data/a", "x.bmp", "##/data/b"}));
    EXPECT_TRUE(SearchReport::addFolder(dir.file(u"no/such/F@Prnt.INI"_s), u"/x"_s, {}).isError());
}
