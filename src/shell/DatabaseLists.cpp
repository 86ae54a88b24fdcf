#include "shell/DatabaseLists.h"

#include "platform/tables/AccessReader.h"
#include "platform/tables/TableReader.h"
#include "shell/Globals.h"

namespace DatabaseLists {

namespace {

QString passwordFor(const Globals& g, const QString& connect) {
    return connect == QLatin1String("Access") ? g.gDbPassword : QString();
}

constexpr int kBoundsFailure = 9; // subscript out of range

// dBASE and Paradox tables are files of their own, named by the file name.
bool tableIsAFile(const QString& connect) {
    return connect.startsWith(QLatin1String("dBASE")) ||
           connect.startsWith(QLatin1String("Paradox"));
}

QString withoutExtension(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot >= 0 ? name.left(dot) : name;
}

} // namespace

QString ListTables(Globals& g, const QString& path, const QString& connect, const AskPassword& ask,
                   AppError* error) {
    g.gPasswordAsked = false;
    TableReader::Opened opened = TableReader::open(connect, path, passwordFor(g, connect));
    while (opened.error.number() == AccessReader::InvalidPassword) {
        g.gOpenFile = path;
        g.gPasswordAsked = true;
        if (!ask || !ask() || !g.gLoginOK)
            return {};
        opened = TableReader::open(connect, path, g.gDbPassword);
    }
    if (opened.error) {
        if (error)
            *error = opened.error;
        return {};
    }
    int count = 0;
    for (const TableDef& def : opened.reader->tableDefs()) {
        if (def.attributes & SystemObjectMask)
            continue;
        if (count >= int(g.gTableNames.size())) {
            if (error)
                *error = AppError(kBoundsFailure, QStringLiteral("Subscript out of range"));
            g.gTableCount = count;
            return {};
        }
        g.gTableNames[static_cast<size_t>(count++)] = def.name;
    }
    g.gTableCount = count;
    return count > 0 ? g.gTableNames[0] : QString();
}

AppError ReadTableInfo(Globals& g, const QString& connect, const QString& path,
                       const QString& table) {
    g.gFieldCount = 0;
    g.gIndexNames.fill(QString());
    g.gFieldTypes.fill(0);
    g.gFieldNames.fill(QString());
    g.gIndexCount = 0;
    g.gPasswordAsked = false;
    const bool isFile = tableIsAFile(connect);
    const QString name = isFile ? withoutExtension(table) : table;
    const QString file = isFile ? path + u'/' + table : path;
    TableReader::Opened opened = TableReader::open(connect, file, passwordFor(g, connect));
    if (opened.error)
        return opened.error;
    for (const TableDef& def : opened.reader->tableDefs()) {
        const QString defName = isFile ? withoutExtension(def.name) : def.name;
        if (defName.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        const int indexes = std::min<int>(int(def.indexes.size()), int(g.gIndexNames.size()));
        for (int i = 0; i < indexes; ++i)
            g.gIndexNames[static_cast<size_t>(i)] = def.indexes[i];
        g.gIndexCount = indexes;
        if (def.attributes != 0)
            continue; // an attached table has no field details
        if (def.fields.size() > qsizetype(g.gFieldNames.size()))
            return AppError(kBoundsFailure, QStringLiteral("Subscript out of range"));
        for (int i = 0; i < def.fields.size(); ++i) {
            g.gFieldTypes[static_cast<size_t>(i)] = def.fields[i].type;
            g.gFieldSizes[static_cast<size_t>(i)] = def.fields[i].size;
            g.gFieldNames[static_cast<size_t>(i)] = def.fields[i].name;
        }
        g.gFieldCount = static_cast<int>(def.fields.size()) - 1;
    }
    return {};
}

} // namespace DatabaseLists
