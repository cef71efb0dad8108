#pragma once

class QString;

namespace Tobrix::Tools {

/// Why the library does not open a file, for a person to read.
QString whyNotOpened(const QString &fileName);

} // namespace Tobrix::Tools
