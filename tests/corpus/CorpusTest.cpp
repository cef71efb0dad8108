#include "tools/json/FileJson.h"

#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

using namespace Tobrix::Tools;

// The corpus: small documents, each about one rule of its format, which its name states. Beside every
// name.xml stand the template that it makes, name.json, and the record that its reader fills, name.raw.json.

namespace {

const QLatin1String formatFolders[] = {QLatin1String("templates"), QLatin1String("templates_new")};
constexpr int fewestDocuments = 60;

const QLatin1String documentSuffix(".xml");

struct Expectation
{
    QLatin1String suffix;
    QJsonObject (*describe)(const QString &fileName);
};

// A suffix stands before those that it ends with.
const Expectation expectations[] = {
    {QLatin1String(".raw.json"), describeRawData},
    {QLatin1String(".json"), describeTemplate},
};

/// The files of a folder of the corpus that end in a suffix, as paths within the corpus.
QStringList filesIn(const QString &folder, QLatin1String suffix)
{
    QStringList files = QDir(folder).entryList({QLatin1Char('*') + suffix}, QDir::Files, QDir::Name);
    for (auto &file : files) {
        file.prepend(folder + QLatin1Char('/'));
    }
    return files;
}

QString withoutSuffix(const QString &file, QLatin1String suffix)
{
    return file.chopped(suffix.size());
}

/// What an expected file says, by the suffix of its name.
const Expectation &expectationOf(const QString &expectedFile)
{
    const auto isOfKind = [&](const Expectation &kind) { return expectedFile.endsWith(kind.suffix); };
    return *std::find_if(std::begin(expectations), std::end(expectations), isOfKind);
}

/// The document that an expected file belongs to.
QString documentOf(const QString &expectedFile)
{
    return withoutSuffix(expectedFile, expectationOf(expectedFile).suffix) + documentSuffix;
}

/// All files that are expected beside the documents.
QStringList expectedFiles()
{
    QStringList files;
    for (const auto &folder : formatFolders) {
        for (const auto &document : filesIn(folder, documentSuffix)) {
            for (const auto &expectation : expectations) {
                files.append(withoutSuffix(document, documentSuffix) + expectation.suffix);
            }
        }
    }
    return files;
}

/// What the library makes of an expected file's document, in the form of the file.
QByteArray actualContent(const QString &expectedFile)
{
    const QJsonObject json = expectationOf(expectedFile).describe(documentOf(expectedFile));
    return QJsonDocument(json).toJson(QJsonDocument::Indented);
}

/// The first line in which two texts differ; empty when they are equal.
QByteArray firstDifference(const QByteArray &expected, const QByteArray &actual)
{
    if (expected == actual) {
        return QByteArray();
    }
    const QList<QByteArray> expectedLines = expected.split('\n');
    const QList<QByteArray> actualLines = actual.split('\n');
    int line = 0;
    while (line < expectedLines.size() && line < actualLines.size() &&
           expectedLines.at(line) == actualLines.at(line)) {
        ++line;
    }
    return "line " + QByteArray::number(line + 1) + "\n   expected: " + expectedLines.value(line, "(end)") +
           "\n   actual:   " + actualLines.value(line, "(end)");
}

/// Whether a file has exactly this content.
bool holds(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) && file.readAll() == content;
}

/// Writes what is expected anew and prints the names of the files that changed: somebody has to review them.
int writeExpectedFiles()
{
    int exitStatus = EXIT_SUCCESS;
    for (const auto &file : expectedFiles()) {
        const QByteArray content = actualContent(file);
        if (holds(file, content)) {
            continue;
        }
        QSaveFile written(file);
        if (written.open(QIODevice::WriteOnly) && written.write(content) == content.size() &&
            written.commit()) {
            std::puts(qPrintable(file));
        } else {
            std::fprintf(stderr, "%s: %s\n", qPrintable(file), qPrintable(written.errorString()));
            exitStatus = EXIT_FAILURE;
        }
    }
    return exitStatus;
}

} // namespace

class CorpusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFormatHasManyDocuments_data();
    void everyFormatHasManyDocuments();
    void everyExpectedFileHasItsDocument_data() { everyFormatHasManyDocuments_data(); }
    void everyExpectedFileHasItsDocument();
    void documentGivesWhatIsExpected_data();
    void documentGivesWhatIsExpected();
};

void CorpusTest::everyFormatHasManyDocuments_data()
{
    QTest::addColumn<QString>("folder");
    for (const auto &folder : formatFolders) {
        QTest::newRow(folder.data()) << QString(folder);
    }
}

void CorpusTest::everyFormatHasManyDocuments()
{
    QFETCH(QString, folder);
    const int count = filesIn(folder, documentSuffix).size();
    QVERIFY2(count >= fewestDocuments, QByteArray::number(count).constData());
}

void CorpusTest::everyExpectedFileHasItsDocument()
{
    QFETCH(QString, folder);
    QStringList orphans;
    for (const auto &file : filesIn(folder, QLatin1String(".json"))) {
        if (!QFile::exists(documentOf(file))) {
            orphans.append(file);
        }
    }
    QVERIFY2(orphans.isEmpty(), qPrintable(orphans.join(QLatin1Char('\n'))));
}

void CorpusTest::documentGivesWhatIsExpected_data()
{
    QTest::addColumn<QString>("file");
    for (const auto &file : expectedFiles()) {
        QTest::newRow(qPrintable(file)) << file;
    }
}

void CorpusTest::documentGivesWhatIsExpected()
{
    QFETCH(QString, file);
    QFile expected(file);
    QVERIFY2(expected.open(QIODevice::ReadOnly), qPrintable(expected.errorString()));
    const QByteArray difference = firstDifference(expected.readAll(), actualContent(file));
    QVERIFY2(difference.isEmpty(), difference.constData());
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    // What is expected names the documents by their paths within the corpus.
    if (!QDir::setCurrent(QStringLiteral(TOBRIX_SOURCE_DIR "/tests/corpus"))) {
        std::fputs("there is no corpus\n", stderr);
        return EXIT_FAILURE;
    }
    if (application.arguments().contains(QStringLiteral("--write-expected"))) {
        return writeExpectedFiles();
    }
    CorpusTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "CorpusTest.moc"
