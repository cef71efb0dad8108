#pragma once

#include <QString>

namespace Tobrix::Templates {
class CTemplateColumn;
}

namespace Tobrix::Tools {

/// The table and the database column that a column is bound to.
QString boundText(const Templates::CTemplateColumn &column);

/// The name of the editor control; its number when no control has that, nothing for none.
QString controlText(const Templates::CTemplateColumn &column);

/// What is special about a column: that it is hidden, read-only and so on.
QString flagsText(const Templates::CTemplateColumn &column);

/// The grouping: a list of levels where it is a mask, a plain number else.
QString groupText(const Templates::CTemplateColumn &column, bool isLevelMask);

/// The default value; texts in quotes, nothing when there is none or a null text.
QString defaultText(const Templates::CTemplateColumn &column);

/// What a value has to keep to: range, step and decimals, length, display format.
QString limitsText(const Templates::CTemplateColumn &column);

} // namespace Tobrix::Tools
