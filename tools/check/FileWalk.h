#pragma once

#include <QStringList>

namespace Tobrix::Tools {

/// The template files (*.xml) in a folder and those below it, in the order of their names. Links to folders
/// are not followed.
QStringList templateFilesIn(const QString &folder);

} // namespace Tobrix::Tools
