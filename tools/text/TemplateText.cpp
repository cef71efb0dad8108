#include "tools/text/TemplateText.h"

#include "tools/loading/TemplateLoading.h"
#include "tools/text/ColumnText.h"
#include "tools/text/DisplayText.h"
#include "tools/text/TextTable.h"

#include "loading/TemplateFormats_p.h"
#include "model/CCatalogTemplate.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"
#include "model/CTemplateLegendDataItem.h"

#include <QPair>

#include <algorithm>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

const QString indent = QStringLiteral("  ");
constexpr auto Left = TextTable::Alignment::Left;
constexpr auto Right = TextTable::Alignment::Right;

/// The heading of a part, underlined, with remarks behind it.
QString heading(const QString &title, const QStringList &remarks, QChar rule)
{
    QStringList parts{title};
    for (const auto &remark : remarks) {
        if (!remark.isEmpty()) {
            parts.append(remark);
        }
    }
    const QString line = printable(parts.join(QStringLiteral(" · ")));
    return QLatin1Char('\n') + line + QLatin1Char('\n') + QString(displayWidth(line), rule) +
           QLatin1Char('\n');
}

/// A sentence about a part, below its heading; nothing when there is none.
QString remark(const QString &text)
{
    return text.isEmpty() ? QString() : indent + printable(text) + QStringLiteral("\n\n");
}

/// Names with their values, the values in line; what is empty is left out.
QString valuesText(const QList<QPair<QString, QString>> &values)
{
    int width = 0;
    for (const auto &value : values) {
        width = std::max(width, displayWidth(value.first));
    }
    QString text;
    for (const auto &value : values) {
        if (!value.second.isEmpty()) {
            text += indent + value.first.leftJustified(width) + indent + printable(value.second) +
                    QLatin1Char('\n');
        }
    }
    return text;
}

QList<const CProgramView *> viewsByKey(const CCatalogTemplate &catalogTemplate)
{
    QList<const CProgramView *> views;
    for (int i = 0; i < catalogTemplate.programViewCount(); ++i) {
        views.append(catalogTemplate.programView(i));
    }
    std::stable_sort(views.begin(), views.end(), [](const auto *left, const auto *right) {
        const int order = left->key().compare(right->key());
        return order != 0 ? order < 0 : left->uniqueId() < right->uniqueId();
    });
    return views;
}

QString columnCountText(int count)
{
    return counted(count, QStringLiteral("column"), QStringLiteral("columns"));
}

QString itemCountText(int count)
{
    return counted(count, QStringLiteral("item"), QStringLiteral("items"));
}

QString classCountText(int count)
{
    return counted(count, QStringLiteral("class"), QStringLiteral("classes"));
}

QString contentsText(CCatalogTemplate &catalogTemplate)
{
    int columnCount = 0;
    for (int i = 0; i < catalogTemplate.programViewCount(); ++i) {
        columnCount += catalogTemplate.programView(i)->columnCount();
    }
    int itemCount = 0;
    const QStringList listNames = catalogTemplate.itemListNames();
    for (const auto &name : listNames) {
        itemCount += catalogTemplate.itemList(name).size();
    }
    return QStringLiteral("%1 with %2, %3 with %4, legends of %5 and %6")
        .arg(counted(catalogTemplate.programViewCount(), QStringLiteral("view"), QStringLiteral("views")),
             columnCountText(columnCount),
             counted(listNames.size(), QStringLiteral("value list"), QStringLiteral("value lists")),
             itemCountText(itemCount),
             QString::number(catalogTemplate.getLegendOfClassification(false).size()),
             classCountText(catalogTemplate.getLegendOfClassification(true).size()));
}

QString headerFlagsText(const CCatalogTemplate &catalogTemplate)
{
    QStringList words;
    if (catalogTemplate.isSystem()) {
        words.append(QStringLiteral("system template"));
    }
    if (catalogTemplate.isEditable()) {
        words.append(QStringLiteral("editable"));
    }
    if (catalogTemplate.isUpdatable()) {
        words.append(QStringLiteral("updatable"));
    }
    return words.join(QStringLiteral(", "));
}

QString headerText(const LoadedFile &loaded, CCatalogTemplate &catalogTemplate)
{
    const int sortOrder = catalogTemplate.sortOrder();
    const QString key = catalogTemplate.key().isEmpty() ? QStringLiteral("(no key)") : catalogTemplate.key();
    return heading(QStringLiteral("Template %1").arg(key), {}, QChar(0x2550)).mid(1) +
           valuesText({
               {QStringLiteral("File"),
                QStringLiteral("%1 (%2 format)").arg(loaded.fileName, rowOf(loaded.format).name)},
               {QStringLiteral("Description"), catalogTemplate.description()},
               {QStringLiteral("Unique id"), catalogTemplate.uniqueId()},
               {QStringLiteral("Type"), catalogTemplate.type()},
               {QStringLiteral("Version"), catalogTemplate.version()},
               {QStringLiteral("Unit"), catalogTemplate.unit()},
               {QStringLiteral("Catalogue"), catalogTemplate.catalogRef()},
               {QStringLiteral("Based on"), catalogTemplate.catalogProfileRef()},
               {QStringLiteral("List name prefix"), catalogTemplate.listNamePrefix()},
               {QStringLiteral("Default class"), catalogTemplate.defaultSecClassName()},
               {QStringLiteral("Default colour"), catalogTemplate.defaultSecColorField()},
               {QStringLiteral("Sort order"), sortOrder == -1 ? QString() : QString::number(sortOrder)},
               {QStringLiteral("Flags"), headerFlagsText(catalogTemplate)},
               {QStringLiteral("Contents"), contentsText(catalogTemplate)},
           });
}

QString viewText(const CProgramView &view, bool isLevelMask, int lineWidth)
{
    TextTable table({
        {QStringLiteral("Order"), Right, 11, 11},
        {QStringLiteral("Caption"), Left, 48, 12},
        {QStringLiteral("Bound to"), Left, 60, 18},
        {QStringLiteral("Type"), Left, 8, 8},
        {QStringLiteral("Control"), Left, 16, 10},
        {QStringLiteral("Unit"), Left, 12, 5},
        {QStringLiteral("Flags"), Left, 60, 10},
        {QStringLiteral("Groups"), Left, 17, 6},
        {QStringLiteral("Default"), Left, 30, 9},
        {QStringLiteral("Limits"), Left, 60, 11},
        {QStringLiteral("Value list"), Left, 40, 10},
    });
    for (int i = 0; i < view.columnCount(); ++i) {
        const CTemplateColumn *column = view.column(i);
        if (!column) {
            table.addSpanningRow(QStringLiteral("(column of unknown data type)"));
            continue;
        }
        table.addRow({QString::number(column->sortOrder()), column->caption(), boundText(*column),
                      column->dataType(), controlText(*column), column->unit(), flagsText(*column),
                      groupText(*column, isLevelMask), defaultText(*column), limitsText(*column),
                      column->dataSource()});
    }
    return heading(QStringLiteral("View %1").arg(view.key()),
                   {columnCountText(view.columnCount()), view.uniqueId()}, QChar(0x2500)) +
           remark(view.description()) + table.toString(indent, lineWidth);
}

QString itemListText(const QString &name, const QList<CListItem *> &items, int lineWidth)
{
    TextTable table({
        {QStringLiteral("Order"), Right, 11, 11},
        {QStringLiteral("Item"), Left, 36, 12},
        {QStringLiteral("Caption"), Left, 60, 16},
        {QStringLiteral("Internal"), Left, 36, 10},
        {QStringLiteral("Comment"), Left, 60, 16},
    });
    for (const auto *item : items) {
        table.addRow({QString::number(item->sortOrder()), item->item(), item->caption(),
                      item->internalValue(), item->comment()});
    }
    return heading(QStringLiteral("Value list %1").arg(name), {itemCountText(items.size())}, QChar(0x2500)) +
           table.toString(indent, lineWidth);
}

QString legendText(const QString &title, const QList<CTemplateLegendDataItem> &legend, int lineWidth)
{
    if (legend.isEmpty()) {
        return QString();
    }
    TextTable table({
        {QStringLiteral("From"), Right, 24, 24},
        {QStringLiteral("To"), Right, 24, 24},
        {QStringLiteral("Colour"), Left, 20, 9},
        {QStringLiteral("Caption A"), Left, 50, 12},
        {QStringLiteral("Caption B"), Left, 50, 12},
        {QStringLiteral("Class id"), Left, 40, 10},
    });
    for (const auto &item : legend) {
        table.addRow({numberText(item.numberFrom), numberText(item.numberTo), item.color, item.textA,
                      item.textB, item.id});
    }
    return heading(title, {classCountText(legend.size())}, QChar(0x2500)) + table.toString(indent, lineWidth);
}

} // namespace

QString templateText(const LoadedTemplate &loaded, int lineWidth)
{
    CCatalogTemplate &catalogTemplate = *loaded.catalogTemplate;
    QString text = headerText(loaded, catalogTemplate);
    for (const auto *view : viewsByKey(catalogTemplate)) {
        text += viewText(*view, loaded.format == TemplateFormat::Current, lineWidth);
    }
    for (const auto &name : catalogTemplate.itemListNames()) {
        text += itemListText(name, catalogTemplate.itemList(name), lineWidth);
    }
    text += legendText(QStringLiteral("Legend of sections"), catalogTemplate.getLegendOfClassification(false),
                       lineWidth);
    text += legendText(QStringLiteral("Legend of laterals"), catalogTemplate.getLegendOfClassification(true),
                       lineWidth);
    return text;
}

} // namespace Tobrix::Tools
