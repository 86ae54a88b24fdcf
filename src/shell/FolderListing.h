#pragma once

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The entries of one folder as the file list shows them: sub-folders first, then the files
// that match the mask, each group sorted by name. Reading takes the names and kinds only;
// sizes and dates are left to whoever shows them, for the entries on screen. Names are kept
// as the file system gives them, in UTF-8, back to back in one buffer, and become QStrings
// only when asked for.
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
    Entry entry(int index) const { return {name(index), isFolder(index)}; }
    QString name(int index) const;
    bool isFolder(int index) const { return item(index).isFolder; }
    QString path(int index) const;
    // Position of a shown entry by name, or -1.
    int indexOfName(const QString& name) const;

private:
    struct Item {
        std::uint32_t offset = 0; // into m_names
        std::uint16_t size = 0;
        bool isFolder = false;
    };

    const Item& item(int index) const { return m_items[m_shown.at(static_cast<size_t>(index))]; }
    std::string_view bytes(const Item& item) const {
        return {m_names.data() + item.offset, item.size};
    }

    QString m_folder;
    QString m_mask;
    std::string m_names;
    std::vector<Item> m_items; // sorted
    std::vector<int> m_shown;  // positions in m_items
};
