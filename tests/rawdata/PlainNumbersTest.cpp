// Plain digits are read without Qt's conversions, and must come out just as these give them.

#include "rawdata/PlainNumbers_p.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>

using namespace Tobrix::Templates;

namespace {

bool isSame(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

} // namespace

class PlainNumbersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numberIsWhatQtMakesOfIt_data();
    void numberIsWhatQtMakesOfIt();
    void anyTextOfDigitsAndSignsIsWhatQtMakesOfIt();
    void nullTextIsZero();
};

void PlainNumbersTest::numberIsWhatQtMakesOfIt_data()
{
    QTest::addColumn<QString>("text");
    const QStringList texts = {
        QStringLiteral(""),
        QStringLiteral("0"),
        QStringLiteral("007"),
        QStringLiteral("-0"),
        QStringLiteral("0.0"),
        QStringLiteral("0.1"),
        QStringLiteral("5."),
        QStringLiteral(".5"),
        QStringLiteral("."),
        QStringLiteral("1.2.3"),
        QStringLiteral("1,5"),
        QStringLiteral("12abc"),
        QStringLiteral("0x10"),
        QStringLiteral(" 1"),
        QStringLiteral("1 "),
        QStringLiteral("+1"),
        QStringLiteral("-1.25"),
        QStringLiteral("1e3"),
        QStringLiteral("nan"),
        QStringLiteral("inf"),
        QStringLiteral("123456789"),
        QStringLiteral("2147483647"),
        QStringLiteral("2147483648"),
        QStringLiteral("999999999999999"),
        QStringLiteral("9999999999999999"),
        QStringLiteral("0.00000000000001"),
        QStringLiteral("123456.12345678"),
        QStringLiteral("4.35"),
        QStringLiteral("\u0663"),
    };
    for (const auto &text : texts) {
        QTest::newRow(qPrintable(QLatin1Char('"') + text + QLatin1Char('"'))) << text;
    }
}

void PlainNumbersTest::numberIsWhatQtMakesOfIt()
{
    QFETCH(QString, text);
    QCOMPARE(toDecimalInt(QStringRef(&text)), text.toInt());
    QVERIFY2(isSame(toDecimalDouble(QStringRef(&text)), text.toDouble()),
             qPrintable(QString::number(toDecimalDouble(QStringRef(&text)), 'g', 17)));
}

void PlainNumbersTest::anyTextOfDigitsAndSignsIsWhatQtMakesOfIt()
{
    QRandomGenerator random(20);
    const QString characters = QStringLiteral("00112345678999..-+e");
    for (int i = 0; i < 200'000; ++i) {
        QString text;
        const int size = random.bounded(18);
        while (text.size() < size) {
            // Mostly digits, so that most texts are numbers.
            text += characters.at(random.bounded(i % 4 == 0 ? characters.size() : 15));
        }
        QVERIFY2(toDecimalInt(QStringRef(&text)) == text.toInt(), qPrintable(text));
        QVERIFY2(isSame(toDecimalDouble(QStringRef(&text)), text.toDouble()), qPrintable(text));
    }
}

void PlainNumbersTest::nullTextIsZero()
{
    QCOMPARE(toDecimalInt(QStringRef()), 0);
    QCOMPARE(toDecimalDouble(QStringRef()), 0.0);
}

QTEST_APPLESS_MAIN(PlainNumbersTest)

#include "PlainNumbersTest.moc"
