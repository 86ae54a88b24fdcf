#pragma once

#include "documents/DatabaseLayout.h"

#include <QMdiSubWindow>

#include <array>

class FlexGrid;
class MDIForm1;
class QFrame;
class QGroupBox;
class QListWidget;
class TableDataControl;
class TableGridModel;
class QAction;
class QKeyEvent;
class PictureDialog;
class PictureView;
class QMenu;
class QTextEdit;

// A document window of the frame: a picture ("I"), a text ("T") or a database table ("D").
// Its caption is the document's path.
class ChildFrm1 : public QMdiSubWindow {
    Q_OBJECT
public:
    // Makes a document window for `path`, choosing its kind from the class of the file last
    // classified, and loads it.
    ChildFrm1(MDIForm1* frame, const QString& path);
    ~ChildFrm1() override;

    QString FILE_TYPE;
    QString mExt;
    bool mDirty = false;
    bool mStretch = false;
    bool mBadLoad = false;
    QString CURFILE_NAME;
    QString DRAWMENU;
    bool DRAW_NOW_FLG = false;
    bool PLACETEXT_FLG = false;
    bool PLACEOBJECT_FLG = false;
    float mClickX = 0;
    float mClickY = 0;
    qint16 mRoomRight = 0;
    qint16 mRoomDown = 0;

    // The text a click stamps and its look (AddText1). Colours are 0xBBGGRR or system colours.
    QString DRAW_TEXT;
    QString TEXT_FONT = QStringLiteral("Ms Sans Serif");
    qint16 TEXT_FONT_SIZE = 8;
    bool TEXT_FONT_BOLD = false;
    bool TEXT_FONT_ITALIC = false;
    qint32 TEXT_COLOR = 0;
    qint32 TEXTSHADOW_COLOR = static_cast<qint32>(0x8000000FU);
    qint32 TEXTHIGHLIGHT_COLOR = static_cast<qint32>(0x80000009U);
    qint32 TEXTRECTANGLE_COLOR = 0xFFC0C0;
    bool TEXTRECTANGLE_FLG = false;
    qint32 TEXT_STYLE = 0;
    qint16 TEXTSTYLE_INDEX = 0;
    // The shape a click stamps (AddShape1), its sizes in twips; the colours are the window
    // colours of the settings at load.
    qint16 SHAPE = 1000;
    qint16 SHAPE_INDEX = 0;
    double SHAPE_HEIGHT = 350;
    qint32 SHAPE_WIDTH = 350;
    qint32 SHAPE_COLOR = 0;
    qint32 SHAPEBORDER_COLOR = 0;
    qint16 SHAPE_INRBAND = 1;
    qint16 SHAPE_OUTBAND = 2;

    // The picture of a picture document, the text of a text document.
    PictureView* Image1 = nullptr;
    QTextEdit* Text1 = nullptr;

    // A database document: the file, its kind, the table shown and the types of its fields.
    QString mDbFolder;
    QString mDbFile;
    QString mConnect;
    QString mPassword;
    QString mTableName;
    bool mShowTables = false;
    bool mShowIndexes = false;
    std::array<qint16, 301> mFieldType{};
    // Its data control and grid, the lists of tables (List1) and indexes (List2) in Frame1,
    // and the comment box Frame2 with Text2.
    TableDataControl* Data1 = nullptr;
    FlexGrid* MSFlexGrid1 = nullptr;
    QFrame* Frame1 = nullptr;
    QListWidget* List1 = nullptr;
    QListWidget* List2 = nullptr;
    QGroupBox* Frame2 = nullptr;
    QTextEdit* Text2 = nullptr;
    void List1_Click(int position);
    void List2_Click(int position);
    void MSFlexGrid1_DblClick();
    // The table and index buttons of the frame follow this window's lists.
    void syncTableButtons();
    // The table lets go of its files (before another program opens them, or they move).
    void releaseTable();
    int bitmapBits() const { return m_bits; }

    const QList<QMenu*>& menus() const { return m_menus; }
    QAction* menuAction(const char* name) const;

    // Called by the frame, by name, on the active document.
    void mnuFileOpen_Click();
    void mnuFileClose_Click();
    void mnuFileDelete_Click();
    void mnuFileMove_Click();
    void mnuFilePrint_Click();
    void mnuFileRename_Click();
    void mnuFileSend_Click();
    void mnuFileSaveAs_Click();
    void mnuEditCopy_Click();
    void mnuImageBrightness_Click();
    void mnuImageResize_Click();
    void mnuViewIndex_Click();
    void mnuViewNormal_Click();
    void mnuViewStretch_Click();
    void mnuViewTable_Click();
    void mnuViewComments_Click();
    void mnuHelpContents_Click();
    void mnuFileOLE_Click();
    void mnuFileProptee_Click();
    void mnuImageFlip_Click();
    void mnuImageReverse_Click();
    void mnuImageInvert_Click();
    void mnuImageColorInt_Click();
    void mnuImageContrast_Click();
    void mnuImageRotate_Click();
    void mnuImageText_Click();
    void mnuImageShapes_Click();

    // Places the document at the top left of the workspace, a picture fitted to its picture and
    // a text at the text window's size; the frame calls it once the document is in its workspace.
    void placeInWorkspace();

    // Runs when the document becomes the active one.
    void Form_Activate();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildMenus();
    void loadPicture(const QString& path);
    void loadText(const QString& path);
    void layoutText();
    void loadDatabase(const QString& path);
    void buildDatabaseView();
    void fillIndexList();
    // The grid's column widths from the shared field lists, and this window's own copy of the
    // field types, which a second database window does not overwrite.
    void setColumnWidths();
    void keepFieldTypes();
    void fillTableList();
    void Data1_Validate(int action);
    void Data1_Reposition();
    void showComment();
    // Shows or hides the table or the index list, with its menus and its toolbar button.
    void toggleList(QListWidget* list, bool& shown, bool otherShown, const char* menu,
                    const char* mainMenu, int button);
    void applyGridStyle();
    void layoutDatabase();
    void resizeDatabase();
    void paintDatabaseView();
    void copyCurrentCell();
    // dBASE and Paradox keep one table a file, named by the file.
    bool tableIsTheFile() const;
    void setCheckMarks();
    // The pair around every picture command: busy pointer and no repaint, then back.
    void beginChange();
    void endChange();
    template <class Change> void changePicture(Change change);
    bool runAdjustDialog(PictureDialog& dialog);
    // Asks to save a changed picture and saves it under its own name on Yes; false on No.
    bool saveChangesInPlace();
    void Image1_DblClick();
    void Image1_MouseUp(Qt::MouseButton button, QPoint position);
    // The stamps, drawn with their corner at a pixel of the picture (ChildFrm1Drawing.cpp).
    void setDrawingDefaults();
    void drawText(QPoint at);
    void drawShape(QPoint at);
    void Form_Load();
    void Form_Unload();

    MDIForm1* m_frame;
    QList<QMenu*> m_menus;
    bool mFirstActivate = true;
    bool m_unloaded = false;
    int m_bits = 0;
    TableGridModel* m_gridModel = nullptr;
    bool m_commentShown = false;
    DatabaseLayout::Placement m_placement;
    qint64 m_diskSize = 0;
};
