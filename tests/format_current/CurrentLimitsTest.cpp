// Files over the limits of templates.

#include "support/CountedDocuments.h"

#include "format_current/CurrentFormat.h"

#include <QTest>

using namespace Tobrix::Templates;

class CurrentLimitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asManyAsMayBeAreRead_data() { addKinds(); }
    void asManyAsMayBeAreRead();
    void oneMoreLeavesNothing_data() { addKinds(); }
    void oneMoreLeavesNothing();
    void elementInNestedContainersCountsForEach_data();
    void elementInNestedContainersCountsForEach();
    void legendClassesOfOtherSchemesDoNotCount();

private:
    void addKinds();

    const std::vector<CountedKind> m_kinds = countedCurrentKinds();
};

void CurrentLimitsTest::addKinds()
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < m_kinds.size(); ++i) {
        QTest::newRow(m_kinds[i].name) << static_cast<int>(i);
    }
}

void CurrentLimitsTest::asManyAsMayBeAreRead()
{
    QFETCH(int, index);
    const CountedKind &kind = m_kinds[static_cast<std::size_t>(index)];
    CTemplateRawData rawData;
    QVERIFY(readDocument(documentWith(kind, kind.most), rawData));
    QCOMPARE(rawData.key, QStringLiteral("k"));
    QCOMPARE(kind.countIn(rawData), kind.most);
}

void CurrentLimitsTest::oneMoreLeavesNothing()
{
    QFETCH(int, index);
    const CountedKind &kind = m_kinds[static_cast<std::size_t>(index)];
    CTemplateRawData rawData;
    QVERIFY(readDocument(documentWith(kind, kind.most + 1), rawData));
    QCOMPARE(rawData.key, QString());
    QCOMPARE(kind.countIn(rawData), 0);
    QVERIFY(rawData.programViews.isEmpty());
}

void CurrentLimitsTest::elementInNestedContainersCountsForEach_data()
{
    QTest::addColumn<QByteArray>("container");
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<int>("most");
    QTest::newRow("columns") << QByteArray("View") << QByteArray("<Column/>") << Limits::columns;
    QTest::newRow("list items") << QByteArray("ValueList") << QByteArray("<ValueListItem/>")
                                << Limits::listItems;
}

void CurrentLimitsTest::elementInNestedContainersCountsForEach()
{
    QFETCH(QByteArray, container);
    QFETCH(QByteArray, element);
    QFETCH(int, most);
    constexpr int containers = 10;
    const auto keyWith = [&](int elements) {
        const QByteArray open = "<" + container + " Id='v'>";
        const QByteArray close = "</" + container + ">";
        CTemplateRawData rawData;
        readDocument(currentDocument("<Name>k</Name>" + open.repeated(containers) +
                                     element.repeated(elements) + close.repeated(containers)),
                     rawData);
        return rawData.key;
    };
    QCOMPARE(keyWith(most / containers), QStringLiteral("k"));
    QCOMPARE(keyWith(most / containers + 1), QString());
}

void CurrentLimitsTest::legendClassesOfOtherSchemesDoNotCount()
{
    const QByteArray legendClasses = QByteArray("<ClassificationColor/>").repeated(Limits::legendClasses + 1);
    const ReadElements read(
        "<Name>k</Name><ClassificationColorScopes><ClassificationColorScope Name='Other'>" + legendClasses +
        "</ClassificationColorScope></ClassificationColorScopes>");
    QCOMPARE(read.rawData().key, QStringLiteral("k"));
}

QTEST_APPLESS_MAIN(CurrentLimitsTest)
#include "CurrentLimitsTest.moc"
