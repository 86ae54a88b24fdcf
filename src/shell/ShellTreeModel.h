#pragma once

#include "shell/ShellNamespace.h"

#include <QAbstractItemModel>

class QTreeView;

// The folder tree of the main window: a model over a ShellNamespace, kept in step with the
// expansion of the view that shows it.
class ShellTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit ShellTreeModel(const QString& rootPath, QObject* parent = nullptr);

    ShellNamespace& shellNamespace() { return m_namespace; }
    const ShellNamespace::Node* nodeOf(const QModelIndex& index) const;
    QModelIndex indexOfNode(const ShellNamespace::Node* node) const;

    // Follows the expansion of the view, and shows what the namespace expands.
    void attach(QTreeView* view);
    // Expands the tree down to a folder and selects it in the view; false when the folder is
    // not in the tree.
    bool revealPath(const QString& path);
    // Reads the folders again and shows the tree down to `keepPath`.
    void refresh(const QString& keepPath);
    // Collapses every node.
    void collapseAll();

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    void onExpanded(const QModelIndex& index);
    void onCollapsed(const QModelIndex& index);

    mutable ShellNamespace m_namespace;
    QTreeView* m_view = nullptr;
};
