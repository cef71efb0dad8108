#include "CheckDocuments.h"
#include "rawdata/TemplateLimits_p.h"
#include "support/TemporaryTemplate.h"
#include "tools/check/CheckedFile.h"
#include "tools/json/FileJson.h"
#include "tools/loading/TemplateLoading.h"
#include "xml/XmlLimits_p.h"

#include <QJsonObject>
#include <QTest>

using namespace Tobrix::Templates;

// A few thousand elements in nested containers count for each of them.

namespace {

/// The finding in a current-format file whose first element over a limit starts a line.
QString excessOfCurrentAt(int line, int limit, const QString &words)
{
    return QStringLiteral("%1:1: error: more than %2 %3: the host gets an empty template [limit-exceeded]\n")
        .arg(line)
        .arg(limit)
        .arg(words);
}

/// The id of the template that the library makes of a file.
QString loadedId(const QString &fileName)
{
    return Tobrix::Tools::describeTemplate(fileName)
        .value(QLatin1String("template"))
        .toObject()
        .value(QLatin1String("uniqueId"))
        .toString();
}

} // namespace

class CountLimitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nestedContainersExceedALimit_data();
    void nestedContainersExceedALimit();
    void siblingContainersExceedALimit_data();
    void siblingContainersExceedALimit();
    void classesOfOtherSchemesAreNotCounted();
    void legacySectionsExceedALimit_data();
    void legacySectionsExceedALimit();
    void whatTheLegacyReaderDropsIsNotCounted_data();
    void whatTheLegacyReaderDropsIsNotCounted();
};

void CountLimitsTest::nestedContainersExceedALimit_data()
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
                                    << QByteArray("<ClassificationColor/>") << Limits::legendClasses
                                    << "legend classes";
}

void CountLimitsTest::nestedContainersExceedALimit()
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
                                ('\n' + content).repeated(limit / nesting + 2) + end.repeated(nesting) +
                                (begin.isEmpty() ? QByteArray() : "</" + begin.mid(1));
    const TemporaryTemplate file(QStringLiteral("templates_new"), currentDocument(document));

    // The last but one is the first over the limit.
    QCOMPARE(findingsIn(file.path()), excessOfCurrentAt(limit / nesting + 2, limit, words));
    QCOMPARE(loadedId(file.path()), QString());
}

void CountLimitsTest::siblingContainersExceedALimit_data()
{
    QTest::addColumn<QByteArray>("full");
    QTest::addColumn<QByteArray>("more");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("words");
    QTest::newRow("views") << QByteArray("\n<View Id='W'/>").repeated(Limits::views)
                           << QByteArray("\n<View Id='V'/>\n<View Id='V'/>") << Limits::views << "views";

    const auto scope = [](const QByteArray &name, int classes) {
        return "<ClassificationColorScope Name='" + name + "' Scope='Section'>" +
               QByteArray("\n<ClassificationColor/>").repeated(classes) + "</ClassificationColorScope>";
    };
    const QByteArray shown("ClassColorDefault");
    QTest::newRow("legend classes") << scope(shown, 1) + scope("Other", 1) +
                                           scope(shown, Limits::legendClasses - 1)
                                    << scope(shown, 2) << Limits::legendClasses << "legend classes";
}

void CountLimitsTest::siblingContainersExceedALimit()
{
    QFETCH(QByteArray, full);
    QFETCH(QByteArray, more);
    QFETCH(int, limit);
    QFETCH(QString, words);
    const QByteArray begin = "<TemplateIdentifier Id=\"T1\"/><ClassificationColorScopes>";
    const QByteArray end = "</ClassificationColorScopes>";
    const TemporaryTemplate fullFile(QStringLiteral("templates_new"), currentDocument(begin + full + end));
    QCOMPARE(Tobrix::Tools::CheckedFile(fullFile.path()).excess(), QString());
    QCOMPARE(loadedId(fullFile.path()), QStringLiteral("T1"));

    const TemporaryTemplate file(QStringLiteral("templates_new"), currentDocument(begin + full + more + end));
    QCOMPARE(findingsIn(file.path()), excessOfCurrentAt(full.count('\n') + 2, limit, words));
    QCOMPARE(loadedId(file.path()), QString());
}

void CountLimitsTest::classesOfOtherSchemesAreNotCounted()
{
    constexpr int nesting = Limits::depth - 5;
    const QByteArray scopes =
        QByteArray("<ClassificationColorScope Name=\"Other\">").repeated(nesting) +
        QByteArray("<ClassificationColor/>").repeated(Limits::legendClasses / nesting + 1) +
        QByteArray("</ClassificationColorScope>").repeated(nesting);
    const TemporaryTemplate file(
        QStringLiteral("templates_new"),
        currentDocument("<TemplateIdentifier Id=\"T1\"/><ClassificationColorScopes>" + scopes +
                        "</ClassificationColorScopes>"));
    QCOMPARE(Tobrix::Tools::CheckedFile(file.path()).excess(), QString());
    QCOMPARE(loadedId(file.path()), QStringLiteral("T1"));
}

void CountLimitsTest::legacySectionsExceedALimit_data()
{
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>("counted"); // "%" stands for its number
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("words");
    // What 250,000 of them cost is mostly the parsers' time, so that these say no more than what makes them
    // count.
    QTest::newRow("columns") << QByteArray("<PROGVIEW/>")
                             << QByteArray("<SYSCOL><COL_DataType>BOL</COL_DataType></SYSCOL>")
                             << Limits::columns << "columns";
    QTest::newRow("list items") << QByteArray() << QByteArray("<SYSLIST><LIST_Name>L</LIST_Name></SYSLIST>")
                                << Limits::listItems << "list items";
    QTest::newRow("views") << QByteArray() << QByteArray("<PROGVIEW><PV_PK>%</PV_PK></PROGVIEW>")
                           << Limits::views << "views";
    QTest::newRow("legend classes") << QByteArray("<LegendOfClassification><Lateral/><Section/>")
                                    << QByteArray("<class/>") << Limits::legendClasses << "legend classes";
}

void CountLimitsTest::legacySectionsExceedALimit()
{
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, counted);
    QFETCH(int, limit);
    QFETCH(QString, words);
    const QByteArray tag = begin.left(begin.indexOf('>') + 1);
    const bool isOpen = !begin.isEmpty() && !begin.endsWith("<PROGVIEW/>");
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
               ("<Section/>" + QByteArray("<class/>").repeated(Limits::legendClasses)).repeated(2) +
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
