// The calls of an observer while files are read. The traces of the examples are complete, those of the
// samples are summaries: traces/<folder>-<file>.txt.

#include "support/ReadingTrace.h"

#include "format_current/CurrentReading_p.h"
#include "format_legacy/LegacyReading_p.h"
#include "rawdata/CTemplateRawData.h"

#include <QFile>
#include <QTest>

#include <cstdio>
#include <cstdlib>

using namespace Tobrix::Templates;

namespace {

struct Format
{
    XmlDialect dialect;
    ReadingResult (*read)(const XmlDocument &document, CTemplateRawData &rawData, ReadingObserver *observer);
};

constexpr Format legacyFormat = {XmlDialect::Stream, readLegacyDocument};
constexpr Format currentFormat = {XmlDialect::Dom, readCurrentDocument};

enum class Extent { Lines, Summary };

struct TracedDocument
{
    const char *path; ///< within the project
    const char *expected;
    const Format &format;
    Extent extent;
};

const TracedDocument tracedDocuments[] = {
    {"docs/examples/templates/hydrant.xml", "legacy-hydrant.txt", legacyFormat, Extent::Lines},
    {"tests/loading/traces/legacy-oddities.xml", "legacy-oddities.txt", legacyFormat, Extent::Lines},
    {"samples/templates/sewer-metric.xml", "legacy-sewer-metric.txt", legacyFormat, Extent::Summary},
    {"samples/templates/stormwater-imperial.xml", "legacy-stormwater-imperial.txt", legacyFormat,
     Extent::Summary},
    {"docs/examples/templates_new/hydrant.xml", "current-hydrant.txt", currentFormat, Extent::Lines},
    {"samples/templates_new/sewer-metric.xml", "current-sewer-metric.txt", currentFormat, Extent::Summary},
    {"samples/templates_new/stormwater-imperial.xml", "current-stormwater-imperial.txt", currentFormat,
     Extent::Summary},
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString expectedPath(const TracedDocument &traced)
{
    return QStringLiteral(TOBRIX_SOURCE_DIR "/tests/loading/traces/") + QLatin1String(traced.expected);
}

QStringList traceOf(const TracedDocument &traced, XmlWay way)
{
    const QByteArray bytes = contentOf(QStringLiteral(TOBRIX_SOURCE_DIR "/") + QLatin1String(traced.path));
    const XmlDocument document = XmlDocument::parse(bytes, traced.format.dialect, way);
    CTemplateRawData rawData;
    ReadingTrace trace;
    traced.format.read(document, rawData, &trace);
    return traced.extent == Extent::Lines ? trace.lines() : trace.summary();
}

QByteArray inLines(const QStringList &lines)
{
    return lines.join(QLatin1Char('\n')).toUtf8() + '\n';
}

/// Updates the expected traces and prints the names of changed files for review.
int writeExpectedFiles()
{
    for (const auto &traced : tracedDocuments) {
        const QByteArray content = inLines(traceOf(traced, XmlWay::Automatic));
        if (contentOf(expectedPath(traced)) == content) {
            continue;
        }
        QFile file(expectedPath(traced));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            std::fprintf(stderr, "%s: %s\n", qPrintable(file.fileName()), qPrintable(file.errorString()));
            return EXIT_FAILURE;
        }
        std::puts(traced.expected);
    }
    return EXIT_SUCCESS;
}

} // namespace

class ReadingTraceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void traceIsAsExpected_data();
    void traceIsAsExpected();
    void observerChangesNothing_data() { traceIsAsExpected_data(); }
    void observerChangesNothing();
};

void ReadingTraceTest::traceIsAsExpected_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < static_cast<int>(std::size(tracedDocuments)); ++i) {
        QTest::newRow(tracedDocuments[i].expected) << i;
    }
}

void ReadingTraceTest::traceIsAsExpected()
{
    QFETCH(int, index);
    const TracedDocument &traced = tracedDocuments[index];
    const QStringList expected =
        QString::fromUtf8(contentOf(expectedPath(traced))).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(traceOf(traced, XmlWay::Automatic), expected);
}

void ReadingTraceTest::observerChangesNothing()
{
    QFETCH(int, index);
    const TracedDocument &traced = tracedDocuments[index];
    const QByteArray bytes = contentOf(QStringLiteral(TOBRIX_SOURCE_DIR "/") + QLatin1String(traced.path));
    const XmlDocument document = XmlDocument::parse(bytes, traced.format.dialect);
    CTemplateRawData plain;
    CTemplateRawData observed;
    ReadingTrace trace;
    const ReadingResult plainResult = traced.format.read(document, plain, nullptr);
    const ReadingResult observedResult = traced.format.read(document, observed, &trace);
    QCOMPARE(observedResult.kind, plainResult.kind);
    QCOMPARE(observedResult.node, plainResult.node);
    QCOMPARE(observed.key, plain.key);
    QCOMPARE(observed.programViews.size(), plain.programViews.size());
    QCOMPARE(observed.columns.keys(), plain.columns.keys());
    QCOMPARE(observed.listItems.keys(), plain.listItems.keys());
    QCOMPARE(observed.legendA.size(), plain.legendA.size());
    QCOMPARE(observed.legendB.size(), plain.legendB.size());
}

int main(int argc, char *argv[])
{
    if (argc == 2 && qstrcmp(argv[1], "--write-expected") == 0) {
        return writeExpectedFiles();
    }
    ReadingTraceTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "ReadingTraceTest.moc"
