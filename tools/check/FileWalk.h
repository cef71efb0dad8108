#pragma once

#include <QStringList>

namespace Tobrix::Tools {

/// What a folder holds, with those below it. Links to folders are not followed.
struct FolderContent
{
    QStringList templateFiles;     ///< whatever is called *.xml and is no folder, in the order of the names
    QStringList unreadableFolders; ///< which may hold more of them
};

FolderContent contentOfFolder(const QString &folder);

} // namespace Tobrix::Tools
