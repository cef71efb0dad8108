#pragma once

#include "format_current/CurrentFormat_p.h"
#include "model/CTemplateColumn.h"

#include <QString>

namespace Tobrix::Tools {

/// The name of a control; null for a number that no control has.
QString controlName(int control);

/// Whether a control can edit values of a type.
bool canEdit(int control, Templates::CTemplateColumn::ColumnType type);

/// Whether a control shows something else than the value of a field.
bool isDecoration(int control);

/// Whether a control offers the items of a list and nothing else.
bool isBoundToList(int control);

/// A type in a sentence: "text", "whole number".
QString typeName(Templates::CTemplateColumn::ColumnType type);

} // namespace Tobrix::Tools
