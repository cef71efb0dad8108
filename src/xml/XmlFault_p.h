#pragma once

namespace Tobrix::Templates {

class XmlTree;

/// Where a document is at fault that a parser does not accept. Parsers name the place at which they notice a
/// fault, which lies behind it: behind a tag for an attribute of it, for example.
int placeOfFault(const XmlTree &document, int noticedAt);

} // namespace Tobrix::Templates
