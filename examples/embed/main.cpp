// Shows what a host does with a template: embed FILE [VALUE LIST...]
//
// Keeps the template in a CTemplateLogic, and prints its views with their columns by type, the value lists
// that are named, and both legends.

#include <loading/CTemplateReader.h>
#include <logic/CTemplateLogic.h>
#include <model/CBooleanColumn.h>
#include <model/CCatalogTemplate.h>
#include <model/CDateColumn.h>
#include <model/CDecimalColumn.h>
#include <model/CIntegerColumn.h>
#include <model/CListItem.h>
#include <model/CProgramView.h>
#include <model/CTemplateLegendDataItem.h>
#include <model/CTextColumn.h>
#include <model/CTimeColumn.h>

#include <QCoreApplication>
#include <QSharedPointer>
#include <QTextStream>

#include <algorithm>

using namespace Tobrix::Templates;

namespace {

/// What only the columns of one type have. The type says which class a column is of.
QString restrictionOf(const CTemplateColumn &column)
{
    switch (column.columnType()) {
    case CTemplateColumn::Text: {
        const auto &text = static_cast<const CTextColumn &>(column);
        return text.maximumTextLength() == 0
                   ? QStringLiteral("text")
                   : QStringLiteral("text of up to %1 characters").arg(text.maximumTextLength());
    }
    case CTemplateColumn::Integer: {
        const auto &integer = static_cast<const CIntegerColumn &>(column);
        return QStringLiteral("%1 to %2").arg(integer.minimumValue()).arg(integer.maximumValue());
    }
    case CTemplateColumn::Decimal: {
        const auto &decimal = static_cast<const CDecimalColumn &>(column);
        return QStringLiteral("%1 to %2, %3 decimals")
            .arg(decimal.minimumValue())
            .arg(decimal.maximumValue())
            .arg(decimal.precision());
    }
    case CTemplateColumn::Boolean:
        return QStringLiteral("yes or no");
    case CTemplateColumn::Date: {
        const auto &date = static_cast<const CDateColumn &>(column);
        return QStringLiteral("date as \"%1\"%2")
            .arg(date.displayFormat(),
                 date.initializeWithNow() ? QStringLiteral(", today at first") : QString());
    }
    case CTemplateColumn::Time: {
        const auto &time = static_cast<const CTimeColumn &>(column);
        return time.initializeWithNow() ? QStringLiteral("time, now at first") : QStringLiteral("time");
    }
    case CTemplateColumn::Unknown:
        break;
    }
    return QStringLiteral("unknown");
}

void printView(const CProgramView &view, QTextStream &out)
{
    out << "view " << view.key() << '\n';
    for (int i = 0; i < view.columnCount(); ++i) {
        // Of a column whose data type nobody knows there is only the place.
        if (const CTemplateColumn *column = view.column(i)) {
            out << "  " << column->tableName() << '.' << column->boundColumn() << ": " << column->caption()
                << " (" << restrictionOf(*column) << ")\n";
        }
    }
}

/// Views come in no defined order: hosts ask for them by key, and this one sorts them.
void printViews(const CCatalogTemplate &catalogTemplate, QTextStream &out)
{
    QList<const CProgramView *> views;
    for (int i = 0; i < catalogTemplate.programViewCount(); ++i) {
        views.append(catalogTemplate.programView(i));
    }
    std::sort(views.begin(), views.end(), [](const auto *a, const auto *b) { return a->key() < b->key(); });
    for (const auto *view : qAsConst(views)) {
        printView(*view, out);
    }
}

void printList(const QString &name, const CTemplateLogic &logic, QTextStream &out)
{
    out << "list " << name << '\n';
    const auto items = logic.queryColumnList(name);
    for (const auto *item : items) {
        out << "  " << item->item() << ": " << item->caption() << '\n';
    }
}

void printLegend(const QString &name, const QList<CTemplateLegendDataItem> &legend, QTextStream &out)
{
    out << "legend " << name << '\n';
    for (const auto &legendClass : legend) {
        out << "  " << legendClass.numberFrom << " to " << legendClass.numberTo << ": " << legendClass.color
            << ' ' << legendClass.textA << '\n';
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();

    CCatalogTemplate *loaded = nullptr;
    if (!CTemplateReader::readFile(arguments.value(1), CTemplateReader::ReaderFlags(), loaded)) {
        return 1;
    }
    CTemplateLogic logic(nullptr);
    logic.setCatalogTemplate(QSharedPointer<CCatalogTemplate>(loaded));

    QTextStream out(stdout);
    out.setCodec("UTF-8");
    const auto catalogTemplate = logic.catalogTemplate();
    out << catalogTemplate->key() << ' ' << catalogTemplate->version() << " (" << catalogTemplate->type()
        << ")\n";
    printViews(*catalogTemplate, out);
    for (const auto &name : arguments.mid(2)) {
        printList(name, logic, out);
    }
    printLegend(QStringLiteral("of sections"), catalogTemplate->getLegendOfClassification(false), out);
    printLegend(QStringLiteral("of laterals"), catalogTemplate->getLegendOfClassification(true), out);
}
