// The bundled legacy templates: realistic, and with all elements of the format.

#include "support/LegacyNames.h"
#include "support/RecordedLog.h"

#include "loading/CTemplateReader.h"
#include "model/CCatalogTemplate.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"
#include "model/CTemplateLegendDataItem.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

#include <memory>

using namespace Tobrix::Templates;

namespace {

QStringList samples()
{
    return QDir(QStringLiteral(TOBRIX_SOURCE_DIR "/samples/templates")).entryList({QStringLiteral("*.xml")});
}

void addSampleRows()
{
    QTest::addColumn<QString>("path");
    const auto names = samples();
    for (const auto &name : names) {
        QTest::newRow(qPrintable(name))
            << QStringLiteral(TOBRIX_SOURCE_DIR "/samples/templates/%1").arg(name);
    }
}

} // namespace

class LegacySamplesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereAreAtLeastTwo();
    void sampleLoads_data() { addSampleRows(); }
    void sampleLoads();
    void sampleUsesEveryElementName_data() { addSampleRows(); }
    void sampleUsesEveryElementName();
};

void LegacySamplesTest::thereAreAtLeastTwo()
{
    QVERIFY(samples().size() >= 2);
}

void LegacySamplesTest::sampleLoads()
{
    QFETCH(QString, path);
    const RecordedLog log;
    CCatalogTemplate *loaded = nullptr;
    QVERIFY(CTemplateReader::readFile(path, CTemplateReader::ReaderFlags(), loaded));
    const std::unique_ptr<CCatalogTemplate> catalogTemplate(loaded);

    QSet<int> types;
    int columns = 0;
    for (int i = 0; i < catalogTemplate->programViewCount(); ++i) {
        const CProgramView &view = *catalogTemplate->programView(i);
        QVERIFY2(view.columnCount() > 0, qPrintable(view.key()));
        columns += view.columnCount();
        for (int j = 0; j < view.columnCount(); ++j) {
            types.insert(view.column(j)->columnType());
        }
    }
    QVERIFY(catalogTemplate->programViewCount() >= 3);
    QVERIFY(columns >= 40);
    QCOMPARE(types.size(), 6);
    QVERIFY(!catalogTemplate->itemListNames().isEmpty());
    QVERIFY(!catalogTemplate->getLegendOfClassification(false).isEmpty());
    QVERIFY(!catalogTemplate->getLegendOfClassification(true).isEmpty());
}

void LegacySamplesTest::sampleUsesEveryElementName()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QSet<QString> used;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement) {
            used.insert(xml.name().toString());
        }
    }
    QStringList unused;
    for (const auto &name : legacyNames()) {
        if (!used.contains(QLatin1String(name.name))) {
            unused.append(QLatin1String(name.name));
        }
    }
    QCOMPARE(unused, QStringList());
}

QTEST_APPLESS_MAIN(LegacySamplesTest)

#include "LegacySamplesTest.moc"
