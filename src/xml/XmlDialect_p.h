#pragma once

namespace Tobrix::Templates {

/// What a document reports of the same text. Each format is defined by one of Qt's parsers.
enum class XmlDialect : unsigned char {
    /// As QDomDocument: qualified names, line ends and attribute values unchanged, no text of whitespace
    /// only; the last of repeated attributes counts.
    Dom,
    /// As QXmlStreamReader: local names of elements, line ends normalized, in attributes to blanks;
    /// undeclared prefixes and repeated attributes are faults.
    Stream
};

} // namespace Tobrix::Templates
