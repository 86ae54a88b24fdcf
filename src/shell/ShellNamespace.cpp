#include "shell/ShellNamespace.h"

#include "platform/PathUtil.h"

#include <QFile>

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

QString fromNative(const fs::path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.native()));
}

fs::path toNative(const QString& path) {
    return fs::path(QFile::encodeName(path).toStdString());
}

bool hidden(const fs::path& name) {
    const std::string& text = name.native();
    return !text.empty() && text.front() == '.';
}

void sortByName(std::vector<std::unique_ptr<ShellNamespace::Node>>& nodes) {
    std::sort(nodes.begin(), nodes.end(), [](const auto& a, const auto& b) {
        const int byName = a->displayName.compare(b->displayName, Qt::CaseInsensitive);
        return byName != 0 ? byName < 0 : a->displayName < b->displayName;
    });
}

// File systems reached over a network, by their type in the mount table.
bool isNetworkType(const QByteArray& type) {
    static const QByteArrayList types = {
        "nfs",        "nfs4",  "cifs",        "smb3",           "smbfs",       "ncpfs",
        "9p",         "afs",   "ceph",        "glusterfs",      "lustre",      "davfs",
        "fuse.sshfs", "sshfs", "fuse.davfs2", "fuse.glusterfs", "fuse.rclone", "fuse.s3fs"};
    return types.contains(type);
}

// A field of the mount table, whose blanks, tabs, new lines and backslashes are written as
// octal escapes ("\040").
QByteArray unescapeMountField(const QByteArray& field) {
    QByteArray text;
    text.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && field[i + 1] >= '0' &&
            field[i + 1] <= '3') {
            bool ok = false;
            const int code = field.mid(i + 1, 3).toInt(&ok, 8);
            if (ok) {
                text.append(static_cast<char>(code));
                i += 3;
                continue;
            }
        }
        text.append(field[i]);
    }
    return text;
}

} // namespace

ShellNamespace::ShellNamespace(const QString& rootPath) : m_root(std::make_unique<Node>()) {
    m_root->path = rootPath;
    m_root->displayName = displayNameOf(rootPath);
    m_list.push_back(m_root.get());
}

ShellNamespace::~ShellNamespace() = default;

QString ShellNamespace::displayNameOf(const QString& path) {
    if (PathUtil::isRoot(path))
        return path;
    return PathUtil::nameOf(path);
}

int ShellNamespace::indexOf(const Node* node) const {
    const auto it = std::find(m_list.begin(), m_list.end(), node);
    return it == m_list.end() ? -1 : static_cast<int>(it - m_list.begin());
}

int ShellNamespace::indexOfPath(const QString& path) const {
    for (size_t i = 0; i < m_list.size(); ++i) {
        if (m_list[i]->path == path)
            return static_cast<int>(i);
    }
    return -1;
}

QString ShellNamespace::networkName() {
    return QStringLiteral("Network");
}

void ShellNamespace::setNetworkMounts(const QStringList& mountPoints) {
    m_networkMounts = mountPoints;
}

QStringList ShellNamespace::networkMountPoints(const QByteArray& mountTable) {
    QStringList mountPoints;
    for (const QByteArray& line : mountTable.split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() < 3 || !isNetworkType(fields[2]))
            continue;
        const QString mountPoint = QFile::decodeName(unescapeMountField(fields[1]));
        if (!mountPoint.isEmpty() && !mountPoints.contains(mountPoint))
            mountPoints.append(mountPoint);
    }
    return mountPoints;
}

QStringList ShellNamespace::currentNetworkMounts() const {
    if (m_networkMounts)
        return *m_networkMounts;
    if (m_root->path != u"/")
        return {};
    QFile table(QStringLiteral("/proc/self/mounts"));
    if (!table.open(QIODevice::ReadOnly))
        return {};
    return networkMountPoints(table.readAll());
}

void ShellNamespace::readChildren(Node* node) {
    if (node->m_childrenRead)
        return;
    node->m_childrenRead = true;
    node->m_children.clear();
    if (node->isNetwork) {
        for (const QString& mountPoint : m_shownMounts) {
            auto child = std::make_unique<Node>();
            child->path = mountPoint;
            child->displayName = displayNameOf(mountPoint);
            child->depth = node->depth + 1;
            child->parent = node;
            node->m_children.push_back(std::move(child));
        }
        sortByName(node->m_children);
        node->m_hasChildren = !node->m_children.empty();
        return;
    }
    if (node->path.isEmpty() || node->isLink)
        return;
    std::error_code error;
    fs::directory_iterator it(toNative(node->path), fs::directory_options::skip_permission_denied,
                              error);
    for (; !error && it != fs::directory_iterator(); it.increment(error)) {
        const fs::directory_entry& entry = *it;
        std::error_code typeError;
        if (hidden(entry.path().filename()) || !entry.is_directory(typeError))
            continue;
        auto child = std::make_unique<Node>();
        child->path = fromNative(entry.path());
        child->displayName = fromNative(entry.path().filename());
        child->isLink = entry.is_symlink(typeError);
        child->depth = node->depth + 1;
        child->parent = node;
        if (child->isLink)
            child->m_hasChildren = false;
        node->m_children.push_back(std::move(child));
    }
    sortByName(node->m_children);
    if (node == m_root.get()) {
        m_shownMounts = currentNetworkMounts();
        if (!m_shownMounts.isEmpty()) {
            auto network = std::make_unique<Node>();
            network->displayName = networkName();
            network->isFileSystem = false;
            network->isNetwork = true;
            network->depth = node->depth + 1;
            network->parent = node;
            network->m_hasChildren = true;
            node->m_children.push_back(std::move(network));
        }
    }
    node->m_hasChildren = !node->m_children.empty();
}

const std::vector<std::unique_ptr<ShellNamespace::Node>>&
ShellNamespace::children(const Node* node) {
    Node* mutableNode = const_cast<Node*>(node);
    readChildren(mutableNode);
    return mutableNode->m_children;
}

bool ShellNamespace::hasChildren(int index) {
    Node* node = m_list.at(static_cast<size_t>(index));
    if (node->m_hasChildren)
        return *node->m_hasChildren;
    if (node == m_root.get()) {
        // The network node may be the root's only child.
        readChildren(node);
        return !node->m_children.empty();
    }
    if (node->path.isEmpty() || node->isLink) {
        node->m_hasChildren = false;
        return false;
    }
    // Look for one visible sub-folder without reading the whole folder into nodes.
    bool found = false;
    std::error_code error;
    fs::directory_iterator it(toNative(node->path), fs::directory_options::skip_permission_denied,
                              error);
    for (; !error && it != fs::directory_iterator(); it.increment(error)) {
        std::error_code typeError;
        if (!hidden(it->path().filename()) && it->is_directory(typeError)) {
            found = true;
            break;
        }
    }
    node->m_hasChildren = found;
    return found;
}

int ShellNamespace::expand(int index) {
    Node* node = m_list.at(static_cast<size_t>(index));
    if (node->expanded)
        return 0;
    readChildren(node);
    node->expanded = true;
    std::vector<Node*> shown;
    shown.reserve(node->m_children.size());
    for (const auto& child : node->m_children)
        shown.push_back(child.get());
    m_list.insert(m_list.begin() + index + 1, shown.begin(), shown.end());
    return static_cast<int>(shown.size());
}

int ShellNamespace::collapse(int index) {
    Node* node = m_list.at(static_cast<size_t>(index));
    if (!node->expanded)
        return 0;
    node->expanded = false;
    size_t end = static_cast<size_t>(index) + 1;
    while (end < m_list.size() && m_list[end]->depth > node->depth) {
        m_list[end]->expanded = false;
        ++end;
    }
    const int removed = static_cast<int>(end - static_cast<size_t>(index) - 1);
    m_list.erase(m_list.begin() + index + 1, m_list.begin() + static_cast<long>(end));
    return removed;
}

int ShellNamespace::reveal(const QString& path) {
    const QString rootPath = m_root->path;
    if (path == rootPath)
        return 0;
    const QString prefix = rootPath.endsWith(u'/') ? rootPath : rootPath + u'/';
    if (!path.startsWith(prefix))
        return -1;
    int index = 0;
    QString current = rootPath;
    const QStringList parts = path.mid(prefix.size()).split(u'/', Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        expand(index);
        current = PathUtil::join(current, part);
        const Node* parent = m_list[static_cast<size_t>(index)];
        int found = -1;
        for (int i = index + 1;
             i < count() && m_list[static_cast<size_t>(i)]->depth > parent->depth; ++i) {
            if (m_list[static_cast<size_t>(i)]->parent == parent &&
                m_list[static_cast<size_t>(i)]->path == current) {
                found = i;
                break;
            }
        }
        if (found < 0)
            return -1;
        index = found;
    }
    return index;
}

void ShellNamespace::forget(int index) {
    Node* node = m_list.at(static_cast<size_t>(index));
    collapse(index);
    node->m_children.clear();
    node->m_childrenRead = false;
    node->m_hasChildren.reset();
}
