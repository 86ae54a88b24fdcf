#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

// The cells of an Excel workbook of BIFF5 (Excel 5 and 95) or BIFF8 (Excel 97 to 2003) records,
// read from the "Workbook" or "Book" stream of its OLE2 compound file. Each worksheet's cells are
// held as text, sparsely: what a file can make us hold grows with its records, not with the
// sheet sizes it claims.
class BiffWorkbook {
public:
    enum class Kind : quint8 { Empty, Text, Number, Date, Boolean, Error };

    struct Cell {
        QString text;
        Kind kind = Kind::Empty;
    };

    struct Sheet {
        QString name;
        int rows = 0;    // at most 65,536
        int columns = 0; // at most 256
        QHash<quint32, Cell> cells;

        // The cell at a row and column; an empty cell for one that holds nothing.
        Cell cell(int row, int column) const;
    };

    static constexpr int MaxRows = 65536;
    static constexpr int MaxColumns = 256;

    // Reads the worksheets of a compound file; false when it holds no workbook stream or the
    // stream does not begin as a BIFF5 or BIFF8 workbook. A stream cut short gives the sheets
    // and cells read before the cut.
    static bool readFile(const QString& path, QList<Sheet>* sheets);
    // Reads the worksheets of a workbook stream's bytes.
    static bool readStream(const QByteArray& stream, QList<Sheet>* sheets);

    // The text of a serial date of the workbook (1900 or, with mac1904, 1904 based):
    // "yyyy-MM-dd HH:mm:ss" as the other readers write dates, or "HH:mm:ss" for a format that
    // shows only the time of day.
    static QString dateText(double serial, bool mac1904, bool timeOnly);
    // Whether a number format shows a date, a time of day, or both.
    static void classifyFormat(const QString& format, bool* date, bool* time);
};
