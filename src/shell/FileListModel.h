#pragma once

#include "shell/FolderListing.h"

#include <QAbstractTableModel>
#include <QDateTime>
#include <QHash>
#include <QIcon>

// The entries of the current folder for the file list, with name, size, type and date. Sizes
// and dates are read for an entry only when a view asks for them.
class FileListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Name, Size, Type, Modified, ColumnCount };

    explicit FileListModel(QObject* parent = nullptr);

    bool setFolder(const QString& folder);
    void setMask(const QString& mask);
    void reload();
    const FolderListing& listing() const { return m_listing; }
    QString path(int row) const { return m_listing.path(row); }
    bool isFolder(int row) const { return m_listing.isFolder(row); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    struct Details {
        qint64 size = -1;
        QDateTime modified;
    };
    const Details& details(int row) const;

    FolderListing m_listing;
    mutable QHash<int, Details> m_details;
    // The style's two icons, taken once rather than for every row painted.
    mutable QIcon m_folderIcon;
    mutable QIcon m_fileIcon;
};
