#pragma once

#include <QWidget>

#include <array>
#include <memory>

class MailSession;
class QAction;
class QCheckBox;
class QFrame;
class QLabel;
class QListWidget;
class QMenuBar;
class QPlainTextEdit;
class QPushButton;

// Sends the current file by e-mail to one address or several, one message each, and keeps a
// history of what went where in FileSend.LOG. The mail session opens with the first send and
// stays open while the window lives.
class SendFile1 : public QWidget {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("SendFile1"); }
    explicit SendFile1(QWidget* parent = nullptr);
    ~SendFile1() override;

    void OKBtn_Click();
    void ClearBtn_Click();
    void List1_Click();
    // Sends the file to every address of CMBSENDTO; false when any message did not go.
    bool SendRoutine();

    QString SendFileName;
    QString BookMode;

    QMenuBar* menuBar;
    QFrame* Frame1;
    std::array<QLabel*, 1> Label1{};
    QPlainTextEdit* CMBSENDTO;
    QPlainTextEdit* Text2;
    QPlainTextEdit* Text1;
    QCheckBox* CHKCOMP;
    QListWidget* List1;
    QPushButton* ClearBtn;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void buildMenus();
    void Form_Load();
    void Form_Unload();
    QString logPath() const;
    // The files that go with the message: the file, or a database with its sibling files.
    QStringList attachments();
    // A mail address for the text, corrected by the user when it is none; empty to skip it.
    QString resolved(const QString& address);
    bool sendToDesktopMailer(const QString& address, const QString& subject,
                             const QStringList& files);

    std::unique_ptr<MailSession> m_session;
    bool m_unloaded = false;
};
