#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <array>

#include "settings/ColorSettings.h"
#include "settings/OptionSettings.h"

// The state that the windows hand to each other, with the remembered options and colours.
// One instance for the process, reached through globals(). Distances are in twips.
struct Globals : OptionSettings, ColorSettings {
    // Files and hand-over
    QString gAppPath;          // folder of every data file; the current directory at start
    QString gPrintIniFile;     // work file of the file location report
    QString gCurrentFile;      // file selected in the browser list; empty when none is usable
    QString gCurrentFolder;    // folder of gCurrentFile
    QString gOpenFile;         // path handed to the window that opens next
    QString gCallerTag;        // "F" main window, "M" document window
    qint16 gMsgResult = 0;     // result of boxes that offer only OK
    QStringList gFileExtTable; // the 63 known extensions, filled at start
    QString gAllExtMask;       // mask of all 63 extensions
    QString gSearchMask;       // mask of the current search

    // Search
    bool gFindNextReady = true;
    bool gSearchArmed = true;
    bool gFindCancelled = false;
    bool gSearchToReport = false;
    bool gFindForReport = false;
    bool gBatchSearch = false;

    // Class of the last file
    bool gIsDatabaseFile = false;
    bool gIsAudioVideoFile = false;

    bool gShowTipsNow = false;
    QString gMoveSource;
    QString gMoveTarget;
    QString gPrintFile;
    QString gPrintFolder;
    QString gPrintListItem;

    // Window-open flags, set only in each window's load and unload
    bool gFrameOpen = false;
    bool gAudioVideoOpen = false;
    bool gSendFileOpen = false;
    bool gFindFileOpen = false;
    bool gThumBrowOpen = false;
    bool gSetFoldrOpen = false;
    bool gGrpFlemOpen = false;
    bool gGrpMaintOpen = false;
    bool gGrpBrowOpen = false;
    bool gPrintOpen = false;
    bool gGrpBatchOpen = false;
    bool gQuikPictOpen = false;

    // The last stamp of the organizer: yyyyMMdd, HHmmss, the shown date and time, both joined
    QString gStampDate;
    QString gStampTime;
    QString gStampDisplay;
    QString gStampFull;

    int gSeparatorPercent = 0; // integer part of 100 x tree width / Frame1 width

    // The lists of the last database table read, for one table at a time
    std::array<QString, 251> gTableNames{};
    int gTableCount = 0;
    std::array<QString, 251> gIndexNames{};
    int gIndexCount = 0;
    std::array<QString, 252> gFieldNames{};
    std::array<qint32, 252> gFieldSizes{};
    std::array<qint16, 252> gFieldTypes{};
    int gFieldCount = 0; // the last field's index
    QString gDbPassword;
    bool gLoginOK = false;
    bool gPasswordAsked = false;
};

// The process's shared state.
Globals& globals();

// Puts every shared variable back to its start value (for a fresh start and for tests).
void resetGlobals();
