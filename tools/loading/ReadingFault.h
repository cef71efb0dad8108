#pragma once

class QString;

namespace Tobrix::Templates {
class GuardedFile;
struct CTemplateRawData;
} // namespace Tobrix::Templates

namespace Tobrix::Tools {

/// What keeps the legacy reader from reading a file to its end, and where; empty when nothing does. Judged by
/// the same parser, along the same path through the document.
QString faultOfLegacyFile(Templates::GuardedFile &file);

/// Where a file of the current format stops being well-formed, or goes past a limit; empty when it does
/// neither. Judged by the parser that the format's reader uses.
QString faultOfCurrentFile(Templates::GuardedFile &file);

/// Why no template can be built of what the legacy reader has read.
QString buildingFault(const Templates::CTemplateRawData &rawData);

} // namespace Tobrix::Tools
