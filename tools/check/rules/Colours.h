#pragma once

class QString;

namespace Tobrix::Tools {

/// Whether a text is a colour: #rgb, #rrggbb, #aarrggbb, or one of the names that SVG gives to colours.
bool isColour(const QString &text);

} // namespace Tobrix::Tools
