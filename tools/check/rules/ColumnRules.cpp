#include "tools/check/rules/ColumnRules.h"

#include "tools/check/CheckedFile.h"
#include "tools/check/rules/ControlTypes.h"
#include "tools/check/rules/Rule.h"
#include "tools/check/rules/Wording.h"

#include "format_current/CurrentFormat_p.h"
#include "rawdata/ColumnTypeCodes_p.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// Calls a function with every column that a host gets.
template <typename Function>
void forEachBuiltColumn(const CheckedFile &file, Function function)
{
    for (const auto &column : file.model().columns) {
        if (column.isBuilt()) {
            function(column);
        }
    }
}

QStringList dataTypeCodes(bool isCurrent)
{
    QStringList names;
    if (isCurrent) {
        for (const auto &row : dataTypeNames) {
            names.append(row.name);
        }
    } else {
        for (const auto &row : columnTypeCodes) {
            names.append(row.code);
        }
    }
    return names;
}

const QStringList &controlNames()
{
    static const QStringList names = [] {
        QStringList all;
        for (const auto &row : controlTypeNames) {
            all.append(row.name);
        }
        return all;
    }();
    return names;
}

int placeOf(const Value &value, int otherwise)
{
    return value.isGiven() ? value.at : otherwise;
}

/// Adds a finding about columns of the same sort order, at the second of them.
void addTie(const CheckedFile &file, const std::vector<const ColumnModel *> &tied, Findings &findings)
{
    const ColumnModel &first = *tied[0];
    const ColumnModel &second = *tied[1];
    const QString others =
        tied.size() == 2 ? QString() : QStringLiteral(", as have %1 more").arg(tied.size() - 2);
    findings.add(
        placeOf(second.sortOrder, second.at),
        QStringLiteral("%1 has the sort order of %2 in line %3, %4%5: which comes first is left to chance")
            .arg(nameOf(second), nameOf(first), QString::number(file.lineOf(first.at)),
                 QString::number(first.order), others));
}

/// Why a view has no columns for a host.
QString whyEmpty(const std::vector<const ColumnModel *> &columns, bool isCurrent)
{
    if (columns.empty()) {
        return QStringLiteral("has no columns");
    }
    return isCurrent ? QStringLiteral("has only columns that are left out of every view")
                     : QStringLiteral("has only columns of unknown data types");
}

/// Whether a column requires a value that users cannot enter.
bool lacksValue(const ColumnModel &column)
{
    return column.isMandatory && !column.isVirtual && !column.isIdentifier() && !column.hasDefault();
}

/// Adds a finding about a column without value, with a reason.
void addLack(const ColumnModel &column, const QString &reason, Findings &findings)
{
    const QString &text = column.defaultValue.text;
    const QString lack = text.isEmpty()
                             ? QStringLiteral("no default")
                             : QStringLiteral("the default %1, which is none to the host").arg(quoted(text));
    // "false" may be written on purpose: hosts use false for a boolean without a default.
    const bool isFalse = column.type == CTemplateColumn::Boolean && text == QLatin1String("false");
    findings.add(isFalse ? Severity::Note : Severity::Warning, column.mandatoryAt,
                 QStringLiteral("%1 must have a value, is %2 and has %3: nobody can fill it in")
                     .arg(nameOf(column), reason, lack));
}

} // namespace

void checkColumnTypes(const CheckedFile &file, Findings &findings)
{
    const QString effect = file.isCurrent() ? QStringLiteral("the host gets an empty place instead of %1")
                                            : QStringLiteral("the host does not get %1");
    for (const auto &column : file.model().columns) {
        if (column.type != CTemplateColumn::Unknown || column.isExcluded) {
            continue;
        }
        const QString lost = effect.arg(nameOf(column));
        if (column.dataType.isEmpty()) {
            findings.add(column.at, QStringLiteral("the column has no data type: %1").arg(lost));
            continue;
        }
        const QString nearest = nearestOf(column.dataType.text, dataTypeCodes(file.isCurrent()));
        findings.add(column.dataType.at, QStringLiteral("data type %1 is unknown: %2%3")
                                             .arg(quoted(column.dataType.text), lost, suggestion(nearest)));
    }
}

void checkControlTypes(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        const Value &control = column.controlType;
        if (file.isCurrent() && !control.isPadded() && !controlNames().contains(control.text)) {
            const QString nearest = nearestOf(control.text, controlNames());
            findings.add(control.at, QStringLiteral("control %1 is unknown: the column has no control%2")
                                         .arg(quoted(control.text), suggestion(nearest)));
        } else if (!file.isCurrent() && controlName(column.control).isNull()) {
            findings.add(control.at, QStringLiteral("no control has the number %1: the host gets it as it is")
                                         .arg(column.control));
        }
    });
}

void checkControlFit(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        if (!canEdit(column.control, column.type)) {
            findings.add(column.controlType.at,
                         QStringLiteral("a %1 cannot edit what %2 holds, a %3")
                             .arg(controlName(column.control), nameOf(column), typeName(column.type)));
        }
    });
}

void checkViewIds(const CheckedFile &file, Findings &findings)
{
    const auto &views = file.model().views;
    for (const auto &view : views) {
        if (!view.isReplaced() || view.id.isEmpty()) {
            continue;
        }
        const ViewModel &later = views[static_cast<std::size_t>(view.replacedBy)];
        const QString columns = file.isCurrent() ? QStringLiteral(" with its columns") : QString();
        findings.add(later.id.at,
                     QStringLiteral("a view in line %1 has the id %2 already: that view is lost%3")
                         .arg(file.lineOf(view.at))
                         .arg(quoted(view.id.text), columns));
    }
}

void checkViewKeys(const CheckedFile &file, Findings &findings)
{
    QHash<QString, int> places;
    for (const auto &view : file.model().views) {
        if (view.isReplaced() || view.key.isEmpty()) {
            continue;
        }
        const auto earlier = places.constFind(view.key.text);
        if (earlier == places.cend()) {
            places.insert(view.key.text, view.at);
        } else {
            findings.add(view.key.at,
                         QStringLiteral("the view in line %1 has the key %2 as well: which of the two "
                                        "the host finds by it is left to chance")
                             .arg(file.lineOf(*earlier))
                             .arg(quoted(view.key.text)));
        }
    }
}

void checkEmptyViews(const CheckedFile &file, Findings &findings)
{
    const TemplateModel &model = file.model();
    const auto isLost = [](const ColumnModel &column) {
        return column.view < 0 && column.type != CTemplateColumn::Unknown;
    };
    if (std::any_of(model.columns.begin(), model.columns.end(), isLost)) {
        return; // another rule reports where the columns belong
    }
    const auto isLeftOut = [&file](const ColumnModel *column) {
        return file.isCurrent() ? column->isExcluded : column->type == CTemplateColumn::Unknown;
    };
    for (std::size_t i = 0; i < model.views.size(); ++i) {
        const auto columns = model.columnsOf(i);
        if (!model.views[i].isReplaced() && std::all_of(columns.begin(), columns.end(), isLeftOut)) {
            findings.add(model.views[i].at,
                         QStringLiteral("view %1 %2: the host shows an empty form")
                             .arg(quoted(model.views[i].key.text), whyEmpty(columns, file.isCurrent())));
        }
    }
}

void checkDuplicateBindings(const CheckedFile &file, Findings &findings)
{
    QHash<QString, const ColumnModel *> bound;
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        if (column.isUnbound() || isDecoration(column.control)) {
            return;
        }
        const QString key =
            QString::number(column.view) + QLatin1Char('/') + column.table + QLatin1Char('/') + column.path;
        const ColumnModel *&earlier = bound[key];
        if (!earlier) {
            earlier = &column;
            return;
        }
        findings.add(
            column.boundColumn.at,
            QStringLiteral("%1 and %2 in line %3 are both bound to %4: by that name the host finds only "
                           "the one that is sorted first")
                .arg(nameOf(column), nameOf(*earlier), QString::number(file.lineOf(earlier->at)),
                     quoted(column.path)));
    });
}

void checkBindings(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        if (column.isUnbound() && !column.isVirtual && !isDecoration(column.control)) {
            const QString fault = column.path.isEmpty()
                                      ? QStringLiteral("is bound to no field")
                                      : QStringLiteral("is bound to white space instead of a field");
            findings.add(
                column.path.isEmpty() ? column.at : column.boundColumn.at,
                QStringLiteral("%1 %2: the host has nowhere to keep its value").arg(nameOf(column), fault));
        }
    });
}

void checkExcludedColumns(const CheckedFile &file, Findings &findings)
{
    for (const auto &column : file.model().columns) {
        if (column.isExcluded && column.isVisible) {
            findings.add(column.at,
                         QStringLiteral("%1 is left out of every view, since it is bound to %2 of %3")
                             .arg(nameOf(column), column.path, column.table));
        }
    }
}

void checkAlwaysHidden(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        if (column.isAlwaysHidden && column.visibilityAt >= 0) {
            findings.add(column.visibilityAt, QStringLiteral("%1 stays hidden: the host never shows %2 of %3")
                                                  .arg(nameOf(column), column.path, column.table));
        }
    });
}

void checkForcedDefaults(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        if (column.isForcedToDefault) {
            findings.add(column.at,
                         QStringLiteral("%1 gets the default \"NOD\", as every %2 of %3 without one does")
                             .arg(nameOf(column), column.path, column.table));
        }
    });
}

void checkSortOrders(const CheckedFile &file, Findings &findings)
{
    const TemplateModel &model = file.model();
    for (std::size_t view = 0; view < model.views.size(); ++view) {
        QHash<int, std::vector<const ColumnModel *>> byOrder;
        for (const ColumnModel *column : model.columnsOf(view)) {
            // The order of hidden columns is not visible.
            if (column->isBuilt() && column->isVisible) {
                byOrder[column->order].push_back(column);
            }
        }
        for (const auto &tied : qAsConst(byOrder)) {
            if (tied.size() > 1) {
                addTie(file, tied, findings);
            }
        }
    }
}

void checkEmptyRanges(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        const ColumnRange range = column.range();
        if (column.isNumeric() && range.isEmpty()) {
            findings.add(placeOf(column.rangeTo, column.rangeFrom.at),
                         QStringLiteral("no value is within the range of %1, from %2 to %3")
                             .arg(nameOf(column), inWords(range.minimum), inWords(range.maximum)));
        }
    });
}

void checkIgnoredRanges(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        for (const Value *limit : {&column.rangeFrom, &column.rangeTo, &column.step}) {
            // Zeros are common as placeholders for no range.
            if (!column.isNumeric() && limit->text.toDouble() != 0.0) {
                findings.add(limit->at, QStringLiteral("%1 is a %2, which has no range: this one is ignored")
                                            .arg(nameOf(column), typeName(column.type)));
                return;
            }
        }
    });
}

void checkIgnoredLengths(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        if (column.type != CTemplateColumn::Text && column.maximumLength > 0) {
            findings.add(column.length.at,
                         QStringLiteral("%1 is a %2, which has no length: this one is ignored")
                             .arg(nameOf(column), typeName(column.type)));
        }
    });
}

void checkIgnoredFormats(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        if (column.type != CTemplateColumn::Date && !column.displayFormat.isBlank()) {
            findings.add(
                column.displayFormat.at,
                QStringLiteral("%1 is a %2, and only dates have a display format: this one is ignored")
                    .arg(nameOf(column), typeName(column.type)));
        }
    });
}

void checkValueTransfers(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        if (column.valueTransferResetAt >= 0) {
            findings.add(
                column.valueTransferResetAt,
                QStringLiteral("this reference takes back the value transfer that line %1 asks for: the "
                               "last of COL_Template_FK, COL_Bound_TableDir_REF and COL_ValueTransfer "
                               "decides")
                    .arg(file.lineOf(column.valueTransfer.at)));
        }
    });
}

void checkColumnViews(const CheckedFile &file, Findings &findings)
{
    QStringList ids;
    QSet<QString> keys;
    for (const auto &view : file.model().views) {
        ids.append(view.id.text);
        keys.insert(view.key.text);
    }
    NearestNames nearestIds(ids);
    for (const auto &column : file.model().columns) {
        if (column.view >= 0 || column.type == CTemplateColumn::Unknown) {
            continue;
        }
        const QString &reference = column.viewRef.text;
        const QString fault = column.viewRef.isGiven()
                                  ? QStringLiteral("there is no view %1").arg(quoted(reference))
                                  : QStringLiteral("%1 names no view").arg(nameOf(column));
        const QString hint = keys.contains(reference) ? QStringLiteral("; that is a view's key, not its id")
                                                      : suggestion(nearestIds.of(reference));
        findings.add(column.viewRef.at, QStringLiteral("%1: the host refuses the file%2").arg(fault, hint));
    }
}

void checkMandatoryHidden(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        if (lacksValue(column) && !column.isVisible) {
            addLack(column, QStringLiteral("never shown"), findings);
        }
    });
}

void checkMandatoryReadOnly(const CheckedFile &file, Findings &findings)
{
    forEachBuiltColumn(file, [&](const ColumnModel &column) {
        if (lacksValue(column) && column.isVisible && column.isReadOnly) {
            addLack(column, QStringLiteral("read-only"), findings);
        }
    });
}

} // namespace Tobrix::Tools
