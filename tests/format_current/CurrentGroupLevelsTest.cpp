// Group levels: a digit in an attribute's name is a bit in a mask.

#include "CurrentFormat.h"

#include <QTest>

#include <algorithm>

using namespace Tobrix::Templates;

namespace {

QByteArray restriction(const QByteArray &simple, const QByteArray &content)
{
    return "<VisibilityRestriction" + simple + ">" + content + "</VisibilityRestriction>";
}

QByteArray groupLevel(const QByteArray &attributes)
{
    return restriction(" Simple=\"false\"", "<GroupLevel " + attributes + "/>");
}

/// The levels of a column with some elements; -1 when there is no such column.
int levelsOf(const QByteArray &elements)
{
    const ReadElements read(viewOf(columnOf(elements)));
    return read.onlyColumn() ? static_cast<int>(read.onlyColumn()->groupLevel()) : -1;
}

} // namespace

class CurrentGroupLevelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLevelIsABit_data();
    void everyLevelIsABit();
    void levelsAddUp_data();
    void levelsAddUp();
    void levelIsTheSixthCharacterOfTheName_data();
    void levelIsTheSixthCharacterOfTheName();
    void levelNeedsTheExactTrue_data();
    void levelNeedsTheExactTrue();
    void levelOfSeveralAttributesCountsWhenAnyIsTrue_data();
    void levelOfSeveralAttributesCountsWhenAnyIsTrue();
    void levelsCountOnlyWhenNotSimple_data();
    void levelsCountOnlyWhenNotSimple();
    void firstGroupLevelBelowTheRestrictionCounts_data();
    void firstGroupLevelBelowTheRestrictionCounts();
};

void CurrentGroupLevelsTest::everyLevelIsABit_data()
{
    QTest::addColumn<int>("level");
    for (int level = 1; level <= 9; ++level) {
        QTest::addRow("level %d", level) << level;
    }
}

void CurrentGroupLevelsTest::everyLevelIsABit()
{
    QFETCH(int, level);
    const QByteArray name = "Level" + QByteArray::number(level);
    QCOMPARE(levelsOf(groupLevel(name + "=\"true\"")), 1 << (level - 1));
    QCOMPARE(levelsOf(groupLevel(name + "=\"false\"")), 0);
}

void CurrentGroupLevelsTest::levelsAddUp_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<int>("levels");
    QTest::newRow("none") << QByteArray() << 0;
    QTest::newRow("1 and 3, not 2") << QByteArray(R"(Level1="true" Level2="false" Level3="true")") << 5;
    QTest::newRow("backwards") << QByteArray(R"(Level3="true" Level2="false" Level1="true")") << 5;
    QTest::newRow("1 and 9") << QByteArray(R"(Level9="true" Level1="true")") << 257;
    QByteArray all;
    QByteArray none;
    for (int level = 1; level <= 9; ++level) {
        all += "Level" + QByteArray::number(level) + "=\"true\" ";
        none += "Level" + QByteArray::number(level) + "=\"false\" ";
    }
    QTest::newRow("all") << all << 511;
    QTest::newRow("all false") << none << 0;
}

void CurrentGroupLevelsTest::levelsAddUp()
{
    QFETCH(QByteArray, attributes);
    QFETCH(int, levels);
    QCOMPARE(levelsOf(groupLevel(attributes)), levels);
}

void CurrentGroupLevelsTest::levelIsTheSixthCharacterOfTheName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("levels");
    const auto row = [](const char *name, int levels) { QTest::newRow(name) << QByteArray(name) << levels; };
    row("Level2", 2);
    row("level2", 2);
    row("Group2", 2);
    row("abcde2", 2);
    row("A1234567", 16);
    row("Level2x", 2);
    row("Level29", 2);
    row("Level2_of_9", 2);
    row("_____2", 2);
    row("a:bcd2", 2);
    row("Level0", 0);
    row("Level", 0);
    row("Lev2", 0);
    row("A2345", 0);
    row("L", 0);
    row("LevelA", 0);
    row("Level_2", 0);
    row("Levels2", 0);
    row("Level.2", 0);
    row("Lvl2xx", 0);
    row("Level\xd9\xa3", 0);     // Arabic-Indic three
    row("Level\xe0\xa5\xa8", 0); // Devanagari two
    row("Lev\xc3\xa4l4", 8);     // two bytes, one character
}

void CurrentGroupLevelsTest::levelIsTheSixthCharacterOfTheName()
{
    QFETCH(QByteArray, name);
    QFETCH(int, levels);
    QCOMPARE(levelsOf(groupLevel(name + "=\"true\"")), levels);
    // An attribute without level does not affect the others.
    QCOMPARE(levelsOf(groupLevel(name + "=\"true\" Stage9=\"true\"")), levels | 256);
    QCOMPARE(levelsOf(groupLevel(name + "=\"false\" Stage9=\"true\"")), 256);
}

void CurrentGroupLevelsTest::levelNeedsTheExactTrue_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char *value : {"", "True", "TRUE", "1", "yes", " true", "true ", "false"}) {
        QTest::addRow("\"%s\"", value) << QByteArray(value);
    }
}

void CurrentGroupLevelsTest::levelNeedsTheExactTrue()
{
    QFETCH(QByteArray, value);
    QCOMPARE(levelsOf(groupLevel("Level2=\"" + value + "\" Level4=\"true\"")), 8);
}

void CurrentGroupLevelsTest::levelOfSeveralAttributesCountsWhenAnyIsTrue_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<int>("levels");
    QTest::newRow("both true") << QByteArray(R"(Level2="true" Group2="true")") << 2;
    QTest::newRow("first true") << QByteArray(R"(Level2="true" Group2="false")") << 2;
    QTest::newRow("second true") << QByteArray(R"(Level2="false" Group2="true")") << 2;
    QTest::newRow("neither") << QByteArray(R"(Level2="false" Group2="false")") << 0;
    QTest::newRow("one of many")
        << QByteArray(R"(Level2="false" Group2="false" Stage2="true" Level2a="false" Level2b="false")") << 2;
    QTest::newRow("all of the highest") << QByteArray(R"(Level9="true" Group9="true" Stage9="true")") << 256;
}

void CurrentGroupLevelsTest::levelOfSeveralAttributesCountsWhenAnyIsTrue()
{
    QFETCH(QByteArray, attributes);
    QFETCH(int, levels);
    QCOMPARE(levelsOf(groupLevel(attributes)), levels);
    // Independent of the order of attributes: QDomDocument orders them by hash, and each further attribute
    // changes that order.
    QByteArray more = attributes;
    for (int i = 0; i < 40; ++i) {
        more += " Note_" + QByteArray::number(i) + "=\"true\"";
        const int noted = i == 0 ? 0 : (1 << std::min(i, 9)) - 1;
        QCOMPARE(levelsOf(groupLevel(more)), levels | noted);
    }
}

void CurrentGroupLevelsTest::levelsCountOnlyWhenNotSimple_data()
{
    QTest::addColumn<QByteArray>("simple");
    QTest::addColumn<int>("levels");
    QTest::newRow("false") << QByteArray(" Simple=\"false\"") << 4;
    for (const char *simple : {"", "true", "False", "FALSE", "0", "no", " false", "false "}) {
        QTest::addRow("\"%s\"", simple) << QByteArray(" Simple=\"") + simple + "\"" << 0;
    }
    QTest::newRow("missing") << QByteArray() << 0;
    QTest::newRow("lower case") << QByteArray(" simple=\"false\"") << 0;
}

void CurrentGroupLevelsTest::levelsCountOnlyWhenNotSimple()
{
    QFETCH(QByteArray, simple);
    QFETCH(int, levels);
    QCOMPARE(levelsOf(restriction(simple, "<GroupLevel Level3=\"true\"/>")), levels);
}

void CurrentGroupLevelsTest::firstGroupLevelBelowTheRestrictionCounts_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<int>("levels");
    const QByteArray notSimple = " Simple=\"false\"";
    const QByteArray two = "<GroupLevel Level2=\"true\"/>";
    const QByteArray three = "<GroupLevel Level3=\"true\"/>";
    QTest::newRow("none") << restriction(notSimple, "") << 0;
    QTest::newRow("first of two") << restriction(notSimple, two + three) << 2;
    QTest::newRow("empty one first") << restriction(notSimple, "<GroupLevel/>" + two) << 0;
    QTest::newRow("deeper") << restriction(notSimple, "<A><B>" + two + "</B></A>") << 2;
    QTest::newRow("deeper but first") << restriction(notSimple, "<A>" + two + "</A>" + three) << 2;
    QTest::newRow("within another") << restriction(notSimple,
                                                   "<GroupLevel Level3=\"true\">" + two + "</GroupLevel>")
                                    << 4;
    QTest::newRow("beside the restriction") << restriction(notSimple, "") + two << 0;
    QTest::newRow("before the restriction") << two + restriction(notSimple, three) << 4;
    QTest::newRow("below a second restriction")
        << restriction(notSimple, "") + restriction(notSimple, two) << 0;
    QTest::newRow("second restriction is not simple")
        << restriction("", three) + restriction(notSimple, two) << 0;
    QTest::newRow("another element's levels") << restriction(" Simple=\"false\" Level2=\"true\"", three) << 4;
}

void CurrentGroupLevelsTest::firstGroupLevelBelowTheRestrictionCounts()
{
    QFETCH(QByteArray, elements);
    QFETCH(int, levels);
    QCOMPARE(levelsOf(elements), levels);
}

QTEST_GUILESS_MAIN(CurrentGroupLevelsTest)

#include "CurrentGroupLevelsTest.moc"
