#pragma once

#include <QJsonObject>

class QString;

namespace Tobrix::Tools {

/// Everything that a host can observe of a template file when loading it: the output of `show --json FILE`.
/// @param fileName path of the file; its format follows from the path
/// @return an object with "file", "ok", "template", "views", "itemLists", "legendA", "legendB" and "log".
///        When a file does not load, "template" is null and the others are empty.
QJsonObject describeTemplate(const QString &fileName);

/// The raw record of a template file, before a template is built: the output of `show --json --raw FILE`.
/// @param fileName path of the file; its format follows from the path
/// @return an object with "file", "ok", "header", "catalogs", "views", "columns", "listItems", "legendA",
///        "legendB" and "log"; null texts stay null. When the reader fails, it has what was read before.
QJsonObject describeRawData(const QString &fileName);

} // namespace Tobrix::Tools
