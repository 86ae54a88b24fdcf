#pragma once

#include <QDialog>

#include <array>

class QComboBox;
class QFrame;
class QLabel;
class QListWidget;
class QPushButton;
class QToolButton;
class QTreeView;
class ShellTreeModel;

// The working folders that the main window's folder button steps through: each a folder with
// the file filter to show it with, chosen here from the drives, the folders and the filters.
class SetFoldr1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("SetFoldr1"); }
    explicit SetFoldr1(QWidget* parent = nullptr);
    ~SetFoldr1() override;

    // The masks of the filters by row; rows past the filter list are empty.
    static const std::array<QString, 63>& FolderFilters();
    // The mask the file list starts with.
    static QString startingMask();

    QFrame* Frame1;
    QComboBox* Drive1;
    QTreeView* Dir1;
    QListWidget* File1;
    QComboBox* CMBFILTER;
    QListWidget* List1;
    QLabel* Label1;
    QLabel* Label2;
    QToolButton* RightBtn;
    QToolButton* LefttBtn;
    QToolButton* UpBtn;
    QToolButton* DownBtn;
    QToolButton* ClearBtn;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

    // The folder chosen in Dir1, and the pattern File1 lists.
    QString dirPath() const;
    void setDirPath(const QString& path);
    const QString& filePattern() const { return m_pattern; }

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Form_Load();
    void Drive1_Change();
    void Dir1_Change();
    void CMBFILTER_Click();
    void RightBtn_Click();
    void LefttBtn_Click();
    void UpBtn_Click();
    void DownBtn_Click();
    void OKBtn_Click();
    void swapWithNext(int row);
    void fillFiles();

    ShellTreeModel* m_dirs;
    QString m_pattern;
};
