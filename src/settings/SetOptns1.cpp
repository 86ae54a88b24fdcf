#include "settings/SetOptns1.h"

#include "documents/MDIForm1.h"
#include "platform/Activation.h"
#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/WindowRegistry.h"
#include "settings/SettingsText.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"
#include "shell/Quorvane1.h"
#include "shell/ShellList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Twips of a screen pixel.
constexpr double kTwipsPerPixel = 15;

const char* const kDepths[] = {"32 Bits", "24 Bits", "16 Bits", "8 Bits", "7 Bits", "6 Bits",
                               "5 Bits",  "4 Bits",  "3 Bits",  "2 Bits", "1 Bit"};
const char* const kBrowserStyles = "FRI";

QString decimal(double value) {
    return QString::number(value, 'f', 0).trimmed();
}

} // namespace

SetOptns1::SetOptns1(QWidget* parent) : QDialog(parent) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Set Quorvane Control Options"));

    const struct {
        const char* label;
        const char* tip;
    } boxes[] = {
        {"ThumbNail Height:", "ThumbNail Height in Centimeters"},
        {"ThumbNail Width:", "ThumbNail Width in Centimeters"},
        {"From E-Mail Address", "Enter Web Site Address available when Browser Started"},
        {"E-Mail Address Book", "Enter Your From E-Mail Address"},
        {"Initial Number of Folders and Files to Search:", nullptr},
        {"Additional Number of Folders and Files to Search:", nullptr},
        {"Separator Position:", "Percent of Main Window Device/Folder Selector Tree Occupies"},
    };
    std::array<QLabel*, 7> labels{};
    for (size_t i = 0; i < std::size(boxes); ++i) {
        const QString caption = tr(boxes[i].label);
        labels[i] = NamedWidgets::label(this, u"Label1(%1)"_s.arg(i), caption);
        Text1[i] = new QLineEdit(this);
        Text1[i]->setObjectName(u"Text1(%1)"_s.arg(i));
        if (boxes[i].tip)
            Text1[i]->setToolTip(tr(boxes[i].tip));
        Text1[i]->setAccessibleName(caption);
        labels[i]->setBuddy(Text1[i]);
    }
    CMBTHUMBRES = new QComboBox(this);
    CMBTHUMBRES->setObjectName(u"CMBTHUMBRES"_s);
    CMBTHUMBRES->setAccessibleName(tr("ThumbNail Resolution:"));
    for (const char* depth : kDepths)
        CMBTHUMBRES->addItem(tr(depth));
    EMailBKBtn = new QToolButton(this);
    EMailBKBtn->setObjectName(u"EMailBKBtn"_s);
    EMailBKBtn->setText(u"..."_s);
    EMailBKBtn->setToolTip(tr("Locate E-Mail Address Book"));
    EMailBKBtn->setAccessibleName(EMailBKBtn->toolTip());

    auto* thumbs = new QGroupBox(tr("ThumbNails"), this);
    auto* thumbGrid = new QGridLayout(thumbs);
    for (int i = 0; i < 2; ++i) {
        thumbGrid->addWidget(labels[size_t(i)], i, 0);
        thumbGrid->addWidget(Text1[size_t(i)], i, 1);
    }
    // A fixed reminder of the scale; the program never writes into it.
    thumbGrid->addWidget(NamedWidgets::label(thumbs, u"Label2"_s, tr("1 cm = about  [___]")), 0, 2,
                         2, 1);
    auto* depthLabel = NamedWidgets::label(thumbs, u"Label3"_s, tr("ThumbNail Resolution:"));
    depthLabel->setBuddy(CMBTHUMBRES);
    thumbGrid->addWidget(depthLabel, 2, 0);
    thumbGrid->addWidget(CMBTHUMBRES, 2, 1);

    auto* mail = new QGroupBox(tr("E-Mail"), this);
    auto* mailGrid = new QGridLayout(mail);
    for (int i = 2; i < 4; ++i) {
        mailGrid->addWidget(labels[size_t(i)], i - 2, 0);
        mailGrid->addWidget(Text1[size_t(i)], i - 2, 1);
    }
    mailGrid->addWidget(EMailBKBtn, 1, 2);

    auto* browser = new QGroupBox(tr("Browser"), this);
    auto* browserGrid = new QGridLayout(browser);
    for (int i = 4; i < 7; ++i) {
        browserGrid->addWidget(labels[size_t(i)], i - 4, 0);
        browserGrid->addWidget(Text1[size_t(i)], i - 4, 1);
    }
    const char* const styles[] = {"Flat Browser Text", "Raised Text", "Inset Browser Text"};
    auto* styleRow = new QHBoxLayout;
    for (size_t i = 0; i < RDBROWTYPE.size(); ++i) {
        RDBROWTYPE[i] = new QRadioButton(tr(styles[i]), browser);
        RDBROWTYPE[i]->setObjectName(u"RDBROWTYPE(%1)"_s.arg(i));
        RDBROWTYPE[i]->setAccessibleName(RDBROWTYPE[i]->text());
        styleRow->addWidget(RDBROWTYPE[i]);
    }
    browserGrid->addLayout(styleRow, 3, 0, 1, 2);
    CHKBOLDTYPE = new QCheckBox(tr("Use Bold Type"), browser);
    CHKBOLDTYPE->setObjectName(u"CHKBOLDTYPE"_s);
    CHKBOLDTYPE->setAccessibleName(CHKBOLDTYPE->text());
    CHKGRIDLINE = new QCheckBox(tr("Use Grid Lines"), browser);
    CHKGRIDLINE->setObjectName(u"CHKGRIDLINE"_s);
    CHKGRIDLINE->setAccessibleName(CHKGRIDLINE->text());
    browserGrid->addWidget(CHKBOLDTYPE, 4, 0);
    browserGrid->addWidget(CHKGRIDLINE, 4, 1);

    OKBtn = NamedWidgets::button(this, "OKBtn", tr("OK"), tr("Save the Options"));
    CancelBtn = NamedWidgets::button(this, "CancelBtn", tr("Cancel"), tr("Close without Changes"));
    HelpBtn = NamedWidgets::button(this, "HelpBtn", tr("Help"), tr("Help with Options"));
    // Return anywhere in the window is OK.
    OKBtn->setDefault(true);
    DialogButtons::enterAnywhereClicks(this, OKBtn);
    auto* buttons = NamedWidgets::rightAligned({OKBtn, CancelBtn, HelpBtn});

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(thumbs);
    layout->addWidget(mail);
    layout->addWidget(browser);
    layout->addLayout(buttons);

    connect(OKBtn, &QPushButton::clicked, this, &SetOptns1::OKBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    connect(EMailBKBtn, &QToolButton::clicked, this, &SetOptns1::EMailBKBtn_Click);
    Form_Load();
}

void SetOptns1::Form_Load() {
    if (Quorvane1* main = Quorvane1::instance()) {
        main->SetWinSizeVariables();
        main->InitExplore();
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QSize screenPixels = screen ? screen->size() : QSize(640, 480);
    const OptionsForm::Scale scale = OptionsForm::scaleFor(screenPixels.width() * kTwipsPerPixel,
                                                           screenPixels.height() * kTwipsPerPixel);
    CmTwipsX = scale.cmTwipsX;
    CmTwipsY = scale.cmTwipsY;
    ActivatePending = true;

    const Globals& g = globals();
    CHKBOLDTYPE->setChecked(g.gBoldType);
    CHKGRIDLINE->setChecked(g.gGridLines);
    const qsizetype style = QByteArrayView(kBrowserStyles).indexOf(g.gBrowserTextStyle.toLatin1());
    if (style >= 0 && g.gBrowserTextStyle.size() == 1)
        RDBROWTYPE[size_t(style)]->setChecked(true);
    Text1[0]->setText(OptionsForm::centimetres(g.gThumbHeight, CmTwipsY));
    Text1[1]->setText(OptionsForm::centimetres(g.gThumbWidth, CmTwipsX));
    CMBTHUMBRES->setCurrentIndex(g.gThumbBits);
    Text1[2]->setText(g.gFromAddress);
    Text1[3]->setText(g.gAddressBook);
    Text1[4]->setText(decimal(g.gSearchInitial));
    Text1[5]->setText(decimal(g.gSearchAdditional));
    Text1[6]->setText(decimal(g.gSeparatorPercent));
}

void SetOptns1::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (Activation::becameActive(this, event))
        Form_Activate();
}

void SetOptns1::Form_Activate() {
    NamedWidgets::paintWindow(this);
    if (ActivatePending) {
        Text1[6]->setFocus();
        ActivatePending = false;
    }
}

void SetOptns1::OKBtn_Click() {
    std::array<double, 7> value{};
    for (size_t i = 0; i < value.size(); ++i)
        value[i] = SettingsText::leadingNumber(Text1[i]->text());
    const OptionsForm::Entries entries{value[0], value[1], value[4], value[5], value[6]};
    if (const std::optional<OptionsForm::Refusal> refusal = OptionsForm::check(entries)) {
        Messages::instance().inform(refusal->message, this);
        Text1[size_t(refusal->focus)]->setFocus();
        return;
    }
    Globals& g = globals();
    g.gThumbHeight = OptionsForm::pixels(value[0], CmTwipsY);
    g.gThumbWidth = OptionsForm::pixels(value[1], CmTwipsX);
    g.gThumbBits = static_cast<qint16>(std::max(0, CMBTHUMBRES->currentIndex()));
    g.gBoldType = CHKBOLDTYPE->isChecked();
    g.gGridLines = CHKGRIDLINE->isChecked();
    for (size_t i = 0; i < RDBROWTYPE.size(); ++i) {
        if (RDBROWTYPE[i]->isChecked())
            g.gBrowserTextStyle = QString(QLatin1Char(kBrowserStyles[i]));
    }
    g.gSearchInitial = value[4];
    g.gSearchAdditional = static_cast<qint32>(std::lround(value[5]));
    g.gSeparatorPercent = static_cast<qint16>(std::lround(value[6]));
    g.gFromAddress = Text1[2]->text();
    g.gAddressBook = Text1[3]->text();
    if (Quorvane1* main = Quorvane1::instance()) {
        main->setPaneShares(g.gSeparatorPercent);
        main->SetWinSize();
        if (g.gFrameOpen) {
            if (auto* frame = qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName())))
                frame->SetMDIWinSize();
        }
        main->SaveOptions();
    }
    accept();
}

void SetOptns1::EMailBKBtn_Click() {
    const Globals& g = globals();
    Messages::FileRequest request;
    request.title = tr("Select E-Mail Address List to Open");
    request.defaultExtension = u"MLS"_s;
    request.filterPairs = tr("E-Mail Address List | *.MLS");
    request.fileName = g.gAddressBook;
    const Quorvane1* main = Quorvane1::instance();
    request.folder =
        g.gAddressBook == u"MailAddr.MLS"_s || !main ? g.gAppPath : main->shellList()->folder();
    const QString chosen = Messages::instance().openFileName(request, this);
    if (!chosen.isEmpty())
        Text1[3]->setText(chosen);
}
