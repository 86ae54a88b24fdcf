#pragma once

#include <QString>
#include <QtGlobal>

// The options kept in Options.INI, with their defaults. Line 24 of the file, the computer's
// network name, belongs to the main window and is not here. Distances are in twips.
struct OptionSettings {
    double gMainLeft = 75;
    double gMainTop = 300;
    double gMainHeight = 6570;
    double gMainWidth = 6435;
    double gFrameLeft = 2850;
    double gFrameTop = 50;
    double gFrameHeight = 7080;
    qint32 gFrameWidth = 6930;
    double gThumbHeight = 115; // pixels
    double gThumbWidth = 115;  // pixels
    qint16 gThumbBits = 2;
    double gTreeHeight = 3390;
    double gTreeWidth = 2130;
    double gTreeLeft = 90;
    double gListHeight = 3390;
    double gListWidth = 3750;
    double gListLeft = 2430;
    qint16 gViewMode = 0; // 0 large icons, 1 small icons, 2 list, 3 details
    double gSearchInitial = 5000;
    qint32 gSearchAdditional = 500;
    QString gBrowserTextStyle = QStringLiteral("R"); // "F" flat, "R" raised, "I" inset
    QString gAddressBook = QStringLiteral("MailAddr.MLS");
    QString gFromAddress;
    bool gBoldType = false;
    bool gGridLines = true;
    bool gQuickTipsOption = true;
    bool gAskComputer = true;
    bool gSeparatorOption = false;
};
