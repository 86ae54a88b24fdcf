#pragma once

#include <QString>
#include <QtGlobal>

// What the file properties window tells of a file: the names of picture formats and of table
// field types, and the facts of a picture.
namespace FileProperties {

// The name of a picture format code; "Unknown format" for codes without one.
QString GetFormatName(qint16 code);
// The name of a field type code of the data access objects; empty for others.
QString GetFieldTypeName(int code);

struct Picture {
    bool read = false;
    int bits = 0;      // per pixel, as the file stores them
    qint64 colors = 0; // distinct colours
    qint16 format = 0; // format code, numbered as GetFormatName numbers them
    int width = 0;
    int height = 0;
    qint64 diskSize = 0;
    qint64 memorySize = 0; // of the decoded picture at its stored depth, lines padded to 32 bits
    int xResolution = 0;   // dots an inch the file records
    int yResolution = 0;
};
Picture pictureOf(const QString& path);

// A number grouped in thousands as the system writes it.
QString grouped(qint64 number);

} // namespace FileProperties
