#include "CheckDocuments.h"

#include <QFile>
#include <QTest>

#include <algorithm>

namespace {

const QString sourceFolder = QStringLiteral(TOBRIX_SOURCE_DIR "/");

/// What documents of the corpus leave out on purpose: they are about one thing each.
const QSet<QString> rulesAboutCompleteness{
    QStringLiteral("missing-id"),       QStringLiteral("missing-key"),
    QStringLiteral("type-empty"),       QStringLiteral("column-unbound"),
    QStringLiteral("view-empty"),       QStringLiteral("list-unused"),
    QStringLiteral("list-unknown"),     QStringLiteral("legend-colour-invalid"),
    QStringLiteral("mandatory-hidden"),
};

QStringList linesOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)
               : QStringList();
}

} // namespace

class SilenceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void samplesAreSilent_data();
    void samplesAreSilent();
    void soundDocumentOfTheCorpusIsSilent_data();
    void soundDocumentOfTheCorpusIsSilent();
    void documentOfTheCorpusIsSoundOrOdd_data();
    void documentOfTheCorpusIsSoundOrOdd();
};

void SilenceTest::samplesAreSilent_data()
{
    QTest::addColumn<QString>("document");
    for (const auto &folder : formatFolders) {
        for (const auto &document : documentsIn(sourceFolder + QLatin1String("samples/") + folder.name)) {
            QTest::newRow(qPrintable(document.mid(sourceFolder.size()))) << document;
        }
    }
}

void SilenceTest::samplesAreSilent()
{
    QFETCH(QString, document);
    QCOMPARE(findingsIn(document), QString());
}

void SilenceTest::soundDocumentOfTheCorpusIsSilent_data()
{
    QTest::addColumn<QString>("document");
    for (const auto &line : linesOf(sourceFolder + QLatin1String("tests/check/sound-corpus-documents"))) {
        QTest::newRow(qPrintable(line)) << sourceFolder + QLatin1String("tests/corpus/") + line;
    }
}

void SilenceTest::soundDocumentOfTheCorpusIsSilent()
{
    QFETCH(QString, document);
    QVERIFY(QFile::exists(document));
    QCOMPARE(findingsIn(document, rulesAboutCompleteness), QString());
}

void SilenceTest::documentOfTheCorpusIsSoundOrOdd_data()
{
    QTest::addColumn<QString>("folder");
    for (const auto &folder : formatFolders) {
        QTest::newRow(folder.name.data()) << QString(folder.name);
    }
}

void SilenceTest::documentOfTheCorpusIsSoundOrOdd()
{
    QFETCH(QString, folder);
    const QStringList sound = linesOf(sourceFolder + QLatin1String("tests/check/sound-corpus-documents"));
    QStringList unlisted;
    const QString corpus = sourceFolder + QLatin1String("tests/corpus/");
    for (const auto &document : documentsIn(corpus + folder)) {
        if (!sound.contains(document.mid(corpus.size())) &&
            findingsIn(document, rulesAboutCompleteness).isEmpty()) {
            unlisted.append(document.mid(corpus.size()));
        }
    }
    QVERIFY2(unlisted.isEmpty(),
             qPrintable(QStringLiteral("silent, and not in the list of sound documents:\n") +
                        unlisted.join(QLatin1Char('\n'))));
}

QTEST_GUILESS_MAIN(SilenceTest)
#include "SilenceTest.moc"
