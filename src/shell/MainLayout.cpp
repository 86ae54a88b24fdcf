#include "shell/MainLayout.h"

namespace MainLayout {

Geometry resize(const Input& in) {
    const double w = in.width;
    const double h = in.height;
    Geometry g;
    g.frame1Width = w - 140;
    g.frame1Height = h - 1630;
    g.frame5Height = g.frame1Height - 1020;
    if (g.frame1Height < -4500)
        return g;
    g.panes = true;

    // The panes
    g.treeLeft = 100;
    g.treeWidth = in.treeRatio * g.frame1Width;
    g.listWidth = g.frame1Width * in.listRatio;
    g.listWidth += g.listWidth * 0.05;
    if (in.listLeft + g.listWidth <= g.frame1Width)
        g.listWidth = g.frame1Width - (g.treeLeft + g.treeWidth) - 175;
    g.listLeft = g.treeLeft + g.treeWidth + in.frame1Left + 100;
    g.treeHeight = g.frame1Height - 1100;
    g.listHeight = g.treeHeight;
    g.comboTop = g.frame1Height + 15;
    g.frame5Left = g.treeWidth + g.treeLeft + 35;

    g.frame2Width = w - 140;
    g.frame2Top = h - 1260;
    g.historyWidth = w - 450;

    g.helpExitLeft = w - 650;
    g.foldrLeft = w - 1050;
    g.topButtonLeft = {w - 3400, w - 3000, w - 2600, w - 2200, w - 1800, w - 1400};

    g.frame3Left = (g.frame2Width - in.frame3Width) / 2;
    g.frame4Left[0] = g.frame1Width / 2 - 460;
    g.frame4Left[1] = g.frame4Left[0] + in.frame4Width + 140;
    g.clockVisible = g.frame4Left[0] >= 2500;
    for (int i = 0; i < TopButtonCount; ++i)
        g.topButtonVisible[i] = g.topButtonLeft[i] >= 3000;
    return g;
}

SplitterGeometry dragSplitter(double x, double windowWidth, double frame1Left, double treeLeft) {
    SplitterGeometry s;
    s.treeWidth = x - 100;
    s.listWidth = windowWidth - frame1Left - s.treeWidth - 440;
    s.listLeft = s.treeWidth + treeLeft + 120;
    s.treeLeft = 90;
    s.frame5Left = x + 25;
    return s;
}

} // namespace MainLayout
