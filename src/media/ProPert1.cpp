#include "media/ProPert1.h"

#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "media/FileProperties.h"
#include "platform/Activation.h"
#include "platform/Messages.h"
#include "platform/TableDataControl.h"
#include "platform/WidgetPaint.h"
#include "platform/WindowRegistry.h"
#include "platform/tables/TableRecordset.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"

#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const char* const kPictureNames[] = {
    "Number of Bits per Bitmap:",
    "Color Count:",
    "Image Format:",
    "Image Height:",
    "Image Width:",
    "Image Disk Size:",
    "Image Memory Size:",
    "Image X Resolution:",
    "Image Y Resolution:",
};

const char* const kDatabaseNames[] = {
    "File Type:",     "Database:",     "Current Table:", "Record Count:", "Percent Position:",
    "Last Modified:", "Last Updated:", "Date Created:",  "File Size:",
};

QString dateText(const QDateTime& when) {
    return when.isValid() ? QLocale::system().toString(when, QLocale::ShortFormat) : QString();
}

} // namespace

ProPert1::ProPert1(QWidget* parent) : QDialog(parent) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("File Properties"));
    auto* layout = new QVBoxLayout(this);
    Frame1 = new QFrame(this);
    Frame1->setObjectName(u"Frame1"_s);
    Frame1->setFrameShape(QFrame::StyledPanel);
    auto* grid = new QGridLayout(Frame1);
    Label1[0] = NamedWidgets::label(Frame1, u"Label1(0)"_s, {});
    Label1[0]->setWordWrap(true);
    grid->addWidget(Label1[0], 0, 0, 1, 3);
    for (int i = 1; i <= 9; ++i) {
        Label1[size_t(i)] =
            NamedWidgets::label(Frame1, u"Label1(%1)"_s.arg(i), tr(kPictureNames[i - 1]));
        Label2[size_t(i)] = NamedWidgets::label(Frame1, u"Label2(%1)"_s.arg(i), {});
        grid->addWidget(Label1[size_t(i)], i, 0);
        grid->addWidget(Label2[size_t(i)], i, 1);
    }
    Text1 = new QPlainTextEdit(Frame1);
    Text1->setObjectName(u"Text1"_s);
    Text1->setAccessibleName(tr("Fields of the Table"));
    Text1->setReadOnly(true);
    Text1->hide();
    grid->addWidget(Text1, 1, 2, 9, 1);
    layout->addWidget(Frame1, 1);

    OKBtn =
        NamedWidgets::button(this, "OKBtn", tr("OK"), tr("Display of Image Properties Accepted"));
    CancelBtn = NamedWidgets::button(this, "CancelBtn", tr("Cancel"), tr("Close the Window"));
    HelpBtn = NamedWidgets::button(this, "HelpBtn", tr("&Help"), tr("Help with File Properties"));
    OKBtn->setDefault(true);
    auto* row = NamedWidgets::rightAligned({OKBtn, CancelBtn, HelpBtn});
    layout->addLayout(row);
    connect(OKBtn, &QPushButton::clicked, this, &QDialog::accept);
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    Form_Load();
}

void ProPert1::Form_Load() {
    const Globals& g = globals();
    Label1[0]->setText(g.gOpenFile);
    const int index = FileTypes::indexOf(g.gFileExtTable, FileTypes::GetFileExt(g.gOpenFile));
    if (index >= FileTypes::ExtensionCount) {
        Messages::instance().inform(tr("Cannot determine File Properties for this type of File"),
                                    this);
        for (int i = 1; i <= 9; ++i) {
            Label1[size_t(i)]->hide();
            Label2[size_t(i)]->hide();
        }
        return;
    }
    if (index >= FileTypes::FirstTextIndex && index <= FileTypes::LastTextIndex)
        showDocument(g.gOpenFile);
    else if (index >= FileTypes::FirstDatabaseIndex)
        showDatabase();
    else
        showPicture(g.gOpenFile);
}

void ProPert1::showDocument(const QString& path) {
    for (int i = 1; i <= 9; ++i) {
        Label1[size_t(i)]->setVisible(i == 6);
        Label2[size_t(i)]->setVisible(i == 6);
    }
    Label1[6]->setText(tr("File Size:"));
    Label2[6]->setText(FileProperties::grouped(QFileInfo(path).size()));
}

void ProPert1::showDatabase() {
    for (int i = 1; i <= 9; ++i)
        Label1[size_t(i)]->setText(tr(kDatabaseNames[i - 1]));
    Text1->show();
    const auto* frame = qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName()));
    ChildFrm1* child = frame ? frame->activeChild() : nullptr;
    // A table whose window has gone shows empty values.
    if (!child || !child->Data1)
        return;
    const TableDataControl* data = child->Data1;
    Label2[1]->setText(data->Connect.left(4) == u";pwd"_s ? u"Access"_s : data->Connect);
    Label2[2]->setText(u"2"_s); // a snapshot: the tables are read only
    Label2[3]->setText(data->RecordSource);
    const QFileInfo file(child->CURFILE_NAME);
    Label2[6]->setText(dateText(file.lastModified()));
    Label2[7]->setText(dateText(file.lastModified()));
    Label2[8]->setText(
        dateText(file.birthTime().isValid() ? file.birthTime() : file.lastModified()));
    Label2[9]->setText(FileProperties::grouped(file.size()));
    TableRecordset* records = data->Recordset();
    if (!records)
        return;
    const qint64 count = records->RecordCount();
    Label2[4]->setText(QString::number(count));
    const double percent =
        count > 0 ? 100.0 * double(records->AbsolutePosition()) / double(count) : 0;
    Label2[5]->setText(QLocale::system().toString(percent, 'g', 7));
    QString fields;
    for (const TableField& field : records->fields())
        fields += field.name + u" - "_s + FileProperties::GetFieldTypeName(field.type) + u" - "_s +
                  QString::number(field.size) + u"\r\n"_s;
    Text1->setPlainText(fields);
}

void ProPert1::showPicture(const QString& path) {
    const FileProperties::Picture p = FileProperties::pictureOf(path);
    // A file the codec cannot read leaves the values as they come.
    if (!p.read) {
        Label2[6]->setText(FileProperties::grouped(p.diskSize));
        return;
    }
    Label2[1]->setText(QString::number(p.bits));
    Label2[2]->setText(FileProperties::grouped(p.colors));
    Label2[3]->setText(FileProperties::GetFormatName(p.format));
    Label2[4]->setText(QString::number(p.height));
    Label2[5]->setText(QString::number(p.width));
    Label2[6]->setText(FileProperties::grouped(p.diskSize));
    Label2[7]->setText(FileProperties::grouped(p.memorySize));
    Label2[8]->setText(QString::number(p.xResolution));
    Label2[9]->setText(QString::number(p.yResolution));
}

void ProPert1::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (!Activation::becameActive(this, event) || !mFirstActivate)
        return;
    mFirstActivate = false;
    const Globals& g = globals();
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor);
    WidgetPaint::paint(Frame1, g.gWindowBackColor, g.gWindowForeColor);
    for (QLabel* l : Frame1->findChildren<QLabel*>())
        WidgetPaint::paint(l, g.gWindowBackColor, g.gWindowForeColor);
    WidgetPaint::paint(Text1, g.gListBackColor, g.gListForeColor);
    for (QPushButton* b : {OKBtn, CancelBtn, HelpBtn})
        WidgetPaint::paint(b, g.gButtonColor, g.gWindowForeColor);
}
