// The entry point: path, flags, log, type and failures. The formats are tested separately.

#include "support/OpenFiles.h"
#include "support/RecordedLog.h"
#include "support/TemporaryTemplate.h"

#include "loading/CTemplateReader.h"
#include "model/CCatalogTemplate.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"
#include "model/CTemplateLegendDataItem.h"
#include "standalone_host/StandaloneHost.h"

#include <QTest>

#include <limits>
#include <memory>

using namespace Tobrix::Templates;
using Tobrix::Standalone::StandaloneHost;

static_assert(std::is_enum_v<CTemplateReader::ReaderFlags>);

namespace {

const LogLine oldVersion = {
    3, QStringLiteral("TemplateReader"),
    QStringLiteral("Old templates version used for available projects standards reading")};
const LogLine newVersion = {
    3, QStringLiteral("TemplateReader"),
    QStringLiteral("New templates version used for available projects standards reading")};

const auto noFlags = CTemplateReader::ReaderFlags();

/// A file with the name of its format as key, in both formats.
QByteArray documentOfBothFormats()
{
    return "<TobrixTemplate><SYSTPL><TPL_PK>{id}</TPL_PK><TPL_Key>legacy</TPL_Key></SYSTPL>"
           "<TemplateIdentifier Id=\"{id}\"><Name>current</Name></TemplateIdentifier></TobrixTemplate>";
}

QByteArray legacyHeader(const QByteArray &elements)
{
    return legacyDocument("<SYSTPL>" + elements + "</SYSTPL>");
}

QByteArray columnOfView(const QByteArray &viewId)
{
    return "<SYSCOL><COL_DataType>TXT</COL_DataType><COL_ProgView_FK>" + viewId +
           "</COL_ProgView_FK></SYSCOL>";
}

/// Reads a file that must be readable.
std::unique_ptr<CCatalogTemplate> read(const QString &path)
{
    CCatalogTemplate *catalogTemplate = nullptr;
    const bool isRead = CTemplateReader::readFile(path, noFlags, catalogTemplate);
    if (isRead != (catalogTemplate != nullptr)) {
        qFatal("The result and the template do not agree.");
    }
    return std::unique_ptr<CCatalogTemplate>(catalogTemplate);
}

} // namespace

class TemplateReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { StandaloneHost::instance().reset(); }

    void formatIsChosenByThePath_data();
    void formatIsChosenByThePath();
    void backslashBehindTheFolderIsLegacy();
    void everyCallLogsItsFormatOnce_data();
    void everyCallLogsItsFormatOnce();
    void anyFlagFailsWithoutReading_data();
    void anyFlagFailsWithoutReading();
    void failureGivesNoTemplateAndLogsOnlyTheFormat_data();
    void failureGivesNoTemplateAndLogsOnlyTheFormat();
    void outPointerIsNullBeforeTheFormatIsLogged();
    void fileIsClosedWhenTheCallReturns_data();
    void fileIsClosedWhenTheCallReturns();
    void emptyTypeIsCompletedFromTheRegistry_data();
    void emptyTypeIsCompletedFromTheRegistry();
    void currentFormatGetsItsTypeFromTheRegistry();
    void legacyFileLoadsEndToEnd();
    void fieldsThatLoadingLeavesAloneStayAsTheyAre();
    void templateLivesOnWithoutItsFile();
};

void TemplateReaderTest::formatIsChosenByThePath_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("isNew");
    QTest::newRow("templates_new") << QStringLiteral("templates_new") << true;
    QTest::newRow("folder within templates_new") << QStringLiteral("templates_new/de/metric") << true;
    QTest::newRow("longer name that ends so") << QStringLiteral("my_templates_new") << true;
    QTest::newRow("twice") << QStringLiteral("templates_new/templates_new") << true;
    QTest::newRow("templates") << QStringLiteral("templates") << false;
    QTest::newRow("TEMPLATES_NEW") << QStringLiteral("TEMPLATES_NEW") << false;
    QTest::newRow("Templates_new") << QStringLiteral("Templates_new") << false;
    QTest::newRow("longer name that starts so") << QStringLiteral("templates_new2") << false;
    QTest::newRow("backslash after it") << QStringLiteral("templates_new\\a") << false;
    QTest::newRow("blank in it") << QStringLiteral("templates new") << false;
}

void TemplateReaderTest::formatIsChosenByThePath()
{
    QFETCH(QString, folder);
    QFETCH(bool, isNew);
    const TemporaryTemplate file(folder, documentOfBothFormats());
    const RecordedLog log;
    const auto catalogTemplate = read(file.path());
    QVERIFY(catalogTemplate);
    QCOMPARE(log.lines(), QList<LogLine>{isNew ? newVersion : oldVersion});
    QCOMPARE(catalogTemplate->key(), isNew ? QStringLiteral("current") : QStringLiteral("legacy"));
}

void TemplateReaderTest::backslashBehindTheFolderIsLegacy()
{
    const RecordedLog log;
    QVERIFY(!read(QStringLiteral("C:\\data\\templates_new\\a.xml")));
    QVERIFY(!read(QStringLiteral("/data/TEMPLATES_NEW/a.xml")));
    QVERIFY(!read(QStringLiteral("templates_new")));
    QVERIFY(!read(QStringLiteral("templates_new/a.xml")));
    QCOMPARE(log.lines(), (QList<LogLine>{oldVersion, oldVersion, oldVersion, newVersion}));
}

void TemplateReaderTest::everyCallLogsItsFormatOnce_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("flags");
    QTest::newRow("legacy") << QStringLiteral("templates") << legacyDocument("") << 0;
    QTest::newRow("current") << QStringLiteral("templates_new") << currentDocument("") << 0;
    QTest::newRow("legacy with a flag") << QStringLiteral("templates") << legacyDocument("") << 1;
    QTest::newRow("current with a flag") << QStringLiteral("templates_new") << currentDocument("") << 1;
    QTest::newRow("damaged legacy") << QStringLiteral("templates") << QByteArray("<TXSYS>") << 0;
}

void TemplateReaderTest::everyCallLogsItsFormatOnce()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, content);
    QFETCH(int, flags);
    const TemporaryTemplate file(folder, content);
    const RecordedLog log;
    for (int calls = 1; calls <= 2; ++calls) {
        CCatalogTemplate *catalogTemplate = nullptr;
        CTemplateReader::readFile(file.path(), static_cast<CTemplateReader::ReaderFlags>(flags),
                                  catalogTemplate);
        delete catalogTemplate;
        QCOMPARE(log.lines().size(), calls);
        QCOMPARE(log.lines().last(), folder == QLatin1String("templates") ? oldVersion : newVersion);
    }
}

void TemplateReaderTest::anyFlagFailsWithoutReading_data()
{
    QTest::addColumn<int>("flags");
    QTest::newRow("1") << 1;
    QTest::newRow("2") << 2;
    QTest::newRow("256") << 256;
    QTest::newRow("-1") << -1;
    QTest::newRow("least") << std::numeric_limits<int>::min();
}

void TemplateReaderTest::anyFlagFailsWithoutReading()
{
    QFETCH(int, flags);
    for (const auto &folder : {QStringLiteral("templates"), QStringLiteral("templates_new")}) {
        const TemporaryTemplate file(folder, documentOfBothFormats());
        CCatalogTemplate other;
        CCatalogTemplate *catalogTemplate = &other;
        QVERIFY(!CTemplateReader::readFile(file.path(), static_cast<CTemplateReader::ReaderFlags>(flags),
                                           catalogTemplate));
        QCOMPARE(catalogTemplate, nullptr);
    }
}

void TemplateReaderTest::failureGivesNoTemplateAndLogsOnlyTheFormat_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("not XML") << QByteArray("{\"key\": 1}");
    QTest::newRow("ends within a section") << QByteArray("<TXSYS><SYSTPL><TPL_Key>A");
    QTest::newRow("list item without a list")
        << legacyDocument("<SYSLIST><LIST_Item>A</LIST_Item></SYSLIST>");
    QTest::newRow("column of an unknown view") << legacyDocument(columnOfView("{nowhere}"));
    QTest::newRow("one of two columns of an unknown view") << legacyDocument(
        "<PROGVIEW><PV_PK>{a}</PV_PK></PROGVIEW>" + columnOfView("{a}") + columnOfView("{nowhere}"));
}

void TemplateReaderTest::failureGivesNoTemplateAndLogsOnlyTheFormat()
{
    QFETCH(QByteArray, content);
    const TemporaryTemplate file(QStringLiteral("templates"), content);
    const RecordedLog log;
    CCatalogTemplate other;
    CCatalogTemplate *catalogTemplate = &other;
    QVERIFY(!CTemplateReader::readFile(file.path(), noFlags, catalogTemplate));
    QCOMPARE(catalogTemplate, nullptr);

    catalogTemplate = &other;
    QVERIFY(!CTemplateReader::readFile(file.path() + QStringLiteral(".missing"), noFlags, catalogTemplate));
    QCOMPARE(catalogTemplate, nullptr);
    QCOMPARE(log.lines(), (QList<LogLine>{oldVersion, oldVersion}));
}

void TemplateReaderTest::outPointerIsNullBeforeTheFormatIsLogged()
{
    CCatalogTemplate other;
    CCatalogTemplate *catalogTemplate = &other;
    QList<const CCatalogTemplate *> seen;
    StandaloneHost::instance().setLogSink(
        [&](int, const QString &, const QString &) { seen.append(catalogTemplate); });
    CTemplateReader::readFile(QString(), noFlags, catalogTemplate);
    StandaloneHost::instance().setLogSink({});
    QCOMPARE(seen, QList<const CCatalogTemplate *>{nullptr});
}

void TemplateReaderTest::fileIsClosedWhenTheCallReturns_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("legacy") << QStringLiteral("templates") << legacyDocument("");
    QTest::newRow("current") << QStringLiteral("templates_new") << currentDocument("");
    QTest::newRow("damaged legacy") << QStringLiteral("templates") << QByteArray("<TXSYS>");
    QTest::newRow("legacy that gives no template")
        << QStringLiteral("templates") << legacyDocument(columnOfView("{nowhere}"));
}

void TemplateReaderTest::fileIsClosedWhenTheCallReturns()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, content);
    const TemporaryTemplate file(folder, content);
    const RecordedLog log;
    const auto catalogTemplate = read(file.path());
    QCOMPARE(openDescriptorsOf(file.path()), 0);
}

void TemplateReaderTest::emptyTypeIsCompletedFromTheRegistry_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<QString>("registeredId");
    QTest::addColumn<QString>("registeredType");
    QTest::addColumn<QString>("type");
    const auto id = QStringLiteral("{id}");
    const auto water = QStringLiteral("WATER");
    const QByteArray pk = "<TPL_PK>{id}</TPL_PK>";
    QTest::newRow("no type, registered") << pk << id << water << water;
    QTest::newRow("empty type, registered")
        << QByteArray(pk + "<TPL_Type></TPL_Type>") << id << water << water;
    QTest::newRow("a type, registered with another")
        << QByteArray(pk + "<TPL_Type>SEWER</TPL_Type>") << id << water << QStringLiteral("SEWER");
    QTest::newRow("a blank is a type")
        << QByteArray(pk + "<TPL_Type> </TPL_Type>") << id << water << QStringLiteral(" ");
    QTest::newRow("no type, unknown") << pk << QStringLiteral("{other}") << water << QString();
    QTest::newRow("a type, unknown") << QByteArray(pk + "<TPL_Type>SEWER</TPL_Type>")
                                     << QStringLiteral("{other}") << water << QStringLiteral("SEWER");
    QTest::newRow("no type, registered in other case") << pk << QStringLiteral("{ID}") << water << QString();
    QTest::newRow("no type, registered without one") << pk << id << QString() << QString();
    QTest::newRow("no id, empty id registered") << QByteArray() << QString() << water << water;
}

void TemplateReaderTest::emptyTypeIsCompletedFromTheRegistry()
{
    QFETCH(QByteArray, header);
    QFETCH(QString, registeredId);
    QFETCH(QString, registeredType);
    StandaloneHost::instance().registerTemplate(registeredId, registeredType);
    const TemporaryTemplate file(QStringLiteral("templates"), legacyHeader(header));
    const RecordedLog log;
    const auto catalogTemplate = read(file.path());
    QVERIFY(catalogTemplate);
    QTEST(catalogTemplate->type(), "type");
}

void TemplateReaderTest::currentFormatGetsItsTypeFromTheRegistry()
{
    StandaloneHost::instance().registerTemplate(QStringLiteral("{id}"), QStringLiteral("WATER"));
    const TemporaryTemplate file(QStringLiteral("templates_new"), documentOfBothFormats());
    const RecordedLog log;
    const auto catalogTemplate = read(file.path());
    QVERIFY(catalogTemplate);
    QCOMPARE(catalogTemplate->type(), QStringLiteral("WATER"));
}

void TemplateReaderTest::legacyFileLoadsEndToEnd()
{
    const TemporaryTemplate file(
        QStringLiteral("tëmplates of München"),
        legacyDocument("<SYSCOL><COL_ProgView_FK>{v}</COL_ProgView_FK><COL_DataType>INT</COL_DataType>"
                       "<COL_Bound_Column>second</COL_Bound_Column><COL_SortOrder>2</COL_SortOrder></SYSCOL>"
                       "<SYSCOL><COL_ProgView_FK>{v}</COL_ProgView_FK><COL_DataType>TXT</COL_DataType>"
                       "<COL_Bound_Column>first</COL_Bound_Column><COL_SortOrder>1</COL_SortOrder></SYSCOL>"
                       "<PROGVIEW><PV_PK>{v}</PV_PK><PV_Key>View</PV_Key></PROGVIEW>"
                       "<SYSLIST><LIST_Name>List</LIST_Name><LIST_Item>A</LIST_Item></SYSLIST>"
                       "<LegendOfClassification><Lateral><class id=\"1\" numberFrom=\"2\"/></Lateral>"
                       "</LegendOfClassification>"
                       "<SYSTPL><TPL_Key>Key</TPL_Key></SYSTPL>"));
    const RecordedLog log;
    const auto catalogTemplate = read(file.path());
    QVERIFY(catalogTemplate);
    QCOMPARE(catalogTemplate->key(), QStringLiteral("Key"));
    const CProgramView *view = catalogTemplate->programViewByKey(QStringLiteral("View"));
    QVERIFY(view);
    QCOMPARE(view->columnCount(), 2);
    QCOMPARE(view->column(0)->boundColumn(), QStringLiteral("first"));
    QCOMPARE(view->column(1)->boundColumn(), QStringLiteral("second"));
    QCOMPARE(catalogTemplate->itemList(QStringLiteral("List")).size(), 1);
    QCOMPARE(catalogTemplate->getLegendOfClassification(false).size(), 0);
    QCOMPARE(catalogTemplate->getLegendOfClassification(true).size(), 1);
}

void TemplateReaderTest::fieldsThatLoadingLeavesAloneStayAsTheyAre()
{
    const TemporaryTemplate file(
        QStringLiteral("templates"),
        legacyHeader(
            "<TPL_ListNamePrefix>P</TPL_ListNamePrefix>"
            "<TPL_DefaultSecClassName>C</TPL_DefaultSecClassName>"
            "<TPL_DefaultSecColorField>F</TPL_DefaultSecColorField><TPL_SortOrder>3</TPL_SortOrder>"));
    const RecordedLog log;
    const auto catalogTemplate = read(file.path());
    QVERIFY(catalogTemplate);
    QCOMPARE(catalogTemplate->listNamePrefix(), QString());
    QCOMPARE(catalogTemplate->defaultSecClassName(), QString());
    QCOMPARE(catalogTemplate->defaultSecColorField(), QString());
    QCOMPARE(catalogTemplate->sortOrder(), -1);
}

void TemplateReaderTest::templateLivesOnWithoutItsFile()
{
    auto file = std::make_unique<TemporaryTemplate>(QStringLiteral("templates"),
                                                    legacyHeader("<TPL_Key>Schlüssel</TPL_Key>"));
    const RecordedLog log;
    const auto catalogTemplate = read(file->path());
    file.reset();
    QVERIFY(catalogTemplate);
    QCOMPARE(catalogTemplate->key(), QStringLiteral("Schlüssel"));
}

QTEST_GUILESS_MAIN(TemplateReaderTest)

#include "TemplateReaderTest.moc"
