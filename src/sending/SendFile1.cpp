#include "sending/SendFile1.h"

#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "platform/Activation.h"
#include "platform/ExternalTool.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/TextFile.h"
#include "platform/WindowRegistry.h"
#include "sending/MailLogon.h"
#include "sending/MailSession.h"
#include "sending/SendText.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QPlainTextEdit* box(QWidget* parent, const char* name, const QString& caption, const QString& tip) {
    auto* b = new QPlainTextEdit(parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setAccessibleName(caption);
    b->setToolTip(tip);
    b->setTabChangesFocus(true);
    return b;
}

// A box with its caption above it.
QVBoxLayout* captioned(QWidget* parent, const QString& name, const QString& caption, QWidget* w) {
    auto* column = new QVBoxLayout;
    column->addWidget(NamedWidgets::label(parent, name, caption));
    column->addWidget(w, 1);
    return column;
}

} // namespace

SendFile1::SendFile1(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Send Files with E-Mail"));
    buildControls();
    buildMenus();
    Form_Load();
}

SendFile1::~SendFile1() {
    Form_Unload();
}

void SendFile1::buildControls() {
    auto* layout = new QVBoxLayout(this);
    menuBar = new QMenuBar(this);
    layout->setMenuBar(menuBar);

    Frame1 = new QFrame(this);
    Frame1->setObjectName(u"Frame1"_s);
    Frame1->setFrameShape(QFrame::StyledPanel);
    auto* frameLayout = new QVBoxLayout(Frame1);
    Label1[0] = NamedWidgets::label(Frame1, u"Label1(0)"_s, {});
    Label1[0]->setWordWrap(true);
    frameLayout->addWidget(Label1[0]);
    layout->addWidget(Frame1);

    CMBSENDTO = box(this, "CMBSENDTO", tr("Send to E-Mail Address:"),
                    tr("E-Mail Addresses Image or Picture Sent to"));
    Text2 = box(this, "Text2", tr("Names"), tr("Names of the E-Mail Addresses"));
    Text1 = box(this, "Text1", tr("E-Mail Message to Send"),
                tr("Enter Message to accompany Picture or Image"));
    // The three boxes share the width in thirds.
    auto* boxes = new QHBoxLayout;
    boxes->addLayout(captioned(this, u"Label2"_s, tr("Send to E-Mail Address:"), CMBSENDTO), 1);
    boxes->addLayout(captioned(this, u"Label3"_s, tr("Names"), Text2), 1);
    boxes->addLayout(captioned(this, u"Label4"_s, tr("E-Mail Message to Send"), Text1), 1);
    layout->addLayout(boxes, 1);

    CHKCOMP = new QCheckBox(tr("Send with Outlook Express"), this);
    CHKCOMP->setObjectName(u"CHKCOMP"_s);
    CHKCOMP->setAccessibleName(CHKCOMP->text());
    CHKCOMP->setToolTip(tr("Open the Message in the Desktop's E-Mail Program to Send it There"));
    layout->addWidget(CHKCOMP);

    List1 = new QListWidget(this);
    List1->setObjectName(u"List1"_s);
    List1->setAccessibleName(tr("History Log of Messages and Pictures Sent"));
    List1->setToolTip(List1->accessibleName());
    layout->addLayout(captioned(this, u"Label5"_s, List1->accessibleName(), List1), 1);

    ClearBtn = NamedWidgets::button(this, "ClearBtn", tr("Clear"), tr("Clear the History Log"));
    OKBtn = NamedWidgets::button(this, "OKBtn", tr("Send"), tr("Send the File"));
    CancelBtn = NamedWidgets::button(this, "CancelBtn", tr("Cancel"), tr("Close the Window"));
    HelpBtn = NamedWidgets::button(this, "HelpBtn", tr("&Help"), tr("Help with Sending Files"));
    auto* row = new QHBoxLayout;
    row->addWidget(ClearBtn);
    row->addStretch(1);
    for (QPushButton* b : {OKBtn, CancelBtn, HelpBtn})
        row->addWidget(b);
    layout->addLayout(row);

    connect(OKBtn, &QPushButton::clicked, this, &SendFile1::OKBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &QWidget::close);
    connect(ClearBtn, &QPushButton::clicked, this, &SendFile1::ClearBtn_Click);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    connect(List1, &QListWidget::itemClicked, this, &SendFile1::List1_Click);
    for (QWidget* w : std::initializer_list<QWidget*>{CMBSENDTO, Text2, Text1, CHKCOMP, List1})
        w->installEventFilter(this);
    resize(640, 460);
}

void SendFile1::buildMenus() {
    const auto add = [this](QMenu* menu, const char* name, const QString& caption) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(QString::fromLatin1(name));
        return action;
    };
    QMenu* file = menuBar->addMenu(tr("&File"));
    file->setObjectName(u"mnuFile"_s);
    connect(add(file, "mnuCreateBook", tr("Create New E-Mail Address Book")), &QAction::triggered,
            this, [this] {
                BookMode = u"N"_s;
                WindowRegistry::show(u"MailAddr1"_s);
            });
    connect(add(file, "mnuFileOpen", tr("&Open E-Mail Address Book")), &QAction::triggered, this,
            [this] {
                BookMode = u"O"_s;
                WindowRegistry::show(u"MailAddr1"_s);
            });
    connect(add(file, "mnuFileSend", tr("Sen&d...")), &QAction::triggered, this,
            &SendFile1::OKBtn_Click);
    file->addSeparator();
    connect(add(file, "mnuFileExit", tr("E&xit")), &QAction::triggered, this, &QWidget::close);
    QMenu* help = menuBar->addMenu(tr("&Help"));
    help->setObjectName(u"mnuHelp"_s);
    connect(add(help, "mnuHelpContents", tr("&Contents")), &QAction::triggered, this,
            [this] { Help::showContents(this); });
    connect(add(help, "mnuHelpSearch", tr("&Search for Help On...")), &QAction::triggered, this,
            [this] { Help::showSearch(this); });
    WindowRegistry::connectCommand(add(help, "mnuHelpQuikTips", tr("Quick Tips for Sending Files")),
                                   u"QuikTip1"_s);
    WindowRegistry::connectCommand(add(help, "mnuAbout", tr("&About Quorvane")), u"About1"_s);
}

QString SendFile1::logPath() const {
    return PathUtil::join(globals().gAppPath, u"FileSend.LOG"_s);
}

void SendFile1::Form_Load() {
    Globals& g = globals();
    Label1[0]->setText(g.gCurrentFile);
    SendFileName = g.gCurrentFile;
    // A missing history is an empty one.
    List1->addItems(TextFile::readLines(logPath()).lines);
    g.gSendFileOpen = true;
}

void SendFile1::Form_Unload() {
    if (m_unloaded)
        return;
    m_unloaded = true;
    QStringList lines;
    for (int i = 0; i < List1->count(); ++i)
        lines.append(List1->item(i)->text());
    TextFile::replace(logPath(), lines);
    WindowRegistry::unload(u"MailAddr1"_s);
    globals().gSendFileOpen = false;
}

void SendFile1::closeEvent(QCloseEvent* event) {
    Form_Unload();
    QWidget::closeEvent(event);
}

void SendFile1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (Activation::becameActive(this, event))
        NamedWidgets::paintWindow(this);
}

bool SendFile1::eventFilter(QObject* watched, QEvent* event) {
    // Return sends once there are addresses and a message: in the text boxes with Ctrl, where
    // Return alone starts a new line.
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        const bool inBox = qobject_cast<QPlainTextEdit*>(watched) != nullptr;
        if (isReturn && (!inBox || key->modifiers() & Qt::ControlModifier) &&
            !CMBSENDTO->toPlainText().isEmpty() && !Text1->toPlainText().isEmpty()) {
            OKBtn_Click();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SendFile1::OKBtn_Click() {
    Messages& messages = Messages::instance();
    if (CMBSENDTO->toPlainText().isEmpty()) {
        messages.inform(tr("You must Enter a Send To Address"), this);
        CMBSENDTO->setFocus();
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool sent = SendRoutine();
    QApplication::restoreOverrideCursor();
    messages.inform(sent ? tr("File successfully sent to E-Mail Program")
                         : tr("File did not send successfully to E-Mail Program"),
                    this);
}

QStringList SendFile1::attachments() {
    if (!SendText::sendsWithFamily(FileTypes::GetFileExt(SendFileName)))
        return {SendFileName};
    const QStringList family = SendText::databaseFamily(SendFileName);
    const Globals& g = globals();
    if (g.gFrameOpen) {
        auto* frame = qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName()));
        ChildFrm1* child = frame ? frame->activeChild() : nullptr;
        if (child && child->windowTitle() == SendFileName)
            child->close();
        else
            Messages::instance().inform(
                tr("If the Database File being sent is still Displayed - Please Close the Window "
                   "Now"),
                this);
    }
    return family;
}

QString SendFile1::resolved(const QString& address) {
    QString text = address.trimmed();
    while (!MailSession::isAddress(text)) {
        const std::optional<QString> corrected = Messages::instance().askText(
            tr("Resolve E-Mail Address"),
            tr("This is not an E-Mail Address. Correct it, or Cancel to skip it:"), text, this);
        if (!corrected)
            return {};
        text = corrected->trimmed();
    }
    return text;
}

bool SendFile1::sendToDesktopMailer(const QString& address, const QString& subject,
                                    const QStringList& files) {
    QStringList arguments{u"--subject"_s, subject, u"--body"_s, Text1->toPlainText()};
    for (const QString& file : files)
        arguments << u"--attach"_s << file;
    arguments << address;
    return ExternalTool::run(u"xdg-email"_s, arguments, 64 * 1024, 60000).succeeded;
}

bool SendFile1::SendRoutine() {
    const Globals& g = globals();
    const bool desktopMailer = CHKCOMP->isChecked();
    if (!desktopMailer && (!m_session || !m_session->isOpen())) {
        m_session = MailLogon::signOn(this);
        if (!m_session)
            return false;
    }
    const SendText::Recipients recipients = SendText::splitAddresses(CMBSENDTO->toPlainText());
    if (recipients.tooMany)
        return false;
    const QString from = g.gFromAddress.isEmpty() ? MailSession::defaultFrom() : g.gFromAddress;
    const QString subject = tr("Send File from ") + from;
    bool allSent = true;
    for (const QString& written : recipients.addresses) {
        const QString address = resolved(written);
        if (address.isEmpty()) {
            allSent = false;
            continue;
        }
        const QStringList files = attachments();
        const bool sent =
            desktopMailer
                ? sendToDesktopMailer(address, subject, files)
                : m_session->send({from, address, subject, Text1->toPlainText(), files}).isEmpty();
        if (!sent)
            return false;
        List1->addItem(
            SendText::historyLine(Label1[0]->text(), address, QDateTime::currentDateTime()));
    }
    return allSent;
}

void SendFile1::List1_Click() {
    QListWidgetItem* item = List1->currentItem();
    if (!item)
        return;
    if (const std::optional<QString> address = SendText::addressOfHistoryLine(item->text()))
        CMBSENDTO->setPlainText(SendText::withLine(CMBSENDTO->toPlainText(), *address));
}

void SendFile1::ClearBtn_Click() {
    if (Messages::instance().askYesNo(
            tr("Do you want to Clear the Database File Send History Log?"), this))
        List1->clear();
}
