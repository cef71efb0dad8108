#pragma once

#include "format_current/CurrentReading_p.h"
#include "format_legacy/LegacyReading_p.h"
#include "loading/TemplateFormat.h"
#include "rawdata/ReadingResult_p.h"
#include "xml/XmlDialect_p.h"

#include <QLatin1String>

namespace Tobrix::Templates {

class ReadingObserver;
class XmlDocument;
struct CTemplateRawData;

/// The properties of a format that other modules need.
struct TemplateFormatRow
{
    TemplateFormat format;
    QLatin1String name; ///< for people, before "format"
    XmlDialect dialect;
    QLatin1String logMessage;
    bool viewsHoldColumns; ///< otherwise columns name their view, and the builder attaches them
    bool keepsBeginning;   ///< of a document that is not well-formed
    ReadingResult (*read)(const XmlDocument &document, CTemplateRawData &rawData, ReadingObserver *observer);
};

inline constexpr TemplateFormatRow templateFormats[] = {
    {TemplateFormat::Legacy, QLatin1String("legacy"), XmlDialect::Stream,
     QLatin1String("Old templates version used for available projects standards reading"), false, false,
     readLegacyDocument},
    {TemplateFormat::Current, QLatin1String("current"), XmlDialect::Dom,
     QLatin1String("New templates version used for available projects standards reading"), true, true,
     readCurrentDocument},
};

/// The row of a format.
constexpr const TemplateFormatRow &rowOf(TemplateFormat format)
{
    const TemplateFormatRow *row = templateFormats;
    while (row->format != format) {
        ++row;
    }
    return *row;
}

} // namespace Tobrix::Templates
