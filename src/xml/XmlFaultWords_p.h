#pragma once

class QString;

namespace Tobrix::Templates {

class SourcePlaces;
class XmlTree;

/// What is wrong with a tag or a comment that does not match or has no end, with the line in which it begins:
/// as the end of a sentence. Empty for any other fault.
/// @param places of the source of the document
/// @param faultAt the place of the fault in the source
QString wordsForFault(const XmlTree &document, const SourcePlaces &places, int faultAt);

} // namespace Tobrix::Templates
