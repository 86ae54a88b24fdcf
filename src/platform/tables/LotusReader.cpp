#include "platform/tables/LotusReader.h"

#include <QFile>
#include <QFileInfo>

#include <librevenge-generators/librevenge-generators.h>
#include <librevenge-stream/librevenge-stream.h>
#include <libwps/libwps.h>

namespace {

class LotusRows final : public TableRows {
public:
    explicit LotusRows(const QList<QStringList>& rows) : m_rows(rows) {}
    qint64 count() const override { return m_rows.size(); }
    QStringList row(qint64 index) override {
        return index >= 0 && index < m_rows.size() ? m_rows[index] : QStringList();
    }

private:
    const QList<QStringList>& m_rows;
};

} // namespace

QList<QStringList> LotusReader::parseCsv(const QString& text) {
    QList<QStringList> rows;
    QStringList row;
    QString value;
    bool quoted = false;
    bool any = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (quoted) {
            if (c == u'"') {
                if (i + 1 < text.size() && text[i + 1] == u'"') {
                    value += u'"';
                    ++i;
                } else {
                    quoted = false;
                }
            } else {
                value += c;
            }
            continue;
        }
        if (c == u'"') {
            quoted = true;
            any = true;
        } else if (c == u',') {
            row.append(value);
            value.clear();
            any = true;
        } else if (c == u'\n' || c == u'\r') {
            if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
                ++i;
            if (any || !value.isEmpty()) {
                row.append(value);
                rows.append(row);
            }
            row.clear();
            value.clear();
            any = false;
        } else {
            value += c;
            any = true;
        }
    }
    if (any || !value.isEmpty()) {
        row.append(value);
        rows.append(row);
    }
    return rows;
}

TableReader::Opened LotusReader::openFile(const QString& path) {
    Opened opened;
    if (!QFileInfo(path).isFile()) {
        opened.error = AppError(AppError::FileNotFound);
        return opened;
    }
    librevenge::RVNGFileStream input(QFile::encodeName(path).constData());
    libwps::WPSKind kind = libwps::WPS_TEXT;
    libwps::WPSCreator creator = libwps::WPS_MSWORKS;
    bool needEncoding = false;
    if (libwps::WPSDocument::isFileFormatSupported(&input, kind, creator, needEncoding) ==
            libwps::WPS_CONFIDENCE_NONE ||
        kind != libwps::WPS_SPREADSHEET) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    librevenge::RVNGStringVector sheets;
    librevenge::RVNGCSVSpreadsheetGenerator generator(sheets);
    if (libwps::WPSDocument::parse(&input, &generator, nullptr, nullptr) != libwps::WPS_OK) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    std::unique_ptr<LotusReader> reader(new LotusReader);
    for (unsigned s = 0; s < sheets.size(); ++s) {
        QList<QStringList> rows = parseCsv(QString::fromUtf8(sheets[s].cstr()));
        TableDef def;
        def.name = QStringLiteral("Sheet%1").arg(s + 1);
        const QStringList names = rows.isEmpty() ? QStringList() : rows.takeFirst();
        for (int c = 0; c < names.size(); ++c) {
            TableField field;
            field.name = names[c].isEmpty() ? QStringLiteral("F%1").arg(c + 1) : names[c];
            field.type = TableTypes::Text;
            field.size = 255;
            def.fields.append(field);
        }
        reader->m_defs.append(def);
        reader->m_sheets.append(rows);
    }
    opened.reader = std::move(reader);
    opened.error = AppError();
    return opened;
}

QList<TableDef> LotusReader::tableDefs() {
    return m_defs;
}

std::unique_ptr<TableRows> LotusReader::rows(const QString& table, const QString&) {
    for (qsizetype i = 0; i < m_defs.size(); ++i) {
        if (m_defs[i].name.compare(table, Qt::CaseInsensitive) == 0)
            return std::make_unique<LotusRows>(m_sheets[i]);
    }
    return nullptr;
}
