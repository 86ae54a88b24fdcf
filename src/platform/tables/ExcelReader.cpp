#include "platform/tables/ExcelReader.h"

#include <QFileInfo>

namespace {

// The rows of one sheet below its first: every row as many cells as the sheet is wide, empty
// texts where nothing is, as in the cells a merged block covers beside its top-left one.
class ExcelRows final : public TableRows {
public:
    ExcelRows(std::shared_ptr<const QList<BiffWorkbook::Sheet>> sheets, qsizetype sheet)
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

// A field for each column: named by the first row (F1, F2, ... where that is empty), typed by
// the cell below it.
TableDef tableDef(const BiffWorkbook::Sheet& sheet) {
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
    return def;
}

} // namespace

TableReader::Opened ExcelReader::openFile(const QString& path) {
    Opened opened;
    if (!QFileInfo(path).isFile()) {
        opened.error = AppError(AppError::FileNotFound);
        return opened;
    }
    auto sheets = std::make_shared<QList<BiffWorkbook::Sheet>>();
    if (!BiffWorkbook::readFile(path, sheets.get())) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    std::unique_ptr<ExcelReader> reader(new ExcelReader);
    for (const BiffWorkbook::Sheet& sheet : *sheets)
        reader->m_defs.append(tableDef(sheet));
    reader->m_sheets = std::move(sheets);
    opened.reader = std::move(reader);
    opened.error = AppError();
    return opened;
}

QList<TableDef> ExcelReader::tableDefs() {
    return m_defs;
}

std::unique_ptr<TableRows> ExcelReader::rows(const QString& table, const QString&) {
    for (qsizetype s = 0; s < m_sheets->size(); ++s) {
        const QString sheet = m_sheets->at(s).name;
        if (sheet.compare(table, Qt::CaseInsensitive) == 0 ||
            QString(sheet + QLatin1Char('$')).compare(table, Qt::CaseInsensitive) == 0)
            return std::make_unique<ExcelRows>(m_sheets, s);
    }
    return nullptr;
}
