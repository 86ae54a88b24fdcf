#include "shell/FolderListing.h"

#include "platform/FileMask.h"
#include "platform/PathUtil.h"

#include <QFile>

#include <algorithm>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

// Whether an entry of the directory is a folder: from the directory itself where it says, else
// (a link, or a file system that does not tell) from the entry it leads to.
bool isFolderEntry(int directory, const dirent* entry) {
    if (entry->d_type == DT_DIR)
        return true;
    if (entry->d_type != DT_UNKNOWN && entry->d_type != DT_LNK)
        return false;
    struct stat info {};
    return fstatat(directory, entry->d_name, &info, 0) == 0 && S_ISDIR(info.st_mode);
}

} // namespace

bool FolderListing::read(const QString& folder) {
    m_folder = folder;
    m_all.clear();
    DIR* directory = opendir(QFile::encodeName(folder).constData());
    if (!directory) {
        setMask(m_mask);
        return false;
    }
    const int descriptor = dirfd(directory);
    while (const dirent* entry = readdir(directory)) {
        if (entry->d_name[0] == '.')
            continue;
        m_all.push_back({QString::fromUtf8(entry->d_name), isFolderEntry(descriptor, entry)});
    }
    closedir(directory);
    sortEntries();
    setMask(m_mask);
    return true;
}

namespace {

// What an entry is sorted by: folders first, then the first eight letters of the case-folded
// name packed into two numbers, so that most comparisons are of numbers; only names that share
// those eight letters are compared whole.
struct SortItem {
    quint64 head = 0;
    quint64 next = 0;
    int index = 0;
    bool folder = false;
};

SortItem sortItemFor(const QString& key, bool folder, int index) {
    SortItem item;
    item.folder = folder;
    item.index = index;
    for (qsizetype i = 0; i < 8; ++i) {
        const quint64 letter = i < key.size() ? key[i].unicode() : 0;
        if (i < 4)
            item.head |= letter << (48 - 16 * i);
        else
            item.next |= letter << (48 - 16 * (i - 4));
    }
    return item;
}

} // namespace

void FolderListing::sortEntries() {
    // Folders first, then by name without regard to case; names equal but for case by their
    // code points. The case-folded names are made once, not at every comparison.
    std::vector<QString> keys;
    keys.reserve(m_all.size());
    std::vector<SortItem> items;
    items.reserve(m_all.size());
    for (size_t i = 0; i < m_all.size(); ++i) {
        keys.push_back(m_all[i].name.toCaseFolded());
        items.push_back(sortItemFor(keys.back(), m_all[i].isFolder, static_cast<int>(i)));
    }
    std::sort(items.begin(), items.end(), [&](const SortItem& a, const SortItem& b) {
        if (a.folder != b.folder)
            return a.folder;
        if (a.head != b.head)
            return a.head < b.head;
        if (a.next != b.next)
            return a.next < b.next;
        const int byKey = QStringView(keys[a.index]).compare(QStringView(keys[b.index]));
        return byKey != 0 ? byKey < 0 : m_all[a.index].name < m_all[b.index].name;
    });
    std::vector<Entry> sorted;
    sorted.reserve(m_all.size());
    for (const SortItem& item : items)
        sorted.push_back(std::move(m_all[item.index]));
    m_all = std::move(sorted);
}

void FolderListing::setMask(const QString& mask) {
    m_mask = mask;
    m_shown.clear();
    m_shown.reserve(m_all.size());
    const FileMask::Compiled compiled(mask);
    const bool everything = mask.trimmed().isEmpty() || compiled.matchesEverything();
    for (size_t i = 0; i < m_all.size(); ++i) {
        if (m_all[i].isFolder || everything || compiled.matches(m_all[i].name))
            m_shown.push_back(static_cast<int>(i));
    }
}

QString FolderListing::path(int index) const {
    return PathUtil::join(m_folder, entry(index).name);
}

int FolderListing::indexOfName(const QString& name) const {
    for (size_t i = 0; i < m_shown.size(); ++i) {
        if (m_all[static_cast<size_t>(m_shown[i])].name == name)
            return static_cast<int>(i);
    }
    return -1;
}
