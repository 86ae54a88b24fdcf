#include "platform/tables/AccessReader.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <array>
#include <cstring>
#include <mdbtools.h>

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

MdbHandle* handleOf(void* handle) {
    return static_cast<MdbHandle*>(handle);
}

class AccessRows final : public TableRows {
public:
    AccessRows(MdbTableDef* table, int columns) : m_table(table), m_columns(columns) {
        mdb_read_columns(table);
        m_buffers.resize(columns);
        m_lengths.resize(columns);
        for (int i = 0; i < columns; ++i) {
            m_buffers[i] = QByteArray(MDB_BIND_SIZE, '\0');
            mdb_bind_column(table, i + 1, m_buffers[i].data(), &m_lengths[i]);
        }
        mdb_rewind_table(table);
    }
    ~AccessRows() override { mdb_free_tabledef(m_table); }

    qint64 count() const override { return m_table->num_rows; }

    QStringList row(qint64 index) override {
        if (index < 0 || index >= count())
            return {};
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
        QStringList cells;
        for (int i = 0; i < m_columns; ++i)
            cells.append(QString::fromUtf8(m_buffers[i].constData(),
                                           std::clamp(m_lengths[i], 0, MDB_BIND_SIZE - 1)));
        return cells;
    }

private:
    MdbTableDef* m_table;
    int m_columns;
    QList<QByteArray> m_buffers;
    QList<int> m_lengths;
    qint64 m_next = 0;
};

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

TableReader::Opened AccessReader::openFile(const QString& path, const QString& password) {
    Opened opened;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        opened.error =
            AppError(QFileInfo::exists(path) ? AppError::PathFileAccess : AppError::FileNotFound);
        return opened;
    }
    const QString stored = storedPassword(file.read(2048));
    file.close();
    if (stored != password) {
        opened.error = AppError(InvalidPassword, QStringLiteral("Not a valid password."));
        return opened;
    }
    std::unique_ptr<AccessReader> reader(new AccessReader);
    MdbHandle* mdb = mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS);
    if (!mdb) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    reader->m_handle = mdb;
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
            mdb_read_columns(table);
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

std::unique_ptr<TableRows> AccessReader::rows(const QString& table, const QString&) {
    MdbHandle* mdb = handleOf(m_handle);
    for (guint i = 0; i < mdb->num_catalog; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
        if (entry->object_type != MDB_TABLE ||
            QString::fromUtf8(entry->object_name).compare(table, Qt::CaseInsensitive) != 0)
            continue;
        MdbTableDef* def = mdb_read_table(entry);
        if (!def)
            return nullptr;
        mdb_read_columns(def);
        return std::make_unique<AccessRows>(def, static_cast<int>(def->num_cols));
    }
    return nullptr;
}
