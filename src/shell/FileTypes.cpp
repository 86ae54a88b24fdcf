#include "shell/FileTypes.h"

#include "shell/Globals.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace FileTypes {

const QStringList& extensionTable() {
    static const QStringList table = {
        // 0-27 pictures
        u"JPG"_s,
        u"CMP"_s,
        u"TIFF"_s,
        u"TIF"_s,
        u"MPT"_s,
        u"BMP"_s,
        u"ICO"_s,
        u"CUR"_s,
        u"PCX"_s,
        u"DCX"_s,
        u"PCD"_s,
        u"FPX"_s,
        u"AWD"_s,
        u"WMF"_s,
        u"EMF"_s,
        u"DXF"_s,
        u"XPM"_s,
        u"IFF"_s,
        u"PBM"_s,
        u"CUT"_s,
        u"PSD"_s,
        u"PNG"_s,
        u"TGA"_s,
        u"EPS"_s,
        u"JBG"_s,
        u"RAS"_s,
        u"WPG"_s,
        u"PCT"_s,
        // 28-30 sound, 31-33 audio and video, 34-35 music
        u"WAV"_s,
        u"MID"_s,
        u"RMI"_s,
        u"AVI"_s,
        u"MPG"_s,
        u"MOV"_s,
        u"MP3"_s,
        u"M3U"_s,
        // 36-38 1-bit pictures
        u"MAC"_s,
        u"IMG"_s,
        u"MSP"_s,
        // 39-55 text
        u"TXT"_s,
        u"RTF"_s,
        u"INI"_s,
        u"LOG"_s,
        u"BAT"_s,
        u"BAK"_s,
        u"DOS"_s,
        u"SYS"_s,
        u"DOC"_s,
        u"WPS"_s,
        u"WDB"_s,
        u"WRI"_s,
        u"LST"_s,
        u"HTM"_s,
        u"HTML"_s,
        u"URL"_s,
        u"MSG"_s,
        // 56-57 CD player files
        u"DAT"_s,
        u"CDA"_s,
        // 58-62 database
        u"DBF"_s,
        u"DB"_s,
        u"MDB"_s,
        u"XLS"_s,
        u"WK4"_s,
    };
    return table;
}

const std::array<FilterRow, FilterRowCount>& filterRows() {
    static const QString allPictures =
        u"*.JPG;*.CMP;*.TIFF;*.TIF;*.MPT;*.BMP;*.ICO;*.CUR;*.PCX;*.DCX;*.PCD;*.FPX;*.DIC;*.WMF;"
        u"*.EMF;*.DXF;*.XPM;*.IFF;*.PBM;*.CUT;*.PSD;*.PNG;*.TGA;*.EPS;*.JBG;*.RAS;*.WPG;*.PCT;"
        u"*.MAC;*.IMG;*.MSP"_s;
    static const QString allPicturesAndMedia =
        u"*.JPG;*.CMP;*.TIFF;*.TIF;*.MPT;*.BMP;*.ICO;*.CUR;*.PCX;*.DCX;*.PCD;*.FPX;*.DIC;*.WMF;"
        u"*.EMF;*.DXF;*.XPM;*.IFF;*.PBM;*.CUT;*.PSD;*.PNG;*.TGA;*.EPS;*.JBG;*.RAS;*.WPG;*.PCT;"
        u"*.WAV;*.MID;*.RMI;*.AVI;*.MPG;*.MOV;*.MP3;*.M3U;*.MAC;*.IMG;*.MSP"_s;
    static const std::array<FilterRow, FilterRowCount> rows = {{
        {u"JPEG and LEAD Compressed (JPG and CMP)"_s, u"*.JPG;*.CMP"_s},
        {u"TIFF Formats"_s, u"*.TIFF;*.TIF;*.MPT"_s},
        {u"BMP Formats"_s, u"*.BMP"_s},
        {u"Icons and Cursors"_s, u"*.ICO;*.CUR"_s},
        {u"PCX Formats"_s, u"*.PCX;*.DCX"_s},
        {u"Kodak Formats (PCD And FPX)"_s, u"*.PCD;*.FPX"_s},
        {u"Microsoft Fax Format (AWD)"_s, u"*.AWD"_s},
        {u"Exif Formats (TIFF And JPG)"_s, u"*.TIFF;*.TIF;*.JPG"_s},
        {u"Windows MetaFile Formats (WMF and EMF)"_s, u"*.WMF;*.EMF"_s},
        {u"Drawing Interchange Format (DXF)"_s, u"*.DXF"_s},
        {u"XPicMap (XPM)"_s, u"*.XPM"_s},
        {u"Interchange Format (IFF)"_s, u"*.IFF"_s},
        {u"Portable Bitmap Utilities (PBM)"_s, u"*.PBM"_s},
        {u"Dr.Halo (CUT)"_s, u"*.CUT"_s},
        {u"Photoshop 3.0 Format (PSD)"_s, u"*.PSD"_s},
        {u"Portable Network Graphics Format (PNG)"_s, u"*.PNG"_s},
        {u"Truevision TARGA Format (TGA)"_s, u"*.TGA"_s},
        {u"Encapsulated PostScript (EPS)"_s, u"*.EPS"_s},
        {u"JBIG Format (JBG)"_s, u"*.JBG"_s},
        {u"SUN Raster Format (RAS)"_s, u"*.RAS"_s},
        {u"WorkPerfect Format (WPG)"_s, u"*.WPG"_s},
        {u"Macintosh Pict Format (PCT)"_s, u"*.PCT"_s},
        {u"Wave Files (WAV)"_s, u"*.WAV"_s},
        {u"MIDI Files (MID, RMI)"_s, u"*.MID;*.RMI"_s},
        {u"Audio-Video (AVI, MPG, MOV)"_s, u"*.AVI;*.MPG;*.MOV"_s},
        {u"Music Files (MP3,MIDI)"_s, u"*.MID;*.RMI;*.MP3;*.M3U"_s},
        {u"Miscellaneous"_s, u"*.MAC;*.IMG;*.MSP"_s},
        {u"All Picture Files"_s, allPictures},
        {u"CD Player Files"_s, u"*.CDA;*.DAT"_s},
        {u"All MultiMedia Files"_s, u"*.WAV;*.MID;*.RMI;*.MP3;*.M3U;*.AVI;*.MPG;*.MOV"_s},
        {u"All Image and MultiMedia Files"_s, allPicturesAndMedia},
        {u"Text Files (TXT,RTF,INI,LOG,BAT,BAK,DOS,SYS,DOC,WPS,WDB,WRI,LST,HTM,HTML,URL,MSG)"_s,
         u"*.TXT;*.RTF;*.INI;*LOG;*.BAT;*.BAK;*.DOS;*.SYS;*.DOC;*.WPS;*.WDB;*.WRI;*.LST;*.HTM;"
         u"*.HTML;*.URL;*.MSG"_s},
        {u"Database Files (DBase,Paradox,Access,Excel,Lotus)"_s, u"*.DBF;*.DB;*.MDB;*.XLS;*.WK4"_s},
        {u"All Files (*.*)"_s, u"*.*"_s},
    }};
    return rows;
}

QString dialogFilter() {
    return u"JPeg and Lead Compressed|*.JPG;*.CMP|"
           u"TIFF Formats|*.TIFF;*.TIF;*.MPT|"
           u"Bitmap Files|*.BMP|"
           u"Icons and Cursor FIles|*.ICO;*.CUR|"
           u"PCX Formats|*.PCX;*.DCX|"
           u"Kodak Formats|*.PCD;*.FPX|"
           u"Microsoft Fax |*.AWD|"
           u"Meta Files|*.WMF;*.EMF|"
           u"Drawing Interchange Format|*.DXF|"
           u"XPicMap|*.XPM|"
           u"Interchange File Format|*.IFF|"
           u"Portable Bitmap Utilities|*.PBM|"
           u"Dr. Halo|*.CUT|"
           u"Photoshop 3.0 Format|*.PSD|"
           u"Portable Network Graphics Format|*.PNG|"
           u"TrueVision TARGA Format|*.TGA|"
           u"Encapsulated PostScript|*.EPS|"
           u"JBIG Format|*.JBG|"
           u"Sun Raster Format|*.RAS|"
           u"WordPerfect Format|*.WPG|"
           u"Macintosh Pict Format|*.PCT|"
           u"Sounds/Wave Files|*.WAV|"
           u"MIDI Files|*.MID;*.RMI|"
           u"Audio/Video Files|*.AVI;*.MPG;*.MOV|"
           u"Music Files|*.MP3;*.M3U|"
           u"Miscellaneous 1-Bit Formats|*.MAC;*.IMG;*.MSP|"
           u"Text Files|*.TXT;*.RTF;*.INI;*.LOG;*.BAT;*.BAK;*.DOS;*.SYS;*.DOC;*.WPS;*.WDB;*.WRI;"
           u"*.LST;*.HTM;*.HTML;*.URL;*.MSG|"
           u"Database Files|*.DBF;*.DB;*.MDB;*.XLS;*.WK4"_s;
}

QString GetFileExt(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot < 0)
        return {};
    return name.mid(dot + 1).toUpper();
}

int indexOf(const QStringList& table, const QString& ext) {
    for (int i = 0; i < table.size(); ++i) {
        if (table[i] == ext)
            return i;
    }
    return ExtensionCount;
}

bool GetFileTypeFlag(const QString& name, Globals& g, QString& mFileExt, bool& mIsTextFile) {
    mIsTextFile = false;
    g.gIsDatabaseFile = false;
    mFileExt = GetFileExt(name);
    if (mFileExt.trimmed().isEmpty()) {
        g.gCurrentFile.clear();
        return false;
    }
    const int i = indexOf(g.gFileExtTable, mFileExt);
    if (i >= ExtensionCount)
        return false;
    if (i >= FirstTextIndex && i <= LastTextIndex)
        mIsTextFile = true;
    if (i >= FirstDatabaseIndex && i <= LastDatabaseIndex)
        g.gIsDatabaseFile = true;
    return true;
}

QString CreateOpenFileExt(const QStringList& table) {
    QString mask;
    for (const QString& ext : table)
        mask += u"*."_s + ext + u';';
    mask.chop(1);
    return mask;
}

qint16 GetFileFormatCode(const QString& ext) {
    static const QHash<QString, qint16> codes = {
        {u"JPG"_s, 10},  {u"TIFF"_s, 3},  {u"TIF"_s, 3},  {u"MPT"_s, 3},   {u"BMP"_s, 6},
        {u"ICO"_s, 91},  {u"CUR"_s, 92},  {u"PCX"_s, 1},  {u"DCX"_s, 1},   {u"PCD"_s, 57},
        {u"FPX"_s, 80},  {u"DIC"_s, 90},  {u"WMF"_s, 15}, {u"EMF"_s, 116}, {u"DXF"_s, 58},
        {u"XPM"_s, 109}, {u"IFF"_s, 112}, {u"PBM"_s, 75}, {u"CUT"_s, 108}, {u"PSD"_s, 76},
        {u"PNG"_s, 75},  {u"TGA"_s, 4},   {u"EPS"_s, 16}, {u"JBG"_s, 115}, {u"RAS"_s, 55},
        {u"WPG"_s, 54},  {u"PCT"_s, 56},  {u"MAC"_s, 51}, {u"IMG"_s, 52},  {u"MSP"_s, 53},
    };
    return codes.value(ext, 0);
}

bool isPictureExt(const QString& ext) {
    const int i = indexOf(extensionTable(), ext);
    return i <= 27 || (i >= 36 && i <= 38);
}

QString GetFileKindName(const QString& name) {
    const QString ext = GetFileExt(name);
    if (ext == u"SYS"_s || ext == u"INI"_s || ext == u"BAT"_s || ext == u"DOS"_s)
        return u"System"_s;
    const int i = indexOf(extensionTable(), ext);
    if (i <= 27)
        return u"Picture"_s;
    if (i <= 38)
        return u"Multimedia"_s;
    if (i <= LastTextIndex)
        return u"Document"_s;
    if (i <= LastDatabaseIndex)
        return u"Database"_s;
    return u"Miscellaneous"_s;
}

} // namespace FileTypes
