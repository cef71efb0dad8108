#pragma once

class QString;

namespace Tobrix::Templates {

/// Why a file cannot be opened: the end of a sentence that begins with its name.
QString whyNotOpened(const QString &fileName);

} // namespace Tobrix::Templates
