#include "shell/FindMasks.h"

#include "shell/FileTypes.h"

using namespace Qt::StringLiterals;

namespace FindMasks {

namespace {

constexpr int kPictureRowsFilter = 26; // rows 22 and up of the pictures tab
constexpr int kAllPictures = 27;
constexpr int kAllMultiMedia = 29;
constexpr int kText = 31;
constexpr int kDatabase = 32;
constexpr int kAllFiles = 33;

std::vector<Row> pictureRows() {
    const QStringList captions = {
        u"JPEG and LEAD Compressed"_s,
        u"TIFF Formats (TIF and TIFF)"_s,
        u"BMP Formats"_s,
        u"Icons and Cursors"_s,
        u"PCX Formats"_s,
        u"Kodak Formats (PCD And FPX)"_s,
        u"Microsoft Fax Format (AWD)"_s,
        u"Exif Formats (TIFF And JPG)"_s,
        u"Windows MetaFile Formats (WMF,EMF)"_s,
        u"Drawing Interchange Format (DXF)"_s,
        u"XPicMap (XPM)"_s,
        u"Interchange Format (IFF)"_s,
        u"Portable Bitmap Utilities (PBM)"_s,
        u"Dr.Halo (CUT)"_s,
        u"Photoshop 3.0 Format (PSD)"_s,
        u"Portable Network Graphics Format (PNG)"_s,
        u"Truevision TARGA Format (TGA)"_s,
        u"Encapsulated PostScript (EPS)"_s,
        u"JBIG Format (JBG)"_s,
        u"SUN Raster Format (RAS)"_s,
        u"WordPerfect Format (WPG)"_s,
        u"Macintosh Pict Format (PCT)"_s,
        u"Miscellaneous 1 Bit (MAC,IMG,MSP)"_s,
    };
    const QStringList masks = {
        u"*.JPG;*.CMP"_s,
        u"*.TIFF;*.TIF"_s,
        u"*.BMP"_s,
        u"*.ICO;*.CUR"_s,
        u"*.PCX"_s,
        u"*.PCD;*.FPX"_s,
        u"*.AWD"_s,
        u"*.TIFF;*.JPG"_s,
        u"*.WMF;*.EMF"_s,
        u"*.DXF"_s,
        u"*.XPM"_s,
        u"*.IFF"_s,
        u"*.PBM"_s,
        u"*.CUT"_s,
        u"*.PSD"_s,
        u"*.PNG"_s,
        u"*.TGA"_s,
        u"*.EPS"_s,
        u"*.JBG"_s,
        u"*.RAS"_s,
        u"*.WPG"_s,
        u"*.PCT"_s,
        u"*.MAC;*.IMG;*.MSP"_s,
    };
    std::vector<Row> rows;
    for (int i = 0; i < captions.size(); ++i)
        rows.push_back({captions[i], masks[i], i < 22 ? i : kPictureRowsFilter});
    return rows;
}

std::vector<Row> sameFilter(const std::vector<std::pair<QString, QString>>& pairs, int filter) {
    std::vector<Row> rows;
    for (const auto& [caption, mask] : pairs)
        rows.push_back({caption, mask, filter});
    return rows;
}

QString filterMask(int row) {
    return FileTypes::filterRows()[static_cast<size_t>(row)].mask;
}

} // namespace

QString tabCaption(int tab) {
    static const QStringList captions = {u"Pictures"_s, u"MultiMedia"_s, u"Text"_s, u"Database"_s,
                                         u"Miscellaneous"_s};
    return captions.value(tab);
}

QString groupName(int tab) {
    static const QStringList names = {u"RDPICT"_s, u"RDMEDIA"_s, u"RDTEXT"_s, u"RDDATA"_s,
                                      u"RDMISC"_s};
    return names.value(tab);
}

const std::vector<Row>& rows(int tab) {
    static const std::vector<Row> tabs[TabCount] = {
        pictureRows(),
        // Row 8 searches WAV twice where its caption names RMI.
        sameFilter(
            {{u"Wave Files (WAV)"_s, u"*.WAV"_s},
             {u"MIDI Files (MID,RMI)"_s, u"*.MID;*.RMI"_s},
             {u"Music Files (MP3)"_s, u"*.MP3"_s},
             {u"Music Files (M3U)"_s, u"*.M3U"_s},
             {u"AudioVideo Files (AVI)"_s, u"*.AVI"_s},
             {u"AudioVideo Files (MPG)"_s, u"*.MPG"_s},
             {u"AudioVideo Files (MOV)"_s, u"*.MOV"_s},
             {u"AudioVideo Files (AVI,MPG,MOV)"_s, u"*.AVI;*.MPG;*.MOV"_s},
             {u"All Sound and Music (WAV,MID,RMI,MP3,M3U)"_s, u"*.WAV;*.MID;*.WAV;*.MP3;*.M3U"_s}},
            kAllMultiMedia),
        sameFilter(
            {{u"Text Files (TXT)"_s, u"*.TXT"_s},
             {u"RichText Format (RTF)"_s, u"*.RTF"_s},
             {u"HyperText (HTM,HTML)"_s, u"*.HTM;*.HTML"_s},
             {u"Microsoft Word (DOC)"_s, u"*.DOC"_s},
             {u"Microsoft Works (WPS)"_s, u"*.WPS"_s},
             {u"Write Document Files (WRI)"_s, u"*.WRI"_s},
             {u"List Files (LST)"_s, u"*.LST"_s},
             {u"Web Site Address (URL)"_s, u"*.URL"_s},
             {u"System Batch Files (BAT)"_s, u"*.BAT"_s},
             {u"Backup Files (BAK)"_s, u"*.BAK"_s},
             {u"System Configuration (SYS)"_s, u"*.SYS"_s},
             {u"LOG Files (LOG)"_s, u"*.LOG"_s},
             {u"DOS Files (DOS)"_s, u"*.DOS"_s},
             {u"Message Files (MSG)"_s, u"*.MSG"_s},
             {u"Program Initialization (INI)"_s, u"*.INI"_s},
             {u"All Text File Types (TXT,RTF,HTM,HTML)"_s, u"*.TXT;*.RTF;*.HTM;*.HTML"_s},
             {u"Basic System File Types (SYS,DOS,BAT)"_s, u"*.SYS;*.BAT;*.BAK;*.DOS"_s},
             {u"Miscellaneous System Files (INI,URL,MSG,LOG)"_s, u"*.INI;*.URL;*.MSG;*.LOG"_s},
             {u"All Document Types (DOC,WRI,WPS)"_s, u"*.DOC;*.WRI;*.WPS"_s}},
            kText),
        sameFilter(
            {{u"DBase Files (DBF)"_s, u"*.DBF"_s},
             {u"Paradox Files (DB)"_s, u"*.DB"_s},
             {u"Access Files (MDB)"_s, u"*.MDB"_s},
             {u"Excel Files (XLS)"_s, u"*.XLS"_s},
             {u"Lotus Files (WK4)"_s, u"*.WK4"_s},
             {u"Spread Sheet Files (XLS,WK4)"_s, u"*.XLS;*.WK4"_s},
             {u"Database (DBF,DB,MDB)"_s, u"*.DBF;*.DB;*.MDB"_s},
             {u"All of the Above Files (DBF,DB,MDB,XLS,WK4)"_s, u"*.DBF;*.DB;*.MDB;*.XLS;*.WK4"_s}},
            kDatabase),
        {{u"All Picture Files"_s, filterMask(kAllPictures), kAllPictures},
         {u"All Multimedia Files"_s, filterMask(kAllMultiMedia), kAllMultiMedia},
         {u"All Text Files"_s, filterMask(kText), kText},
         {u"All Database Files"_s, filterMask(kDatabase), kDatabase},
         {u"Find File or Global Search Entered Below:"_s, QString(), kAllFiles}},
    };
    static const std::vector<Row> none;
    return tab >= 0 && tab < TabCount ? tabs[tab] : none;
}

Choice choose(int tab, int row, const QString& entered) {
    if (!entered.trimmed().isEmpty()) {
        const Row& typed = rows(Miscellaneous)[EnteredRow];
        return {entered, typed.filterRow, typed.caption};
    }
    const std::vector<Row>& tabRows = rows(tab);
    if (row < 0 || row >= int(tabRows.size()))
        return {};
    const Row& chosen = tabRows[static_cast<size_t>(row)];
    return {chosen.mask, chosen.filterRow, chosen.caption};
}

} // namespace FindMasks
