#pragma once

#include "rawdata/ReadingResult_p.h"

namespace Tobrix::Templates {

class ReadingObserver;
class XmlDocument;
struct CTemplateRawData;

/// Reads a document of the Stream dialect in the legacy format into an empty record.
/// @param rawData what was read before the node that the reading stopped at; an unfinished object is dropped
/// @param observer receives everything that is read or skipped; may be null
ReadingResult readLegacyDocument(const XmlDocument &document, CTemplateRawData &rawData,
                                 ReadingObserver *observer = nullptr);

} // namespace Tobrix::Templates
