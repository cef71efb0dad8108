#pragma once

#include <QString>

namespace Tobrix::Templates {

/// Whether the file under a path is in the current format: it lies anywhere below a folder for new templates.
inline bool isCurrentFormatPath(const QString &path)
{
    return path.contains(QLatin1String("templates_new/"), Qt::CaseSensitive);
}

} // namespace Tobrix::Templates
