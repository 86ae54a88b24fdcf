#pragma once

#include <QWidget>

class FileListModel;
class QAbstractItemView;
class QListView;
class QStackedLayout;
class QTreeView;

// The file list of the main window: the entries of one folder, filtered by a mask, shown as
// large icons, small icons, a list or details. An entry is never renamed in place.
class ShellList : public QWidget {
    Q_OBJECT
public:
    enum View { LargeIcons = 0, SmallIcons = 1, List = 2, Details = 3 };

    explicit ShellList(QWidget* parent = nullptr);

    void setFolder(const QString& folder);
    QString folder() const;
    void setFilter(const QString& mask);
    QString filter() const;
    void setView(int view);
    int view() const { return m_view; }
    void refresh();

    int selectedCount() const;
    // Path of the selected entry, or an empty text.
    QString selectedPath() const;
    // The position of the selected entry in the list, from 0; -1 when none is selected.
    int selectedIndex() const;
    // Selects the entry of a name in the current folder; false when it is not listed.
    bool selectName(const QString& name);
    FileListModel* model() const { return m_model; }
    QAbstractItemView* currentView() const;

    void setColors(const QColor& back, const QColor& fore, bool bold);

    // A flag that the list keeps for the settings and has no further use for.
    bool separatorOption = false;

Q_SIGNALS:
    void selectionChanged(const QString& path);
    void itemActivated(const QString& path);
    void folderChanged(const QString& folder);
    void entered();
    void left();

protected:
    // Focus coming into the list and going out of it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void activate(const QModelIndex& index);

    FileListModel* m_model;
    QListView* m_icons;
    QTreeView* m_details;
    QStackedLayout* m_stack;
    int m_view = LargeIcons;
};
