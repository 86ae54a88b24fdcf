#pragma once

#include <QDialog>

#include <array>
#include <vector>

class QFrame;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabBar;

// Asks what kind of files to search for: a tab for each kind, a row for each mask, and a text
// box for a mask of one's own. OK hands the mask to the search (gSearchMask) and arms it
// (gSearchArmed); Cancel says so in gFindCancelled.
class FindFile1 final : public QDialog {
    Q_OBJECT
public:
    explicit FindFile1(QWidget* parent = nullptr);
    ~FindFile1() override;

    QTabBar* TabStrip1;
    std::array<QFrame*, 5> Frame1{};
    // The rows of each tab: RDPICT, RDMEDIA, RDTEXT, RDDATA, RDMISC.
    std::array<std::vector<QRadioButton*>, 5> rows;
    QLineEdit* Text1;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

    void TabStrip1_Click(int tab);
    void OKBtn_Click();
    void CancelBtn_Click();
    void reject() override;

private:
    void Form_Load();
    void Form_Unload();
    // Writes the choice to the report's label while the search serves a report.
    static void tellReport(const QString& text);

    std::array<int, 5> m_chosen{};
    bool m_unloaded = false;
};
