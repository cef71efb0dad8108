#pragma once

#include <QLatin1String>

namespace Tobrix::Templates {

/// Why the strict parser leaves a document to Qt's parser.
enum class XmlRefusal : unsigned char {
    None, ///< it does not
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

/// The reason in words.
QLatin1String wordsFor(XmlRefusal refusal);

} // namespace Tobrix::Templates
