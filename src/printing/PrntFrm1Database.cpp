#include "printing/PrntFrm1.h"

#include "documents/MDIForm1.h"
#include "platform/PathUtil.h"
#include "platform/WindowRegistry.h"
#include "platform/tables/TableReader.h"
#include "platform/tables/TableRecordset.h"
#include "printing/DatabaseListing.h"
#include "printing/PrinterSurface.h"
#include "shell/Globals.h"
#include "shell/NamedWidgets.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using NamedWidgets::button;
using NamedWidgets::label;

// The database tab: the table's fields to choose from, and the listing of its records.

namespace {

// Tables that are the system's own or hidden.
constexpr quint32 kSystemOrHidden = 0x80000002u;

QListWidget* list(QWidget* parent, const char* name, const QString& caption, const QString& tip) {
    auto* l = new QListWidget(parent);
    l->setObjectName(QString::fromLatin1(name));
    l->setAccessibleName(caption);
    l->setToolTip(tip);
    return l;
}

} // namespace

QFrame* PrntFrm1::buildDatabasePanel() {
    auto* panel = new QFrame(this);
    auto* layout = new QVBoxLayout(panel);
    Label3 = fileRow(panel, layout, u"Label3"_s, tr("Print Table of File: "));

    auto* grid = new QGridLayout;
    List3 = list(panel, "List3", tr("Tables"), tr("Select Table or Record Type to View Fields"));
    List1 = list(panel, "List1", tr("File Fields"), tr("Fields of the Table"));
    List2 = list(panel, "List2", tr("Print Fields"), tr("Fields to Print, in this Order"));
    grid->addWidget(label(panel, u"Label5(0)"_s, tr("Tables")), 0, 0);
    grid->addWidget(label(panel, u"Label5(1)"_s, tr("File Fields")), 0, 1);
    grid->addWidget(label(panel, u"Label5(2)"_s, tr("Print Fields")), 0, 3);
    grid->addWidget(List3, 1, 0);
    grid->addWidget(List1, 1, 1);
    grid->addWidget(List2, 1, 3);

    auto* moves = new QVBoxLayout;
    RightBtn = button(panel, "RightBtn", u">"_s, tr("Add the Selected Field to the Print Fields"));
    AllRightBtn = button(panel, "AllRightBtn", u">>"_s, tr("Add all Fields to the Print Fields"));
    LefttBtn = button(panel, "LefttBtn", u"<"_s, tr("Remove the Selected Print Field"));
    AllLeftBtn = button(panel, "AllLeftBtn", u"<<"_s, tr("Remove all Print Fields"));
    moves->addStretch(1);
    for (QPushButton* b : {RightBtn, AllRightBtn, LefttBtn, AllLeftBtn}) {
        b->setAccessibleName(b->toolTip());
        moves->addWidget(b);
    }
    moves->addStretch(1);
    grid->addLayout(moves, 1, 2);
    layout->addLayout(grid, 1);

    connect(List3, &QListWidget::itemClicked, this, &PrntFrm1::List3_Click);
    connect(List3, &QListWidget::itemActivated, this, &PrntFrm1::List3_Click);
    connect(RightBtn, &QPushButton::clicked, this, &PrntFrm1::RightBtn_Click);
    connect(LefttBtn, &QPushButton::clicked, this, &PrntFrm1::LefttBtn_Click);
    connect(AllRightBtn, &QPushButton::clicked, this, &PrntFrm1::AllRightBtn_Click);
    connect(AllLeftBtn, &QPushButton::clicked, this, &PrntFrm1::AllLeftBtn_Click);
    return panel;
}

void PrntFrm1::prepareDatabaseTab() {
    const Globals& g = globals();
    selectTab(DatabaseTab);
    PrintFontSize = 8;
    const MDIForm1* frame = qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName()));
    DbPassword = g.gCallerTag == u"M"_s && frame ? frame->mPrintPassword : g.gDbPassword;
    const QString joined =
        g.gPrintFolder + (g.gPrintFolder.endsWith(u'/') ? QString() : u"/"_s) + g.gPrintFile;
    DbPath = g.gPrintFolder;
    DbTable = g.gPrintFile;
    if (FileExt == u"DBF"_s) {
        DbConnect = u"dBASE 5.0;"_s;
    } else if (FileExt == u"DB"_s) {
        DbConnect = u"Paradox 5.x;"_s;
    } else {
        DbPath = joined;
        DbTable = g.gPrintListItem;
        if (FileExt == u"XLS"_s)
            DbConnect = u"Excel 8.0;"_s;
        else if (FileExt == u"WK4"_s)
            DbConnect = u"Lotus WK4;"_s;
        else
            DbConnect = DbPassword.isEmpty() ? u"Access"_s : u";pwd="_s + DbPassword;
    }
    List1->clear();
    List2->clear();
    List3->clear();
    fillFieldList(QString());
    if ((FileExt == u"WK4"_s || FileExt == u"XLS"_s || FileExt == u"MDB"_s) && List3->count() > 0) {
        const QList<QListWidgetItem*> found = List3->findItems(g.gPrintListItem, Qt::MatchExactly);
        if (!found.isEmpty())
            List3->setCurrentItem(found.first());
    }
}

// Opens the database read-only and lists the fields of a table in List1: the chosen one, or at
// first the one the window was given, with every table of the database in List3.
void PrntFrm1::fillFieldList(const QString& chosen) {
    const bool tableIsFile = FileExt == u"DBF"_s || FileExt == u"DB"_s;
    const QString path = tableIsFile ? QDir(DbPath).filePath(DbTable) : DbPath;
    const QString kind = FileExt == u"MDB"_s ? u"Access"_s : DbConnect;
    const TableReader::Opened opened = TableReader::open(kind, path, DbPassword);
    if (opened.error)
        return;
    const QString wanted = !chosen.isEmpty() ? chosen
                           : tableIsFile     ? QFileInfo(globals().gPrintFile).completeBaseName()
                                             : globals().gPrintListItem;
    const bool fillTables = chosen.isEmpty();
    for (const TableDef& def : opened.reader->tableDefs()) {
        const QString name =
            tableIsFile && chosen.isEmpty() ? QFileInfo(def.name).completeBaseName() : def.name;
        // A Lotus file's tables all count; the others match by name.
        const bool match = (FileExt == u"WK4"_s && chosen.isEmpty()) ||
                           name.compare(wanted, Qt::CaseInsensitive) == 0;
        if (match && def.attributes == 0) {
            for (const TableField& field : def.fields)
                List1->addItem(field.name);
        }
        if (fillTables && (quint32(def.attributes) & kSystemOrHidden) == 0)
            List3->addItem(def.name);
    }
}

void PrntFrm1::List3_Click() {
    List1->clear();
    List2->clear();
    if (QListWidgetItem* item = List3->currentItem())
        fillFieldList(item->text());
}

void PrntFrm1::selectNext(QListWidget* list, int row) {
    if (list->count() > 0)
        list->setCurrentRow(std::min(row, list->count() - 1));
}

void PrntFrm1::RightBtn_Click() {
    const int row = List1->currentRow();
    if (row < 0)
        return;
    List2->addItem(List1->item(row)->text());
    selectNext(List1, row + 1);
}

void PrntFrm1::LefttBtn_Click() {
    const int row = List2->currentRow();
    if (row < 0)
        return;
    delete List2->takeItem(row);
    selectNext(List2, row);
}

void PrntFrm1::AllRightBtn_Click() {
    for (int i = 0; i < List1->count(); ++i)
        List2->addItem(List1->item(i)->text());
}

void PrntFrm1::AllLeftBtn_Click() {
    List2->clear();
}

bool PrntFrm1::printListing(PrinterSurface& surface) {
    const Globals& g = globals();
    const bool tableIsFile = FileExt == u"DBF"_s || FileExt == u"DB"_s;
    // The main window hands a dBASE or Paradox file over by its path, a document window by its
    // name: the table is the name either way.
    QString table = PathUtil::nameOf(g.gPrintFile);
    QString connect = DbConnect;
    if (!tableIsFile)
        table = List3->currentItem() ? List3->currentItem()->text() : QString();
    if (FileExt == u"MDB"_s)
        connect = DbPassword.isEmpty() ? QString() : u";pwd ="_s + DbPassword;
    TableRecordset::Opened opened = TableRecordset::open(connect, DbPath, table);
    if (opened.error)
        return true; // passed over: nothing printed
    TableRecordset& records = *opened.recordset;
    if (List2->count() == 0)
        AllRightBtn_Click();
    DatabaseListing::Job job;
    for (int i = 0; i < List2->count(); ++i) {
        const QString name = List2->item(i)->text();
        const QList<QListWidgetItem*> at = List1->findItems(name, Qt::MatchExactly);
        const int position = at.isEmpty() ? 0 : List1->row(at.first());
        job.fields.append({name, position, records.fields().value(position).size});
    }
    job.metrics = ::PrintMetrics::forFont(PrintFontSize, PrintFontBold);
    job.fontSize = PrintFontSize;
    job.printFile = g.gPrintFile;
    job.when = QDateTime::currentDateTime();
    DatabaseListing::print(surface, records, job);
    return true;
}
