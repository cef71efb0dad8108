#include "tools/check/FileWalk.h"

#include <QDirIterator>
#include <QFileInfo>

namespace Tobrix::Tools {

namespace {

bool isUnreadableFolder(const QFileInfo &info)
{
    return info.isDir() && !info.isSymLink() && !(info.isReadable() && info.isExecutable());
}

} // namespace

FolderContent contentOfFolder(const QString &folder)
{
    FolderContent content;
    if (isUnreadableFolder(QFileInfo(folder))) {
        content.unreadableFolders.append(folder);
    }
    // System includes what cannot be read as a file: pipes, broken links. With the name of a template they
    // are reported.
    QDirIterator iterator(folder, {QStringLiteral("*.xml")},
                          QDir::Files | QDir::System | QDir::AllDirs | QDir::Hidden | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        const QString path = iterator.next();
        const QFileInfo info = iterator.fileInfo();
        if (!info.isDir()) {
            content.templateFiles.append(path);
        } else if (isUnreadableFolder(info)) {
            content.unreadableFolders.append(path);
        }
    }
    content.templateFiles.sort();
    content.unreadableFolders.sort();
    return content;
}

} // namespace Tobrix::Tools
