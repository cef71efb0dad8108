#include "ToolDocuments.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString tool = QStringLiteral(TOBRIX_TEMPLATE_TOOL);
const QString legacySample = QStringLiteral(TOBRIX_SOURCE_DIR "/samples/templates/sewer-metric.xml");
const QString currentSample = QStringLiteral(TOBRIX_SOURCE_DIR "/samples/templates_new/sewer-metric.xml");

/// What a run of the tool left.
struct Run
{
    int exitStatus = -1;
    QByteArray output;
    QByteArray errors;
};

/// A process that has no more rights than any user: root may read everything.
class UnprivilegedProcess : public QProcess
{
protected:
    void setupChildProcess() override
    {
        constexpr uid_t nobody = 65534;
        if (::geteuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0)) {
            ::_exit(99);
        }
    }
};

Run finished(QProcess &process, const QStringList &arguments)
{
    process.start(tool, arguments);
    process.closeWriteChannel();
    constexpr int patience = 120000;
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        return {-1, process.readAllStandardOutput(), process.readAllStandardError()};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

Run run(const QStringList &arguments, const QString &locale = QStringLiteral("C.UTF-8"))
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), locale);
    process.setProcessEnvironment(environment);
    return finished(process, arguments);
}

void writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), qPrintable(path));
}

QByteArray complaint(const QString &path, const QByteArray &reason)
{
    return "tobrix-template: " + path.toUtf8() + ": " + reason + '\n';
}

} // namespace

class CommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void samplesLoadWithoutComplaint_data();
    void samplesLoadWithoutComplaint();
    void wrongUsageEndsWithTwo_data();
    void wrongUsageEndsWithTwo();
    void helpAndVersionGoToStandardOutput_data();
    void helpAndVersionGoToStandardOutput();
    void faultyDocumentIsDiagnosed_data();
    void faultyDocumentIsDiagnosed();
    void rawRecordOfUnknownViewIsNoFault();
    void malformedCurrentFileShowsWhatThereIs();
    void pathThatCannotBeReadIsDiagnosed_data();
    void pathThatCannotBeReadIsDiagnosed();
    void fileWithoutPermissionIsNotReadable();
    void severalFilesAreAllShownThoughOneFails();
    void jsonIsOneCompactLineAFile();
    void runsAreEqual();
    void anyPathWorks_data();
    void anyPathWorks();
    void fileNameMayLookLikeAnOption();
    void formatIsThatOfTheWholePath();
    void formatCanBeOverruled_data();
    void formatCanBeOverruled();
    void qtParserGivesTheSame();
    void hostConfigurationIsUsed_data();
    void hostConfigurationIsUsed();
    void brokenHostConfigurationIsWrongUsage_data();
    void brokenHostConfigurationIsWrongUsage();
    void logStaysOffStandardError();
    void fullDiskIsNoticed();
};

void CommandTest::samplesLoadWithoutComplaint_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("file");
    const QStringList text{QStringLiteral("show")};
    const QStringList json{QStringLiteral("show"), QStringLiteral("--json")};
    const QStringList raw{QStringLiteral("show"), QStringLiteral("--json"), QStringLiteral("--raw")};
    QTest::newRow("legacy, text") << text << legacySample;
    QTest::newRow("current, text") << text << currentSample;
    QTest::newRow("legacy, JSON") << json << legacySample;
    QTest::newRow("current, JSON") << json << currentSample;
    QTest::newRow("legacy, raw record") << raw << legacySample;
    QTest::newRow("current, raw record") << raw << currentSample;
}

void CommandTest::samplesLoadWithoutComplaint()
{
    QFETCH(QStringList, options);
    QFETCH(QString, file);
    const Run result = run(options + QStringList{file});
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.exitStatus, 0);
    QVERIFY2(result.output.contains("Foul water"), result.output.constData());
}

void CommandTest::wrongUsageEndsWithTwo_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("nothing") << "" << QByteArray("There is no command.\n");
    QTest::newRow("unknown command") << "shwo x.xml" << QByteArray("There is no command \"shwo\".\n");
    QTest::newRow("no file") << "show" << QByteArray("There is no file to show.\n");
    QTest::newRow("unknown option") << "--colour show x.xml" << QByteArray("Unknown option 'colour'.\n");
    QTest::newRow("unknown option of show")
        << "show --colour x.xml" << QByteArray("Unknown option 'colour'.\n");
    QTest::newRow("raw without JSON") << "show --raw x.xml" << QByteArray("--raw goes with --json only.\n");
    QTest::newRow("unknown format")
        << "show --as new x.xml"
        << QByteArray("There is no template format \"new\", only these: legacy, current.\n");
    QTest::newRow("standard input of no format")
        << "show -" << QByteArray("Standard input has no path: say its format with --as.\n");
    QTest::newRow("option without value")
        << "show x.xml --host-config" << QByteArray("Missing value after '--host-config'.\n");
}

void CommandTest::wrongUsageEndsWithTwo()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, message);
    const Run result = run(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(result.exitStatus, 2);
    QCOMPARE(result.output, QByteArray());
    QVERIFY2(result.errors.startsWith("tobrix-template: " + message), result.errors.constData());
    QVERIFY2(result.errors.contains("--help\""), result.errors.constData());
}

void CommandTest::helpAndVersionGoToStandardOutput_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("--help") << "--help" << QByteArray("Usage: tobrix-template [options] COMMAND");
    QTest::newRow("-h") << "-h" << QByteArray("  show   print templates");
    QTest::newRow("show --help") << "show --help"
                                 << QByteArray("Usage: tobrix-template show [options] FILE…\n");
    QTest::newRow("show --help tells the options") << "show --help" << QByteArray("--host-config <FILE>");
    QTest::newRow("--version") << "--version" << QByteArray("tobrix-template 1.");
    QTest::newRow("-v") << "-v" << QByteArray("tobrix-template 1.");
}

void CommandTest::helpAndVersionGoToStandardOutput()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, expected);
    const Run result = run(arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.exitStatus, 0);
    QCOMPARE(result.errors, QByteArray());
    QVERIFY2(result.output.contains(expected), result.output.constData());
}

void CommandTest::faultyDocumentIsDiagnosed_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QByteArray>("reason");
    const QString legacy = QStringLiteral("templates");
    const QString current = QStringLiteral("templates_new");
    QTest::newRow("legacy, empty") << legacy << QByteArray()
                                   << QByteArray(
                                          "not well-formed at line 1, column 1: Premature end of document");
    QTest::newRow("legacy, tags do not match")
        << legacy << QByteArray("<TobrixTemplate>\n  <TXSYS></TobrixTemplate>\n")
        << QByteArray("not well-formed at line 2, column 10: </TobrixTemplate> does not match <TXSYS>, "
                      "which was opened in line 2");
    QTest::newRow("legacy, ends within a section")
        << legacy << QByteArray("<TobrixTemplate>\n<SYSCOL>\n<COL_PK>")
        << QByteArray("not well-formed at line 3, column 9: <COL_PK> of line 3 is not closed");
    QTest::newRow("legacy, list item without list")
        << legacy << QByteArray("<TXSYS>\n<SYSLIST>\n<LIST_Item>a</LIST_Item>\n</SYSLIST></TXSYS>")
        << QByteArray("the list item at line 2 names no list (LIST_Name)");
    QTest::newRow("legacy, list item without list before another fault")
        << legacy << QByteArray("<TXSYS><SYSLIST></SYSLIST>\n</wrong>")
        << QByteArray("the list item at line 1 names no list (LIST_Name)");
    QTest::newRow("legacy, column of no view")
        << legacy
        << legacyDocument("<SYSCOL><COL_ProgView_FK>v9</COL_ProgView_FK><COL_Caption>Länge</COL_Caption>"
                          "<TDIR_Key>SECTION</TDIR_Key><COL_Bound_Column>OBJ_Length</COL_Bound_Column>"
                          "<COL_DataType>DEC</COL_DataType></SYSCOL>")
        << QByteArray("column \"Länge\" (SECTION.OBJ_Length) at line 1 belongs to view \"v9\", which the "
                      "file does not have");
    QTest::newRow("legacy, columns of no view")
        << legacy
        << legacyDocument(
               "<SYSCOL><COL_Caption>First</COL_Caption><COL_DataType>TXT</COL_DataType></SYSCOL>"
               "<SYSCOL><COL_Caption>Second</COL_Caption><COL_DataType>TXT</COL_DataType></SYSCOL>")
        << QByteArray(
               "column \"First\" at line 1 and 1 more belong to view \"\", which the file does not have");
    QTest::newRow("legacy, control characters in a name")
        << legacy
        << legacyDocument(
               "<SYSCOL><COL_ProgView_FK>a&#10;b</COL_ProgView_FK><COL_DataType>TXT</COL_DataType></SYSCOL>")
        << QByteArray(
               "a column without caption at line 1 belongs to view \"a\\nb\", which the file does not have");
    QTest::newRow("current, empty") << current << QByteArray()
                                    << QByteArray(
                                           "not well-formed at line 1, column 1: unexpected end of file; "
                                           "what follows was lost");
    QTest::newRow("current, tags do not match")
        << current << QByteArray("<Template>\n<Name>A</Nam>\n</Template>")
        << QByteArray("not well-formed at line 2, column 8: </Nam> does not match <Name>, which was opened "
                      "in line 2; what follows was lost");
}

void CommandTest::faultyDocumentIsDiagnosed()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, document);
    QFETCH(QByteArray, reason);
    const TemporaryTemplate file(folder, document);
    for (const auto &options : {QStringList{QStringLiteral("show")},
                                QStringList{QStringLiteral("show"), QStringLiteral("--json")}}) {
        const Run result = run(options + QStringList{file.path()});
        QCOMPARE(result.errors, complaint(file.path(), reason));
        QCOMPARE(result.exitStatus, 1);
    }
}

void CommandTest::rawRecordOfUnknownViewIsNoFault()
{
    const TemporaryTemplate file(QStringLiteral("templates"), legacyDocument(legacyColumn("TXT")));
    const Run result =
        run({QStringLiteral("show"), QStringLiteral("--json"), QStringLiteral("--raw"), file.path()});
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.exitStatus, 0);
}

void CommandTest::malformedCurrentFileShowsWhatThereIs()
{
    const TemporaryTemplate file(QStringLiteral("templates_new"),
                                 "<Template><Name>Kept</Name><View Id=\"1\" Name=\"Whole\"/><View Id=\"2\"");
    const Run text = run({QStringLiteral("show"), file.path()});
    QCOMPARE(text.exitStatus, 1);
    QVERIFY2(text.output.contains("Template Kept\n"), text.output.constData());
    QVERIFY2(text.output.contains("View Whole"), text.output.constData());
    QVERIFY2(text.errors.contains("not well-formed at line 1"), text.errors.constData());
    QVERIFY2(text.errors.endsWith("what follows was lost\n"), text.errors.constData());

    const Run json = run({QStringLiteral("show"), QStringLiteral("--json"), file.path()});
    QCOMPARE(json.exitStatus, 1);
    QCOMPARE(QJsonDocument::fromJson(json.output)[QLatin1String("ok")], QJsonValue(true));
}

void CommandTest::pathThatCannotBeReadIsDiagnosed_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("reason");
    // The reason does not depend on the format.
    for (const auto &folder : {QStringLiteral("templates/"), QStringLiteral("templates_new/")}) {
        const auto row = [&](const char *name, const QByteArray &reason) {
            QTest::newRow((folder.toLatin1() + name).constData())
                << folder + QString::fromLatin1(name) << reason;
        };
        row("missing.xml", "does not exist");
        row("folder.xml", "is a directory");
        row("pipe.xml", "is not a regular file");
        row("device.xml", "is not a regular file");
        row("dangling.xml", "is a link to a file that does not exist");
        row("plain.xml/below.xml", "cannot be reached: Not a directory");
        row("loop.xml", "cannot be reached: Too many levels of symbolic links");
    }
    QTest::newRow("empty path") << QString() << QByteArray("the path is empty");
    QTest::newRow("resource") << ":/no/such/resource.xml" << QByteArray("there is no such resource");
}

void CommandTest::pathThatCannotBeReadIsDiagnosed()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, reason);
    const QTemporaryDir directory;
    for (const auto &folder : {QStringLiteral("/templates/"), QStringLiteral("/templates_new/")}) {
        const QString base = directory.path() + folder;
        QVERIFY(QDir().mkpath(base + QStringLiteral("folder.xml")));
        writeFile(base + QStringLiteral("plain.xml"), "<a/>");
        QCOMPARE(::mkfifo(QFile::encodeName(base + QStringLiteral("pipe.xml")).constData(), 0600), 0);
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), base + QStringLiteral("device.xml")));
        QVERIFY(QFile::link(QStringLiteral("nowhere.xml"), base + QStringLiteral("dangling.xml")));
        QVERIFY(QFile::link(QStringLiteral("loop.xml"), base + QStringLiteral("loop.xml")));
    }
    const bool isBelowDirectory = path.startsWith(QLatin1String("templates"));
    const QString fullPath = isBelowDirectory ? directory.filePath(path) : path;
    const Run result = run({QStringLiteral("show"), fullPath});
    QCOMPARE(result.errors, complaint(path.isEmpty() ? QStringLiteral("\"\"") : fullPath, reason));
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.exitStatus, 1);
}

void CommandTest::fileWithoutPermissionIsNotReadable()
{
    const QTemporaryDir directory;
    QCOMPARE(::chmod(QFile::encodeName(directory.path()).constData(), 0755), 0);
    const QString path = directory.filePath(QStringLiteral("secret.xml"));
    writeFile(path, "<TobrixTemplate/>");
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0), 0);
    UnprivilegedProcess process;
    const Run result = finished(process, {QStringLiteral("show"), path});
    QCOMPARE(result.errors, complaint(path, "is not readable: Permission denied"));
    QCOMPARE(result.exitStatus, 1);
}

void CommandTest::severalFilesAreAllShownThoughOneFails()
{
    const Run result =
        run({QStringLiteral("show"), legacySample, QStringLiteral("/no/such/file.xml"), currentSample});
    QCOMPARE(result.exitStatus, 1);
    QCOMPARE(result.output.count("Template Sewer\n"), 2);
    QCOMPARE(result.errors, complaint(QStringLiteral("/no/such/file.xml"), "does not exist"));
}

void CommandTest::jsonIsOneCompactLineAFile()
{
    const QStringList files{legacySample, QStringLiteral("/no/such/file.xml"), currentSample};
    const Run result = run(QStringList{QStringLiteral("show"), QStringLiteral("--json")} + files);
    QCOMPARE(result.exitStatus, 1);
    const auto lines = result.output.split('\n');
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.last(), QByteArray());
    for (int i = 0; i < files.size(); ++i) {
        const QJsonDocument document = QJsonDocument::fromJson(lines.at(i));
        QCOMPARE(document[QLatin1String("file")].toString(), files.at(i));
        QCOMPARE(document[QLatin1String("ok")].toBool(), i != 1);
        QCOMPARE(document.toJson(QJsonDocument::Compact), lines.at(i));
    }
}

void CommandTest::runsAreEqual()
{
    for (const auto &options :
         {QStringList{QStringLiteral("show")}, QStringList{QStringLiteral("show"), QStringLiteral("--json")},
          QStringList{QStringLiteral("show"), QStringLiteral("--json"), QStringLiteral("--raw")}}) {
        const QStringList arguments = options + QStringList{legacySample, currentSample};
        const Run first = run(arguments);
        // Qt seeds its hashes anew in every process.
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(run(arguments).output, first.output);
        }
    }
}

void CommandTest::anyPathWorks_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("locale");
    for (const auto &locale : {QStringLiteral("C.UTF-8"), QStringLiteral("C")}) {
        const auto row = [&](const char *name, const char *fileName) {
            QTest::newRow((locale.toLatin1() + ", " + name).constData())
                << QString::fromUtf8(fileName) << locale;
        };
        row("blanks", " two words.xml");
        row("umlauts", "Größe.xml");
        row("wide characters", "口径/😀.xml");
        row("quotes", "it's \"it\".xml");
    }
}

void CommandTest::anyPathWorks()
{
    QFETCH(QString, name);
    QFETCH(QString, locale);
    const QTemporaryDir directory;
    // Written with the bytes of UTF-8, whatever the locale of this process.
    const QString path = directory.path() + QStringLiteral("/ä b/") + name;
    writeFile(path, legacyDocument("<SYSTPL><TPL_Key>Schlüssel</TPL_Key></SYSTPL>"));
    const Run text = run({QStringLiteral("show"), path}, locale);
    QCOMPARE(text.errors, QByteArray());
    QCOMPARE(text.exitStatus, 0);
    QVERIFY2(text.output.contains("Template Schlüssel\n"), text.output.constData());
    QVERIFY2(text.output.contains(path.toUtf8()), text.output.constData());

    const Run json = run({QStringLiteral("show"), QStringLiteral("--json"), path}, locale);
    QCOMPARE(QJsonDocument::fromJson(json.output)[QLatin1String("file")].toString(), path);

    const Run missing = run({QStringLiteral("show"), path + QLatin1Char('x')}, locale);
    QCOMPARE(missing.errors, complaint(path + QLatin1Char('x'), "does not exist"));
}

void CommandTest::fileNameMayLookLikeAnOption()
{
    const Run result = run({QStringLiteral("show"), QStringLiteral("--"), QStringLiteral("--raw")});
    QCOMPARE(result.errors, complaint(QStringLiteral("--raw"), "does not exist"));
    QCOMPARE(result.exitStatus, 1);
}

void CommandTest::formatIsThatOfTheWholePath()
{
    const QTemporaryDir directory;
    const QString folder = directory.filePath(QStringLiteral("templates_new"));
    writeFile(folder + QStringLiteral("/a.xml"), currentDocument("<Name>Key</Name>"));
    QProcess process;
    process.setWorkingDirectory(folder);
    const Run result = finished(process, {QStringLiteral("show"), QStringLiteral("a.xml")});
    QVERIFY2(result.output.contains("Template Key\n"), result.output.constData());
    QVERIFY2(result.output.contains("a.xml (current format)"), result.output.constData());
    QVERIFY2(!result.output.contains("templates_new"), result.output.constData());
}

void CommandTest::formatCanBeOverruled_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("document");
    const QByteArray legacy = legacyDocument("<SYSTPL><TPL_Key>Key</TPL_Key></SYSTPL>");
    const QByteArray current = currentDocument("<Name>Key</Name>");
    QTest::newRow("current") << "templates"
                             << "current" << current;
    QTest::newRow("legacy") << "templates_new"
                            << "legacy" << legacy;
    QTest::newRow("current, standard input") << QString() << "current" << current;
    QTest::newRow("legacy, standard input") << QString() << "legacy" << legacy;
}

void CommandTest::formatCanBeOverruled()
{
    QFETCH(QString, folder);
    QFETCH(QString, format);
    QFETCH(QByteArray, document);
    const TemporaryTemplate file(folder.isEmpty() ? QStringLiteral("input") : folder, document);
    const QString name = folder.isEmpty() ? QStringLiteral("-") : file.path();
    for (const auto &command : {QStringLiteral("show"), QStringLiteral("check")}) {
        QProcess process;
        if (folder.isEmpty()) {
            process.setStandardInputFile(file.path());
        }
        const Run result = finished(process, {command, QStringLiteral("--as"), format, name});
        const QByteArray expected = command == QLatin1String("show") ? "Template Key\n" : "1 file checked";
        QVERIFY2(result.output.contains(expected), result.output.constData());
        QVERIFY2(!result.output.contains("[wrong-folder]"), result.output.constData());
        QCOMPARE(result.errors, QByteArray());
    }
}

void CommandTest::qtParserGivesTheSame()
{
    for (const auto &file : {legacySample, currentSample}) {
        const QStringList show{QStringLiteral("show"), QStringLiteral("--json"), QStringLiteral("--raw")};
        const Run expected = run(show + QStringList{file});
        QVERIFY(expected.output.contains("Foul water"));
        QCOMPARE(run(show + QStringList{QStringLiteral("--qt-parser"), file}).output, expected.output);
    }
    QVERIFY(!run({QStringLiteral("show"), QStringLiteral("--help")}).output.contains("qt-parser"));
}

void CommandTest::hostConfigurationIsUsed_data()
{
    QTest::addColumn<bool>("isBeforeCommand");
    QTest::newRow("before the command") << true;
    QTest::newRow("behind the command") << false;
}

void CommandTest::hostConfigurationIsUsed()
{
    QFETCH(bool, isBeforeCommand);
    const QTemporaryDir directory;
    const QString configuration = directory.filePath(QStringLiteral("my host.json"));
    writeFile(configuration, "{\"templates\": {\"my-id\": \"MINE\"}, \"tables\": {\"PIPES\": 5}}");
    const TemporaryTemplate file(
        QStringLiteral("templates"),
        legacyDocument(
            "<SYSTPL><TPL_PK>my-id</TPL_PK></SYSTPL><PROGVIEW><PV_PK>v1</PV_PK></PROGVIEW>" +
            legacyColumn("TXT", "<TDIR_Key>PIPES</TDIR_Key><COL_Bound_Column>OBJ_Type</COL_Bound_Column>")));
    const QStringList option{QStringLiteral("--host-config"), configuration};
    const QStringList command{QStringLiteral("show"), QStringLiteral("--json")};
    const Run result =
        run((isBeforeCommand ? option + command : command + option) + QStringList{file.path()});
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.exitStatus, 0);
    const QJsonDocument json = QJsonDocument::fromJson(result.output);
    QCOMPARE(json[QLatin1String("template")][QLatin1String("type")].toString(), QStringLiteral("MINE"));
    const QJsonValue column = json[QLatin1String("views")][0][QLatin1String("columns")][0];
    QCOMPARE(column[QLatin1String("defaultValue")][QLatin1String("value")].toString(), QStringLiteral("NOD"));
}

void CommandTest::brokenHostConfigurationIsWrongUsage_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("missing") << QByteArray() << QByteArray("No such file or directory");
    QTest::newRow("not JSON") << QByteArray("{\n  templates") << QByteArray("not valid JSON, line 2");
    QTest::newRow("wrong shape") << QByteArray("{\"tables\": {\"NODE\": \"four\"}}")
                                 << QByteArray("the type of table \"NODE\" must be a whole number");
}

void CommandTest::brokenHostConfigurationIsWrongUsage()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, reason);
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("host.json"));
    if (!content.isNull()) {
        writeFile(path, content);
    }
    const Run result = run({QStringLiteral("show"), QStringLiteral("--host-config"), path, legacySample});
    QCOMPARE(result.exitStatus, 2);
    QCOMPARE(result.output, QByteArray());
    QVERIFY2(result.errors.startsWith("tobrix-template: " + path.toUtf8() + ": " + reason),
             result.errors.constData());
}

void CommandTest::logStaysOffStandardError()
{
    const Run result = run({QStringLiteral("show"), legacySample});
    QVERIFY2(!result.errors.contains("templates version"), result.errors.constData());
    QVERIFY2(!result.output.contains("templates version"), result.output.constData());
}

void CommandTest::fullDiskIsNoticed()
{
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    const Run result = finished(process, {QStringLiteral("show"), legacySample});
    QCOMPARE(result.exitStatus, 1);
    QVERIFY2(result.errors.startsWith("tobrix-template: standard output: "), result.errors.constData());
}

int main(int argc, char *argv[])
{
    // File names are UTF-8 here, also where the tests run without a locale.
    qputenv("LC_ALL", "C.UTF-8");
    QCoreApplication application(argc, argv);
    CommandTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "CommandTest.moc"
