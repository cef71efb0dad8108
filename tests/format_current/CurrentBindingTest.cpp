// The database columns that columns are bound to, with and without a reference.

#include "CurrentFormat.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

QByteArray boundTo(const QByteArray &property, const QByteArray &content,
                   const QByteArray &object = R"(ObjectName="SECTION")")
{
    return "<BoundProperty PropertyName=\"" + property + "\" " + object + ">" + content + "</BoundProperty>";
}

QByteArray refersTo(const QByteArray &display, const QByteArray &object = R"(ObjectName="MATERIAL")")
{
    return "<RefersTo DisplayPropertyName=\"" + display + "\" " + object + "/>";
}

QByteArray viewOfKind(const char *kind, const QByteArray &elements)
{
    const QByteArray attribute = kind ? QByteArray(" Kind=\"") + kind + "\"" : QByteArray();
    return viewOf(elements, R"(Id="V" Name="V")" + attribute);
}

const QString section = QStringLiteral("SECTION");
const QString material = QStringLiteral("MATERIAL");

} // namespace

class CurrentBindingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnWithoutReferenceIsBoundToItsProperty_data();
    void columnWithoutReferenceIsBoundToItsProperty();
    void referenceIsShownUnlessItShowsAKey_data();
    void referenceIsShownUnlessItShowsAKey();
    void keyIsShownOnlyInADetailViewForAMandatoryForeignKey_data();
    void keyIsShownOnlyInADetailViewForAMandatoryForeignKey();
    void kindIsTheViewsNotTheColumns();
    void sameColumnIsBoundDifferentlyInNestedViews();
    void referenceMustStandBelowTheBoundProperty_data();
    void referenceMustStandBelowTheBoundProperty();
    void nodeTypeOfAReferenceIsCompleted();
};

void CurrentBindingTest::columnWithoutReferenceIsBoundToItsProperty_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QString>("boundColumn");
    QTest::addColumn<QString>("table");
    const QString x = QStringLiteral("X");
    QTest::newRow("both") << boundTo("X", "") << x << section;
    QTest::newRow("no object") << boundTo("X", "", "") << x << QString();
    QTest::newRow("no property") << QByteArray(R"(<BoundProperty ObjectName="SECTION"/>)") << QString()
                                 << section;
    QTest::newRow("neither") << QByteArray("<BoundProperty/>") << QString() << QString();
    QTest::newRow("no element") << QByteArray() << QString() << QString();
    QTest::newRow("mandatory foreign key")
        << "<MandatoryRestriction/>" + boundTo("X_FK", "") << QStringLiteral("X_FK") << section;
    QTest::newRow("text within") << boundTo("X", "Y") << x << section;
}

void CurrentBindingTest::columnWithoutReferenceIsBoundToItsProperty()
{
    QFETCH(QByteArray, elements);
    QFETCH(QString, boundColumn);
    QFETCH(QString, table);
    const ReadElements read(viewOfKind("Detail", columnOf(elements)));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->boundColumn(), boundColumn);
    QCOMPARE(read.onlyColumn()->tableName(), table);
}

void CurrentBindingTest::referenceIsShownUnlessItShowsAKey_data()
{
    QTest::addColumn<QByteArray>("boundProperty");
    QTest::addColumn<QString>("boundColumn");
    QTest::addColumn<QString>("table");
    const QString shown = QStringLiteral("X.Name");
    QTest::newRow("a property") << boundTo("X", refersTo("Name")) << shown << material;
    QTest::newRow("of a foreign key")
        << boundTo("X_FK", refersTo("Name")) << QStringLiteral("X_FK.Name") << material;
    QTest::newRow("no object") << boundTo("X", refersTo("Name", "")) << shown << QString();
    QTest::newRow("empty property") << boundTo("X", refersTo("")) << QStringLiteral("X.") << material;
    QTest::newRow("no property") << boundTo("X", R"(<RefersTo ObjectName="MATERIAL"/>)")
                                 << QStringLiteral("X.") << material;
    QTest::newRow("nothing at all") << boundTo("X", "<RefersTo/>") << QStringLiteral("X.") << QString();
    QTest::newRow("of no property") << QByteArray("<BoundProperty>") + refersTo("Name") + "</BoundProperty>"
                                    << QStringLiteral(".Name") << material;
    QTest::newRow("key within the name")
        << boundTo("X", refersTo("A_KeyB")) << QStringLiteral("X.A_KeyB") << material;
    QTest::newRow("key in lower case")
        << boundTo("X", refersTo("A_key")) << QStringLiteral("X.A_key") << material;
    QTest::newRow("key in upper case")
        << boundTo("X", refersTo("A_KEY")) << QStringLiteral("X.A_KEY") << material;
    QTest::newRow("key without line")
        << boundTo("X", refersTo("AKey")) << QStringLiteral("X.AKey") << material;
    QTest::newRow("key with trailing blank")
        << boundTo("X", refersTo("A_Key ")) << QStringLiteral("X.A_Key ") << material;
    QTest::newRow("key") << boundTo("X", refersTo("A_Key")) << QStringLiteral("X") << section;
    QTest::newRow("nothing but key") << boundTo("X", refersTo("_Key")) << QStringLiteral("X") << section;
}

void CurrentBindingTest::referenceIsShownUnlessItShowsAKey()
{
    QFETCH(QByteArray, boundProperty);
    QFETCH(QString, boundColumn);
    QFETCH(QString, table);
    const ReadElements read(viewOf(columnOf(boundProperty)));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->boundColumn(), boundColumn);
    QCOMPARE(read.onlyColumn()->tableName(), table);
}

void CurrentBindingTest::keyIsShownOnlyInADetailViewForAMandatoryForeignKey_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<bool>("isShown");
    const char *const kinds[] = {"Detail", "detail", "DETAIL", "Detail ", "Details", "Grid", "", nullptr};
    const char *const properties[] = {"X_FK", "_FK", "X_Fk", "X_fk", "X_FK2", "XFK", "X_FK ", "X"};
    for (const char *kind : kinds) {
        for (const char *property : properties) {
            for (const bool isMandatory : {true, false}) {
                for (const char *display : {"A_Key", "_Key", "A"}) {
                    const bool isKey = qstrcmp(display, "A") != 0;
                    const bool isForeignKey = qstrcmp(property, "X_FK") == 0 || qstrcmp(property, "_FK") == 0;
                    const bool isDetail = qstrcmp(kind, "Detail") == 0;
                    const QByteArray mandatory = isMandatory ? "<MandatoryRestriction/>" : "";
                    QTest::addRow("kind %s, %s %s refers to %s",
                                  kind ? qPrintable(QLatin1String(kind)) : "missing",
                                  isMandatory ? "mandatory" : "optional", property, display)
                        << viewOfKind(kind, columnOf(boundTo(property, refersTo(display)) + mandatory))
                        << (!isKey || (isMandatory && isForeignKey && isDetail));
                }
            }
        }
    }
}

void CurrentBindingTest::keyIsShownOnlyInADetailViewForAMandatoryForeignKey()
{
    QFETCH(QByteArray, elements);
    QFETCH(bool, isShown);
    const ReadElements read(elements);
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->tableName(), isShown ? material : section);
    QCOMPARE(read.onlyColumn()->boundColumn().contains(QLatin1Char('.')), isShown);
}

void CurrentBindingTest::kindIsTheViewsNotTheColumns()
{
    const QByteArray elements = "<MandatoryRestriction/>" + boundTo("X_FK", refersTo("A_Key"));
    const ReadElements ofColumn(viewOf(columnOf(elements, R"(DataType="Text" Kind="Detail")")));
    QVERIFY(ofColumn.onlyColumn());
    QCOMPARE(ofColumn.onlyColumn()->boundColumn(), QStringLiteral("X_FK"));
    const ReadElements ofView(viewOfKind("Detail", columnOf(elements, R"(DataType="Text" Kind="Grid")")));
    QVERIFY(ofView.onlyColumn());
    QCOMPARE(ofView.onlyColumn()->boundColumn(), QStringLiteral("X_FK.A_Key"));
    QCOMPARE(ofView.onlyColumn()->tableName(), material);
}

void CurrentBindingTest::sameColumnIsBoundDifferentlyInNestedViews()
{
    const QByteArray column = columnOf("<MandatoryRestriction/>" + boundTo("X_FK", refersTo("A_Key")));
    const ReadElements read(
        "<View Id=\"1\" Kind=\"Detail\"><View Id=\"2\" Kind=\"Grid\"><View Id=\"3\" Kind=\"Detail\">" +
        column + "</View></View></View>");
    const QStringList shown{QStringLiteral("X_FK.A_Key")};
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("1"))), shown);
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("2"))), QStringList{QStringLiteral("X_FK")});
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("3"))), shown);
}

void CurrentBindingTest::referenceMustStandBelowTheBoundProperty_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QString>("boundColumn");
    const QString shown = QStringLiteral("X.Name");
    const QString asItIs = QStringLiteral("X");
    QTest::newRow("deeper") << boundTo("X", "<A><B>" + refersTo("Name") + "</B></A>") << shown;
    QTest::newRow("first of two") << boundTo("X", refersTo("Name") + refersTo("Other")) << shown;
    QTest::newRow("first of two shows a key") << boundTo("X", refersTo("A_Key") + refersTo("Name")) << asItIs;
    QTest::newRow("beside it") << boundTo("X", "") + refersTo("Name") << asItIs;
    QTest::newRow("before it") << refersTo("Name") + boundTo("X", "") << asItIs;
    QTest::newRow("around it") << "<RefersTo DisplayPropertyName=\"Name\">" + boundTo("X", "") + "</RefersTo>"
                               << asItIs;
    QTest::newRow("below another bound property")
        << boundTo("X", "") + boundTo("Y", refersTo("Name")) << asItIs;
    QTest::newRow("below a bound property within") << boundTo("X", boundTo("Y", refersTo("Name"))) << shown;
    QTest::newRow("reference within a reference")
        << boundTo("X", "<RefersTo DisplayPropertyName=\"Name\">" + refersTo("Other") + "</RefersTo>")
        << shown;
}

void CurrentBindingTest::referenceMustStandBelowTheBoundProperty()
{
    QFETCH(QByteArray, elements);
    QFETCH(QString, boundColumn);
    const ReadElements read(viewOf(columnOf(elements)));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->boundColumn(), boundColumn);
}

void CurrentBindingTest::nodeTypeOfAReferenceIsCompleted()
{
    const ReadElements read(viewOf(columnOf(boundTo(
        "OBJ_FromNode_REF", refersTo("OBJ_Type", R"(ObjectName="SECTION")"), R"(ObjectName="NODE")"))));
    QVERIFY(read.onlyColumn());
    QCOMPARE(read.onlyColumn()->boundColumn(), QStringLiteral("OBJ_FromNode_REF.OBJ_Type"));
    QCOMPARE(read.onlyColumn()->defaultValue(), QVariant(QStringLiteral("NOD")));
}

QTEST_GUILESS_MAIN(CurrentBindingTest)

#include "CurrentBindingTest.moc"
