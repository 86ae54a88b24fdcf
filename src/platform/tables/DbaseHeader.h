#pragma once

#include <QByteArray>
#include <QtGlobal>

// The header of a dBASE table as the file holds it, checked in our own code before the table
// library sees the file: a header whose lengths, fields or descriptors contradict each other
// would make the library allocate without bound or read past its record buffer.
namespace DbaseHeader {

// True when the start of the file (at least its whole header) describes a table the library
// can read safely: a header length that holds the field descriptors and their end mark, at
// least one field, fields of known types and lengths, and a record length that is the deletion
// flag plus the fields' lengths.
bool isSound(const QByteArray& start, qint64 fileSize);

// How many bytes of the file to read to check its header: the header length it states, within
// what a header can be.
qint64 headerLength(const QByteArray& first12);

} // namespace DbaseHeader
