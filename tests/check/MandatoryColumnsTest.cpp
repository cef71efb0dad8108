#include "CheckDocuments.h"
#include "JsonPath.h"
#include "support/TemporaryTemplate.h"
#include "tools/json/FileJson.h"

#include <QTest>

// A column that nobody can fill in is a finding exactly where it comes to the host without a value to start
// with.

namespace {

struct DataType
{
    const char *code;
    const char *name;
};

constexpr DataType dataTypes[] = {{"TXT", "Text"},    {"INT", "Integer"}, {"DEC", "Decimal"},
                                  {"BOL", "Boolean"}, {"DAT", "Date"},    {"TIM", "Time"}};

QByteArray currentColumn(const QByteArray &type, const QByteArray &value, bool isReadOnly)
{
    return currentDocument("<TemplateIdentifier Id='T'/><Name>T</Name><DefaultValues><DefaultValueScope>"
                           "<DefaultValueItem View='V' Value='" +
                           value +
                           "'><BoundProperty PropertyName='C'/></DefaultValueItem></DefaultValueScope>"
                           "</DefaultValues><View Id='V' Name='V'><Column DataType='" +
                           type + "'><BoundProperty PropertyName='C'/><MandatoryRestriction/>" +
                           (isReadOnly ? "<ReadOnlyRestriction/><VisibilityRestriction/>" : "") +
                           "</Column></View>");
}

QByteArray legacyColumn(const QByteArray &type, const QByteArray &value, bool isReadOnly)
{
    return legacyDocument(
        "<PROGVIEW><PV_PK>V</PV_PK><PV_Key>V</PV_Key></PROGVIEW>"
        "<SYSCOL><COL_ProgView_FK>V</COL_ProgView_FK><COL_Bound_Column>C</COL_Bound_Column>"
        "<COL_DataType>" +
        type + "</COL_DataType><COL_Default>" + value + "</COL_Default><COL_Mandatory>true</COL_Mandatory>" +
        (isReadOnly ? "<COL_ReadOnly>true</COL_ReadOnly><COL_Visible>true</COL_Visible>" : "") + "</SYSCOL>");
}

/// Whether a file's only column comes with something that new records start with. An empty text is nothing.
bool hasStartValue(const QString &fileName)
{
    const QJsonObject loaded = Tobrix::Tools::describeTemplate(fileName);
    const auto valueOf = [&loaded](const char *field) {
        return valueUnder(QLatin1String("views/V/columns/0/") + QLatin1String(field), loaded);
    };
    const QJsonValue text = valueOf("defaultValue").toObject().value(QLatin1String("value"));
    const bool isEmptyText = text.isString() && text.toString().isEmpty();
    return (valueOf("hasDefaultValue").toBool() && !isEmptyText) || valueOf("initializeWithNow").toBool();
}

} // namespace

class MandatoryColumnsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnWithoutStartValueIsFound_data();
    void columnWithoutStartValueIsFound();
};

void MandatoryColumnsTest::columnWithoutStartValueIsFound_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("hidden");
    QTest::addColumn<QByteArray>("readOnly");
    for (const auto &type : dataTypes) {
        for (const char *value : {"", "true", "false", "5", "=Today()", "=today()"}) {
            QTest::addRow("current, %s \"%s\"", type.name, value)
                << "templates_new" << currentColumn(type.name, value, false)
                << currentColumn(type.name, value, true);
            QTest::addRow("legacy, %s \"%s\"", type.code, value)
                << "templates" << legacyColumn(type.code, value, false)
                << legacyColumn(type.code, value, true);
        }
    }
}

void MandatoryColumnsTest::columnWithoutStartValueIsFound()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, hidden);
    QFETCH(QByteArray, readOnly);
    const TemporaryTemplate hiddenFile(folder, hidden);
    const TemporaryTemplate readOnlyFile(folder, readOnly);
    const auto isFound = [](const TemporaryTemplate &file, const char *rule) {
        return findingsIn(file.path()).contains(QLatin1String(rule));
    };
    QCOMPARE(isFound(hiddenFile, "[mandatory-hidden]"), !hasStartValue(hiddenFile.path()));
    QCOMPARE(isFound(readOnlyFile, "[mandatory-read-only]"), !hasStartValue(readOnlyFile.path()));
}

QTEST_GUILESS_MAIN(MandatoryColumnsTest)
#include "MandatoryColumnsTest.moc"
