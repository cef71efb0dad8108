#pragma once

#include "rawdata/ReadingResult_p.h"

namespace Tobrix::Templates {

class ReadingObserver;
class XmlDocument;
struct CTemplateRawData;

/// Reads a document of the legacy format, made for the dialect of streams, into a record that is empty.
/// @param rawData what was read, up to the node that the reading stopped at; an object in progress is dropped
/// @param observer is told everything; null for nobody
ReadingResult readLegacyDocument(const XmlDocument &document, CTemplateRawData &rawData,
                                 ReadingObserver *observer = nullptr);

} // namespace Tobrix::Templates
