#pragma once

namespace Tobrix::Templates {

class XmlTree;

/// The place of a document's fault. Parsers report where they notice it, which is after it: for a fault in an
/// attribute, after the whole tag, for example.
int placeOfFault(const XmlTree &document, int noticedAt);

} // namespace Tobrix::Templates
