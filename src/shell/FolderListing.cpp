#include "shell/FolderListing.h"

#include "platform/FileMask.h"
#include "platform/PathUtil.h"

#include <QFile>
#include <QStringDecoder>
#include <QVarLengthArray>

#include <algorithm>
#include <cstring>
#include <limits>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

QString decode(std::string_view name) {
    return QFile::decodeName(
        QByteArray::fromRawData(name.data(), static_cast<qsizetype>(name.size())));
}

// Decodes a name into a buffer on the stack, for comparing without a QString.
class DecodedName {
public:
    explicit DecodedName(std::string_view name) {
        QStringDecoder decoder(QStringConverter::Utf8,
                               QStringConverter::Flag::Stateless |
                                   QStringConverter::Flag::ConvertInitialBom);
        const QByteArrayView in(name.data(), static_cast<qsizetype>(name.size()));
        m_text.resize(decoder.requiredSpace(in.size()));
        m_text.resize(decoder.appendToBuffer(m_text.data(), in) - m_text.data());
    }
    QStringView view() const { return {m_text.data(), m_text.size()}; }

private:
    QVarLengthArray<QChar, 256> m_text;
};

// Case-insensitive order with the exact order of the names breaking ties, the same as
// comparing the decoded names with QString. ASCII is compared on the bytes; at the first
// other character both names are decoded and compared in full. The first bytes up to start
// are known to be equal but for case.
bool lessByName(std::string_view a, std::string_view b, size_t start = 0) {
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = start; i < common; ++i) {
        const auto ca = static_cast<unsigned char>(a[i]);
        const auto cb = static_cast<unsigned char>(b[i]);
        if (ca == cb)
            continue;
        if ((ca | cb) >= 0x80) {
            const DecodedName da(a), db(b);
            const int byName = da.view().compare(db.view(), Qt::CaseInsensitive);
            return byName != 0 ? byName < 0 : da.view().compare(db.view(), Qt::CaseSensitive) < 0;
        }
        const unsigned char la = ca >= 'A' && ca <= 'Z' ? ca + ('a' - 'A') : ca;
        const unsigned char lb = cb >= 'A' && cb <= 'Z' ? cb + ('a' - 'A') : cb;
        if (la != lb)
            return la < lb;
    }
    if (a.size() != b.size())
        return a.size() < b.size();
    return a < b;
}

// An entry while sorting, with its first characters in case-folded form as numbers, so that
// most comparisons need not look at the names: the first eight bytes of names that start with
// eight ASCII characters, and the first four UTF-16 units of all names but those with a
// surrogate among them.
struct SortItem {
    std::uint64_t key = 0;
    std::uint64_t wideKey = 0;
    std::uint32_t offset = 0;
    std::uint16_t size = 0;
    bool isFolder = false;
    bool hasKey = true;
    bool hasWideKey = true;
};

constexpr size_t KeyBytes = sizeof(SortItem::key);
constexpr qsizetype WideKeyUnits = sizeof(SortItem::wideKey) / sizeof(char16_t);

void setKeys(SortItem& item, std::string_view name) {
    for (size_t i = 0; i < KeyBytes && item.hasKey; ++i) {
        auto c = i < name.size() ? static_cast<unsigned char>(name[i]) : 0;
        if (c >= 'A' && c <= 'Z')
            c += 'a' - 'A';
        item.hasKey = c < 0x80;
        item.key = item.key << 8 | c;
        if (i < WideKeyUnits)
            item.wideKey = item.wideKey << 16 | c;
    }
    if (item.hasKey)
        return;
    item.wideKey = 0;
    const DecodedName decoded(name);
    const QStringView text = decoded.view();
    for (qsizetype i = 0; i < WideKeyUnits; ++i) {
        const QChar c = i < text.size() ? text[i].toCaseFolded() : QChar();
        if (c.isSurrogate()) {
            item.hasWideKey = false;
            return;
        }
        item.wideKey = item.wideKey << 16 | c.unicode();
    }
}

} // namespace

bool FolderListing::read(const QString& folder) {
    m_folder = folder;
    // Fresh buffers, so that a small folder after a large one gives the memory back.
    m_names = {};
    m_items = {};
    std::vector<SortItem> sorted;
    DIR* dir = opendir(QFile::encodeName(folder).constData());
    if (dir) {
        const int fd = dirfd(dir);
        while (const dirent* found = readdir(dir)) {
            const char* name = found->d_name;
            if (name[0] == '.')
                continue;
            const size_t size = std::strlen(name);
            if (m_names.size() + size > std::numeric_limits<std::uint32_t>::max())
                break;
            SortItem item;
            item.offset = static_cast<std::uint32_t>(m_names.size());
            item.size = static_cast<std::uint16_t>(size);
            item.isFolder = found->d_type == DT_DIR;
            // A link counts as what it points to; some file systems leave the kind unknown.
            if (found->d_type == DT_LNK || found->d_type == DT_UNKNOWN) {
                struct stat status;
                item.isFolder = fstatat(fd, name, &status, 0) == 0 && S_ISDIR(status.st_mode);
            }
            setKeys(item, {name, size});
            m_names.append(name, size);
            sorted.push_back(item);
        }
        closedir(dir);
    }
    m_names.shrink_to_fit();
    const auto name = [this](const SortItem& item) {
        return std::string_view(m_names.data() + item.offset, item.size);
    };
    std::sort(sorted.begin(), sorted.end(), [&name](const SortItem& a, const SortItem& b) {
        if (a.isFolder != b.isFolder)
            return a.isFolder;
        if (a.hasKey && b.hasKey) {
            if (a.key != b.key)
                return a.key < b.key;
            return lessByName(name(a), name(b),
                              std::min({KeyBytes, size_t{a.size}, size_t{b.size}}));
        }
        if (a.hasWideKey && b.hasWideKey && a.wideKey != b.wideKey)
            return a.wideKey < b.wideKey;
        return lessByName(name(a), name(b));
    });
    m_items.reserve(sorted.size());
    for (const SortItem& item : sorted)
        m_items.push_back({item.offset, item.size, item.isFolder});
    setMask(m_mask);
    return dir != nullptr;
}

void FolderListing::setMask(const QString& mask) {
    m_mask = mask;
    m_shown.clear();
    m_shown.reserve(m_items.size());
    const FileMask::Compiled compiled(mask);
    const bool everything = mask.trimmed().isEmpty() || compiled.matchesEverything();
    for (size_t i = 0; i < m_items.size(); ++i) {
        const Item& item = m_items[i];
        if (item.isFolder || everything || compiled.matchesUtf8(bytes(item)))
            m_shown.push_back(static_cast<int>(i));
    }
}

QString FolderListing::name(int index) const {
    return decode(bytes(item(index)));
}

QString FolderListing::path(int index) const {
    return PathUtil::join(m_folder, name(index));
}

int FolderListing::indexOfName(const QString& name) const {
    const QByteArray encoded = QFile::encodeName(name);
    const std::string_view wanted(encoded.constData(), static_cast<size_t>(encoded.size()));
    for (size_t i = 0; i < m_shown.size(); ++i) {
        if (bytes(m_items[static_cast<size_t>(m_shown[i])]) == wanted)
            return static_cast<int>(i);
    }
    // A name that is not valid UTF-8 reads back with replacement characters and so never
    // encodes to its own bytes.
    if (name.contains(QChar::ReplacementCharacter)) {
        for (int i = 0; i < count(); ++i) {
            if (this->name(i) == name)
                return i;
        }
    }
    return -1;
}
