#pragma once

#include <QByteArray>
#include <QString>

namespace Tobrix::Benchmarks {

enum class Format { Current, Legacy };

/// What the markup of a template looks like.
enum class Shape {
    Short,       ///< identifiers of a few characters
    Guid,        ///< identifiers of 38 characters: GUIDs in braces
    Varied,      ///< what other programs write: elements that group others in the current format; comments,
                 ///< tabs, CR LF, characters beyond ASCII, references and longer lists in the legacy format
    DocumentType ///< as Short, with a document type in front, for which a template is read by Qt's parser
};

/// A believable template of any size: 40 columns a view, a value list for every 20 columns, default values,
/// both legends; captions and tooltips of at most 25 characters. The same content in both formats.
/// @return the bytes of the file
QByteArray generateTemplate(Format format, Shape shape, int columns);

/// Writes a generated template below a folder, where the library takes it for the right format.
/// @return the file's path
QString writeGeneratedTemplate(const QString &folder, Format format, Shape shape, int columns);

} // namespace Tobrix::Benchmarks
