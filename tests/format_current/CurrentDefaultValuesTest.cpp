// Default values: which column of which view gets which, and of which type.

#include "CurrentFormat.h"

#include "support/ColumnProperties.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

QByteArray item(const QByteArray &attributes, const QByteArray &content)
{
    return "<DefaultValueItem " + attributes + ">" + content + "</DefaultValueItem>";
}

QByteArray bound(const QByteArray &property, const QByteArray &content = QByteArray())
{
    return "<BoundProperty PropertyName=\"" + property + "\">" + content + "</BoundProperty>";
}

QByteArray refersTo(const QByteArray &display)
{
    return "<RefersTo DisplayPropertyName=\"" + display + "\"/>";
}

/// A default value for a property in the view "View".
QByteArray defaultOf(const QByteArray &property, const QByteArray &value)
{
    return item("View=\"View\" Value=\"" + value + "\"", bound(property));
}

QByteArray scope(const QByteArray &items)
{
    return "<DefaultValueScope>" + items + "</DefaultValueScope>";
}

QByteArray defaults(const QByteArray &items)
{
    return "<DefaultValues>" + scope(items) + "</DefaultValues>";
}

/// The default of the only column; null when there is none, or no such column.
QVariant defaultIn(const QByteArray &elements)
{
    const ReadElements read(elements);
    return read.onlyColumn() ? read.onlyColumn()->defaultValue() : QVariant(QStringLiteral("no column"));
}

} // namespace

class CurrentDefaultValuesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaultIsForItsPropertyInTheViewOfItsName_data();
    void defaultIsForItsPropertyInTheViewOfItsName();
    void defaultsViewIsComparedWithTheViewsNameNotItsId();
    void sameColumnHasADefaultPerView();
    void viewsOfOneNameShareTheDefault();
    void propertyPathFollowsTheReferenceUnlessItShowsAKey_data();
    void propertyPathFollowsTheReferenceUnlessItShowsAKey();
    void defaultOfAKeyMissesTheColumnThatShowsIt();
    void laterDefaultOfAPropertyAndViewWins_data();
    void laterDefaultOfAPropertyAndViewWins();
    void scopeWithinAScopeIsReadOnceMore();
    void defaultWithinADefaultIsOneOfItsOwn();
    void onlyItemsBelowScopesOfTheFirstContainerCount_data();
    void onlyItemsBelowScopesOfTheFirstContainerCount();
    void defaultsMayStandAnywhere_data();
    void defaultsMayStandAnywhere();
    void textIsKeptAsItStands_data();
    void textIsKeptAsItStands();
    void valueIsConvertedForTheColumn_data();
    void valueIsConvertedForTheColumn();
    void todayIsOnlyTheExactMarker_data();
    void todayIsOnlyTheExactMarker();
    void nodeTypeDefaultsUnlessTheFileHasOne_data();
    void nodeTypeDefaultsUnlessTheFileHasOne();
};

void CurrentDefaultValuesTest::defaultIsForItsPropertyInTheViewOfItsName_data()
{
    QTest::addColumn<QByteArray>("defaultItem");
    QTest::addColumn<bool>("applies");
    QTest::newRow("both") << item(R"(Value="x" View="View")", bound("P")) << true;
    QTest::newRow("another property") << item(R"(Value="x" View="View")", bound("Q")) << false;
    QTest::newRow("property in another case") << item(R"(Value="x" View="View")", bound("p")) << false;
    QTest::newRow("another view") << item(R"(Value="x" View="Other")", bound("P")) << false;
    QTest::newRow("view in another case") << item(R"(Value="x" View="view")", bound("P")) << false;
    QTest::newRow("view with blank") << item(R"(Value="x" View="View ")", bound("P")) << false;
    QTest::newRow("no view") << item(R"(Value="x")", bound("P")) << false;
    QTest::newRow("no property") << item(R"(Value="x" View="View")", "<BoundProperty/>") << false;
    QTest::newRow("no bound property") << item(R"(Value="x" View="View")", "") << false;
    QTest::newRow("bound property deeper")
        << item(R"(Value="x" View="View")", "<A><B>" + bound("P") + "</B></A>") << true;
    QTest::newRow("first bound property of two")
        << item(R"(Value="x" View="View")", bound("P") + bound("Q")) << true;
    QTest::newRow("second bound property of two")
        << item(R"(Value="x" View="View")", bound("Q") + bound("P")) << false;
    QTest::newRow("object does not count")
        << item(R"(Value="x" View="View")", R"(<BoundProperty PropertyName="P" ObjectName="OTHER"/>)")
        << true;
}

void CurrentDefaultValuesTest::defaultIsForItsPropertyInTheViewOfItsName()
{
    QFETCH(QByteArray, defaultItem);
    QFETCH(bool, applies);
    const QVariant value = defaultIn(defaults(defaultItem) + viewOf(boundColumnElement("P")));
    QCOMPARE(value.toString(), applies ? QStringLiteral("x") : QString());
    QCOMPARE(value.isNull(), !applies);

    // A default without property or view applies to columns or views without one.
    if (defaultItem == item(R"(Value="x")", bound("P"))) {
        QCOMPARE(defaultIn(defaults(defaultItem) + viewOf(boundColumnElement("P"), R"(Id="V")")).toString(),
                 QStringLiteral("x"));
    }
    if (!defaultItem.contains("PropertyName")) {
        QCOMPARE(defaultIn(defaults(defaultItem) + viewOf(columnOf(""))).toString(), QStringLiteral("x"));
    }
}

void CurrentDefaultValuesTest::defaultsViewIsComparedWithTheViewsNameNotItsId()
{
    const QByteArray items = item(R"(Value="by id" View="{view}")", bound("P"));
    QVERIFY(defaultIn(defaults(items) + viewOf(boundColumnElement("P"))).isNull());
    const QByteArray both = items + item(R"(Value="by name" View="View")", bound("P"));
    QCOMPARE(defaultIn(defaults(both) + viewOf(boundColumnElement("P"))),
             QVariant(QStringLiteral("by name")));
}

void CurrentDefaultValuesTest::sameColumnHasADefaultPerView()
{
    const ReadElements read(
        defaults(item(R"(Value="of outer" View="Outer")", bound("P")) +
                 item(R"(Value="of inner" View="Inner")", bound("P"))) +
        viewOf(viewOf(boundColumnElement("P"), R"(Id="2" Name="Inner")"), R"(Id="1" Name="Outer")") +
        viewOf(boundColumnElement("P"), R"(Id="3" Name="Other")"));
    const auto defaultInView = [&](const char *id) {
        return read.view(QLatin1String(id))->column(0)->defaultValue();
    };
    QCOMPARE(defaultInView("1"), QVariant(QStringLiteral("of outer")));
    QCOMPARE(defaultInView("2"), QVariant(QStringLiteral("of inner")));
    QVERIFY(defaultInView("3").isNull());
}

void CurrentDefaultValuesTest::viewsOfOneNameShareTheDefault()
{
    const ReadElements read(
        defaults(defaultOf("P", "x")) +
        viewOf(boundColumnElement("P") + boundColumnElement("P", 1), R"(Id="1" Name="View")") +
        viewOf(boundColumnElement("P"), R"(Id="2" Name="View")"));
    const QVariant x = QStringLiteral("x");
    QCOMPARE(read.view(QStringLiteral("1"))->column(0)->defaultValue(), x);
    QCOMPARE(read.view(QStringLiteral("1"))->column(1)->defaultValue(), x);
    QCOMPARE(read.view(QStringLiteral("2"))->column(0)->defaultValue(), x);
}

void CurrentDefaultValuesTest::propertyPathFollowsTheReferenceUnlessItShowsAKey_data()
{
    QTest::addColumn<QByteArray>("reference");
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("no reference") << QByteArray() << QByteArray("Pipe");
    QTest::newRow("property") << refersTo("Name") << QByteArray("Pipe.Name");
    QTest::newRow("key") << refersTo("Material_Key") << QByteArray("Pipe");
    QTest::newRow("nothing but key") << refersTo("_Key") << QByteArray("Pipe");
    QTest::newRow("key in lower case") << refersTo("Material_key") << QByteArray("Pipe.Material_key");
    QTest::newRow("key within") << refersTo("Material_Key2") << QByteArray("Pipe.Material_Key2");
    QTest::newRow("no property") << QByteArray("<RefersTo/>") << QByteArray("Pipe.");
    QTest::newRow("empty property") << refersTo("") << QByteArray("Pipe.");
    QTest::newRow("first of two") << refersTo("Name") + refersTo("Other") << QByteArray("Pipe.Name");
    QTest::newRow("deeper") << "<A>" + refersTo("Name") + "</A>" << QByteArray("Pipe.Name");
}

void CurrentDefaultValuesTest::propertyPathFollowsTheReferenceUnlessItShowsAKey()
{
    QFETCH(QByteArray, reference);
    QFETCH(QByteArray, path);
    const QByteArray items = item(R"(Value="x" View="View")", bound("Pipe", reference));
    QCOMPARE(defaultIn(defaults(items) + viewOf(boundColumnElement(path))).toString(), QStringLiteral("x"));
    const QByteArray other = path == "Pipe" ? "Pipe.Material_Key" : "Pipe";
    QCOMPARE(defaultIn(defaults(items) + viewOf(boundColumnElement(other))).toString(), QString());
    // A reference outside of the bound property is ignored.
    const QByteArray beside = item(R"(Value="x" View="View")", bound("Pipe") + reference);
    QCOMPARE(defaultIn(defaults(beside) + viewOf(boundColumnElement("Pipe"))).toString(),
             QStringLiteral("x"));
}

// The path of a default never ends in a key; the binding of a column may.
void CurrentDefaultValuesTest::defaultOfAKeyMissesTheColumnThatShowsIt()
{
    const QByteArray binding = bound("M_FK", refersTo("M_Key"));
    const QByteArray column = columnOf("<MandatoryRestriction/>" + binding);
    const auto view = [&](const char *kind) {
        return viewOf(column, QByteArray(R"(Id="V" Name="View" Kind=")") + kind + "\"");
    };
    const QByteArray items = item(R"(Value="x" View="View")", binding);
    QCOMPARE(defaultIn(defaults(items) + view("Grid")), QVariant(QStringLiteral("x")));
    QVERIFY(defaultIn(defaults(items) + view("Detail")).isNull());
    const QByteArray spelledOut = defaultOf("M_FK.M_Key", "y");
    QCOMPARE(defaultIn(defaults(items + spelledOut) + view("Detail")), QVariant(QStringLiteral("y")));
}

void CurrentDefaultValuesTest::laterDefaultOfAPropertyAndViewWins_data()
{
    QTest::addColumn<QByteArray>("container");
    QTest::newRow("in one scope") << defaults(defaultOf("P", "1") + defaultOf("P", "2") +
                                              defaultOf("P", "x"));
    QTest::newRow("in two scopes") << "<DefaultValues>" + scope(defaultOf("P", "1")) +
                                          scope(defaultOf("P", "x")) + "</DefaultValues>";
    QTest::newRow("with and without key")
        << defaults(defaultOf("P", "1") + item(R"(Value="x" View="View")", bound("P", refersTo("A_Key"))));
    QTest::newRow("others after it") << defaults(defaultOf("P", "x") + defaultOf("Q", "2") +
                                                 item(R"(Value="3" View="Other")", bound("P")));
}

void CurrentDefaultValuesTest::laterDefaultOfAPropertyAndViewWins()
{
    QFETCH(QByteArray, container);
    QCOMPARE(defaultIn(container + viewOf(boundColumnElement("P"))), QVariant(QStringLiteral("x")));
}

void CurrentDefaultValuesTest::scopeWithinAScopeIsReadOnceMore()
{
    // First for the outer scope, where the last item wins, and then for its own.
    const QByteArray container = defaults(scope(defaultOf("P", "inner")) + defaultOf("P", "outer"));
    QCOMPARE(defaultIn(container + viewOf(boundColumnElement("P"))), QVariant(QStringLiteral("inner")));
}

void CurrentDefaultValuesTest::defaultWithinADefaultIsOneOfItsOwn()
{
    const QByteArray nested = item(R"(Value="outer" View="View")", defaultOf("P", "inner") + bound("Q"));
    const ReadElements read(defaults(nested) +
                            viewOf(boundColumnElement("P", 1) + boundColumnElement("Q", 2)));
    // The outer item's bound property is the first below it, which is the inner item's.
    QCOMPARE(read.onlyView()->column(0)->defaultValue(), QVariant(QStringLiteral("inner")));
    QVERIFY(read.onlyView()->column(1)->defaultValue().isNull());
}

void CurrentDefaultValuesTest::onlyItemsBelowScopesOfTheFirstContainerCount_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<bool>("applies");
    const QByteArray one = defaultOf("P", "x");
    QTest::newRow("in place") << defaults(one) << true;
    QTest::newRow("scope deeper") << "<DefaultValues><A>" + scope(one) + "</A></DefaultValues>" << true;
    QTest::newRow("item deeper") << defaults("<A><B>" + one + "</B></A>") << true;
    QTest::newRow("container deeper") << "<A><B>" + defaults(one) + "</B></A>" << true;
    QTest::newRow("no scope") << "<DefaultValues>" + one + "</DefaultValues>" << false;
    QTest::newRow("no container") << scope(one) << false;
    QTest::newRow("second container") << "<DefaultValues/>" + defaults(one) << false;
    QTest::newRow("container in a container")
        << "<DefaultValues>" + defaults(one) + "</DefaultValues>" << true;
    QTest::newRow("container in lower case") << "<defaultvalues>" + scope(one) + "</defaultvalues>" << false;
}

void CurrentDefaultValuesTest::onlyItemsBelowScopesOfTheFirstContainerCount()
{
    QFETCH(QByteArray, elements);
    QFETCH(bool, applies);
    QCOMPARE(defaultIn(elements + viewOf(boundColumnElement("P"))).toString(),
             applies ? QStringLiteral("x") : QString());
}

void CurrentDefaultValuesTest::defaultsMayStandAnywhere_data()
{
    QTest::addColumn<QByteArray>("elements");
    const QByteArray container = defaults(defaultOf("P", "x"));
    const QByteArray column = boundColumnElement("P");
    const QByteArray scoped = viewOf(column);
    QTest::newRow("before the view") << container + scoped;
    QTest::newRow("after the view") << scoped + container;
    QTest::newRow("in the view, before the column") << viewOf(container + column);
    QTest::newRow("in the view, after the column") << viewOf(column + container);
    QTest::newRow("in the column") << viewOf(columnOf(bound("P") + container));
    QTest::newRow("around the view") << "<DefaultValues>" + scope(defaultOf("P", "x") + scoped) +
                                            "</DefaultValues>";
    QTest::newRow("view in an item") << defaults(item(R"(View="View" Value="x")", bound("P") + scoped));
    QTest::newRow("column's bound property is the item's too")
        << defaults(item(R"(View="View" Value="x")", scoped));
}

void CurrentDefaultValuesTest::defaultsMayStandAnywhere()
{
    QFETCH(QByteArray, elements);
    QCOMPARE(defaultIn(elements), QVariant(QStringLiteral("x")));
}

void CurrentDefaultValuesTest::textIsKeptAsItStands_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("text");
    for (const char *value : {"x", " x ", "true", "0", "=Today()", "a;b"}) {
        QTest::addRow("\"%s\"", value) << QByteArray(value) << QString(QLatin1String(value));
    }
    QTest::newRow("entities") << QByteArray("&lt;&amp;&#228;") << QStringLiteral("<&\u00e4");
}

void CurrentDefaultValuesTest::textIsKeptAsItStands()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, text);
    QCOMPARE(defaultIn(defaults(defaultOf("P", value)) + viewOf(boundColumnElement("P"))), QVariant(text));
}

void CurrentDefaultValuesTest::valueIsConvertedForTheColumn_data()
{
    QTest::addColumn<QByteArray>("dataType");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char *dataType, const char *value, const QVariant &expected) {
        QTest::addRow("%s \"%s\"", dataType, value) << QByteArray(dataType) << QByteArray(value) << expected;
    };
    row("Text", "12", QStringLiteral("12"));
    row("Guid", "{1-2}", QStringLiteral("{1-2}"));
    row("Integer", "12", 12);
    row("Integer", "-12", -12);
    row("Integer", "1.5", 0);
    row("Integer", "x", 0);
    row("Integer", "0x10", 0);
    row("Integer", "", QVariant());
    row("Decimal", "1.5", 1.5);
    row("Decimal", "-2", -2.0);
    row("Decimal", "1e3", 1000.0);
    row("Decimal", "1,5", 0.0);
    row("Decimal", "x", 0.0);
    row("Decimal", "", QVariant());
    row("Boolean", "true", true);
    row("Boolean", "false", QVariant());
    row("Boolean", "True", QVariant());
    row("Boolean", "1", QVariant());
    row("Boolean", "", QVariant());
    row("Date", "2020-01-31", QVariant());
    row("Time", "12:00", QVariant());
}

void CurrentDefaultValuesTest::valueIsConvertedForTheColumn()
{
    QFETCH(QByteArray, dataType);
    QFETCH(QByteArray, value);
    QFETCH(QVariant, expected);
    const QVariant found = defaultIn(defaults(defaultOf("P", value)) +
                                     viewOf(columnOf(bound("P"), "DataType=\"" + dataType + "\"")));
    QCOMPARE(found, expected);
    QCOMPARE(found.userType(), expected.userType());
}

void CurrentDefaultValuesTest::todayIsOnlyTheExactMarker_data()
{
    QTest::addColumn<QByteArray>("dataType");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("expected");
    for (const char *dataType : {"Date", "Time"}) {
        QTest::addRow("%s today", dataType) << QByteArray(dataType) << QByteArray("=Today()") << true;
        for (const char *value :
             {"=today()", "=TODAY()", "Today()", "=Today", "=Today() ", "=Now()", "true", ""}) {
            QTest::addRow("%s \"%s\"", dataType, value) << QByteArray(dataType) << QByteArray(value) << false;
        }
    }
}

void CurrentDefaultValuesTest::todayIsOnlyTheExactMarker()
{
    QFETCH(QByteArray, dataType);
    QFETCH(QByteArray, value);
    QFETCH(bool, expected);
    const ReadElements read(defaults(defaultOf("P", value)) +
                            viewOf(columnOf(bound("P"), "DataType=\"" + dataType + "\"")));
    QVERIFY(read.onlyColumn());
    QCOMPARE(valuesOf(*read.onlyColumn()).value(QStringLiteral("initializeWithNow")), QVariant(expected));
    QVERIFY(!read.onlyColumn()->hasDefaultValue());
}

void CurrentDefaultValuesTest::nodeTypeDefaultsUnlessTheFileHasOne_data()
{
    QTest::addColumn<QByteArray>("items");
    QTest::addColumn<QByteArray>("dataType");
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QVariant>("expected");
    const QByteArray own = item(R"(Value="SHF" View="View")", bound("OBJ_Type"));
    QTest::newRow("none") << QByteArray() << QByteArray("Text") << QByteArray("SECTION")
                          << QVariant(QStringLiteral("NOD"));
    QTest::newRow("one") << own << QByteArray("Text") << QByteArray("SECTION")
                         << QVariant(QStringLiteral("SHF"));
    QTest::newRow("none, in another table")
        << QByteArray() << QByteArray("Text") << QByteArray("NODE") << QVariant(QString());
    QTest::newRow("none, integer") << QByteArray() << QByteArray("Integer") << QByteArray("SECTION")
                                   << QVariant();
    QTest::newRow("none, decimal") << QByteArray() << QByteArray("Decimal") << QByteArray("SECTION")
                                   << QVariant();
}

void CurrentDefaultValuesTest::nodeTypeDefaultsUnlessTheFileHasOne()
{
    QFETCH(QByteArray, items);
    QFETCH(QByteArray, dataType);
    QFETCH(QByteArray, table);
    QFETCH(QVariant, expected);
    const QByteArray column =
        columnOf("<BoundProperty PropertyName=\"OBJ_Type\" ObjectName=\"" + table + "\"/>",
                 "DataType=\"" + dataType + "\"");
    const QVariant found = defaultIn(defaults(items) + viewOf(column));
    QCOMPARE(found, expected);
    QCOMPARE(found.isNull(), expected.isNull());
}

QTEST_GUILESS_MAIN(CurrentDefaultValuesTest)

#include "CurrentDefaultValuesTest.moc"
