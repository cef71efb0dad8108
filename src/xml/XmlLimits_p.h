#pragma once

namespace Tobrix::Templates::Limits {

// Limits of the markup of a template file. They apply to the parsers' output, after entities are expanded,
// and inside a document type. Real templates have less than 20 levels and no document type.

/// Bytes of a file. No text of Qt's can hold more than about twice as many characters.
inline constexpr int fileSize = 512 * 1024 * 1024;

/// Nesting depth of elements. Qt's DOM parser and the document's destructor need about 300 bytes of stack per
/// level, and hosts run threads on 256 KiB. Each nested column also holds the text of its descendants.
inline constexpr int depth = 48;

/// Attributes of one element. Qt's stream reader compares each with all the others.
inline constexpr int attributesOfElement = 256;

/// Different names of elements and attributes in one document: what fits the 24 bits of a node.
inline constexpr int names = 0xFFFFFF;

/// Namespace declarations in one document. Qt's stream reader searches all that are in scope for every
/// prefix.
inline constexpr int namespaceDeclarations = 64;

/// Bytes of a document type. It is buffered whole to compute the size of its entities.
inline constexpr int documentTypeSize = 16 * 1024;

/// Declarations, comments and instructions in a document type. This also limits the nesting depth of anything
/// in it that a parser could treat as elements.
inline constexpr int documentTypeDeclarations = 100;

/// Nesting depth of parentheses in a content model. Qt's DOM parser is recursive there.
inline constexpr int contentModelDepth = 16;

/// Nesting depth of entities. An entity that contains itself never ends.
inline constexpr int entityNesting = 16;

/// References to declared entities; nested references count each time. An entity must consist of complete
/// elements.
inline constexpr int entityReferences = 1000;

/// Total characters that these references expand to.
inline constexpr int entityCharacters = 64 * 1024;

/// Attributes, and their characters, that elements get by default. Every element counts as if it got all of
/// them.
inline constexpr int defaultedAttributes = 10'000;
inline constexpr int defaultedCharacters = 256 * 1024;

} // namespace Tobrix::Templates::Limits
