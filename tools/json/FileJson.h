#pragma once

#include <QJsonObject>

class QString;

namespace Tobrix::Tools {

/// Loads a template file and tells everything that a host can observe of the result: what
/// `show --json FILE` prints.
/// @param fileName path of the file; its format follows from the path
/// @return an object with "file", "ok", "template", "views", "itemLists", "legendA", "legendB" and "log". Of
///        a file that does not load, "template" is null and the others are empty.
QJsonObject describeTemplate(const QString &fileName);

/// Reads a template file and tells what the format's reader found, before anything is built of it: what
/// `show --json --raw FILE` prints.
/// @param fileName path of the file; its format follows from the path
/// @return an object with "file", "ok", "header", "catalogs", "views", "columns", "listItems", "legendA",
///        "legendB" and "log"; texts are null where the reader left them null. Of a file that is given up
///        half way, it has what was read up to there.
QJsonObject describeRawData(const QString &fileName);

} // namespace Tobrix::Tools
