#pragma once

#include <QString>

#include <vector>

// The entries of one folder as the file list shows them: sub-folders first, then the files
// that match the mask, each group sorted by name. Reading takes the names and kinds only;
// sizes and dates are left to whoever shows them, for the entries on screen.
class FolderListing {
public:
    struct Entry {
        QString name;
        bool isFolder = false;
    };

    // Reads a folder; false when it cannot be read, leaving the listing empty.
    bool read(const QString& folder);
    // Shows only files matching the mask (all files for an empty mask); folders always show.
    void setMask(const QString& mask);

    const QString& folder() const { return m_folder; }
    const QString& mask() const { return m_mask; }
    int count() const { return static_cast<int>(m_shown.size()); }
    const Entry& entry(int index) const { return m_all[m_shown.at(static_cast<size_t>(index))]; }
    QString path(int index) const;
    // Position of a shown entry by name, or -1.
    int indexOfName(const QString& name) const;

private:
    void sortEntries();

    QString m_folder;
    QString m_mask;
    std::vector<Entry> m_all;
    std::vector<int> m_shown;
};
