#pragma once

class QString;

namespace Tobrix::Templates {
class TemplateFile;
struct CTemplateRawData;
} // namespace Tobrix::Templates

namespace Tobrix::Tools {

/// What keeps the legacy reader from reading a file to its end; empty when nothing does. Judged by the same
/// parser, along the same path through the document.
QString faultOfLegacyFile(Templates::TemplateFile &file);

/// Where a file of the current format stops being well-formed; empty when it is. Judged by the parser that
/// the format's reader uses.
QString faultOfCurrentFile(Templates::TemplateFile &file);

/// What made the legacy reader stop in the middle of a file that is in order, by what it had read until then.
QString readingFault(const Templates::CTemplateRawData &rawData);

/// Why no template can be built of what the legacy reader has read.
QString buildingFault(const Templates::CTemplateRawData &rawData);

} // namespace Tobrix::Tools
