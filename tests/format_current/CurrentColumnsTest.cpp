// The attributes and elements of a column, one after the other.

#include "CurrentFormat.h"

#include "support/ColumnProperties.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

/// The default properties of a column of a data type.
QVariantMap valuesOfBareColumn(CTemplateColumn::ColumnType type)
{
    QVariantMap values = initialValues(columnProperties(type));
    for (const auto &kind : columnKinds()) {
        if (kind.type == type) {
            values.insert(QStringLiteral("dataType"), QLatin1String(kind.code));
        }
    }
    values.insert(QStringLiteral("sortOrder"), 0);
    values.insert(QStringLiteral("width"), 0);
    switch (type) {
    case CTemplateColumn::Text:
        values.insert(QStringLiteral("defaultValue"), QVariant(QString()));
        break;
    case CTemplateColumn::Integer:
        values.insert(QStringLiteral("minimumValue"), -2147483647);
        values.insert(QStringLiteral("maximumValue"), 2147483647);
        break;
    case CTemplateColumn::Decimal:
        values.insert(QStringLiteral("minimumValue"), -2147483647.0);
        values.insert(QStringLiteral("maximumValue"), 2147483647.0);
        values.insert(QStringLiteral("precision"), 2);
        break;
    default:
        break;
    }
    return values;
}

QByteArray nameOf(CTemplateColumn::ColumnType type)
{
    switch (type) {
    case CTemplateColumn::Text:
        return "Text";
    case CTemplateColumn::Integer:
        return "Integer";
    case CTemplateColumn::Decimal:
        return "Decimal";
    case CTemplateColumn::Boolean:
        return "Boolean";
    case CTemplateColumn::Date:
        return "Date";
    case CTemplateColumn::Time:
        return "Time";
    case CTemplateColumn::Unknown:
        break;
    }
    return QByteArray();
}

QByteArray dataTypeOf(CTemplateColumn::ColumnType type, const QByteArray &attributes = QByteArray())
{
    return "DataType=\"" + nameOf(type) + "\" " + attributes;
}

} // namespace

class CurrentColumnsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bareColumnHasTheInitialValues_data();
    void bareColumnHasTheInitialValues();
    void everyAttributeAndElementFillsItsProperty_data();
    void everyAttributeAndElementFillsItsProperty();
    void numericRangeFillsLimitsStepAndPrecision_data();
    void numericRangeFillsLimitsStepAndPrecision();
    void flagOfARestrictionIsItsPresence_data();
    void flagOfARestrictionIsItsPresence();
    void valueTransferIsOnlyTheExactTrue_data();
    void valueTransferIsOnlyTheExactTrue();
    void columnIsVisibleByItsVisibilityRestriction_data();
    void columnIsVisibleByItsVisibilityRestriction();
    void addressColumnsAreHiddenWhateverTheFileSays_data();
    void addressColumnsAreHiddenWhateverTheFileSays();
    void displayFormatIsForDatesAlone_data();
    void displayFormatIsForDatesAlone();
    void firstElementOfANameInAColumnCounts_data();
    void firstElementOfANameInAColumnCounts();
    void elementsBesideTheColumnAreNotItsOwn();
    void captionNeedsItsTextItem_data();
    void captionNeedsItsTextItem();
    void classOfTheValueListIsTakenOver_data();
    void classOfTheValueListIsTakenOver();
    void columnInAColumnIsAColumnOfTheView();
    void columnInAColumnLendsItsElements();
};

void CurrentColumnsTest::bareColumnHasTheInitialValues_data()
{
    addKindRows();
}

void CurrentColumnsTest::bareColumnHasTheInitialValues()
{
    QFETCH(int, type);
    const auto columnType = static_cast<CTemplateColumn::ColumnType>(type);
    const ReadElements read(viewOf(columnOf("", dataTypeOf(columnType))));
    QVERIFY(read.onlyColumn());
    COMPARE_VALUES(valuesOf(*read.onlyColumn()), valuesOfBareColumn(columnType));
    QVERIFY(read.onlyColumn()->defaultValue().isNull());
}

void CurrentColumnsTest::everyAttributeAndElementFillsItsProperty_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QVariantMap>("changed");
    const auto row = [](const char *name, const QByteArray &attributes, const QByteArray &elements,
                        const char *property, const QVariant &value) {
        QTest::newRow(name) << attributes << elements << QVariantMap{{QLatin1String(property), value}};
    };
    const QString x = QStringLiteral("x");
    row("Width", R"(Width="120")", "", "width", 120);
    row("Ordinal", R"(Ordinal="15")", "", "sortOrder", 15);
    row("ControlType", R"(ControlType="ColorPicker")", "", "controlType", 13);
    row("ValueTransfer", R"(ValueTransfer="true")", "", "isValueTransfer", true);
    row("Unit", R"(Unit="x")", "", "unit", x);
    row("empty Unit", R"(Unit="")", "", "unit", QString());
    row("BoundProperty PropertyName", "", R"(<BoundProperty PropertyName="x"/>)", "boundColumn", x);
    row("BoundProperty ObjectName", "", R"(<BoundProperty ObjectName="x"/>)", "tableName", x);
    row("Caption", "", "<Caption><TextItem>x</TextItem></Caption>", "caption", x);
    row("Caption, untrimmed", "", "<Caption><TextItem> x <b>y</b></TextItem></Caption>", "caption",
        QStringLiteral(" x y"));
    row("ToolTip", "", "<ToolTip><TextItem>x</TextItem></ToolTip>", "toolTip", x);
    row("VisibilityRestriction", "", "<VisibilityRestriction/>", "isVisible", true);
    row("MandatoryRestriction", "", "<MandatoryRestriction/>", "isMandatory", true);
    row("ReadOnlyRestriction", "", "<ReadOnlyRestriction/>", "isReadOnly", true);
    row("VirtualRestriction", "", "<VirtualRestriction/>", "isVirtual", true);
    row("ValueListName", "", "<ValueListName>x</ValueListName>", "dataSource", x);
    row("ValueListName, untrimmed", "", "<ValueListName> x </ValueListName>", "dataSource",
        QStringLiteral(" x "));
    QTest::newRow("Id, which columns do not have")
        << QByteArray(R"(Id="x" UniqueId="x")") << QByteArray() << QVariantMap();
    QTest::newRow("attributes in lower case")
        << QByteArray(R"(width="1" ordinal="1" controltype="ComboList" valuetransfer="true" unit="x")")
        << QByteArray() << QVariantMap();
    QTest::newRow("elements in lower case")
        << QByteArray()
        << QByteArray(
               "<caption><TextItem>x</TextItem></caption><visibilityrestriction/><mandatoryrestriction/>"
               "<boundproperty PropertyName=\"x\"/><valuelistname>x</valuelistname>")
        << QVariantMap();
}

void CurrentColumnsTest::everyAttributeAndElementFillsItsProperty()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QByteArray, elements);
    QFETCH(QVariantMap, changed);
    for (const auto &kind : columnKinds()) {
        QVariantMap expected = valuesOfBareColumn(kind.type);
        for (auto it = changed.cbegin(); it != changed.cend(); ++it) {
            expected.insert(it.key(), it.value());
        }
        const ReadElements read(viewOf(columnOf(elements, dataTypeOf(kind.type, attributes))));
        QVERIFY2(read.onlyColumn(), kind.name);
        COMPARE_VALUES(valuesOf(*read.onlyColumn()), expected);
        // At any depth in the column.
        const ReadElements deeper(
            viewOf(columnOf("<A><B>" + elements + "</B></A>", dataTypeOf(kind.type, attributes))));
        COMPARE_VALUES(valuesOf(*deeper.onlyColumn()), expected);
    }
}

void CurrentColumnsTest::numericRangeFillsLimitsStepAndPrecision_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("step");
    QTest::addColumn<int>("precision");
    constexpr double limit = 2147483647.0;
    QTest::newRow("none") << QByteArray() << -limit << limit << 0.0 << 2;
    QTest::newRow("From") << QByteArray(R"(From="-3")") << -3.0 << limit << 0.0 << 2;
    QTest::newRow("To") << QByteArray(R"(To="30")") << -limit << 30.0 << 0.0 << 2;
    QTest::newRow("Step") << QByteArray(R"(Step="4")") << -limit << limit << 4.0 << 2;
    QTest::newRow("Precision") << QByteArray(R"(Precision="5")") << -limit << limit << 0.0 << 5;
    QTest::newRow("all") << QByteArray(R"(From="1" To="9" Step="2" Precision="0")") << 1.0 << 9.0 << 2.0 << 0;
    QTest::newRow("empty From is 0") << QByteArray(R"(From="")") << 0.0 << limit << 0.0 << 2;
    QTest::newRow("empty To is 0") << QByteArray(R"(To="")") << -limit << 0.0 << 0.0 << 2;
    QTest::newRow("empty Step is 0") << QByteArray(R"(Step="")") << -limit << limit << 0.0 << 2;
    QTest::newRow("empty Precision is 0") << QByteArray(R"(Precision="")") << -limit << limit << 0.0 << 0;
    QTest::newRow("lower case") << QByteArray(R"(from="1" to="9" step="2" precision="0")") << -limit << limit
                                << 0.0 << 2;
}

void CurrentColumnsTest::numericRangeFillsLimitsStepAndPrecision()
{
    QFETCH(QByteArray, attributes);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, step);
    QFETCH(int, precision);
    const QByteArray range = "<NumericRangeRestriction " + attributes + "/>";
    const ReadElements ofDecimal(viewOf(columnOf(range, "DataType=\"Decimal\"")));
    QVERIFY(ofDecimal.onlyColumn());
    const auto &decimal = static_cast<const CDecimalColumn &>(*ofDecimal.onlyColumn());
    QCOMPARE(decimal.minimumValue(), minimum);
    QCOMPARE(decimal.maximumValue(), maximum);
    QCOMPARE(decimal.stepInterval(), step);
    QCOMPARE(decimal.precision(), precision);

    const ReadElements ofInteger(viewOf(columnOf(range, "DataType=\"Integer\"")));
    QVERIFY(ofInteger.onlyColumn());
    const auto &integer = static_cast<const CIntegerColumn &>(*ofInteger.onlyColumn());
    QCOMPARE(integer.minimumValue(), static_cast<int>(minimum));
    QCOMPARE(integer.maximumValue(), static_cast<int>(maximum));
    QCOMPARE(integer.stepInterval(), static_cast<int>(step));
}

void CurrentColumnsTest::flagOfARestrictionIsItsPresence_data()
{
    QTest::addColumn<QByteArray>("restriction");
    QTest::addColumn<QByteArray>("content");
    for (const char *restriction : {"MandatoryRestriction", "ReadOnlyRestriction", "VirtualRestriction"}) {
        for (const char *content :
             {">", " Simple=\"true\">", " Simple=\"false\">", " Value=\"false\">", ">false"}) {
            QTest::addRow("%s%s", restriction, content) << QByteArray(restriction) << QByteArray(content);
        }
    }
}

void CurrentColumnsTest::flagOfARestrictionIsItsPresence()
{
    QFETCH(QByteArray, restriction);
    QFETCH(QByteArray, content);
    const ReadElements read(viewOf(columnOf("<" + restriction + content + "</" + restriction + ">")));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->isMandatory(), restriction == "MandatoryRestriction");
    QCOMPARE(read.onlyColumn()->isReadOnly(), restriction == "ReadOnlyRestriction");
    QCOMPARE(read.onlyColumn()->isVirtual(), restriction == "VirtualRestriction");
}

void CurrentColumnsTest::valueTransferIsOnlyTheExactTrue_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("expected");
    QTest::newRow("true") << QByteArray("true") << true;
    for (const char *text : {"", "True", "TRUE", "1", "yes", " true", "true ", "truet", "false"}) {
        QTest::addRow("\"%s\"", text) << QByteArray(text) << false;
    }
}

void CurrentColumnsTest::valueTransferIsOnlyTheExactTrue()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, expected);
    const ReadElements read(viewOf(columnOf("", "DataType=\"Text\" ValueTransfer=\"" + text + "\"")));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->isValueTransfer(), expected);
}

void CurrentColumnsTest::columnIsVisibleByItsVisibilityRestriction_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<bool>("isVisible");
    QTest::newRow("none") << QByteArray() << false;
    QTest::newRow("empty") << QByteArray("<VisibilityRestriction/>") << true;
    QTest::newRow("simple") << QByteArray("<VisibilityRestriction Simple=\"true\"/>") << true;
    QTest::newRow("not simple") << QByteArray("<VisibilityRestriction Simple=\"false\"/>") << true;
    QTest::newRow("says false")
        << QByteArray("<VisibilityRestriction Visible=\"false\">false</VisibilityRestriction>") << true;
    QTest::newRow("group level alone") << QByteArray("<GroupLevel Level1=\"true\"/>") << false;
}

void CurrentColumnsTest::columnIsVisibleByItsVisibilityRestriction()
{
    QFETCH(QByteArray, elements);
    QFETCH(bool, isVisible);
    const ReadElements read(viewOf(columnOf(elements)));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->isVisible(), isVisible);
    QCOMPARE(static_cast<int>(read.onlyColumn()->groupLevel()), 0);
}

void CurrentColumnsTest::addressColumnsAreHiddenWhateverTheFileSays_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<bool>("isVisible");
    for (const char *property : {"OBJ_Street", "OBJ_City", "OBJ_CityKey", "OBJ_StreetKey"}) {
        QTest::addRow("%s of SECTION", property) << QByteArray(property) << QByteArray("SECTION") << false;
        QTest::addRow("%s of NODE", property) << QByteArray(property) << QByteArray("NODE") << true;
    }
    QTest::newRow("another column") << QByteArray("OBJ_Remark") << QByteArray("SECTION") << true;
}

void CurrentColumnsTest::addressColumnsAreHiddenWhateverTheFileSays()
{
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, object);
    QFETCH(bool, isVisible);
    const ReadElements read(viewOf(columnOf("<VisibilityRestriction/><BoundProperty PropertyName=\"" +
                                            property + "\" ObjectName=\"" + object + "\"/>")));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->isVisible(), isVisible);
}

void CurrentColumnsTest::displayFormatIsForDatesAlone_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QString>("format");
    const QString format = QStringLiteral("dd.MM.yyyy");
    QTest::newRow("none") << QByteArray() << QString();
    QTest::newRow("one") << QByteArray(
                                "<DisplayFormat><ValueFormatItem Format=\"dd.MM.yyyy\"/></DisplayFormat>")
                         << format;
    QTest::newRow("first of two")
        << QByteArray(
               "<DisplayFormat><ValueFormatItem Format=\"dd.MM.yyyy\"/><ValueFormatItem Format=\"yy\"/>"
               "</DisplayFormat>")
        << format;
    QTest::newRow("deeper")
        << QByteArray("<DisplayFormat><A><ValueFormatItem Format=\"dd.MM.yyyy\"/></A></DisplayFormat>")
        << format;
    QTest::newRow("without attribute")
        << QByteArray("<DisplayFormat><ValueFormatItem/></DisplayFormat>") << QString();
    QTest::newRow("attribute of the outer one")
        << QByteArray("<DisplayFormat Format=\"dd.MM.yyyy\"/>") << QString();
    QTest::newRow("item elsewhere") << QByteArray("<DisplayFormat/><ValueFormatItem Format=\"dd.MM.yyyy\"/>")
                                    << QString();
}

void CurrentColumnsTest::displayFormatIsForDatesAlone()
{
    QFETCH(QByteArray, elements);
    QFETCH(QString, format);
    for (const auto &kind : columnKinds()) {
        QVariantMap expected = valuesOfBareColumn(kind.type);
        if (kind.type == CTemplateColumn::Date) {
            expected.insert(QStringLiteral("displayFormat"), format);
        }
        const ReadElements read(viewOf(columnOf(elements, dataTypeOf(kind.type))));
        QVERIFY2(read.onlyColumn(), kind.name);
        COMPARE_VALUES(valuesOf(*read.onlyColumn()), expected);
    }
}

void CurrentColumnsTest::firstElementOfANameInAColumnCounts_data()
{
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<QByteArray>("dataType");
    QTest::addColumn<QString>("property");
    const auto row = [](const char *name, const char *pattern, const char *dataType, const char *property) {
        QTest::newRow(name) << QByteArray(pattern) << QByteArray(dataType)
                            << QString(QLatin1String(property));
    };
    row("BoundProperty", R"(<BoundProperty PropertyName="*"/>)", "Text", "boundColumn");
    row("BoundProperty ObjectName", R"(<BoundProperty ObjectName="*"/>)", "Text", "tableName");
    row("RefersTo", R"(<BoundProperty><RefersTo ObjectName="*"/></BoundProperty>)", "Text", "tableName");
    row("Caption", "<Caption><TextItem>*</TextItem></Caption>", "Text", "caption");
    row("ToolTip", "<ToolTip><TextItem>*</TextItem></ToolTip>", "Text", "toolTip");
    row("ValueListName", "<ValueListName>*</ValueListName>", "Text", "dataSource");
    row("DisplayFormat", R"(<DisplayFormat><ValueFormatItem Format="*"/></DisplayFormat>)", "Date",
        "displayFormat");
    row("TextLengthRestriction", R"(<TextLengthRestriction Max="*"/>)", "Text", "maximumTextLength");
    row("NumericRangeRestriction From", R"(<NumericRangeRestriction From="*"/>)", "Decimal", "minimumValue");
    row("NumericRangeRestriction To", R"(<NumericRangeRestriction To="*"/>)", "Decimal", "maximumValue");
    row("NumericRangeRestriction Step", R"(<NumericRangeRestriction Step="*"/>)", "Decimal", "stepInterval");
    row("NumericRangeRestriction Precision", R"(<NumericRangeRestriction Precision="*"/>)", "Decimal",
        "precision");
}

void CurrentColumnsTest::firstElementOfANameInAColumnCounts()
{
    QFETCH(QByteArray, pattern);
    QFETCH(QByteArray, dataType);
    QFETCH(QString, property);
    const QByteArray first = QByteArray(pattern).replace('*', "11");
    const QByteArray second = QByteArray(pattern).replace('*', "22");
    const auto valueOf = [&](const QByteArray &elements) {
        const ReadElements read(viewOf(columnOf(elements, "DataType=\"" + dataType + "\"")));
        return read.onlyColumn() ? valuesOf(*read.onlyColumn()).value(property).toString() : QString();
    };
    QCOMPARE(valueOf(first + second), QStringLiteral("11"));
    QCOMPARE(valueOf("<A><B>" + first + "</B></A>" + second), QStringLiteral("11"));
    QCOMPARE(valueOf(second + "<A>" + first + "</A>"), QStringLiteral("22"));
    // Also in child elements of the column, whatever they are for.
    QCOMPARE(valueOf("<MandatoryRestriction>" + first + "</MandatoryRestriction>" + second),
             QStringLiteral("11"));
}

void CurrentColumnsTest::elementsBesideTheColumnAreNotItsOwn()
{
    const QByteArray elements = "<BoundProperty PropertyName=\"x\" ObjectName=\"x\"/><MandatoryRestriction/>"
                                "<Caption><TextItem>x</TextItem></Caption><VisibilityRestriction/>"
                                "<ValueListName>x</ValueListName><TextLengthRestriction Max=\"5\"/>";
    const ReadElements read(elements + viewOf(elements + "<Column DataType=\"Text\"/>" + elements) +
                            elements);
    QVERIFY(read.onlyColumn());
    COMPARE_VALUES(valuesOf(*read.onlyColumn()), valuesOfBareColumn(CTemplateColumn::Text));
}

void CurrentColumnsTest::captionNeedsItsTextItem_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");
    QTest::newRow("text item") << QByteArray("<TextItem>x</TextItem>") << QStringLiteral("x");
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("bare text") << QByteArray("x") << QString();
    QTest::newRow("other element") << QByteArray("<Text>x</Text>") << QString();
    QTest::newRow("empty text item, then another")
        << QByteArray("<TextItem/><TextItem>x</TextItem>") << QString();
    QTest::newRow("two languages") << QByteArray("<TextItem Language=\"en\">x</TextItem>"
                                                 "<TextItem Language=\"de\">y</TextItem>")
                                   << QStringLiteral("x");
    QTest::newRow("deeper") << QByteArray("<Texts><TextItem>x</TextItem></Texts>") << QStringLiteral("x");
    QTest::newRow("CDATA") << QByteArray("<TextItem><![CDATA[<x>]]></TextItem>") << QStringLiteral("<x>");
}

void CurrentColumnsTest::captionNeedsItsTextItem()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, text);
    const ReadElements read(viewOf(columnOf("<Caption>" + content + "</Caption><ToolTip>" + content +
                                            "</ToolTip>" + "<TextItem>elsewhere</TextItem>")));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->caption(), text);
    QCOMPARE(read.onlyColumn()->toolTip(), text);
}

void CurrentColumnsTest::classOfTheValueListIsTakenOver_data()
{
    QTest::addColumn<QByteArray>("lists");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("typeFlags");
    const auto list = [](const QByteArray &attributes) { return "<ValueList " + attributes + "/>"; };
    const QByteArray named = "<ValueListName>L</ValueListName>";
    QTest::newRow("list with class") << list(R"(Name="L" CompatibleListClassType="7")") << named << 7;
    QTest::newRow("negative class") << list(R"(Name="L" CompatibleListClassType="-7")") << named << -7;
    QTest::newRow("list without class") << list(R"(Name="L")") << named << 0;
    QTest::newRow("no number") << list(R"(Name="L" CompatibleListClassType="seven")") << named << 0;
    QTest::newRow("no such list") << list(R"(Name="M" CompatibleListClassType="7")") << named << 0;
    QTest::newRow("another case") << list(R"(Name="l" CompatibleListClassType="7")") << named << 0;
    QTest::newRow("no list at all") << QByteArray() << named << 0;
    QTest::newRow("later list of the name replaces")
        << list(R"(Name="L" CompatibleListClassType="7")") + list(R"(Name="L" CompatibleListClassType="8")")
        << named << 8;
    QTest::newRow("later list of the name without class replaces")
        << list(R"(Name="L" CompatibleListClassType="7")") + list(R"(Name="L")") << named << 0;
    QTest::newRow("list in a list") << "<ValueList Name=\"M\">" +
                                           list(R"(Name="L" CompatibleListClassType="7")") + "</ValueList>"
                                    << named << 7;
    QTest::newRow("column without list and list without name")
        << list(R"(CompatibleListClassType="7")") << QByteArray() << 7;
    QTest::newRow("column without list")
        << list(R"(Name="L" CompatibleListClassType="7")") << QByteArray() << 0;
}

void CurrentColumnsTest::classOfTheValueListIsTakenOver()
{
    QFETCH(QByteArray, lists);
    QFETCH(QByteArray, name);
    QFETCH(int, typeFlags);
    const QByteArray view = viewOf(columnOf(name));
    for (const auto &elements : {lists + view, view + lists, viewOf(columnOf(name) + lists)}) {
        const ReadElements read(elements);
        QVERIFY(read.onlyColumn());
        QCOMPARE(static_cast<int>(read.onlyColumn()->typeFlags()), typeFlags);
    }
}

void CurrentColumnsTest::columnInAColumnIsAColumnOfTheView()
{
    const ReadElements read(
        viewOf(columnOf("<BoundProperty PropertyName=\"A\"/>" + boundColumnElement("B", 2) +
                            columnOf(boundColumnElement("C", 4), R"(DataType="Date" Ordinal="3")"),
                        R"(DataType="Text" Ordinal="1")") +
               boundColumnElement("D", 5)));
    QVERIFY(read.onlyView());
    QCOMPARE(boundColumnsOf(*read.onlyView()),
             (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("C"),
                          QStringLiteral("D")}));
    QCOMPARE(read.onlyView()->column(2)->dataType(), QStringLiteral("DAT"));
}

void CurrentColumnsTest::columnInAColumnLendsItsElements()
{
    const QByteArray inner = columnOf("<MandatoryRestriction/><Caption><TextItem>inner</TextItem></Caption>"
                                      "<BoundProperty PropertyName=\"I\"/>",
                                      R"(DataType="Text" Ordinal="2" Width="5" Unit="m")");
    const ReadElements read(
        viewOf(columnOf(inner + "<Caption><TextItem>outer</TextItem></Caption>"
                                "<BoundProperty PropertyName=\"O\"/><ReadOnlyRestriction/>",
                        R"(DataType="Text" Ordinal="1")")));
    QVERIFY(read.onlyView());
    QCOMPARE(read.onlyView()->columnCount(), 2);
    const auto *outer = read.onlyView()->column(0);
    QCOMPARE(outer->boundColumn(), QStringLiteral("I"));
    QCOMPARE(outer->caption(), QStringLiteral("inner"));
    QVERIFY(outer->isMandatory());
    QVERIFY(outer->isReadOnly());
    // Attributes belong to one column only.
    QCOMPARE(outer->width(), 0);
    QCOMPARE(outer->unit(), QString());
    const auto *ofInner = read.onlyView()->column(1);
    QCOMPARE(ofInner->caption(), QStringLiteral("inner"));
    QVERIFY(!ofInner->isReadOnly());
    QCOMPARE(ofInner->width(), 5);
}

QTEST_GUILESS_MAIN(CurrentColumnsTest)

#include "CurrentColumnsTest.moc"
