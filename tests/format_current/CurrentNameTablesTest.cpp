// The names with a meaning, row by row.

#include "CurrentFormat.h"

#include <QTest>

using namespace Tobrix::Templates;

class CurrentNameTablesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void controlTypeIsTheNumberOfItsName_data();
    void controlTypeIsTheNumberOfItsName();
    void columnWithoutControlTypeHasTypeNone();
    void unitIsThatOfTheSystemOfUnits_data();
    void unitIsThatOfTheSystemOfUnits();
    void templateWithoutSystemOfUnitsHasNoUnit();
    void dataTypeNameGivesCodeAndKindOfColumn_data();
    void dataTypeNameGivesCodeAndKindOfColumn();
    void unknownDataTypeLeavesANullEntry_data();
    void unknownDataTypeLeavesANullEntry();
    void columnWithoutDataTypeLeavesANullEntry();
    void columnOfAnExcludedKeyIsSkipped_data();
    void columnOfAnExcludedKeyIsSkipped();
    void columnOfAKeyLikeAnExcludedOneStays_data();
    void columnOfAKeyLikeAnExcludedOneStays();
    void excludedColumnOfUnknownDataTypeLeavesNoEntry();
    void excludedKeyIsFormedOfTheFinalBinding();
};

void CurrentNameTablesTest::controlTypeIsTheNumberOfItsName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("number");
    const char *const names[] = {
        "",
        "SimpleTextbox",
        "MaskedTextbox",
        "ComboList",
        "NumericUpDown",
        "DateOnlyPicker",
        "TimeOnlyPicker",
        "CheckBox",
        "TextButton",
        "ComboTextBox",
        "BitMask",
        "DirectoryPicker",
        "FilePicker",
        "ColorPicker",
        "FontPicker",
        "SectionTitle",
        "PictureBox",
        "CommandButton",
        "MultipleChoice",
        "MultiLineTextbox",
    };
    int number = 0;
    for (const char *name : names) {
        QTest::addRow("%d, \"%s\"", number, name) << QByteArray(name) << number;
        ++number;
    }
    for (const char *unknown :
         {"simpletextbox", "SimpleTextBox", "MaskedTextBox", "ComboTextbox", "Checkbox", "MultiLineTextBox",
          "MultilineTextbox", "Combolist", " ComboList", "ComboList ", "3", "Lever"}) {
        QTest::addRow("unknown \"%s\"", unknown) << QByteArray(unknown) << 0;
    }
}

void CurrentNameTablesTest::controlTypeIsTheNumberOfItsName()
{
    QFETCH(QByteArray, name);
    QFETCH(int, number);
    const ReadElements read(viewOf(columnOf("", "DataType=\"Text\" ControlType=\"" + name + "\"")));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->getControlType(), number);
}

void CurrentNameTablesTest::columnWithoutControlTypeHasTypeNone()
{
    const ReadElements read(viewOf(columnOf("")));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->getControlType(), 0);
}

void CurrentNameTablesTest::unitIsThatOfTheSystemOfUnits_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("unit");
    QTest::newRow("Metric") << QByteArray("Metric") << QStringLiteral("m");
    QTest::newRow("Imperial") << QByteArray("Imperial") << QStringLiteral("ft");
    for (const char *unknown :
         {"", "metric", "METRIC", "imperial", "IMPERIAL", " Metric", "Imperial ", "m", "ft", "Nautical"}) {
        QTest::addRow("unknown \"%s\"", unknown) << QByteArray(unknown) << QString();
    }
}

void CurrentNameTablesTest::unitIsThatOfTheSystemOfUnits()
{
    QFETCH(QByteArray, system);
    QFETCH(QString, unit);
    QCOMPARE(ReadElements("<TemplateIdentifier SystemOfUnits=\"" + system + "\"/>").rawData().unit, unit);
}

void CurrentNameTablesTest::templateWithoutSystemOfUnitsHasNoUnit()
{
    QCOMPARE(ReadElements("<TemplateIdentifier Id=\"{id}\"/>").rawData().unit, QString());
    QCOMPARE(ReadElements("<Name>N</Name>").rawData().unit, QString());
}

void CurrentNameTablesTest::dataTypeNameGivesCodeAndKindOfColumn_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("type");
    QTest::newRow("Guid") << QByteArray("Guid") << QStringLiteral("GUI") << 1;
    QTest::newRow("Decimal") << QByteArray("Decimal") << QStringLiteral("DEC") << 3;
    QTest::newRow("Text") << QByteArray("Text") << QStringLiteral("TXT") << 1;
    QTest::newRow("Boolean") << QByteArray("Boolean") << QStringLiteral("BOL") << 4;
    QTest::newRow("Date") << QByteArray("Date") << QStringLiteral("DAT") << 5;
    QTest::newRow("Time") << QByteArray("Time") << QStringLiteral("TIM") << 6;
    QTest::newRow("Integer") << QByteArray("Integer") << QStringLiteral("INT") << 2;
}

void CurrentNameTablesTest::dataTypeNameGivesCodeAndKindOfColumn()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, code);
    QFETCH(int, type);
    const ReadElements read(viewOf(columnOf("", "DataType=\"" + name + "\"")));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->dataType(), code);
    QCOMPARE(static_cast<int>(read.onlyColumn()->columnType()), type);
}

void CurrentNameTablesTest::unknownDataTypeLeavesANullEntry_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *unknown : {"", "text", "TEXT", "TXT", "GUI", "INT", "Int", "GUID", "Bool", "DateTime",
                                " Text", "Text ", "Double"}) {
        QTest::addRow("\"%s\"", unknown) << QByteArray(unknown);
    }
}

void CurrentNameTablesTest::unknownDataTypeLeavesANullEntry()
{
    QFETCH(QByteArray, name);
    // Twice: the first one adds the name to the document's names.
    const QByteArray column = columnOf("", "DataType=\"" + name + "\"");
    const ReadElements read(viewOf(column + column));
    QVERIFY(read.onlyView());
    QCOMPARE(boundColumnsOf(*read.onlyView()),
             (QStringList{QStringLiteral("(null)"), QStringLiteral("(null)")}));
}

void CurrentNameTablesTest::columnWithoutDataTypeLeavesANullEntry()
{
    const ReadElements read(viewOf("<Column/>"));
    QVERIFY(read.onlyView());
    QCOMPARE(boundColumnsOf(*read.onlyView()), QStringList{QStringLiteral("(null)")});
}

void CurrentNameTablesTest::columnOfAnExcludedKeyIsSkipped_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QByteArray>("object");
    const auto row = [](const char *property, const char *object) {
        QTest::addRow("%s of %s", property, object) << QByteArray(property) << QByteArray(object);
    };
    row("OBJ_FromHorizontalOffset", "SECTION");
    row("OBJ_ToHorizontalOffset", "SECTION");
    row("OBJ_ActivityType", "SECTION");
    row("OBJ_Instrumented", "SECTION");
    row("OBJ_Maintenance", "SECTION");
    row("OBJ_RequiresReview", "SECTION");
    row("OBJ_ActivityType", "NODE");
    row("OBJ_Instrumented", "NODE");
    row("OBJ_Maintenance", "NODE");
    row("OBJ_RequiresReview", "NODE");
    // Only the whole key is compared, not the position of its separator.
    row("OBJ", "Instrumented_NODE");
}

namespace {

QByteArray columnOfObject(const QByteArray &property, const QByteArray &object,
                          const QByteArray &attributes = R"(DataType="Text")")
{
    return columnOf("<BoundProperty PropertyName=\"" + property + "\" ObjectName=\"" + object + "\"/>",
                    attributes);
}

} // namespace

void CurrentNameTablesTest::columnOfAnExcludedKeyIsSkipped()
{
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, object);
    const ReadElements read(viewOf(boundColumnElement("before", 1) + columnOfObject(property, object) +
                                   boundColumnElement("after", 2)));
    QVERIFY(read.onlyView());
    QCOMPARE(boundColumnsOf(*read.onlyView()),
             (QStringList{QStringLiteral("before"), QStringLiteral("after")}));
}

void CurrentNameTablesTest::columnOfAKeyLikeAnExcludedOneStays_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QByteArray>("object");
    const auto row = [](const char *property, const char *object) {
        QTest::addRow("%s of %s", property, object) << QByteArray(property) << QByteArray(object);
    };
    row("OBJ_FromHorizontalOffset", "NODE");
    row("OBJ_ToHorizontalOffset", "NODE");
    row("OBJ_Instrumented", "LATERAL");
    row("OBJ_Instrumented", "node");
    row("OBJ_instrumented", "NODE");
    row("OBJ_Instrumented", "");
    row("OBJ_Instrumented_NODE", "");
    row("", "OBJ_Instrumented_NODE");
    row("OBJ_Instrumented", "NODE ");
    row("OBJ_Instrumented ", "NODE");
    row("OBJ_Instrumented2", "NODE");
    row("OBJ_Instrumented", "NODE2");
    row("xOBJ_Instrumented", "NODE");
    row("OBJ_Instrumentee", "NODE");
}

void CurrentNameTablesTest::columnOfAKeyLikeAnExcludedOneStays()
{
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, object);
    const ReadElements read(viewOf(columnOfObject(property, object)));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->boundColumn(), QString::fromLatin1(property));
    QCOMPARE(read.onlyColumn()->tableName(), QString::fromLatin1(object));
}

void CurrentNameTablesTest::excludedColumnOfUnknownDataTypeLeavesNoEntry()
{
    const ReadElements read(viewOf(columnOfObject("OBJ_Instrumented", "NODE", "DataType=\"Blob\"")));
    QVERIFY(read.onlyView());
    QCOMPARE(read.onlyView()->columnCount(), 0);
}

void CurrentNameTablesTest::excludedKeyIsFormedOfTheFinalBinding()
{
    const auto column = [](const QByteArray &property, const QByteArray &display) {
        return viewOf(columnOf("<BoundProperty PropertyName=\"" + property +
                               "\" ObjectName=\"NODE\"><RefersTo DisplayPropertyName=\"" + display +
                               "\" ObjectName=\"SECTION\"/></BoundProperty>"));
    };
    const ReadElements composed(column("OBJ_Instrumented", "Name"));
    QVERIFY(composed.onlyColumn());
    QCOMPARE(composed.onlyColumn()->boundColumn(), QStringLiteral("OBJ_Instrumented.Name"));
    // A key that is not shown keeps the excluded binding.
    const ReadElements asRead(column("OBJ_Instrumented", "Name_Key"));
    QVERIFY(asRead.onlyView());
    QCOMPARE(asRead.onlyView()->columnCount(), 0);
}

QTEST_GUILESS_MAIN(CurrentNameTablesTest)

#include "CurrentNameTablesTest.moc"
