#include "Attacks.h"
#include "HostileFile.h"

#include "support/CountedDocuments.h"

#include <QFile>
#include <QProcess>
#include <QTest>

namespace {

struct Run
{
    int exitStatus = -1;
    QByteArray output;
    QByteArray errors;
};

Run show(const QString &path)
{
    QProcess process;
    process.start(QStringLiteral(TOBRIX_TEMPLATE_TOOL), {QStringLiteral("show"), path});
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

Q_DECLARE_METATYPE(Format)

class HostileDiagnosisTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void limitAndLineAreNamed_data();
    void limitAndLineAreNamed();
    void countAndLineAreNamed_data();
    void countAndLineAreNamed();
    void sizeOfTheFileIsNamed();

private:
    void compareDiagnosis(const QString &path, int line, const QByteArray &excess);

    const HostileFolder m_folder;
    const std::vector<CountedKind> m_legacyKinds = countedLegacyKinds();
    const std::vector<CountedKind> m_currentKinds = countedCurrentKinds();
};

void HostileDiagnosisTest::limitAndLineAreNamed_data()
{
    QTest::addColumn<QByteArray>("prolog");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("line");
    QTest::addColumn<QByteArray>("excess");
    const QByteArray none;
    const QByteArray tooDeep =
        "more than " + QByteArray::number(Limits::depth) + " levels of nested elements";
    QTest::newRow("depth") << none << "\n\n" + nested("a", 200) << 3 << tooDeep;
    QTest::newRow("depth, a line for every level")
        << none << repeated("\n<a>", 200) << Limits::depth + 1 << tooDeep;
    QTest::newRow("attributes") << none
                                << "\n<a" +
                                       numbered(300, [](const QByteArray &i) { return " b" + i + "=''"; }) +
                                       "/>"
                                << 2 << QByteArray("more than 256 attributes on one element");
    QTest::newRow("namespaces") << none << "\n" + repeated("<a xmlns='u'/>", 100) << 2
                                << QByteArray("more than 64 namespace declarations");
    QTest::newRow("size of the document type")
        << documentType("\n<!--" + repeated("x", 20'000) + "-->") << none << 2
        << QByteArray("a document type of more than 16384 bytes");
    QTest::newRow("declarations") << documentType(repeated("\n<!ELEMENT b ANY>", 200)) << none << 201
                                  << QByteArray("more than 100 declarations in the document type");
    QTest::newRow("content model") << "\n" + documentType("<!ELEMENT a " + repeated("(", 20) +
                                                          repeated(")", 20) + '>')
                                   << none << 2
                                   << QByteArray("a content model that nests more than 16 levels");
    QTest::newRow("parameter entity") << documentType("<!ENTITY % p ''>%p;") << none << 1
                                      << QByteArray("a reference to a parameter entity in the document type");
    QTest::newRow("references") << documentType(entity("e", "x")) << "\n\n\n" + repeated("&e;", 2'000) << 4
                                << QByteArray("more than 1000 references to entities");
    QTest::newRow("characters") << documentType(entity("e", repeated("x", 4'000)))
                                << "\n" + repeated("&e;", 100) << 2
                                << QByteArray("entities that come to more than 65536 characters");
    QTest::newRow("entity in itself") << documentType(entity("e", "&e;")) << QByteArray("\n&e;") << 2
                                      << QByteArray("more than 16 levels of nested entities");
    QTest::newRow("half an element") << documentType(entity("e", "<b>")) << QByteArray("\n&e;</b>") << 2
                                     << QByteArray("an entity that begins or ends within markup");
    QTest::newRow("defaults") << documentType("<!ATTLIST b c CDATA ''>") << "\n" + repeated("<b/>", 20'000)
                              << 2 << QByteArray("too many attributes by the defaults of the document type");
    QTest::newRow("document types") << documentType(none) + '\n' + documentType(none) << none << 2
                                    << QByteArray("more than one document type");
    QTest::newRow("another encoding") << QByteArray("<?xml version='1.0' encoding='UTF-16'?>\n") << none << 1
                                      << QByteArray("an XML declaration in another encoding than it names");
}

void HostileDiagnosisTest::limitAndLineAreNamed()
{
    QFETCH(QByteArray, prolog);
    QFETCH(QByteArray, body);
    QFETCH(int, line);
    QFETCH(QByteArray, excess);
    for (const Format format : {Format::Legacy, Format::Current}) {
        compareDiagnosis(m_folder.write(format, document(format, body, prolog)), line, excess);
    }
}

void HostileDiagnosisTest::compareDiagnosis(const QString &path, int line, const QByteArray &excess)
{
    const Run run = show(path);
    QCOMPARE(run.errors, "tobrix-template: " + path.toUtf8() + ": goes over a limit at line " +
                             QByteArray::number(line) + ": " + excess + "; nothing of it is used\n");
    QCOMPARE(run.exitStatus, 1);
    QVERIFY2(!run.output.contains("Template k"), run.output.constData());
}

void HostileDiagnosisTest::countAndLineAreNamed_data()
{
    QTest::addColumn<Format>("format");
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < m_legacyKinds.size(); ++i) {
        QTest::addRow("%s, legacy", m_legacyKinds[i].name) << Format::Legacy << static_cast<int>(i);
    }
    for (std::size_t i = 0; i < m_currentKinds.size(); ++i) {
        QTest::addRow("%s, current", m_currentKinds[i].name) << Format::Current << static_cast<int>(i);
    }
}

void HostileDiagnosisTest::countAndLineAreNamed()
{
    QFETCH(Format, format);
    QFETCH(int, index);
    const CountedKind &kind =
        (format == Format::Legacy ? m_legacyKinds : m_currentKinds)[static_cast<std::size_t>(index)];
    // The first one over the limit is on a line of its own.
    compareDiagnosis(m_folder.write(format, documentWith(kind, kind.most + 1)), 2,
                     "more than " + QByteArray::number(kind.most) + ' ' + kind.name);
}

void HostileDiagnosisTest::sizeOfTheFileIsNamed()
{
    for (const Format format : {Format::Legacy, Format::Current}) {
        QFile file(m_folder.write(format, document(format, QByteArray())));
        // The rest of the file is sparse and uses no disk space.
        QVERIFY(file.resize(qint64(Limits::fileSize) + 1));
        compareDiagnosis(file.fileName(), 1,
                         "a file of more than " + QByteArray::number(Limits::fileSize) + " bytes");
        QVERIFY(file.remove());
    }
}

QTEST_GUILESS_MAIN(HostileDiagnosisTest)
#include "HostileDiagnosisTest.moc"
