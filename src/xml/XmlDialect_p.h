#pragma once

namespace Tobrix::Templates {

/// What a document reports of one and the same text. The two formats were defined by two parsers of Qt's.
enum class XmlDialect : unsigned char {
    /// As QDomDocument: qualified names, line ends and attribute values as they stand, no run of text that is
    /// whitespace alone; of an attribute that is repeated the last one counts.
    Dom,
    /// As QXmlStreamReader: local names of elements, line ends normalized, in attributes to blanks;
    /// undeclared prefixes and repeated attributes are faults.
    Stream
};

} // namespace Tobrix::Templates
