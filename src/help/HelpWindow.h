#pragma once

#include "help/HelpTopics.h"

#include <QPointer>
#include <QWidget>

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QSplitter;
class QTabWidget;
class QTextBrowser;
class QUrl;
class QToolButton;

// The help window: the contents (every topic by its title), a search over the topics by word,
// the page of the topic with its links, and Back and Forward (Alt+Left, Alt+Right). One window
// for the program; F1 and the help commands of every window bring it up.
class HelpWindow : public QWidget {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("HelpWindow"); }

    explicit HelpWindow(QWidget* parent = nullptr);
    ~HelpWindow() override;

    // Reads the topics of a help folder, unless they are those of that folder already; false
    // when the folder has no contents page.
    bool loadTopics(const QString& folder);
    const HelpTopics& topics() const { return m_topics; }

    // Shows the page of the named topic, or the contents when there is no such topic, and
    // brings the window to the front, usable also while a dialog holds the rest of the program.
    void showTopic(const QString& name);
    // Brings the window to the front with the search ready for words.
    void showSearch();
    // Lists the topics that hold the words; with `open`, shows the first of them.
    void search(const QString& words, bool open = false);
    // The name of the topic on show; empty when none.
    QString currentTopic() const;

    QToolButton* BackBtn;
    QToolButton* ForwardBtn;
    QToolButton* ContentsBtn;
    QTabWidget* Tabs;
    QListWidget* ContentsList;
    QLineEdit* SearchText;
    QPushButton* SearchBtn;
    QLabel* SearchCount;
    QListWidget* SearchResults;
    QTextBrowser* TopicView;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void present();
    void openFile(const QString& fileName, const QString& highlight = QString());
    void fillContents();
    void markContents(const QUrl& source);
    QString topicOf(const QUrl& source) const;
    void openResult(QListWidgetItem* item);
    void releaseOwner();

    HelpTopics m_topics;
    QSplitter* m_splitter;
    // The dialog that the window is lent to while it runs, so that the help stays usable.
    QPointer<QWidget> m_owner;
    bool m_firstActivate = true;
};
