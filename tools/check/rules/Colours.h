#pragma once

class QString;

namespace Tobrix::Tools {

/// Whether a text is a colour: #rgb, #rrggbb, #aarrggbb, or one of SVG's colour names.
bool isColour(const QString &text);

} // namespace Tobrix::Tools
