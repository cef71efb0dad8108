#include "CheckDocuments.h"
#include "loading/Limits_p.h"
#include "support/TemporaryTemplate.h"
#include "tools/check/CheckedFile.h"
#include "tools/json/FileJson.h"
#include "tools/loading/TemplateLoading.h"

#include <QJsonObject>
#include <QTest>

using namespace Tobrix::Templates;

// A few thousand elements in containers in each other count for every one of these.

class CountLimitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void containersInEachOtherGoPastALimit_data();
    void containersInEachOtherGoPastALimit();
    void classesOfOtherSchemesAreNotCounted();
    void legacySectionsGoPastALimit_data();
    void legacySectionsGoPastALimit();
    void whatTheLegacyReaderDropsIsNotCounted_data();
    void whatTheLegacyReaderDropsIsNotCounted();
};

void CountLimitsTest::containersInEachOtherGoPastALimit_data()
{
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>("container");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("words");
    QTest::newRow("columns") << QByteArray() << QByteArray("View") << QByteArray("<Column/>")
                             << Limits::columns << "columns";
    QTest::newRow("list items") << QByteArray() << QByteArray("ValueList") << QByteArray("<ValueListItem/>")
                                << Limits::listItems << "list items";
    QTest::newRow("legend classes") << QByteArray("<ClassificationColorScopes>")
                                    << QByteArray("ClassificationColorScope Name=\"ClassColorDefault\"")
                                    << QByteArray("<ClassificationColor/>") << Limits::legendItems
                                    << "legend classes";
}

void CountLimitsTest::containersInEachOtherGoPastALimit()
{
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, container);
    QFETCH(QByteArray, content);
    QFETCH(int, limit);
    QFETCH(QString, words);
    constexpr int nesting = Limits::depth - 5;
    const QByteArray end = "</" + container.split(' ').first() + '>';
    const QByteArray document = "<TemplateIdentifier Id=\"T1\"/>" + begin +
                                ('<' + container + '>').repeated(nesting) +
                                content.repeated(limit / nesting + 1) + end.repeated(nesting) +
                                (begin.isEmpty() ? QByteArray() : "</" + begin.mid(1));
    const TemporaryTemplate file(QStringLiteral("templates_new"), currentDocument(document));

    const QString findings = findingsIn(file.path());
    QVERIFY2(findings.endsWith(QStringLiteral(" error: more than %1 %2: the host gets an empty template "
                                              "[limit-exceeded]\n")
                                   .arg(limit)
                                   .arg(words)) &&
                 findings.count(QLatin1Char('\n')) == 1,
             qPrintable(findings.left(1000)));
    const QJsonObject header =
        Tobrix::Tools::describeTemplate(file.path()).value(QLatin1String("template")).toObject();
    QCOMPARE(header.value(QLatin1String("uniqueId")).toString(), QString());
}

void CountLimitsTest::classesOfOtherSchemesAreNotCounted()
{
    constexpr int nesting = Limits::depth - 5;
    const QByteArray scopes =
        QByteArray("<ClassificationColorScope Name=\"Other\">").repeated(nesting) +
        QByteArray("<ClassificationColor/>").repeated(Limits::legendItems / nesting + 1) +
        QByteArray("</ClassificationColorScope>").repeated(nesting);
    const TemporaryTemplate file(
        QStringLiteral("templates_new"),
        currentDocument("<TemplateIdentifier Id=\"T1\"/><ClassificationColorScopes>" + scopes +
                        "</ClassificationColorScopes>"));
    QVERIFY(!findingsIn(file.path()).contains(QLatin1String("[limit-exceeded]")));
    const QJsonObject header =
        Tobrix::Tools::describeTemplate(file.path()).value(QLatin1String("template")).toObject();
    QCOMPARE(header.value(QLatin1String("uniqueId")).toString(), QStringLiteral("T1"));
}

void CountLimitsTest::legacySectionsGoPastALimit_data()
{
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>("counted"); // "%" stands for its number
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("words");
    QTest::newRow("columns")
        << QByteArray("<PROGVIEW><PV_PK>V</PV_PK></PROGVIEW>")
        << QByteArray("<SYSCOL><COL_ProgView_FK>V</COL_ProgView_FK><COL_DataType>BOL</COL_DataType></SYSCOL>")
        << Limits::columns << "columns";
    QTest::newRow("list items") << QByteArray()
                                << QByteArray(
                                       "<SYSLIST><LIST_Name>L</LIST_Name><LIST_Item>%</LIST_Item></SYSLIST>")
                                << Limits::listItems << "list items";
    QTest::newRow("views") << QByteArray() << QByteArray("<PROGVIEW><PV_PK>%</PV_PK></PROGVIEW>")
                           << Limits::views << "views";
    QTest::newRow("legend classes") << QByteArray("<LegendOfClassification><Lateral/><Section/>")
                                    << QByteArray("<class/>") << Limits::legendItems << "legend classes";
}

void CountLimitsTest::legacySectionsGoPastALimit()
{
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, counted);
    QFETCH(int, limit);
    QFETCH(QString, words);
    const QByteArray tag = begin.left(begin.indexOf('>') + 1);
    const bool isOpen = !begin.isEmpty() && !begin.endsWith("</PROGVIEW>");
    const QByteArray end = isOpen ? "</" + tag.mid(1) : QByteArray();
    QByteArray sections = begin;
    for (int i = 0; i < limit; ++i) {
        sections += '\n' + QByteArray(counted).replace('%', QByteArray::number(i));
    }
    const TemporaryTemplate full(QStringLiteral("templates"), legacyDocument(sections + end));
    QVERIFY(Tobrix::Tools::loadTemplate(full.path()).catalogTemplate);
    QCOMPARE(Tobrix::Tools::CheckedFile(full.path()).excess(), QString());

    sections += '\n' + QByteArray(counted).replace('%', QByteArray::number(limit));
    const TemporaryTemplate overfull(QStringLiteral("templates"), legacyDocument(sections + end));
    QVERIFY(!Tobrix::Tools::loadTemplate(overfull.path()).catalogTemplate);
    QCOMPARE(findingsIn(overfull.path()),
             QStringLiteral("%1:1: error: more than %2 %3: the host refuses the file [limit-exceeded]\n")
                 .arg(limit + 2)
                 .arg(limit)
                 .arg(words));
}

void CountLimitsTest::whatTheLegacyReaderDropsIsNotCounted_data()
{
    QTest::addColumn<QByteArray>("sections");
    QTest::newRow("views of the same id")
        << QByteArray("<PROGVIEW><PV_PK>V</PV_PK></PROGVIEW>").repeated(Limits::views + 1);
    QTest::newRow("columns of unknown type") << QByteArray("<SYSCOL/>").repeated(Limits::columns + 1);
    QTest::newRow("classes of a group that begins anew")
        << "<LegendOfClassification>" +
               ("<Section/>" + QByteArray("<class/>").repeated(Limits::legendItems)).repeated(2) +
               "</LegendOfClassification>";
}

void CountLimitsTest::whatTheLegacyReaderDropsIsNotCounted()
{
    QFETCH(QByteArray, sections);
    const TemporaryTemplate file(QStringLiteral("templates"), legacyDocument(sections));
    QVERIFY(Tobrix::Tools::loadTemplate(file.path()).catalogTemplate);
    QCOMPARE(Tobrix::Tools::CheckedFile(file.path()).excess(), QString());
}

QTEST_GUILESS_MAIN(CountLimitsTest)
#include "CountLimitsTest.moc"
