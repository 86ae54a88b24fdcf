#include "shell/SearchWalk.h"

#include "platform/AppError.h"
#include "platform/FileMask.h"
#include "shell/ShellNamespace.h"

#include <QFile>

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

// An error the folder reading of other systems reports for a device in an unexpected state;
// passed over like a missing folder.
constexpr int UnexpectedFailure = static_cast<int>(0x8000FFFFu);

constexpr qint64 Int32Min = std::numeric_limits<qint32>::min();
constexpr qint64 Int32Max = std::numeric_limits<qint32>::max();

// The node limit is a 32-bit whole number: the sum is rounded half to even and kept in range.
qint64 nodeLimit(double initial, qint32 additional) {
    const double sum = std::nearbyint(initial + static_cast<double>(additional));
    if (std::isnan(sum))
        return 0;
    return static_cast<qint64>(
        std::clamp(sum, static_cast<double>(Int32Min), static_cast<double>(Int32Max)));
}

// Names of nodes never searched: the computer's own name, then the names of nodes that are no
// folders and were passed without finding anything.
class SkipList {
public:
    explicit SkipList(const QString& computerName) { m_names[0] = computerName; }

    bool contains(const QString& name) const {
        return std::find(m_names.begin(), m_names.end(), name) != m_names.end();
    }
    bool full() const { return m_count >= static_cast<int>(m_names.size()); }
    void add(const QString& name) { m_names[static_cast<size_t>(m_count++)] = name; }

private:
    std::array<QString, 100> m_names{};
    int m_count = 1;
};

} // namespace

int SearchHost::expand(ShellNamespace& tree, int index) {
    return tree.expand(index);
}

namespace SearchWalk {

QString networkQuestion() {
    return u"Do You want to Search the Network?"_s;
}

QString continueQuestion(const QString& mask) {
    return u"Do you want to continue the Search for - "_s + mask + u" ?"_s;
}

QString endMessage() {
    return u" End of Search . . ."_s;
}

QString maskOrDefault(const QString& mask) {
    return mask.trimmed().isEmpty() ? u"*.BMP"_s : mask;
}

FolderFiles matchingFiles(const QString& folder, const FileMask::Compiled& mask) {
    FolderFiles result;
    const QByteArray native = QFile::encodeName(folder);
    DIR* dir = ::opendir(native.constData());
    if (!dir) {
        result.error = AppError::fromErrno(errno).number();
        return result;
    }
    const int fd = ::dirfd(dir);
    while (const dirent* entry = ::readdir(dir)) {
        const char* name = entry->d_name;
        if (name[0] == '.' || entry->d_type == DT_DIR)
            continue;
        QString text = QFile::decodeName(name);
        if (!mask.matches(text))
            continue;
        // A link counts as what it points to; a broken link is a file.
        if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
            struct stat info {};
            if (::fstatat(fd, name, &info, 0) == 0 && S_ISDIR(info.st_mode))
                continue;
        }
        result.names.append(std::move(text));
    }
    ::closedir(dir);
    std::sort(result.names.begin(), result.names.end(), [](const QString& a, const QString& b) {
        const int byName = a.compare(b, Qt::CaseInsensitive);
        return byName != 0 ? byName < 0 : a < b;
    });
    return result;
}

Result run(ShellNamespace& tree, const Request& request, SearchHost& host) {
    const FileMask::Compiled mask(request.mask);
    qint64 limit = nodeLimit(request.initial, request.additional);
    SkipList skipList(request.computerName);
    bool networkAccepted = false;
    Result result;
    result.startIndex = request.startIndex;

    bool again = false;
    do {
        bool keepGoing = true;
        again = false;
        QString found;
        int i = result.startIndex;
        if (i < 0 || i >= tree.count()) {
            // The tree has shrunk behind the last search: start again at the top.
            i = 0;
        }
        bool retried = false; // a failed last node is tried a second time, once
        while (keepGoing) {
            if (i >= tree.count())
                break;
            const ShellNamespace::Node& node = tree.node(i);
            int nodeError = 0;
            bool passed = false;
            if (node.isNetwork) {
                if (host.askYesNo(networkQuestion()))
                    networkAccepted = true;
                else
                    passed = true;
            }
            if (!passed && skipList.contains(node.displayName))
                passed = true;

            if (!passed) {
                const bool fileSystem = node.isFileSystem;
                const QString path = node.path;
                bool ok = true;
                QStringList files;
                if (path.trimmed().isEmpty()) {
                    ok = fileSystem;
                } else {
                    FolderFiles listing = matchingFiles(path, mask);
                    ok = listing.error == 0;
                    nodeError = listing.error;
                    files = std::move(listing.names);
                }

                if (ok) {
                    if (!files.isEmpty()) {
                        found = path;
                        if (request.toReport)
                            host.reportFolder(found, files);
                        else
                            keepGoing = false;
                    }
                    // Reading the children once serves both the test and the expansion.
                    if (!tree.children(&node).empty())
                        host.expand(tree, i);
                    const int count = tree.count();
                    if (i > limit || i >= count - 1) {
                        keepGoing = false;
                        if (i >= limit + 1 && i < count - 1) {
                            if (host.askYesNo(continueQuestion(request.mask))) {
                                limit = std::min(limit + request.additional, Int32Max);
                                again = true;
                            }
                        } else if (i >= count - 1) {
                            result.startIndex = 0;
                            host.inform(endMessage());
                        }
                    }
                    if (!keepGoing)
                        break;
                } else {
                    if (i == tree.count() - 1 && nodeError != 0 && !retried) {
                        retried = true;
                        continue;
                    }
                    const bool silent = nodeError == UnexpectedFailure ||
                                        nodeError == AppError::DeviceUnavailable ||
                                        nodeError == AppError::PathNotFound;
                    if (!silent && tree.hasChildren(i)) {
                        // A node that is no folder and gave nothing is not searched again.
                        const bool emptyVirtual = nodeError == 0 && !skipList.full() &&
                                                  !fileSystem && files.isEmpty() && found.isEmpty();
                        if (emptyVirtual)
                            skipList.add(node.displayName);
                        if (!(emptyVirtual && !networkAccepted))
                            host.expand(tree, i);
                    }
                }
            }

            ++i;
            retried = false;
            if (i >= tree.count())
                keepGoing = false;
        }

        if (!found.isEmpty())
            result.found = found;
        if (i < tree.count() - 1)
            result.startIndex = i + 1;
    } while (again);
    return result;
}

} // namespace SearchWalk
