#pragma once

#include "format_current/CurrentFormat_p.h"

#include <QString>
#include <QStringView>

#include <algorithm>

// Conversions and rules of the format that are not table rows.

namespace Tobrix::Templates {

/// The row of a name in a table of names; null when there is none.
template <typename Row, std::size_t Size>
const Row *rowOfName(const Row (&rows)[Size], QStringView name)
{
    const auto found =
        std::find_if(std::begin(rows), std::end(rows), [name](const Row &row) { return name == row.name; });
    return found == std::end(rows) ? nullptr : found;
}

/// The group level of an attribute of a group-level element, 1 to 9: the sixth character of its name. 0 when
/// that is no such digit.
inline int levelOfName(QStringView name)
{
    constexpr int digitPosition = 5;
    if (name.size() <= digitPosition) {
        return 0;
    }
    const ushort character = name.at(digitPosition).unicode();
    return character >= '1' && character <= '9' ? character - '0' : 0;
}

/// Whether a property is the key of its object.
inline bool isKeyProperty(QStringView property)
{
    return property.endsWith(CurrentWords::keySuffix);
}

/// Whether a property refers to an object by its key.
inline bool isForeignKey(QStringView property)
{
    return property.endsWith(CurrentWords::foreignKeySuffix);
}

/// The path to a property of the object that another property refers to.
inline QString shownPath(const QString &reference, const QString &property)
{
    return reference + QLatin1Char('.') + property;
}

/// Whether a column is left out of every view: its bound column, "_" and its table equal an excluded key.
inline bool isExcluded(QStringView boundColumn, QStringView table)
{
    const auto isKey = [&](const ExcludedBinding &binding) {
        const auto size = static_cast<int>(boundColumn.size());
        const QLatin1String key = binding.key;
        return key.size() == size + 1 + table.size() && boundColumn == key.left(size) &&
               key.at(size) == QLatin1Char('_') && table == key.mid(size + 1);
    };
    return std::any_of(std::begin(excludedBindings), std::end(excludedBindings), isKey);
}

} // namespace Tobrix::Templates
