#pragma once

#include <QString>
#include <QStringList>

#include <vector>

// The kinds of files the search offers, tab by tab: each row's caption, the mask the search
// looks for, and the row of the file filter list that goes with it.
namespace FindMasks {

enum Tab { Pictures = 0, MultiMedia = 1, Text = 2, Database = 3, Miscellaneous = 4 };
inline constexpr int TabCount = 5;
// The row of the miscellaneous tab that searches for the entered text.
inline constexpr int EnteredRow = 4;

struct Row {
    QString caption;
    QString mask;
    int filterRow;
};

QString tabCaption(int tab);
// The name of a tab's group of rows: RDPICT, RDMEDIA, RDTEXT, RDDATA, RDMISC.
QString groupName(int tab);
const std::vector<Row>& rows(int tab);

struct Choice {
    QString mask;
    int filterRow = 0;
    QString caption;
};
// What a search for the chosen row looks for. An entered text that is not blank wins over
// the row, whatever tab is shown, and is searched as it was typed.
Choice choose(int tab, int row, const QString& entered);

} // namespace FindMasks
