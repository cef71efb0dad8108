#pragma once

#include <string>

namespace Tobrix::Templates {
class CCatalogTemplate;
class XmlDocument;
struct CTemplateRawData;
} // namespace Tobrix::Templates

namespace Tobrix::Fuzzing {

// Everything that can be observed of an object, one property per line, in ASCII: null texts differ from empty
// ones, numbers are written as bit patterns, collections keep their order.

void appendLines(std::string &lines, const Templates::CTemplateRawData &record);
void appendLines(std::string &lines, Templates::CCatalogTemplate &catalogTemplate);

/// The parts of a document on which both parsers must agree: elements, attributes by name, texts, and what
/// separates texts.
void appendLines(std::string &lines, const Templates::XmlDocument &document);

} // namespace Tobrix::Fuzzing
