#include "CurrentFormat.h"
#include "RecordLines.h"

#include "support/OpenFiles.h"
#include "support/QtWarnings.h"
#include "support/RecordProperties.h"
#include "support/RecordedLog.h"
#include "support/VirtualSlot.h"

#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <memory>
#include <type_traits>
#include <vector>

using namespace Tobrix::Templates;

static_assert(std::is_base_of_v<AbstractTemplateXmlReader, NewTemplateXMLReader>);
static_assert(std::has_virtual_destructor_v<NewTemplateXMLReader>);

namespace {

/// A document with every kind of content.
QByteArray fullDocument(const QByteArray &name = "Sewer")
{
    return currentDocument("<TemplateIdentifier Id=\"{id}\"><Name>" + name +
                           "</Name></TemplateIdentifier>"
                           "<AssignedCatalogs><Catalog Id=\"C\"/></AssignedCatalogs>"
                           "<ValueList Name=\"L\"><ValueListItem Key=\"K\"/></ValueList>"
                           "<View Id=\"V\" Name=\"V\"><Column DataType=\"Text\"/></View>"
                           "<ClassificationColorScopes>"
                           "<ClassificationColorScope Name=\"ClassColorDefault\" Scope=\"Section\">"
                           "<ClassificationColor From=\"1\"/></ClassificationColorScope>"
                           "<ClassificationColorScope Name=\"ClassColorDefault\" Scope=\"Lateral\">"
                           "<ClassificationColor From=\"2\"/></ClassificationColorScope>"
                           "</ClassificationColorScopes>");
}

bool isEmpty(const CTemplateRawData &rawData)
{
    return rawData.catalogs.isEmpty() && rawData.legendA.isEmpty() && rawData.legendB.isEmpty() &&
           rawData.programViews.isEmpty() && rawData.listItems.isEmpty() && rawData.columns.isEmpty();
}

QVariantMap emptyHeader()
{
    return initialValues(headerProperties());
}

QVariantMap headerOf(const CTemplateRawData &rawData)
{
    return valuesOf<CTemplateBaseData>(rawData, headerProperties());
}

/// A text in UTF-16 with byte order mark.
QByteArray utf16(const QString &text, bool isBigEndian)
{
    QByteArray bytes;
    for (const QChar character : QString(QChar::ByteOrderMark) + text) {
        const char high = static_cast<char>(character.row());
        const char low = static_cast<char>(character.cell());
        bytes.append(isBigEndian ? high : low);
        bytes.append(isBigEndian ? low : high);
    }
    return bytes;
}

} // namespace

class CurrentDocumentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readFileTakesThePlaceBehindTheDestructors();
    void missingFileIsRefusedAndTheRecordUntouched();
    void folderIsRefusedAndTheRecordUntouched();
    void fileWithoutTemplateGivesAnEmptyRecord_data();
    void fileWithoutTemplateGivesAnEmptyRecord();
    void missingQuoteKeepsWhatStandsBeforeIt();
    void firstOfAFaultAndTooManyTagsCounts_data();
    void firstOfAFaultAndTooManyTagsCounts();
    void faultBeforeTheHeaderLeavesEverythingEmpty_data();
    void faultBeforeTheHeaderLeavesEverythingEmpty();
    void whatStandsBeforeAFaultIsRead();
    void fileCutOffKeepsTheElementsThatHaveBegun_data();
    void fileCutOffKeepsTheElementsThatHaveBegun();
    void anyRootIsAccepted_data();
    void anyRootIsAccepted();
    void elementsOfANamespacePrefixAreOthers();
    void defaultNamespaceMakesNoDifference();
    void encodingIsTheFilesOwn_data();
    void encodingIsTheFilesOwn();
    void everythingIsFilledByOneRead();
    void columnsOfTheRecordStayEmpty();
    void fileIsClosedAfterReading();
    void recordIsNotClearedBefore();
    void secondFileOfAReaderStartsWithItsOwnTables();
    void secondFileOfAReaderStartsWithItsOwnDocument();
    void unknownNamesDoNotDisturbLaterFiles();
    void readerOutlivesTheRecordThatItFilled();
    void missingFileAfterAGoodOneIsRefused();
    void readerIsDeletedThroughItsInterface();
    void nothingIsLogged();
    void readersOfTheirOwnRunOnThreadsOfTheirOwn();
};

void CurrentDocumentTest::readFileTakesThePlaceBehindTheDestructors()
{
    if (!virtualSlotsAreKnown) {
        QSKIP("The places of virtual operations are not known on this platform");
    }
    QCOMPARE(virtualSlot(&NewTemplateXMLReader::readFile), 2);
}

void CurrentDocumentTest::missingFileIsRefusedAndTheRecordUntouched()
{
    CTemplateRawData rawData;
    QVERIFY(readDocument(fullDocument(), rawData));
    const QVariantMap before = headerOf(rawData);

    NewTemplateXMLReader reader;
    QVERIFY(!reader.readFile(QStringLiteral("/nowhere/templates_new/missing.xml"), rawData));
    COMPARE_VALUES(headerOf(rawData), before);
    QCOMPARE(rawData.catalogs.size(), 1);
    QCOMPARE(rawData.listItems.size(), 1);
    QCOMPARE(rawData.programViews.size(), 1);
    QCOMPARE(rawData.legendA.size(), 1);
    QCOMPARE(rawData.legendB.size(), 1);

    CTemplateRawData empty;
    QVERIFY(!reader.readFile(QString(), empty));
    QVERIFY(isEmpty(empty));
    COMPARE_VALUES(headerOf(empty), emptyHeader());
}

void CurrentDocumentTest::folderIsRefusedAndTheRecordUntouched()
{
    const QTemporaryDir folder;
    CTemplateRawData rawData;
    rawData.key = QStringLiteral("before");
    QVERIFY(!NewTemplateXMLReader().readFile(folder.path(), rawData));
    QCOMPARE(rawData.key, QStringLiteral("before"));
}

void CurrentDocumentTest::fileWithoutTemplateGivesAnEmptyRecord_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("nothing at all") << QByteArray();
    QTest::newRow("white space") << QByteArray(" \n\t");
    QTest::newRow("text") << QByteArray("no template");
    QTest::newRow("declaration alone") << QByteArray("<?xml version=\"1.0\"?>");
    QTest::newRow("comment alone") << QByteArray("<!-- no template -->");
    QTest::newRow("empty root") << QByteArray("<Template/>");
    QTest::newRow("elements of other names") << QByteArray("<Template><Other Id=\"1\"/></Template>");
    QTest::newRow("null bytes") << QByteArray(64, '\0');
    QTest::newRow("invalid UTF-8") << QByteArray("\xff\xfe\xfd\xfc\x80");
    QTest::newRow("legacy template") << legacyDocument("<SYSTPL><TPL_Key>K</TPL_Key></SYSTPL>");
}

void CurrentDocumentTest::fileWithoutTemplateGivesAnEmptyRecord()
{
    QFETCH(QByteArray, content);
    CTemplateRawData rawData;
    QVERIFY(readDocument(content, rawData));
    COMPARE_VALUES(headerOf(rawData), emptyHeader());
    QVERIFY(isEmpty(rawData));
}

void CurrentDocumentTest::missingQuoteKeepsWhatStandsBeforeIt()
{
    // After a missing quote, the rest of a file looks like attributes of one element, more than any real one
    // has.
    QByteArray view = "<View Id=\"V\" Name=\"Before\"/><View Id=\"W Name=\"Fault\"/>";
    for (int i = 0; i < 1000; ++i) {
        view += "<View Id=\"X" + QByteArray::number(i) + "\" Name=\"Behind\"/>";
    }
    CTemplateRawData rawData;
    QVERIFY(readDocument(currentDocument("<TemplateIdentifier Id=\"T\"/>" + view), rawData));
    QCOMPARE(rawData.uniqueId, QStringLiteral("T"));
    QCOMPARE(rawData.programViews.keys(), QStringList{QStringLiteral("V")});
}

void CurrentDocumentTest::firstOfAFaultAndTooManyTagsCounts_data()
{
    QTest::addColumn<QByteArray>("beginning");
    QTest::addColumn<QByteArray>("lineEnd");
    const QByteArray lineEnds[] = {"", "\n", "\r\n", "\r", "\n    ", "\r    "};
    const QByteArray beginnings[] = {"",
                                     "\xC3\xB6\xE2\x82\xAC\xF0\x9F\x93\x8F",
                                     "\xF6\xF6\xF6\xF6\xF6",
                                     QByteArray("\x80").repeated(150),
                                     QByteArray("\xED\xA0\x80").repeated(150),
                                     QByteArray("x").repeated(20'000)};
    int row = 0;
    for (const auto &beginning : beginnings) {
        for (const auto &lineEnd : lineEnds) {
            QTest::addRow("%d, %d bytes before them", row++, beginning.size()) << beginning << lineEnd;
        }
    }
}

void CurrentDocumentTest::firstOfAFaultAndTooManyTagsCounts()
{
    QFETCH(QByteArray, beginning);
    QFETCH(QByteArray, lineEnd);
    const QByteArray name = "<Name>N</Name>" + lineEnd + beginning + lineEnd;
    const QByteArray fault = "</Wrong>" + lineEnd;
    const QByteArray tooMany = (lineEnd + "<br>").repeated(200);
    CTemplateRawData rawData;
    QVERIFY(readDocument("<Template>" + lineEnd + name + fault + tooMany, rawData));
    QCOMPARE(rawData.key, QStringLiteral("N"));
    CTemplateRawData emptyData;
    QVERIFY(readDocument("<Template>" + lineEnd + name + tooMany + fault, emptyData));
    QCOMPARE(emptyData.key, QString());
}

void CurrentDocumentTest::faultBeforeTheHeaderLeavesEverythingEmpty_data()
{
    QTest::addColumn<QByteArray>("beginning");
    QTest::newRow("end tag without element") << QByteArray("</Other>");
    QTest::newRow("end tag of another element") << QByteArray("<Template><A></B>");
    QTest::newRow("tag that is never closed") << QByteArray("<Template <");
    QTest::newRow("attribute without value") << QByteArray("<Template a>");
    QTest::newRow("attribute without quotes") << QByteArray("<Template a=1>");
    QTest::newRow("bare ampersand") << QByteArray("<Template>A & B");
    QTest::newRow("two roots") << QByteArray("<A/>");
}

void CurrentDocumentTest::faultBeforeTheHeaderLeavesEverythingEmpty()
{
    QFETCH(QByteArray, beginning);
    QByteArray document = fullDocument();
    document.remove(0, document.indexOf("<Template>"));
    CTemplateRawData rawData;
    QVERIFY(readDocument(beginning + document, rawData));
    COMPARE_VALUES(headerOf(rawData), emptyHeader());
    QVERIFY(isEmpty(rawData));
}

void CurrentDocumentTest::whatStandsBeforeAFaultIsRead()
{
    CTemplateRawData rawData;
    QVERIFY(readDocument("<Template><TemplateIdentifier Id=\"{id}\" SystemOfUnits=\"Metric\"/><Name>N</Name>"
                         "<ValueList Name=\"L\"><ValueListItem Key=\"1\"/></Wrong>"
                         "<ValueListItem Key=\"2\"/></ValueList><Version>9</Version></Template>",
                         rawData));
    QCOMPARE(rawData.uniqueId, QStringLiteral("{id}"));
    QCOMPARE(rawData.unit, QStringLiteral("m"));
    QCOMPARE(rawData.key, QStringLiteral("N"));
    QCOMPARE(rawData.version, QString());
    QCOMPARE(rawData.listItems.size(), 1);
    QCOMPARE(rawData.listItems.first()->item(), QStringLiteral("1"));
}

void CurrentDocumentTest::fileCutOffKeepsTheElementsThatHaveBegun_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<QStringList>("columns");
    const QStringList one{QStringLiteral("A")};
    const QStringList two{QStringLiteral("A"), QStringLiteral("B")};
    const QByteArray secondColumn =
        "<Column DataType=\"Text\" Ordinal=\"2\"><BoundProperty PropertyName=\"B\"";
    QTest::newRow("after a column") << QByteArray() << one;
    QTest::newRow("within a tag's name") << QByteArray("<Colu") << one;
    QTest::newRow("within an attribute") << QByteArray("<Column DataType=\"Te") << one;
    QTest::newRow("before the end of a start tag") << QByteArray("<Column DataType=\"Text\"") << one;
    QTest::newRow("within a child's start tag")
        << secondColumn << QStringList{QString(), QStringLiteral("A")};
    QTest::newRow("after a child's start tag") << secondColumn + ">" << two;
    QTest::newRow("after a child") << secondColumn + "/>" << two;
    QTest::newRow("within a comment") << QByteArray("<!-- ") << one;
    QTest::newRow("within CDATA") << QByteArray("<![CDATA[ ]") << one;
    QTest::newRow("within an entity") << QByteArray("&am") << one;
}

void CurrentDocumentTest::fileCutOffKeepsTheElementsThatHaveBegun()
{
    QFETCH(QByteArray, end);
    QFETCH(QStringList, columns);
    CTemplateRawData rawData;
    QVERIFY(readDocument("<Template><Name>N</Name><View Id=\"V\" Name=\"V\"><Column DataType=\"Text\" "
                         "Ordinal=\"1\"><BoundProperty PropertyName=\"A\"/></Column>" +
                             end,
                         rawData));
    QCOMPARE(rawData.key, QStringLiteral("N"));
    QVERIFY(rawData.programViews.contains(QStringLiteral("V")));
    QStringList found = boundColumnsOf(*rawData.programViews.value(QStringLiteral("V")));
    found.sort();
    QCOMPARE(found, columns);
}

void CurrentDocumentTest::anyRootIsAccepted_data()
{
    QTest::addColumn<QByteArray>("root");
    for (const char *root : {"Template", "ProjectStandard", "x", "TobrixTemplate", "t:Template"}) {
        QTest::newRow(root) << QByteArray(root);
    }
}

void CurrentDocumentTest::anyRootIsAccepted()
{
    QFETCH(QByteArray, root);
    CTemplateRawData rawData;
    QVERIFY(readDocument("<" + root + "><Name>N</Name></" + root + ">", rawData));
    QCOMPARE(rawData.key, QStringLiteral("N"));

    CTemplateRawData ofRootAlone;
    QVERIFY(readDocument("<Name>N</Name>", ofRootAlone));
    QCOMPARE(ofRootAlone.key, QStringLiteral("N"));
}

void CurrentDocumentTest::elementsOfANamespacePrefixAreOthers()
{
    CTemplateRawData rawData;
    QVERIFY(readDocument("<t:T xmlns:t=\"urn:t\"><t:Name>A</t:Name><t:TemplateIdentifier Id=\"A\"/>"
                         "<Name>B</Name><TemplateIdentifier t:Id=\"C\" Id=\"B\"/></t:T>",
                         rawData));
    QCOMPARE(rawData.key, QStringLiteral("B"));
    QCOMPARE(rawData.uniqueId, QStringLiteral("B"));
}

void CurrentDocumentTest::defaultNamespaceMakesNoDifference()
{
    CTemplateRawData rawData;
    QVERIFY(readDocument("<T xmlns=\"urn:t\"><TemplateIdentifier Id=\"A\"/><Name>N</Name></T>", rawData));
    QCOMPARE(rawData.key, QStringLiteral("N"));
    QCOMPARE(rawData.uniqueId, QStringLiteral("A"));
}

void CurrentDocumentTest::encodingIsTheFilesOwn_data()
{
    QTest::addColumn<QByteArray>("content");
    const QString text = QStringLiteral("<T><Name>Gew\u00f6lbe \u00d8 m\u00b3</Name></T>");
    const auto declared = [&](const char *encoding) {
        return QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>").arg(QLatin1String(encoding)) + text;
    };
    QTest::newRow("UTF-8 without declaration") << text.toUtf8();
    QTest::newRow("UTF-8 declared") << declared("UTF-8").toUtf8();
    QTest::newRow("UTF-8 with byte order mark") << "\xef\xbb\xbf" + declared("UTF-8").toUtf8();
    QTest::newRow("Latin-1 declared") << declared("ISO-8859-1").toLatin1();
    QTest::newRow("UTF-16, little end first") << utf16(declared("UTF-16"), false);
    QTest::newRow("UTF-16, big end first") << utf16(declared("UTF-16"), true);
}

void CurrentDocumentTest::encodingIsTheFilesOwn()
{
    QFETCH(QByteArray, content);
    CTemplateRawData rawData;
    QVERIFY(readDocument(content, rawData));
    QCOMPARE(rawData.key, QStringLiteral("Gew\u00f6lbe \u00d8 m\u00b3"));
}

void CurrentDocumentTest::everythingIsFilledByOneRead()
{
    CTemplateRawData rawData;
    QVERIFY(readDocument(fullDocument(), rawData));
    QCOMPARE(rawData.key, QStringLiteral("Sewer"));
    QCOMPARE(rawData.catalogs.size(), 1);
    QCOMPARE(rawData.listItems.size(), 1);
    QCOMPARE(rawData.programViews.size(), 1);
    QCOMPARE(rawData.legendA.size(), 1);
    QCOMPARE(rawData.legendA.first().numberFrom, 1.0);
    QCOMPARE(rawData.legendB.size(), 1);
    QCOMPARE(rawData.legendB.first().numberFrom, 2.0);
}

void CurrentDocumentTest::columnsOfTheRecordStayEmpty()
{
    CTemplateRawData rawData;
    QVERIFY(readDocument(fullDocument(), rawData));
    QVERIFY(rawData.columns.isEmpty());
    QCOMPARE(rawData.programViews.value(QStringLiteral("V"))->columnCount(), 1);
}

void CurrentDocumentTest::fileIsClosedAfterReading()
{
    const TemporaryTemplate file(QStringLiteral("templates_new"), fullDocument());
    NewTemplateXMLReader reader;
    CTemplateRawData rawData;
    QVERIFY(reader.readFile(file.path(), rawData));
    QCOMPARE(openDescriptorsOf(file.path()), 0);
}

void CurrentDocumentTest::recordIsNotClearedBefore()
{
    const QStringList keptByTheFormat{QStringLiteral("catalogRef"), QStringLiteral("catalogProfileRef"),
                                      QStringLiteral("type"),       QStringLiteral("sortOrder"),
                                      QStringLiteral("isSystem"),   QStringLiteral("isEditable"),
                                      QStringLiteral("isUpdatable")};
    CTemplateRawData rawData;
    QVERIFY(readDocument(fullDocument(), rawData));
    for (const auto &property : headerProperties()) {
        property.set(rawData, property.sample);
    }
    QVERIFY(
        readDocument("<T><View Id=\"W\"/><ValueList Name=\"L\"><ValueListItem/></ValueList></T>", rawData));

    // The previous values are replaced, by empty ones where the file has none. A class name is not replaced
    // by a file without presets.
    QVariantMap expected = emptyHeader();
    expected.insert(QStringLiteral("defaultSecClassName"), QStringLiteral("Class"));
    for (const auto &property : headerProperties()) {
        if (keptByTheFormat.contains(QLatin1String(property.name))) {
            expected.insert(QLatin1String(property.name), property.sample);
        }
    }
    COMPARE_VALUES(headerOf(rawData), expected);
    QCOMPARE(rawData.catalogs.size(), 1);
    QCOMPARE(rawData.listItems.size(), 2);
    QCOMPARE(rawData.programViews.size(), 2);
    QCOMPARE(rawData.legendA.size(), 1);
    QCOMPARE(rawData.legendB.size(), 1);

    QVERIFY(readDocument(fullDocument(), rawData));
    QCOMPARE(rawData.catalogs.size(), 2);
    QCOMPARE(rawData.legendA.size(), 2);
    QCOMPARE(rawData.legendB.size(), 2);
}

void CurrentDocumentTest::secondFileOfAReaderStartsWithItsOwnTables()
{
    const QByteArray view =
        viewOf(columnOf("<ValueListName>L</ValueListName><BoundProperty PropertyName=\"P\"/>"));
    const TemporaryTemplate first(
        QStringLiteral("templates_new"),
        currentDocument(
            "<ValueList Name=\"L\" CompatibleListClassType=\"7\"/><DefaultValues><DefaultValueScope>"
            "<DefaultValueItem Value=\"D\" View=\"View\"><BoundProperty PropertyName=\"P\"/>"
            "</DefaultValueItem></DefaultValueScope></DefaultValues>" +
            view));
    const TemporaryTemplate second(QStringLiteral("templates_new"), currentDocument(view));
    NewTemplateXMLReader reader;

    CTemplateRawData ofFirst;
    QVERIFY(reader.readFile(first.path(), ofFirst));
    const auto *column = ofFirst.programViews.value(QStringLiteral("{view}"))->column(0);
    QCOMPARE(static_cast<int>(column->typeFlags()), 7);
    QCOMPARE(column->defaultValue(), QVariant(QStringLiteral("D")));

    CTemplateRawData ofSecond;
    QVERIFY(reader.readFile(second.path(), ofSecond));
    column = ofSecond.programViews.value(QStringLiteral("{view}"))->column(0);
    QCOMPARE(static_cast<int>(column->typeFlags()), 0);
    QVERIFY(column->defaultValue().isNull());
    QCOMPARE(column->getControlType(), 0);
}

void CurrentDocumentTest::secondFileOfAReaderStartsWithItsOwnDocument()
{
    const TemporaryTemplate first(QStringLiteral("templates_new"), fullDocument("First"));
    const TemporaryTemplate second(QStringLiteral("templates_new"), fullDocument("Second"));
    const TemporaryTemplate empty(QStringLiteral("templates_new"), QByteArray());
    NewTemplateXMLReader reader;
    CTemplateRawData rawData;
    QVERIFY(reader.readFile(first.path(), rawData));
    QVERIFY(reader.readFile(second.path(), rawData));
    QCOMPARE(rawData.key, QStringLiteral("Second"));
    QCOMPARE(rawData.listNamePrefix, QStringLiteral("Second"));
    CTemplateRawData ofEmpty;
    QVERIFY(reader.readFile(empty.path(), ofEmpty));
    COMPARE_VALUES(headerOf(ofEmpty), emptyHeader());
    QVERIFY(isEmpty(ofEmpty));
}

void CurrentDocumentTest::unknownNamesDoNotDisturbLaterFiles()
{
    const TemporaryTemplate strange(
        QStringLiteral("templates_new"),
        currentDocument("<TemplateIdentifier SystemOfUnits=\"Parsec\"/>" +
                        viewOf("<Column DataType=\"Blob\" ControlType=\"Lever\"/><Column/>")));
    const TemporaryTemplate usual(
        QStringLiteral("templates_new"),
        currentDocument("<TemplateIdentifier SystemOfUnits=\"Imperial\"/>" +
                        viewOf("<Column DataType=\"Guid\" ControlType=\"TextButton\" Ordinal=\"1\"/>"
                               "<Column DataType=\"Time\" Ordinal=\"2\"/>"
                               "<Column DataType=\"Blob\" Ordinal=\"3\"/>")));
    NewTemplateXMLReader reader;
    CTemplateRawData ofStrange;
    QVERIFY(reader.readFile(strange.path(), ofStrange));
    QCOMPARE(ofStrange.unit, QString());

    CTemplateRawData ofUsual;
    QVERIFY(reader.readFile(usual.path(), ofUsual));
    QCOMPARE(ofUsual.unit, QStringLiteral("ft"));
    const auto *view = ofUsual.programViews.value(QStringLiteral("{view}"));
    QCOMPARE(view->columnCount(), 3);
    QVERIFY(view->column(0));
    QVERIFY(view->column(1));
    QCOMPARE(view->column(0)->dataType(), QStringLiteral("GUI"));
    QCOMPARE(view->column(0)->getControlType(), 8);
    QCOMPARE(view->column(1)->getControlType(), 0);
    QCOMPARE(view->column(2), nullptr);

    CTemplateRawData again;
    QVERIFY(reader.readFile(strange.path(), again));
    QCOMPARE(again.unit, QString());
}

void CurrentDocumentTest::readerOutlivesTheRecordThatItFilled()
{
    const TemporaryTemplate file(QStringLiteral("templates_new"), fullDocument());
    NewTemplateXMLReader reader;
    {
        CTemplateRawData rawData;
        QVERIFY(reader.readFile(file.path(), rawData));
    }
    CTemplateRawData another;
    QVERIFY(reader.readFile(file.path(), another));
    QCOMPARE(another.programViews.size(), 1);
}

void CurrentDocumentTest::missingFileAfterAGoodOneIsRefused()
{
    const TemporaryTemplate file(QStringLiteral("templates_new"), fullDocument());
    NewTemplateXMLReader reader;
    CTemplateRawData rawData;
    QVERIFY(reader.readFile(file.path(), rawData));
    CTemplateRawData untouched;
    QVERIFY(!reader.readFile(file.path() + QStringLiteral(".missing"), untouched));
    QVERIFY(isEmpty(untouched));
    COMPARE_VALUES(headerOf(untouched), emptyHeader());
    QVERIFY(reader.readFile(file.path(), untouched));
    QCOMPARE(untouched.key, QStringLiteral("Sewer"));
}

void CurrentDocumentTest::readerIsDeletedThroughItsInterface()
{
    const TemporaryTemplate file(QStringLiteral("templates_new"), fullDocument());
    // Without the deletion, the reader's document would leak, which the sanitizers report.
    std::unique_ptr<AbstractTemplateXmlReader> reader = std::make_unique<NewTemplateXMLReader>();
    CTemplateRawData rawData;
    QVERIFY(reader->readFile(file.path(), rawData));
    reader.reset();
    QCOMPARE(rawData.programViews.value(QStringLiteral("V"))->columnCount(), 1);
}

void CurrentDocumentTest::nothingIsLogged()
{
    const RecordedLog log;
    const QtWarnings warnings;
    CTemplateRawData rawData;
    QVERIFY(readDocument(fullDocument(), rawData));
    QVERIFY(readDocument("<T><View><Column DataType=\"Blob\"/></Wrong>", rawData));
    QVERIFY(!NewTemplateXMLReader().readFile(QStringLiteral("/nowhere/missing.xml"), rawData));
    QCOMPARE(log.lines(), QList<LogLine>());
    QCOMPARE(warnings.messages(), QStringList());
}

void CurrentDocumentTest::readersOfTheirOwnRunOnThreadsOfTheirOwn()
{
    const QByteArray document = fullDocument();
    CTemplateRawData alone;
    QVERIFY(readDocument(document, alone));
    const QStringList expected = linesOf(alone);

    std::vector<QStringList> found(4);
    std::vector<std::unique_ptr<QThread>> threads;
    for (auto &lines : found) {
        threads.emplace_back(QThread::create([&document, &expected, &lines] {
            int rounds = 25;
            do {
                CTemplateRawData rawData;
                lines = readDocument(document, rawData) ? linesOf(rawData) : QStringList();
            } while (lines == expected && --rounds > 0);
        }));
        threads.back()->start();
    }
    for (const auto &thread : threads) {
        QVERIFY(thread->wait());
    }
    for (const auto &lines : found) {
        QCOMPARE(lines, expected);
    }
}

QTEST_GUILESS_MAIN(CurrentDocumentTest)

#include "CurrentDocumentTest.moc"
