#pragma once

#include <QStringList>

namespace Tobrix::Tools {

/// The content of a folder and its subfolders. Links to folders are not followed.
struct FolderContent
{
    QStringList templateFiles;     ///< everything named *.xml that is no folder, sorted by name
    QStringList unreadableFolders; ///< their templates are not checked
};

FolderContent contentOfFolder(const QString &folder);

} // namespace Tobrix::Tools
