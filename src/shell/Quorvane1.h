#pragma once

#include <QMainWindow>

#include <array>

class QAction;
class QComboBox;
class QFileSystemModel;
class QFrame;
class QLabel;
class QListView;
class QListWidget;
class QTimer;
class QTreeView;

// The main browser window, and the start and end of the program: constructing it runs the
// start-up sequence, closing it the shutdown sequence.
class Quorvane1 : public QMainWindow {
    Q_OBJECT
public:
    static QString WindowName();

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

    // Classification of a file name; see FileTypes.
    QString GetFileExt(const QString& name) const;
    bool GetFileTypeFlag(const QString& name);

    // The window's own state that other windows read.
    QString mComputerName;
    bool mOpenPending = false;

    const QString& fileExt() const { return mFileExt; }
    bool isTextFile() const { return mIsTextFile; }
    const QString& helpFile() const { return m_helpFile; }
    const QString& fileFilter(int index) const { return mFileFilter.at(index); }

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    // The window sees the keys of its controls first.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void buildMenus();
    QAction* addCommand(QMenu* menu, const char* name, const QString& caption);
    void linkShellControls();
    void fillFilterTables();
    void loadWorkingFolders();
    void applyColors();
    void showClock();

    void Form_Load();
    void Form_Activate();
    void Form_Unload();

    void mnuUtilitiesNetw_Click();
    void CMBFILEFLTR_Click(int index);

    // State of the window
    bool mFirstActivate = true;
    QString mFileExt;
    bool mIsTextFile = false;
    bool mQuikPictOn = false;
    bool mListActive = false;
    int mStartView = 0;
    std::array<QString, 63> mFileFilter;
    double mTreeRatio = 0;
    double mListRatio = 0;
    QString m_helpFile;
    bool m_unloaded = false;

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
    QListView* PTxShList1 = nullptr;
    QComboBox* CMBFILEFLTR = nullptr;
    QComboBox* CMBFILE = nullptr;
    QListWidget* List1 = nullptr;
    QTimer* Timer1 = nullptr;
    QFileSystemModel* m_folderModel = nullptr;
    QFileSystemModel* m_fileModel = nullptr;
};
