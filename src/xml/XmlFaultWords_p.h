#pragma once

class QByteArray;
class QString;

namespace Tobrix::Templates {

class XmlDocument;

/// Why a document is not well-formed, as the end of a sentence. Of a tag that is missing or does not match,
/// it names the start tag and its line, else it is the parser's explanation.
/// @param document has a fault
/// @param bytes of the file that it was parsed from
QString explanationOf(const XmlDocument &document, const QByteArray &bytes);

} // namespace Tobrix::Templates
