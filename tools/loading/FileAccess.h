#pragma once

#include <QFile>

class QString;

namespace Tobrix::Tools {

/// Opens a template file for reading, by the library's own rules: regular files and Qt resources alone, and
/// never waiting for the other end of a pipe.
/// @param file a closed file with its name set
bool openTemplate(QFile &file);

/// Why openTemplate() refuses a file, for a person to read.
QString whyNotOpened(const QString &fileName);

} // namespace Tobrix::Tools
