#include "tools/check/rules/ListRules.h"

#include "tools/check/CheckedFile.h"
#include "tools/check/rules/Rule.h"
#include "tools/check/rules/Wording.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <algorithm>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// The items in a sentence, in the order of the last list in the host.
QString reversed(const std::vector<ListItemModel> &items)
{
    constexpr std::size_t enough = 6;
    QStringList names;
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        if (names.size() == static_cast<int>(enough)) {
            names.append(QStringLiteral("…"));
            break;
        }
        names.append(inBrief(item->item.text));
    }
    return names.join(QStringLiteral(", "));
}

/// The columns that use a list, by its name.
QHash<QString, std::vector<const ColumnModel *>> columnsByList(const TemplateModel &model)
{
    QHash<QString, std::vector<const ColumnModel *>> columns;
    for (const auto &column : model.columns) {
        if (column.isBuilt() && !column.listName.isEmpty()) {
            columns[column.listName.text].push_back(&column);
        }
    }
    return columns;
}

} // namespace

void checkUnknownLists(const CheckedFile &file, Findings &findings)
{
    const TemplateModel &model = file.model();
    QStringList names;
    for (const auto &list : model.lists) {
        names.append(list.name);
    }
    NearestNames nearest(names);
    for (const auto &column : model.columns) {
        const Value &name = column.listName;
        if (!column.isBuilt() || name.isBlank() || name.isPadded() || model.list(name.text)) {
            continue;
        }
        findings.add(name.at,
                     QStringLiteral("the file has no items for list %1 of %2: the host must have them%3")
                         .arg(quoted(name.text), nameOf(column), suggestion(nearest.of(name.text))));
    }
}

void checkUnusedLists(const CheckedFile &file, Findings &findings)
{
    QSet<QString> used;
    for (const auto &column : file.model().columns) {
        used.insert(column.listName.text.trimmed());
    }
    for (const auto &list : file.model().lists) {
        if (!used.contains(list.name.trimmed())) {
            findings.add(list.at, QStringLiteral("no column uses list %1").arg(quoted(list.name)));
        }
    }
}

void checkDuplicateItems(const CheckedFile &file, Findings &findings)
{
    for (const auto &list : file.model().lists) {
        QHash<QString, int> earlier;
        for (const auto &item : list.items) {
            const auto same = earlier.constFind(item.item.text);
            if (same == earlier.cend()) {
                earlier.insert(item.item.text, item.at);
            } else if (*same != item.at) {
                findings.add(item.item.at, QStringLiteral("list %1 offers %2 twice, here and in line %3")
                                               .arg(quoted(list.name), quoted(item.item.text),
                                                    QString::number(file.lineOf(*same))));
            }
        }
    }
}

void checkItemLengths(const CheckedFile &file, Findings &findings)
{
    const auto columns = columnsByList(file.model());
    for (const auto &list : file.model().lists) {
        const ColumnModel *shortest = nullptr;
        for (const ColumnModel *column : columns.value(list.name)) {
            const bool isLimited = column->type == CTemplateColumn::Text && column->maximumLength > 0;
            if (isLimited && (!shortest || column->maximumLength < shortest->maximumLength)) {
                shortest = column;
            }
        }
        if (!shortest) {
            continue;
        }
        for (const auto &item : list.items) {
            if (item.item.text.size() > shortest->maximumLength) {
                findings.add(item.item.at,
                             QStringLiteral("item %1 has %2: %3 in line %4 stores at most %5")
                                 .arg(quoted(item.item.text), lengthInWords(item.item.text),
                                      nameOf(*shortest), QString::number(file.lineOf(shortest->at)),
                                      QString::number(shortest->maximumLength)));
            }
        }
    }
}

void checkListOrder(const CheckedFile &file, Findings &findings)
{
    if (file.model().lists.empty()) {
        return;
    }
    const ListModel &last = file.model().lists.back();
    const auto isAfter = [](const ListItemModel &a, const ListItemModel &b) {
        return a.sortOrder < b.sortOrder;
    };
    // The host gets the items in reverse order.
    if (std::is_sorted(last.items.rbegin(), last.items.rend(), isAfter)) {
        return;
    }
    findings.add(last.at,
                 QStringLiteral("list %1 has the last name of all and is not sorted: the host gets its "
                                "items from the last in the file to the first, %2")
                     .arg(quoted(last.name), reversed(last.items)));
}

void checkItemsWithoutList(const CheckedFile &file, Findings &findings)
{
    for (const int at : file.model().itemsWithoutList) {
        findings.add(at,
                     QStringLiteral("the list item names no list (LIST_Name): the host refuses the file"));
    }
}

void checkListNames(const CheckedFile &file, Findings &findings)
{
    QHash<QString, const ListDeclaration *> earlier;
    for (const auto &list : file.model().listDeclarations) {
        const ListDeclaration *&first = earlier[list.name.text];
        if (!first) {
            first = &list;
            continue;
        }
        const QString type = first->classType == list.classType
                                 ? QString()
                                 : QStringLiteral(", with the class type %1 of this one").arg(list.classType);
        findings.add(list.name.at,
                     QStringLiteral("a second list %1: the host gets one list of both its items "
                                    "and those of the one in line %2%3")
                         .arg(quoted(list.name.text), QString::number(file.lineOf(first->at)), type));
    }
}

} // namespace Tobrix::Tools
