#pragma once

#include <QtGlobal>

// The 19 colour roles kept in Colors.INI, in the order of the file, with their defaults.
// Each is 0xBBGGRR or a system colour 0x800000nn. The thumbnail colours have no default.
struct ColorSettings {
    qint32 gMainBackColor = 0xFFD3CE;
    qint32 gMainForeColor = 0;
    qint32 gListBackColor = 0xEAFFEA;
    qint32 gListForeColor = 0x800000;
    qint32 gEntryBackColor = 0xC0C0C0;
    qint32 gEntryForeColor = 0;
    qint32 gDisplayBackColor = 0xE0E0E0;
    qint32 gDisplayForeColor = 0;
    qint32 gWindowBackColor = 0xFFFFC0;
    qint32 gWindowForeColor = 0;
    qint32 gBrowserBackColor = 0xE0E0E0;
    qint32 gBrowserForeColor = 0;
    qint32 gThumbBackColor = 0;
    qint32 gThumbForeColor = 0;
    qint32 gTipBackColor = 0xC0FFC0;
    qint32 gTipForeColor = 0x800000;
    qint32 gSelectionItemColor = 0x8080FF;
    qint32 gPictureWindowColor = 0xFFC0C0;
    qint32 gButtonColor = static_cast<qint32>(0x8000000FU);
};
