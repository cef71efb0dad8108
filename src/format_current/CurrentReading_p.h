#pragma once

#include "rawdata/ReadingResult_p.h"

namespace Tobrix::Templates {

class ReadingObserver;
class XmlDocument;
struct CTemplateRawData;

/// Reads a document of the current format, in which elements are found by their names at any depth and of
/// several candidates the first in the document counts.
/// @param document of the Dom dialect. Of one that is not well-formed, what stands before the fault is read.
/// @param rawData owns what is put into it; not emptied before. Of a document over a limit it gets what an
///        empty document gives.
/// @param observer is told what is read and what is not; may be null
ReadingResult readCurrentDocument(const XmlDocument &document, CTemplateRawData &rawData,
                                  ReadingObserver *observer = nullptr);

} // namespace Tobrix::Templates
