#include "media/ThumBrow1.h"

#include "media/ThumbnailGenerator.h"
#include "platform/Activation.h"
#include "platform/SettingColor.h"
#include "platform/Twips.h"
#include "platform/WidgetPaint.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"
#include "shell/Quorvane1.h"
#include "shell/ShellList.h"

#include <QCloseEvent>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

// The picture extensions of the table, in its order.
constexpr int kPictureExtensions = 28;

int px(double twips) {
    return Twips::toPixels(twips);
}

} // namespace

ThumBrow1::ThumBrow1(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Browse Images in a Folder"));
    Thumb1 = new ThumbnailGenerator(this);
    ImagList1 = new QListWidget(this);
    ImagList1->setObjectName(u"ImagList1"_s);
    ImagList1->setAccessibleName(tr("Click on Image to View"));
    ImagList1->setToolTip(ImagList1->accessibleName());
    ImagList1->setViewMode(QListView::IconMode);
    ImagList1->setMovement(QListView::Static);
    ImagList1->setResizeMode(QListView::Adjust);
    ImagList1->setWordWrap(true);
    List1 = new QListWidget(this);
    List1->setObjectName(u"List1"_s);
    List1->setAccessibleName(tr("Paths of the Thumbnails"));
    List1->hide();
    Frame1 = new QFrame(this);
    Frame1->setObjectName(u"Frame1"_s);
    auto* frameLayout = new QVBoxLayout(Frame1);
    Label1 = NamedWidgets::label(Frame1, u"Label1"_s, tr("No Pictures in Folder to Display"));
    frameLayout->addWidget(Label1);
    Frame1->adjustSize();
    Frame1->hide();
    OKBtn = NamedWidgets::button(this, "OKBtn", tr("OK"), tr("Reset ThumbNails to New Folder"));
    StopBtn = NamedWidgets::button(this, "StopBtn", tr("&Stop"), tr("Stop Thumbnail Display"));
    CancelBtn = NamedWidgets::button(this, "CancelBtn", tr("Cancel"),
                                     tr("Stop Thumbnail Display and Close Window"));
    HelpBtn = NamedWidgets::button(this, "HelpBtn", tr("&Help"), tr("Help with Thumbnails"));

    connect(OKBtn, &QPushButton::clicked, this, &ThumBrow1::OKBtn_Click);
    connect(StopBtn, &QPushButton::clicked, this, &ThumBrow1::StopBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &ThumBrow1::CancelBtn_Click);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    connect(ImagList1, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { ImagList1_Click(ImagList1->row(item)); });
    connect(ImagList1, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { ImagList1_Click(ImagList1->row(item)); });
    connect(
        Thumb1, &ThumbnailGenerator::made, this,
        [this](const QString& path, const QImage& thumbnail) { addThumbnail(path, thumbnail); });
    connect(Thumb1, &ThumbnailGenerator::finished, this, &ThumBrow1::generationEnded);

    globals().gThumBrowOpen = true;
    resize(760, 560);
}

ThumBrow1::~ThumBrow1() {
    globals().gThumBrowOpen = false;
}

void ThumBrow1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (Activation::becameActive(this, event))
        Form_Activate();
}

void ThumBrow1::Form_Activate() {
    const Globals& g = globals();
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor);
    WidgetPaint::paint(Frame1, g.gWindowBackColor, g.gWindowForeColor);
    WidgetPaint::paint(Label1, g.gWindowBackColor, g.gWindowForeColor);
    for (QPushButton* b : {OKBtn, StopBtn, CancelBtn, HelpBtn})
        WidgetPaint::paint(b, g.gButtonColor, g.gWindowForeColor);
    // Names in the list's own colour would not be seen: they take black or white then.
    const QColor back = SettingColor::toQColor(g.gThumbBackColor);
    const qint32 fore = g.gThumbForeColor != g.gThumbBackColor ? g.gThumbForeColor
                        : back.lightness() < 128               ? 0xFFFFFF
                                                               : 0;
    WidgetPaint::paint(ImagList1, g.gThumbBackColor, fore);
    QPalette palette = ImagList1->palette();
    const QColor selection = SettingColor::toQColor(g.gSelectionItemColor);
    if (palette.color(QPalette::Highlight) != selection) {
        palette.setColor(QPalette::Highlight, selection);
        ImagList1->setPalette(palette);
    }
    const QSize box(int(g.gThumbWidth), int(g.gThumbHeight));
    if (ImagList1->iconSize() != box) {
        ImagList1->setIconSize(box);
        ImagList1->setGridSize(box + QSize(24, 3 * fontMetrics().height()));
    }
    if (mFirstActivate) {
        mFirstActivate = false;
        OKBtn_Click();
    }
}

void ThumBrow1::OKBtn_Click() {
    if (Busy)
        return;
    Busy = true;
    // A new run goes on from a stop before it.
    StopRequested = false;
    Frame1->hide();
    ImagList1->setCursor(Qt::WaitCursor);
    ImagList1->show();
    ImagList1->clear();
    List1->clear();
    mCount = 0;
    const Globals& g = globals();
    ThumbnailGenerator::Settings settings;
    settings.box = QSize(int(g.gThumbWidth), int(g.gThumbHeight));
    const int depth = std::clamp<int>(g.gThumbBits, 0, int(std::size(ThumbnailMaker::Depths)) - 1);
    settings.depthBits = ThumbnailMaker::Depths[depth];
    settings.extensions = g.gFileExtTable.mid(0, kPictureExtensions);
    Generating = true;
    const Quorvane1* main = Quorvane1::instance();
    Thumb1->start(main ? main->shellList()->folder().trimmed() : QString(), settings);
}

void ThumBrow1::addThumbnail(const QString& path, const QImage& thumbnail) {
    if (!globals().gThumBrowOpen || CloseRequested)
        return;
    const QString name = path.section(u'/', -1);
    auto* item = new QListWidgetItem(QIcon(QPixmap::fromImage(thumbnail)), name);
    item->setToolTip(name);
    ImagList1->addItem(item);
    List1->addItem(path);
    ++mCount;
}

void ThumBrow1::generationEnded(int end) {
    Generating = false;
    if (end == ThumbnailGenerator::Stopped && !StopRequested)
        CloseRequested = true;
    if (!CloseRequested) {
        ImagList1->unsetCursor();
        Busy = false;
    } else {
        close();
        return;
    }
    if (ImagList1->count() == 0) {
        Frame1->show();
        Frame1->raise();
        ImagList1->hide();
    }
}

void ThumBrow1::StopBtn_Click() {
    StopRequested = true;
    CloseRequested = false;
    Thumb1->stop();
}

void ThumBrow1::CancelBtn_Click() {
    CloseRequested = true;
    globals().gThumBrowOpen = false;
    if (!Generating)
        close();
    else
        Thumb1->stop();
}

void ThumBrow1::ImagList1_Click(int index) {
    if (index < 0 || index >= List1->count())
        return;
    const QString path = List1->item(index)->text();
    if (Quorvane1* main = Quorvane1::instance()) {
        main->DisplayImage(path);
        main->AddtoCMBFILE(path);
    }
}

void ThumBrow1::closeEvent(QCloseEvent* event) {
    CloseRequested = true;
    ImagList1->hide();
    globals().gThumBrowOpen = false;
    Thumb1->stop();
    QWidget::closeEvent(event);
}

void ThumBrow1::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const double w = Twips::fromPixels(width());
    const double h = Twips::fromPixels(height());
    ImagList1->setGeometry(px(155), px(155), std::max(px(w - 310), 1), std::max(px(h - 1200), 1));
    Frame1->move((width() - Frame1->width()) / 2, px(h / 2.5));
    const int top = px(h - 900);
    int x = px(155);
    for (QPushButton* b : {OKBtn, StopBtn, CancelBtn, HelpBtn}) {
        b->setGeometry(x, top, px(1200), px(375));
        x += px(1200 + 155);
    }
}
