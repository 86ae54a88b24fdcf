#include "platform/tables/ExcelReader.h"

#include <QFile>
#include <QFileInfo>

#include <freexl.h>

namespace {

QString cellText(const void* handle, unsigned int row, unsigned short column, bool* number) {
    FreeXL_CellValue cell{};
    if (number)
        *number = false;
    if (freexl_get_cell_value(handle, row, column, &cell) != FREEXL_OK)
        return {};
    switch (cell.type) {
    case FREEXL_CELL_INT:
        if (number)
            *number = true;
        return QString::number(cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
        if (number)
            *number = true;
        return QString::number(cell.value.double_value, 'g', 15);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME:
        return cell.value.text_value ? QString::fromUtf8(cell.value.text_value) : QString();
    default:
        return {};
    }
}

class ExcelRows final : public TableRows {
public:
    ExcelRows(const void* handle, unsigned short sheet, qint64 rows, int columns)
        : m_handle(handle), m_sheet(sheet), m_rows(rows), m_columns(columns) {}

    qint64 count() const override { return m_rows; }

    QStringList row(qint64 index) override {
        if (index < 0 || index >= m_rows ||
            freexl_select_active_worksheet(m_handle, m_sheet) != FREEXL_OK)
            return {};
        QStringList cells;
        for (int c = 0; c < m_columns; ++c)
            cells.append(cellText(m_handle, static_cast<unsigned int>(index + 1),
                                  static_cast<unsigned short>(c), nullptr));
        return cells;
    }

private:
    const void* m_handle;
    unsigned short m_sheet;
    qint64 m_rows;
    int m_columns;
};

class BiffRows final : public TableRows {
public:
    BiffRows(std::shared_ptr<const QList<BiffWorkbook::Sheet>> sheets, qsizetype sheet)
        : m_sheets(std::move(sheets)), m_sheet(m_sheets->at(sheet)) {}

    qint64 count() const override { return std::max(m_sheet.rows - 1, 0); }

    QStringList row(qint64 index) override {
        if (index < 0 || index >= count())
            return {};
        QStringList cells;
        cells.reserve(m_sheet.columns);
        for (int c = 0; c < m_sheet.columns; ++c)
            cells.append(m_sheet.cell(static_cast<int>(index) + 1, c).text);
        return cells;
    }

private:
    std::shared_ptr<const QList<BiffWorkbook::Sheet>> m_sheets;
    const BiffWorkbook::Sheet& m_sheet;
};

QList<TableDef> biffDefs(const QList<BiffWorkbook::Sheet>& sheets) {
    QList<TableDef> defs;
    for (const BiffWorkbook::Sheet& sheet : sheets) {
        TableDef def;
        def.name = sheet.name + QLatin1Char('$');
        for (int c = 0; c < sheet.columns; ++c) {
            TableField field;
            field.name = sheet.cell(0, c).text;
            if (field.name.isEmpty())
                field.name = QStringLiteral("F%1").arg(c + 1);
            switch (sheet.cell(1, c).kind) {
            case BiffWorkbook::Kind::Number:
                field.type = TableTypes::Double;
                field.size = 8;
                break;
            case BiffWorkbook::Kind::Date:
                field.type = TableTypes::Date;
                field.size = 8;
                break;
            default:
                field.type = TableTypes::Text;
                field.size = 255;
                break;
            }
            def.fields.append(field);
        }
        defs.append(def);
    }
    return defs;
}

} // namespace

ExcelReader::~ExcelReader() {
    if (m_handle)
        freexl_close(m_handle);
}

TableReader::Opened ExcelReader::openFile(const QString& path) {
    Opened opened;
    if (!QFileInfo(path).isFile()) {
        opened.error = AppError(AppError::FileNotFound);
        return opened;
    }
    std::unique_ptr<ExcelReader> reader(new ExcelReader);
    unsigned int sheets = 0;
    if (freexl_open(QFile::encodeName(path).constData(), &reader->m_handle) == FREEXL_OK)
        freexl_get_info(reader->m_handle, FREEXL_BIFF_SHEET_COUNT, &sheets);
    if (sheets == 0) {
        // FreeXL did not find the sheets (some BIFF5 workbooks, some with their strings in
        // UTF-16): our own reader reads the records.
        if (reader->m_handle)
            freexl_close(reader->m_handle);
        reader->m_handle = nullptr;
        auto book = std::make_shared<QList<BiffWorkbook::Sheet>>();
        if (!BiffWorkbook::readFile(path, book.get())) {
            opened.error = AppError(AppError::PathFileAccess);
            return opened;
        }
        reader->m_defs = biffDefs(*book);
        reader->m_sheets = std::move(book);
        opened.reader = std::move(reader);
        opened.error = AppError();
        return opened;
    }
    for (unsigned short s = 0; s < sheets; ++s) {
        const char* name = nullptr;
        if (freexl_get_worksheet_name(reader->m_handle, s, &name) != FREEXL_OK ||
            freexl_select_active_worksheet(reader->m_handle, s) != FREEXL_OK)
            continue;
        TableDef def;
        def.name = QString::fromUtf8(name ? name : "") + QLatin1Char('$');
        unsigned int rows = 0;
        unsigned short columns = 0;
        freexl_worksheet_dimensions(reader->m_handle, &rows, &columns);
        for (unsigned short c = 0; c < columns; ++c) {
            TableField field;
            field.name = cellText(reader->m_handle, 0, c, nullptr);
            if (field.name.isEmpty())
                field.name = QStringLiteral("F%1").arg(c + 1);
            bool number = false;
            if (rows > 1)
                cellText(reader->m_handle, 1, c, &number);
            field.type = number ? TableTypes::Double : TableTypes::Text;
            field.size = number ? 8 : 255;
            def.fields.append(field);
        }
        def.attributes = 0;
        reader->m_defs.append(def);
    }
    opened.reader = std::move(reader);
    opened.error = AppError();
    return opened;
}

QList<TableDef> ExcelReader::tableDefs() {
    return m_defs;
}

std::unique_ptr<TableRows> ExcelReader::rows(const QString& table, const QString&) {
    if (m_sheets) {
        for (qsizetype s = 0; s < m_sheets->size(); ++s) {
            const QString sheet = m_sheets->at(s).name;
            if (sheet.compare(table, Qt::CaseInsensitive) == 0 ||
                QString(sheet + QLatin1Char('$')).compare(table, Qt::CaseInsensitive) == 0)
                return std::make_unique<BiffRows>(m_sheets, s);
        }
        return nullptr;
    }
    unsigned int sheets = 0;
    freexl_get_info(m_handle, FREEXL_BIFF_SHEET_COUNT, &sheets);
    for (unsigned short s = 0; s < sheets; ++s) {
        const char* name = nullptr;
        if (freexl_get_worksheet_name(m_handle, s, &name) != FREEXL_OK)
            continue;
        const QString sheet = QString::fromUtf8(name ? name : "");
        if (sheet.compare(table, Qt::CaseInsensitive) != 0 &&
            QString(sheet + QLatin1Char('$')).compare(table, Qt::CaseInsensitive) != 0)
            continue;
        if (freexl_select_active_worksheet(m_handle, s) != FREEXL_OK)
            return nullptr;
        unsigned int rows = 0;
        unsigned short columns = 0;
        freexl_worksheet_dimensions(m_handle, &rows, &columns);
        return std::make_unique<ExcelRows>(m_handle, s, rows > 0 ? rows - 1 : 0, columns);
    }
    return nullptr;
}
