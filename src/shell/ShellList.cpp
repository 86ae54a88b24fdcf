#include "shell/ShellList.h"

#include "platform/PathUtil.h"

#include "shell/FileListModel.h"

#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QListView>
#include <QStackedLayout>
#include <QTreeView>

ShellList::ShellList(QWidget* parent)
    : QWidget(parent), m_model(new FileListModel(this)), m_icons(new QListView(this)),
      m_details(new QTreeView(this)), m_stack(new QStackedLayout(this)) {
    m_icons->setObjectName(QStringLiteral("ShellListIcons"));
    m_details->setObjectName(QStringLiteral("ShellListDetails"));
    m_icons->setAccessibleName(tr("Files"));
    m_details->setAccessibleName(tr("Files in detail"));
    m_icons->setModel(m_model);
    m_details->setModel(m_model);
    m_details->setSelectionModel(m_icons->selectionModel());
    m_details->setRootIsDecorated(false);
    m_details->setUniformRowHeights(true);
    m_details->setAllColumnsShowFocus(true);
    m_details->header()->setStretchLastSection(false);
    m_details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(m_icons), static_cast<QAbstractItemView*>(m_details)}) {
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        view->setSelectionMode(QAbstractItemView::SingleSelection);
        // A double click or Enter opens; a single click only selects, whatever the desktop's
        // setting for activation.
        connect(view, &QAbstractItemView::doubleClicked, this, &ShellList::activate);
        view->installEventFilter(this);
    }
    m_icons->setUniformItemSizes(true);
    m_icons->setLayoutMode(QListView::Batched);
    m_icons->setBatchSize(500);
    m_icons->setResizeMode(QListView::Adjust);
    m_stack->setContentsMargins(0, 0, 0, 0);
    m_stack->addWidget(m_icons);
    m_stack->addWidget(m_details);
    connect(m_icons->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                Q_EMIT selectionChanged(current.isValid() ? m_model->path(current.row())
                                                          : QString());
            });
    setView(LargeIcons);
}

void ShellList::setFolder(const QString& folder) {
    m_model->setFolder(folder);
    Q_EMIT folderChanged(folder);
}

QString ShellList::folder() const {
    return m_model->listing().folder();
}

void ShellList::setFilter(const QString& mask) {
    m_model->setMask(mask);
}

QString ShellList::filter() const {
    return m_model->listing().mask();
}

void ShellList::refresh() {
    // The selected entry stays selected while it is still there.
    const QString selected = selectedPath();
    m_model->reload();
    if (!selected.isEmpty())
        selectName(PathUtil::nameOf(selected));
}

void ShellList::setView(int view) {
    m_view = view;
    switch (view) {
    case LargeIcons:
        m_icons->setViewMode(QListView::IconMode);
        m_icons->setIconSize(QSize(32, 32));
        m_icons->setGridSize(QSize(96, 64));
        m_icons->setWordWrap(true);
        m_stack->setCurrentWidget(m_icons);
        break;
    case SmallIcons:
        m_icons->setViewMode(QListView::ListMode);
        m_icons->setFlow(QListView::LeftToRight);
        m_icons->setWrapping(true);
        m_icons->setIconSize(QSize(16, 16));
        m_icons->setGridSize(QSize(140, 20));
        m_stack->setCurrentWidget(m_icons);
        break;
    case List:
        m_icons->setViewMode(QListView::ListMode);
        m_icons->setFlow(QListView::TopToBottom);
        m_icons->setWrapping(true);
        m_icons->setIconSize(QSize(16, 16));
        m_icons->setGridSize(QSize());
        m_stack->setCurrentWidget(m_icons);
        break;
    default:
        m_view = Details;
        m_stack->setCurrentWidget(m_details);
        break;
    }
}

QAbstractItemView* ShellList::currentView() const {
    return m_view == Details ? static_cast<QAbstractItemView*>(m_details)
                             : static_cast<QAbstractItemView*>(m_icons);
}

int ShellList::selectedCount() const {
    return m_icons->selectionModel()->selectedRows().size();
}

int ShellList::selectedIndex() const {
    const QModelIndexList cells = m_icons->selectionModel()->selectedIndexes();
    return cells.isEmpty() ? -1 : cells.constFirst().row();
}

QString ShellList::selectedPath() const {
    // The icon views select the name's cell alone, the details view the whole row.
    const int row = selectedIndex();
    return row < 0 ? QString() : m_model->path(row);
}

bool ShellList::selectName(const QString& name) {
    const int row = m_model->listing().indexOfName(name);
    if (row < 0)
        return false;
    const QModelIndex index = m_model->index(row, 0);
    m_icons->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                          QItemSelectionModel::Rows);
    currentView()->scrollTo(index);
    return true;
}

void ShellList::activate(const QModelIndex& index) {
    if (!index.isValid())
        return;
    const QString path = m_model->path(index.row());
    const bool folder = m_model->isFolder(index.row());
    Q_EMIT itemActivated(path);
    if (folder)
        setFolder(path);
}

void ShellList::setColors(const QColor& back, const QColor& fore, bool bold) {
    for (QWidget* view : {static_cast<QWidget*>(m_icons), static_cast<QWidget*>(m_details)}) {
        QPalette palette = view->palette();
        palette.setColor(QPalette::Base, back);
        palette.setColor(QPalette::Text, fore);
        view->setPalette(palette);
        QFont font = view->font();
        font.setBold(bold);
        view->setFont(font);
    }
}

bool ShellList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && watched == currentView()) {
            activate(currentView()->currentIndex());
            return true;
        }
    }
    if (event->type() == QEvent::FocusIn)
        Q_EMIT entered();
    else if (event->type() == QEvent::FocusOut)
        Q_EMIT left();
    return QWidget::eventFilter(watched, event);
}
