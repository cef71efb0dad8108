#include "ToolDocuments.h"
#include "tools/json/FileJson.h"

#include <QJsonArray>
#include <QTest>

using namespace Tobrix::Tools;

namespace {

QJsonObject describe(const char *folder, const QByteArray &document)
{
    return describeRawData(TemporaryTemplate(QString::fromLatin1(folder), document).path());
}

QStringList words(const char *text)
{
    QStringList list = QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    list.sort();
    return list;
}

/// The texts under one key of the objects in an array.
QStringList textsOf(const QJsonValue &array, QLatin1String key)
{
    const QJsonArray values = array.toArray();
    QStringList texts;
    for (const QJsonValue &value : values) {
        texts.append(value[key].toString());
    }
    return texts;
}

} // namespace

class RawDataJsonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasAllParts();
    void headerHasAllFields();
    void nullTextsAreNullBesideEmptyOnes();
    void catalogsAreListed();
    void currentViewsHoldTheirColumns();
    void legacyColumnsStandUnderTheirViews();
    void listItemsStandInMapOrder();
    void legendsKeepTheOrderRead();
    void fileThatIsGivenUpShowsWhatWasRead();
    void missingFileHasEmptyRecord();
    void columnForUnknownViewIsRead();
};

void RawDataJsonTest::recordHasAllParts()
{
    const QJsonObject json = describe("templates", legacyDocument(""));
    QCOMPARE(json.keys(), words("file ok header catalogs views columns listItems legendA legendB log"));
    QCOMPARE(json.value(QLatin1String("ok")), QJsonValue(true));
    // Readers log nothing.
    QCOMPARE(json.value(QLatin1String("log")), QJsonValue(QJsonArray()));
}

void RawDataJsonTest::headerHasAllFields()
{
    const QJsonObject json = describe(
        "templates",
        legacyDocument("<SYSTPL><TPL_ListNamePrefix>P</TPL_ListNamePrefix>"
                       "<TPL_DefaultSecClassName>C</TPL_DefaultSecClassName>"
                       "<TPL_DefaultSecColorField>F</TPL_DefaultSecColorField>"
                       "<TPL_SortOrder>7</TPL_SortOrder><TPL_Editable>true</TPL_Editable></SYSTPL>"));
    const QJsonObject header = json.value(QLatin1String("header")).toObject();
    QCOMPARE(header.keys(),
             words("uniqueId catalogRef catalogProfileRef key type description version unit listNamePrefix "
                   "defaultSecClassName defaultSecColorField sortOrder isSystem isEditable isUpdatable"));
    QCOMPARE(header.value(QLatin1String("listNamePrefix")), QJsonValue(QStringLiteral("P")));
    QCOMPARE(header.value(QLatin1String("defaultSecClassName")), QJsonValue(QStringLiteral("C")));
    QCOMPARE(header.value(QLatin1String("defaultSecColorField")), QJsonValue(QStringLiteral("F")));
    QCOMPARE(header.value(QLatin1String("sortOrder")), QJsonValue(7));
    QCOMPARE(header.value(QLatin1String("isEditable")), QJsonValue(true));
}

void RawDataJsonTest::nullTextsAreNullBesideEmptyOnes()
{
    const QJsonObject json = describe(
        "templates_new", currentDocument("<TemplateIdentifier Id=\"\"/><View Id=\"\"/>"
                                         "<ValueList Name=\"L\"><ValueListItem Key=\"\"/></ValueList>"));
    const QJsonValue header = json.value(QLatin1String("header"));
    QCOMPARE(header[QLatin1String("uniqueId")], QJsonValue(QString::fromLatin1("")));
    QCOMPARE(header[QLatin1String("description")], QJsonValue(QJsonValue::Null));
    const QJsonValue view = json[QLatin1String("views")][0];
    QCOMPARE(view[QLatin1String("uniqueId")], QJsonValue(QString::fromLatin1("")));
    QCOMPARE(view[QLatin1String("key")], QJsonValue(QJsonValue::Null));
    const QJsonValue item = json[QLatin1String("listItems")][QLatin1String("L")][0];
    QCOMPARE(item[QLatin1String("item")], QJsonValue(QString::fromLatin1("")));
    QCOMPARE(item[QLatin1String("internalValue")], QJsonValue(QJsonValue::Null));
}

void RawDataJsonTest::catalogsAreListed()
{
    const QJsonObject json =
        describe("templates_new",
                 currentDocument("<AssignedCatalogs><Catalog Id=\"1\" Country=\"DE\" Language=\"de\"/>"
                                 "<Catalog Id=\"2\"/></AssignedCatalogs>"));
    const QJsonArray expected{
        QJsonObject{{QStringLiteral("id"), QStringLiteral("1")},
                    {QStringLiteral("countryCode"), QStringLiteral("DE")},
                    {QStringLiteral("languageCode"), QStringLiteral("de")}},
        QJsonObject{{QStringLiteral("id"), QStringLiteral("2")},
                    {QStringLiteral("countryCode"), QJsonValue::Null},
                    {QStringLiteral("languageCode"), QJsonValue::Null}},
    };
    QCOMPARE(json.value(QLatin1String("catalogs")).toArray(), expected);
}

void RawDataJsonTest::currentViewsHoldTheirColumns()
{
    const QJsonObject json = describe("templates_new", currentView("<Column DataType=\"Date\"/><Column/>"));
    const QJsonValue columns = json[QLatin1String("views")][0][QLatin1String("columns")];
    QCOMPARE(columns.toArray().size(), 2);
    QCOMPARE(columns[0][QLatin1String("columnType")], QJsonValue(5));
    QVERIFY(columns[1].isNull());
    QCOMPARE(json.value(QLatin1String("columns")), QJsonValue(QJsonObject()));
}

void RawDataJsonTest::legacyColumnsStandUnderTheirViews()
{
    const QJsonObject json =
        describe("templates", legacyView(legacyColumn("INT", "<COL_Caption>first</COL_Caption>") +
                                         legacyColumn("TXT", "<COL_Caption>second</COL_Caption>")));
    QCOMPARE(json[QLatin1String("views")][0][QLatin1String("columns")], QJsonValue(QJsonArray()));
    const QJsonObject columns = json.value(QLatin1String("columns")).toObject();
    QCOMPARE(columns.keys(), QStringList{QStringLiteral("v1")});
    QCOMPARE(textsOf(columns.value(QLatin1String("v1")), QLatin1String("caption")),
             (QStringList{QStringLiteral("second"), QStringLiteral("first")}));
}

void RawDataJsonTest::listItemsStandInMapOrder()
{
    const QJsonObject json = describe(
        "templates_new", currentDocument("<ValueList Name=\"L\"><ValueListItem Key=\"a\" OrdinalIndex=\"1\"/>"
                                         "<ValueListItem Key=\"b\" OrdinalIndex=\"2\"/></ValueList>"));
    QCOMPARE(textsOf(json[QLatin1String("listItems")][QLatin1String("L")], QLatin1String("item")),
             (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
}

void RawDataJsonTest::legendsKeepTheOrderRead()
{
    const QJsonObject json = describe(
        "templates", legacyDocument("<LegendOfClassification><Section><class id=\"high\" numberFrom=\"9\"/>"
                                    "<class id=\"low\" numberFrom=\"-inf\"/></Section>"
                                    "<Lateral><class id=\"odd\" numberFrom=\"nan\"/></Lateral>"
                                    "</LegendOfClassification>"));
    QCOMPARE(textsOf(json.value(QLatin1String("legendA")), QLatin1String("id")),
             (QStringList{QStringLiteral("high"), QStringLiteral("low")}));
    QCOMPARE(json[QLatin1String("legendA")][1][QLatin1String("numberFrom")],
             QJsonValue(QStringLiteral("-inf")));
    QCOMPARE(json[QLatin1String("legendB")][0][QLatin1String("numberFrom")],
             QJsonValue(QStringLiteral("nan")));
}

void RawDataJsonTest::fileThatIsGivenUpShowsWhatWasRead()
{
    const QJsonObject json =
        describe("templates", legacyDocument("<SYSTPL><TPL_Key>K</TPL_Key></SYSTPL><SYSLIST/>"));
    QCOMPARE(json.value(QLatin1String("ok")), QJsonValue(false));
    QCOMPARE(json[QLatin1String("header")][QLatin1String("key")], QJsonValue(QStringLiteral("K")));
}

void RawDataJsonTest::missingFileHasEmptyRecord()
{
    const QJsonObject json = describeRawData(QStringLiteral("/no/such/file.xml"));
    QCOMPARE(json.keys(), words("file ok header catalogs views columns listItems legendA legendB log"));
    QCOMPARE(json.value(QLatin1String("ok")), QJsonValue(false));
    QCOMPARE(json[QLatin1String("header")][QLatin1String("sortOrder")], QJsonValue(-1));
}

void RawDataJsonTest::columnForUnknownViewIsRead()
{
    // Only the builder misses the view.
    const QJsonObject json = describe("templates", legacyDocument(legacyColumn("TXT")));
    QCOMPARE(json.value(QLatin1String("ok")), QJsonValue(true));
    QCOMPARE(json[QLatin1String("columns")][QLatin1String("v1")].toArray().size(), 1);
}

QTEST_GUILESS_MAIN(RawDataJsonTest)
#include "RawDataJsonTest.moc"
