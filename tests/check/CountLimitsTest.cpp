#include "CheckDocuments.h"
#include "loading/Limits_p.h"
#include "support/TemporaryTemplate.h"
#include "tools/json/FileJson.h"

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

QTEST_GUILESS_MAIN(CountLimitsTest)
#include "CountLimitsTest.moc"
