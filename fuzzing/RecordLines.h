#pragma once

#include <string>

namespace Tobrix::Templates {
class CCatalogTemplate;
class XmlDocument;
struct CTemplateRawData;
} // namespace Tobrix::Templates

namespace Tobrix::Fuzzing {

// Everything that can be observed of an object, one property a line, in ASCII: null texts differ from empty
// ones, numbers are written by their bits, the order of all collections is their own.

void appendLines(std::string &lines, const Templates::CTemplateRawData &record);
void appendLines(std::string &lines, Templates::CCatalogTemplate &catalogTemplate);

/// What both ways of making a document must agree on: elements, their attributes by name, pieces of text and
/// what separates them.
void appendLines(std::string &lines, const Templates::XmlDocument &document);

} // namespace Tobrix::Fuzzing
