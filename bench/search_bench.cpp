// The folder search in report mode over a whole tree, beside find(1) looking for the same
// files: a tree of 20,000 folders holding 200,000 files, of which 200 are pictures *.bmp, is
// made in a temporary folder (or one is given), then the walk and `find ROOT -iname '*.bmp'`
// run in turns. Prints the time of each run and the medians, their ratio, and the memory
// of the fully expanded tree: the growth of the resident set over one walk, the bytes the
// namespace holds by count, and the process's peak.
//
// Run: bench_search [--runs=N] [--folders=N] [--files-per-folder=N] [ROOT]
// With ROOT, searches that folder as it is; otherwise makes the tree and removes it after.
// The last line, "RESULT key=value ...", is for scripts.

#include "BenchMeasure.h"
#include "shell/SearchReport.h"
#include "shell/SearchWalk.h"
#include "shell/ShellNamespace.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int FanOut = 20;

long residentKilobytes() {
    QFile statm(u"/proc/self/statm"_s);
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toLong() * (sysconf(_SC_PAGESIZE) / 1024) : 0;
}

// Folder n (1 .. folders - 1) lies in folder (n - 1) / FanOut, 0 being the root: 20 folders at
// the top, 400 below them, and so on. Every folder holds `filesPerFolder` files, one file in a
// thousand a picture *.bmp (every other one written *.BMP).
bool makeTree(const std::string& root, int folders, int filesPerFolder, int* pictures) {
    static const char* const extensions[] = {"txt", "jpg", "dat", "log", "doc",
                                             "png", "wav", "zip", "csv", "htm"};
    std::vector<std::string> paths(static_cast<size_t>(folders));
    paths[0] = root;
    long fileNumber = 0;
    *pictures = 0;
    char name[64];
    for (int n = 0; n < folders; ++n) {
        if (n > 0) {
            std::snprintf(name, sizeof name, "/dir%05d", n);
            paths[static_cast<size_t>(n)] = paths[static_cast<size_t>((n - 1) / FanOut)] + name;
            if (::mkdir(paths[static_cast<size_t>(n)].c_str(), 0755) != 0)
                return false;
        }
        for (int f = 0; f < filesPerFolder; ++f, ++fileNumber) {
            const bool picture = fileNumber % 1000 == 999;
            const char* extension =
                picture ? (*pictures % 2 ? "BMP" : "bmp") : extensions[fileNumber % 10];
            std::snprintf(name, sizeof name, "/file%07ld.%s", fileNumber, extension);
            const int fd = ::open((paths[static_cast<size_t>(n)] + name).c_str(),
                                  O_CREAT | O_WRONLY | O_TRUNC, 0644);
            if (fd < 0)
                return false;
            ::close(fd);
            *pictures += picture ? 1 : 0;
        }
    }
    return true;
}

class BenchHost : public SearchHost {
public:
    explicit BenchHost(QString reportFile) : m_reportFile(std::move(reportFile)) {}
    bool askYesNo(const QString&) override {
        ++questions;
        return true;
    }
    void inform(const QString&) override {}
    void reportFolder(const QString& folder, const QStringList& fileNames) override {
        SearchReport::addFolder(m_reportFile, folder, fileNames);
        files += static_cast<int>(fileNames.size());
    }
    int files = 0;
    int questions = 0;

private:
    QString m_reportFile;
};

struct WalkRun {
    double ms = 0;
    int files = 0;
    int nodes = 0;
    long growthKb = 0;
    qint64 bytes = 0;
};

// The bytes a fully expanded namespace holds: its nodes, their strings and the node list.
qint64 namespaceBytes(const ShellNamespace& tree) {
    qint64 bytes = static_cast<qint64>(tree.count()) * static_cast<qint64>(sizeof(void*));
    for (int i = 0; i < tree.count(); ++i) {
        const ShellNamespace::Node& node = tree.node(i);
        bytes += static_cast<qint64>(sizeof(ShellNamespace::Node));
        bytes += (node.path.capacity() + node.displayName.capacity()) * 2 + 2 * 24;
        bytes += static_cast<qint64>(sizeof(void*)); // the parent's pointer to its child
    }
    return bytes;
}

WalkRun runWalk(const QString& root, const QString& reportFile) {
    QFile::remove(reportFile);
    WalkRun run;
    const long before = residentKilobytes();
    QElapsedTimer timer;
    timer.start();
    ShellNamespace tree(root);
    BenchHost host(reportFile);
    SearchWalk::Request request;
    request.mask = u"*.bmp"_s;
    request.toReport = true;
    request.initial = 1e9; // no question before the end of the tree
    const SearchWalk::Result result = SearchWalk::run(tree, request, host);
    run.ms = msSince(timer);
    run.growthKb = residentKilobytes() - before;
    run.files = host.files;
    run.nodes = tree.count();
    run.bytes = namespaceBytes(tree);
    if (host.questions != 0 || result.startIndex != 0)
        std::fprintf(stderr, "the walk did not reach the end of the tree\n");
    return run;
}

struct FindRun {
    double ms = 0;
    int files = 0;
};

FindRun runFind(const QString& root) {
    FindRun run;
    const std::string command =
        "find '" + QFile::encodeName(root).toStdString() + "' -iname '*.bmp'";
    QElapsedTimer timer;
    timer.start();
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return run;
    char line[4096];
    while (std::fgets(line, sizeof line, pipe))
        ++run.files;
    ::pclose(pipe);
    run.ms = msSince(timer);
    return run;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    int runs = 5;
    int folders = 20000;
    int filesPerFolder = 10;
    QString root;
    for (int i = 1; i < argc; ++i) {
        const QByteArray arg = argv[i];
        if (arg.startsWith("--runs="))
            runs = std::max(1, arg.mid(7).toInt());
        else if (arg.startsWith("--folders="))
            folders = std::max(1, arg.mid(10).toInt());
        else if (arg.startsWith("--files-per-folder="))
            filesPerFolder = std::max(0, arg.mid(19).toInt());
        else
            root = QFile::decodeName(arg);
    }

    QTemporaryDir work;
    if (!work.isValid()) {
        std::fprintf(stderr, "no temporary folder\n");
        return 1;
    }
    if (root.isEmpty()) {
        root = work.filePath(u"tree"_s);
        int pictures = 0;
        QElapsedTimer timer;
        timer.start();
        if (::mkdir(QFile::encodeName(root).constData(), 0755) != 0 ||
            !makeTree(QFile::encodeName(root).toStdString(), folders, filesPerFolder, &pictures)) {
            std::fprintf(stderr, "could not make the tree: %s\n", std::strerror(errno));
            return 1;
        }
        std::printf("made %d folders, %d files (%d *.bmp) in %.0f ms\n", folders,
                    folders * filesPerFolder, pictures, static_cast<double>(timer.elapsed()));
    }
    const QString reportFile = work.filePath(SearchReport::fileName());

    // One untimed pass of each, so that both find the folders in the cache. The first walk
    // gives the memory: later ones reuse what the allocator kept from it.
    runFind(root);
    const WalkRun first = runWalk(root, reportFile);

    std::vector<double> walkTimes, findTimes;
    WalkRun walk;
    FindRun find;
    for (int r = 0; r < runs; ++r) {
        walk = runWalk(root, reportFile);
        find = runFind(root);
        walkTimes.push_back(walk.ms);
        findTimes.push_back(find.ms);
        std::printf("run %d: walk %.1f ms, find %.1f ms\n", r + 1, walk.ms, find.ms);
    }
    const double walkMs = median(walkTimes);
    const double findMs = median(findTimes);
    const double ratio = findMs > 0 ? walkMs / findMs : 0;
    std::printf("walk (report mode): %.1f ms median, %d nodes, %d files reported\n", walkMs,
                walk.nodes, walk.files);
    std::printf("find -iname:        %.1f ms median, %d files\n", findMs, find.files);
    std::printf("ratio walk / find:  %.2f (target at most 2)\n", ratio);
    std::printf("expanded tree: %.1f MB by count, resident set grew %.1f MB over the first walk, "
                "peak resident %.1f MB (target under 100 MB)\n",
                static_cast<double>(walk.bytes) / 1048576.0,
                static_cast<double>(first.growthKb) / 1024.0,
                static_cast<double>(peakKilobytes()) / 1024.0);
    if (walk.files != find.files)
        std::printf("MISMATCH: the walk reported %d files, find listed %d\n", walk.files,
                    find.files);
    std::printf("RESULT walk_ms=%.1f find_ms=%.1f ratio=%.2f nodes=%d files=%d find_files=%d "
                "tree_bytes=%lld rss_growth_kb=%ld peak_kb=%ld\n",
                walkMs, findMs, ratio, walk.nodes, walk.files, find.files,
                static_cast<long long>(walk.bytes), first.growthKb, peakKilobytes());
    return walk.files == find.files ? 0 : 2;
}
