#pragma once

#include "documents/FrameButtons.h"

#include <QMainWindow>

#include <array>

class ChildFrm1;
class QAction;
class QActionGroup;
class QFrame;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QToolBar;

// The document frame: every open document is a ChildFrm1 in its workspace. Its toolbar drives
// the active document, and its status strip tells about it.
class MDIForm1 : public QMainWindow {
    Q_OBJECT
public:
    static QString WindowName();

    explicit MDIForm1(QWidget* parent = nullptr);
    ~MDIForm1() override;

    // Public state read and written by the documents.
    qint16 mChildCount = 0;
    double mTableIndex = 0;
    qint16 mOpenFilterIndex = 0;
    bool mLoadFailed = false;
    QString mPrintPassword;

    void NewWindowFile();
    void SetMDIWinSize();
    void DisableButtons();
    void EnableButtons();
    void EnableMDIButtons();
    void EnableTextButtons();
    void EnableDataButtons();

    QAction* button(int number) const { return m_buttons.at(static_cast<size_t>(number - 1)); }
    // Presses or lifts a toolbar button.
    void setButtonDown(int number, bool down);
    QLabel* statusLabel(int index) const { return Label1.at(static_cast<size_t>(index)); }
    QFrame* statusStrip() const { return Frame1; }

    ChildFrm1* activeChild() const;
    QList<ChildFrm1*> children() const;
    QMdiArea* workspace() const { return m_area; }

    // Adds a document window to the workspace and shows it.
    void addChild(ChildFrm1* child);
    // Arranges the documents that are not minimised in rows (horizontal) or in columns.
    void tileChildren(bool horizontal);
    // Back to the state without documents: labels cleared, Open and Help usable.
    void showEmptyState();
    // The menus of the active document take the place of the frame's own.
    void showMenusOf(ChildFrm1* child);

    void mnuFileOpen_Click();
    void mnuHelpContents_Click();
    // Asks for a document to open, in the folder of the browser, with the dialogs' filter and
    // the extension taken for a name typed without one; an empty path on Cancel.
    QString askDocumentToOpen(QWidget* parent, const QString& defaultExtension);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildToolbar();
    void buildMenus();
    void applyButtonStates();
    void Toolbar1_ButtonClick(QAction* button);
    void Form_Activate();
    void Form_Resize();
    void Form_Unload();

    FrameButtons::States m_states{};
    std::vector<QAction*> m_buttons;
    QActionGroup* m_group = nullptr;
    QToolBar* Toolbar1 = nullptr;
    QMdiArea* m_area = nullptr;
    QFrame* Frame1 = nullptr;
    std::array<QLabel*, 4> Label1{};
    QList<QMenu*> m_ownMenus;
    QString mLastFile;
    bool m_activatedOnce = false;
    bool m_unloaded = false;
    bool m_active = false;
};
