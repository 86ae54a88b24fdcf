#pragma once

#include <QWidget>

#include <memory>

class FlexGrid;
class OrganizerDataControl;
class QGroupBox;
class QListWidget;
class QPushButton;
class RecordsetRows;
class TableGridModel;

// Browses the organizer: a grid of the groups, and a grid of the files of the selected group,
// one shown at a time; a file chosen there goes to its display.
class GrpBrow1 : public QWidget {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("GrpBrow1"); }
    explicit GrpBrow1(QWidget* parent = nullptr);
    ~GrpBrow1() override;

    // Brings the shown grid to its first record and highlights it.
    void SetUpHeaders();
    // Highlights the current row of a grid (0 groups, 1 files) in inverted colours.
    void SetRowColor(int grid);
    // Runs the file query again for the selected group, in the chosen order.
    void RefreshFileGrid();

    void SwitchBtn_Click();
    void SelectBtn_Click();
    void List1_Click();
    void MSFlexGrid1_Click(int grid);
    // After a find: the file grid over the whole table, on the found record when the text of
    // its column there is the record's.
    void showFoundFile(int column);

    QString sortText() const { return mSortText; }

    bool ShowFiles = false;
    bool InSort = false;

    FlexGrid* MSFlexGrid1[2];
    OrganizerDataControl* Data1[2];
    QGroupBox* Frame1;
    QGroupBox* Frame2;
    QListWidget* List1;
    QPushButton* SelectBtn;
    QPushButton* FindBtn;
    QPushButton* SortBtn;
    QPushButton* SwitchBtn;
    QPushButton* HelpBtn;

protected:
    void changeEvent(QEvent* event) override;

private:
    void Form_Activate();
    void openData(int index, const QString& source);
    void Data1_Reposition(int index);
    void Data1_Validate(int index, int action);
    void setSwitchPicture(const char* bitmap);

    TableGridModel* mModel[2];
    std::unique_ptr<RecordsetRows> mRows[2];
    QString mSortText = QStringLiteral("[ID]");
    int mLastRow[2] = {1, 1};
    bool GroupRowDone = true;
    bool FileRowDone = true;
    bool mSortPanel = false;
    bool mFirstActivate = true;
};
