#include "settings/SetColor1.h"

#include "platform/Activation.h"
#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/SettingColor.h"
#include "platform/WidgetPaint.h"
#include "settings/ColorsFile.h"
#include "settings/SettingsText.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The rows of the window: a caption, the swatch of the background (left column) and of the
// text (right column, -1 where the row has one colour).
struct Row {
    const char* caption;
    int back;
    int text;
};
constexpr Row kRows[] = {
    {"Select Color for Main Window:", 0, 11},        {"Select Color for List Boxes:", 1, 12},
    {"Select Color for Entry Fields:", 2, 13},       {"Select Color for Display Fields:", 3, 14},
    {"Select Color for Selection Windows:", 4, 15},  {"Select Color for Database Browser:", 5, 16},
    {"Select Color for ThumbNails:", 6, 17},         {"Select Color for Help Quick Tips:", 7, 18},
    {"Select Color for Selection Item:", 8, -1},     {"Select Color for Picture Windows:", 9, -1},
    {"Select Color for Selection Buttons:", 10, -1},
};

// The swatch of each line of Colors.INI, in the order of the file.
constexpr int kSwatchOfLine[ColorsFile::LineCount] = {0, 11, 1, 12, 2, 13, 3, 14, 4, 15,
                                                      5, 16, 6, 17, 7, 18, 8, 9,  10};

} // namespace

SetColor1::SetColor1(QWidget* parent) : QDialog(parent) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Set Colors for Quorvane"));

    auto* grid = new QGridLayout;
    grid->addWidget(NamedWidgets::label(this, u"Label2(0)"_s, tr("BackGround")), 0, 1);
    grid->addWidget(NamedWidgets::label(this, u"Label2(1)"_s, tr("Text")), 0, 2);
    for (int r = 0; r < int(std::size(kRows)); ++r) {
        const Row& row = kRows[r];
        const QString caption = tr(row.caption);
        grid->addWidget(NamedWidgets::label(this, u"Label1(%1)"_s.arg(r), caption), r + 1, 0);
        for (const auto& [index, column, role] :
             {std::tuple{row.back, 1, tr("BackGround")}, std::tuple{row.text, 2, tr("Text")}}) {
            if (index < 0)
                continue;
            auto* swatch = new QLineEdit(this);
            swatch->setObjectName(u"Text1(%1)"_s.arg(index));
            swatch->setReadOnly(true);
            swatch->setFixedWidth(60);
            swatch->setToolTip(tr("Double Click to Select a Color"));
            swatch->setAccessibleName(row.text < 0 ? caption : caption + u' ' + role);
            swatch->installEventFilter(this);
            Text1[size_t(index)] = swatch;
            grid->addWidget(swatch, r + 1, column);
        }
    }

    OKBtn = NamedWidgets::button(this, "OKBtn", tr("OK"), tr("Click OK to Select Program Colors"));
    CancelBtn = NamedWidgets::button(this, "CancelBtn", tr("Cancel"),
                                     tr("Click Cancel to Close Color Selection Window"));
    HelpBtn =
        NamedWidgets::button(this, "HelpBtn", tr("Help"), tr("Help with Program Color Selections"));
    OKBtn->setDefault(true);
    DialogButtons::enterAnywhereClicks(this, OKBtn);
    auto* buttons = NamedWidgets::rightAligned({OKBtn, CancelBtn, HelpBtn});
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(buttons);

    connect(OKBtn, &QPushButton::clicked, this, &SetColor1::OKBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });

    const Globals& g = globals();
    for (int line = 0; line < ColorsFile::LineCount; ++line)
        setSwatch(kSwatchOfLine[line], g.*ColorsFile::roles()[size_t(line)]);
}

void SetColor1::setSwatch(int index, qint32 color) {
    m_colors[size_t(index)] = color;
    QPalette palette = Text1[size_t(index)]->palette();
    palette.setColor(QPalette::Base, SettingColor::toQColor(color));
    Text1[size_t(index)]->setPalette(palette);
}

bool SetColor1::eventFilter(QObject* watched, QEvent* event) {
    const auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    const bool asked = event->type() == QEvent::MouseButtonDblClick ||
                       (key && (key->key() == Qt::Key_Space || key->key() == Qt::Key_F4));
    if (asked) {
        for (int i = 0; i < int(Text1.size()); ++i) {
            if (Text1[size_t(i)] == watched) {
                chooseColor(i);
                return true;
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}

void SetColor1::chooseColor(int index) {
    const std::optional<QColor> chosen = Messages::instance().chooseColor(
        tr("Select Color"), SettingColor::toQColor(m_colors[size_t(index)]), this);
    if (chosen)
        setSwatch(index, SettingColor::fromQColor(*chosen));
}

void SetColor1::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (!Activation::becameActive(this, event))
        return;
    const Globals& g = globals();
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor);
    for (QLabel* label : findChildren<QLabel*>())
        WidgetPaint::paint(label, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    for (QPushButton* b : {OKBtn, CancelBtn, HelpBtn})
        WidgetPaint::paint(b, g.gButtonColor, g.gWindowForeColor, g.gBoldType);
}

void SetColor1::OKBtn_Click() {
    Globals& g = globals();
    for (int line = 0; line < ColorsFile::LineCount; ++line)
        g.*ColorsFile::roles()[size_t(line)] = m_colors[size_t(kSwatchOfLine[line])];
    const AppError error = ColorsFile::save(PathUtil::join(g.gAppPath, ColorsFile::fileName()), g);
    if (error)
        Messages::instance().inform(SettingsText::writeFailureMessage(error), this);
    accept();
}
