#pragma once

class QString;

namespace Tobrix::Templates {

class SourcePlaces;
class XmlTree;

/// The explanation of a tag or comment that does not match or has no end, with the line in which it begins:
/// the end of a sentence. Empty for any other fault.
/// @param places of the document's source
/// @param faultAt the offset of the fault in the source
QString wordsForFault(const XmlTree &document, const SourcePlaces &places, int faultAt);

} // namespace Tobrix::Templates
