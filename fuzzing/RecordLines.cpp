#include "fuzzing/RecordLines.h"

#include "model/CCatalogTemplate.h"
#include "model/CDateColumn.h"
#include "model/CDecimalColumn.h"
#include "model/CIntegerColumn.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateLegendDataItem.h"
#include "model/CTextColumn.h"
#include "model/CTimeColumn.h"
#include "rawdata/CTemplateRawData.h"
#include "xml/XmlDocument_p.h"

#include <QVariant>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <type_traits>
#include <vector>

namespace Tobrix::Fuzzing {

using namespace Templates;

namespace {

void appendValue(std::string &lines, qint64 number, int base = 10)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, number, base).ptr;
    lines.append(digits, end);
}

void appendValue(std::string &lines, const QString &text)
{
    if (text.isNull()) {
        lines += "null";
        return;
    }
    lines += '"';
    for (const QChar c : text) {
        if (c >= QLatin1Char(' ') && c <= QLatin1Char('~') && c != QLatin1Char('\\')) {
            lines += c.toLatin1();
        } else {
            lines += "\\u";
            appendValue(lines, c.unicode(), 16);
            lines += ';';
        }
    }
    lines += '"';
}

void appendValue(std::string &lines, double number)
{
    qint64 bits = 0;
    static_assert(sizeof bits == sizeof number);
    std::memcpy(&bits, &number, sizeof bits);
    lines += "bits ";
    appendValue(lines, bits, 16);
}

void appendValue(std::string &lines, const QVariant &value)
{
    lines += value.isValid() ? value.typeName() : "nothing";
    lines += value.isNull() ? " null " : " ";
    if (value.userType() == QMetaType::Double) {
        appendValue(lines, value.toDouble());
    } else {
        appendValue(lines, value.toString());
    }
}

template <typename Value>
void append(std::string &lines, const char *name, const Value &value)
{
    lines += name;
    lines += ' ';
    if constexpr (std::is_enum_v<Value> || std::is_integral_v<Value>) {
        appendValue(lines, static_cast<qint64>(value));
    } else {
        appendValue(lines, value);
    }
    lines += '\n';
}

void appendOwnProperties(std::string &lines, const CTemplateColumn &column)
{
    switch (column.columnType()) {
    case CTemplateColumn::Text:
        append(lines, "maximumTextLength", static_cast<const CTextColumn &>(column).maximumTextLength());
        break;
    case CTemplateColumn::Integer: {
        const auto &integer = static_cast<const CIntegerColumn &>(column);
        append(lines, "minimumValue", integer.minimumValue());
        append(lines, "maximumValue", integer.maximumValue());
        append(lines, "stepInterval", integer.stepInterval());
        break;
    }
    case CTemplateColumn::Decimal: {
        const auto &decimal = static_cast<const CDecimalColumn &>(column);
        append(lines, "minimumValue", decimal.minimumValue());
        append(lines, "maximumValue", decimal.maximumValue());
        append(lines, "stepInterval", decimal.stepInterval());
        append(lines, "precision", decimal.precision());
        break;
    }
    case CTemplateColumn::Date:
        append(lines, "initializeWithNow", static_cast<const CDateColumn &>(column).initializeWithNow());
        append(lines, "displayFormat", column.displayFormat());
        break;
    case CTemplateColumn::Time:
        append(lines, "initializeWithNow", static_cast<const CTimeColumn &>(column).initializeWithNow());
        break;
    case CTemplateColumn::Boolean:
    case CTemplateColumn::Unknown:
        break;
    }
}

void appendColumn(std::string &lines, const CTemplateColumn *column)
{
    if (!column) {
        lines += "no column\n";
        return;
    }
    append(lines, "column", column->uniqueId());
    append(lines, "boundColumn", column->boundColumn());
    append(lines, "tableName", column->tableName());
    append(lines, "caption", column->caption());
    append(lines, "toolTip", column->toolTip());
    append(lines, "dataType", column->dataType());
    append(lines, "unit", column->unit());
    append(lines, "dataSource", column->dataSource());
    append(lines, "defaultValue", column->defaultValue());
    append(lines, "hasDefaultValue", column->hasDefaultValue());
    append(lines, "sortOrder", column->sortOrder());
    append(lines, "width", column->width());
    append(lines, "groupLevel", column->groupLevel());
    append(lines, "columnType", column->columnType());
    append(lines, "typeFlags", column->typeFlags());
    append(lines, "isVisible", column->isVisible());
    append(lines, "isReadOnly", column->isReadOnly());
    append(lines, "isMandatory", column->isMandatory());
    append(lines, "isVirtual", column->isVirtual());
    append(lines, "isValueTransfer", column->isValueTransfer());
    append(lines, "controlType", column->getControlType());
    appendOwnProperties(lines, *column);
}

void appendView(std::string &lines, const CProgramView *view)
{
    append(lines, "view", view->uniqueId());
    append(lines, "viewKey", view->key());
    append(lines, "viewDescription", view->description());
    for (int i = 0; i < view->columnCount(); ++i) {
        appendColumn(lines, view->column(i));
    }
}

void appendItem(std::string &lines, const CListItem *item)
{
    append(lines, "item", item->uniqueId());
    append(lines, "itemValue", item->item());
    append(lines, "itemCaption", item->caption());
    append(lines, "itemComment", item->comment());
    append(lines, "itemInternalValue", item->internalValue());
    append(lines, "itemSortOrder", item->sortOrder());
}

void appendLegend(std::string &lines, const char *name, const QList<CTemplateLegendDataItem> &legend)
{
    append(lines, name, legend.size());
    for (const auto &legendClass : legend) {
        append(lines, "id", legendClass.id);
        append(lines, "numberFrom", legendClass.numberFrom);
        append(lines, "numberTo", legendClass.numberTo);
        append(lines, "color", legendClass.color);
        append(lines, "textA", legendClass.textA);
        append(lines, "textB", legendClass.textB);
    }
}

void appendAttributes(std::string &lines, const XmlDocument &document, int element)
{
    std::vector<const XmlDocument::Attribute *> attributes;
    for (const auto &attribute : document.attributes(element)) {
        if (!XmlDocument::isSuperseded(attribute)) {
            attributes.push_back(&attribute);
        }
    }
    std::sort(attributes.begin(), attributes.end(), [&](const auto *left, const auto *right) {
        return document.nameOf(*left) < document.nameOf(*right);
    });
    for (const auto *attribute : attributes) {
        append(lines, "attribute", document.nameOf(*attribute));
        append(lines, "value", document.value(*attribute));
    }
}

/// Appends a document's lines in document order.
class DocumentLines
{
public:
    DocumentLines(std::string &lines, const XmlDocument &document) : m_lines(lines), m_document(document) {}

    void append()
    {
        for (int node = 0; node < m_document.size(); ++node) {
            endElementsBefore(node);
            if (m_document.isElement(node)) {
                appendElement(node);
            } else if (m_document.isText(node)) {
                appendText(node);
            } else {
                Fuzzing::append(m_lines, "separator", m_document.node(node).kind);
            }
        }
        endElementsBefore(m_document.size());
    }

private:
    void endElementsBefore(int node)
    {
        for (; !m_ends.empty() && m_ends.back() <= node; m_ends.pop_back()) {
            m_lines += "end\n";
            m_hasEnd = true;
        }
    }

    void appendElement(int element)
    {
        Fuzzing::append(m_lines, "element", m_document.nameOf(element));
        Fuzzing::append(m_lines, "isClosed", m_document.isClosed(element));
        appendAttributes(m_lines, m_document, element);
        m_ends.push_back(m_document.end(element));
        m_hasText = false;
        m_hasEnd = false;
    }

    void appendText(int text)
    {
        const QString content = m_document.text(text);
        // Whitespace that no reader uses may be missing.
        const bool isSpare = m_document.dialect() == XmlDialect::Stream && m_hasText && m_hasEnd &&
                             m_document.node(text).kind == XmlDocument::Node::Text &&
                             content.trimmed().isEmpty();
        if (!isSpare) {
            Fuzzing::append(m_lines, "text", content);
        }
        m_hasText = true;
    }

    std::string &m_lines;
    const XmlDocument &m_document;
    std::vector<int> m_ends;
    // Since the last start of an element.
    bool m_hasText = false;
    bool m_hasEnd = false;
};

} // namespace

void appendLines(std::string &lines, const CTemplateRawData &record)
{
    append(lines, "record", record.uniqueId);
    append(lines, "catalogRef", record.catalogRef);
    append(lines, "catalogProfileRef", record.catalogProfileRef);
    append(lines, "key", record.key);
    append(lines, "type", record.type);
    append(lines, "description", record.description);
    append(lines, "version", record.version);
    append(lines, "unit", record.unit);
    append(lines, "listNamePrefix", record.listNamePrefix);
    append(lines, "defaultSecClassName", record.defaultSecClassName);
    append(lines, "defaultSecColorField", record.defaultSecColorField);
    append(lines, "sortOrder", record.sortOrder);
    append(lines, "isSystem", record.isSystem);
    append(lines, "isEditable", record.isEditable);
    append(lines, "isUpdatable", record.isUpdatable);
    for (const auto &catalog : record.catalogs) {
        append(lines, "catalog", catalog.id());
        append(lines, "countryCode", catalog.countryCode());
        append(lines, "languageCode", catalog.languageCode());
    }
    for (auto it = record.programViews.begin(); it != record.programViews.end(); ++it) {
        append(lines, "viewId", it.key());
        appendView(lines, it.value());
    }
    for (auto it = record.columns.begin(); it != record.columns.end(); ++it) {
        append(lines, "viewOfColumn", it.key());
        appendColumn(lines, it.value());
    }
    for (auto it = record.listItems.begin(); it != record.listItems.end(); ++it) {
        append(lines, "listOfItem", it.key());
        appendItem(lines, it.value());
    }
    appendLegend(lines, "legendA", record.legendA);
    appendLegend(lines, "legendB", record.legendB);
}

void appendLines(std::string &lines, CCatalogTemplate &catalogTemplate)
{
    append(lines, "template", catalogTemplate.uniqueId());
    append(lines, "catalogRef", catalogTemplate.catalogRef());
    append(lines, "catalogProfileRef", catalogTemplate.catalogProfileRef());
    append(lines, "key", catalogTemplate.key());
    append(lines, "type", catalogTemplate.type());
    append(lines, "description", catalogTemplate.description());
    append(lines, "version", catalogTemplate.version());
    append(lines, "unit", catalogTemplate.unit());
    append(lines, "listNamePrefix", catalogTemplate.listNamePrefix());
    append(lines, "defaultSecClassName", catalogTemplate.defaultSecClassName());
    append(lines, "defaultSecColorField", catalogTemplate.defaultSecColorField());
    append(lines, "sortOrder", catalogTemplate.sortOrder());
    append(lines, "isSystem", catalogTemplate.isSystem());
    append(lines, "isEditable", catalogTemplate.isEditable());
    append(lines, "isUpdatable", catalogTemplate.isUpdatable());
    for (int i = 0; i < catalogTemplate.programViewCount(); ++i) {
        appendView(lines, catalogTemplate.programView(i));
    }
    for (const auto &name : catalogTemplate.itemListNames()) {
        append(lines, "list", name);
        for (const auto *item : catalogTemplate.itemList(name)) {
            appendItem(lines, item);
        }
    }
    appendLegend(lines, "legendA", catalogTemplate.getLegendOfClassification(false));
    appendLegend(lines, "legendB", catalogTemplate.getLegendOfClassification(true));
}

void appendLines(std::string &lines, const XmlDocument &document)
{
    DocumentLines(lines, document).append();
}

} // namespace Tobrix::Fuzzing
