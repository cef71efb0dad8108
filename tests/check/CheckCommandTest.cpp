#include "tools/check/rules/RuleTable.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString checkFolder = QStringLiteral(TOBRIX_SOURCE_DIR "/tests/check/");

struct Run
{
    int exitStatus = -1;
    QByteArray output;
    QByteArray errors;
};

Run run(const QStringList &arguments, const QString &folder = checkFolder)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.start(QStringLiteral(TOBRIX_TEMPLATE_TOOL), QStringList{QStringLiteral("check")} + arguments);
    constexpr int patience = 120000;
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

using Preparation = std::function<bool(const QString &path)>;

void copyInto(const QTemporaryDir &folder, const QString &document, const QString &name)
{
    const QString target = folder.filePath(name);
    QVERIFY(QDir().mkpath(QFileInfo(target).path()));
    QVERIFY(QFile::copy(checkFolder + document, target));
}

} // namespace

Q_DECLARE_METATYPE(Preparation)

class CheckCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exitStatusSaysHowBadItIs_data();
    void exitStatusSaysHowBadItIs();
    void wrongUsageEndsWithTwo_data();
    void wrongUsageEndsWithTwo();
    void unreadableFileKeepsNoOtherFromBeingChecked();
    void folderIsSearchedInTheOrderOfNames();
    void formatIsThatOfTheWholePath_data();
    void formatIsThatOfTheWholePath();
    void folderWithoutTemplatesIsComplainedAbout();
    void whatIsNoFileInAFolderIsComplainedAbout_data();
    void whatIsNoFileInAFolderIsComplainedAbout();
    void linkToAFolderIsNotFollowed();
    void everyFormatIsPrinted_data();
    void everyFormatIsPrinted();
    void colourAndProgressStayOutOfFiles();
    void rulesAreListedOneALine();
    void everyRuleIsExplained_data();
    void everyRuleIsExplained();
    void hostConfigurationCounts();
};

void CheckCommandTest::exitStatusSaysHowBadItIs_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::newRow("nothing found") << words("templates/not-a-number.near-miss.xml") << 0;
    QTest::newRow("a note") << words("templates/legend-gap.xml") << 0;
    QTest::newRow("a note, strictly") << words("--strict templates/legend-gap.xml") << 0;
    QTest::newRow("a warning") << words("templates/range-empty.xml") << 0;
    QTest::newRow("a warning, strictly") << words("--strict templates/range-empty.xml") << 1;
    QTest::newRow("an error") << words("templates/not-a-number.xml") << 1;
    QTest::newRow("an error of a rule that is left out")
        << words("--disable not-a-number templates/not-a-number.xml") << 0;
    QTest::newRow("rules left out in two ways")
        << words(
               "--disable legend-gap,not-a-number --disable range-empty --strict templates/not-a-number.xml "
               "templates/range-empty.xml templates/legend-gap.xml")
        << 0;
    QTest::newRow("a file that is missing") << words("missing.xml") << 2;
    QTest::newRow("a file that is missing beside an error")
        << words("missing.xml templates/not-a-number.xml") << 2;
}

void CheckCommandTest::exitStatusSaysHowBadItIs()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    const Run result = run(arguments);
    QVERIFY2(result.exitStatus == status, (result.output + result.errors).constData());
}

void CheckCommandTest::wrongUsageEndsWithTwo_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no file") << QStringList() << QByteArray("There is no file to check.");
    QTest::newRow("unknown rule") << words("--disable not-a-rule x.xml")
                                  << QByteArray("There is no rule \"not-a-rule\".");
    QTest::newRow("unknown rule to explain")
        << words("--explain not-a-rule") << QByteArray("There is no rule \"not-a-rule\".");
    QTest::newRow("unknown format") << words("--format html x.xml")
                                    << QByteArray("There is no format \"html\": text, json and sarif are.");
    QTest::newRow("unknown option") << words("--fix x.xml") << QByteArray("Unknown option 'fix'.");
}

void CheckCommandTest::wrongUsageEndsWithTwo()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const Run result = run(arguments);
    QCOMPARE(result.exitStatus, 2);
    QCOMPARE(result.output, QByteArray());
    QVERIFY2(result.errors.startsWith("tobrix-template: " + message + '\n'), result.errors.constData());
}

void CheckCommandTest::unreadableFileKeepsNoOtherFromBeingChecked()
{
    const Run result = run(words("missing.xml templates/not-a-number.xml"));
    QCOMPARE(result.errors, QByteArray("tobrix-template: missing.xml: does not exist\n"));
    QVERIFY2(result.output.contains("[not-a-number]\n1 file checked: 1 error"), result.output.constData());
}

void CheckCommandTest::folderIsSearchedInTheOrderOfNames()
{
    const QTemporaryDir folder;
    copyInto(folder, QStringLiteral("templates/range-empty.xml"), QStringLiteral("f/c.xml"));
    copyInto(folder, QStringLiteral("templates/not-a-number.xml"), QStringLiteral("f/a.xml"));
    copyInto(folder, QStringLiteral("templates_new/default-unused.xml"),
             QStringLiteral("f/b/templates_new/x.xml"));
    copyInto(folder, QStringLiteral("templates/legend-gap.xml"), QStringLiteral("f/legend-gap.txt"));
    const Run result = run({QStringLiteral("f")}, folder.path());
    const int first = result.output.indexOf("f/a.xml:");
    const int second = result.output.indexOf("f/b/templates_new/x.xml:");
    const int third = result.output.indexOf("f/c.xml:");
    QVERIFY2(first == 0 && second > first && third > second, result.output.constData());
    QVERIFY2(result.output.endsWith("3 files checked: 1 error, 2 warnings, 0 notes\n"),
             result.output.constData());
}

void CheckCommandTest::formatIsThatOfTheWholePath_data()
{
    QTest::addColumn<QString>("standingIn");
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QByteArray>("output");
    const auto row = [](const char *name, const char *standingIn, const char *argument, const char *output) {
        QTest::newRow(name) << QString::fromLatin1(standingIn) << QString::fromLatin1(argument)
                            << QByteArray(output);
    };
    const char *nothing = "1 file checked, nothing found\n";
    row("within the current one's folder", "templates_new", "x.xml", nothing);
    row("the folder itself", "templates_new", ".", nothing);
    row("below it", "templates_new/area", "..", nothing);
    row("within the legacy one's folder", "templates", "x.xml", nothing);
    row("from one to the other", "templates", "../templates_new/x.xml", nothing);
    row("and back", "templates_new", "../templates/x.xml", nothing);
    row("a legacy one in the wrong folder", "templates_new/area", "wrong.txt", "wrong.txt:2:1: error: ");
}

void CheckCommandTest::formatIsThatOfTheWholePath()
{
    QFETCH(QString, standingIn);
    QFETCH(QString, argument);
    QFETCH(QByteArray, output);
    const QTemporaryDir folder;
    copyInto(folder, QStringLiteral("templates/not-a-number.near-miss.xml"),
             QStringLiteral("templates/x.xml"));
    copyInto(folder, QStringLiteral("templates/not-a-number.near-miss.xml"),
             QStringLiteral("templates_new/area/wrong.txt"));
    copyInto(folder, QStringLiteral("templates_new/not-a-number.near-miss.xml"),
             QStringLiteral("templates_new/x.xml"));
    const Run result = run({argument}, folder.filePath(standingIn));
    QVERIFY2(result.output.startsWith(output), result.output.constData());
}

void CheckCommandTest::folderWithoutTemplatesIsComplainedAbout()
{
    const QTemporaryDir folder;
    const Run result = run({folder.path()});
    QCOMPARE(result.exitStatus, 2);
    QCOMPARE(result.errors, "tobrix-template: " + folder.path().toUtf8() + ": holds no *.xml file\n");
}

void CheckCommandTest::whatIsNoFileInAFolderIsComplainedAbout_data()
{
    QTest::addColumn<Preparation>("prepare");
    QTest::addColumn<bool>("isAboutPermission");
    QTest::addColumn<QByteArray>("complaint");
    QTest::newRow("a link that leads nowhere")
        << Preparation([](const QString &path) { return QFile::link(QStringLiteral("nowhere"), path); })
        << false << QByteArray("is a link to a file that does not exist");
    QTest::newRow("a pipe") << Preparation([](const QString &path) {
        return ::mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR) == 0;
    }) << false << QByteArray("is not a regular file");
    QTest::newRow("a link to a device")
        << Preparation([](const QString &path) { return QFile::link(QStringLiteral("/dev/zero"), path); })
        << false << QByteArray("is not a regular file");
    QTest::newRow("a file without permission") << Preparation([](const QString &path) {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.setPermissions(QFileDevice::Permissions());
    }) << true << QByteArray("is not readable: Permission denied");
    QTest::newRow("a folder without permission") << Preparation([](const QString &path) {
        return QDir().mkdir(path) && QFile::setPermissions(path, QFileDevice::Permissions());
    }) << true << QByteArray("cannot be searched");
}

void CheckCommandTest::whatIsNoFileInAFolderIsComplainedAbout()
{
    QFETCH(Preparation, prepare);
    QFETCH(bool, isAboutPermission);
    QFETCH(QByteArray, complaint);
    const QTemporaryDir folder;
    copyInto(folder, QStringLiteral("templates/not-a-number.xml"), QStringLiteral("f/z.xml"));
    const QString path = folder.filePath(QStringLiteral("f/a.xml"));
    QVERIFY(prepare(path));
    if (isAboutPermission && ::geteuid() == 0) {
        QSKIP("nothing is forbidden to this user");
    }
    const Run result = run({QStringLiteral("f")}, folder.path());
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QCOMPARE(result.errors, "tobrix-template: f/a.xml: " + complaint + '\n');
    QCOMPARE(result.exitStatus, 2);
    QVERIFY2(result.output.startsWith("f/z.xml:"), result.output.constData());
}

void CheckCommandTest::linkToAFolderIsNotFollowed()
{
    const QTemporaryDir folder;
    copyInto(folder, QStringLiteral("templates/legend-gap.xml"), QStringLiteral("f/z.xml"));
    copyInto(folder, QStringLiteral("templates/not-a-number.xml"), QStringLiteral("g/z.xml"));
    QVERIFY(QFile::link(QStringLiteral("../g"), folder.filePath(QStringLiteral("f/g.xml"))));
    const Run result = run({QStringLiteral("f")}, folder.path());
    QCOMPARE(result.errors, QByteArray());
    QVERIFY2(result.output.endsWith("1 file checked: 0 errors, 0 warnings, 1 note\n"),
             result.output.constData());
}

void CheckCommandTest::everyFormatIsPrinted_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("member");
    QTest::newRow("json") << "json"
                          << "files";
    QTest::newRow("sarif") << "sarif"
                           << "runs";
}

void CheckCommandTest::everyFormatIsPrinted()
{
    QFETCH(QString, format);
    QFETCH(QString, member);
    const Run result =
        run({QStringLiteral("--format"), format, QStringLiteral("templates/not-a-number.xml")});
    QCOMPARE(result.exitStatus, 1);
    QJsonParseError error;
    const QJsonObject json = QJsonDocument::fromJson(result.output, &error).object();
    QCOMPARE(error.errorString(), QStringLiteral("no error occurred"));
    QVERIFY(json.contains(member));
}

void CheckCommandTest::colourAndProgressStayOutOfFiles()
{
    const Run result = run(words("templates templates_new"));
    QVERIFY(!result.output.isEmpty());
    QVERIFY(!result.output.contains('\033'));
    QCOMPARE(result.errors, QByteArray());
}

void CheckCommandTest::rulesAreListedOneALine()
{
    const Run result = run(words("--list-rules"));
    QCOMPARE(result.exitStatus, 0);
    const auto &rules = Tobrix::Tools::allRules();
    QCOMPARE(result.output.count('\n'), static_cast<int>(rules.size()));
    for (const auto &rule : rules) {
        QVERIFY2(('\n' + result.output).contains(QByteArray("\n") + rule.id + ' '), rule.id);
    }
}

void CheckCommandTest::everyRuleIsExplained_data()
{
    QTest::addColumn<QString>("id");
    for (const auto &rule : Tobrix::Tools::allRules()) {
        QTest::newRow(rule.id) << QString(QLatin1String(rule.id));
    }
}

void CheckCommandTest::everyRuleIsExplained()
{
    QFETCH(QString, id);
    const Run result = run({QStringLiteral("--explain"), id});
    QCOMPARE(result.exitStatus, 0);
    QVERIFY2(result.output.startsWith(id.toUtf8() + ": "), result.output.constData());
    QVERIFY2(result.output.contains("\n\nWrong:\n    ") && result.output.contains("\nRight:\n    "),
             result.output.constData());
    const QList<QByteArray> lines = result.output.left(result.output.indexOf("\n\nWrong:")).split('\n');
    for (const auto &line : lines.mid(1)) {
        QVERIFY2(line.size() <= 100, line.constData());
    }
}

void CheckCommandTest::hostConfigurationCounts()
{
    const QTemporaryDir folder;
    QFile configuration(folder.filePath(QStringLiteral("host.json")));
    QVERIFY(configuration.open(QIODevice::WriteOnly));
    configuration.write("{\"templates\": {\"STW-EU\": \"STORMWATER\"}}");
    configuration.close();
    const Run without = run(words("templates_new/type-empty.xml"));
    QVERIFY(without.output.contains("[type-empty]"));
    const Run with = run({QStringLiteral("--host-config"), configuration.fileName(),
                          QStringLiteral("templates_new/type-empty.xml")});
    QCOMPARE(with.output, QByteArray("1 file checked, nothing found\n"));
}

QTEST_GUILESS_MAIN(CheckCommandTest)
#include "CheckCommandTest.moc"
