// The organizer at the size of a large collection: FileTable with 1,000,000 records in 1,000
// groups (one of them of 100,000 records), browsed in the group browser; seeks by name and by
// search word; and the batch add of a folder of 10,000 files beside the sqlite3 shell importing
// the same 10,000 records from a CSV file. The store is made once in the folder given and used
// again by later runs.
//
// Run: bench_organizer FOLDER [--runs=N]
// Prints medians of N runs (5 unless told) and one line "RESULT key=value ..." for scripts.

#include "BenchMeasure.h"
#include "organizer/GrpBrow1.h"
#include "organizer/OrganizerBatch.h"
#include "organizer/Recordset.h"
#include "platform/FlexGrid.h"
#include "shell/Globals.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int Records = 1'000'000;
constexpr int Groups = 1'000;
constexpr int BigGroupRecords = 100'000;
constexpr int BatchFiles = 10'000;

QString groupName(int g) {
    return u"Group %1"_s.arg(g, 4, 10, QChar(u'0'));
}

// The store with its records: the first BigGroupRecords in group 0, the rest spread over the
// other groups, names and search words in no order of their own.
bool makeStore(const QString& path) {
    OrganizerDb::Opened opened = OrganizerDb::open(path);
    if (opened.error)
        return false;
    if (Recordset::open(opened.db, u"FileTable"_s).recordset->RecordCount() == Records)
        return true;
    sqlite3* db = opened.db->handle();
    sqlite3_exec(db, "DELETE FROM FileTable; DELETE FROM GroupTable; BEGIN", nullptr, nullptr,
                 nullptr);
    sqlite3_stmt* group = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO GroupTable (GroupName, GroupDesc) VALUES (?1, ?1)", -1,
                       &group, nullptr);
    for (int g = 0; g < Groups; ++g) {
        const QByteArray name = groupName(g).toUtf8();
        sqlite3_bind_text(group, 1, name.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_step(group);
        sqlite3_reset(group);
    }
    sqlite3_finalize(group);
    sqlite3_stmt* file = nullptr;
    sqlite3_prepare_v2(db,
                       "INSERT INTO FileTable (GroupName, FileName, FileLocation, FileKeyword, "
                       "FileType, Date) VALUES (?1, ?2, '/home/user/pictures', ?3, 'Picture', "
                       "'20240301')",
                       -1, &file, nullptr);
    for (int i = 0; i < Records; ++i) {
        const int g = i < BigGroupRecords ? 0 : 1 + i % (Groups - 1);
        const quint32 scrambled = quint32(i) * 2654435761U;
        const QByteArray values[] = {groupName(g).toUtf8(),
                                     u"IMG_%1.JPG"_s.arg(scrambled, 8, 16, QChar(u'0')).toUtf8(),
                                     u"word%1"_s.arg(scrambled % 50'000).toUtf8()};
        for (int v = 0; v < 3; ++v)
            sqlite3_bind_text(file, v + 1, values[v].constData(), -1, SQLITE_TRANSIENT);
        sqlite3_step(file);
        sqlite3_reset(file);
    }
    sqlite3_finalize(file);
    return sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    int runs = 5;
    for (const QString& arg : std::as_const(args))
        if (arg.startsWith(u"--runs="_s))
            runs = std::max(1, arg.mid(7).toInt());
    args.erase(std::remove_if(args.begin(), args.end(),
                              [](const QString& a) { return a.startsWith(u"--"_s); }),
               args.end());
    if (args.isEmpty()) {
        std::fprintf(stderr, "usage: bench_organizer FOLDER [--runs=N]\n");
        return 2;
    }
    const QString folder = QDir(args[0]).absolutePath();
    QDir().mkpath(folder);
    globals().gAppPath = folder;
    const QString store = folder + u"/FileTabl.MDB"_s;
    QElapsedTimer timer;
    timer.start();
    if (!makeStore(store)) {
        std::fprintf(stderr, "could not make %s\n", qPrintable(store));
        return 1;
    }
    std::printf("store of %d records ready in %.0f ms\n", Records, msSince(timer));

    // Seeks on a cursor opened once, as the finds use it.
    OrganizerDb::Opened db = OrganizerDb::open(store);
    auto files = Recordset::open(db.db, u"FileTable"_s, Recordset::TableType).recordset;
    std::vector<double> byName;
    std::vector<double> byWord;
    for (int i = 0; i < 50 * runs; ++i) {
        const bool name = i % 2 == 0;
        files->setIndex(name ? u"FileName"_s : u"FileKeyword"_s);
        const QString key = name ? u"img_%1"_s.arg(quint32(i) * 40503U, 8, 16, QChar(u'0'))
                                 : u"WORD%1"_s.arg(i * 977 % 50'000);
        timer.restart();
        files->Seek(u">="_s, key);
        (name ? byName : byWord).push_back(msSince(timer));
    }
    files.reset();

    // The browser: a click on a group of about 1,000 files, then on the group of 100,000, and
    // that grid to its last record; each time until the grid has painted.
    const long before = peakKilobytes();
    auto* browser = new GrpBrow1;
    browser->show();
    browser->SwitchBtn_Click();
    FlexGrid* groupGrid = browser->MSFlexGrid1[0];
    FlexGrid* fileGrid = browser->MSFlexGrid1[1];
    (void)browser->grab();
    std::vector<double> smallGroup;
    std::vector<double> bigGroup;
    std::vector<double> toEnd;
    QString lastName;
    for (int r = 0; r < runs; ++r) {
        groupGrid->setRow(2 + r);
        timer.restart();
        browser->MSFlexGrid1_Click(0);
        (void)fileGrid->viewport()->grab();
        smallGroup.push_back(msSince(timer));

        groupGrid->setRow(1);
        timer.restart();
        browser->MSFlexGrid1_Click(0);
        (void)fileGrid->viewport()->grab();
        bigGroup.push_back(msSince(timer));

        timer.restart();
        fileGrid->setRow(fileGrid->Rows() - 1);
        (void)fileGrid->viewport()->grab();
        toEnd.push_back(msSince(timer));
        lastName = fileGrid->Text();
    }
    const int bigRows = fileGrid->Rows() - 1;
    const long peak = peakKilobytes();
    delete browser;

    // A folder of 10,000 files into one group, and the shell importing the same records.
    const QString batchFolder = folder + u"/batch"_s;
    QDir().mkpath(batchFolder);
    QStringList names;
    QFile csv(folder + u"/batch.csv"_s);
    if (!csv.open(QIODevice::WriteOnly))
        return 1;
    csv.write("GroupName,FileName,FileLocation,FileDescription,FileKeyword,FileType,Comments,"
              "Date,Time,DateTimeCreated,DateDisp\n");
    for (int i = 0; i < BatchFiles; ++i) {
        const QString name = u"file%1.jpg"_s.arg(i, 5, 10, QChar(u'0'));
        names.append(name);
        QFile touch(batchFolder + u'/' + name);
        if (!touch.exists() && touch.open(QIODevice::WriteOnly))
            touch.close();
        csv.write((u"Batch,"_s + name + u',' + batchFolder + u',' + name +
                   u" Description,batch,Picture,,20240301,10:22:33 AM,20240301102233,"
                   "3/1/2024 10:22 AM\n"_s)
                      .toUtf8());
    }
    csv.close();
    std::vector<double> batch;
    std::vector<double> shell;
    int added = 0;
    for (int r = 0; r < runs; ++r) {
        const QString batchStore = folder + u"/Batch.MDB"_s;
        QFile::remove(batchStore);
        OrganizerDb::open(batchStore);
        timer.restart();
        added = OrganizerBatch::AddFolderFilesToGroup(batchStore, u"Batch"_s, batchFolder, names)
                    .records;
        batch.push_back(msSince(timer));

        const QString shellStore = folder + u"/Shell.db"_s;
        QFile::remove(shellStore);
        timer.restart();
        QProcess::execute(u"sqlite3"_s,
                          {shellStore, u".import --csv "_s + csv.fileName() + u" FileTable"_s});
        shell.push_back(msSince(timer));
    }

    std::printf("seek >= by name:       %7.3f ms median (%zu seeks)\n", median(byName),
                byName.size());
    std::printf("seek >= by keyword:    %7.3f ms median\n", median(byWord));
    std::printf("group of ~1,000, first screen:   %7.2f ms median\n", median(smallGroup));
    std::printf("group of %d, first screen: %7.2f ms median\n", bigRows, median(bigGroup));
    std::printf("  to its last record (%s): %7.2f ms median\n", qPrintable(lastName),
                median(toEnd));
    std::printf("peak memory: %ld KB (%ld KB before the browser)\n", peak, before);
    std::printf("batch of %d files: %7.2f ms median; sqlite3 .import of the same rows %7.2f ms; "
                "ratio %.2f\n",
                added, median(batch), median(shell), median(batch) / median(shell));
    std::printf("RESULT seek_name_ms=%.3f seek_word_ms=%.3f small_group_ms=%.2f "
                "big_group_ms=%.2f big_group_rows=%d to_end_ms=%.2f peak_kb=%ld base_kb=%ld "
                "batch_ms=%.2f shell_ms=%.2f batch_records=%d\n",
                median(byName), median(byWord), median(smallGroup), median(bigGroup), bigRows,
                median(toEnd), peak, before, median(batch), median(shell), added);
    return added == BatchFiles && bigRows == BigGroupRecords ? 0 : 1;
}
