#include "HostileFile.h"
#include "HostileLoad.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

namespace {

const QString tracer = QStandardPaths::findExecutable(QStringLiteral("strace"));

/// The system calls with which hostile_load touches files and the network for one template file.
QList<QByteArray> callsForFile(const QString &path)
{
    QProcess process;
    process.start(tracer,
                  {QStringLiteral("-f"), QStringLiteral("-qq"), QStringLiteral("-s"), QStringLiteral("4096"),
                   QStringLiteral("-e"), QStringLiteral("trace=%file,%network"), QStringLiteral("-e"),
                   QStringLiteral("signal=none"), QStringLiteral(TOBRIX_HOSTILE_LOAD), path});
    process.closeWriteChannel();
    if (!process.waitForFinished(120'000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    QList<QByteArray> calls = process.readAllStandardError().split('\n');
    const auto takeUpTo = [&calls](const QByteArray &mark) {
        QList<QByteArray> taken;
        while (!calls.isEmpty() && !calls.first().contains(mark)) {
            taken.append(calls.takeFirst());
        }
        // Without both marks, the trace would not show what was accessed between them.
        if (calls.isEmpty()) {
            return QList<QByteArray>{"there is no call for " + mark};
        }
        calls.removeFirst();
        return taken;
    };
    takeUpTo("\"/hostile_load begins\"");
    return takeUpTo("\"/hostile_load ends\"");
}

} // namespace

Q_DECLARE_METATYPE(Format)

class HostileAccessTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void onlyTheTemplateIsTouched_data();
    void onlyTheTemplateIsTouched();

private:
    const HostileFolder m_folder;
};

void HostileAccessTest::initTestCase()
{
    if (tracer.isEmpty()) {
        QSKIP("strace is not installed: what the library touches beside the template cannot be seen");
    }
#ifdef TOBRIX_TEST_SANITIZED
    QSKIP("the sanitizers touch files themselves");
#endif
}

void HostileAccessTest::onlyTheTemplateIsTouched_data()
{
    QTest::addColumn<Format>("format");
    QTest::addColumn<QByteArray>("prolog");
    QTest::addColumn<QByteArray>("body");
    const QByteArray secret = QFile::encodeName(m_folder.path(Format::Legacy, QStringLiteral("secret.txt")));
    const auto both = [](const char *name, const QByteArray &prolog, const QByteArray &body = QByteArray()) {
        QTest::addRow("%s, legacy", name) << Format::Legacy << prolog << body;
        QTest::addRow("%s, current", name) << Format::Current << prolog << body;
    };
    both("an ordinary file", QByteArray());
    both("external document type", "<!DOCTYPE a SYSTEM \"file:///etc/passwd\">");
    both("external document type of a host", "<!DOCTYPE a PUBLIC \"-//X//Y\" \"http://127.0.0.1:9/a.dtd\">");
    both("external document type beside the file", "<!DOCTYPE a SYSTEM \"secret.txt\" []>");
    both("external entity", documentType("<!ENTITY e SYSTEM \"file:///etc/passwd\">"), "<Name>&e;</Name>");
    both("external entity of a host", documentType("<!ENTITY e SYSTEM \"http://127.0.0.1:9/x\">"), "&e;");
    both("external entity by a path", documentType("<!ENTITY e SYSTEM \"" + secret + "\">"), "&e;");
    both("external entity in an attribute", documentType("<!ENTITY e SYSTEM \"" + secret + "\">"),
         "<a b='&e;'/>");
    both("external parameter entity", documentType("<!ENTITY % p SYSTEM \"" + secret + "\">%p;"));
    both("external parameter entity that is only declared",
         documentType("<!ENTITY % p SYSTEM \"" + secret + "\">"), "<a/>");
    both("unparsed entity",
         documentType("<!NOTATION n SYSTEM \"" + secret + "\"><!ENTITY e SYSTEM \"" + secret + "\" NDATA n>"),
         "<a/>");
    both("inclusion", QByteArray(),
         "<x:include xmlns:x=\"http://www.w3.org/2001/XInclude\" href=\"" + secret + "\" parse=\"text\"/>");
    both("style sheet", "<?xml-stylesheet type=\"text/xsl\" href=\"" + secret + "\"?>");
    both("location of a schema", QByteArray(),
         "<a xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\" i:noNamespaceSchemaLocation=\"" + secret +
             "\"/>");
    both("encoding of a converter", "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>");
}

void HostileAccessTest::onlyTheTemplateIsTouched()
{
    QFETCH(Format, format);
    QFETCH(QByteArray, prolog);
    QFETCH(QByteArray, body);
    QFile secret(m_folder.path(Format::Legacy, QStringLiteral("secret.txt")));
    QVERIFY(secret.open(QIODevice::WriteOnly));
    secret.close();
    const QString path = m_folder.write(format, document(format, body, prolog));
    const auto calls = callsForFile(path);
    int openings = 0;
    for (const auto &call : calls) {
        // A call without a path refers to the open file.
        const bool isOfTemplate =
            call.contains('"' + QFile::encodeName(path) + '"') || call.contains("AT_EMPTY_PATH");
        QVERIFY2(isOfTemplate, call.constData());
        openings += call.contains("open") ? 1 : 0;
    }
    QCOMPARE(openings, 1);
}

QTEST_GUILESS_MAIN(HostileAccessTest)
#include "HostileAccessTest.moc"
