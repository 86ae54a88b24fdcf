#include "platform/tables/BiffWorkbook.h"

#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QtEndian>

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-stdio.h>
#include <gsf/gsf-input.h>

#include <cmath>
#include <cstring>

namespace {

enum RecordId : quint16 {
    Formula = 0x0006,
    Eof = 0x000A,
    DateMode = 0x0022,
    Continue = 0x003C,
    CodePage = 0x0042,
    BoundSheet = 0x0085,
    MulRk = 0x00BD,
    RString = 0x00D6,
    Xf = 0x00E0,
    Sst = 0x00FC,
    LabelSst = 0x00FD,
    Dimensions = 0x0200,
    Number = 0x0203,
    Label = 0x0204,
    BoolErr = 0x0205,
    String = 0x0207,
    Rk = 0x027E,
    Format = 0x041E,
    Bof = 0x0809,
};

// One record with the CONTINUE records behind it, each part read in turn; strings whose
// letters run on into the next part carry a fresh option byte there.
class Parts {
public:
    void add(QByteArrayView part) { m_parts.append(part); }
    bool atEnd() const { return m_part >= m_parts.size(); }

    bool u8(quint8* value) {
        if (!settle())
            return false;
        *value = static_cast<quint8>(m_parts[m_part][m_pos]);
        ++m_pos;
        return true;
    }
    bool u16(quint16* value) {
        quint8 low = 0;
        quint8 high = 0;
        if (!u8(&low) || !u8(&high))
            return false;
        *value = static_cast<quint16>(low | (high << 8));
        return true;
    }
    bool u32(quint32* value) {
        quint16 low = 0;
        quint16 high = 0;
        if (!u16(&low) || !u16(&high))
            return false;
        *value = low | (quint32(high) << 16);
        return true;
    }
    bool skip(qint64 count) {
        while (count > 0) {
            if (!settle())
                return false;
            const qint64 here = std::min<qint64>(count, m_parts[m_part].size() - m_pos);
            m_pos += here;
            count -= here;
        }
        return true;
    }
    // The letters of a BIFF8 string: one byte each, or two when the option byte says so.
    bool letters(qint64 count, bool wide, QString* out) {
        while (count > 0) {
            if (m_part < m_parts.size() && m_pos >= m_parts[m_part].size()) {
                // The letters go on in the next part, behind an option byte of their own.
                if (!next())
                    return false;
                quint8 options = 0;
                if (!u8(&options))
                    return false;
                wide = options & 1;
            }
            if (m_part >= m_parts.size())
                return false;
            const QByteArrayView part = m_parts[m_part];
            const qint64 width = wide ? 2 : 1;
            const qint64 here = std::min<qint64>(count, (part.size() - m_pos) / width);
            if (here == 0) {
                // A two-byte letter split between parts: a damaged record.
                return false;
            }
            const char* data = part.data() + m_pos;
            if (wide) {
                for (qint64 i = 0; i < here; ++i)
                    out->append(QChar(qFromLittleEndian<quint16>(data + 2 * i)));
            } else {
                for (qint64 i = 0; i < here; ++i)
                    out->append(QLatin1Char(data[i]));
            }
            m_pos += here * width;
            count -= here;
        }
        return true;
    }
    bool bytes(qint64 count, QByteArray* out) {
        while (count > 0) {
            if (!settle())
                return false;
            const qint64 here = std::min<qint64>(count, m_parts[m_part].size() - m_pos);
            out->append(m_parts[m_part].data() + m_pos, here);
            m_pos += here;
            count -= here;
        }
        return true;
    }

private:
    bool next() {
        ++m_part;
        m_pos = 0;
        return m_part < m_parts.size();
    }
    // Moves past finished parts; false at the end of the last.
    bool settle() {
        while (m_part < m_parts.size() && m_pos >= m_parts[m_part].size()) {
            ++m_part;
            m_pos = 0;
        }
        return m_part < m_parts.size();
    }

    QList<QByteArrayView> m_parts;
    qsizetype m_part = 0;
    qsizetype m_pos = 0;
};

struct Record {
    quint16 id = 0;
    QByteArrayView data;
    Parts parts; // the data and the CONTINUE records behind it
};

class Records {
public:
    explicit Records(const QByteArray& stream, qsizetype from = 0)
        : m_stream(stream), m_pos(from) {}

    bool next(Record* record) {
        if (!header(m_pos, &record->id, &record->data))
            return false;
        m_pos += 4 + record->data.size();
        record->parts = Parts();
        record->parts.add(record->data);
        quint16 id = 0;
        QByteArrayView data;
        while (header(m_pos, &id, &data) && id == Continue) {
            record->parts.add(data);
            m_pos += 4 + data.size();
        }
        return true;
    }

private:
    bool header(qsizetype pos, quint16* id, QByteArrayView* data) const {
        if (pos < 0 || pos + 4 > m_stream.size())
            return false;
        *id = qFromLittleEndian<quint16>(m_stream.constData() + pos);
        const qsizetype size = qFromLittleEndian<quint16>(m_stream.constData() + pos + 2);
        // A record cut by the end of the stream keeps what is there.
        *data = QByteArrayView(m_stream.constData() + pos + 4,
                               std::min<qsizetype>(size, m_stream.size() - pos - 4));
        return true;
    }

    const QByteArray& m_stream;
    qsizetype m_pos;
};

quint16 u16At(QByteArrayView data, qsizetype at) {
    return at + 2 <= data.size() ? qFromLittleEndian<quint16>(data.data() + at) : 0;
}

quint32 u32At(QByteArrayView data, qsizetype at) {
    return at + 4 <= data.size() ? qFromLittleEndian<quint32>(data.data() + at) : 0;
}

double doubleAt(QByteArrayView data, qsizetype at) {
    double value = 0;
    if (at + 8 <= data.size())
        std::memcpy(&value, data.data() + at, sizeof value);
    return qFromLittleEndian(value);
}

double rkValue(quint32 rk) {
    double value = 0;
    if (rk & 2) {
        value = static_cast<qint32>(rk) >> 2;
    } else {
        const quint64 bits = quint64(rk & 0xFFFFFFFCU) << 32;
        std::memcpy(&value, &bits, sizeof value);
    }
    return (rk & 1) ? value / 100 : value;
}

QString errorText(quint8 code) {
    switch (code) {
    case 0x00:
        return QStringLiteral("#NULL!");
    case 0x07:
        return QStringLiteral("#DIV/0!");
    case 0x0F:
        return QStringLiteral("#VALUE!");
    case 0x17:
        return QStringLiteral("#REF!");
    case 0x1D:
        return QStringLiteral("#NAME?");
    case 0x24:
        return QStringLiteral("#NUM!");
    case 0x2A:
        return QStringLiteral("#N/A");
    default:
        return QStringLiteral("#ERR%1").arg(code);
    }
}

// The Qt name of a Windows code page number as the CODEPAGE record gives it.
QString codecName(quint16 codePage) {
    switch (codePage) {
    case 367:
        return QStringLiteral("US-ASCII");
    case 1200:
        return QStringLiteral("UTF-16LE");
    case 32768:
        return QStringLiteral("macintosh");
    case 32769:
    case 0:
        return QStringLiteral("windows-1252");
    default:
        return QStringLiteral("windows-%1").arg(codePage);
    }
}

class WorkbookParser {
public:
    explicit WorkbookParser(const QByteArray& stream) : m_stream(stream) {}

    bool parse(QList<BiffWorkbook::Sheet>* sheets) {
        Records records(m_stream);
        Record record;
        if (!records.next(&record) || record.id != Bof || record.data.size() < 4)
            return false;
        m_biff8 = u16At(record.data, 0) >= 0x0600;
        struct Bound {
            quint32 offset;
            QByteArray rawName;
            QString name;
        };
        QList<Bound> bounds;
        while (records.next(&record) && record.id != Eof) {
            switch (record.id) {
            case CodePage:
                m_codePage = u16At(record.data, 0);
                break;
            case DateMode:
                m_mac1904 = u16At(record.data, 0) == 1;
                break;
            case Format:
                readFormat(record);
                break;
            case Xf:
                // The cells name their format through the XF records, in the order given.
                if (m_xfFormats.size() < 0x10000)
                    m_xfFormats.append(u16At(record.data, 2));
                break;
            case BoundSheet: {
                if (record.data.size() < 7 || static_cast<quint8>(record.data[5]) != 0)
                    break; // only worksheets: not charts, macro or module sheets
                Bound bound{u32At(record.data, 0), {}, {}};
                Parts& parts = record.parts;
                parts.skip(6);
                quint8 length = 0;
                parts.u8(&length);
                if (m_biff8) {
                    quint8 options = 0;
                    if (parts.u8(&options))
                        parts.letters(length, options & 1, &bound.name);
                } else {
                    parts.bytes(length, &bound.rawName);
                }
                bounds.append(bound);
                break;
            }
            case Sst:
                readSst(record);
                break;
            default:
                break;
            }
        }
        m_decoder = QStringDecoder(codecName(m_codePage).toLatin1().constData());
        if (!m_decoder.isValid())
            m_decoder = QStringDecoder(QStringDecoder::Latin1);
        for (NumberFormat& format : m_formats) {
            if (!format.raw.isEmpty())
                format.text = decode(format.raw);
        }
        for (const Bound& bound : bounds) {
            BiffWorkbook::Sheet sheet;
            sheet.name = m_biff8 ? bound.name : decode(bound.rawName);
            readSheet(bound.offset, &sheet);
            sheets->append(sheet);
        }
        return true;
    }

private:
    struct NumberFormat {
        quint16 index = 0;
        QByteArray raw; // BIFF5: in the workbook's code page, decoded once it is known
        QString text;
    };

    QString decode(const QByteArray& bytes) { return m_decoder.decode(bytes); }

    // A string of the workbook whose count of letters is a byte (short) or two bytes.
    bool readString(Parts& parts, bool shortCount, QString* out) {
        quint16 count = 0;
        if (shortCount) {
            quint8 small = 0;
            if (!parts.u8(&small))
                return false;
            count = small;
        } else if (!parts.u16(&count)) {
            return false;
        }
        if (!m_biff8) {
            QByteArray raw;
            const bool whole = parts.bytes(count, &raw);
            *out = decode(raw);
            return whole;
        }
        return readLetters(parts, count, out);
    }

    // The rest of a BIFF8 unicode string after its count: options, runs, letters, extras.
    bool readLetters(Parts& parts, quint32 count, QString* out) {
        quint8 options = 0;
        if (!parts.u8(&options))
            return false;
        quint16 runs = 0;
        quint32 extra = 0;
        if ((options & 0x08) && !parts.u16(&runs))
            return false;
        if ((options & 0x04) && !parts.u32(&extra))
            return false;
        if (!parts.letters(count, options & 1, out))
            return false;
        return parts.skip(qint64(runs) * 4) && parts.skip(extra);
    }

    void readFormat(Record& record) {
        NumberFormat format;
        Parts& parts = record.parts;
        if (!parts.u16(&format.index))
            return;
        if (m_biff8) {
            readString(parts, false, &format.text);
        } else {
            quint8 length = 0;
            if (parts.u8(&length))
                parts.bytes(length, &format.raw);
        }
        m_formats.append(format);
    }

    void readSst(Record& record) {
        Parts& parts = record.parts;
        quint32 total = 0;
        quint32 unique = 0;
        if (!parts.u32(&total) || !parts.u32(&unique))
            return;
        // Each string takes at least three bytes, so the record's size bounds what is kept.
        m_sst.reserve(std::min<qsizetype>(unique, m_stream.size() / 3));
        for (quint32 i = 0; i < unique; ++i) {
            quint16 count = 0;
            QString text;
            if (!parts.u16(&count) || !readLetters(parts, count, &text))
                break;
            m_sst.append(text);
        }
    }

    // Whether the XF of a cell shows numbers as dates or times, and which.
    void dateKind(quint16 xf, bool* date, bool* time) const {
        *date = false;
        *time = false;
        if (xf >= m_xfFormats.size())
            return;
        const quint16 index = m_xfFormats[xf];
        if ((index >= 14 && index <= 17) || (index >= 27 && index <= 31) ||
            (index >= 34 && index <= 36) || (index >= 50 && index <= 58)) {
            *date = true;
        } else if ((index >= 18 && index <= 21) || (index >= 45 && index <= 47) || index == 32 ||
                   index == 33) {
            *time = true;
        } else if (index == 22) {
            *date = true;
            *time = true;
        } else if (index >= 164) {
            for (const NumberFormat& format : m_formats) {
                if (format.index == index) {
                    BiffWorkbook::classifyFormat(format.text, date, time);
                    break;
                }
            }
        }
    }

    BiffWorkbook::Cell numberCell(quint16 xf, double value) const {
        bool date = false;
        bool time = false;
        dateKind(xf, &date, &time);
        if ((date || time) && std::isfinite(value) && value >= 0 && value < 2958466)
            return {BiffWorkbook::dateText(value, m_mac1904, !date), BiffWorkbook::Kind::Date};
        return {QString::number(value, 'g', 15), BiffWorkbook::Kind::Number};
    }

    static void put(BiffWorkbook::Sheet* sheet, quint32 row, quint32 column,
                    const BiffWorkbook::Cell& cell) {
        if (row >= BiffWorkbook::MaxRows || column >= BiffWorkbook::MaxColumns)
            return;
        sheet->rows = std::max<int>(sheet->rows, static_cast<int>(row) + 1);
        sheet->columns = std::max<int>(sheet->columns, static_cast<int>(column) + 1);
        if (cell.kind != BiffWorkbook::Kind::Empty)
            sheet->cells.insert((row << 8) | column, cell);
    }

    void readSheet(quint32 offset, BiffWorkbook::Sheet* sheet) {
        if (offset >= static_cast<quint32>(m_stream.size()))
            return;
        Records records(m_stream, offset);
        Record record;
        if (!records.next(&record) || record.id != Bof)
            return;
        int depth = 0; // charts kept inside the sheet have a BOF and EOF of their own
        bool pendingString = false;
        quint16 pendingRow = 0;
        quint16 pendingColumn = 0;
        while (records.next(&record)) {
            if (record.id == Bof) {
                ++depth;
                continue;
            }
            if (record.id == Eof) {
                if (depth-- == 0)
                    break;
                continue;
            }
            if (depth > 0)
                continue;
            const QByteArrayView data = record.data;
            const quint16 row = u16At(data, 0);
            const quint16 column = u16At(data, 2);
            const quint16 xf = u16At(data, 4);
            // Shared and array formulas may stand between a FORMULA and its STRING.
            if (pendingString && record.id != String && record.id != 0x04BC &&
                record.id != 0x0221 && record.id != 0x0236)
                pendingString = false;
            switch (record.id) {
            case Dimensions: {
                const quint32 lastRow = m_biff8 ? u32At(data, 4) : u16At(data, 2);
                const quint16 lastColumn = m_biff8 ? u16At(data, 10) : u16At(data, 6);
                sheet->rows = std::max<int>(sheet->rows, std::min<quint32>(lastRow, 65536));
                sheet->columns = std::max<int>(sheet->columns, std::min<quint16>(lastColumn, 256));
                break;
            }
            case LabelSst:
                if (data.size() >= 10) {
                    const quint32 index = u32At(data, 6);
                    put(sheet, row, column,
                        {index < quint32(m_sst.size()) ? m_sst[index] : QString(),
                         BiffWorkbook::Kind::Text});
                }
                break;
            case Label:
            case RString: {
                Parts& parts = record.parts;
                QString text;
                if (data.size() >= 8 && parts.skip(6)) {
                    readString(parts, false, &text);
                    put(sheet, row, column, {text, BiffWorkbook::Kind::Text});
                }
                break;
            }
            case Number:
                if (data.size() >= 14)
                    put(sheet, row, column, numberCell(xf, doubleAt(data, 6)));
                break;
            case Rk:
                if (data.size() >= 10)
                    put(sheet, row, column, numberCell(xf, rkValue(u32At(data, 6))));
                break;
            case MulRk:
                for (qsizetype at = 4; at + 6 + 2 <= data.size(); at += 6) {
                    const quint32 each = column + quint32((at - 4) / 6);
                    put(sheet, row, each,
                        numberCell(u16At(data, at), rkValue(u32At(data, at + 2))));
                }
                break;
            case BoolErr:
                if (data.size() >= 8) {
                    const quint8 value = static_cast<quint8>(data[6]);
                    if (data[7])
                        put(sheet, row, column, {errorText(value), BiffWorkbook::Kind::Error});
                    else
                        put(sheet, row, column,
                            {QString::number(value ? 1 : 0), BiffWorkbook::Kind::Boolean});
                }
                break;
            case Formula:
                if (data.size() >= 14) {
                    if (u16At(data, 12) != 0xFFFF) {
                        put(sheet, row, column, numberCell(xf, doubleAt(data, 6)));
                        break;
                    }
                    const quint8 type = static_cast<quint8>(data[6]);
                    const quint8 value = static_cast<quint8>(data[8]);
                    if (type == 0) {
                        // The text follows in a STRING record.
                        pendingString = true;
                        pendingRow = row;
                        pendingColumn = column;
                        put(sheet, row, column, {QString(), BiffWorkbook::Kind::Empty});
                    } else if (type == 1) {
                        put(sheet, row, column,
                            {QString::number(value ? 1 : 0), BiffWorkbook::Kind::Boolean});
                    } else if (type == 2) {
                        put(sheet, row, column, {errorText(value), BiffWorkbook::Kind::Error});
                    } else {
                        put(sheet, row, column, {QString(), BiffWorkbook::Kind::Empty});
                    }
                }
                break;
            case String:
                if (pendingString) {
                    QString text;
                    readString(record.parts, false, &text);
                    put(sheet, pendingRow, pendingColumn, {text, BiffWorkbook::Kind::Text});
                    pendingString = false;
                }
                break;
            case 0x0201: // BLANK
                put(sheet, row, column, {});
                break;
            case 0x00BE: // MULBLANK
                if (data.size() >= 6)
                    put(sheet, row, u16At(data, data.size() - 2), {});
                break;
            default:
                break;
            }
        }
    }

    const QByteArray& m_stream;
    bool m_biff8 = true;
    bool m_mac1904 = false;
    quint16 m_codePage = 1252;
    QStringDecoder m_decoder;
    QList<quint16> m_xfFormats;
    QList<NumberFormat> m_formats;
    QStringList m_sst;
};

template <typename T> struct GObjectPtr {
    T* p = nullptr;
    ~GObjectPtr() {
        if (p)
            g_object_unref(p);
    }
};

} // namespace

BiffWorkbook::Cell BiffWorkbook::Sheet::cell(int row, int column) const {
    if (row < 0 || column < 0 || row >= MaxRows || column >= MaxColumns)
        return {};
    return cells.value((quint32(row) << 8) | quint32(column));
}

void BiffWorkbook::classifyFormat(const QString& format, bool* date, bool* time) {
    *date = false;
    *time = false;
    bool month = false;
    for (qsizetype i = 0; i < format.size(); ++i) {
        const QChar c = format[i].toLower();
        if (c == u'"') {
            const qsizetype end = format.indexOf(u'"', i + 1);
            i = end < 0 ? format.size() : end;
        } else if (c == u'\\' || c == u'_' || c == u'*') {
            ++i; // the character behind stands for itself
        } else if (c == u'[') {
            const qsizetype end = format.indexOf(u']', i + 1);
            const QString inside = format.mid(i + 1, end < 0 ? -1 : end - i - 1).toLower();
            // [h], [mm] and [ss] count elapsed time; other brackets are colours and locales.
            if (!inside.isEmpty() && inside.count(inside[0]) == inside.size() &&
                (inside[0] == u'h' || inside[0] == u'm' || inside[0] == u's'))
                *time = true;
            i = end < 0 ? format.size() : end;
        } else if (c == u'y' || c == u'd') {
            *date = true;
        } else if (c == u'h' || c == u's') {
            *time = true;
        } else if (c == u'm') {
            month = true;
        }
    }
    // "m" is the month unless hours or seconds stand beside it.
    if (month && !*time)
        *date = true;
}

QString BiffWorkbook::dateText(double serial, bool mac1904, bool timeOnly) {
    qint64 days = static_cast<qint64>(std::floor(serial));
    qint64 seconds = std::llround((serial - static_cast<double>(days)) * 86400.0);
    if (seconds >= 86400) {
        ++days;
        seconds -= 86400;
    }
    QDate day;
    if (mac1904)
        day = QDate(1904, 1, 1).addDays(days);
    else if (days < 61)
        day = QDate(1899, 12, 31).addDays(days); // before the leap day 1900 never had
    else
        day = QDate(1899, 12, 30).addDays(days);
    const QString clock = QStringLiteral("%1:%2:%3")
                              .arg(seconds / 3600, 2, 10, QLatin1Char('0'))
                              .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
                              .arg(seconds % 60, 2, 10, QLatin1Char('0'));
    if (timeOnly)
        return clock;
    return day.toString(QStringLiteral("yyyy-MM-dd")) + QLatin1Char(' ') + clock;
}

bool BiffWorkbook::readStream(const QByteArray& stream, QList<Sheet>* sheets) {
    sheets->clear();
    return WorkbookParser(stream).parse(sheets);
}

bool BiffWorkbook::readFile(const QString& path, QList<Sheet>* sheets) {
    sheets->clear();
    const qint64 fileSize = QFileInfo(path).size();
    GError* error = nullptr;
    GObjectPtr<GsfInput> input{gsf_input_stdio_new(QFile::encodeName(path).constData(), &error)};
    g_clear_error(&error);
    if (!input.p)
        return false;
    GObjectPtr<GsfInfile> ole{gsf_infile_msole_new(input.p, &error)};
    g_clear_error(&error);
    if (!ole.p)
        return false;
    int found = -1;
    for (int i = 0; i < gsf_infile_num_children(ole.p); ++i) {
        const QString name = QString::fromUtf8(gsf_infile_name_by_index(ole.p, i));
        if (name.compare(QLatin1String("Workbook"), Qt::CaseInsensitive) == 0) {
            found = i;
            break;
        }
        if (name.compare(QLatin1String("Book"), Qt::CaseInsensitive) == 0)
            found = i;
    }
    if (found < 0)
        return false;
    GObjectPtr<GsfInput> child{gsf_infile_child_by_index(ole.p, found)};
    if (!child.p)
        return false;
    // A stream holds no more than the file does, whatever a damaged directory claims.
    const qint64 size = std::min<qint64>(gsf_input_size(child.p), fileSize);
    QByteArray stream;
    constexpr qint64 Chunk = 65536;
    while (stream.size() < size) {
        const qint64 here = std::min<qint64>(Chunk, size - stream.size());
        const qsizetype at = stream.size();
        stream.resize(at + here);
        if (!gsf_input_read(child.p, static_cast<size_t>(here),
                            reinterpret_cast<guint8*>(stream.data() + at))) {
            stream.resize(at); // keep what was readable before a broken sector
            break;
        }
    }
    return WorkbookParser(stream).parse(sheets);
}
