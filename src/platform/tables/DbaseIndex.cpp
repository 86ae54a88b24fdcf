#include "platform/tables/DbaseIndex.h"

#include "platform/tables/CompanionFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

// Page numbers in both kinds of index count 512-byte units from the start of the file.
constexpr qint64 PageUnit = 512;
// Deeper trees than this are loops or damage: a real index is a few levels deep.
constexpr int MaxDepth = 64;
constexpr int MaxKeyLength = 100;

std::uint32_t le32(const char* p) {
    const auto* u = reinterpret_cast<const uchar*>(p);
    return std::uint32_t(u[0]) | std::uint32_t(u[1]) << 8 | std::uint32_t(u[2]) << 16 |
           std::uint32_t(u[3]) << 24;
}

int le16(const char* p) {
    const auto* u = reinterpret_cast<const uchar*>(p);
    return int(u[0]) | int(u[1]) << 8;
}

QByteArray readAt(QFile& file, qint64 offset, qint64 length) {
    if (offset < 0 || !file.seek(offset))
        return {};
    return file.read(length);
}

// A zero-terminated text of printable characters, or empty.
QString asciiText(const QByteArray& bytes) {
    QByteArray text = bytes.left(static_cast<qsizetype>(qstrnlen(bytes.constData(), bytes.size())));
    for (const char c : text) {
        if (static_cast<uchar>(c) < 0x20 || static_cast<uchar>(c) >= 0x7F)
            return {};
    }
    return QString::fromLatin1(text).trimmed();
}

// How the pages of one B-tree are laid out.
struct TreeShape {
    std::uint32_t root = 0;
    qint64 pageBytes = 512; // bytes of one page
    int firstEntry = 4;     // where the entries start in a page
    int entryBytes = 0;     // bytes of one entry
    int keyOffset = 8;      // where the key starts in an entry
    int keyLength = 0;
    bool mdx = false; // MDX entries: pointer and key; NDX entries: child, record and key
};

struct NdxHeader {
    TreeShape shape;
    QString expression;
};

std::optional<NdxHeader> readNdxHeader(QFile& file) {
    const QByteArray header = readAt(file, 0, 512);
    if (header.size() < 512)
        return std::nullopt;
    NdxHeader ndx;
    ndx.shape.root = le32(header.constData());
    ndx.shape.keyLength = le16(header.constData() + 12);
    ndx.shape.entryBytes = le16(header.constData() + 18);
    ndx.expression = asciiText(header.mid(24));
    const int keyLength = ndx.shape.keyLength;
    if (keyLength < 1 || keyLength > MaxKeyLength || ndx.shape.entryBytes < 8 + keyLength ||
        ndx.shape.firstEntry + 2 * ndx.shape.entryBytes > ndx.shape.pageBytes ||
        ndx.expression.isEmpty())
        return std::nullopt;
    return ndx;
}

struct MdxTag {
    QString name;
    std::uint32_t headerPage = 0;
};

struct MdxHeader {
    qint64 blockBytes = 0;
    QList<MdxTag> tags;
};

std::optional<MdxHeader> readMdxHeader(QFile& file) {
    const QByteArray header = readAt(file, 0, 544);
    if (header.size() < 544)
        return std::nullopt;
    MdxHeader mdx;
    // The block size in 512-byte pages, and again in bytes.
    const int pages = le16(header.constData() + 20);
    const int bytes = le16(header.constData() + 22);
    if (pages >= 1 && pages <= 64)
        mdx.blockBytes = pages * PageUnit;
    else if (bytes > 0 && bytes % PageUnit == 0)
        mdx.blockBytes = bytes;
    else
        return std::nullopt;
    const int slotCount = static_cast<uchar>(header[25]);
    const int tagBytes = static_cast<uchar>(header[26]);
    const int used = le16(header.constData() + 28);
    if (tagBytes < 21 || used > slotCount || used > 255)
        return std::nullopt;
    const QByteArray table = readAt(file, 544, qint64(used) * tagBytes);
    if (table.size() < qint64(used) * tagBytes)
        return std::nullopt;
    for (int i = 0; i < used; ++i) {
        const QByteArray entry = table.mid(qsizetype(i) * tagBytes, tagBytes);
        MdxTag tag;
        tag.headerPage = le32(entry.constData());
        tag.name = asciiText(entry.mid(4, 11));
        if (tag.name.isEmpty() || tag.headerPage == 0)
            return std::nullopt;
        mdx.tags.append(tag);
    }
    return mdx;
}

std::optional<TreeShape> readMdxTagShape(QFile& file, const MdxHeader& mdx, const MdxTag& tag) {
    const QByteArray header = readAt(file, qint64(tag.headerPage) * PageUnit, 24);
    if (header.size() < 24)
        return std::nullopt;
    TreeShape shape;
    shape.mdx = true;
    shape.root = le32(header.constData());
    shape.pageBytes = mdx.blockBytes;
    shape.firstEntry = 8;
    shape.keyOffset = 4;
    shape.keyLength = le16(header.constData() + 12);
    shape.entryBytes = le16(header.constData() + 18);
    if (shape.keyLength < 1 || shape.keyLength > MaxKeyLength ||
        shape.entryBytes < 4 + shape.keyLength ||
        shape.firstEntry + qint64(shape.entryBytes) + 4 > shape.pageBytes)
        return std::nullopt;
    return shape;
}

// Walks the B-tree from its root, leaves left to right, and gathers their record numbers.
class TreeWalk {
public:
    TreeWalk(QFile& file, const TreeShape& shape, std::uint32_t recordCount)
        : m_file(file), m_shape(shape), m_recordCount(recordCount),
          m_visited(static_cast<std::size_t>(file.size() / PageUnit + 1), false),
          m_seen(std::size_t(recordCount) + 1, false) {}

    std::optional<std::vector<std::uint32_t>> run() {
        struct Frame {
            QByteArray page;
            std::uint32_t children = 0;
            std::uint32_t next = 0;
        };
        std::vector<Frame> stack;
        auto enter = [&](std::uint32_t number) -> bool {
            if (stack.size() >= MaxDepth)
                return false;
            Frame frame;
            if (!readPage(number, frame.page))
                return false;
            const char* data = frame.page.constData();
            const std::uint32_t keys = le32(data);
            if (keys > std::uint32_t(m_shape.pageBytes / m_shape.entryBytes))
                return false;
            if (isLeaf(frame.page, keys)) {
                for (std::uint32_t i = 0; i < keys; ++i) {
                    const char* entry = data + m_shape.firstEntry + qint64(i) * m_shape.entryBytes;
                    if (entry + m_shape.entryBytes > data + frame.page.size())
                        return false;
                    add(le32(entry + (m_shape.mdx ? 0 : 4)), entry + m_shape.keyOffset);
                }
                return true;
            }
            // A branch has one child more than keys: the last pointer stands alone.
            frame.children = keys + 1;
            if (m_shape.firstEntry + qint64(keys) * m_shape.entryBytes + 4 > frame.page.size())
                return false;
            stack.push_back(std::move(frame));
            return true;
        };
        if (!enter(m_shape.root))
            return std::nullopt;
        while (!stack.empty()) {
            Frame& top = stack.back();
            if (top.next >= top.children) {
                stack.pop_back();
                continue;
            }
            const std::uint32_t child = le32(top.page.constData() + m_shape.firstEntry +
                                             qint64(top.next) * m_shape.entryBytes);
            ++top.next;
            if (!enter(child))
                return std::nullopt;
        }
        closeRun();
        return std::move(m_order);
    }

private:
    bool readPage(std::uint32_t number, QByteArray& page) {
        // Page 0 is the header; each page is read once, so a loop ends here.
        if (number == 0 || number >= m_visited.size() || m_visited[number])
            return false;
        m_visited[number] = true;
        page = readAt(m_file, qint64(number) * PageUnit, m_shape.pageBytes);
        if (page.size() < m_shape.firstEntry + 4)
            return false;
        // The last page of a file may be short; what is missing reads as zero.
        page.resize(m_shape.pageBytes, '\0');
        return true;
    }

    bool isLeaf(const QByteArray& page, std::uint32_t keys) const {
        if (!m_shape.mdx) // an NDX leaf's entries have no child
            return le32(page.constData() + m_shape.firstEntry) == 0;
        // An MDX branch has a pointer after its last key; a leaf has zero there.
        const qint64 after = m_shape.firstEntry + qint64(keys) * m_shape.entryBytes;
        return after + 4 > page.size() || le32(page.constData() + after) == 0;
    }

    void add(std::uint32_t record, const char* key) {
        if (record < 1 || record > m_recordCount || m_seen[record])
            return;
        m_seen[record] = true;
        const QByteArrayView keyBytes(key, m_shape.keyLength);
        if (m_order.empty() || keyBytes != QByteArrayView(m_runKey)) {
            closeRun();
            m_runKey = keyBytes.toByteArray();
        }
        m_order.push_back(record - 1);
    }

    // Records of equal keys follow in record order.
    void closeRun() {
        std::sort(m_order.begin() + static_cast<std::ptrdiff_t>(m_runStart), m_order.end());
        m_runStart = m_order.size();
    }

    QFile& m_file;
    TreeShape m_shape;
    std::uint32_t m_recordCount;
    std::vector<bool> m_visited;
    std::vector<bool> m_seen;
    std::vector<std::uint32_t> m_order;
    std::size_t m_runStart = 0;
    QByteArray m_runKey;
};

// The file named in an .INF line, found beside the table whatever its letter case.
QString entryNamed(const QDir& dir, const QStringList& entries, QString name) {
    name = QFileInfo(name.trimmed()).fileName();
    if (QFileInfo(name).suffix().isEmpty())
        name += QStringLiteral(".NDX");
    for (const QString& entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return dir.filePath(entry);
    }
    return {};
}

} // namespace

QString ndxKeyExpression(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const std::optional<NdxHeader> header = readNdxHeader(file);
    return header ? header->expression : QString();
}

bool keyNamesOnlyFields(const QString& expression, const QStringList& fieldNames) {
    bool named = false;
    const qsizetype n = expression.size();
    auto isWord = [](QChar c) { return c.isLetterOrNumber() || c == u'_'; };
    for (qsizetype i = 0; i < n;) {
        const QChar c = expression[i];
        if (c == u'"' || c == u'\'' || c == u'[') { // a text constant
            const QChar close = c == u'[' ? QChar(u']') : c;
            const qsizetype end = expression.indexOf(close, i + 1);
            i = end < 0 ? n : end + 1;
        } else if (c == u'.') { // .AND., .T. and the like, or a decimal point
            qsizetype j = i + 1;
            while (j < n && expression[j].isLetter())
                ++j;
            i = (j > i + 1 && j < n && expression[j] == u'.') ? j + 1 : i + 1;
        } else if (c.isDigit()) {
            while (i < n && (expression[i].isDigit() || expression[i] == u'.'))
                ++i;
        } else if (isWord(c)) {
            qsizetype j = i;
            while (j < n && isWord(expression[j]))
                ++j;
            const QString word = expression.mid(i, j - i);
            qsizetype k = j;
            while (k < n && expression[k].isSpace())
                ++k;
            i = j;
            if (k < n && expression[k] == u'(')
                continue; // a function
            if (expression.mid(k, 2) == u"->")
                continue; // the alias before a field
            if (!fieldNames.contains(word, Qt::CaseInsensitive))
                return false;
            named = true;
        } else {
            ++i;
        }
    }
    return named;
}

QStringList mdxTagNames(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const std::optional<MdxHeader> header = readMdxHeader(file);
    QStringList names;
    if (!header)
        return names;
    for (const MdxTag& tag : header->tags) {
        if (readMdxTagShape(file, *header, tag))
            names.append(tag.name);
    }
    return names;
}

QList<DbaseIndex> findDbaseIndexes(const QString& tablePath, const QStringList& fieldNames) {
    QList<DbaseIndex> indexes;
    auto add = [&](const DbaseIndex& index) {
        for (const DbaseIndex& other : std::as_const(indexes)) {
            if (other.name.compare(index.name, Qt::CaseInsensitive) == 0)
                return;
        }
        indexes.append(index);
    };
    const QFileInfo table(tablePath);
    const QDir dir = table.absoluteDir();
    const QStringList entries = dir.entryList(QDir::Files, QDir::Name);

    QStringList ndxFiles;
    const QString inf = companionFile(tablePath, QStringLiteral("INF"));
    if (!inf.isEmpty()) {
        QFile file(inf);
        if (file.open(QIODevice::ReadOnly)) {
            static const QRegularExpression line(QStringLiteral("^\\s*NDX\\d*\\s*=\\s*(.+)$"),
                                                 QRegularExpression::CaseInsensitiveOption);
            // An .INF file is a few lines; more than this is not one.
            const QList<QByteArray> lines = file.read(64 * 1024).split('\n');
            for (const QByteArray& text : lines) {
                const QRegularExpressionMatch match =
                    line.match(QString::fromLatin1(text).trimmed());
                if (!match.hasMatch())
                    continue;
                const QString found = entryNamed(dir, entries, match.captured(1));
                if (!found.isEmpty() && !ndxKeyExpression(found).isEmpty())
                    ndxFiles.append(found);
            }
        }
    } else {
        for (const QString& entry : entries) {
            if (QFileInfo(entry).suffix().compare(u"ndx", Qt::CaseInsensitive) != 0)
                continue;
            const QString path = dir.filePath(entry);
            if (keyNamesOnlyFields(ndxKeyExpression(path), fieldNames))
                ndxFiles.append(path);
        }
    }
    for (const QString& path : std::as_const(ndxFiles))
        add({QFileInfo(path).completeBaseName(), path, false});

    const QString mdx = companionFile(tablePath, QStringLiteral("MDX"));
    if (!mdx.isEmpty()) {
        for (const QString& tag : mdxTagNames(mdx))
            add({tag, mdx, true});
    }
    return indexes;
}

std::optional<std::vector<std::uint32_t>> readDbaseIndexOrder(const DbaseIndex& index,
                                                              std::uint32_t recordCount) {
    QFile file(index.path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    std::optional<TreeShape> shape;
    if (!index.multiple) {
        if (const std::optional<NdxHeader> header = readNdxHeader(file))
            shape = header->shape;
    } else if (const std::optional<MdxHeader> header = readMdxHeader(file)) {
        for (const MdxTag& tag : header->tags) {
            if (tag.name == index.name) {
                shape = readMdxTagShape(file, *header, tag);
                break;
            }
        }
    }
    if (!shape)
        return std::nullopt;
    return TreeWalk(file, *shape, recordCount).run();
}
