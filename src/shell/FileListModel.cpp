#include "shell/FileListModel.h"

#include "shell/FileTypes.h"

#include <QApplication>
#include <QFileInfo>
#include <QLocale>
#include <QStyle>

FileListModel::FileListModel(QObject* parent) : QAbstractTableModel(parent) {}

bool FileListModel::setFolder(const QString& folder) {
    beginResetModel();
    const bool readable = m_listing.read(folder);
    m_details.clear();
    endResetModel();
    return readable;
}

void FileListModel::setMask(const QString& mask) {
    beginResetModel();
    m_listing.setMask(mask);
    m_details.clear();
    endResetModel();
}

void FileListModel::reload() {
    setFolder(m_listing.folder());
}

int FileListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_listing.count();
}

int FileListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

const FileListModel::Details& FileListModel::details(int row) const {
    auto it = m_details.find(row);
    if (it == m_details.end()) {
        const QFileInfo info(m_listing.path(row));
        Details d;
        if (info.exists()) {
            d.size = info.isDir() ? -1 : info.size();
            d.modified = info.lastModified();
        }
        it = m_details.insert(row, d);
    }
    return *it;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= m_listing.count())
        return {};
    const bool folder = m_listing.isFolder(index.row());
    if (role == Qt::DecorationRole && index.column() == Name) {
        QIcon& icon = folder ? m_folderIcon : m_fileIcon;
        if (icon.isNull())
            icon = QApplication::style()->standardIcon(folder ? QStyle::SP_DirIcon
                                                              : QStyle::SP_FileIcon);
        return icon;
    }
    if (role == Qt::TextAlignmentRole && index.column() == Size)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole && role != Qt::ToolTipRole)
        return {};
    switch (index.column()) {
    case Name:
        return role == Qt::ToolTipRole ? m_listing.path(index.row()) : m_listing.name(index.row());
    case Size: {
        const qint64 size = details(index.row()).size;
        return size < 0 ? QVariant() : QVariant(QLocale().formattedDataSize(size));
    }
    case Type:
        if (folder)
            return tr("Folder");
        return FileTypes::GetFileKindName(m_listing.name(index.row()));
    case Modified: {
        const QDateTime& modified = details(index.row()).modified;
        return modified.isValid() ? QVariant(QLocale().toString(modified, QLocale::ShortFormat))
                                  : QVariant();
    }
    default:
        return {};
    }
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Name:
        return tr("Name");
    case Size:
        return tr("Size");
    case Type:
        return tr("Type");
    case Modified:
        return tr("Modified");
    default:
        return {};
    }
}
