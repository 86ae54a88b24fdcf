#include "help/HelpWindow.h"

#include "platform/Activation.h"
#include "platform/PathUtil.h"
#include "platform/WidgetPaint.h"
#include "shell/Globals.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFileRole = Qt::UserRole;

QToolButton* toolButton(QWidget* parent, QAction* action) {
    auto* button = new QToolButton(parent);
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setObjectName(action->objectName().chopped(3)); // "BackBtnAct" -> "BackBtn"
    button->setAccessibleName(action->text().remove(u'&'));
    return button;
}

} // namespace

HelpWindow::HelpWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Quorvane Help"));

    auto* back = new QAction(style()->standardIcon(QStyle::SP_ArrowBack), tr("&Back"), this);
    back->setObjectName(u"BackBtnAct"_s);
    back->setShortcuts({QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::Key_Back)});
    back->setToolTip(tr("Back to the Page Seen Before (Alt+Left)"));
    auto* forward =
        new QAction(style()->standardIcon(QStyle::SP_ArrowForward), tr("&Forward"), this);
    forward->setObjectName(u"ForwardBtnAct"_s);
    forward->setShortcuts({QKeySequence(Qt::ALT | Qt::Key_Right), QKeySequence(Qt::Key_Forward)});
    forward->setToolTip(tr("Forward to the Page Seen After (Alt+Right)"));
    auto* contents =
        new QAction(style()->standardIcon(QStyle::SP_DirHomeIcon), tr("&Contents"), this);
    contents->setObjectName(u"ContentsBtnAct"_s);
    contents->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Home));
    contents->setToolTip(tr("The Contents of the Help (Alt+Home)"));
    auto* find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    addAction(find);
    for (QAction* action : {back, forward, contents})
        action->setShortcutContext(Qt::WindowShortcut);
    BackBtn = toolButton(this, back);
    ForwardBtn = toolButton(this, forward);
    ContentsBtn = toolButton(this, contents);
    back->setEnabled(false);
    forward->setEnabled(false);

    Tabs = new QTabWidget(this);
    Tabs->setObjectName(u"Tabs"_s);
    ContentsList = new QListWidget(Tabs);
    ContentsList->setObjectName(u"ContentsList"_s);
    ContentsList->setAccessibleName(tr("Topics"));
    Tabs->addTab(ContentsList, tr("C&ontents"));

    auto* searchPage = new QWidget(Tabs);
    searchPage->setObjectName(u"SearchPage"_s);
    SearchText = new QLineEdit(searchPage);
    SearchText->setObjectName(u"SearchText"_s);
    SearchText->setPlaceholderText(tr("Words to find"));
    SearchText->setToolTip(tr("Enter Words to Find the Topics that hold them"));
    SearchText->setAccessibleName(tr("Words to find"));
    SearchText->setClearButtonEnabled(true);
    SearchBtn = new QPushButton(tr("&Search"), searchPage);
    SearchBtn->setObjectName(u"SearchBtn"_s);
    SearchBtn->setToolTip(tr("Show the First Topic Found"));
    SearchCount = new QLabel(searchPage);
    SearchCount->setObjectName(u"SearchCount"_s);
    SearchCount->setWordWrap(true);
    SearchResults = new QListWidget(searchPage);
    SearchResults->setObjectName(u"SearchResults"_s);
    SearchResults->setAccessibleName(tr("Topics Found"));
    auto* searchRow = new QHBoxLayout;
    searchRow->addWidget(SearchText, 1);
    searchRow->addWidget(SearchBtn);
    auto* searchLayout = new QVBoxLayout(searchPage);
    searchLayout->setContentsMargins(4, 4, 4, 4);
    searchLayout->addLayout(searchRow);
    searchLayout->addWidget(SearchCount);
    searchLayout->addWidget(SearchResults, 1);
    Tabs->addTab(searchPage, tr("S&earch"));

    TopicView = new QTextBrowser(this);
    TopicView->setObjectName(u"TopicView"_s);
    TopicView->setAccessibleName(tr("Help Topic"));
    TopicView->setOpenLinks(true);
    TopicView->setOpenExternalLinks(true);
    // The pages bring their own colours: the browser keeps paper white whatever the settings.
    QPalette paper = TopicView->palette();
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    TopicView->setPalette(paper);

    m_splitter = new QSplitter(this);
    m_splitter->setObjectName(u"Splitter"_s);
    m_splitter->addWidget(Tabs);
    m_splitter->addWidget(TopicView);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({300, 580});

    auto* buttonRow = new QHBoxLayout;
    buttonRow->addWidget(BackBtn);
    buttonRow->addWidget(ForwardBtn);
    buttonRow->addWidget(ContentsBtn);
    buttonRow->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttonRow);
    layout->addWidget(m_splitter, 1);
    resize(900, 600);

    connect(back, &QAction::triggered, TopicView, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, TopicView, &QTextBrowser::forward);
    connect(TopicView, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(TopicView, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(TopicView, &QTextBrowser::sourceChanged, this, &HelpWindow::markContents);
    connect(contents, &QAction::triggered, this, [this] { showTopic(u"index"_s); });
    connect(find, &QAction::triggered, this, &HelpWindow::showSearch);
    connect(ContentsList, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { openFile(item->data(kFileRole).toString()); });
    connect(ContentsList, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { openFile(item->data(kFileRole).toString()); });
    connect(SearchText, &QLineEdit::textChanged, this,
            [this](const QString& words) { search(words); });
    connect(SearchText, &QLineEdit::returnPressed, this,
            [this] { search(SearchText->text(), true); });
    connect(SearchBtn, &QPushButton::clicked, this, [this] { search(SearchText->text(), true); });
    connect(Tabs, &QTabWidget::currentChanged, this, [this](int index) {
        if (index == 1)
            SearchText->setFocus(Qt::TabFocusReason);
    });
    connect(SearchResults, &QListWidget::itemActivated, this, &HelpWindow::openResult);
    connect(SearchResults, &QListWidget::itemClicked, this, &HelpWindow::openResult);
}

HelpWindow::~HelpWindow() {
    if (m_owner)
        m_owner->removeEventFilter(this);
}

bool HelpWindow::loadTopics(const QString& folder) {
    if (m_topics.folder() != folder || m_topics.isEmpty()) {
        m_topics = HelpTopics::load(folder);
        TopicView->setSearchPaths({folder});
        fillContents();
        if (!SearchText->text().isEmpty())
            search(SearchText->text());
    }
    return m_topics.find(u"index"_s) != nullptr;
}

void HelpWindow::fillContents() {
    ContentsList->clear();
    for (const HelpTopics::Topic& topic : m_topics.topics()) {
        auto* item = new QListWidgetItem(topic.title, ContentsList);
        item->setData(kFileRole, topic.fileName);
        item->setToolTip(topic.title);
    }
    markContents(TopicView->source());
}

void HelpWindow::showTopic(const QString& name) {
    const HelpTopics::Topic* topic = m_topics.find(name);
    if (!topic)
        topic = m_topics.find(u"index"_s);
    if (topic && currentTopic() != topic->name)
        openFile(topic->fileName);
    Tabs->setCurrentWidget(ContentsList);
    present();
}

void HelpWindow::showSearch() {
    if (TopicView->source().isEmpty())
        showTopic(u"index"_s);
    Tabs->setCurrentIndex(1);
    present();
    SearchText->setFocus(Qt::ShortcutFocusReason);
    SearchText->selectAll();
}

void HelpWindow::search(const QString& words, bool open) {
    if (SearchText->text() != words) {
        const QSignalBlocker blocker(SearchText);
        SearchText->setText(words);
    }
    SearchResults->clear();
    const QList<const HelpTopics::Topic*> found = m_topics.search(words);
    for (const HelpTopics::Topic* topic : found) {
        auto* item = new QListWidgetItem(topic->title, SearchResults);
        item->setData(kFileRole, topic->fileName);
    }
    if (HelpTopics::wordsOf(words).isEmpty())
        SearchCount->clear();
    else if (found.isEmpty())
        SearchCount->setText(tr("No topic holds these words."));
    else
        SearchCount->setText(found.size() == 1 ? tr("1 topic found.")
                                               : tr("%1 topics found.").arg(found.size()));
    if (open && !found.isEmpty()) {
        SearchResults->setCurrentRow(0);
        openResult(SearchResults->item(0));
    }
}

void HelpWindow::openResult(QListWidgetItem* item) {
    if (!item)
        return;
    const QStringList words = HelpTopics::wordsOf(SearchText->text());
    openFile(item->data(kFileRole).toString(), words.value(0));
}

void HelpWindow::openFile(const QString& fileName, const QString& highlight) {
    if (fileName.isEmpty())
        return;
    const QUrl url = QUrl::fromLocalFile(PathUtil::join(m_topics.folder(), fileName));
    if (TopicView->source() != url)
        TopicView->setSource(url);
    else
        TopicView->moveCursor(QTextCursor::Start);
    if (!highlight.isEmpty())
        TopicView->find(highlight);
}

QString HelpWindow::currentTopic() const {
    return topicOf(TopicView->source());
}

QString HelpWindow::topicOf(const QUrl& source) const {
    if (source.isEmpty())
        return {};
    const HelpTopics::Topic* topic = m_topics.findFile(QFileInfo(source.path()).fileName());
    return topic ? topic->name : QFileInfo(source.path()).completeBaseName();
}

void HelpWindow::markContents(const QUrl& source) {
    const QString name = topicOf(source);
    const QSignalBlocker blocker(ContentsList);
    for (int row = 0; row < ContentsList->count(); ++row) {
        QListWidgetItem* item = ContentsList->item(row);
        const HelpTopics::Topic* topic = m_topics.findFile(item->data(kFileRole).toString());
        if (topic && topic->name == name) {
            ContentsList->setCurrentItem(item);
            if (ContentsList->isVisible())
                ContentsList->scrollToItem(item);
            return;
        }
    }
    ContentsList->clearSelection();
}

void HelpWindow::present() {
    // A dialog that runs blocks every window but its own: the help goes with it while it runs,
    // and comes back on its own when it ends.
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && modal != this && !isAncestorOf(modal) && parentWidget() != modal) {
        const QRect place = geometry();
        const bool placed = isVisible();
        if (m_owner)
            m_owner->removeEventFilter(this);
        m_owner = modal;
        setParent(modal, Qt::Window);
        modal->installEventFilter(this);
        if (placed)
            setGeometry(place);
    }
    show();
    raise();
    activateWindow();
    if (QListWidgetItem* item = ContentsList->currentItem())
        ContentsList->scrollToItem(item);
}

void HelpWindow::releaseOwner() {
    if (!m_owner)
        return;
    m_owner->removeEventFilter(this);
    m_owner = nullptr;
    const QRect place = geometry();
    const bool visible = isVisible();
    setParent(nullptr, Qt::Window);
    setGeometry(place);
    if (visible)
        show();
}

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_owner && event->type() == QEvent::Hide)
        releaseOwner();
    return QWidget::eventFilter(watched, event);
}

void HelpWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (!Activation::becameActive(this, event) || !m_firstActivate)
        return;
    m_firstActivate = false;
    const Globals& g = globals();
    for (QWidget* w : {static_cast<QWidget*>(BackBtn), static_cast<QWidget*>(ForwardBtn),
                       static_cast<QWidget*>(ContentsBtn), static_cast<QWidget*>(SearchBtn)})
        WidgetPaint::paint(w, g.gButtonColor, g.gWindowForeColor, g.gBoldType);
    for (QWidget* w : {static_cast<QWidget*>(ContentsList), static_cast<QWidget*>(SearchResults)})
        WidgetPaint::paint(w, g.gListBackColor, g.gListForeColor, g.gBoldType);
    WidgetPaint::paint(SearchText, g.gEntryBackColor, g.gEntryForeColor, g.gBoldType);
}
