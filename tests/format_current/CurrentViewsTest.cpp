// Program views: their number, names and column order.

#include "CurrentFormat.h"

#include <QTest>

#include <algorithm>

using namespace Tobrix::Templates;

namespace {

QStringList sortedIdsOf(const CTemplateRawData &rawData)
{
    QStringList ids = rawData.programViews.keys();
    ids.sort();
    return ids;
}

QByteArray viewWithColumn(const QByteArray &id, const QByteArray &elements)
{
    return viewOf(elements, "Id=\"" + id + "\" Name=\"" + id + "\"");
}

const QString nullEntry = QStringLiteral("(null)");

} // namespace

class CurrentViewsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentWithoutViewGivesNone();
    void everyAttributeFillsItsProperty_data();
    void everyAttributeFillsItsProperty();
    void viewsAreFiledUnderTheirIds();
    void viewsAreFoundAtAnyDepth();
    void viewsWithoutIdAreFiledUnderTheEmptyOne();
    void laterViewOfAnIdStays();
    void viewWithinAViewIsAViewOfItsOwn();
    void viewWithinAViewOfTheSameIdStays();
    void viewWithinAColumnIsAView();
    void columnsAreFoundAtAnyDepth();
    void columnsOutsideOfViewsAreNotRead();
    void columnsAreSortedByOrdinal_data();
    void columnsAreSortedByOrdinal();
    void manyColumnsOfOneOrdinalAllStay();
    void columnsOfUnknownDataTypeComeLast_data();
    void columnsOfUnknownDataTypeComeLast();
    void manyNullEntriesAmongManyColumnsComeLast();
    void columnIsFoundByItsBindingAfterNullEntries();
    void viewOfNothingButNullEntriesIsKept();
    void columnsOfOneViewAreIndependentOfAnothers();
};

void CurrentViewsTest::documentWithoutViewGivesNone()
{
    const ReadElements read("<DefaultValues><DefaultValueScope><DefaultValueItem Value=\"1\" View=\"V\">"
                            "<BoundProperty PropertyName=\"P\"/></DefaultValueItem></DefaultValueScope>"
                            "</DefaultValues><Column DataType=\"Text\"/><view Id=\"v\"/><Views/>");
    QVERIFY(read.rawData().programViews.isEmpty());
}

void CurrentViewsTest::everyAttributeFillsItsProperty_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("description");
    QTest::newRow("Id") << QByteArray(R"(Id="x")") << QStringLiteral("x") << QString() << QString();
    QTest::newRow("Name") << QByteArray(R"(Name="x")") << QString() << QStringLiteral("x") << QString();
    QTest::newRow("Description") << QByteArray(R"(Description="x")") << QString() << QString()
                                 << QStringLiteral("x");
    QTest::newRow("Kind") << QByteArray(R"(Kind="Detail")") << QString() << QString() << QString();
    QTest::newRow("all") << QByteArray(R"(Kind="Detail" Description="d" Name="n" Id="i")")
                         << QStringLiteral("i") << QStringLiteral("n") << QStringLiteral("d");
    QTest::newRow("lower case") << QByteArray(R"(id="i" name="n" description="d")") << QString() << QString()
                                << QString();
}

void CurrentViewsTest::everyAttributeFillsItsProperty()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, id);
    QFETCH(QString, key);
    QFETCH(QString, description);
    const ReadElements read(viewOf("", attributes));
    QVERIFY(read.onlyView());
    QCOMPARE(read.onlyView()->uniqueId(), id);
    QCOMPARE(read.onlyView()->key(), key);
    QCOMPARE(read.onlyView()->description(), description);
    QCOMPARE(read.onlyView()->columnCount(), 0);
    QCOMPARE(read.view(id), read.onlyView());
}

void CurrentViewsTest::viewsAreFiledUnderTheirIds()
{
    const ReadElements read(viewOf("", R"(Id="{1}" Name="A")") + viewOf("", R"(Id="{2}" Name="A")") +
                            viewOf("", R"(Id="{3}" Name="C")"));
    QCOMPARE(sortedIdsOf(read.rawData()),
             (QStringList{QStringLiteral("{1}"), QStringLiteral("{2}"), QStringLiteral("{3}")}));
    QCOMPARE(read.view(QStringLiteral("{2}"))->key(), QStringLiteral("A"));
    QCOMPARE(read.view(QStringLiteral("{3}"))->key(), QStringLiteral("C"));
}

void CurrentViewsTest::viewsAreFoundAtAnyDepth()
{
    const ReadElements read(
        "<Views><Group>" + viewWithColumn("1", boundColumnElement("A")) + "</Group></Views>" +
        "<ValueList><ValueListItem>" + viewWithColumn("2", boundColumnElement("B")) +
        "</ValueListItem></ValueList><ClassificationColorScopes>" +
        viewWithColumn("3", boundColumnElement("C")) + "</ClassificationColorScopes><DefaultValues>" +
        viewWithColumn("4", boundColumnElement("D")) + "</DefaultValues>");
    QCOMPARE(sortedIdsOf(read.rawData()), (QStringList{QStringLiteral("1"), QStringLiteral("2"),
                                                       QStringLiteral("3"), QStringLiteral("4")}));
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("1"))), QStringList{QStringLiteral("A")});
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("2"))), QStringList{QStringLiteral("B")});
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("3"))), QStringList{QStringLiteral("C")});
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("4"))), QStringList{QStringLiteral("D")});
}

void CurrentViewsTest::viewsWithoutIdAreFiledUnderTheEmptyOne()
{
    const ReadElements read(viewOf("", R"(Name="A")") + viewOf("", R"(Id="" Name="B")"));
    QVERIFY(read.onlyView());
    QCOMPARE(read.onlyView()->key(), QStringLiteral("B"));
    QCOMPARE(read.view(QString()), read.onlyView());
}

// The replaced views would leak if they were not deleted; the sanitizers report that.
void CurrentViewsTest::laterViewOfAnIdStays()
{
    const ReadElements read(
        viewOf(boundColumnElement("A") + "<Column/>", R"(Id="{1}" Name="First")") +
        viewOf(boundColumnElement("B"), R"(Id="{2}" Name="Other")") +
        viewOf(boundColumnElement("C"), R"(Id="{1}" Name="Second")") +
        viewOf(boundColumnElement("D") + boundColumnElement("E", 1), R"(Id="{1}" Name="Third")"));
    QCOMPARE(sortedIdsOf(read.rawData()), (QStringList{QStringLiteral("{1}"), QStringLiteral("{2}")}));
    const auto *view = read.view(QStringLiteral("{1}"));
    QCOMPARE(view->key(), QStringLiteral("Third"));
    QCOMPARE(boundColumnsOf(*view), (QStringList{QStringLiteral("D"), QStringLiteral("E")}));
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("{2}"))), QStringList{QStringLiteral("B")});
}

void CurrentViewsTest::viewWithinAViewIsAViewOfItsOwn()
{
    const ReadElements read(viewWithColumn("outer", boundColumnElement("A", 1) +
                                                        viewWithColumn("inner", boundColumnElement("B", 2)) +
                                                        boundColumnElement("C", 3)));
    QCOMPARE(read.rawData().programViews.size(), 2);
    const auto *outer = read.view(QStringLiteral("outer"));
    const auto *inner = read.view(QStringLiteral("inner"));
    QCOMPARE(boundColumnsOf(*outer),
             (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    QCOMPARE(boundColumnsOf(*inner), QStringList{QStringLiteral("B")});
    // Each view owns its own column.
    QVERIFY(outer->column(1) != inner->column(0));
}

void CurrentViewsTest::viewWithinAViewOfTheSameIdStays()
{
    const ReadElements read(
        viewOf(boundColumnElement("A") + viewOf(boundColumnElement("B"), R"(Id="1" Name="Inner")"),
               R"(Id="1" Name="Outer")"));
    QVERIFY(read.onlyView());
    QCOMPARE(read.onlyView()->key(), QStringLiteral("Inner"));
    QCOMPARE(boundColumnsOf(*read.onlyView()), QStringList{QStringLiteral("B")});
}

void CurrentViewsTest::viewWithinAColumnIsAView()
{
    const ReadElements read(viewWithColumn(
        "outer",
        columnOf("<BoundProperty PropertyName=\"A\"/>" + viewWithColumn("inner", boundColumnElement("B", 2)),
                 R"(DataType="Text" Ordinal="1")")));
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("outer"))),
             (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("inner"))), QStringList{QStringLiteral("B")});
}

void CurrentViewsTest::columnsAreFoundAtAnyDepth()
{
    const ReadElements read(viewOf("<Columns>" + boundColumnElement("A", 1) + "<Group><Group>" +
                                   boundColumnElement("B", 2) +
                                   "</Group></Group></Columns><ValueList><ValueListItem>" +
                                   boundColumnElement("C", 3) + "</ValueListItem></ValueList>"));
    QVERIFY(read.onlyView());
    QCOMPARE(boundColumnsOf(*read.onlyView()),
             (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
}

void CurrentViewsTest::columnsOutsideOfViewsAreNotRead()
{
    const ReadElements read(boundColumnElement("A") + viewOf(boundColumnElement("B")) +
                            boundColumnElement("C"));
    QVERIFY(read.onlyView());
    QCOMPARE(boundColumnsOf(*read.onlyView()), QStringList{QStringLiteral("B")});
}

void CurrentViewsTest::columnsAreSortedByOrdinal_data()
{
    QTest::addColumn<QByteArrayList>("ordinals");
    QTest::addColumn<QByteArrayList>("expected");
    QTest::newRow("in order") << QByteArrayList{"1", "2", "3"} << QByteArrayList{"1", "2", "3"};
    QTest::newRow("reversed") << QByteArrayList{"3", "2", "1"} << QByteArrayList{"1", "2", "3"};
    QTest::newRow("as numbers") << QByteArrayList{"10", "9", "100"} << QByteArrayList{"9", "10", "100"};
    QTest::newRow("negative") << QByteArrayList{"0", "-1", "1", "-10"}
                              << QByteArrayList{"-10", "-1", "0", "1"};
    QTest::newRow("no number counts as 0")
        << QByteArrayList{"1", "x", "-1"} << QByteArrayList{"-1", "x", "1"};
    QTest::newRow("none counts as 0") << QByteArrayList{"1", "", "-1"} << QByteArrayList{"-1", "", "1"};
    QTest::newRow("extremes") << QByteArrayList{"2147483647", "-2147483648", "0"}
                              << QByteArrayList{"-2147483648", "0", "2147483647"};
}

void CurrentViewsTest::columnsAreSortedByOrdinal()
{
    QFETCH(QByteArrayList, ordinals);
    QFETCH(QByteArrayList, expected);
    QByteArray columns;
    for (const auto &ordinal : ordinals) {
        columns += columnOf("<BoundProperty PropertyName=\"" + ordinal + "\"/>",
                            "DataType=\"Integer\" Ordinal=\"" + ordinal + "\"");
    }
    const ReadElements read(viewOf(columns));
    QVERIFY(read.onlyView());
    QCOMPARE(boundColumnsOf(*read.onlyView()).join(QLatin1Char(' ')),
             QString::fromLatin1(expected.join(' ')));
}

// More columns than a sort handles by insertion sort alone; the order of equal ones is undefined.
void CurrentViewsTest::manyColumnsOfOneOrdinalAllStay()
{
    QByteArray columns;
    QStringList expected;
    for (int i = 0; i < 60; ++i) {
        const QByteArray name = "C" + QByteArray::number(i);
        columns += boundColumnElement(name, 7);
        expected.append(QString::fromLatin1(name));
    }
    const ReadElements read(viewOf(columns));
    QVERIFY(read.onlyView());
    QStringList found = boundColumnsOf(*read.onlyView());
    found.sort();
    expected.sort();
    QCOMPARE(found, expected);
}

void CurrentViewsTest::columnsOfUnknownDataTypeComeLast_data()
{
    QTest::addColumn<QByteArray>("columns");
    QTest::addColumn<QString>("expected");
    const QByteArray a = boundColumnElement("A", 1);
    const QByteArray b = boundColumnElement("B", 2);
    const QByteArray unknown = "<Column DataType=\"Blob\" Ordinal=\"0\"/>";
    QTest::newRow("alone") << unknown << QStringLiteral("(null)");
    QTest::newRow("first") << unknown + a << QStringLiteral("A (null)");
    QTest::newRow("last") << a + unknown << QStringLiteral("A (null)");
    QTest::newRow("between") << a + unknown + b << QStringLiteral("A B (null)");
    QTest::newRow("around") << unknown + b + unknown << QStringLiteral("B (null) (null)");
    QTest::newRow("several everywhere")
        << unknown + b + unknown + unknown + a + unknown << QStringLiteral("A B (null) (null) (null) (null)");
    QTest::newRow("whatever their ordinal")
        << "<Column DataType=\"Blob\" Ordinal=\"-5\"/>" + b + "<Column Ordinal=\"1\"/>" + a
        << QStringLiteral("A B (null) (null)");
}

void CurrentViewsTest::columnsOfUnknownDataTypeComeLast()
{
    QFETCH(QByteArray, columns);
    QFETCH(QString, expected);
    const ReadElements read(viewOf(columns));
    QVERIFY(read.onlyView());
    QCOMPARE(boundColumnsOf(*read.onlyView()).join(QLatin1Char(' ')), expected);
}

void CurrentViewsTest::manyNullEntriesAmongManyColumnsComeLast()
{
    constexpr int count = 90;
    QByteArray columns;
    for (int i = 0; i < count; ++i) {
        // 37 and 90 have no common divisor: every ordinal comes once, out of order.
        columns += i % 3 == 0 ? QByteArray("<Column/>") : boundColumnElement("C", (i * 37) % count);
    }
    const ReadElements read(viewOf(columns));
    QVERIFY(read.onlyView());
    const auto *view = read.onlyView();
    QCOMPARE(view->columnCount(), count);
    constexpr int real = count * 2 / 3;
    for (int i = 0; i < count; ++i) {
        QCOMPARE(view->column(i) != nullptr, i < real);
    }
    for (int i = 1; i < real; ++i) {
        QVERIFY2(view->column(i - 1)->sortOrder() < view->column(i)->sortOrder(),
                 qPrintable(QString::number(i)));
    }
}

void CurrentViewsTest::columnIsFoundByItsBindingAfterNullEntries()
{
    const QByteArray unknown =
        columnOf("<BoundProperty PropertyName=\"Unknown\"/>", R"(DataType="Blob" Ordinal="1")");
    const ReadElements read(
        viewOf(unknown + boundColumnElement("B", 3) + unknown + boundColumnElement("A", 2)));
    QVERIFY(read.onlyView());
    const auto *view = read.onlyView();
    QCOMPARE(view->columnCount(), 4);
    QCOMPARE(view->column(QStringLiteral("A")), view->column(0));
    QCOMPARE(view->column(QStringLiteral("B")), view->column(1));
    QCOMPARE(view->column(QStringLiteral("Unknown")), nullptr);
    QCOMPARE(view->column(QString()), nullptr);
    QCOMPARE(view->column(2), nullptr);
    QCOMPARE(view->column(4), nullptr);
}

void CurrentViewsTest::viewOfNothingButNullEntriesIsKept()
{
    const ReadElements read(viewOf("<Column/><Column/><Column/>"));
    QVERIFY(read.onlyView());
    QCOMPARE(boundColumnsOf(*read.onlyView()), (QStringList{nullEntry, nullEntry, nullEntry}));
}

void CurrentViewsTest::columnsOfOneViewAreIndependentOfAnothers()
{
    const ReadElements read(viewWithColumn("1", boundColumnElement("A", 2) + boundColumnElement("B", 1)) +
                            viewWithColumn("2", boundColumnElement("A", 1) + boundColumnElement("B", 2)) +
                            viewWithColumn("3", QByteArray()));
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("1"))),
             (QStringList{QStringLiteral("B"), QStringLiteral("A")}));
    QCOMPARE(boundColumnsOf(*read.view(QStringLiteral("2"))),
             (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(read.view(QStringLiteral("3"))->columnCount(), 0);
}

QTEST_GUILESS_MAIN(CurrentViewsTest)

#include "CurrentViewsTest.moc"
