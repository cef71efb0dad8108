// Files over the limits of templates.

#include "support/CountedDocuments.h"
#include "support/LegacyReading.h"

#include <QTest>

class LegacyLimitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asManyAsMayBeAreRead_data() { addKinds(); }
    void asManyAsMayBeAreRead();
    void oneMoreFailsTheFile_data() { addKinds(); }
    void oneMoreFailsTheFile();
    void viewsOfOneIdAreOne();
    void legendClassesThatWereClearedDoNotCount();
    void droppedColumnsDoNotCount();

private:
    void addKinds();

    const std::vector<CountedKind> m_kinds = countedLegacyKinds();
};

void LegacyLimitsTest::addKinds()
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < m_kinds.size(); ++i) {
        QTest::newRow(m_kinds[i].name) << static_cast<int>(i);
    }
}

void LegacyLimitsTest::asManyAsMayBeAreRead()
{
    QFETCH(int, index);
    const CountedKind &kind = m_kinds[static_cast<std::size_t>(index)];
    const LegacyReading reading(documentWith(kind, kind.most));
    QVERIFY(reading.isRead);
    QCOMPARE(kind.countIn(reading.rawData), kind.most);
}

void LegacyLimitsTest::oneMoreFailsTheFile()
{
    QFETCH(int, index);
    const CountedKind &kind = m_kinds[static_cast<std::size_t>(index)];
    QVERIFY(!LegacyReading(documentWith(kind, kind.most + 1)).isRead);
}

void LegacyLimitsTest::viewsOfOneIdAreOne()
{
    const QByteArray view = "<PROGVIEW><PV_PK>v</PV_PK></PROGVIEW>";
    const LegacyReading reading(legacyDocument(view.repeated(Tobrix::Templates::Limits::views + 1)));
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.programViews.size(), 1);
}

void LegacyLimitsTest::legendClassesThatWereClearedDoNotCount()
{
    const QByteArray group = "<Section>" +
                             QByteArray("<class/>").repeated(Tobrix::Templates::Limits::legendClasses) +
                             "</Section>";
    const LegacyReading reading(
        legacyDocument("<LegendOfClassification>" + group + group + "</LegendOfClassification>"));
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.legendA.size(), Tobrix::Templates::Limits::legendClasses);
}

void LegacyLimitsTest::droppedColumnsDoNotCount()
{
    const QByteArray dropped = "<SYSCOL/>";
    const LegacyReading reading(
        legacyDocument(dropped.repeated(Tobrix::Templates::Limits::columns + 1) +
                       "<PROGVIEW/><SYSCOL><COL_DataType>INT</COL_DataType></SYSCOL>"));
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.columns.size(), 1);
}

QTEST_APPLESS_MAIN(LegacyLimitsTest)
#include "LegacyLimitsTest.moc"
