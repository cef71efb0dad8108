#pragma once

#include "tools/json/PropertyJson.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>

namespace Tobrix::Templates {
class CListItem;
class CProgramView;
class CTemplateColumn;
class CTemplateLegendDataItem;
} // namespace Tobrix::Templates

namespace Tobrix::Tools {

struct LogLine;
struct LoadedTemplate;

/// Everything that a host can observe of a loaded template, as `show --json` prints it.
QJsonObject templateJson(const LoadedTemplate &loaded);

/// All common accessors of a column and those that its kind adds; null for a null column.
QJsonValue columnJson(const Templates::CTemplateColumn *column, NullText nullText);

/// Columns in the order given.
QJsonArray columnsJson(const QList<Templates::CTemplateColumn *> &columns, NullText nullText);

/// Views with their columns, sorted by unique id, then by key, since their own order is undefined.
QJsonArray viewsJson(QList<const Templates::CProgramView *> views, NullText nullText);

/// List items in the order given.
QJsonArray listItemsJson(const QList<Templates::CListItem *> &items, NullText nullText);

/// The legend classes of a legend, in the order given.
QJsonArray legendJson(const QList<Templates::CTemplateLegendDataItem> &legend, NullText nullText);

/// Log lines as [level, category, message].
QJsonArray logJson(const QList<LogLine> &log);

} // namespace Tobrix::Tools
