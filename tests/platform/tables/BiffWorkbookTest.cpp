#include "platform/tables/BiffWorkbook.h"

#include <QtEndian>

#include <gtest/gtest.h>

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

// Builds a workbook stream record by record.
class Stream {
public:
    Stream& record(quint16 id, const QByteArray& data) {
        m_bytes += le16(id) + le16(static_cast<quint16>(data.size())) + data;
        return *this;
    }
    qsizetype size() const { return m_bytes.size(); }
    QByteArray& bytes() { return m_bytes; }

    static QByteArray le16(quint16 v) {
        QByteArray b(2, '\0');
        qToLittleEndian(v, b.data());
        return b;
    }
    static QByteArray le32(quint32 v) {
        QByteArray b(4, '\0');
        qToLittleEndian(v, b.data());
        return b;
    }
    static QByteArray f64(double v) {
        QByteArray b(8, '\0');
        std::memcpy(b.data(), &v, 8);
        return b;
    }
    static QByteArray cell(quint16 row, quint16 column, quint16 xf = 15) {
        return le16(row) + le16(column) + le16(xf);
    }

private:
    QByteArray m_bytes;
};

QByteArray bof(quint16 version, quint16 type) {
    return Stream::le16(version) + Stream::le16(type) + QByteArray(12, '\0');
}

// A workbook of one sheet holding the cells the caller writes: BIFF8 (version 0x0600) by
// default, with the sheet's name as its BOUNDSHEET record stores it.
QByteArray workbook(const std::function<void(Stream&)>& globals,
                    const std::function<void(Stream&)>& cells, quint16 version = 0x0600,
                    const QByteArray& name = QByteArray("\x04\x00", 2) + "Data") {
    Stream head;
    head.record(0x0809, bof(version, 0x0005));
    globals(head);
    // BOUNDSHEET: its offset is patched once the globals' size is known.
    head.record(0x0085, Stream::le32(0) + QByteArray(2, '\0') + name);
    const qsizetype boundAt = head.size() - name.size() - 6;
    head.record(0x000A, {});
    Stream sheet;
    sheet.record(0x0809, bof(version, 0x0010));
    cells(sheet);
    sheet.record(0x000A, {});
    qToLittleEndian<quint32>(static_cast<quint32>(head.size()), head.bytes().data() + boundAt);
    return head.bytes() + sheet.bytes();
}

// XF 0 to 15 General; XF 16 the date format 14, XF 17 a custom one.
void dateFormats(Stream& s, const QString& custom) {
    QByteArray text = Stream::le16(static_cast<quint16>(custom.size())) + '\0' + custom.toLatin1();
    s.record(0x041E, Stream::le16(164) + text);
    for (int i = 0; i < 16; ++i)
        s.record(0x00E0, Stream::le16(0) + Stream::le16(0) + QByteArray(16, '\0'));
    s.record(0x00E0, Stream::le16(0) + Stream::le16(14) + QByteArray(16, '\0'));
    s.record(0x00E0, Stream::le16(0) + Stream::le16(164) + QByteArray(16, '\0'));
}

} // namespace

TEST(BiffWorkbook, SharedStringsRunOnThroughContinueRecordsChangingWidth) {
    const QByteArray stream = workbook(
        [](Stream& s) {
            // Three strings; the second starts as one-byte letters in the SST and goes on as
            // two-byte letters in the CONTINUE; the third sits wholly in the CONTINUE.
            QByteArray sst = Stream::le32(3) + Stream::le32(3);
            sst += Stream::le16(2) + '\0' + "ab";
            sst += Stream::le16(5) + '\0' + "Zo";
            QByteArray more = QByteArray(1, '\x01') + QByteArray("\xEB\x00", 2) + // ë
                              QByteArray("!\0?\0", 4);
            more += Stream::le16(1) + QByteArray(1, '\x08') + Stream::le16(1) + "x" +
                    Stream::le32(0); // rich text: one run of four bytes
            s.record(0x00FC, sst).record(0x003C, more);
        },
        [](Stream& s) {
            s.record(0x00FD, Stream::cell(0, 0) + Stream::le32(1));
            s.record(0x00FD, Stream::cell(0, 1) + Stream::le32(2));
            s.record(0x00FD, Stream::cell(1, 0) + Stream::le32(0));
            s.record(0x00FD, Stream::cell(1, 1) + Stream::le32(99)); // beyond the table
        });
    QList<BiffWorkbook::Sheet> sheets;
    ASSERT_TRUE(BiffWorkbook::readStream(stream, &sheets));
    ASSERT_EQ(sheets.size(), 1);
    EXPECT_EQ(sheets[0].name, u"Data"_s);
    EXPECT_EQ(sheets[0].cell(0, 0).text, u"Zoë!?"_s);
    EXPECT_EQ(sheets[0].cell(0, 1).text, u"x"_s);
    EXPECT_EQ(sheets[0].cell(1, 0).text, u"ab"_s);
    EXPECT_EQ(sheets[0].cell(1, 1).text, QString());
}

TEST(BiffWorkbook, NumbersFormulasBooleansAndDates) {
    const QByteArray stream = workbook(
        [](Stream& s) { dateFormats(s, u"hh:mm"_s); },
        [](Stream& s) {
            s.record(0x0200, Stream::le32(0) + Stream::le32(4) + Stream::le16(0) + Stream::le16(6) +
                                 Stream::le16(0));
            s.record(0x0203, Stream::cell(0, 0) + Stream::f64(2.5));
            s.record(0x027E, Stream::cell(0, 1) + Stream::le32((1234u << 2) | 2 | 1)); // 12.34
            // MULRK: columns 2 to 4, an integer, a double's high bits, a date by XF 16.
            quint64 bits = 0;
            const double half = -0.5;
            std::memcpy(&bits, &half, 8);
            s.record(0x00BD, Stream::le16(0) + Stream::le16(2) + Stream::le16(15) +
                                 Stream::le32((7u << 2) | 2) + Stream::le16(15) +
                                 Stream::le32(static_cast<quint32>(bits >> 32)) + Stream::le16(16) +
                                 Stream::le32((38406u << 2) | 2) + Stream::le16(4));
            s.record(0x0205, Stream::cell(1, 0) + QByteArray("\x01\x00", 2));
            s.record(0x0205, Stream::cell(1, 1) + QByteArray("\x07\x01", 2));
            // A formula with a text result: the text is in the STRING record behind it.
            s.record(0x0006, Stream::cell(1, 2) +
                                 QByteArray("\x00\x00\x00\x00\x00\x00\xFF\xFF", 8) +
                                 QByteArray(6, '\0'));
            s.record(0x0207, Stream::le16(3) + '\0' + "sum");
            s.record(0x0006, Stream::cell(1, 3, 17) + Stream::f64(0.75) + QByteArray(6, '\0'));
            s.record(0x0006, Stream::cell(1, 4) +
                                 QByteArray("\x01\x00\x01\x00\x00\x00\xFF\xFF", 8) +
                                 QByteArray(6, '\0'));
            s.record(0x0204, Stream::cell(2, 5) + Stream::le16(2) + '\x01' +
                                 QByteArray("\x41\x04\x42\x04", 4)); // Cyrillic "ab"
            s.record(0x0201, Stream::cell(3, 0));
        });
    QList<BiffWorkbook::Sheet> sheets;
    ASSERT_TRUE(BiffWorkbook::readStream(stream, &sheets));
    ASSERT_EQ(sheets.size(), 1);
    const BiffWorkbook::Sheet& sheet = sheets[0];
    EXPECT_EQ(sheet.rows, 4);
    EXPECT_EQ(sheet.columns, 6);
    const QList<QStringList> texts{
        {u"2.5"_s, u"12.34"_s, u"7"_s, u"-0.5"_s, u"2005-02-23 00:00:00"_s, {}},
        {u"1"_s, u"#DIV/0!"_s, u"sum"_s, u"18:00:00"_s, u"1"_s, {}},
        {{}, {}, {}, {}, {}, u"ст"_s},
        {{}, {}, {}, {}, {}, {}}};
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 6; ++c)
            EXPECT_EQ(sheet.cell(r, c).text, texts[r][c]) << r << "," << c;
    }
    EXPECT_EQ(sheet.cell(0, 0).kind, BiffWorkbook::Kind::Number);
    EXPECT_EQ(sheet.cell(0, 4).kind, BiffWorkbook::Kind::Date);
    EXPECT_EQ(sheet.cell(1, 0).kind, BiffWorkbook::Kind::Boolean);
    EXPECT_EQ(sheet.cell(3, 0).kind, BiffWorkbook::Kind::Empty);
}

TEST(BiffWorkbook, Biff5StringsFollowTheCodePage) {
    const QByteArray stream = workbook([](Stream& s) { s.record(0x0042, Stream::le16(1251)); },
                                       [](Stream& s) {
                                           s.record(0x0204, Stream::cell(0, 0) + Stream::le16(3) +
                                                                QByteArray("\xC4\xE0\x21", 3));
                                       },
                                       0x0500, QByteArray("\x02\xC0\xE1", 3));
    QList<BiffWorkbook::Sheet> sheets;
    ASSERT_TRUE(BiffWorkbook::readStream(stream, &sheets));
    ASSERT_EQ(sheets.size(), 1);
    EXPECT_EQ(sheets[0].name, u"Аб"_s);
    EXPECT_EQ(sheets[0].cell(0, 0).text, u"Да!"_s);
}

TEST(BiffWorkbook, DatesAndFormats) {
    struct Format {
        const char16_t* text;
        bool date, time;
    };
    const Format formats[] = {{u"DD/MM/YYYY", true, false},
                              {u"H:MM:SS\\ AM/PM", false, true},
                              {u"[$-407]DDDD, MMMM DD, YYYY hh:mm", true, true},
                              {u"#,##0.00 \"Std.\";[Red]-#,##0.00", false, false},
                              {u"[h]:mm", false, true},
                              {u"0.00E+00", false, false}};
    for (const Format& f : formats) {
        bool date = !f.date;
        bool time = !f.time;
        BiffWorkbook::classifyFormat(QString::fromUtf16(f.text), &date, &time);
        EXPECT_EQ(date, f.date) << QString::fromUtf16(f.text).toStdString();
        EXPECT_EQ(time, f.time) << QString::fromUtf16(f.text).toStdString();
    }

    EXPECT_EQ(BiffWorkbook::dateText(38406, false, false), u"2005-02-23 00:00:00"_s);
    EXPECT_EQ(BiffWorkbook::dateText(40776.43315972222, false, false), u"2011-08-21 10:23:45"_s);
    EXPECT_EQ(BiffWorkbook::dateText(0.4583333333333333, false, true), u"11:00:00"_s);
    EXPECT_EQ(BiffWorkbook::dateText(0.99999999, false, true), u"00:00:00"_s);
    EXPECT_EQ(BiffWorkbook::dateText(1, false, false), u"1900-01-01 00:00:00"_s);
    EXPECT_EQ(BiffWorkbook::dateText(61, false, false), u"1900-03-01 00:00:00"_s);
    EXPECT_EQ(BiffWorkbook::dateText(0, true, false), u"1904-01-01 00:00:00"_s);
}

TEST(BiffWorkbook, DamagedStreamsGiveWhatIsReadable) {
    const QByteArray good =
        workbook([](Stream&) {},
                 [](Stream& s) {
                     for (quint16 r = 0; r < 50; ++r)
                         s.record(0x0203, Stream::cell(r, r % 3) + Stream::f64(r));
                 });
    QList<BiffWorkbook::Sheet> sheets;
    EXPECT_FALSE(BiffWorkbook::readStream({}, &sheets));
    EXPECT_FALSE(BiffWorkbook::readStream(QByteArray(64, '\xFF'), &sheets));
    for (qsizetype cut = 1; cut < good.size(); cut += 7) {
        BiffWorkbook::readStream(good.left(cut), &sheets);
        for (const BiffWorkbook::Sheet& sheet : sheets) {
            EXPECT_LE(sheet.rows, BiffWorkbook::MaxRows);
            EXPECT_LE(sheet.columns, BiffWorkbook::MaxColumns);
        }
    }
    // Every byte flipped in turn: sizes and offsets that point anywhere.
    for (qsizetype at = 0; at < good.size(); ++at) {
        QByteArray bad = good;
        bad[at] = static_cast<char>(bad[at] ^ 0xA5);
        BiffWorkbook::readStream(bad, &sheets);
        for (const BiffWorkbook::Sheet& sheet : sheets) {
            EXPECT_LE(sheet.rows, BiffWorkbook::MaxRows);
            EXPECT_LE(sheet.columns, BiffWorkbook::MaxColumns);
            EXPECT_LE(sheet.cells.size(), 50);
        }
    }
    // A huge claimed count of shared strings in a small record holds nothing.
    const QByteArray claims = workbook(
        [](Stream& s) { s.record(0x00FC, Stream::le32(0xFFFFFFFF) + Stream::le32(0xFFFFFFFF)); },
        [](Stream& s) { s.record(0x00FD, Stream::cell(0, 0) + Stream::le32(0x7FFFFFFF)); });
    ASSERT_TRUE(BiffWorkbook::readStream(claims, &sheets));
    EXPECT_EQ(sheets.value(0).cell(0, 0).text, QString());
}
