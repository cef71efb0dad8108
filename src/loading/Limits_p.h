#pragma once

namespace Tobrix::Templates::Limits {

// What a template file may ask of the host's process. Templates come by mail and from other offices; a file
// past one of these limits is not read. They hold for what the parsers would make of a file: after entities
// are expanded, and inside a document type. All are generous: real templates nest less than 20 levels, hold
// less than 50,000 columns and have no document type.

/// Bytes of a file. No text of Qt's can hold more than about twice as many characters.
inline constexpr int fileSize = 512 * 1024 * 1024;

/// Elements in each other. Qt's DOM parser and the destruction of its document take about 300 bytes of stack
/// a level, and hosts run threads on 256 KiB. Besides, columns in each other each keep the text of what they
/// hold.
inline constexpr int depth = 48;

/// Attributes of one element. Qt's stream reader compares each with all the others.
inline constexpr int attributesOfElement = 256;

/// Namespace declarations in one document. Qt's stream reader walks over all that are in force for every
/// prefix.
inline constexpr int namespaceDeclarations = 64;

/// Bytes of a document type. It is kept whole to see what its entities come to.
inline constexpr int documentTypeSize = 16 * 1024;

/// Declarations, comments and instructions in a document type. What a parser might take for elements in there
/// cannot be nested deeper than that either.
inline constexpr int documentTypeDeclarations = 100;

/// Parentheses in each other in a content model. Qt's DOM parser descends into them.
inline constexpr int contentModelDepth = 16;

/// Entities in each other. An entity that contains itself has no end.
inline constexpr int entityNesting = 16;

/// References to entities that the document declares, those inside of other entities counted each time. An
/// entity must hold whole elements: what would begin or end within it could not be followed.
inline constexpr int entityReferences = 1000;

/// Characters that all these references come to.
inline constexpr int entityCharacters = 64 * 1024;

/// Attributes, and their characters, that elements get from the defaults of a document type. Every element is
/// reckoned to get them all.
inline constexpr int defaultedAttributes = 10'000;
inline constexpr int defaultedCharacters = 256 * 1024;

/// Columns of all views. A column in views in each other counts for each of them.
inline constexpr int columns = 250'000;

/// Items of all lists. An item in lists in each other counts for each of them.
inline constexpr int listItems = 250'000;

/// Views of a template. They are kept in a hash by their ids, and ids may be made to fall together there: the
/// time that takes grows with the square of their number.
inline constexpr int views = 10'000;

/// Bands of both legends. A band in scopes in each other counts for each of them.
inline constexpr int legendItems = 100'000;

} // namespace Tobrix::Templates::Limits
