#pragma once

struct sqlite3;

// Text collations for SQLite connections.
namespace SqliteCollation {

// A collation of that name that compares text without regard to case, letters outside ASCII
// included.
void registerNoCase(sqlite3* db, const char* name);

// Any collation a statement names that the connection does not know becomes such a collation,
// so that a file made by another program with collations of its own can still be read.
void registerUnknownAsNoCase(sqlite3* db);

} // namespace SqliteCollation
