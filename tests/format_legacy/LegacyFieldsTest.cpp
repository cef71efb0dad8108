// The target of each element of a section.

#include "support/ColumnProperties.h"
#include "support/LegacyNames.h"
#include "support/LegacyReading.h"
#include "support/RecordProperties.h"

#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "standalone_host/StandaloneHost.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

/// An element with a text, and the property that it changes.
struct ElementRow
{
    const char *element;
    const char *text;
    const char *property; ///< Empty when there is none.
    QVariant value;
};

QString latin1(const char *text)
{
    return QLatin1String(text);
}

/// The same values except for the change by an element.
QVariantMap changed(QVariantMap values, const ElementRow &row)
{
    if (*row.property) {
        values[latin1(row.property)] = row.value;
    }
    return values;
}

QByteArray elementOf(const ElementRow &row)
{
    return QByteArray("<") + row.element + ">" + row.text + "</" + row.element + ">";
}

const std::vector<ElementRow> headerRows = {
    {"TPL_PK", "{1}", "uniqueId", latin1("{1}")},
    {"TPL_Catalog_REF", "{2}", "catalogRef", latin1("{2}")},
    {"TPL_BasedOn_REF", "{3}", "catalogProfileRef", latin1("{3}")},
    {"TPL_Key", "Sewer", "key", latin1("Sewer")},
    {"TPL_Type", "SEWER", "type", latin1("SEWER")},
    {"TPL_Description", "All of it", "description", latin1("All of it")},
    {"TPL_Version", "1.10", "version", latin1("1.10")},
    {"TPL_Unit", "m", "unit", latin1("m")},
    {"TPL_IsSystem", "true", "isSystem", true},
    {"TPL_Editable", "true", "isEditable", true},
    {"TPL_Updatable", "true", "isUpdatable", true},
    {"TPL_ListNamePrefix", "SEW_", "listNamePrefix", latin1("SEW_")},
    {"TPL_DefaultSecClassName", "Condition", "defaultSecClassName", latin1("Condition")},
    {"TPL_DefaultSecColorField", "OBJ_Class", "defaultSecColorField", latin1("OBJ_Class")},
    {"TPL_SortOrder", "12", "sortOrder", 12},
};

const std::vector<ElementRow> viewRows = {
    {"PV_PK", "{1}", "uniqueId", latin1("{1}")},
    {"PV_Key", "SectionDetail", "key", latin1("SectionDetail")},
    {"PV_Description", "Sections", "description", latin1("Sections")},
};

const std::vector<ElementRow> listItemRows = {
    {"LIST_PK", "{1}", "uniqueId", latin1("{1}")},
    {"LIST_Name", "Shapes", "listName", latin1("Shapes")},
    {"LIST_Item", "STZ", "item", latin1("STZ")},
    {"LIST_Caption", "Vitrified clay", "caption", latin1("Vitrified clay")},
    {"LIST_Comment", "Since 1880", "comment", latin1("Since 1880")},
    {"LIST_Internal", "17", "internalValue", latin1("17")},
    {"LIST_SortOrder", "4", "sortOrder", 4},
};

/// An element of a column, and a data type of columns with the changed property.
struct ColumnRow
{
    const char *code;
    ElementRow element;
};

// Elements that are known but ignored have values that would be visible in any other field.
const std::vector<ColumnRow> columnRows = {
    {"TXT", {"COL_PK", "{1}", "uniqueId", latin1("{1}")}},
    {"TXT", {"COL_Template_FK", "true", "isValueTransfer", true}},
    {"TXT", {"COL_ProgView_FK", "{view}", "viewRef", latin1("{view}")}},
    {"TXT", {"COL_Bound_TableDir_REF", "true", "isValueTransfer", true}},
    {"TXT", {"COL_Bound_Column", "OBJ_Key", "boundColumn", latin1("OBJ_Key")}},
    {"TXT", {"COL_Caption", "Name", "caption", latin1("Name")}},
    {"TXT", {"COL_ToolTip", "Its name", "toolTip", latin1("Its name")}},
    {"TXT", {"COL_GroupLevel", "5", "groupLevel", 5}},
    {"TXT", {"COL_DataType", "GUI", "dataType", latin1("GUI")}},
    {"DEC", {"COL_RangeFrom", "-1.25", "minimumValue", -1.25}},
    {"DEC", {"COL_RangeTo", "99.5", "maximumValue", 99.5}},
    {"DEC", {"COL_Steps", "0.25", "stepInterval", 0.25}},
    {"TXT", {"COL_Unit", "mm", "unit", latin1("mm")}},
    {"TXT", {"COL_StateBits", "true", "", {}}},
    {"TXT", {"COL_Visible", "true", "isVisible", true}},
    {"TXT", {"COL_ReadOnly", "true", "isReadOnly", true}},
    {"TXT", {"COL_Mandatory", "true", "isMandatory", true}},
    {"TXT", {"COL_Virtual", "true", "isVirtual", true}},
    {"TXT", {"COL_ValueTransfer", "true", "isValueTransfer", true}},
    {"TXT", {"COL_EvalObjSymbol", "7", "", {}}},
    {"TXT", {"COL_EvalObjColor", "7", "", {}}},
    {"TXT", {"COL_DataSourceType", "3", "typeFlags", 3}},
    {"TXT", {"COL_DataSource", "Materials", "dataSource", latin1("Materials")}},
    {"TXT", {"COL_ControlType", "19", "controlType", 19}},
    {"TXT", {"COL_TextAlign", "7", "", {}}},
    {"TXT", {"COL_Width", "120", "width", 120}},
    {"TXT", {"COL_ForeColor", "#ffffff", "", {}}},
    {"TXT", {"COL_BackColor", "#000000", "", {}}},
    {"TXT", {"COL_SortOrder", "30", "sortOrder", 30}},
    {"TXT", {"COL_Length", "80", "maximumTextLength", 80}},
    {"TXT", {"TDIR_Key", "SECTION", "tableName", latin1("SECTION")}},
    {"DAT", {"COL_DisplayFmt", "MM/yyyy", "displayFormat", latin1("MM/yyyy")}},
    {"TXT", {"COL_Default", "NEW", "defaultValue", latin1("NEW")}},
    {"DEC", {"COL_Precision", "4", "precision", 4}},
};

template <typename Row>
void addElementRows(const std::vector<Row> &rows, const char *(*nameOf)(const Row &))
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        QTest::newRow(nameOf(rows[i])) << static_cast<int>(i);
    }
}

void addElementRows(const std::vector<ElementRow> &rows)
{
    addElementRows<ElementRow>(rows, [](const ElementRow &row) { return row.element; });
}

/// A list item and the name of its list; fails the test unless there is exactly one.
QVariantMap onlyItemOf(const CTemplateRawData &rawData)
{
    if (rawData.listItems.size() != 1) {
        return {};
    }
    QVariantMap values = valuesOf(*rawData.listItems.first(), listItemProperties());
    values.insert(QStringLiteral("listName"), rawData.listItems.firstKey());
    return values;
}

/// A column and the id of its view; null unless there is exactly one.
QVariantMap onlyColumnOf(const CTemplateRawData &rawData)
{
    if (rawData.columns.size() != 1) {
        return {};
    }
    QVariantMap values = valuesOf(*rawData.columns.first());
    values.insert(QStringLiteral("viewRef"), rawData.columns.firstKey());
    return values;
}

QVariantMap columnOf(const QByteArray &elements)
{
    return onlyColumnOf(LegacyReading(legacyDocument("<SYSCOL>" + elements + "</SYSCOL>")).rawData);
}

QByteArray dataType(const QByteArray &code)
{
    return "<COL_DataType>" + code + "</COL_DataType>";
}

} // namespace

class LegacyFieldsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Tobrix::Standalone::StandaloneHost::instance().reset(); }

    void everyNameOfTheVocabularyHasARow();
    void headerElementSetsItsFieldAlone_data() { addElementRows(headerRows); }
    void headerElementSetsItsFieldAlone();
    void viewElementSetsItsPropertyAlone_data() { addElementRows(viewRows); }
    void viewElementSetsItsPropertyAlone();
    void listItemElementSetsItsPropertyAlone_data() { addElementRows(listItemRows); }
    void listItemElementSetsItsPropertyAlone();
    void columnElementSetsItsPropertyAlone_data();
    void columnElementSetsItsPropertyAlone();
    void dataTypeSelectsTheColumn_data();
    void dataTypeSelectsTheColumn();
    void flagIsTrueForTheExactTextAlone_data();
    void flagIsTrueForTheExactTextAlone();
    void lastOfThreeElementsDecidesAboutValueTransfer_data();
    void lastOfThreeElementsDecidesAboutValueTransfer();
    void columnGoesThroughMissingDefaults();
    void emptyDefaultOfATextColumnIsNull();
};

void LegacyFieldsTest::everyNameOfTheVocabularyHasARow()
{
    const auto elementsOf = [](LegacyPart part) {
        QStringList elements;
        for (const auto &name : legacyNames()) {
            if (name.part == part) {
                elements.append(latin1(name.name));
            }
        }
        return elements;
    };
    const auto namesOf = [](const std::vector<ElementRow> &rows) {
        QStringList elements;
        for (const auto &row : rows) {
            elements.append(latin1(row.element));
        }
        return elements;
    };
    QStringList columns;
    for (const auto &row : columnRows) {
        columns.append(latin1(row.element.element));
    }
    QCOMPARE(namesOf(headerRows), elementsOf(LegacyPart::Header));
    QCOMPARE(namesOf(viewRows), elementsOf(LegacyPart::ProgramView));
    QCOMPARE(namesOf(listItemRows), elementsOf(LegacyPart::ListItem));
    QCOMPARE(columns, elementsOf(LegacyPart::Column));
}

void LegacyFieldsTest::headerElementSetsItsFieldAlone()
{
    QFETCH(int, row);
    const ElementRow &element = headerRows.at(static_cast<std::size_t>(row));
    const LegacyReading reading(legacyDocument("<SYSTPL>" + elementOf(element) + "</SYSTPL>"));
    QVERIFY(reading.isRead);
    COMPARE_VALUES(valuesOf<CTemplateBaseData>(reading.rawData, headerProperties()),
                   changed(initialValues(headerProperties()), element));
}

void LegacyFieldsTest::viewElementSetsItsPropertyAlone()
{
    QFETCH(int, row);
    const ElementRow &element = viewRows.at(static_cast<std::size_t>(row));
    const LegacyReading reading(legacyDocument("<PROGVIEW>" + elementOf(element) + "</PROGVIEW>"));
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.programViews.size(), 1);
    const CProgramView *view = *reading.rawData.programViews.cbegin();
    const QVariantMap values = {{QStringLiteral("uniqueId"), view->uniqueId()},
                                {QStringLiteral("key"), view->key()},
                                {QStringLiteral("description"), view->description()}};
    const QVariantMap none = {{QStringLiteral("uniqueId"), QString()},
                              {QStringLiteral("key"), QString()},
                              {QStringLiteral("description"), QString()}};
    COMPARE_VALUES(values, changed(none, element));
    QCOMPARE(reading.rawData.programViews.cbegin().key(), view->uniqueId());
    QCOMPARE(view->columnCount(), 0);
}

void LegacyFieldsTest::listItemElementSetsItsPropertyAlone()
{
    QFETCH(int, row);
    const ElementRow &element = listItemRows.at(static_cast<std::size_t>(row));
    // An item needs a list name: of two the last one counts.
    const LegacyReading reading(
        legacyDocument("<SYSLIST><LIST_Name>Materials</LIST_Name>" + elementOf(element) + "</SYSLIST>"));
    QVERIFY(reading.isRead);
    QVariantMap expected = initialValues(listItemProperties());
    expected.insert(QStringLiteral("listName"), QStringLiteral("Materials"));
    COMPARE_VALUES(onlyItemOf(reading.rawData), changed(expected, element));
}

void LegacyFieldsTest::columnElementSetsItsPropertyAlone_data()
{
    addElementRows<ColumnRow>(columnRows, [](const ColumnRow &row) { return row.element.element; });
}

void LegacyFieldsTest::columnElementSetsItsPropertyAlone()
{
    QFETCH(int, row);
    const ColumnRow &column = columnRows.at(static_cast<std::size_t>(row));
    const QVariantMap plain = columnOf(dataType(column.code));
    QVERIFY(!plain.isEmpty());
    COMPARE_VALUES(columnOf(dataType(column.code) + elementOf(column.element)),
                   changed(plain, column.element));
}

void LegacyFieldsTest::dataTypeSelectsTheColumn_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<int>("type");
    QTest::newRow("GUI") << QByteArray("GUI") << 1;
    for (const auto &kind : columnKinds()) {
        QTest::newRow(kind.code) << QByteArray(kind.code) << static_cast<int>(kind.type);
    }
}

void LegacyFieldsTest::dataTypeSelectsTheColumn()
{
    QFETCH(QByteArray, code);
    const QVariantMap column = columnOf(dataType(code));
    QCOMPARE(column.value(QStringLiteral("dataType")).toString(), QString::fromLatin1(code));
    QTEST(column.value(QStringLiteral("columnType")).toInt(), "type");
}

void LegacyFieldsTest::flagIsTrueForTheExactTextAlone_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isTrue");
    QTest::newRow("true") << QByteArray("true") << true;
    for (const char *text : {"True", "TRUE", " true", "true ", "1", "yes", "false", ""}) {
        QTest::addRow("\"%s\"", text) << QByteArray(text) << false;
    }
}

void LegacyFieldsTest::flagIsTrueForTheExactTextAlone()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, isTrue);
    const LegacyReading header(legacyDocument("<SYSTPL><TPL_IsSystem>" + text + "</TPL_IsSystem></SYSTPL>"));
    QCOMPARE(header.rawData.isSystem, isTrue);
    const QVariantMap column = columnOf(dataType("TXT") + "<COL_Visible>" + text + "</COL_Visible>");
    QCOMPARE(column.value(QStringLiteral("isVisible")).toBool(), isTrue);
}

void LegacyFieldsTest::lastOfThreeElementsDecidesAboutValueTransfer_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<bool>("isTransferred");
    const QByteArray transfer = "<COL_ValueTransfer>true</COL_ValueTransfer>";
    const QByteArray noTransfer = "<COL_ValueTransfer>false</COL_ValueTransfer>";
    const QByteArray reference = "<COL_Template_FK>{id}</COL_Template_FK>";
    const QByteArray trueReference = "<COL_Template_FK>true</COL_Template_FK>";
    const QByteArray table = "<COL_Bound_TableDir_REF>{id}</COL_Bound_TableDir_REF>";
    const QByteArray trueTable = "<COL_Bound_TableDir_REF>true</COL_Bound_TableDir_REF>";
    QTest::newRow("transfer last") << QByteArray(reference + table + transfer) << true;
    QTest::newRow("template reference last") << QByteArray(transfer + reference) << false;
    QTest::newRow("table reference last") << QByteArray(transfer + table) << false;
    QTest::newRow("template reference that says true last") << QByteArray(noTransfer + trueReference) << true;
    QTest::newRow("table reference that says true last") << QByteArray(noTransfer + trueTable) << true;
    QTest::newRow("no transfer last") << QByteArray(trueReference + trueTable + noTransfer) << false;
    QTest::newRow("empty elements do not count")
        << QByteArray(transfer + "<COL_Template_FK/><COL_Bound_TableDir_REF></COL_Bound_TableDir_REF>")
        << true;
}

void LegacyFieldsTest::lastOfThreeElementsDecidesAboutValueTransfer()
{
    QFETCH(QByteArray, elements);
    const QVariantMap column = columnOf(dataType("TXT") + elements);
    QTEST(column.value(QStringLiteral("isValueTransfer")).toBool(), "isTransferred");
}

void LegacyFieldsTest::columnGoesThroughMissingDefaults()
{
    Tobrix::Standalone::StandaloneHost::instance().registerTable(QStringLiteral("T5"), 5);
    const QVariantMap nodeType =
        columnOf(dataType("TXT") + "<COL_Bound_Column>OBJ_Type</COL_Bound_Column><TDIR_Key>T5</TDIR_Key>");
    QCOMPARE(nodeType.value(QStringLiteral("defaultValue")).toString(), QStringLiteral("NOD"));
    const QVariantMap city =
        columnOf(dataType("TXT") + "<COL_Bound_Column>OBJ_City</COL_Bound_Column><TDIR_Key>T5</TDIR_Key>"
                                   "<COL_Visible>true</COL_Visible>");
    QCOMPARE(city.value(QStringLiteral("isVisible")).toBool(), false);
}

void LegacyFieldsTest::emptyDefaultOfATextColumnIsNull()
{
    for (const QByteArray &element :
         {QByteArray(), QByteArray("<COL_Default/>"), QByteArray("<COL_Default></COL_Default>")}) {
        const QVariant value = columnOf(dataType("TXT") + element).value(QStringLiteral("defaultValue"));
        QVERIFY(value.isValid());
        QVERIFY(value.isNull());
    }
}

QTEST_APPLESS_MAIN(LegacyFieldsTest)

#include "LegacyFieldsTest.moc"
