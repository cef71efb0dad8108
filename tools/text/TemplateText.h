#pragma once

class QString;

namespace Tobrix::Tools {

struct LoadedTemplate;

/// A loaded template as a person wants to read it: its header, each view with its columns, the value lists
/// and the legends. Ends with a line break.
/// @param loaded a template that did load
/// @param lineWidth the room for a line; tables keep to it where they can
QString templateText(const LoadedTemplate &loaded, int lineWidth);

} // namespace Tobrix::Tools
