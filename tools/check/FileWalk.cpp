#include "tools/check/FileWalk.h"

#include <QDirIterator>

namespace Tobrix::Tools {

QStringList templateFilesIn(const QString &folder)
{
    QStringList files;
    QDirIterator iterator(folder, {QStringLiteral("*.xml")}, QDir::Files | QDir::Hidden,
                          QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        files.append(iterator.next());
    }
    files.sort();
    return files;
}

} // namespace Tobrix::Tools
