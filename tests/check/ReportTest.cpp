#include "JsonPath.h"
#include "tools/check/report/JsonReport.h"
#include "tools/check/report/TextReport.h"
#include "tools/check/rules/RuleTable.h"

#include <QTest>

using namespace Tobrix::Tools;

namespace {

std::vector<FileReport> someReports()
{
    FileReport faulty;
    faulty.fileName = QStringLiteral("a folder/ä.xml");
    faulty.findings.push_back(
        {ruleOf(QStringLiteral("not-a-number")), Severity::Error, {3, 14}, QStringLiteral("first")});
    faulty.findings.push_back(
        {ruleOf(QStringLiteral("legend-gap")), Severity::Note, {5, 1}, QStringLiteral("second \"one\"")});
    FileReport sound;
    sound.fileName = QStringLiteral("b.xml");
    FileReport unread;
    unread.fileName = QStringLiteral("c.xml");
    unread.problem = QStringLiteral("does not exist");
    return {faulty, sound, unread};
}

} // namespace

class ReportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textHasOneLineAFindingAndASum();
    void coloursAreForTerminals();
    void nothingFoundIsSaid();
    void jsonHasEveryFileWithItsFindings_data();
    void jsonHasEveryFileWithItsFindings();
    void sarifHasItsRequiredMembers_data();
    void sarifHasItsRequiredMembers();
    void sarifDescribesEveryRule();
    void sarifLevelsAreThoseOfTheStandard();
    void findingsComeInTheOrderOfTheFileAndOnce();
};

void ReportTest::textHasOneLineAFindingAndASum()
{
    QCOMPARE(textReport(someReports(), false),
             QString::fromUtf8("a folder/ä.xml:3:14: error: first [not-a-number]\n"
                               "a folder/ä.xml:5:1: note: second \"one\" [legend-gap]\n"
                               "2 files checked: 1 error, 0 warnings, 1 note\n"));
}

void ReportTest::coloursAreForTerminals()
{
    const QString text = textReport(someReports(), true);
    QVERIFY2(text.contains(QLatin1String("\033[1;31merror:\033[0m first")), qPrintable(text));
    QVERIFY(!textReport(someReports(), false).contains(QLatin1Char('\033')));
}

void ReportTest::nothingFoundIsSaid()
{
    FileReport sound;
    QCOMPARE(textReport({sound}, false), QStringLiteral("1 file checked, nothing found\n"));
}

void ReportTest::jsonHasEveryFileWithItsFindings_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonValue>("value");
    QTest::newRow("file") << "files/0/file" << QJsonValue(QString::fromUtf8("a folder/ä.xml"));
    QTest::newRow("rule") << "files/0/findings/0/rule" << QJsonValue(QStringLiteral("not-a-number"));
    QTest::newRow("severity") << "files/0/findings/1/severity" << QJsonValue(QStringLiteral("note"));
    QTest::newRow("line") << "files/0/findings/0/line" << QJsonValue(3);
    QTest::newRow("column") << "files/0/findings/0/column" << QJsonValue(14);
    QTest::newRow("message") << "files/0/findings/1/message" << QJsonValue(QStringLiteral("second \"one\""));
    QTest::newRow("sound file") << "files/1/findings/#" << QJsonValue(0);
    QTest::newRow("unread file") << "files/2/problem" << QJsonValue(QStringLiteral("does not exist"));
    QTest::newRow("errors") << "errors" << QJsonValue(1);
    QTest::newRow("warnings") << "warnings" << QJsonValue(0);
    QTest::newRow("notes") << "notes" << QJsonValue(1);
}

void ReportTest::jsonHasEveryFileWithItsFindings()
{
    QFETCH(QString, path);
    QFETCH(QJsonValue, value);
    QCOMPARE(valueUnder(path, jsonReport(someReports())), value);
}

void ReportTest::sarifHasItsRequiredMembers_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonValue>("value");
    const auto text = [](const char *value) { return QJsonValue(QLatin1String(value)); };
    QTest::newRow("version") << "version" << text("2.1.0");
    QTest::newRow("runs") << "runs/#" << QJsonValue(1);
    QTest::newRow("tool") << "runs/0/tool/driver/name" << text("tobrix-template check");
    QTest::newRow("columns are characters") << "runs/0/columnKind" << text("unicodeCodePoints");
    QTest::newRow("results") << "runs/0/results/#" << QJsonValue(2);
    QTest::newRow("rule") << "runs/0/results/0/ruleId" << text("not-a-number");
    QTest::newRow("level") << "runs/0/results/0/level" << text("error");
    QTest::newRow("message") << "runs/0/results/0/message/text" << text("first");
    QTest::newRow("file") << "runs/0/results/0/locations/0/physicalLocation/artifactLocation/uri"
                          << text("a%20folder/%C3%A4.xml");
    QTest::newRow("line") << "runs/0/results/0/locations/0/physicalLocation/region/startLine"
                          << QJsonValue(3);
    QTest::newRow("column") << "runs/0/results/0/locations/0/physicalLocation/region/startColumn"
                            << QJsonValue(14);
    QTest::newRow("not all was checked") << "runs/0/invocations/0/executionSuccessful" << QJsonValue(false);
    QTest::newRow("unread file") << "runs/0/invocations/0/toolExecutionNotifications/0/message/text"
                                 << text("c.xml: does not exist");
}

void ReportTest::sarifHasItsRequiredMembers()
{
    QFETCH(QString, path);
    QFETCH(QJsonValue, value);
    QCOMPARE(valueUnder(path, sarifReport(someReports())), value);
}

void ReportTest::sarifDescribesEveryRule()
{
    const QJsonObject sarif = sarifReport(someReports());
    const QJsonArray rules = valueUnder(QStringLiteral("runs/0/tool/driver/rules"), sarif).toArray();
    QCOMPARE(rules.size(), static_cast<int>(allRules().size()));
    for (const auto &rule : rules) {
        for (const auto *member : {"id", "shortDescription/text", "fullDescription/text", "help/text",
                                   "defaultConfiguration/level"}) {
            QVERIFY2(!valueUnder(QLatin1String(member), rule).toString().isEmpty(), member);
        }
    }
    for (const auto &result : valueUnder(QStringLiteral("runs/0/results"), sarif).toArray()) {
        const int index = result.toObject().value(QLatin1String("ruleIndex")).toInt(-1);
        QCOMPARE(rules.at(index).toObject().value(QLatin1String("id")),
                 result.toObject().value(QLatin1String("ruleId")));
    }
}

void ReportTest::sarifLevelsAreThoseOfTheStandard()
{
    const QStringList levels{QStringLiteral("none"), QStringLiteral("note"), QStringLiteral("warning"),
                             QStringLiteral("error")};
    for (const auto severity : {Severity::Note, Severity::Warning, Severity::Error}) {
        QVERIFY(levels.contains(severityName(severity)));
    }
}

void ReportTest::findingsComeInTheOrderOfTheFileAndOnce()
{
    Findings findings;
    findings.begin(allRules().at(1));
    findings.add(20, QStringLiteral("late"));
    findings.add(10, QStringLiteral("early"));
    findings.begin(allRules().at(0));
    findings.add(10, QStringLiteral("another rule's"));
    findings.begin(allRules().at(1));
    findings.add(10, QStringLiteral("early"));
    findings.add(10, QStringLiteral("as early"));
    QStringList messages;
    for (const auto &finding : findings.sorted()) {
        messages.append(finding.message);
    }
    QCOMPARE(messages, (QStringList{QStringLiteral("early"), QStringLiteral("another rule's"),
                                    QStringLiteral("as early"), QStringLiteral("late")}));
}

QTEST_GUILESS_MAIN(ReportTest)
#include "ReportTest.moc"
