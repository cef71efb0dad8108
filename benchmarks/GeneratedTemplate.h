#pragma once

#include <QByteArray>
#include <QString>

namespace Tobrix::Benchmarks {

enum class Format { Current, Legacy };

/// The kind of markup in a generated template.
enum class Shape {
    Short,  ///< identifiers of a few characters
    Guid,   ///< identifiers of 38 characters: GUIDs in braces
    Varied, ///< as other programs write it: grouping elements in the current format; comments, CR LF, tabs,
            ///< references, characters beyond ASCII and longer lists in the legacy format
    DocumentType ///< as Short, with a document type in front, for which a template is read by Qt's parser
};

/// A realistic template of any size, with the same content in both formats: 40 columns per view, a value list
/// for every 20 columns, default values, both legends, captions and tooltips of at most 25 characters.
/// @return the bytes of the file
QByteArray generateTemplate(Format format, Shape shape, int columns);

/// Writes a generated template to a folder whose path implies the format.
/// @return the file's path
QString writeGeneratedTemplate(const QString &folder, Format format, Shape shape, int columns);

} // namespace Tobrix::Benchmarks
