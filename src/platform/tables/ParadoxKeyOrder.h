#pragma once

#include <QList>
#include <QString>

#include <vector>

struct px_doc;

// The order of a keyed Paradox table's records by its primary key: the first fields of a record,
// as many as the header counts, compared field by field, ascending.
//
// Paradox keeps a keyed table's data blocks linked in the order of the key and each block's
// records sorted, so the chain of blocks, which is also the order pxlib numbers records in,
// normally is the key order already; the records are sorted here only when the chain is not.
//
// Alpha fields of a table with the "ascii" sort order compare by their bytes, the order of the
// code page's character codes, capitals before small letters, as Paradox sorts them. The other
// sort orders are Paradox's language tables: there letters compare without their case and
// accents, and keys equal that way keep the order of the chain, where Paradox put them.
namespace ParadoxKeyOrder {

// The count of key fields of a keyed table whose key can be compared; 0 for any other table.
int keyFields(px_doc* doc);

// The numbers of the records, as pxlib numbers them, in the order of the key, read from the
// table's file; nothing when that is the order they have (or the file's blocks cannot be read
// for it, when the stored order stands).
std::vector<quint32> rowsInKeyOrder(const QString& path, px_doc* doc, const QList<int>& types,
                                    const QList<int>& lengths);

} // namespace ParadoxKeyOrder
