#include "ToolDocuments.h"
#include "tools/json/FileJson.h"

#include <QJsonArray>
#include <QTest>

using namespace Tobrix::Tools;

namespace {

QJsonObject describeLegacy(const QByteArray &document)
{
    return describeTemplate(TemporaryTemplate(QStringLiteral("templates"), document).path());
}

QJsonObject describeCurrent(const QByteArray &document)
{
    return describeTemplate(TemporaryTemplate(QStringLiteral("templates_new"), document).path());
}

QJsonArray columnsOf(const QJsonObject &description)
{
    return description.value(QLatin1String("views")).toArray().first()[QLatin1String("columns")].toArray();
}

QJsonObject firstColumnOf(const QJsonObject &description)
{
    return columnsOf(description).first().toObject();
}

QStringList words(const char *text)
{
    QStringList list = QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    list.sort();
    return list;
}

const char commonColumnKeys[] = "uniqueId boundColumn tableName caption toolTip dataType unit dataSource "
                                "defaultValue hasDefaultValue sortOrder "
                                "width groupLevel columnType typeFlags isVisible isReadOnly isMandatory "
                                "isVirtual isValueTransfer controlType ";

} // namespace

class TemplateJsonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileHasAllParts();
    void templateHasEveryAccessor();
    void columnHasEveryAccessorOfItsKind_data();
    void columnHasEveryAccessorOfItsKind();
    void viewsItemsAndLegendsHaveEveryAccessor();
    void columnValuesAreThoseOfTheAccessors();
    void defaultValueTellsTypeAndNullness_data();
    void defaultValueTellsTypeAndNullness();
    void columnOfUnknownDataTypeIsNull();
    void numbersBeyondJsonAreTexts_data();
    void numbersBeyondJsonAreTexts();
    void textsThatWereNeverSetAreEmpty();
    void viewsAreSortedByUniqueId();
    void listsKeepTheTemplatesOrder();
    void logHoldsWhatTheLibraryWrote_data();
    void logHoldsWhatTheLibraryWrote();
    void fileThatDoesNotLoadHasEmptyParts();
    void fileIsTheNameAsGiven();
};

void TemplateJsonTest::fileHasAllParts()
{
    const QJsonObject json = describeLegacy(legacyDocument(""));
    QCOMPARE(json.keys(), words("file ok template views itemLists legendA legendB log"));
    QCOMPARE(json.value(QLatin1String("ok")), QJsonValue(true));
}

void TemplateJsonTest::templateHasEveryAccessor()
{
    const QJsonObject json =
        describeLegacy(legacyDocument("<SYSTPL><TPL_PK>id</TPL_PK><TPL_Catalog_REF>cat</TPL_Catalog_REF>"
                                      "<TPL_BasedOn_REF>base</TPL_BasedOn_REF><TPL_Key>Key</TPL_Key>"
                                      "<TPL_Type>T</TPL_Type><TPL_Description>Über</TPL_Description>"
                                      "<TPL_Version>1.2</TPL_Version><TPL_Unit>m</TPL_Unit>"
                                      "<TPL_IsSystem>true</TPL_IsSystem><TPL_Updatable>true</TPL_Updatable>"
                                      "</SYSTPL>"));
    const QJsonObject expected{
        {QStringLiteral("uniqueId"), QStringLiteral("id")},
        {QStringLiteral("catalogRef"), QStringLiteral("cat")},
        {QStringLiteral("catalogProfileRef"), QStringLiteral("base")},
        {QStringLiteral("key"), QStringLiteral("Key")},
        {QStringLiteral("type"), QStringLiteral("T")},
        {QStringLiteral("description"), QStringLiteral("Über")},
        {QStringLiteral("version"), QStringLiteral("1.2")},
        {QStringLiteral("unit"), QStringLiteral("m")},
        {QStringLiteral("listNamePrefix"), QString::fromLatin1("")},
        {QStringLiteral("defaultSecClassName"), QString::fromLatin1("")},
        {QStringLiteral("defaultSecColorField"), QString::fromLatin1("")},
        {QStringLiteral("sortOrder"), -1},
        {QStringLiteral("isSystem"), true},
        {QStringLiteral("isEditable"), false},
        {QStringLiteral("isUpdatable"), true},
    };
    QCOMPARE(json.value(QLatin1String("template")).toObject(), expected);
}

void TemplateJsonTest::columnHasEveryAccessorOfItsKind_data()
{
    QTest::addColumn<QByteArray>("dataType");
    QTest::addColumn<QByteArray>("ownKeys");
    QTest::newRow("text") << QByteArray("TXT") << QByteArray("maximumTextLength");
    QTest::newRow("identifier") << QByteArray("GUI") << QByteArray("maximumTextLength");
    QTest::newRow("integer") << QByteArray("INT") << QByteArray("minimumValue maximumValue stepInterval");
    QTest::newRow("decimal") << QByteArray("DEC")
                             << QByteArray("minimumValue maximumValue stepInterval precision");
    QTest::newRow("boolean") << QByteArray("BOL") << QByteArray();
    QTest::newRow("date") << QByteArray("DAT") << QByteArray("initializeWithNow displayFormat");
    QTest::newRow("time") << QByteArray("TIM") << QByteArray("initializeWithNow");
}

void TemplateJsonTest::columnHasEveryAccessorOfItsKind()
{
    QFETCH(QByteArray, dataType);
    QFETCH(QByteArray, ownKeys);
    const QJsonObject column = firstColumnOf(describeLegacy(legacyView(legacyColumn(dataType))));
    QCOMPARE(column.keys(), words((commonColumnKeys + ownKeys).constData()));
    QCOMPARE(column.value(QLatin1String("dataType")).toString(), QString::fromLatin1(dataType));
}

void TemplateJsonTest::viewsItemsAndLegendsHaveEveryAccessor()
{
    const QJsonObject json = describeLegacy(legacyDocument(
        "<PROGVIEW/><SYSLIST><LIST_Name>L</LIST_Name></SYSLIST>"
        "<LegendOfClassification><class/><Lateral><class/></Lateral></LegendOfClassification>"));
    QCOMPARE(json[QLatin1String("views")][0].toObject().keys(), words("uniqueId key description columns"));
    QCOMPARE(json[QLatin1String("itemLists")][QLatin1String("L")][0].toObject().keys(),
             words("uniqueId item caption comment internalValue sortOrder"));
    for (const auto &legend : {QLatin1String("legendA"), QLatin1String("legendB")}) {
        QCOMPARE(json[legend][0].toObject().keys(), words("id numberFrom numberTo color textA textB"));
    }
}

void TemplateJsonTest::columnValuesAreThoseOfTheAccessors()
{
    const QJsonObject column = firstColumnOf(describeLegacy(legacyView(legacyColumn(
        "DEC",
        "<COL_PK>c1</COL_PK><COL_Bound_Column>OBJ_Length</COL_Bound_Column><TDIR_Key>SECTION</TDIR_Key>"
        "<COL_Caption>Length</COL_Caption><COL_RangeFrom>0.5</COL_RangeFrom><COL_RangeTo>99</COL_RangeTo>"
        "<COL_Steps>0.25</COL_Steps><COL_Precision>3</COL_Precision><COL_Width>120</COL_Width>"
        "<COL_GroupLevel>7</COL_GroupLevel><COL_DataSourceType>101</COL_DataSourceType>"
        "<COL_ControlType>4</COL_ControlType><COL_SortOrder>30</COL_SortOrder>"
        "<COL_Mandatory>true</COL_Mandatory><COL_Default>12.5</COL_Default>"))));
    const QJsonObject expected{
        {QStringLiteral("uniqueId"), QStringLiteral("c1")},
        {QStringLiteral("boundColumn"), QStringLiteral("OBJ_Length")},
        {QStringLiteral("tableName"), QStringLiteral("SECTION")},
        {QStringLiteral("caption"), QStringLiteral("Length")},
        {QStringLiteral("toolTip"), QString::fromLatin1("")},
        {QStringLiteral("dataType"), QStringLiteral("DEC")},
        {QStringLiteral("unit"), QString::fromLatin1("")},
        {QStringLiteral("dataSource"), QString::fromLatin1("")},
        {QStringLiteral("defaultValue"), QJsonObject{{QStringLiteral("type"), QStringLiteral("double")},
                                                     {QStringLiteral("isNull"), false},
                                                     {QStringLiteral("value"), QStringLiteral("12.5")}}},
        {QStringLiteral("hasDefaultValue"), true},
        {QStringLiteral("sortOrder"), 30},
        {QStringLiteral("width"), 120},
        {QStringLiteral("groupLevel"), 7},
        {QStringLiteral("columnType"), 3},
        {QStringLiteral("typeFlags"), 101},
        {QStringLiteral("isVisible"), false},
        {QStringLiteral("isReadOnly"), false},
        {QStringLiteral("isMandatory"), true},
        {QStringLiteral("isVirtual"), false},
        {QStringLiteral("isValueTransfer"), false},
        {QStringLiteral("controlType"), 4},
        {QStringLiteral("minimumValue"), 0.5},
        {QStringLiteral("maximumValue"), 99.0},
        {QStringLiteral("stepInterval"), 0.25},
        {QStringLiteral("precision"), 3},
    };
    QCOMPARE(column, expected);
}

void TemplateJsonTest::defaultValueTellsTypeAndNullness_data()
{
    QTest::addColumn<QByteArray>("dataType");
    QTest::addColumn<QByteArray>("defaultText");
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("isNull");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("hasDefault");
    const QString nothing = QString::fromLatin1("");
    QTest::newRow("text") << QByteArray("TXT") << QByteArray("abc") << "QString" << false << "abc" << true;
    QTest::newRow("no text") << QByteArray("TXT") << QByteArray() << "QString" << true << nothing << true;
    QTest::newRow("integer") << QByteArray("INT") << QByteArray("12") << "int" << false << "12" << true;
    QTest::newRow("no integer") << QByteArray("INT") << QByteArray() << nothing << true << nothing << false;
    QTest::newRow("decimal") << QByteArray("DEC") << QByteArray("0.1") << "double" << false << "0.1" << true;
    QTest::newRow("not a number") << QByteArray("DEC") << QByteArray("nan") << "double" << false << "nan"
                                  << true;
    QTest::newRow("true") << QByteArray("BOL") << QByteArray("true") << "bool" << false << "true" << true;
    QTest::newRow("false") << QByteArray("BOL") << QByteArray("false") << nothing << true << nothing << false;
    QTest::newRow("date") << QByteArray("DAT") << QByteArray("=Today()") << nothing << true << nothing
                          << false;
}

void TemplateJsonTest::defaultValueTellsTypeAndNullness()
{
    QFETCH(QByteArray, dataType);
    QFETCH(QByteArray, defaultText);
    const QByteArray element =
        defaultText.isNull() ? QByteArray() : "<COL_Default>" + defaultText + "</COL_Default>";
    const QJsonObject column = firstColumnOf(describeLegacy(legacyView(legacyColumn(dataType, element))));
    const QJsonObject defaultValue = column.value(QLatin1String("defaultValue")).toObject();
    QFETCH(QString, type);
    QCOMPARE(defaultValue.value(QLatin1String("type")), QJsonValue(type));
    QTEST(defaultValue.value(QLatin1String("isNull")).toBool(), "isNull");
    QFETCH(QString, value);
    QCOMPARE(defaultValue.value(QLatin1String("value")), QJsonValue(value));
    QTEST(column.value(QLatin1String("hasDefaultValue")).toBool(), "hasDefault");
}

void TemplateJsonTest::columnOfUnknownDataTypeIsNull()
{
    const QJsonObject json = describeCurrent(
        currentView("<Column DataType=\"Colour\" Ordinal=\"1\"/><Column DataType=\"Text\" Ordinal=\"2\"/>"));
    const QJsonArray columns = columnsOf(json);
    QCOMPARE(columns.size(), 2);
    QVERIFY(columns.at(0).isObject());
    QVERIFY(columns.at(1).isNull());
}

void TemplateJsonTest::numbersBeyondJsonAreTexts_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<QJsonValue>("expected");
    QTest::newRow("nan") << QByteArray("nan") << QJsonValue(QStringLiteral("nan"));
    QTest::newRow("inf") << QByteArray("inf") << QJsonValue(QStringLiteral("inf"));
    QTest::newRow("-inf") << QByteArray("-inf") << QJsonValue(QStringLiteral("-inf"));
    QTest::newRow("greatest") << QByteArray("1.7976931348623157e308") << QJsonValue(1.7976931348623157e308);
    QTest::newRow("fraction") << QByteArray("0.1") << QJsonValue(0.1);
}

void TemplateJsonTest::numbersBeyondJsonAreTexts()
{
    QFETCH(QByteArray, number);
    QFETCH(QJsonValue, expected);
    const QJsonObject json = describeLegacy(
        legacyView(legacyColumn("DEC", "<COL_RangeFrom>" + number + "</COL_RangeFrom><COL_RangeTo>" + number +
                                           "</COL_RangeTo><COL_Steps>" + number + "</COL_Steps>") +
                   "<LegendOfClassification><class numberFrom=\"" + number + "\" numberTo=\"" + number +
                   "\"/></LegendOfClassification>"));
    const QJsonObject column = firstColumnOf(json);
    QCOMPARE(column.value(QLatin1String("minimumValue")), expected);
    QCOMPARE(column.value(QLatin1String("maximumValue")), expected);
    QCOMPARE(column.value(QLatin1String("stepInterval")), expected);
    const QJsonValue legendClass = json[QLatin1String("legendA")][0];
    QCOMPARE(legendClass[QLatin1String("numberFrom")], expected);
    QCOMPARE(legendClass[QLatin1String("numberTo")], expected);
}

void TemplateJsonTest::textsThatWereNeverSetAreEmpty()
{
    const QJsonObject json = describeCurrent(currentView("<Column DataType=\"Text\"/>"));
    QCOMPARE(json[QLatin1String("template")][QLatin1String("uniqueId")], QJsonValue(QString::fromLatin1("")));
    QCOMPARE(firstColumnOf(json).value(QLatin1String("caption")), QJsonValue(QString::fromLatin1("")));
}

void TemplateJsonTest::viewsAreSortedByUniqueId()
{
    QByteArray views;
    for (const char *id : {"c", "a", "d", "b"}) {
        views += QByteArray("<View Id=\"") + id + "\" Name=\"same\"/>";
    }
    const QJsonArray json = describeCurrent(currentDocument(views)).value(QLatin1String("views")).toArray();
    QString ids;
    for (const QJsonValue &view : json) {
        ids += view[QLatin1String("uniqueId")].toString();
    }
    QCOMPARE(ids, QStringLiteral("abcd"));
}

void TemplateJsonTest::listsKeepTheTemplatesOrder()
{
    const auto item = [](const char *list, const char *name, const char *sortOrder) {
        return QByteArray("<SYSLIST><LIST_Name>") + list + "</LIST_Name><LIST_Item>" + name +
               "</LIST_Item><LIST_SortOrder>" + sortOrder + "</LIST_SortOrder></SYSLIST>";
    };
    const QJsonObject json = describeLegacy(legacyDocument(item("A", "a2", "2") + item("A", "a1", "1") +
                                                           item("B", "b1", "1") + item("B", "b2", "2")));
    const QJsonValue lists = json.value(QLatin1String("itemLists"));
    const auto itemAt = [&](QLatin1String list, int index) {
        return lists[list][index][QLatin1String("item")].toString();
    };
    QCOMPARE(itemAt(QLatin1String("A"), 0), QStringLiteral("a1"));
    QCOMPARE(itemAt(QLatin1String("A"), 1), QStringLiteral("a2"));
    // The list whose name comes last is in reverse file order.
    QCOMPARE(itemAt(QLatin1String("B"), 0), QStringLiteral("b2"));
    QCOMPARE(itemAt(QLatin1String("B"), 1), QStringLiteral("b1"));
}

void TemplateJsonTest::logHoldsWhatTheLibraryWrote_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("message");
    QTest::newRow("legacy") << "templates"
                            << "Old templates version used for available projects standards reading";
    QTest::newRow("current") << "templates_new"
                             << "New templates version used for available projects standards reading";
}

void TemplateJsonTest::logHoldsWhatTheLibraryWrote()
{
    QFETCH(QString, folder);
    QFETCH(QString, message);
    const TemporaryTemplate file(folder, legacyDocument(""));
    const QJsonArray expected{QJsonArray{3, QStringLiteral("TemplateReader"), message}};
    QCOMPARE(describeTemplate(file.path()).value(QLatin1String("log")).toArray(), expected);
    // Each file has a log of its own.
    QCOMPARE(describeTemplate(file.path()).value(QLatin1String("log")).toArray(), expected);
}

void TemplateJsonTest::fileThatDoesNotLoadHasEmptyParts()
{
    const QJsonObject json = describeLegacy("<TobrixTemplate>");
    QCOMPARE(json.keys(), words("file ok template views itemLists legendA legendB log"));
    QCOMPARE(json.value(QLatin1String("ok")), QJsonValue(false));
    QVERIFY(json.value(QLatin1String("template")).isNull());
    QCOMPARE(json.value(QLatin1String("views")), QJsonValue(QJsonArray()));
    QCOMPARE(json.value(QLatin1String("itemLists")), QJsonValue(QJsonObject()));
    QCOMPARE(json.value(QLatin1String("legendA")), QJsonValue(QJsonArray()));
    QCOMPARE(json.value(QLatin1String("legendB")), QJsonValue(QJsonArray()));
    QCOMPARE(json.value(QLatin1String("log")).toArray().size(), 1);
}

void TemplateJsonTest::fileIsTheNameAsGiven()
{
    const QString name = QStringLiteral("./no/../such\nfile ü.xml");
    QCOMPARE(describeTemplate(name).value(QLatin1String("file")).toString(), name);
}

QTEST_GUILESS_MAIN(TemplateJsonTest)
#include "TemplateJsonTest.moc"
