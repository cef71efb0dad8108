// The reports on files: outcome, place and message.

#include "support/RecordedLog.h"
#include "support/TemporaryTemplate.h"

#include "loading/CTemplateReader.h"
#include "loading/CTemplateReadingReport.h"
#include "model/CCatalogTemplate.h"
#include "rawdata/TemplateLimits_p.h"
#include "xml/XmlLimits_p.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/stat.h>

using namespace Tobrix::Templates;

using Report = CTemplateReadingReport;
Q_DECLARE_METATYPE(Report::Outcome)
Q_DECLARE_METATYPE(TemplateFormat)

namespace {

const QString legacyFolder = QStringLiteral("templates");
const QString currentFolder = QStringLiteral("templates_new");
const auto noFlags = CTemplateReader::ReaderFlags();

/// The result of a call of the entry point.
struct Loading
{
    explicit Loading(const QString &path, CTemplateReader::ReaderFlags flags = noFlags)
    {
        CCatalogTemplate *read = nullptr;
        isLoaded = CTemplateReader::readFileWithReport(path, flags, read, report);
        catalogTemplate.reset(read);
    }

    bool isLoaded = false;
    std::unique_ptr<CCatalogTemplate> catalogTemplate;
    Report report;
};

QByteArray columnOf(const QByteArray &view, const QByteArray &elements = QByteArray())
{
    return "\n<SYSCOL><COL_ProgView_FK>" + view + "</COL_ProgView_FK><COL_DataType>TXT</COL_DataType>" +
           elements + "</SYSCOL>";
}

QByteArray nested(int depth)
{
    return QByteArray("\n<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

} // namespace

class ReadingReportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contentIsReported_data();
    void contentIsReported();
    void pathIsReported_data();
    void pathIsReported();
    void flagsAreReported();
    void resultAndLogAreThoseOfReadFile_data();
    void resultAndLogAreThoseOfReadFile();
    void reportOnNothing();
    void copyOutlivesItsOriginal();
    void formatFollowsFromThePath_data();
    void formatFollowsFromThePath();

private:
    static void addFaults();
    static void addFirstFailures();
};

void ReadingReportTest::contentIsReported_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<Report::Outcome>("outcome");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("reason");
    const auto loaded = [](const char *name, const QString &folder, const QByteArray &content) {
        QTest::addRow("%s, %s", name, qPrintable(folder))
            << folder << content << Report::Loaded << 0 << 0 << QStringLiteral("was loaded");
    };
    loaded("a header value", legacyFolder,
           legacyDocument("<SYSTPL><TPL_SortOrder>3</TPL_SortOrder></SYSTPL>"));
    loaded("a header value", currentFolder, currentDocument("<TemplateIdentifier Id='x'/>"));
    loaded("a view", legacyFolder, legacyDocument("<PROGVIEW><PV_PK>v</PV_PK></PROGVIEW>"));
    loaded("a view", currentFolder, currentDocument("<View Id='v'/>"));
    loaded("a list item", legacyFolder, legacyDocument("<SYSLIST><LIST_Name>l</LIST_Name></SYSLIST>"));
    loaded("a list item", currentFolder, currentDocument("<ValueList Name='l'><ValueListItem/></ValueList>"));
    loaded("a legend class", legacyFolder,
           legacyDocument("<LegendOfClassification><class/></LegendOfClassification>"));

    // The parsers get a document type only after it was checked against the limits.
    const QByteArray documentType = "<!DOCTYPE a [\n<!--" + QByteArray(12'000, 'x') + "-->]>";
    loaded("a long document type", legacyFolder,
           documentType + "<TXSYS><PROGVIEW><PV_PK>v</PV_PK></PROGVIEW></TXSYS>");
    loaded("a long document type", currentFolder, documentType + "<Template><View Id='v'/></Template>");

    const auto nothing = [](const char *name, const QString &folder, const QByteArray &content) {
        const QString format = folder == currentFolder ? QStringLiteral("current") : QStringLiteral("legacy");
        QTest::addRow("%s, %s", name, qPrintable(folder))
            << folder << content << Report::NothingOfATemplate << 0 << 0
            << QStringLiteral("has nothing of a template of the %1 format").arg(format);
    };
    nothing("no sections", legacyFolder, legacyDocument(QByteArray()));
    nothing("no elements", currentFolder, "<Template/>");
    nothing("a page", legacyFolder, "<html><body>Not found</body></html>");
    nothing("a page", currentFolder, "<html><body>Not found</body></html>");
    nothing("the other format", legacyFolder, currentDocument("<View Id='v'/>"));
    nothing("the other format", currentFolder, legacyDocument("<PROGVIEW><PV_PK>v</PV_PK></PROGVIEW>"));

    addFaults();
    addFirstFailures();
}

void ReadingReportTest::addFaults()
{
    const auto row = [](const char *name, const QByteArray &content, int line, int column,
                        const char *explanation) {
        const QString reason = QStringLiteral("not well-formed at line %1, column %2: %3")
                                   .arg(line)
                                   .arg(column)
                                   .arg(QString::fromUtf8(explanation));
        QTest::addRow("%s, legacy", name)
            << legacyFolder << content << Report::NotWellFormed << line << column << reason;
        QTest::addRow("%s, current", name) << currentFolder << content << Report::LoadedUpToFault << line
                                           << column << reason + QStringLiteral("; what follows was lost");
    };
    row("another end tag", "<R>\n <View>\n  <a>\n  </a>\n </Views>\n</R>", 5, 2,
        "</Views> does not match <View>, which was opened in line 2");
    row("another end tag of a prefix", "<R xmlns:x='u'>\n<x:a></x:b></R>", 2, 6,
        "</x:b> does not match <x:a>, which was opened in line 2");
    row("no end tag", "<R>\n<a/>\n<Views>\n<b/>\n", 5, 1, "<Views> of line 3 is not closed");
    row("a comment without end", "<R>\n<!-- a", 2, 7, "a comment of line 2 is not closed");
    row("characters outside of the basic plane", "<R>\xF0\x9F\x98\x80\xF0\x9F\x98\x80</X>", 1, 6,
        "</X> does not match <R>, which was opened in line 1");
    row("a column after a carriage return", "<R>\r\n\r</X>", 3, 1,
        "</X> does not match <R>, which was opened in line 1");
    row("a long name", "<" + QByteArray(100, 'n') + "></b>", 1, 103,
        qPrintable(QStringLiteral("</b> does not match <") + QString(64, QLatin1Char('n')) +
                   QStringLiteral("…>, which was opened in line 1")));
    QTest::newRow("legacy, empty") << legacyFolder << QByteArray() << Report::NotWellFormed << 1 << 1
                                   << "not well-formed at line 1, column 1: Premature end of document";
    QTest::newRow("current, empty")
        << currentFolder << QByteArray() << Report::LoadedUpToFault << 1 << 1
        << "not well-formed at line 1, column 1: unexpected end of file; what follows was lost";
}

void ReadingReportTest::addFirstFailures()
{
    const auto row = [](const char *name, const QString &folder, const QByteArray &content,
                        Report::Outcome outcome, int line, const QString &reason, int column = 1) {
        QTest::newRow(name) << folder << content << outcome << line << column << reason;
    };
    const auto overLimit = [](int line, int limit, const char *what) {
        return QStringLiteral("goes over a limit at line %1: more than %2 %3; nothing of it is used")
            .arg(QString::number(line), QString::number(limit), QLatin1String(what));
    };
    row("a list item of no list, legacy", legacyFolder, "<TXSYS>\n<SYSLIST></SYSLIST></TXSYS>",
        Report::ItemWithoutList, 2, QStringLiteral("the list item at line 2 names no list (LIST_Name)"));
    row("a list item of no list before a fault, legacy", legacyFolder, "<TXSYS>\n<SYSLIST></SYSLIST>\n</no>",
        Report::ItemWithoutList, 2, QStringLiteral("the list item at line 2 names no list (LIST_Name)"));
    row("a list item of no list after a fault, legacy", legacyFolder, "<TXSYS>\n</no>\n<SYSLIST></SYSLIST>",
        Report::NotWellFormed, 2,
        QStringLiteral("not well-formed at line 2, column 1: </no> does not match <TXSYS>, which was "
                       "opened in line 1"));
    row("a list item of no list before a column of no view, legacy", legacyFolder,
        "<TXSYS>" + columnOf("v") + "\n<SYSLIST></SYSLIST></TXSYS>", Report::ItemWithoutList, 3,
        QStringLiteral("the list item at line 3 names no list (LIST_Name)"));
    row("a column of no view, legacy", legacyFolder,
        "<TXSYS>\n<PROGVIEW><PV_PK>a</PV_PK></PROGVIEW>" + columnOf("a") +
            columnOf("z", "<COL_Caption>Länge</COL_Caption><TDIR_Key>SECTION</TDIR_Key>"
                          "<COL_Bound_Column>OBJ_Length</COL_Bound_Column>") +
            columnOf("b") + columnOf("z") + "</TXSYS>",
        Report::ColumnWithoutView, 4,
        QStringLiteral("column \"Länge\" (SECTION.OBJ_Length) at line 4 and 1 more belong to view \"z\", "
                       "which the file does not have"));
    row("a column without caption of no view, legacy", legacyFolder, "<TXSYS>" + columnOf("v") + "\n</TXSYS>",
        Report::ColumnWithoutView, 2,
        QStringLiteral(
            "a column without caption at line 2 belongs to view \"v\", which the file does not have"));
    for (const auto &folder : {legacyFolder, currentFolder}) {
        const QByteArray document = "<TXSYS><Template>" + nested(Limits::depth - 1) + "</Template></TXSYS>";
        QTest::addRow("nesting depth, %s", qPrintable(folder))
            << folder << document << Report::OverLimit << Limits::depth << 1
            << overLimit(Limits::depth, Limits::depth, "levels of nested elements");
    }
    const auto views = [](const QByteArray &before, const QByteArray &after) {
        QByteArray text;
        for (int i = 0; i <= Limits::views; ++i) {
            text += '\n' + before + QByteArray::number(i) + after;
        }
        return text;
    };
    const int last = Limits::views + 2;
    row("views, legacy", legacyFolder,
        "<TXSYS>" + views("<PROGVIEW><PV_PK>", "</PV_PK></PROGVIEW>") + "\n</no>", Report::OverLimit, last,
        overLimit(last, Limits::views, "views"));
    row("views, current", currentFolder, "<Template>" + views("<View Id='", "'/>") + "\n</no>",
        Report::OverLimit, last, overLimit(last, Limits::views, "views"));
}

void ReadingReportTest::contentIsReported()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const TemporaryTemplate file(folder, content);
    const RecordedLog log;
    const Loading loading(file.path());
    QCOMPARE(loading.report.reason(), reason);
    QCOMPARE(loading.report.message(), file.path() + QStringLiteral(": ") + reason);
    QTEST(loading.report.outcome(), "outcome");
    QTEST(loading.report.line(), "line");
    QTEST(loading.report.column(), "column");
    QCOMPARE(loading.report.format(),
             folder == currentFolder ? TemplateFormat::Current : TemplateFormat::Legacy);
}

void ReadingReportTest::pathIsReported_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Report::Outcome>("outcome");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << "missing.xml" << Report::NotFound << "does not exist";
    QTest::newRow("dangling link") << "dangling.xml" << Report::NotFound
                                   << "is a link to a file that does not exist";
    QTest::newRow("folder") << "folder.xml" << Report::NotARegularFile << "is a directory";
    QTest::newRow("pipe") << "pipe.xml" << Report::NotARegularFile << "is not a regular file";
    QTest::newRow("loop of links") << "loop.xml" << Report::Unreadable
                                   << "cannot be reached: Too many levels of symbolic links";
}

void ReadingReportTest::pathIsReported()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    for (const auto &folder : {legacyFolder, currentFolder}) {
        const QTemporaryDir temporary;
        const QDir directory(temporary.path());
        QVERIFY(directory.mkpath(folder + QStringLiteral("/folder.xml")));
        const QString base = directory.filePath(folder) + QLatin1Char('/');
        QCOMPARE(::mkfifo(QFile::encodeName(base + QStringLiteral("pipe.xml")).constData(), S_IRUSR), 0);
        QVERIFY(QFile::link(QStringLiteral("nowhere.xml"), base + QStringLiteral("dangling.xml")));
        QVERIFY(QFile::link(QStringLiteral("loop.xml"), base + QStringLiteral("loop.xml")));
        const RecordedLog log;
        const Loading loading(base + name);
        QVERIFY(!loading.isLoaded);
        QCOMPARE(loading.report.message(), base + name + QStringLiteral(": ") + reason);
        QTEST(loading.report.outcome(), "outcome");
        QCOMPARE(loading.report.line(), 0);
        QCOMPARE(loading.report.column(), 0);
    }
    const RecordedLog log;
    QCOMPARE(Loading(QString()).report.message(), QStringLiteral("\"\": the path is empty"));
}

void ReadingReportTest::flagsAreReported()
{
    const TemporaryTemplate file(legacyFolder, legacyDocument(QByteArray()));
    const RecordedLog log;
    const Loading loading(file.path(), CTemplateReader::ReaderFlags(2));
    QVERIFY(!loading.isLoaded);
    QCOMPARE(loading.report.outcome(), Report::FlagsNotSupported);
    QCOMPARE(loading.report.reason(), QStringLiteral("was not read: flags 2 are not supported"));
    QCOMPARE(log.lines().size(), 1);
}

void ReadingReportTest::resultAndLogAreThoseOfReadFile_data()
{
    contentIsReported_data();
}

void ReadingReportTest::resultAndLogAreThoseOfReadFile()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, content);
    const TemporaryTemplate file(folder, content);
    RecordedLog log;
    CCatalogTemplate *read = nullptr;
    const bool isLoaded = CTemplateReader::readFile(file.path(), noFlags, read);
    const std::unique_ptr<CCatalogTemplate> expected(read);
    const QList<LogLine> lines = log.lines();
    log.clear();
    const Loading loading(file.path());
    QCOMPARE(loading.isLoaded, isLoaded);
    QCOMPARE(loading.catalogTemplate != nullptr, expected != nullptr);
    QCOMPARE(log.lines(), lines);
    if (expected) {
        QCOMPARE(loading.catalogTemplate->uniqueId(), expected->uniqueId());
        QCOMPARE(loading.catalogTemplate->key(), expected->key());
        QCOMPARE(loading.catalogTemplate->itemListNames(), expected->itemListNames());
    }
}

void ReadingReportTest::reportOnNothing()
{
    const Report report;
    QCOMPARE(report.outcome(), Report::NotRead);
    QCOMPARE(report.message(), QStringLiteral("\"\": was not read"));
}

void ReadingReportTest::copyOutlivesItsOriginal()
{
    Report copy;
    {
        const RecordedLog log;
        const Loading loading(QStringLiteral("/no/such/file.xml"));
        copy = loading.report;
    }
    const Report another(copy);
    QCOMPARE(another.message(), QStringLiteral("/no/such/file.xml: does not exist"));
    QCOMPARE(another.outcome(), Report::NotFound);
}

void ReadingReportTest::formatFollowsFromThePath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<TemplateFormat>("format");
    QTest::newRow("folder") << "/data/templates_new/a.xml" << TemplateFormat::Current;
    QTest::newRow("folder above") << "/data/templates_new/b/a.xml" << TemplateFormat::Current;
    QTest::newRow("end of a name") << "my_templates_new/a.xml" << TemplateFormat::Current;
    QTest::newRow("relative") << "templates_new/a.xml" << TemplateFormat::Current;
    QTest::newRow("other folder") << "/data/templates/a.xml" << TemplateFormat::Legacy;
    QTest::newRow("capitals") << "/data/TEMPLATES_NEW/a.xml" << TemplateFormat::Legacy;
    QTest::newRow("backslash") << "C:\\templates_new\\a.xml" << TemplateFormat::Legacy;
    QTest::newRow("file name") << "/data/templates_new" << TemplateFormat::Legacy;
    QTest::newRow("empty") << QString() << TemplateFormat::Legacy;
}

void ReadingReportTest::formatFollowsFromThePath()
{
    QFETCH(QString, path);
    QTEST(CTemplateReader::formatOf(path), "format");
}

QTEST_GUILESS_MAIN(ReadingReportTest)
#include "ReadingReportTest.moc"
