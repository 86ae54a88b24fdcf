#pragma once

#include "printing/PrintMetrics.h"

#include <QPointer>
#include <QWidget>

#include <array>

class FindFile1;
class PictureView;
class PrinterSurface;
class QCheckBox;
class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTabBar;
class QTextEdit;
class QVBoxLayout;

// The one window that prints: a tab for each kind of job (a picture on a page, a text file, a
// listing of a table, a report of file locations), chosen from the file it is given. OK sets
// up the printer and runs the job of the selected tab; Preview shows its pages first.
class PrntFrm1 : public QWidget {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("PrntFrm1"); }
    explicit PrntFrm1(QWidget* parent = nullptr);
    ~PrntFrm1() override;

    enum Tab { PicturesTab = 1, TextTab = 2, DatabaseTab = 3, SystemTab = 4 };
    // The selected tab, 1 to 4.
    int selectedTab() const;
    void selectTab(int tab);

    void TabStrip1_Click();
    void OKBtn_Click();
    void CancelBtn_Click();
    void FontBtn_Click();
    void PreviewBtn_Click();
    void Check1_Click();
    void List3_Click();
    void RightBtn_Click();
    void LefttBtn_Click();
    void AllRightBtn_Click();
    void AllLeftBtn_Click();
    void FitPicture();
    void CenterTitle();
    void PrintMetrics();

    QString PrintFontName = QStringLiteral("MS Sans Serif");
    double PrintFontSize = 16;
    bool PrintFontBold = false;
    bool PrintFontItalic = false;
    QString FileExt;
    QString FileTitle;
    int LineWidth = 90;
    int ColumnGap = 14;
    int RuleExtra = 35;
    qint16 LinesPerPage = 18;
    int PictureWidth = 0;
    double PictureHeight = 0;
    QString DbPath;
    QString DbTable;
    QString DbConnect;
    QString DbPassword;

    QTabBar* TabStrip1;
    std::array<QFrame*, 4> Frame1{};
    QFrame* Frame2; // the "Printing" notice
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;
    QPushButton* FontBtn;
    QPushButton* PreviewBtn;
    // Pictures
    QFrame* FramePicture;
    PictureView* Image1;
    QLineEdit* Text1;
    QLineEdit* DXPos;
    QLineEdit* DYPos;
    QLineEdit* XPos;
    QLineEdit* YPos;
    QLineEdit* PictWidth;
    QLineEdit* PictHeight;
    // Text
    std::array<QLabel*, 2> Label2{};
    QTextEdit* RichTextBox1;
    // DataBase
    std::array<QLabel*, 2> Label3{};
    QListWidget* List1;
    QListWidget* List2;
    QListWidget* List3;
    QPushButton* RightBtn;
    QPushButton* LefttBtn;
    QPushButton* AllRightBtn;
    QPushButton* AllLeftBtn;
    // System
    std::array<QLabel*, 2> Label4{};
    QCheckBox* Check1;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    QFrame* buildPicturePanel();
    QFrame* buildTextPanel();
    QFrame* buildDatabasePanel();
    // The row at the top of a tab: a caption and the name of the file it prints.
    static std::array<QLabel*, 2> fileRow(QWidget* panel, QVBoxLayout* layout, const QString& name,
                                          const QString& caption);
    QFrame* buildSystemPanel();
    void Form_Load();
    void Form_Activate();
    void classifyFile();
    void preparePictureTab();
    void prepareTextTab();
    void prepareDatabaseTab();
    void fillFieldList(const QString& table);
    // Moves the selection of a list to the entry that follows a removed one.
    static void selectNext(QListWidget* list, int row);
    void showFont();
    void PictHeight_LostFocus();
    void PictWidth_LostFocus();
    void Image1_Click();

    // The printer takes the job's font and runs the job of the selected tab on it.
    bool printJob(PrinterSurface& surface);
    void setUpSurface(PrinterSurface& surface) const;
    bool printPicture(PrinterSurface& surface);
    bool printText(PrinterSurface& surface);
    bool printListing(PrinterSurface& surface);
    bool printReport(PrinterSurface& surface);
    // The report's search into the work file; false when no files or type were chosen.
    bool runReportSearch();
    void setBusy(bool busy);

    QPointer<FindFile1> m_find;
    bool m_reportSearched = false;
};
