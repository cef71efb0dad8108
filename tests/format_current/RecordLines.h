#pragma once

#include "support/ColumnProperties.h"
#include "support/RecordProperties.h"

#include "model/CProgramView.h"
#include "rawdata/CTemplateRawData.h"

#include <QStringList>

/// Values in one line, each with its type.
inline QString lineOf(const QString &subject, const QVariantMap &values)
{
    QStringList parts;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        parts.append(it.key() + QLatin1Char('=') + described(it.value()));
    }
    return subject + QStringLiteral(": ") + parts.join(QStringLiteral(", "));
}

inline QStringList linesOfLegend(const QString &name,
                                 const QList<Tobrix::Templates::CTemplateLegendDataItem> &legend)
{
    QStringList lines;
    for (const auto &legendClass : legend) {
        lines.append(lineOf(name, {{QStringLiteral("id"), legendClass.id},
                                   {QStringLiteral("from"), legendClass.numberFrom},
                                   {QStringLiteral("to"), legendClass.numberTo},
                                   {QStringLiteral("color"), legendClass.color},
                                   {QStringLiteral("textA"), legendClass.textA},
                                   {QStringLiteral("textB"), legendClass.textB}}));
    }
    return lines;
}

inline QStringList linesOfView(const Tobrix::Templates::CProgramView &view)
{
    QStringList lines{lineOf(QStringLiteral("view"), {{QStringLiteral("id"), view.uniqueId()},
                                                      {QStringLiteral("key"), view.key()},
                                                      {QStringLiteral("description"), view.description()}})};
    for (int i = 0; i < view.columnCount(); ++i) {
        const auto *column = view.column(i);
        lines.append(column ? lineOf(QStringLiteral("column"), valuesOf(*column))
                            : QStringLiteral("no column"));
    }
    return lines;
}

/// The content of a record, in an order independent of insertion.
inline QStringList linesOf(const Tobrix::Templates::CTemplateRawData &rawData)
{
    using Header = Tobrix::Templates::CTemplateBaseData;
    QStringList lines{lineOf(QStringLiteral("header"), valuesOf<Header>(rawData, headerProperties()))};
    for (const auto &catalog : rawData.catalogs) {
        lines.append(
            lineOf(QStringLiteral("catalogue"), {{QStringLiteral("id"), catalog.id()},
                                                 {QStringLiteral("country"), catalog.countryCode()},
                                                 {QStringLiteral("language"), catalog.languageCode()}}));
    }
    lines += linesOfLegend(QStringLiteral("section"), rawData.legendA);
    lines += linesOfLegend(QStringLiteral("lateral"), rawData.legendB);
    for (auto it = rawData.listItems.cbegin(); it != rawData.listItems.cend(); ++it) {
        lines.append(
            lineOf(QStringLiteral("item of ") + it.key(), valuesOf(*it.value(), listItemProperties())));
    }
    QStringList ids = rawData.programViews.keys();
    ids.sort();
    for (const auto &id : qAsConst(ids)) {
        lines.append(QStringLiteral("under ") + id);
        lines += linesOfView(*rawData.programViews.value(id));
    }
    return lines;
}
