#pragma once

class QFile;

namespace Tobrix::Templates {

/// Opens a template file for reading. Only regular files and Qt resources are opened: whatever else the path
/// names (a folder, a pipe, a device) could block the host's thread for ever.
/// @param file a closed file with its name set
/// @return false when there is nothing to read under that name; the file is closed then
bool openTemplateFile(QFile &file);

} // namespace Tobrix::Templates
