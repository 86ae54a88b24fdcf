#pragma once

#include "shell/MainLayout.h"

#include <QMainWindow>

#include <array>

class ChildFrm1;
class QAction;
class QImage;
class QComboBox;
class QFrame;
class QLabel;
class QListWidget;
class QMenu;
class QTimer;
class QToolButton;
class QTreeView;
class ShellList;
class ShellTreeModel;

// The main browser window, and the start and end of the program: constructing it runs the
// start-up sequence, closing it the shutdown sequence.
class Quorvane1 : public QMainWindow {
    Q_OBJECT
public:
    static QString WindowName();
    // The main window of the program, or none while it does not exist.
    static Quorvane1* instance();

    explicit Quorvane1(QWidget* parent = nullptr);
    ~Quorvane1() override;

    // Writes Options.INI from the shared settings; a failure is shown and the program goes on.
    void SaveOptions();
    // Copies the geometry of this window, and of the frame window when it is open, into the
    // settings.
    void SetWinSizeVariables();
    // Applies the remembered geometry to this window.
    void SetWinSize();
    // Copies the geometry of the folder tree and the file list into the settings.
    void InitExplore();
    // Asks for the computer's network name when gAskComputer is set.
    void AskComputerName();

    void DisableSelectMenus();
    void EnableSelectMenus();
    void InitializeDisplay();
    void SetRootSymbol() {}
    // Adds a path to the history of viewed files and folders and selects it there.
    void AddtoCMBFILE(const QString& path);
    // Sends a file to its display: a document window, the player, or nowhere.
    void DisplayImage(const QString& file);

    // File operations, also used by the document windows.
    void DeleteFile(const QString& path);
    void MoveFile(const QString& name);
    // Save As of any file: a picture is written in the format of its own extension (from
    // `edited` when given, else from the file), other files are copied.
    void SaveFileAs(const QString& file, const QImage* edited = nullptr);
    void OpenwithOLE(const QString& file);
    void mnuFileDelete_Click();
    void mnuFileRename_Click();

    // Classification of a file name; see FileTypes.
    QString GetFileExt(const QString& name) const;
    bool GetFileTypeFlag(const QString& name);

    // The window's own state that other windows read.
    QString mComputerName;
    qint64 mOrgFileCount = 0; // files in the organizer at start
    bool mOpenPending = false;

    const QString& fileExt() const { return mFileExt; }
    bool isTextFile() const { return mIsTextFile; }
    void setTextFileFlag(bool on) { mIsTextFile = on; }
    const QString& fileFilter(int index) const { return mFileFilter.at(index); }
    // The folder shown by the folder tree and the file list.
    QString treeFolder() const;
    int searchRootIndex() const { return mSearchRootIndex; }
    bool quikPictOn() const { return mQuikPictOn; }
    bool listActive() const { return mListActive; }
    ShellList* shellList() const { return PTxShList1; }
    ShellTreeModel* shellTree() const { return m_treeModel; }

    // The search for folders holding files of a kind: the find window, then the walk from the
    // selected folder; Find Next goes on behind the last folder found.
    void FindFileRoutine();
    void FindNext();
    // One walk of the search with the current mask; a report's walk goes to the end of the
    // tree and writes every folder with hits to the report's work file.
    void SearchFunction();
    // Appends a folder with hits and its matching files to the report's work file.
    void AddReportFolder(const QString& folder, const QStringList& fileNames);
    bool searchRunning() const { return mSearchRunning; }

    // Shows a folder in the tree and the list, as the program's own move: the history keeps
    // only folders chosen in the tree.
    void showFolder(const QString& folder);
    // Chooses a folder in the tree, as the drive combo and the up button do.
    void chooseFolderInTree(const QString& folder);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    // The window sees the keys of its controls first; the splitter's drag goes through here.
    bool eventFilter(QObject* watched, QEvent* event) override;

public:
    // Checks or clears a command of the menus, for the document windows that share it.
    void setMenuChecked(const char* name, bool checked);
    // Chooses a row of the file filter list, which filters the file list.
    void setFilterRow(int row);
    int filterRow() const;
    // The captions of the file filter list, in list order.
    QStringList filterCaptions() const;
    // The places of the drive combo: the root, the mounted drives and the user's folders.
    QStringList places() const;
    // The working folders that FoldrBtn steps through, as "folder (filter)" lines; setting them
    // makes the first one current.
    QStringList workingFolders() const;
    void setWorkingFolders(const QStringList& entries);
    // Divides the browser panel between the folder tree and the file list at once, the tree
    // taking the percentage given.
    void setPaneShares(int separatorPercent);

private:
    void buildControls();
    void buildButtons(QWidget* client);
    void buildMenus();
    QAction* addCommand(QMenu* menu, const char* name, const QString& caption);
    QAction* command(const char* name) const;
    QToolButton* makeButton(QWidget* parent, const char* name, const QString& toolTip,
                            const QIcon& icon);
    void linkShellControls();
    void fillFilterTables();
    void loadWorkingFolders();
    void applyColors();
    void showClock();
    void applyLayout(const MainLayout::Geometry& g);
    void setListFilterFromCombo();
    // Shows a folder in the tree because the program went there, not the user.
    bool revealInTree(const QString& folder);

    void Form_Load();
    void Form_Activate();
    void Form_Resize();
    void Form_Unload();

    // Handlers
    void PTxShList1_SelectionChanged(const QString& path);
    void PTxShList1_DblClick(const QString& path);
    void PTxShTree1_Click(const QModelIndex& index);
    void CMBFILE_Click(int index);
    void CMBFILEFLTR_Click(int index);
    void filterButton_Click(int row, bool filterAfter);
    void viewButton_Click(int view);
    void UpFldrBtn_Click();
    void FoldrBtn_Click();
    void QuikPictBtn_Click();
    void mnuFileOpen_Click();
    void mnuFileClose_Click();
    void mnuFileMove_Click();
    void mnuFileSave_Click();
    void mnuFileOLE_Click();
    void mnuFilePrint_Click();
    void mnuFileSend_Click();
    void mnuFileProptee_Click();
    void mnuOrganizeFileMaint_Click();
    void callActiveChild(void (ChildFrm1::*handler)());
    void mnuUtilitiesNetw_Click();
    void mnuUtilitiesRefresh_Click();
    void mnuUtilitiesUnExpand_Click();
    void splitterDrag(int xPixelsInFrame1);
    void startSearch();

    // State of the window
    bool mFirstActivate = true;
    QString mFileExt;
    bool mIsTextFile = false;
    bool mQuikPictOn = false;
    bool mDragging = false;
    bool mHistoryAdding = false;
    bool m_treeFollowing = false;
    bool mListActive = false;
    int mSearchRootIndex = 0;
    bool mSearchRunning = false;
    int mStartView = 0;
    std::array<QString, 63> mFileFilter;
    double mTreeRatio = 0;
    double mListRatio = 0;
    bool m_unloaded = false;
    bool m_active = false;

    // Controls
    QFrame* Frame1 = nullptr;
    QFrame* Frame2 = nullptr;
    QFrame* Frame3 = nullptr;
    QLabel* Label1 = nullptr;
    QFrame* Frame5 = nullptr;
    std::array<QFrame*, 2> Frame4{};
    std::array<QLabel*, 2> Label2{};
    QComboBox* PTxShCombo1 = nullptr;
    QTreeView* PTxShTree1 = nullptr;
    ShellList* PTxShList1 = nullptr;
    QComboBox* CMBFILEFLTR = nullptr;
    QComboBox* CMBFILE = nullptr;
    QListWidget* List1 = nullptr;
    QTimer* Timer1 = nullptr;
    std::array<QToolButton*, MainLayout::TopButtonCount> m_topButtons{};
    QToolButton* HelpBtn = nullptr;
    QToolButton* ExitBtn = nullptr;
    QToolButton* FoldrBtn = nullptr;
    QToolButton* QuikPictBtn = nullptr;
    QToolButton* SendBtn = nullptr;
    QToolButton* PrintBtn = nullptr;
    ShellTreeModel* m_treeModel = nullptr;
};
