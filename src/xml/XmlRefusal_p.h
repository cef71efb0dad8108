#pragma once

#include <QLatin1String>

namespace Tobrix::Templates {

/// Why the strict parser refuses a document, which Qt's parser reads then.
enum class XmlRefusal : unsigned char {
    None, ///< not refused
    Forced,
    Empty,
    Declaration,
    Encoding,
    UndecodableBytes,
    Character,
    ByteOrderMark,
    DocumentType,
    Limit,
    Name,
    Tag,
    RepeatedAttribute,
    Namespace,
    Reference,
    Markup,
    Nesting,
    TooManyNames,

    Count
};

QLatin1String wordsFor(XmlRefusal refusal);

} // namespace Tobrix::Templates
