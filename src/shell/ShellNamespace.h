#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

// The folder tree as a list of nodes in display order: pre-order, with the children of an
// expanded node right behind it. Folders are read synchronously from the file system when a
// node is expanded; a folder that cannot be read simply has no children. Symbolic links to
// folders are leaves, so that no walk over the list can loop.
//
// When network file systems are mounted, the root has one more child after its folders: the
// node "Network", which is no folder (empty path, not a file-system node) and whose children
// are the mount points of those file systems.
class ShellNamespace {
public:
    struct Node {
        QString path; // empty for a node that is no folder
        QString displayName;
        bool isFileSystem = true;
        bool isLink = false;
        bool isNetwork = false; // the node "Network"
        bool expanded = false;
        int depth = 0;
        Node* parent = nullptr;

    private:
        friend class ShellNamespace;
        std::vector<std::unique_ptr<Node>> m_children;
        bool m_childrenRead = false;
        std::optional<bool> m_hasChildren;
    };

    // A tree whose single top node is the folder `rootPath`.
    explicit ShellNamespace(const QString& rootPath = QStringLiteral("/"));
    ~ShellNamespace();

    int count() const { return static_cast<int>(m_list.size()); }
    const Node& node(int index) const { return *m_list.at(static_cast<size_t>(index)); }
    // Position of a node in the list, or -1 when it is not shown.
    int indexOf(const Node* node) const;
    // Position of the shown node of a folder path, or -1.
    int indexOfPath(const QString& path) const;

    // Whether the node has sub-folders; read once, when first asked.
    bool hasChildren(int index);
    // Children of a node in display order, read when first needed.
    const std::vector<std::unique_ptr<Node>>& children(const Node* node);

    // Shows the children of a node behind it. Returns how many nodes were inserted.
    int expand(int index);
    // Hides the descendants of a node. Returns how many nodes were removed.
    int collapse(int index);
    // Expands the ancestors of a folder and returns its index, or -1 when the path is not
    // a folder under the root.
    int reveal(const QString& path);
    // Forgets what was read of a node's folder, so that the next expansion reads it again.
    void forget(int index);

    static QString displayNameOf(const QString& path);

    // The name of the network node.
    static QString networkName();
    // Shows these mount points under the network node instead of the network file systems
    // read from /proc/self/mounts (which only a tree rooted at "/" reads). An empty list
    // leaves the node out. Takes effect when the root's folder is read next.
    void setNetworkMounts(const QStringList& mountPoints);
    // The mount points of network file systems (NFS, SMB, SSHFS, WebDAV, 9P, ...) in a mount
    // table in the format of /proc/self/mounts, each once, in the table's order.
    static QStringList networkMountPoints(const QByteArray& mountTable);

private:
    void readChildren(Node* node);
    QStringList currentNetworkMounts() const;

    std::unique_ptr<Node> m_root;
    std::vector<Node*> m_list;
    std::optional<QStringList> m_networkMounts;
    QStringList m_shownMounts; // the network node's children, taken when the root was read
};
