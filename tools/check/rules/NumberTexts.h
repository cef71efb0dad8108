#pragma once

class QString;

namespace Tobrix::Tools {

// Whether a text is written as a number, in range or not.

bool isWholeNumberText(const QString &text);
bool isRealNumberText(const QString &text);

} // namespace Tobrix::Tools
