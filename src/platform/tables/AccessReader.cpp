#include "platform/tables/AccessReader.h"

#include "platform/tables/AccessIndex.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMutex>
#include <QThread>
#include <QtEndian>

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <mdbtools.h>
#include <optional>
#include <vector>

namespace {

// The header page from offset 0x18 is kept enciphered with RC4 under a fixed key.
QByteArray rc4(const QByteArray& key, const QByteArray& data) {
    std::array<uchar, 256> s{};
    for (int i = 0; i < 256; ++i)
        s[i] = static_cast<uchar>(i);
    int j = 0;
    for (int i = 0; i < 256; ++i) {
        j = (j + s[i] + static_cast<uchar>(key[i % key.size()])) & 0xFF;
        std::swap(s[i], s[j]);
    }
    QByteArray out(data.size(), '\0');
    int a = 0;
    int b = 0;
    for (qsizetype n = 0; n < data.size(); ++n) {
        a = (a + 1) & 0xFF;
        b = (b + s[a]) & 0xFF;
        std::swap(s[a], s[b]);
        out[n] = static_cast<char>(static_cast<uchar>(data[n]) ^ s[(s[a] + s[b]) & 0xFF]);
    }
    return out;
}

// Reads a table's columns; false when libmdb could not, which leaves a column count it would
// go on to trust, or for more columns than Jet allows a table (255): a damaged definition that
// would have every row read as thousands of cells.
bool readColumns(MdbTableDef* table) {
    constexpr guint MostColumns = 255;
    if (table->num_cols > MostColumns)
        return false;
    return mdb_read_columns(table) && table->columns && table->columns->len == table->num_cols;
}

MdbHandle* handleOf(void* handle) {
    return static_cast<MdbHandle*>(handle);
}

using AccessIndex::RowPlace;

// The rows of one table, read through a handle of its own, so that rows read for one table
// never disturb the page another is reading. In stored order the rows are fetched one after
// another; in an index's order each row is read at its place, from the places the index gave.
class AccessRows final : public TableRows {
public:
    AccessRows(MdbHandle* mdb, MdbTableDef* table, std::optional<std::vector<RowPlace>> order,
               qint64 pages)
        : m_mdb(mdb), m_table(table), m_columns(static_cast<int>(table->num_cols)),
          m_order(std::move(order)), m_pages(pages) {
        m_buffers.resize(m_columns);
        m_lengths.resize(m_columns);
        for (int i = 0; i < m_columns; ++i) {
            m_buffers[i] = QByteArray(MDB_BIND_SIZE, '\0');
            mdb_bind_column(table, i + 1, m_buffers[i].data(), &m_lengths[i]);
        }
        mdb_rewind_table(table);
    }
    ~AccessRows() override {
        mdb_free_tabledef(m_table);
        mdb_close(m_mdb);
    }

    qint64 count() const override {
        if (m_order)
            return static_cast<qint64>(m_order->size());
        // libmdb finds the stored rows through the table's page usage map, and reads it without
        // looking: a map that could not be read leaves the table without rows. A damaged count
        // is held to what the file has room for: each row takes two bytes of its page at least.
        if (!m_table->usage_map || m_table->map_sz < 5)
            return 0;
        return std::min<qint64>(m_table->num_rows, m_pages * (m_mdb->fmt->pg_size / 2));
    }

    QStringList row(qint64 index) override {
        if (index < 0 || index >= count())
            return {};
        if (m_order) {
            if (!readAt((*m_order)[static_cast<size_t>(index)]))
                return {};
            return cells();
        }
        // Rows are read in order; going back starts again from the first.
        if (index < m_next) {
            mdb_rewind_table(m_table);
            m_next = 0;
        }
        while (m_next <= index) {
            if (!mdb_fetch_row(m_table))
                return {};
            ++m_next;
        }
        return cells();
    }

private:
    QStringList cells() const {
        QStringList cells;
        for (int i = 0; i < m_columns; ++i)
            cells.append(QString::fromUtf8(m_buffers[i].constData(),
                                           std::clamp(m_lengths[i], 0, MDB_BIND_SIZE - 1)));
        return cells;
    }

    // Reads the row at a place an index gave, if that place is a row of this table.
    bool readAt(RowPlace place) {
        if (mdb_read_pg(m_mdb, place.page) <= 0)
            return false;
        const unsigned char* page = m_mdb->pg_buf;
        // A data page of this table: its kind and the page of the table's definition.
        if (page[0] != 0x01 || qFromLittleEndian<quint32>(page + 4) != m_table->entry->table_pg)
            return false;
        const quint16 rows = qFromLittleEndian<quint16>(page + m_mdb->fmt->row_count_offset);
        if (place.row >= rows)
            return false;
        return mdb_read_row(m_table, place.row) != 0;
    }

    MdbHandle* m_mdb;
    MdbTableDef* m_table;
    int m_columns;
    std::optional<std::vector<RowPlace>> m_order;
    qint64 m_pages; // in the file
    QList<QByteArray> m_buffers;
    QList<int> m_lengths;
    qint64 m_next = 0;
};

// The places of a table's rows in the order of one of its indexes, read from the index's pages
// by AccessIndex: libmdb's own index walk trusts every page it reads, and a damaged index can
// crash it or end the process.
std::optional<std::vector<RowPlace>> indexOrder(MdbHandle* mdb, MdbTableDef* table,
                                                const QString& name, qint64 fileSize) {
    mdb_read_indices(table);
    MdbIndex* index = nullptr;
    for (guint x = 0; table->indices && x < table->indices->len; ++x) {
        auto* candidate = static_cast<MdbIndex*>(g_ptr_array_index(table->indices, x));
        if (QString::fromUtf8(candidate->name).compare(name, Qt::CaseInsensitive) == 0) {
            index = candidate;
            break;
        }
    }
    if (!index)
        return std::nullopt;
    const AccessIndex::Layout layout = AccessIndex::layoutFor(!IS_JET3(mdb));
    if (mdb->fmt->pg_size != layout.pageSize)
        return std::nullopt;
    MdbHandle* pages = mdb_clone_handle(mdb);
    const AccessIndex::PageReader read = [pages, &layout](quint32 page, QByteArray* bytes) {
        if (mdb_read_pg(pages, page) != layout.pageSize)
            return false;
        *bytes = QByteArray(reinterpret_cast<const char*>(pages->pg_buf), layout.pageSize);
        return true;
    };
    std::vector<RowPlace> order = AccessIndex::rowOrder(
        read, layout, index->first_pg, static_cast<quint32>(table->entry->table_pg),
        static_cast<quint32>(fileSize / layout.pageSize));
    mdb_close(pages);
    return order;
}

} // namespace

QString AccessReader::storedPassword(const QByteArray& header) {
    if (header.size() < 0x18 + 128)
        return {};
    QByteArray page = header;
    const QByteArray key = QByteArray::fromHex("c7da396b"); // 0x6b39dac7, little-endian
    const bool jet3 = header[0x14] == 0;
    page.replace(0x18, 126, rc4(key, header.mid(0x18, 126)));
    if (jet3) {
        const QByteArray raw = page.mid(0x42, 20);
        return QString::fromLatin1(raw.left(static_cast<qsizetype>(qstrnlen(raw.constData(), 20))));
    }
    // Jet 4: 20 UTF-16 letters, masked also by the whole days of the creation date.
    double created = 0;
    std::memcpy(&created, page.constData() + 0x72, sizeof created);
    const qint32 days = static_cast<qint32>(created);
    uchar mask[4];
    qToLittleEndian<qint32>(days, mask);
    QByteArray raw = page.mid(0x42, 40);
    for (qsizetype i = 0; i < raw.size(); ++i)
        raw[i] = static_cast<char>(static_cast<uchar>(raw[i]) ^ mask[i % 4]);
    QString password;
    for (qsizetype i = 0; i + 1 < raw.size(); i += 2) {
        const char16_t letter = qFromLittleEndian<quint16>(raw.constData() + i);
        if (letter == 0)
            break;
        password.append(QChar(letter));
    }
    return password;
}

AccessReader::~AccessReader() {
    if (m_handle)
        mdb_close(handleOf(m_handle));
}

namespace {

// How long the reading of a catalog may take before the file is taken for damaged.
constexpr int kCatalogMilliseconds = 5000;

// libmdb loops for ever, or crashes, on some damaged catalogs. So the catalog and the table
// definitions are read first in a child process that gets a few seconds: a file whose reading
// does not end well there is refused before this process reads it.
bool catalogReadsInTime(const QByteArray& path) {
    const pid_t child = fork();
    if (child < 0)
        return true; // no way to check: read it here as usual
    if (child == 0) {
        const int quiet = ::open("/dev/null", O_WRONLY);
        if (quiet >= 0) {
            dup2(quiet, STDOUT_FILENO);
            dup2(quiet, STDERR_FILENO);
        }
        MdbHandle* mdb = mdb_open(path.constData(), MDB_NOFLAGS);
        if (!mdb || !mdb_read_catalog(mdb, MDB_TABLE))
            _exit(1);
        for (guint i = 0; i < mdb->num_catalog; ++i) {
            auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
            if (entry->object_type != MDB_TABLE)
                continue;
            if (MdbTableDef* table = mdb_read_table(entry); table && readColumns(table))
                mdb_read_indices(table);
        }
        _exit(0);
    }
    QElapsedTimer clock;
    clock.start();
    int status = 0;
    for (;;) {
        const pid_t done = waitpid(child, &status, WNOHANG);
        if (done == child)
            return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        if (done < 0)
            return false;
        if (clock.elapsed() > kCatalogMilliseconds) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            return false;
        }
        QThread::msleep(2);
    }
}

// The check of a file, done once for each state of the file: a window opens the same file
// several times over (its tables, its fields, its records).
bool catalogChecked(const QString& path) {
    static QMutex lock;
    static QHash<QString, bool> checked;
    const QFileInfo info(path);
    const QString key = info.absoluteFilePath() + u'|' + QString::number(info.size()) + u'|' +
                        QString::number(info.lastModified().toMSecsSinceEpoch());
    {
        const QMutexLocker locked(&lock);
        if (const auto it = checked.constFind(key); it != checked.cend())
            return *it;
    }
    const bool good = catalogReadsInTime(QFile::encodeName(path));
    const QMutexLocker locked(&lock);
    if (checked.size() > 256)
        checked.clear();
    checked.insert(key, good);
    return good;
}

} // namespace

TableReader::Opened AccessReader::openFile(const QString& path, const QString& password) {
    Opened opened;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        opened.error =
            AppError(QFileInfo::exists(path) ? AppError::PathFileAccess : AppError::FileNotFound);
        return opened;
    }
    const qint64 fileSize = file.size();
    const QByteArray header = file.read(2048);
    file.close();
    const QString stored = storedPassword(header);
    if (stored != password) {
        opened.error = AppError(InvalidPassword, QStringLiteral("Not a valid password."));
        return opened;
    }
    std::unique_ptr<AccessReader> reader(new AccessReader);
    if (!catalogChecked(path)) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    MdbHandle* mdb = mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS);
    if (!mdb) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    reader->m_handle = mdb;
    reader->m_fileSize = fileSize;
    mdb_set_date_fmt(mdb, "%Y-%m-%d %H:%M:%S");
    if (!mdb_read_catalog(mdb, MDB_TABLE)) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    for (guint i = 0; i < mdb->num_catalog; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
        if (entry->object_type != MDB_TABLE)
            continue;
        TableDef def;
        def.name = QString::fromUtf8(entry->object_name);
        def.attributes =
            mdb_is_system_table(entry) ? static_cast<qint32>(0x80000002U) : entry->flags;
        if (MdbTableDef* table = mdb_read_table(entry)) {
            if (!readColumns(table)) {
                mdb_free_tabledef(table);
                reader->m_defs.append(def);
                continue;
            }
            for (guint c = 0; c < table->num_cols; ++c) {
                auto* column = static_cast<MdbColumn*>(g_ptr_array_index(table->columns, c));
                // Jet's own type numbers are those of the data access objects.
                def.fields.append({QString::fromUtf8(column->name),
                                   static_cast<qint16>(column->col_type), column->col_size});
            }
            mdb_read_indices(table);
            for (guint x = 0; table->indices && x < table->indices->len; ++x) {
                auto* index = static_cast<MdbIndex*>(g_ptr_array_index(table->indices, x));
                def.indexes.append(QString::fromUtf8(index->name));
            }
            mdb_free_tabledef(table);
        }
        reader->m_defs.append(def);
    }
    opened.reader = std::move(reader);
    opened.error = AppError();
    return opened;
}

QList<TableDef> AccessReader::tableDefs() {
    return m_defs;
}

std::unique_ptr<TableRows> AccessReader::rows(const QString& table, const QString& index) {
    MdbHandle* mdb = handleOf(m_handle);
    for (guint i = 0; i < mdb->num_catalog; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
        if (entry->object_type != MDB_TABLE ||
            QString::fromUtf8(entry->object_name).compare(table, Qt::CaseInsensitive) != 0)
            continue;
        // The rows get a handle of their own, with its own catalog in the same order.
        MdbHandle* own = mdb_clone_handle(mdb);
        auto* ownEntry = i < own->catalog->len
                             ? static_cast<MdbCatalogEntry*>(g_ptr_array_index(own->catalog, i))
                             : nullptr;
        MdbTableDef* def = ownEntry ? mdb_read_table(ownEntry) : nullptr;
        if (!def) {
            mdb_close(own);
            return nullptr;
        }
        if (!readColumns(def)) {
            mdb_free_tabledef(def);
            mdb_close(own);
            return nullptr;
        }
        std::optional<std::vector<RowPlace>> order;
        if (!index.isEmpty()) {
            order = indexOrder(own, def, index, m_fileSize);
            if (!order) {
                mdb_free_tabledef(def);
                mdb_close(own);
                return nullptr;
            }
        }
        return std::make_unique<AccessRows>(own, def, std::move(order),
                                            m_fileSize / own->fmt->pg_size);
    }
    return nullptr;
}
