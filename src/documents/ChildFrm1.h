#pragma once

#include <QMdiSubWindow>

class MDIForm1;
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

    // The picture of a picture document, the text of a text document.
    PictureView* Image1 = nullptr;
    QTextEdit* Text1 = nullptr;
    int bitmapBits() const { return m_bits; }

    const QList<QMenu*>& menus() const { return m_menus; }

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
    void mnuImageFlip_Click();
    void mnuImageReverse_Click();
    void mnuImageInvert_Click();
    void mnuImageColorInt_Click();
    void mnuImageContrast_Click();
    void mnuImageRotate_Click();

    // Places the document at the top left of the workspace, a picture fitted to its picture and
    // a text at the text window's size; the frame calls it once the document is in its workspace.
    void placeInWorkspace();

    // Runs when the document becomes the active one.
    void Form_Activate();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildMenus();
    QAction* menuAction(const char* name) const;
    void loadPicture(const QString& path);
    void loadText(const QString& path);
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
    void Form_Load();
    void Form_Unload();

    MDIForm1* m_frame;
    QList<QMenu*> m_menus;
    bool mFirstActivate = true;
    bool m_unloaded = false;
    int m_bits = 0;
    qint64 m_diskSize = 0;
};
