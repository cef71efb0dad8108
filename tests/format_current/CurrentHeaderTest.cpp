// Identifier, name, version, colour preset and catalogues.

#include "CurrentFormat.h"

#include "support/RecordProperties.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

QVariantMap headerOf(const CTemplateRawData &rawData)
{
    return valuesOf<CTemplateBaseData>(rawData, headerProperties());
}

/// A preset that colours sections, with some elements in it.
QByteArray preset(const QByteArray &attributes, const QByteArray &elements = QByteArray())
{
    return "<ClassificationColorPreset " + attributes + ">" + elements + "</ClassificationColorPreset>";
}

QByteArray properties(const QByteArrayList &names)
{
    QByteArray elements;
    for (const auto &name : names) {
        elements += "<PresetProperty PropertyName=\"" + name + "\"/>";
    }
    return elements;
}

QByteArray presets(const QByteArray &elements)
{
    return "<ClassificationColorPresets>" + elements + "</ClassificationColorPresets>";
}

} // namespace

class CurrentHeaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyHeaderElementFillsItsFields_data();
    void everyHeaderElementFillsItsFields();
    void nameIsListNamePrefixToo();
    void missingAttributesAreNull();
    void firstOfItsNameInTheDocumentCounts_data();
    void firstOfItsNameInTheDocumentCounts();
    void nameOfAViewBeforeTheTemplatesIsTaken();
    void attributesOfOtherElementsAreNotTaken();
    void textIsAllTextBelowUntrimmed_data();
    void textIsAllTextBelowUntrimmed();
    void presetGivesClassNameAndFields_data();
    void presetGivesClassNameAndFields();
    void classNameThatTheRecordBringsEndsTheScan();
    void classNameThatNoPresetReplacesStays();
    void fieldsAreReplacedEvenByNone();
    void catalogsComeInDocumentOrder();
    void missingAttributesOfACatalogAreNull_data();
    void missingAttributesOfACatalogAreNull();
    void catalogsAreThoseOfTheFirstContainer();
    void catalogsAreAppendedToThoseOfTheRecord();
};

void CurrentHeaderTest::everyHeaderElementFillsItsFields_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QStringList>("filled");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *name, const QByteArray &elements, const QStringList &filled,
                        const QString &value) { QTest::newRow(name) << elements << filled << value; };
    row("TemplateIdentifier Id", "<TemplateIdentifier Id=\"{id}\"/>", {QStringLiteral("uniqueId")},
        QStringLiteral("{id}"));
    row("TemplateIdentifier Description", "<TemplateIdentifier Description=\"All sewers\"/>",
        {QStringLiteral("description")}, QStringLiteral("All sewers"));
    row("TemplateIdentifier SystemOfUnits", "<TemplateIdentifier SystemOfUnits=\"Imperial\"/>",
        {QStringLiteral("unit")}, QStringLiteral("ft"));
    row("Name", "<Name>Sewer</Name>", {QStringLiteral("key"), QStringLiteral("listNamePrefix")},
        QStringLiteral("Sewer"));
    row("Version", "<Version>1.2</Version>", {QStringLiteral("version")}, QStringLiteral("1.2"));
    row("ClassificationColorName", presets(preset(R"(Scope="Section" ClassificationColorName="Standard")")),
        {QStringLiteral("defaultSecClassName")}, QStringLiteral("Standard"));
    row("PresetProperty PropertyName",
        presets(preset(R"(Scope="Section" Chapter="Color")", properties({"OBJ_Color"}))),
        {QStringLiteral("defaultSecColorField")}, QStringLiteral("OBJ_Color"));
    row("nothing of another name", "<Identifier Id=\"1\"/><Key>K</Key><Type>T</Type><SortOrder>3</SortOrder>",
        {}, QString());
}

void CurrentHeaderTest::everyHeaderElementFillsItsFields()
{
    QFETCH(QByteArray, elements);
    QFETCH(QStringList, filled);
    QFETCH(QString, value);
    QVariantMap expected = initialValues(headerProperties());
    for (const auto &name : filled) {
        expected.insert(name, value);
    }
    COMPARE_VALUES(headerOf(ReadElements(elements).rawData()), expected);
}

void CurrentHeaderTest::nameIsListNamePrefixToo()
{
    const ReadElements read("<Name>Sewer 2</Name>");
    QCOMPARE(read.rawData().key, QStringLiteral("Sewer 2"));
    QCOMPARE(read.rawData().listNamePrefix, QStringLiteral("Sewer 2"));
}

void CurrentHeaderTest::missingAttributesAreNull()
{
    const ReadElements read("<TemplateIdentifier/><Name>N</Name>");
    QVERIFY(read.rawData().uniqueId.isNull());
    QVERIFY(read.rawData().description.isNull());
    QVERIFY(read.rawData().unit.isEmpty());
    QVERIFY(read.rawData().version.isEmpty());
}

void CurrentHeaderTest::firstOfItsNameInTheDocumentCounts_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<QStringList>("filled");
    const auto row = [](const char *name, const QByteArray &pattern, const QStringList &filled) {
        const auto with = [pattern](const char *value) { return QByteArray(pattern).replace('*', value); };
        QTest::newRow(name) << with("first") << with("second") << filled;
    };
    row("TemplateIdentifier", R"(<TemplateIdentifier Id="*" Description="*"/>)",
        {QStringLiteral("uniqueId"), QStringLiteral("description")});
    row("Name", "<Name>*</Name>", {QStringLiteral("key"), QStringLiteral("listNamePrefix")});
    row("Version", "<Version>*</Version>", {QStringLiteral("version")});
    row("ClassificationColorPresets",
        presets(preset(R"(Scope="Section" Chapter="Color" ClassificationColorName="*")", properties({"*"}))),
        {QStringLiteral("defaultSecClassName"), QStringLiteral("defaultSecColorField")});
}

void CurrentHeaderTest::firstOfItsNameInTheDocumentCounts()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(QStringList, filled);
    QVariantMap expected = initialValues(headerProperties());
    for (const auto &name : filled) {
        expected.insert(name, QStringLiteral("first"));
    }
    COMPARE_VALUES(headerOf(ReadElements(first + second).rawData()), expected);
    // The depth makes no difference.
    COMPARE_VALUES(headerOf(ReadElements("<A><B><C>" + first + "</C></B></A>" + second).rawData()), expected);
    COMPARE_VALUES(headerOf(ReadElements(viewOf(columnOf(first)) + second).rawData()), expected);
    COMPARE_VALUES(headerOf(ReadElements("<ValueList>" + first + "</ValueList>" + second).rawData()),
                   expected);
}

void CurrentHeaderTest::nameOfAViewBeforeTheTemplatesIsTaken()
{
    const ReadElements read(viewOf("<Name>Of the view</Name>") + "<Name>Of the template</Name>");
    QCOMPARE(read.rawData().key, QStringLiteral("Of the view"));
    QCOMPARE(read.rawData().listNamePrefix, QStringLiteral("Of the view"));
}

void CurrentHeaderTest::attributesOfOtherElementsAreNotTaken()
{
    // The first element is used alone: a later one does not add missing parts.
    const ReadElements read("<TemplateIdentifier Description=\"D\"/>"
                            "<TemplateIdentifier Id=\"{id}\" SystemOfUnits=\"Metric\"/>");
    QCOMPARE(read.rawData().uniqueId, QString());
    QCOMPARE(read.rawData().description, QStringLiteral("D"));
    QCOMPARE(read.rawData().unit, QString());
    const ReadElements empty("<Name/><Name>N</Name>");
    QCOMPARE(empty.rawData().key, QString());
}

void CurrentHeaderTest::textIsAllTextBelowUntrimmed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QByteArray("Sewer") << QStringLiteral("Sewer");
    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("blanks around") << QByteArray("  Sewer \n ") << QStringLiteral("  Sewer \n ");
    QTest::newRow("blanks within") << QByteArray("a \t\n b") << QStringLiteral("a \t\n b");
    QTest::newRow("predefined entities")
        << QByteArray("&lt;a&gt; &amp; &quot;b&apos;") << QStringLiteral("<a> & \"b'");
    QTest::newRow("character references") << QByteArray("&#65;&#x42;&#xe4;") << QStringLiteral("AB\u00e4");
    QTest::newRow("CDATA") << QByteArray("<![CDATA[a < b & c]]>") << QStringLiteral("a < b & c");
    QTest::newRow("text and CDATA") << QByteArray("a<![CDATA[ b ]]>c") << QStringLiteral("a b c");
    QTest::newRow("empty CDATA") << QByteArray("<![CDATA[]]>") << QString();
    QTest::newRow("comment within") << QByteArray("a<!-- b -->c") << QStringLiteral("ac");
    QTest::newRow("comment alone") << QByteArray("<!-- b -->") << QString();
    QTest::newRow("processing instruction within") << QByteArray("a<?b c?>d") << QStringLiteral("ad");
    QTest::newRow("elements within") << QByteArray("a<b>c<d>e</d></b>f") << QStringLiteral("acef");
    QTest::newRow("elements alone") << QByteArray("<b><d>e</d></b>") << QStringLiteral("e");
    QTest::newRow("its own name within") << QByteArray("a<Name>b</Name>c") << QStringLiteral("abc");
    QTest::newRow("beyond the basic plane")
        << QByteArray("\xf0\x9f\x9a\xb0") << QString::fromUtf8("\xf0\x9f\x9a\xb0");
}

void CurrentHeaderTest::textIsAllTextBelowUntrimmed()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, text);
    const ReadElements read("<Name>" + content + "</Name>" + "<Version>" + content + "</Version>");
    QCOMPARE(read.rawData().key, text);
    QCOMPARE(read.rawData().listNamePrefix, text);
    QCOMPARE(read.rawData().version, text);
}

void CurrentHeaderTest::presetGivesClassNameAndFields_data()
{
    QTest::addColumn<QByteArray>("presets");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("fields");
    const auto row = [](const char *name, const QByteArray &elements, const char *className,
                        const char *fields) {
        QTest::newRow(name) << elements << QString(QLatin1String(className))
                            << QString(QLatin1String(fields));
    };
    const QByteArray named = R"(Scope="Section" ClassificationColorName="N")";
    const QByteArray coloured = R"(Scope="Section" Chapter="Color")";
    const QByteArray both = R"(Scope="Section" Chapter="Color" ClassificationColorName="B")";

    row("no preset", "", "", "");
    row("one with all", preset(both, properties({"P1", "P2", "P3"})), "B", "P1;P2;P3");
    row("scope Chapter only",
        preset(R"(Scope="Chapter" Chapter="Color" ClassificationColorName="C")", properties({"P"})), "", "");
    row("scope Lateral",
        preset(R"(Scope="Lateral" Chapter="Color" ClassificationColorName="C")", properties({"P"})), "", "");
    row("scope in lower case",
        preset(R"(Scope="section" Chapter="Color" ClassificationColorName="C")", properties({"P"})), "", "");
    row("no scope", preset(R"(Chapter="Color" ClassificationColorName="C")", properties({"P"})), "", "");
    row("scope with blank",
        preset(R"(Scope="Section " Chapter="Color" ClassificationColorName="C")", properties({"P"})), "", "");
    row("chapter in lower case",
        preset(R"(Scope="Section" Chapter="color" ClassificationColorName="C")", properties({"P"})), "C", "");
    row("another chapter",
        preset(R"(Scope="Section" Chapter="Symbol" ClassificationColorName="C")", properties({"P"})), "C",
        "");
    row("no chapter", preset(named, properties({"P"})), "N", "");
    row("no name", preset(coloured, properties({"P"})), "", "P");
    row("name first, fields from the second",
        preset(named, properties({"X"})) + preset(coloured, properties({"P"})), "N", "P");
    row("fields first, name from the second",
        preset(coloured, properties({"P"})) + preset(named, properties({"X"})), "N", "P");
    row("scan stops at the first with both",
        preset(both, properties({"P"})) +
            preset(R"(Scope="Section" Chapter="Color" ClassificationColorName="Z")", properties({"Q"})),
        "B", "P");
    row("later name overwrites while the scan lasts",
        preset(named) + preset(R"(Scope="Section" ClassificationColorName="Z")") +
            preset(coloured, properties({"P"})),
        "Z", "P");
    row("name after the end of the scan does not count",
        preset(named) + preset(coloured, properties({"P"})) +
            preset(R"(Scope="Section" ClassificationColorName="Z")"),
        "N", "P");
    row("later coloured one replaces the chosen while the scan lasts",
        preset(coloured, properties({"P"})) + preset(coloured, properties({"Q"})), "", "Q");
    row("the preset with the name may replace the chosen",
        preset(coloured, properties({"P"})) + preset(both, properties({"Q"})), "B", "Q");
    row("empty name overwrites, and the scan goes on",
        preset(named) +
            preset(R"(Scope="Section" Chapter="Color" ClassificationColorName="")", properties({"P"})) +
            preset(both, properties({"Q"})),
        "B", "Q");
    row("empty name overwrites for good",
        preset(named) +
            preset(R"(Scope="Section" Chapter="Color" ClassificationColorName="")", properties({"P"})),
        "", "P");
    row("other scopes between change nothing",
        preset(named) +
            preset(R"(Scope="Node" Chapter="Color" ClassificationColorName="X")", properties({"X"})) +
            preset(coloured, properties({"P"})),
        "N", "P");
    row("no fields", preset(both), "B", "");
    row("field without a name is an empty piece",
        preset(both,
               "<PresetProperty PropertyName=\"P\"/><PresetProperty/><PresetProperty PropertyName=\"Q\"/>"),
        "B", "P;;Q");
    row("fields without names at both ends",
        preset(both, "<PresetProperty/>" + properties({"P"}) + "<PresetProperty/>"), "B", ";P;");
    row("one field without a name", preset(both, "<PresetProperty/>"), "B", "");
    row("two fields without names", preset(both, "<PresetProperty/><PresetProperty PropertyName=\"\"/>"), "B",
        ";");
    row("fields deeper in the preset",
        preset(both, "<A>" + properties({"P"}) + "<B>" + properties({"Q"}) + "</B></A>"), "B", "P;Q");
    row("field in a field",
        preset(both, "<PresetProperty PropertyName=\"P\"><PresetProperty PropertyName=\"Q\"/>"
                     "</PresetProperty>"),
        "B", "P;Q");
    row("presets deeper in the container", "<A><B>" + preset(both, properties({"P"})) + "</B></A>", "B", "P");
    row("preset in a preset of another scope", preset("Scope=\"Node\"", preset(both, properties({"P"}))), "B",
        "P");
    row("fields of a preset within count for the outer one",
        preset(both, properties({"P"}) + preset(coloured, properties({"Q"}))), "B", "P;Q");
}

void CurrentHeaderTest::presetGivesClassNameAndFields()
{
    QFETCH(QByteArray, presets);
    QFETCH(QString, className);
    QFETCH(QString, fields);
    const ReadElements read(::presets(presets));
    QCOMPARE(read.rawData().defaultSecClassName, className);
    QCOMPARE(read.rawData().defaultSecColorField, fields);
    // Outside of the container presets have no meaning.
    const ReadElements outside(presets + ::presets(""));
    QCOMPARE(outside.rawData().defaultSecClassName, QString());
    QCOMPARE(outside.rawData().defaultSecColorField, QString());
}

void CurrentHeaderTest::classNameThatTheRecordBringsEndsTheScan()
{
    CTemplateRawData rawData;
    rawData.defaultSecClassName = QStringLiteral("Before");
    QVERIFY(readDocument(
        currentDocument(presets(
            preset(R"(Scope="Section" Chapter="Color")", properties({"P"})) +
            preset(R"(Scope="Section" Chapter="Color" ClassificationColorName="N")", properties({"Q"})))),
        rawData));
    QCOMPARE(rawData.defaultSecClassName, QStringLiteral("Before"));
    QCOMPARE(rawData.defaultSecColorField, QStringLiteral("P"));
}

void CurrentHeaderTest::classNameThatNoPresetReplacesStays()
{
    CTemplateRawData rawData;
    rawData.defaultSecClassName = QStringLiteral("Before");
    QVERIFY(readDocument(currentDocument(presets(preset("Scope=\"Section\""))), rawData));
    QCOMPARE(rawData.defaultSecClassName, QStringLiteral("Before"));
    QVERIFY(readDocument(currentDocument(presets(preset(R"(Scope="Section" ClassificationColorName="")"))),
                         rawData));
    QCOMPARE(rawData.defaultSecClassName, QString());
}

void CurrentHeaderTest::fieldsAreReplacedEvenByNone()
{
    CTemplateRawData rawData;
    rawData.defaultSecColorField = QStringLiteral("Before");
    QVERIFY(readDocument(currentDocument(""), rawData));
    QCOMPARE(rawData.defaultSecColorField, QString());
}

void CurrentHeaderTest::catalogsComeInDocumentOrder()
{
    const ReadElements read("<AssignedCatalogs><Catalog Id=\"A\" Country=\"DE\" Language=\"de\"/>"
                            "<Group><Catalog Id=\"B\" Country=\"US\" Language=\"en\">"
                            "<Catalog Id=\"C\"/></Catalog></Group><Catalog Id=\"A\"/></AssignedCatalogs>");
    const auto &catalogs = read.rawData().catalogs;
    QStringList ids;
    for (const auto &catalog : catalogs) {
        ids.append(catalog.id());
    }
    QCOMPARE(ids, (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"),
                               QStringLiteral("A")}));
    QCOMPARE(catalogs.at(0).countryCode(), QStringLiteral("DE"));
    QCOMPARE(catalogs.at(0).languageCode(), QStringLiteral("de"));
    QCOMPARE(catalogs.at(1).countryCode(), QStringLiteral("US"));
    QCOMPARE(catalogs.at(1).languageCode(), QStringLiteral("en"));
}

void CurrentHeaderTest::missingAttributesOfACatalogAreNull_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("country");
    QTest::addColumn<QString>("language");
    const QString id = QStringLiteral("I");
    const QString country = QStringLiteral("C");
    const QString language = QStringLiteral("L");
    QTest::newRow("all") << QByteArray(R"(Id="I" Country="C" Language="L")") << id << country << language;
    QTest::newRow("no id") << QByteArray(R"(Country="C" Language="L")") << QString() << country << language;
    QTest::newRow("no country") << QByteArray(R"(Id="I" Language="L")") << id << QString() << language;
    QTest::newRow("no language") << QByteArray(R"(Id="I" Country="C")") << id << country << QString();
    QTest::newRow("none") << QByteArray() << QString() << QString() << QString();
}

void CurrentHeaderTest::missingAttributesOfACatalogAreNull()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, id);
    QFETCH(QString, country);
    QFETCH(QString, language);
    const ReadElements read("<AssignedCatalogs><Catalog " + attributes + "/></AssignedCatalogs>");
    QCOMPARE(read.rawData().catalogs.size(), 1);
    const auto &catalog = read.rawData().catalogs.first();
    QCOMPARE(catalog.id(), id);
    QCOMPARE(catalog.id().isNull(), id.isNull());
    QCOMPARE(catalog.countryCode(), country);
    QCOMPARE(catalog.countryCode().isNull(), country.isNull());
    QCOMPARE(catalog.languageCode(), language);
    QCOMPARE(catalog.languageCode().isNull(), language.isNull());
}

void CurrentHeaderTest::catalogsAreThoseOfTheFirstContainer()
{
    const ReadElements read("<Catalog Id=\"before\"/><AssignedCatalogs><Catalog Id=\"A\"/></AssignedCatalogs>"
                            "<AssignedCatalogs><Catalog Id=\"B\"/></AssignedCatalogs>");
    QCOMPARE(read.rawData().catalogs.size(), 1);
    QCOMPARE(read.rawData().catalogs.first().id(), QStringLiteral("A"));
    QVERIFY(ReadElements("<AssignedCatalogs/><AssignedCatalogs><Catalog Id=\"B\"/></AssignedCatalogs>")
                .rawData()
                .catalogs.isEmpty());
    QVERIFY(ReadElements("<Catalog Id=\"B\"/>").rawData().catalogs.isEmpty());
}

void CurrentHeaderTest::catalogsAreAppendedToThoseOfTheRecord()
{
    const auto document = [](const QByteArray &id) {
        return currentDocument("<AssignedCatalogs><Catalog Id=\"" + id + "\"/></AssignedCatalogs>");
    };
    CTemplateRawData rawData;
    QVERIFY(readDocument(document("A"), rawData));
    QVERIFY(readDocument(document("B"), rawData));
    QVERIFY(readDocument(currentDocument(""), rawData));
    QCOMPARE(rawData.catalogs.size(), 2);
    QCOMPARE(rawData.catalogs.at(0).id(), QStringLiteral("A"));
    QCOMPARE(rawData.catalogs.at(1).id(), QStringLiteral("B"));
}

QTEST_GUILESS_MAIN(CurrentHeaderTest)

#include "CurrentHeaderTest.moc"
