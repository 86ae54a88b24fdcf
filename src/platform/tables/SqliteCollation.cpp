#include "platform/tables/SqliteCollation.h"

#include <QString>

#include <sqlite3.h>

#include <algorithm>

namespace {

// ASCII letters fold on the bytes; as soon as either text has a byte outside ASCII both are
// compared as case-folded text, from their start, so that the order stays one order.
int compareWithoutCase(void*, int leftBytes, const void* left, int rightBytes, const void* right) {
    const auto* a = static_cast<const unsigned char*>(left);
    const auto* b = static_cast<const unsigned char*>(right);
    const int common = std::min(leftBytes, rightBytes);
    for (int i = 0; i < common; ++i) {
        unsigned char x = a[i];
        unsigned char y = b[i];
        if ((x | y) & 0x80) {
            const QString l = QString::fromUtf8(reinterpret_cast<const char*>(a), leftBytes);
            const QString r = QString::fromUtf8(reinterpret_cast<const char*>(b), rightBytes);
            const int order = l.compare(r, Qt::CaseInsensitive);
            return order < 0 ? -1 : order > 0 ? 1 : 0;
        }
        if (x >= 'A' && x <= 'Z')
            x += 'a' - 'A';
        if (y >= 'A' && y <= 'Z')
            y += 'a' - 'A';
        if (x != y)
            return x < y ? -1 : 1;
    }
    return leftBytes < rightBytes ? -1 : leftBytes > rightBytes ? 1 : 0;
}

void addWhenNeeded(void*, sqlite3* db, int, const char* name) {
    SqliteCollation::registerNoCase(db, name);
}

} // namespace

namespace SqliteCollation {

void registerNoCase(sqlite3* db, const char* name) {
    sqlite3_create_collation_v2(db, name, SQLITE_UTF8, nullptr, compareWithoutCase, nullptr);
}

void registerUnknownAsNoCase(sqlite3* db) {
    sqlite3_collation_needed(db, nullptr, addWhenNeeded);
}

} // namespace SqliteCollation
