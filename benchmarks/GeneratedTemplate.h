#pragma once

#include <QByteArray>
#include <QString>

namespace Tobrix::Benchmarks {

enum class Format { Current, Legacy };

/// How long the identifiers in a template are: "C00001" or a GUID in braces, 38 characters.
enum class Ids { Short, Guid };

/// A believable template of any size: 40 columns a view, a value list of 8 items for every 20 columns,
/// default values, both legends; captions and tooltips of at most 25 characters. The same content in both
/// formats.
/// @return the bytes of the file
QByteArray generateTemplate(Format format, Ids ids, int columns);

/// Writes a generated template below a folder, where the library takes it for the right format.
/// @return the file's path
QString writeGeneratedTemplate(const QString &folder, Format format, Ids ids, int columns);

} // namespace Tobrix::Benchmarks
