#include "tools/check/rules/DefaultRules.h"

#include "tools/check/CheckedFile.h"
#include "tools/check/rules/ControlTypes.h"
#include "tools/check/rules/NumberTexts.h"
#include "tools/check/rules/Rule.h"
#include "tools/check/rules/Wording.h"

#include "loading/MissingDefaults_p.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <optional>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// Why a default value applies to no column.
enum class Miss { None, ViewIsId, KeyIsShown, NoColumn };

/// The possible targets of default values.
class DefaultTargets
{
public:
    explicit DefaultTargets(const TemplateModel &model)
    {
        for (const auto &view : model.views) {
            m_viewIds.insert(view.id.text, view.key.text);
            m_viewKeys.insert(view.key.text);
        }
        for (const auto &column : model.columns) {
            if (column.showsKeyInDetail) {
                const auto &view = model.views[static_cast<std::size_t>(column.view)];
                m_shownKeys.insert(view.key.text + QLatin1Char('/') + column.ownPath, column.path);
            }
        }
    }

    Miss missOf(const DefaultModel &item) const
    {
        if (item.isUsed || item.view.isPadded()) {
            return Miss::None;
        }
        if (m_shownKeys.contains(keyOf(item))) {
            return Miss::KeyIsShown;
        }
        const bool isId = !m_viewKeys.contains(item.view.text) && m_viewIds.contains(item.view.text);
        return isId ? Miss::ViewIsId : Miss::NoColumn;
    }

    bool hasView(const QString &key) const { return m_viewKeys.contains(key); }
    QString keyOfView(const QString &id) const { return m_viewIds.value(id); }
    QString shownPath(const DefaultModel &item) const { return m_shownKeys.value(keyOf(item)); }

private:
    static QString keyOf(const DefaultModel &item) { return item.view.text + QLatin1Char('/') + item.path; }

    QHash<QString, QString> m_viewIds;
    QSet<QString> m_viewKeys;
    QHash<QString, QString> m_shownKeys;
};

QStringList viewKeysOf(const TemplateModel &model)
{
    QStringList keys;
    for (const auto &view : model.views) {
        keys.append(view.key.text);
    }
    return keys;
}

/// Calls a function with every default value that misses its column in one way.
template <typename Function>
void forEachMiss(const CheckedFile &file, Miss miss, Function function)
{
    const DefaultTargets targets(file.model());
    for (const auto &item : file.model().defaults) {
        if (targets.missOf(item) == miss) {
            function(item, targets);
        }
    }
}

/// Calls a function with every column that a host gets with a default value from the file.
template <typename Function>
void forEachDefault(const CheckedFile &file, Function function)
{
    for (const auto &column : file.model().columns) {
        if (column.isBuilt() && !column.defaultValue.isEmpty()) {
            function(column);
        }
    }
}

/// The number of a default value; none when it is invalid.
std::optional<double> numberOf(const ColumnModel &column)
{
    bool isNumber = false;
    const QString &text = column.defaultValue.text;
    const double number = column.type == CTemplateColumn::Integer
                              ? static_cast<double>(text.toInt(&isNumber, 10))
                              : text.toDouble(&isNumber);
    return isNumber ? std::optional<double>(number) : std::nullopt;
}

/// Whether a default value is a number out of range for its column's type.
bool isBeyondType(const ColumnModel &column)
{
    const QString &text = column.defaultValue.text;
    return column.isNumeric() && !numberOf(column) &&
           (column.type == CTemplateColumn::Integer ? isWholeNumberText(text) : isRealNumberText(text));
}

void addBeyondType(const ColumnModel &column, Findings &findings)
{
    const QString &text = column.defaultValue.text;
    const bool isInteger = column.type == CTemplateColumn::Integer;
    findings.add(column.defaultValue.at,
                 QStringLiteral("default %1 of %2 does not fit into %3 bits: it becomes %4")
                     .arg(quoted(text), nameOf(column), QString::number(isInteger ? 32 : 64),
                          inWords(isInteger ? 0.0 : text.toDouble())));
}

bool isTrueOrNone(const QString &text)
{
    return text == QLatin1String("true") || text == QLatin1String("false") || text.isEmpty();
}

bool isInList(const ColumnModel &column, const ListModel &list)
{
    const QString &text = column.defaultValue.text;
    const auto wanted = column.isNumeric() ? numberOf(column) : std::nullopt;
    const bool isWantedNumber = wanted.has_value();
    const double number = wanted.value_or(0.0);
    return std::any_of(list.items.begin(), list.items.end(), [&](const ListItemModel &item) {
        bool isNumber = false;
        const double stored = item.item.text.toDouble(&isNumber);
        return item.item.text == text || item.internalValue.text == text ||
               (isWantedNumber && isNumber && stored == number);
    });
}

} // namespace

void checkUnusedDefaults(const CheckedFile &file, Findings &findings)
{
    NearestNames viewKeys(viewKeysOf(file.model()));
    forEachMiss(file, Miss::NoColumn, [&](const DefaultModel &item, const DefaultTargets &targets) {
        const QString fault = targets.hasView(item.view.text)
                                  ? QStringLiteral("no column of view %1 is bound to %2")
                                        .arg(quoted(item.view.text), quoted(item.path))
                                  : QStringLiteral("there is no view %1%2")
                                        .arg(quoted(item.view.text), suggestion(viewKeys.of(item.view.text)));
        findings.add(item.at, QStringLiteral("this default is never used: %1").arg(fault));
    });
}

void checkDefaultViews(const CheckedFile &file, Findings &findings)
{
    forEachMiss(file, Miss::ViewIsId, [&](const DefaultModel &item, const DefaultTargets &targets) {
        findings.add(item.view.at,
                     QStringLiteral("%1 is the view's Id: defaults name a view by its Name, %2, and "
                                    "this one is never used")
                         .arg(quoted(item.view.text), quoted(targets.keyOfView(item.view.text))));
    });
}

void checkUnreachableDefaults(const CheckedFile &file, Findings &findings)
{
    forEachMiss(file, Miss::KeyIsShown, [&](const DefaultModel &item, const DefaultTargets &targets) {
        findings.add(item.at,
                     QStringLiteral("this default is never used: in view %1 the column shows the key and is "
                                    "bound to %2, not to %3")
                         .arg(quoted(item.view.text), quoted(targets.shownPath(item)), quoted(item.path)));
    });
}

void checkOverwrittenDefaults(const CheckedFile &file, Findings &findings)
{
    for (const auto &item : file.model().defaults) {
        if (item.overwrites >= 0) {
            findings.add(item.at, QStringLiteral(
                                      "a second default for %1 in view %2: it overwrites the one in line %3")
                                      .arg(quoted(item.path), quoted(item.view.text),
                                           QString::number(file.lineOf(item.overwrites))));
        }
    }
}

void checkDefaultNumbers(const CheckedFile &file, Findings &findings)
{
    forEachDefault(file, [&](const ColumnModel &column) {
        if (!column.isNumeric() || isBeyondType(column)) {
            return;
        }
        const auto number = numberOf(column);
        if (!number) {
            findings.add(column.defaultValue.at,
                         QStringLiteral("default %1 of %2 is not a %3: it becomes 0")
                             .arg(quoted(column.defaultValue.text), nameOf(column), typeName(column.type)));
        } else if (std::isnan(*number)) {
            findings.add(
                column.defaultValue.at,
                QStringLiteral("default %1 of %2 is no number that could be compared with its range: "
                               "new records start with it")
                    .arg(quoted(column.defaultValue.text), nameOf(column)));
        }
    });
}

void checkDefaultRanges(const CheckedFile &file, Findings &findings)
{
    forEachDefault(file, [&](const ColumnModel &column) {
        if (isBeyondType(column)) {
            addBeyondType(column, findings);
            return;
        }
        if (!column.isNumeric()) {
            return;
        }
        const auto number = numberOf(column);
        const ColumnRange range = column.range();
        if (number && !range.isEmpty() && (*number < range.minimum || *number > range.maximum)) {
            findings.add(
                column.defaultValue.at,
                QStringLiteral("default %1 of %2 is not within its range, from %3 to %4")
                    .arg(inWords(*number), nameOf(column), inWords(range.minimum), inWords(range.maximum)));
        }
    });
}

void checkDefaultLengths(const CheckedFile &file, Findings &findings)
{
    forEachDefault(file, [&](const ColumnModel &column) {
        const int size = column.defaultValue.text.size();
        if (column.type == CTemplateColumn::Text && column.maximumLength > 0 && size > column.maximumLength) {
            findings.add(column.defaultValue.at,
                         QStringLiteral("default %1 has %2: %3 stores at most %4")
                             .arg(quoted(column.defaultValue.text), lengthInWords(column.defaultValue.text),
                                  nameOf(column), QString::number(column.maximumLength)));
        }
    });
}

void checkIgnoredDefaults(const CheckedFile &file, Findings &findings)
{
    forEachDefault(file, [&](const ColumnModel &column) {
        const QString &text = column.defaultValue.text;
        const bool isOfTime = column.type == CTemplateColumn::Date || column.type == CTemplateColumn::Time;
        if (isOfTime && text != todayMarker) {
            findings.add(column.defaultValue.at,
                         QStringLiteral("default %1 is ignored: a %2 takes only \"%3\"")
                             .arg(quoted(text), typeName(column.type), QString(todayMarker)));
        } else if (column.type == CTemplateColumn::Boolean && !isTrueOrNone(text)) {
            findings.add(
                column.defaultValue.at,
                QStringLiteral("default %1 is ignored: a boolean takes only \"true\"").arg(quoted(text)));
        }
    });
}

void checkDefaultsInLists(const CheckedFile &file, Findings &findings)
{
    forEachDefault(file, [&](const ColumnModel &column) {
        const ListModel *list = file.model().list(column.listName.text);
        const bool takesAny = column.type == CTemplateColumn::Boolean || !isBoundToList(column.control);
        const bool isNoNumber = column.isNumeric() && !numberOf(column);
        if (list && !column.listName.isEmpty() && !takesAny && !isNoNumber && !isInList(column, *list)) {
            findings.add(column.defaultValue.at,
                         QStringLiteral("default %1 of %2 is no item of list %3")
                             .arg(quoted(column.defaultValue.text), nameOf(column), quoted(list->name)));
        }
    });
}

} // namespace Tobrix::Tools
