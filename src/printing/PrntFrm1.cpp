#include "printing/PrntFrm1.h"

#include "documents/TextLoader.h"
#include "platform/Activation.h"
#include "platform/FontNames.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/PrinterChoice.h"
#include "platform/Twips.h"
#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/PictureView.h"
#include "printing/LocationReport.h"
#include "printing/PicturePage.h"
#include "printing/PrintDestination.h"
#include "printing/PrinterSurface.h"
#include "printing/TextPrinting.h"
#include "settings/SettingsText.h"
#include "shell/FileTypes.h"
#include "shell/FindFile1.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"
#include "shell/Quorvane1.h"
#include "shell/SearchReport.h"

#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDateTime>
#include <QFile>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPdfWriter>
#include <QPrinter>
#include <QPushButton>
#include <QTabBar>
#include <QTextEdit>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;
using NamedWidgets::button;
using NamedWidgets::entry;
using NamedWidgets::label;

namespace {

// Where the "Printing" notice stands, in twips.
constexpr int kNoticeLeft = 1500;
constexpr int kNoticeTop = 2550;

// The extensions the text tab prints.
const QStringList& textExtensions() {
    static const QStringList list = {u"RTF"_s, u"TXT"_s, u"INI"_s, u"BAT"_s, u"BAK"_s,  u"DOS"_s,
                                     u"LOG"_s, u"SYS"_s, u"DOC"_s, u"WDB"_s, u"HTML"_s, u"HTM"_s,
                                     u"WRI"_s, u"LST"_s, u"URL"_s, u"MSG"_s};
    return list;
}

// The size of a picture in inches, to a ten-thousandth: by the resolution the file records,
// else 96 pixels an inch.
QSizeF inchesOf(const QImage& image) {
    const auto inches = [](int pixels, int dotsPerMeter) {
        const double dpi = dotsPerMeter > 0 ? dotsPerMeter * 0.0254 : 96.0;
        return std::round(pixels / dpi * 10000) / 10000;
    };
    return QSizeF(inches(image.width(), image.dotsPerMeterX()),
                  inches(image.height(), image.dotsPerMeterY()));
}

// The mouse pointer as an hourglass while a job runs.
struct Hourglass {
    Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QApplication::restoreOverrideCursor(); }
};

} // namespace

PrntFrm1::PrntFrm1(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    buildControls();
    Form_Load();
}

PrntFrm1::~PrntFrm1() {
    globals().gPrintOpen = false;
}

void PrntFrm1::buildControls() {
    auto* layout = new QVBoxLayout(this);
    TabStrip1 = new QTabBar(this);
    TabStrip1->setObjectName(u"TabStrip1"_s);
    TabStrip1->setAccessibleName(tr("Kind of Print Job"));
    for (const QString& caption : {tr("Pictures"), tr("Text"), tr("DataBase"), tr("System")})
        TabStrip1->addTab(caption);
    layout->addWidget(TabStrip1);

    // The four panels lie one over the other; the tab shows one.
    auto* panels = new QGridLayout;
    Frame1 = {buildPicturePanel(), buildTextPanel(), buildDatabasePanel(), buildSystemPanel()};
    for (size_t i = 0; i < Frame1.size(); ++i) {
        Frame1[i]->setObjectName(u"Frame1(%1)"_s.arg(i));
        Frame1[i]->setFrameShape(QFrame::StyledPanel);
        panels->addWidget(Frame1[i], 0, 0);
    }
    layout->addLayout(panels, 1);

    FontBtn = button(this, "FontBtn", tr("&Font"), tr("Select the Font to Print with"));
    PreviewBtn = button(this, "PreviewBtn", tr("Pre&view"), tr("See the Pages before they Print"));
    OKBtn = button(this, "OKBtn", tr("OK"), tr("Print the File"));
    CancelBtn = button(this, "CancelBtn", tr("Cancel"), tr("Close without Printing"));
    HelpBtn = button(this, "HelpBtn", tr("&Help"), tr("Help with Printing"));
    auto* row = new QHBoxLayout;
    row->addWidget(FontBtn);
    row->addWidget(PreviewBtn);
    row->addStretch(1);
    for (QPushButton* b : {OKBtn, CancelBtn, HelpBtn})
        row->addWidget(b);
    layout->addLayout(row);

    Frame2 = new QFrame(this);
    Frame2->setObjectName(u"Frame2"_s);
    Frame2->setFrameShape(QFrame::Box);
    auto* noticeLayout = new QVBoxLayout(Frame2);
    noticeLayout->addWidget(label(Frame2, u"Label7"_s, tr("Printing")));
    Frame2->adjustSize();
    Frame2->hide();

    connect(TabStrip1, &QTabBar::currentChanged, this, [this] { TabStrip1_Click(); });
    connect(OKBtn, &QPushButton::clicked, this, &PrntFrm1::OKBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &PrntFrm1::CancelBtn_Click);
    connect(FontBtn, &QPushButton::clicked, this, &PrntFrm1::FontBtn_Click);
    connect(PreviewBtn, &QPushButton::clicked, this, &PrntFrm1::PreviewBtn_Click);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    resize(620, 420);
}

QFrame* PrntFrm1::buildPicturePanel() {
    auto* panel = new QFrame(this);
    auto* layout = new QHBoxLayout(panel);
    FramePicture = new QFrame(panel);
    FramePicture->setObjectName(u"FramePicture"_s);
    FramePicture->setFrameShape(QFrame::Box);
    auto* pictureLayout = new QVBoxLayout(FramePicture);
    Image1 = new PictureView(FramePicture);
    Image1->setObjectName(u"Image1"_s);
    Image1->setAccessibleName(tr("Picture to Print"));
    Image1->setToolTip(tr("Click to See the Picture at its own Size or Fitted"));
    Image1->setMinimumSize(220, 220);
    pictureLayout->addWidget(Image1);
    layout->addWidget(FramePicture, 1);

    auto* form = new QGridLayout;
    Text1 = entry(panel, "Text1", tr("Enter Title or Description to Print on Page"));
    form->addWidget(label(panel, u"Label1(0)"_s, tr("Values in Inches")), 0, 0, 1, 2);
    form->addWidget(Text1, 1, 0, 1, 2);
    const struct {
        QLineEdit** box;
        const char* name;
        QString caption;
    } boxes[] = {
        {&DXPos, "DXPos", tr("Title X Pos:")},
        {&DYPos, "DYPos", tr("Title Y Pos:")},
        {&XPos, "XPos", tr("Image X Pos:")},
        {&YPos, "YPos", tr("Image Y Pos:")},
        {&PictWidth, "PictWidth", tr("Image Width:")},
        {&PictHeight, "PictHeight", tr("Image Height:")},
    };
    int rowAt = 2;
    for (const auto& b : boxes) {
        *b.box = entry(panel, b.name, b.caption);
        form->addWidget(label(panel, u"Label1(%1)"_s.arg(rowAt - 1), b.caption), rowAt, 0);
        form->addWidget(*b.box, rowAt, 1);
        ++rowAt;
    }
    form->setRowStretch(rowAt, 1);
    layout->addLayout(form, 1);

    connect(Image1, &PictureView::mousePressed, this, [this] { Image1_Click(); });
    connect(Text1, &QLineEdit::returnPressed, this, [this] {
        if (OKBtn->isEnabled())
            OKBtn_Click();
    });
    for (QLineEdit* box : {Text1, PictWidth, PictHeight})
        box->installEventFilter(this);
    return panel;
}

std::array<QLabel*, 2> PrntFrm1::fileRow(QWidget* panel, QVBoxLayout* layout, const QString& name,
                                         const QString& caption) {
    const std::array<QLabel*, 2> labels = {label(panel, name + u"(0)"_s, caption),
                                           label(panel, name + u"(1)"_s, {})};
    auto* row = new QHBoxLayout;
    row->addWidget(labels[0]);
    row->addWidget(labels[1], 1);
    layout->addLayout(row);
    return labels;
}

QFrame* PrntFrm1::buildTextPanel() {
    auto* panel = new QFrame(this);
    auto* layout = new QVBoxLayout(panel);
    Label2 = fileRow(panel, layout, u"Label2"_s, tr("Print Text File: "));
    RichTextBox1 = new QTextEdit(panel);
    RichTextBox1->setObjectName(u"RichTextBox1"_s);
    RichTextBox1->setAccessibleName(tr("Text to Print"));
    RichTextBox1->setReadOnly(true);
    layout->addWidget(RichTextBox1, 1);
    return panel;
}

QFrame* PrntFrm1::buildSystemPanel() {
    auto* panel = new QFrame(this);
    auto* layout = new QVBoxLayout(panel);
    const QString lines[] = {tr("Print all Locations for the Selected File"),
                             tr("All folder locations and Files will be printed"),
                             tr("for the File Type Selected on the Search"), tr("- OR -")};
    for (int i = 0; i < 4; ++i)
        layout->addWidget(label(panel, u"Label6(%1)"_s.arg(i), lines[i]));
    Check1 = new QCheckBox(tr("Use File"), panel);
    Check1->setObjectName(u"Check1"_s);
    Check1->setAccessibleName(tr("Use File"));
    Check1->setToolTip(tr("Use the Current file to find instead of a File Type listed below"));
    layout->addWidget(Check1);
    Label4 = {label(panel, u"Label4(0)"_s, {}), label(panel, u"Label4(1)"_s, {})};
    for (QLabel* l : Label4) {
        l->setWordWrap(true);
        layout->addWidget(l);
    }
    layout->addStretch(1);
    connect(Check1, &QCheckBox::clicked, this, &PrntFrm1::Check1_Click);
    return panel;
}

void PrntFrm1::Form_Load() {
    Globals& g = globals();
    PrintFontName = u"MS Sans Serif"_s;
    PrintFontSize = 16;
    PrintFontBold = false;
    PrintFontItalic = false;
    PrintMetrics();
    OKBtn->setDefault(true);
    classifyFile();
    Text1->setText(g.gOpenFile);
    g.gSearchToReport = false;
    Label4[1]->setText(g.gOpenFile);
    FileTitle = PathUtil::nameOf(g.gOpenFile);
    setWindowTitle(tr("Print File - ") + FileTitle);
    g.gPrintOpen = true;
    if (selectedTab() == PicturesTab)
        CenterTitle();
    showFont();
}

void PrntFrm1::classifyFile() {
    Globals& g = globals();
    bool isText = false;
    FileTypes::GetFileTypeFlag(g.gOpenFile, g, FileExt, isText);
    FileExt = FileTypes::GetFileExt(g.gOpenFile);
    if (g.gIsDatabaseFile) {
        prepareDatabaseTab();
    } else if (isText) {
        prepareTextTab();
    } else {
        selectTab(PicturesTab);
        PrintFontSize = 10;
        preparePictureTab();
    }
}

int PrntFrm1::selectedTab() const {
    return TabStrip1->currentIndex() + 1;
}

void PrntFrm1::selectTab(int tab) {
    if (TabStrip1->currentIndex() == tab - 1)
        TabStrip1_Click();
    else
        TabStrip1->setCurrentIndex(tab - 1);
}

void PrntFrm1::TabStrip1_Click() {
    Globals& g = globals();
    const int tab = selectedTab();
    for (QFrame* panel : Frame1)
        panel->hide();
    Frame1[size_t(tab - 1)]->show();
    for (QLabel* l : {Label4[1], Label2[1], Label3[1]})
        l->setText(g.gOpenFile);
    Label2[0]->setText(tr("Print Text File: "));
    OKBtn->setEnabled(false);
    switch (tab) {
    case PicturesTab:
        OKBtn->setEnabled(FileTypes::isPictureExt(FileExt));
        break;
    case TextTab:
        OKBtn->setEnabled(textExtensions().contains(FileExt));
        break;
    case DatabaseTab:
        OKBtn->setEnabled(
            QStringList{u"MDB"_s, u"DBF"_s, u"DB"_s, u"XLS"_s, u"WK4"_s}.contains(FileExt));
        break;
    default:
        break;
    }
    if (tab == SystemTab) {
        OKBtn->setEnabled(true);
        setWindowTitle(tr("Print File Locations for File Types"));
        g.gFindForReport = true;
        if (!m_find) {
            m_find = new FindFile1(this);
            m_find->setAttribute(Qt::WA_DeleteOnClose);
        }
        m_find->show();
        m_find->raise();
        m_find->activateWindow();
        Label4[0]->setText(tr("Selected: ") + g.gSearchMask);
    } else {
        setWindowTitle(tr("Print File - ") + FileTitle);
    }
}

void PrntFrm1::PrintMetrics() {
    const ::PrintMetrics m = ::PrintMetrics::forFont(PrintFontSize, PrintFontBold);
    LineWidth = m.LineWidth;
    ColumnGap = m.ColumnGap;
    RuleExtra = m.RuleExtra;
    LinesPerPage = m.LinesPerPage;
}

void PrntFrm1::showFont() {
    QFont font = Text1->font();
    font.setFamily(FontNames::familyOf(PrintFontName));
    font.setBold(PrintFontBold);
    font.setItalic(PrintFontItalic);
    for (QWidget* w :
         std::initializer_list<QWidget*>{Label2[0], Label2[1], Label3[1], Label4[1], Text1})
        w->setFont(font);
}

void PrntFrm1::FontBtn_Click() {
    QFont initial(PrintFontName);
    initial.setPointSizeF(PrintFontSize);
    initial.setBold(PrintFontBold);
    initial.setItalic(PrintFontItalic);
    const std::optional<QFont> chosen = Messages::instance().chooseFont(initial, this);
    if (!chosen)
        return;
    PrintFontName = chosen->family();
    if (chosen->pointSizeF() > 0)
        PrintFontSize = chosen->pointSizeF();
    PrintFontBold = chosen->bold();
    PrintFontItalic = chosen->italic();
    showFont();
    CenterTitle();
}

void PrntFrm1::Check1_Click() {
    Label4[0]->setText(Check1->isChecked() ? Label4[1]->text() : QString());
}

// Pictures

void PrntFrm1::preparePictureTab() {
    Image1->setPaintSizeMode(PictureView::Stretch);
    const ImageCodec::Picture picture = ImageCodec::decode(globals().gOpenFile);
    Image1->setImage(picture.image);
    const QSizeF inches = picture.image.isNull() ? QSizeF() : inchesOf(picture.image);
    PictWidth->setText(PicturePage::numberText(inches.width()));
    PictHeight->setText(PicturePage::numberText(inches.height()));
    DYPos->setText(u"1.0"_s);
    YPos->setText(u"2.0"_s);
    FitPicture();
    XPos->setText(PicturePage::numberText((PrinterSurface::PageWidth - PictureWidth) / 2));
}

void PrntFrm1::FitPicture() {
    const QSizeF inches = Image1->image().isNull() ? QSizeF() : inchesOf(Image1->image());
    const PicturePage::Fit fit = PicturePage::FitPicture(inches.width(), inches.height(),
                                                         PictWidth->text(), PictHeight->text());
    PictWidth->setText(fit.widthText);
    PictHeight->setText(fit.heightText);
    PictureWidth = fit.PictureWidth;
    PictureHeight = fit.PictureHeight;
}

void PrntFrm1::PictHeight_LostFocus() {
    FitPicture();
    PictWidth->setText(
        PicturePage::cutToBox(PicturePage::numberText(PictureWidth), PictHeight->text()));
}

void PrntFrm1::PictWidth_LostFocus() {
    FitPicture();
    PictHeight->setText(
        PicturePage::cutToBox(PicturePage::numberText(PictureHeight), PictWidth->text()));
}

void PrntFrm1::CenterTitle() {
    // Measured as the printer measures: a PDF device of the same page, never painted on.
    QBuffer nowhere;
    QPdfWriter device(&nowhere);
    PrinterSurface surface(device);
    setUpSurface(surface);
    DXPos->setText(
        PicturePage::numberText(PicturePage::centredX(surface.textWidth(Text1->text().trimmed()))));
}

void PrntFrm1::Image1_Click() {
    Image1->setPaintSizeMode(Image1->paintSizeMode() == PictureView::Stretch
                                 ? PictureView::Normal
                                 : PictureView::Stretch);
}

bool PrntFrm1::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        if (watched == PictHeight)
            PictHeight_LostFocus();
        else if (watched == PictWidth)
            PictWidth_LostFocus();
        else if (watched == Text1)
            CenterTitle();
    }
    return QWidget::eventFilter(watched, event);
}

bool PrntFrm1::printPicture(PrinterSurface& surface) {
    FitPicture();
    PicturePage::Layout layout;
    layout.title = Text1->text();
    layout.titleX = SettingsText::leadingNumber(DXPos->text());
    layout.titleY = SettingsText::leadingNumber(DYPos->text());
    layout.x = SettingsText::leadingNumber(XPos->text());
    layout.y = SettingsText::leadingNumber(YPos->text());
    layout.width = PictureWidth;
    layout.height = PictureHeight;
    PicturePage::print(surface, layout, Image1->image());
    return true;
}

// Text

void PrntFrm1::prepareTextTab() {
    selectTab(TextTab);
    const TextLoader::Text text = TextLoader::load(globals().gOpenFile, FileExt);
    if (text.rich)
        RichTextBox1->setHtml(text.content);
    else
        RichTextBox1->setPlainText(text.content);
    RichTextBox1->setReadOnly(true);
    PrintFontSize = 8;
}

bool PrntFrm1::printText(PrinterSurface& surface) {
    const TextLoader::Text text = TextLoader::load(globals().gOpenFile, FileExt);
    TextPrinting::Job job;
    job.printFile = globals().gPrintFile;
    job.fontName = PrintFontName;
    job.fontSize = PrintFontSize;
    job.when = QDateTime::currentDateTime();
    TextPrinting::print(surface, job, text.content, text.rich);
    return true;
}

// File locations

bool PrntFrm1::runReportSearch() {
    Globals& g = globals();
    const QString selected = Label4[0]->text().trimmed();
    if (selected.isEmpty() || selected == tr("No File Types Selected")) {
        Messages::instance().inform(tr("You must Select File or File Type for Report"), this);
        return false;
    }
    Frame2->show();
    Frame2->repaint();
    Hourglass hourglass;
    const QString workFile = SearchReport::workFile();
    QFile::remove(workFile);
    QFile(workFile).open(QIODevice::WriteOnly);
    // "Use File" looks for the current file by its name instead of the type's mask.
    const QString mask = g.gSearchMask;
    if (Check1->isChecked())
        g.gSearchMask = PathUtil::nameOf(g.gOpenFile);
    g.gSearchToReport = true;
    if (Quorvane1* main = Quorvane1::instance())
        main->SearchFunction();
    g.gSearchToReport = false;
    g.gSearchMask = mask;
    return true;
}

bool PrntFrm1::printReport(PrinterSurface& surface) {
    LocationReport::Job job;
    job.oneFile = Check1->isChecked();
    if (job.oneFile)
        job.reportFile = PathUtil::nameOf(globals().gOpenFile);
    job.metrics = ::PrintMetrics::forFont(PrintFontSize, PrintFontBold);
    job.fontSize = PrintFontSize;
    job.when = QDateTime::currentDateTime();
    return LocationReport::print(surface, SearchReport::workFile(), job);
}

// Printing

void PrntFrm1::setUpSurface(PrinterSurface& surface) const {
    surface.setFontName(PrintFontName);
    surface.setFontSize(PrintFontSize);
    surface.setFontBold(PrintFontBold);
    surface.setFontItalic(false);
}

bool PrntFrm1::printJob(PrinterSurface& surface) {
    Hourglass hourglass;
    setUpSurface(surface);
    switch (selectedTab()) {
    case PicturesTab:
        return printPicture(surface);
    case TextTab:
        return printText(surface);
    case DatabaseTab:
        return printListing(surface);
    default:
        return printReport(surface);
    }
}

void PrntFrm1::setBusy(bool busy) {
    CancelBtn->setEnabled(!busy);
    OKBtn->setEnabled(!busy);
    PreviewBtn->setEnabled(!busy);
    Frame2->setVisible(busy);
    if (busy) {
        Frame2->raise();
        Frame2->repaint();
    }
}

void PrntFrm1::OKBtn_Click() {
    if (selectedTab() == DatabaseTab && List1->count() == 0) {
        Messages::instance().inform(tr("Database File Cannot be Opened"), this);
        return;
    }
    Frame2->move(Twips::toPixels(kNoticeLeft), Twips::toPixels(kNoticeTop));
    QPrinter& printer = PrinterChoice::printer();
    const QPageLayout::Orientation orientation = printer.pageLayout().orientation();
    if (orientation == QPageLayout::Landscape)
        Messages::instance().inform(
            tr("Database Listings only support Portrait - Please use 8.5 x 11"), this);
    PrintMetrics();
    setBusy(true);
    printer.setPageOrientation(QPageLayout::Portrait);
    // A report without files or type to look for leaves the window as it is.
    if (selectedTab() == SystemTab && !m_reportSearched && !runReportSearch()) {
        setBusy(false);
        return;
    }
    m_reportSearched = false;
    const PrintDestination::Outcome outcome = PrintDestination::run(
        this, globals().gOpenFile, [this](PrinterSurface& s) { return printJob(s); });
    setBusy(false);
    printer.setPageOrientation(orientation);
    if (outcome != PrintDestination::Outcome::Printed)
        return;
    globals().gFindForReport = false;
    close();
}

void PrntFrm1::PreviewBtn_Click() {
    if (selectedTab() == DatabaseTab && List1->count() == 0) {
        Messages::instance().inform(tr("Database File Cannot be Opened"), this);
        return;
    }
    PrintMetrics();
    if (selectedTab() == SystemTab) {
        if (!runReportSearch())
            return;
        m_reportSearched = true;
    }
    if (PrintDestination::preview(this, [this](PrinterSurface& s) { return printJob(s); }))
        OKBtn_Click();
    else
        m_reportSearched = false;
}

void PrntFrm1::CancelBtn_Click() {
    close();
}

void PrntFrm1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (Activation::becameActive(this, event))
        Form_Activate();
}

void PrntFrm1::Form_Activate() {
    NamedWidgets::paintWindow(this);
}

void PrntFrm1::closeEvent(QCloseEvent* event) {
    globals().gPrintOpen = false;
    QWidget::closeEvent(event);
}
