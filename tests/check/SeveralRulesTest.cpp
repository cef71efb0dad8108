#include "CheckDocuments.h"
#include "JsonPath.h"
#include "support/TemporaryTemplate.h"
#include "tools/json/FileJson.h"

#include <QTest>

// What a document of one rule cannot show: mistakes that come together, and what each finding still says.

namespace {

const QByteArray currentHeader("<TemplateIdentifier Id='STW-US'><Name>Storm</Name></TemplateIdentifier>\n");

const QByteArray legacyHeader("<SYSTPL><TPL_PK>STW-US</TPL_PK><TPL_Key>Storm</TPL_Key></SYSTPL>\n");

/// A column of the current format in a view of its own.
const QByteArray
    lengthColumn("<View Id='V1' Name='Form'><Column DataType='Integer' ControlType='NumericUpDown'>"
                 "<BoundProperty PropertyName='OBJ_Length' ObjectName='SECTION'/>"
                 "</Column></View>");

/// A view of the legacy format.
QByteArray legacyView(const char *id)
{
    return QByteArray("<PROGVIEW><PV_PK>") + id + "</PV_PK><PV_Key>Form" + id + "</PV_Key></PROGVIEW>\n";
}

/// A column of it.
QByteArray legacyColumn(const char *view, const char *type)
{
    return QByteArray("<SYSCOL><COL_ProgView_FK>") + view + "</COL_ProgView_FK><COL_DataType>" + type +
           "</COL_DataType><COL_Bound_Column>OBJ_Name</COL_Bound_Column></SYSCOL>\n";
}

QByteArray defaultValue(const char *value)
{
    return QByteArray("<DefaultValueItem View='Form' Value='") + value +
           "'><BoundProperty PropertyName='OBJ_Length'/></DefaultValueItem>\n";
}

} // namespace

class SeveralRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyMistakeIsNamed_data();
    void everyMistakeIsNamed();
};

void SeveralRulesTest::everyMistakeIsNamed_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QStringList>("findings");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonValue>("effect");
    const auto current = [](const char *name, const QByteArray &elements, const QStringList &findings,
                            const char *path, const QJsonValue &effect) {
        QTest::newRow(name) << QStringLiteral("templates_new") << currentHeader + elements << findings
                            << QString::fromLatin1(path) << effect;
    };
    const char *defaultOfForm = "views/Form/columns/0/defaultValue/value";
    const QByteArray innerScope = "<DefaultValueScope>\n" + defaultValue("1") + "</DefaultValueScope>\n";
    current("a scope of default values within another",
            "<DefaultValues><DefaultValueScope>\n" + innerScope + "</DefaultValueScope></DefaultValues>" +
                lengthColumn,
            {QStringLiteral("3:1 nested-container")}, defaultOfForm, QStringLiteral("1"));
    current("one that takes back what follows it",
            "<DefaultValues><DefaultValueScope>\n" + innerScope + defaultValue("2") +
                "</DefaultValueScope></DefaultValues>" + lengthColumn,
            {QStringLiteral("3:1 nested-container"), QStringLiteral("4:1 default-overwritten")},
            defaultOfForm, QStringLiteral("1"));
    const auto legacy = [](const char *name, const QByteArray &sections, const QStringList &findings,
                           const char *path, const QJsonValue &effect) {
        QTest::newRow(name) << QStringLiteral("templates") << legacyHeader + sections << findings
                            << QString::fromLatin1(path) << effect;
    };
    legacy("an empty view beside a column that is dropped",
           legacyView("V1") + legacyView("V2") + legacyColumn("V1", "TXT") + legacyColumn("VX", "FOO"),
           {QStringLiteral("3:1 view-empty"), QStringLiteral("5:60 column-type-unknown")},
           "views/FormV2/columns/#", 0);
    legacy("a view of nothing but columns that are dropped", legacyView("V1") + legacyColumn("V1", "FOO"),
           {QStringLiteral("2:1 view-empty"), QStringLiteral("3:60 column-type-unknown")},
           "views/FormV1/columns/#", 0);
    legacy("an empty view beside a column of an unknown view", legacyView("V1") + legacyColumn("VX", "TXT"),
           {QStringLiteral("3:26 column-view-unknown")}, "ok", false);
}

void SeveralRulesTest::everyMistakeIsNamed()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, elements);
    QFETCH(QStringList, findings);
    QFETCH(QString, path);
    QFETCH(QJsonValue, effect);
    const bool isCurrent = folder == QLatin1String("templates_new");
    const TemporaryTemplate document(folder,
                                     isCurrent ? currentDocument(elements) : legacyDocument(elements));
    QStringList found;
    for (const auto &finding :
         Tobrix::Tools::checkFile(document.path(), {QStringLiteral("type-empty")}).findings) {
        found.append(QStringLiteral("%1:%2 %3")
                         .arg(finding.place.line)
                         .arg(finding.place.column)
                         .arg(QLatin1String(finding.rule->id)));
    }
    QCOMPARE(found.join(QLatin1Char('\n')), findings.join(QLatin1Char('\n')));
    QCOMPARE(valueUnder(path, Tobrix::Tools::describeTemplate(document.path())), effect);
}

QTEST_GUILESS_MAIN(SeveralRulesTest)
#include "SeveralRulesTest.moc"
