#include "shell/FolderListing.h"

#include "platform/FileMask.h"
#include "platform/PathUtil.h"

#include <QFile>

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

bool FolderListing::read(const QString& folder) {
    m_folder = folder;
    m_all.clear();
    std::error_code error;
    fs::directory_iterator it(fs::path(QFile::encodeName(folder).toStdString()),
                              fs::directory_options::skip_permission_denied, error);
    const bool readable = !error;
    for (; !error && it != fs::directory_iterator(); it.increment(error)) {
        const std::string name = it->path().filename().native();
        if (name.empty() || name.front() == '.')
            continue;
        std::error_code typeError;
        m_all.push_back(
            {QFile::decodeName(QByteArray::fromStdString(name)), it->is_directory(typeError)});
    }
    std::sort(m_all.begin(), m_all.end(), [](const Entry& a, const Entry& b) {
        if (a.isFolder != b.isFolder)
            return a.isFolder;
        const int byName = a.name.compare(b.name, Qt::CaseInsensitive);
        return byName != 0 ? byName < 0 : a.name < b.name;
    });
    setMask(m_mask);
    return readable;
}

void FolderListing::setMask(const QString& mask) {
    m_mask = mask;
    m_shown.clear();
    m_shown.reserve(m_all.size());
    const FileMask::Compiled compiled(mask);
    const bool everything = mask.trimmed().isEmpty() || compiled.matchesEverything();
    for (size_t i = 0; i < m_all.size(); ++i) {
        if (m_all[i].isFolder || everything || compiled.matches(m_all[i].name))
            m_shown.push_back(static_cast<int>(i));
    }
}

QString FolderListing::path(int index) const {
    return PathUtil::join(m_folder, entry(index).name);
}

int FolderListing::indexOfName(const QString& name) const {
    for (size_t i = 0; i < m_shown.size(); ++i) {
        if (m_all[static_cast<size_t>(m_shown[i])].name == name)
            return static_cast<int>(i);
    }
    return -1;
}
