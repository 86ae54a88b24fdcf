#pragma once

#include <QString>

#include <optional>

// What the options window reads from its boxes and how it checks them, without the window.
namespace OptionsForm {

// The twips of one centimetre on a screen of the given size in twips, calibrated against a
// 640 by 480 screen of 9600 by 7200 twips.
struct Scale {
    double cmTwipsX = 0;
    double cmTwipsY = 0;
};
Scale scaleFor(double screenWidthTwips, double screenHeightTwips);

// A thumbnail size in pixels shown in centimetres, with at most two decimals and no
// trailing zeros ("3.4" for 3.40).
QString centimetres(double pixels, double cmTwips);
// The pixels of a size typed in centimetres, whole.
double pixels(double centimetres, double cmTwips);

// The numbers of the boxes, each the leading number of its text.
struct Entries {
    double thumbHeight = 0; // centimetres
    double thumbWidth = 0;
    double searchInitial = 0;
    double searchAdditional = 0;
    double separatorPercent = 0;
};

// Why the boxes cannot be taken: the message and the box (index of Text1) to go back to.
struct Refusal {
    QString message;
    int focus = 0;
};
// The first check that fails, in the order the user is told of them; nothing when all pass.
std::optional<Refusal> check(const Entries& entries);

// The shares of the browser panel for the folder tree and the file list.
struct PaneShares {
    double tree = 0;
    double list = 0;
};
PaneShares sharesOf(int separatorPercent);

} // namespace OptionsForm
