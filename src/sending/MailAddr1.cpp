#include "sending/MailAddr1.h"

#include "platform/Activation.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/TextFile.h"
#include "platform/WindowRegistry.h"
#include "sending/SendFile1.h"
#include "sending/SendText.h"
#include "sending/VCardFile.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"

#include <QCloseEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using NamedWidgets::button;

namespace {

SendFile1* sendWindow() {
    return qobject_cast<SendFile1*>(WindowRegistry::find(SendFile1::WindowName()));
}

// The contacts of an address book offered in a list; the chosen one, or -1.
int chooseContact(QWidget* parent, const QList<VCardFile::Contact>& contacts) {
    QDialog dialog(parent);
    dialog.setObjectName(u"ContactList"_s);
    dialog.setWindowTitle(QObject::tr("E-Mail Address Book"));
    auto* layout = new QVBoxLayout(&dialog);
    auto* list = new QListWidget(&dialog);
    list->setObjectName(u"Contacts"_s);
    list->setAccessibleName(QObject::tr("Contacts"));
    for (const VCardFile::Contact& c : contacts)
        list->addItem(SendText::addressEntry(c.name, c.address));
    list->setCurrentRow(0);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(list, &QListWidget::itemActivated, &dialog, &QDialog::accept);
    layout->addWidget(list);
    layout->addWidget(buttons);
    return dialog.exec() == QDialog::Accepted ? list->currentRow() : -1;
}

// Appends a line to a box of the send window.
void appendLine(QPlainTextEdit* box, const QString& line) {
    box->setPlainText(SendText::withLine(box->toPlainText(), line));
}

} // namespace

MailAddr1::MailAddr1(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("E-Mail Names and Addresses"));
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    Text1[0] = NamedWidgets::entry(
        this, "Text1(0)", tr("Enter the name of the person or organization with email address"));
    Text1[1] = NamedWidgets::entry(this, "Text1(1)", tr("Enter the email address"));
    Text1[0]->setObjectName(u"Text1(0)"_s);
    Text1[1]->setObjectName(u"Text1(1)"_s);
    form->addRow(NamedWidgets::label(this, u"Label1(0)"_s, tr("Name")), Text1[0]);
    form->addRow(NamedWidgets::label(this, u"Label1(1)"_s, tr("E-Mail Address")), Text1[1]);
    layout->addLayout(form);
    List1 = new QListWidget(this);
    List1->setObjectName(u"List1"_s);
    List1->setAccessibleName(tr("Names and E-Mail Addresses"));
    layout->addWidget(List1, 1);

    AddBtn = button(this, "AddBtn", tr("&Add"), tr("Add the Name and Address to the List"));
    DeleteBtn = button(this, "DeleteBtn", tr("&Delete"), tr("Remove the Selected Entry"));
    SelectBtn = button(this, "SelectBtn", tr("&Select"), tr("Send to the Selected Address"));
    SaveBtn = button(this, "SaveBtn", tr("Sa&ve"), tr("Save the List in a File"));
    OutLkBtn = button(this, "OutLkBtn", tr("Address &Book"),
                      tr("Get Outlook Express or E-Mail Service Address Book"));
    CancelBtn = button(this, "CancelBtn", tr("Cancel"), tr("Close the Window"));
    HelpBtn = button(this, "HelpBtn", tr("&Help"), tr("Help with E-Mail Addresses"));
    auto* row = new QHBoxLayout;
    for (QPushButton* b : {AddBtn, DeleteBtn, SelectBtn, SaveBtn, OutLkBtn, CancelBtn, HelpBtn})
        row->addWidget(b);
    layout->addLayout(row);

    connect(AddBtn, &QPushButton::clicked, this, &MailAddr1::AddBtn_Click);
    connect(DeleteBtn, &QPushButton::clicked, this, &MailAddr1::DeleteBtn_Click);
    connect(SelectBtn, &QPushButton::clicked, this, &MailAddr1::SelectBtn_Click);
    connect(SaveBtn, &QPushButton::clicked, this, &MailAddr1::SaveBtn_Click);
    connect(OutLkBtn, &QPushButton::clicked, this, &MailAddr1::OutLkBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &QWidget::close);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    connect(List1, &QListWidget::itemClicked, this, &MailAddr1::List1_Click);
    for (int i = 0; i < 2; ++i)
        connect(Text1[size_t(i)], &QLineEdit::textChanged, this, [this, i] { Text1_Change(i); });
    resize(560, 380);
    Form_Load();
}

void MailAddr1::Form_Load() {
    if (SendFile1* send = sendWindow())
        BookMode = send->BookMode;
    if (BookMode == u"O"_s && fileDialog())
        readList();
    Modified = false;
}

bool MailAddr1::fileDialog() {
    Messages::FileRequest request;
    request.title =
        BookMode == u"S"_s ? tr("Save E-Mail Address List") : tr("Open E-Mail Address List");
    request.filterPairs = tr("Address List") + u"|*.MLS"_s;
    request.defaultExtension = u"MLS"_s;
    Messages& messages = Messages::instance();
    const QString chosen = BookMode == u"S"_s ? messages.saveFileName(request, this)
                                              : messages.openFileName(request, this);
    if (chosen.isEmpty())
        return false;
    ListFile = chosen;
    setWindowTitle(tr("E-Mail Names and Addresses from - ") + PathUtil::nameOf(chosen));
    return true;
}

void MailAddr1::readList() {
    List1->clear();
    List1->addItems(TextFile::readLines(ListFile).lines);
}

void MailAddr1::SaveBtn_Click() {
    BookMode = u"S"_s;
    if (SendFile1* send = sendWindow())
        send->BookMode = BookMode;
    if (!fileDialog())
        return;
    QStringList lines;
    for (int i = 0; i < List1->count(); ++i)
        lines.append(List1->item(i)->text());
    if (!TextFile::replace(ListFile, lines))
        Modified = false;
}

void MailAddr1::AddBtn_Click() {
    if (Text1[0]->text().isEmpty() || Text1[1]->text().isEmpty())
        return;
    List1->addItem(SendText::addressEntry(Text1[0]->text(), Text1[1]->text()));
    Modified = true;
}

void MailAddr1::DeleteBtn_Click() {
    if (QListWidgetItem* item = List1->currentItem(); item && item->isSelected()) {
        delete item;
        Modified = true;
    }
}

void MailAddr1::List1_Click() {
    QListWidgetItem* item = List1->currentItem();
    if (!item)
        return;
    const SendText::NameAndAddress parts = SendText::splitAddressEntry(item->text());
    Text1[0]->setText(parts.name);
    Text1[1]->setText(parts.address);
}

void MailAddr1::Text1_Change(int index) {
    QListWidgetItem* item = List1->currentItem();
    if (Text1[0]->text().isEmpty() || Text1[1]->text().isEmpty() || !item || !item->isSelected())
        return;
    const SendText::NameAndAddress parts = SendText::splitAddressEntry(item->text());
    const QString& stored = index == 0 ? parts.name : parts.address;
    if (stored == Text1[size_t(index)]->text())
        return;
    Modified = true;
    item->setText(SendText::addressEntry(Text1[0]->text(), Text1[1]->text()));
}

void MailAddr1::SelectBtn_Click() {
    SendFile1* send = sendWindow();
    if (!send || List1->count() == 0 || !List1->currentItem())
        return;
    appendLine(send->CMBSENDTO, Text1[1]->text());
    appendLine(send->Text2, Text1[0]->text());
}

void MailAddr1::OutLkBtn_Click() {
    Messages::FileRequest request;
    request.title = tr("Open an Address Book Exported as vCard");
    request.filterPairs = tr("vCard Address Book") + u"|*.vcf"_s;
    const QString path = Messages::instance().openFileName(request, this);
    if (path.isEmpty())
        return;
    const QList<VCardFile::Contact> contacts = VCardFile::read(path);
    if (contacts.isEmpty()) {
        Messages::instance().inform(tr("No Names found in ") + PathUtil::nameOf(path), this);
        return;
    }
    const int chosen = chooseContact(this, contacts);
    if (chosen < 0)
        return;
    Text1[0]->setText(contacts[chosen].name);
    Text1[1]->setText(contacts[chosen].address);
}

void MailAddr1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (Activation::becameActive(this, event))
        NamedWidgets::paintWindow(this);
}

void MailAddr1::closeEvent(QCloseEvent* event) {
    if (Modified &&
        Messages::instance().askYesNoStop(tr("Do you want to Save E-Mail Addresses ?"), this))
        SaveBtn_Click();
    QWidget::closeEvent(event);
}
