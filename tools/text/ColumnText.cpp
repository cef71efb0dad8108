#include "tools/text/ColumnText.h"

#include "tools/text/DisplayText.h"

#include "format_current/CurrentFormat_p.h"
#include "model/CDateColumn.h"
#include "model/CDecimalColumn.h"
#include "model/CIntegerColumn.h"
#include "model/CTextColumn.h"
#include "model/CTimeColumn.h"
#include "rawdata/CColumnData.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

struct Flag
{
    bool (CTemplateColumn::*isSet)() const;
    bool isSpecial; ///< the value that is worth a word
    QLatin1String word;
};

const Flag flags[] = {
    {&CTemplateColumn::isVisible, false, QLatin1String("hidden")},
    {&CTemplateColumn::isReadOnly, true, QLatin1String("read-only")},
    {&CTemplateColumn::isMandatory, true, QLatin1String("mandatory")},
    {&CTemplateColumn::isVirtual, true, QLatin1String("virtual")},
    {&CTemplateColumn::isValueTransfer, true, QLatin1String("transfer")},
};

QString joined(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

/// A range with its step; an end that no file has set is left open.
QString rangeText(double minimum, double maximum, double step)
{
    static const CColumnData unset;
    const bool hasMinimum = minimum != unset.minimumValue;
    const bool hasMaximum = maximum != unset.maximumValue;
    QStringList parts;
    if (hasMinimum && hasMaximum) {
        parts.append(QStringLiteral("%1 … %2").arg(numberText(minimum), numberText(maximum)));
    } else if (hasMinimum) {
        parts.append(QStringLiteral("≥ %1").arg(numberText(minimum)));
    } else if (hasMaximum) {
        parts.append(QStringLiteral("≤ %1").arg(numberText(maximum)));
    }
    if (step != 0.0) {
        parts.append(QStringLiteral("by %1").arg(numberText(step)));
    }
    return parts.join(QLatin1Char(' '));
}

QString limitsOf(const CTextColumn &column)
{
    const int length = column.maximumTextLength();
    return length == 0 ? QString() : QStringLiteral("≤ %1 chars").arg(length);
}

QString limitsOf(const CIntegerColumn &column)
{
    return rangeText(column.minimumValue(), column.maximumValue(), column.stepInterval());
}

QString limitsOf(const CDecimalColumn &column)
{
    return joined({rangeText(column.minimumValue(), column.maximumValue(), column.stepInterval()),
                   counted(column.precision(), QStringLiteral("decimal"), QStringLiteral("decimals"))});
}

QString limitsOf(const CDateColumn &column)
{
    return column.displayFormat();
}

QString valueText(const QVariant &value)
{
    if (value.isNull()) {
        return QString();
    }
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::QString:
        return QStringLiteral("\"%1\"").arg(value.toString());
    case QMetaType::Double:
        return numberText(value.toDouble());
    default:
        return value.toString();
    }
}

} // namespace

QString boundText(const CTemplateColumn &column)
{
    QStringList parts{column.tableName(), column.boundColumn()};
    parts.removeAll(QString());
    return parts.join(QLatin1Char('.'));
}

QString controlText(const CTemplateColumn &column)
{
    const int code = column.getControlType();
    const auto row = std::find_if(std::begin(controlTypeNames), std::end(controlTypeNames),
                                  [&](const auto &control) { return control.controlType == code; });
    return row != std::end(controlTypeNames) ? QString(row->name) : QString::number(code);
}

QString flagsText(const CTemplateColumn &column)
{
    QStringList words;
    for (const auto &flag : flags) {
        if ((column.*flag.isSet)() == flag.isSpecial) {
            words.append(flag.word);
        }
    }
    return joined(words);
}

QString groupText(const CTemplateColumn &column, bool isLevelMask)
{
    const int group = column.groupLevel();
    if (group == 0) {
        return QString();
    }
    if (!isLevelMask) {
        return QString::number(group);
    }
    constexpr int levelCount = 9;
    QStringList levels;
    for (int level = 1; level <= levelCount; ++level) {
        if (group & (1 << (level - 1))) {
            levels.append(QString::number(level));
        }
    }
    return levels.join(QLatin1Char(','));
}

QString defaultText(const CTemplateColumn &column)
{
    switch (column.columnType()) {
    case CTemplateColumn::Date:
        if (static_cast<const CDateColumn &>(column).initializeWithNow()) {
            return QStringLiteral("today");
        }
        break;
    case CTemplateColumn::Time:
        if (static_cast<const CTimeColumn &>(column).initializeWithNow()) {
            return QStringLiteral("now");
        }
        break;
    default:
        break;
    }
    return valueText(column.defaultValue());
}

QString limitsText(const CTemplateColumn &column)
{
    switch (column.columnType()) {
    case CTemplateColumn::Text:
        return limitsOf(static_cast<const CTextColumn &>(column));
    case CTemplateColumn::Integer:
        return limitsOf(static_cast<const CIntegerColumn &>(column));
    case CTemplateColumn::Decimal:
        return limitsOf(static_cast<const CDecimalColumn &>(column));
    case CTemplateColumn::Date:
        return limitsOf(static_cast<const CDateColumn &>(column));
    default:
        return QString();
    }
}

} // namespace Tobrix::Tools
