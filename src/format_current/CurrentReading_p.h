#pragma once

#include "rawdata/ReadingResult_p.h"

namespace Tobrix::Templates {

class ReadingObserver;
class XmlDocument;
struct CTemplateRawData;

/// Reads a document of the current format, in which elements are found by name at any depth, and of several
/// candidates the first in the document counts.
/// @param document of the Dom dialect; up to its fault when it is not well-formed
/// @param rawData is not emptied before, and owns what is added to it. A document over a limit gives the same
///        as an empty one.
/// @param observer receives everything that is read or skipped; may be null
ReadingResult readCurrentDocument(const XmlDocument &document, CTemplateRawData &rawData,
                                  ReadingObserver *observer = nullptr);

} // namespace Tobrix::Templates
