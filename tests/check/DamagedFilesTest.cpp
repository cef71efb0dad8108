#include "CheckDocuments.h"
#include "robustness/Mutation.h"
#include "tools/check/CheckedFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Tobrix::Tools;

// Whatever is in a file, the checker comes to an end with it and names places that the file has.

namespace {

constexpr quint32 damagesOfADocument = 4;

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class DamagedFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedFileIsCheckedToItsEnd_data();
    void damagedFileIsCheckedToItsEnd();
};

void DamagedFilesTest::damagedFileIsCheckedToItsEnd_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("folder");
    const QString source = QStringLiteral(TOBRIX_SOURCE_DIR "/tests/check/");
    for (const auto &folder : formatFolders) {
        for (const auto &document : documentsIn(source + folder.name)) {
            if (!document.endsWith(QLatin1String(".near-miss.xml"))) {
                QTest::newRow(qPrintable(document.mid(source.size()))) << document << QString(folder.name);
            }
        }
    }
}

void DamagedFilesTest::damagedFileIsCheckedToItsEnd()
{
    QFETCH(QString, document);
    QFETCH(QString, folder);
    const QTemporaryDir temporary;
    QVERIFY(QDir(temporary.path()).mkdir(folder));
    const QString fileName = temporary.filePath(folder + QLatin1String("/damaged.xml"));
    const QByteArray sound = contentOf(document);
    for (quint32 seed = 0; seed < damagesOfADocument; ++seed) {
        const QByteArray content = Mutation(seed, sound, sound).bytes();
        QFile file(fileName);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();

        const FileReport report = checkFile(fileName, {});
        QCOMPARE(report.problem, QString());
        const int lines = content.count('\n') + content.count('\r') + 1;
        for (const auto &finding : report.findings) {
            QVERIFY2(finding.place.line >= 1 && finding.place.line <= lines && finding.place.column >= 1,
                     content.constData());
            QVERIFY(!finding.message.isEmpty());
        }
    }
}

QTEST_GUILESS_MAIN(DamagedFilesTest)
#include "DamagedFilesTest.moc"
