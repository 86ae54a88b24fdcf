#include "platform/tables/TableReader.h"

#include "platform/tables/AccessReader.h"
#include "platform/tables/DbaseReader.h"
#include "platform/tables/ExcelReader.h"
#include "platform/tables/LotusReader.h"
#include "platform/tables/ParadoxReader.h"
#include "platform/tables/SqliteReader.h"

TableRows::~TableRows() = default;
TableReader::~TableReader() = default;

TableReader::Opened TableReader::open(const QString& connect, const QString& path,
                                      const QString& password) {
    // An SQLite file is one whatever its name says.
    if (SqliteReader::isSqliteFile(path))
        return SqliteReader::openFile(path);
    if (connect.startsWith(QLatin1String("dBASE")))
        return DbaseReader::openFile(path);
    if (connect.startsWith(QLatin1String("Paradox")))
        return ParadoxReader::openFile(path);
    if (connect.startsWith(QLatin1String("Access")))
        return AccessReader::openFile(path, password);
    if (connect.startsWith(QLatin1String("Excel")))
        return ExcelReader::openFile(path);
    if (connect.startsWith(QLatin1String("Lotus")))
        return LotusReader::openFile(path);
    Opened unknown;
    unknown.error = AppError(AppError::PathFileAccess);
    return unknown;
}
