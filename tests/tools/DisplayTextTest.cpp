#include "tools/text/DisplayText.h"

#include <QTest>

using namespace Tobrix::Tools;

class DisplayTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void charactersThatCommandTheTerminalAreEscaped_data();
    void charactersThatCommandTheTerminalAreEscaped();
    void widthCountsCells_data();
    void widthCountsCells();
    void longTextEndsWithEllipsis_data();
    void longTextEndsWithEllipsis();
    void textBreaksBetweenWords_data();
    void textBreaksBetweenWords();
    void numbersHaveNoNeedlessDigits_data();
    void numbersHaveNoNeedlessDigits();
};

void DisplayTextTest::charactersThatCommandTheTerminalAreEscaped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << "Größe, 口径 😀"
                           << "Größe, 口径 😀";
    QTest::newRow("line break") << "a\nb\r\tc"
                                << "a\\nb\\r\\tc";
    QTest::newRow("escape") << QStringLiteral("a\u001b[2J") << "a\\u001b[2J";
    QTest::newRow("eight-bit control") << QStringLiteral("a\u009b2J") << "a\\u009b2J";
    QTest::newRow("direction") << QStringLiteral("a\u202eb") << "a\\u202eb";
    QTest::newRow("line separator") << QStringLiteral("a\u2028b") << "a\\u2028b";
}

void DisplayTextTest::charactersThatCommandTheTerminalAreEscaped()
{
    QFETCH(QString, text);
    QTEST(printable(text), "expected");
}

void DisplayTextTest::widthCountsCells_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("letters") << "abc" << 3;
    QTest::newRow("umlauts") << "äöü" << 3;
    QTest::newRow("combining mark") << QStringLiteral("a\u0308") << 1;
    QTest::newRow("wide characters") << "口径" << 4;
    QTest::newRow("beyond 16 bits") << "😀" << 2;
}

void DisplayTextTest::widthCountsCells()
{
    QFETCH(QString, text);
    QTEST(displayWidth(text), "expected");
}

void DisplayTextTest::longTextEndsWithEllipsis_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("expected");
    QTest::newRow("fits") << "abcd" << 4 << "abcd";
    QTest::newRow("too long") << "abcde" << 4 << "abc…";
    QTest::newRow("wide character does not fit") << "ab口径" << 4 << "ab…";
    QTest::newRow("surrogates stay together") << "a😀😀" << 4 << "a😀…";
}

void DisplayTextTest::longTextEndsWithEllipsis()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QTEST(elided(text, width), "expected");
}

void DisplayTextTest::textBreaksBetweenWords_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("expected");
    QTest::newRow("fits") << "one two" << 7 << "one two";
    QTest::newRow("empty") << QString() << 5 << QString();
    QTest::newRow("no room") << "ab" << 0 << "a|b";
    QTest::newRow("blank") << "one two three" << 8 << "one two|three";
    QTest::newRow("blank before punctuation") << "by 0.1" << 5 << "by|0.1";
    QTest::newRow("point") << "SECTION.OBJ" << 9 << "SECTION.|OBJ";
    QTest::newRow("capital") << "MultiLineTextbox" << 11 << "MultiLine|Textbox";
    QTest::newRow("nowhere") << "abcdefgh" << 3 << "abc|def|gh";
}

void DisplayTextTest::textBreaksBetweenWords()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QTEST(wrapped(text, width).join(QLatin1Char('|')), "expected");
}

void DisplayTextTest::numbersHaveNoNeedlessDigits_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("expected");
    QTest::newRow("whole") << 1000000.0 << "1000000";
    QTest::newRow("fraction") << 0.1 << "0.1";
    QTest::newRow("negative") << -2.5 << "-2.5";
    QTest::newRow("huge") << 1e300 << "1e+300";
    QTest::newRow("nan") << qQNaN() << "nan";
    QTest::newRow("infinity") << -qInf() << "-inf";
}

void DisplayTextTest::numbersHaveNoNeedlessDigits()
{
    QFETCH(double, number);
    QTEST(numberText(number), "expected");
}

QTEST_GUILESS_MAIN(DisplayTextTest)
#include "DisplayTextTest.moc"
