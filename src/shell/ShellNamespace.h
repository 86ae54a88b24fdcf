#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <vector>

// The folder tree as a list of nodes in display order: pre-order, with the children of an
// expanded node right behind it. Folders are read synchronously from the file system when a
// node is expanded; a folder that cannot be read simply has no children. Symbolic links to
// folders are leaves, so that no walk over the list can loop.
class ShellNamespace {
public:
    struct Node {
        QString path; // empty for a node that is no folder
        QString displayName;
        bool isFileSystem = true;
        bool isLink = false;
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

private:
    void readChildren(Node* node);

    std::unique_ptr<Node> m_root;
    std::vector<Node*> m_list;
};
