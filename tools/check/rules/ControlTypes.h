#pragma once

#include "format_current/CurrentFormat_p.h"
#include "model/CTemplateColumn.h"

#include <QString>

namespace Tobrix::Tools {

/// The name of a control; null for an unknown number.
QString controlName(int control);

/// Whether a control can edit values of a type.
bool canEdit(int control, Templates::CTemplateColumn::ColumnType type);

/// Whether a control shows something other than the value of a field.
bool isDecoration(int control);

/// Whether a control offers only the items of a list.
bool isBoundToList(int control);

/// A type in a sentence: "text", "whole number".
QString typeName(Templates::CTemplateColumn::ColumnType type);

} // namespace Tobrix::Tools
