#pragma once

#include <QJsonObject>

namespace Tobrix::Tools {

struct LoadedRawData;

/// A raw record as `show --json --raw` prints it. Null texts are null.
QJsonObject rawDataJson(const LoadedRawData &loaded);

} // namespace Tobrix::Tools
