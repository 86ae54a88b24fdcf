#include "shell/ShellTreeModel.h"

#include <QApplication>
#include <QStyle>
#include <QTreeView>

using Node = ShellNamespace::Node;

ShellTreeModel::ShellTreeModel(const QString& rootPath, QObject* parent)
    : QAbstractItemModel(parent), m_namespace(rootPath) {}

const Node* ShellTreeModel::nodeOf(const QModelIndex& index) const {
    return index.isValid() ? static_cast<const Node*>(index.internalPointer()) : nullptr;
}

QModelIndex ShellTreeModel::indexOfNode(const Node* node) const {
    if (!node)
        return {};
    if (!node->parent)
        return createIndex(0, 0, const_cast<Node*>(node));
    const auto& siblings = m_namespace.children(node->parent);
    for (size_t row = 0; row < siblings.size(); ++row) {
        if (siblings[row].get() == node)
            return createIndex(static_cast<int>(row), 0, const_cast<Node*>(node));
    }
    return {};
}

QModelIndex ShellTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (column != 0 || row < 0)
        return {};
    if (!parent.isValid())
        return row == 0 ? createIndex(0, 0, const_cast<Node*>(&m_namespace.node(0)))
                        : QModelIndex();
    const auto& children = m_namespace.children(nodeOf(parent));
    if (static_cast<size_t>(row) >= children.size())
        return {};
    return createIndex(row, 0, children[static_cast<size_t>(row)].get());
}

QModelIndex ShellTreeModel::parent(const QModelIndex& child) const {
    const Node* node = nodeOf(child);
    return node ? indexOfNode(node->parent) : QModelIndex();
}

int ShellTreeModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid())
        return 1;
    if (parent.column() != 0)
        return 0;
    return static_cast<int>(m_namespace.children(nodeOf(parent)).size());
}

int ShellTreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

bool ShellTreeModel::hasChildren(const QModelIndex& parent) const {
    if (!parent.isValid())
        return true;
    const int shown = m_namespace.indexOf(nodeOf(parent));
    if (shown >= 0)
        return m_namespace.hasChildren(shown);
    return !m_namespace.children(nodeOf(parent)).empty();
}

bool ShellTreeModel::canFetchMore(const QModelIndex&) const {
    return false;
}

void ShellTreeModel::fetchMore(const QModelIndex&) {}

QVariant ShellTreeModel::data(const QModelIndex& index, int role) const {
    const Node* node = nodeOf(index);
    if (!node)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return node->displayName;
    case Qt::ToolTipRole:
        return node->path;
    case Qt::DecorationRole:
        if (node->isNetwork)
            return QApplication::style()->standardIcon(QStyle::SP_DriveNetIcon);
        return QApplication::style()->standardIcon(node->isLink ? QStyle::SP_DirLinkIcon
                                                                : QStyle::SP_DirIcon);
    default:
        return {};
    }
}

void ShellTreeModel::attach(QTreeView* view) {
    m_view = view;
    view->setModel(this);
    connect(view, &QTreeView::expanded, this, &ShellTreeModel::onExpanded);
    connect(view, &QTreeView::collapsed, this, &ShellTreeModel::onCollapsed);
    view->expand(index(0, 0));
}

void ShellTreeModel::onExpanded(const QModelIndex& index) {
    const int shown = m_namespace.indexOf(nodeOf(index));
    if (shown >= 0)
        m_namespace.expand(shown);
}

void ShellTreeModel::onCollapsed(const QModelIndex& index) {
    const int shown = m_namespace.indexOf(nodeOf(index));
    if (shown < 0)
        return;
    // The namespace collapses the whole branch; the view must not reopen it later.
    std::vector<const Node*> branch;
    for (int i = shown + 1;
         i < m_namespace.count() && m_namespace.node(i).depth > nodeOf(index)->depth; ++i) {
        if (m_namespace.node(i).expanded)
            branch.push_back(&m_namespace.node(i));
    }
    m_namespace.collapse(shown);
    if (m_view) {
        for (const Node* node : branch)
            m_view->collapse(indexOfNode(node));
    }
}

bool ShellTreeModel::revealPath(const QString& path) {
    const int shown = m_namespace.reveal(path);
    if (shown < 0)
        return false;
    const Node* target = &m_namespace.node(shown);
    if (m_view) {
        std::vector<const Node*> chain;
        for (const Node* node = target->parent; node; node = node->parent)
            chain.push_back(node);
        for (auto it = chain.rbegin(); it != chain.rend(); ++it)
            m_view->expand(indexOfNode(*it));
        const QModelIndex targetIndex = indexOfNode(target);
        m_view->setCurrentIndex(targetIndex);
        m_view->scrollTo(targetIndex);
    }
    return true;
}

void ShellTreeModel::refresh(const QString& keepPath) {
    beginResetModel();
    m_namespace.forget(0);
    endResetModel();
    if (m_view)
        m_view->expand(index(0, 0));
    revealPath(keepPath);
}

void ShellTreeModel::collapseAll() {
    for (int i = m_namespace.count() - 1; i >= 1; --i) {
        if (m_namespace.node(i).expanded && m_view)
            m_view->collapse(indexOfNode(&m_namespace.node(i)));
    }
}
