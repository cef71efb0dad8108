#include "CheckDocuments.h"
#include "JsonPath.h"
#include "support/TemporaryTemplate.h"
#include "tools/json/FileJson.h"

#include <QTest>

// What one rule finds hides nothing that another one has to say, and is not said by both.

namespace {

QByteArray legacyHeader()
{
    return "<TobrixTemplate>\n"
           "<SYSTPL><TPL_PK>T1</TPL_PK><TPL_Key>Storm</TPL_Key><TPL_Type>STORMWATER</TPL_Type></SYSTPL>\n";
}

QByteArray legacyView(const QByteArray &id, const QByteArray &key)
{
    return "<PROGVIEW><PV_PK>" + id + "</PV_PK><PV_Key>" + key + "</PV_Key></PROGVIEW>\n";
}

QByteArray legacyColumn(const QByteArray &view, const QByteArray &field, const QByteArray &type)
{
    return "<SYSCOL><COL_ProgView_FK>" + view + "</COL_ProgView_FK><COL_Bound_Column>" + field +
           "</COL_Bound_Column><COL_DataType>" + type + "</COL_DataType></SYSCOL>\n";
}

QByteArray defaultOfLength(const QByteArray &value)
{
    return "<DefaultValueItem View='Form' Value='" + value +
           "'><BoundProperty PropertyName='OBJ_Length'/></DefaultValueItem>\n";
}

/// A template of the current format with two scopes of default values, one in the other, and one column.
QByteArray nestedScopes(const QByteArray &behindInnerScope)
{
    return "<ProjectStandard>\n"
           "<TemplateIdentifier Id='STW-US'><Name>Storm</Name></TemplateIdentifier>\n"
           "<View Id='V1' Name='Form'><Column DataType='Integer'>"
           "<BoundProperty PropertyName='OBJ_Length'/></Column></View>\n"
           "<DefaultValues><DefaultValueScope>\n"
           "<DefaultValueScope>\n" +
           defaultOfLength("1") + "</DefaultValueScope>\n" + behindInnerScope +
           "</DefaultValueScope></DefaultValues>\n"
           "</ProjectStandard>\n";
}

} // namespace

class RulesTogetherTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingIsFoundOnce_data();
    void everythingIsFoundOnce();
};

void RulesTogetherTest::everythingIsFoundOnce_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("path"); // of a part that shows the effect
    QTest::addColumn<QJsonValue>("value");
    const QByteArray head = legacyHeader();
    const QByteArray end = "</TobrixTemplate>\n";

    QTest::newRow("an empty view beside a column that is dropped")
        << "templates"
        << head + legacyView("V1", "Form") + legacyView("V2", "Grid") +
               legacyColumn("V1", "OBJ_Length", "DEC") + legacyColumn("VX", "OBJ_Name", "FOO") + end
        << "4:1: warning: view \"Grid\" has no columns: the host shows an empty form [view-empty]\n"
           "6:105: error: data type \"FOO\" is unknown: the host does not get column \"OBJ_Name\" "
           "[column-type-unknown]\n"
        << "views/Grid/columns/#" << QJsonValue(0);
    QTest::newRow("a view whose columns are all dropped")
        << "templates" << head + legacyView("V1", "Form") + legacyColumn("V1", "OBJ_Name", "FOO") + end
        << "3:1: warning: view \"Form\" has only columns of unknown data types: the host shows an empty form "
           "[view-empty]\n"
           "4:105: error: data type \"FOO\" is unknown: the host does not get column \"OBJ_Name\" "
           "[column-type-unknown]\n"
        << "views/Form/columns/#" << QJsonValue(0);
    QTest::newRow("a view with a column that is dropped and one that is not")
        << "templates"
        << head + legacyView("V1", "Form") + legacyColumn("V1", "OBJ_Length", "DEC") +
               legacyColumn("V1", "OBJ_Name", "FOO") + end
        << "5:105: error: data type \"FOO\" is unknown: the host does not get column \"OBJ_Name\" "
           "[column-type-unknown]\n"
        << "views/Form/columns/#" << QJsonValue(1);
    QTest::newRow("an empty view beside a column of an unknown view")
        << "templates" << head + legacyView("V1", "Form") + legacyColumn("VX", "OBJ_Length", "DEC") + end
        << "4:26: error: there is no view \"VX\": the host refuses the file [column-view-unknown]\n"
        << "ok" << QJsonValue(false);
    const QString nestedScope =
        QStringLiteral("5:1: warning: a <DefaultValueScope> within another: its items are read with those of "
                       "the outer one, and again behind them [nested-container]\n");
    const QString defaultOfForm = QStringLiteral("views/Form/columns/0/defaultValue/value");
    QTest::newRow("a scope of default values within another")
        << "templates_new" << nestedScopes("") << nestedScope << defaultOfForm
        << QJsonValue(QStringLiteral("1"));
    QTest::newRow("a scope of default values that takes back what follows it")
        << "templates_new" << nestedScopes(defaultOfLength("2"))
        << nestedScope +
               QStringLiteral("6:1: warning: a second default for \"OBJ_Length\" in view \"Form\": it "
                              "overwrites the one in line 8 [default-overwritten]\n")
        << defaultOfForm << QJsonValue(QStringLiteral("1"));
    QTest::newRow("two names of a header, with another one before them")
        << "templates_new"
        << QByteArray(
               "<ProjectStandard>\n"
               "<View Id='V1' Name='Form'><Name>Stray</Name>\n"
               "<Column DataType='Decimal'><BoundProperty PropertyName='OBJ_Length'/></Column></View>\n"
               "<TemplateIdentifier Id='STW-US'>\n"
               "<Name>Storm</Name>\n"
               "<Name>Water</Name>\n"
               "</TemplateIdentifier>\n"
               "</ProjectStandard>\n")
        << "5:1: warning: this is not the first <Name> of the file: the template gets \"Stray\" from the one "
           "in line 2 [element-not-first]\n"
           "6:1: warning: a second <Name>: it is ignored [element-repeated]\n"
        << "template/key" << QJsonValue(QStringLiteral("Stray"));
    QTest::newRow("a key that is white space behind an empty element")
        << "templates"
        << head + "<PROGVIEW><PV_PK>V1</PV_PK><PV_Key/>\n</PROGVIEW>\n" +
               legacyColumn("V1", "OBJ_Length", "DEC") + end
        << "3:28: warning: the empty <PV_Key> takes the white space behind it: its text is that white space, "
           "not empty [white-space-captured]\n"
        << "views/0/key" << QJsonValue(QStringLiteral("\n"));
    QTest::newRow("white space that rules of their own know the effect of")
        << "templates_new"
        << QByteArray(
               "<ProjectStandard>\n"
               "<TemplateIdentifier Id='STW-US' SystemOfUnits=' '><Name>Storm</Name></TemplateIdentifier>\n"
               "<DefaultValues><DefaultValueScope><DefaultValueItem View=' ' Value='1'>"
               "<BoundProperty "
               "PropertyName='OBJ_Length'/></DefaultValueItem></DefaultValueScope></DefaultValues>\n"
               "<View Id='V1' Name='Form'>\n"
               "<Column DataType='Decimal' ControlType=' '><BoundProperty "
               "PropertyName='OBJ_Length'/></Column>\n"
               "</View>\n"
               "</ProjectStandard>\n")
        << "2:33: warning: SystemOfUnits \" \" is unknown: the template has no unit [unit-unknown]\n"
           "3:35: warning: this default is never used: there is no view \" \" [default-unused]\n"
           "5:28: warning: control \" \" is unknown: the column has no control [control-type-unknown]\n"
        << "template/unit" << QJsonValue(QString());
    QTest::newRow("a column of no view but white space")
        << "templates"
        << head + legacyView("V1", "Form") + legacyColumn("V1", "OBJ_Length", "DEC") +
               legacyColumn(" ", "OBJ_Name", "TXT") + end
        << "5:26: error: there is no view \" \": the host refuses the file [column-view-unknown]\n"
        << "ok" << QJsonValue(false);
}

void RulesTogetherTest::everythingIsFoundOnce()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, document);
    QFETCH(QString, expected);
    QFETCH(QString, path);
    QFETCH(QJsonValue, value);
    const TemporaryTemplate file(folder, document);
    QCOMPARE(findingsIn(file.path()), expected);
    QCOMPARE(valueUnder(path, Tobrix::Tools::describeTemplate(file.path())), value);
}

QTEST_GUILESS_MAIN(RulesTogetherTest)
#include "RulesTogetherTest.moc"
