#include "organizer/OrganizerBatch.h"

#include "organizer/OrganizerDates.h"
#include "organizer/Recordset.h"
#include "platform/PathUtil.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"

using namespace Qt::StringLiterals;

namespace {

void setFields(Recordset& rows, std::initializer_list<std::pair<const char*, QString>> fields) {
    for (const auto& [field, value] : fields)
        rows.setValue(QString::fromLatin1(field), value);
}

} // namespace

namespace OrganizerBatch {

AppError EnsureFirstGroup(const QString& database, const QString& group) {
    OrganizerDb::Opened db = OrganizerDb::open(database);
    if (db.error)
        return db.error;
    Recordset::Opened groups = Recordset::open(db.db, u"GroupTable"_s, Recordset::TableType);
    if (groups.error)
        return groups.error;
    Recordset& rows = *groups.recordset;
    if (rows.RecordCount() != 0)
        return {};
    OrganizerDates::SetDateStamps();
    const Globals& g = globals();
    rows.AddNew();
    setFields(rows, {{"GroupName", group},
                     {"GroupDesc", group + u" Description"_s},
                     {"Date", g.gStampDate},
                     {"Time", g.gStampTime},
                     {"DateTimeCreated", g.gStampFull},
                     {"DateDisp", g.gStampDisplay}});
    return rows.Update();
}

Added AddFolderFilesToGroup(const QString& database, const QString& group, const QString& folder,
                            const QStringList& names) {
    Added added;
    OrganizerDb::Opened db = OrganizerDb::open(database);
    if (db.error) {
        added.error = db.error;
        return added;
    }
    Recordset::Opened files = Recordset::open(db.db, u"FileTable"_s, Recordset::TableType);
    if (files.error) {
        added.error = files.error;
        return added;
    }
    OrganizerDates::SetDateStamps();
    Globals& g = globals();
    const QString keyword = PathUtil::nameOf(folder);
    Recordset& rows = *files.recordset;
    if ((added.error = db.db->begin()))
        return added;
    for (const QString& name : names) {
        rows.AddNew();
        const OrganizerDates::FileDate date =
            OrganizerDates::fileDateText(PathUtil::join(folder.trimmed(), name));
        if ((added.error = date.error))
            break;
        const auto [day, time] = OrganizerDates::splitAtFirstBlank(date.text);
        g.gStampDate = OrganizerDates::ToSortableDate(day);
        g.gStampTime = time;
        setFields(rows, {{"GroupName", group},
                         {"FileName", name},
                         {"FileLocation", folder},
                         {"FileDescription", name + u" Description"_s},
                         {"FileType", FileTypes::GetFileKindName(name)},
                         {"FileKeyword", keyword},
                         {"Date", g.gStampDate},
                         {"Time", g.gStampTime},
                         {"DateTimeCreated", g.gStampFull},
                         {"DateDisp", g.gStampDisplay}});
        if ((added.error = rows.Update()))
            break;
        ++added.records;
    }
    if (const AppError failed = db.db->commit(); failed && !added.error)
        added.error = failed;
    return added;
}

} // namespace OrganizerBatch
