#pragma once

#include <array>

// The layout rules of the main window, in twips, as functions of the window's size and state.
namespace MainLayout {

// The six buttons of the top row that hide themselves when the window gets narrow.
enum TopButton {
    UpFldrBtn,
    LargeIconsBtn,
    SmallIconsBtn,
    ListlIconsBtn,
    DetailIconsBtn,
    QuikPictBtn,
    TopButtonCount
};

struct Input {
    double width = 0;  // of the window
    double height = 0; // of the window
    double treeRatio = 0;
    double listRatio = 0;
    double frame1Left = 0;
    double listLeft = 0; // the list's left before the layout
    double frame3Width = 0;
    double frame4Width = 0; // of each date and time panel
};

struct Geometry {
    double frame1Width = 0;
    double frame1Height = 0;
    double frame5Height = 0;
    // Whether the panes were laid out; not for a window squeezed below any use.
    bool panes = false;
    double treeLeft = 0, treeWidth = 0, treeHeight = 0;
    double listLeft = 0, listWidth = 0, listHeight = 0;
    double comboTop = 0; // the drive combo and the filter combo
    double frame5Left = 0;
    double frame2Width = 0, frame2Top = 0;
    double historyWidth = 0;
    double helpExitLeft = 0;
    double foldrLeft = 0;
    std::array<double, TopButtonCount> topButtonLeft{};
    std::array<bool, TopButtonCount> topButtonVisible{};
    double frame3Left = 0;
    std::array<double, 2> frame4Left{};
    bool clockVisible = false;
};

// The resize rule of the main window.
Geometry resize(const Input& in);

struct SplitterGeometry {
    double treeLeft = 0, treeWidth = 0;
    double listLeft = 0, listWidth = 0;
    double frame5Left = 0;
};

// Where the panes go while the splitter is dragged to `x`.
SplitterGeometry dragSplitter(double x, double windowWidth, double frame1Left, double treeLeft);

} // namespace MainLayout
