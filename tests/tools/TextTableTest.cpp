#include "tools/text/TextTable.h"

#include <QTest>

using namespace Tobrix::Tools;

namespace {

constexpr int anyWidth = 1000;

TextTable exampleTable()
{
    return TextTable({
        {QStringLiteral("No"), TextTable::Alignment::Right, 9, 2},
        {QStringLiteral("Name"), TextTable::Alignment::Left, 12, 4},
        {QStringLiteral("Note"), TextTable::Alignment::Left, 12, 4},
    });
}

} // namespace

class TextTableTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cellsAlignByDisplayWidth();
    void columnWithoutTextIsLeftOut();
    void spanningRowDoesNotWidenColumns();
    void longCellIsCutToTheColumnsMaximum();
    void tableIsNarrowedToTheLine();
    void tableIsNotNarrowedBelowItsMinimum();
    void lineBreaksDoNotBreakRows();
    void tableWithoutRowsIsEmpty();
};

void TextTableTest::cellsAlignByDisplayWidth()
{
    TextTable table = exampleTable();
    table.addRow({QStringLiteral("1"), QStringLiteral("口径"), QStringLiteral("x")});
    table.addRow({QStringLiteral("10"), QStringLiteral("Größe"), QStringLiteral("y")});
    QCOMPARE(table.toString(QStringLiteral("  "), anyWidth), QStringLiteral("  No  Name   Note\n"
                                                                            "  ──  ─────  ────\n"
                                                                            "   1  口径   x\n"
                                                                            "  10  Größe  y\n"));
}

void TextTableTest::columnWithoutTextIsLeftOut()
{
    TextTable table = exampleTable();
    table.addRow({QStringLiteral("1"), QString(), QStringLiteral("x")});
    QCOMPARE(table.toString(QString(), anyWidth), QStringLiteral("No  Note\n"
                                                                 "──  ────\n"
                                                                 " 1  x\n"));
}

void TextTableTest::spanningRowDoesNotWidenColumns()
{
    TextTable table = exampleTable();
    table.addSpanningRow(QStringLiteral("(nothing known of this one)"));
    table.addRow({QStringLiteral("1"), QStringLiteral("a"), QString()});
    QCOMPARE(table.toString(QStringLiteral(" "), anyWidth), QStringLiteral(" No  Name\n"
                                                                           " ──  ────\n"
                                                                           " (nothing known of this one)\n"
                                                                           "  1  a\n"));
}

void TextTableTest::longCellIsCutToTheColumnsMaximum()
{
    TextTable table = exampleTable();
    table.addRow({QStringLiteral("1"), QStringLiteral("abcdefghijklmnop"), QString()});
    QCOMPARE(table.toString(QString(), anyWidth), QStringLiteral("No  Name\n"
                                                                 "──  ────────────\n"
                                                                 " 1  abcdefghijk…\n"));
}

void TextTableTest::tableIsNarrowedToTheLine()
{
    TextTable table = exampleTable();
    table.addRow({QStringLiteral("1"), QStringLiteral("one two"), QStringLiteral("left alone")});
    table.addRow({QStringLiteral("2"), QStringLiteral("three"), QString()});
    QCOMPARE(table.toString(QString(), 18), QStringLiteral("No  Name    Note\n"
                                                           "──  ──────  ──────\n"
                                                           " 1  one     left\n"
                                                           "    two     alone\n"
                                                           " 2  three\n"));
}

void TextTableTest::tableIsNotNarrowedBelowItsMinimum()
{
    TextTable table = exampleTable();
    table.addRow({QStringLiteral("1"), QStringLiteral("abcdef"), QStringLiteral("x")});
    QCOMPARE(table.toString(QString(), 3), QStringLiteral("No  Name  Note\n"
                                                          "──  ────  ────\n"
                                                          " 1  abcd  x\n"
                                                          "    ef\n"));
}

void TextTableTest::lineBreaksDoNotBreakRows()
{
    TextTable table = exampleTable();
    table.addRow({QStringLiteral("1"), QStringLiteral("a\nb"), QString()});
    QVERIFY(table.toString(QString(), anyWidth).endsWith(QStringLiteral(" 1  a\\nb\n")));
}

void TextTableTest::tableWithoutRowsIsEmpty()
{
    QCOMPARE(exampleTable().toString(QStringLiteral("  "), anyWidth), QString());
}

QTEST_GUILESS_MAIN(TextTableTest)
#include "TextTableTest.moc"
