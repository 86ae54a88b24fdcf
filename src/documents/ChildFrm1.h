#pragma once

#include <QMdiSubWindow>

class MDIForm1;
class QMenu;

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

    // Runs when the document becomes the active one.
    void Form_Activate();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void Form_Load();
    void Form_Unload();

    MDIForm1* m_frame;
    QList<QMenu*> m_menus;
    bool mFirstActivate = true;
    bool m_unloaded = false;
};
