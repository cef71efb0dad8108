// The conversion of texts to numbers, in every numeric attribute.

#include "CurrentFormat.h"

#include "model/CDecimalColumn.h"
#include "model/CIntegerColumn.h"
#include "model/CListItem.h"
#include "model/CTextColumn.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace Tobrix::Templates;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr int least = std::numeric_limits<int>::min();
constexpr int greatest = std::numeric_limits<int>::max();

/// A text, and its conversion to each kind of number.
struct NumberText
{
    const char *text;
    int integer;    ///< As a whole number.
    double decimal; ///< As a decimal number.
    int truncated;  ///< As a decimal number, truncated.
};

const double notANumber = std::numeric_limits<double>::quiet_NaN();

const NumberText numberTexts[] = {
    {"", 0, 0.0, 0},
    {"0", 0, 0.0, 0},
    {"7", 7, 7.0, 7},
    {"-7", -7, -7.0, -7},
    {"+7", 7, 7.0, 7},
    {"-0", 0, -0.0, 0},
    {"007", 7, 7.0, 7},
    {"000000000000000007", 7, 7.0, 7},
    {"123456789", 123456789, 123456789.0, 123456789},
    {"1234567890", 1234567890, 1234567890.0, 1234567890},
    {"2147483647", greatest, 2147483647.0, greatest},
    {"-2147483648", least, -2147483648.0, least},
    {"2147483648", 0, 2147483648.0, greatest},
    {"-2147483649", 0, -2147483649.0, least},
    {"99999999999999999999", 0, 1e20, greatest},
    {"-99999999999999999999", 0, -1e20, least},
    {"1.5", 0, 1.5, 1},
    {"-1.9", 0, -1.9, -1},
    {"0.999", 0, 0.999, 0},
    {".5", 0, 0.5, 0},
    {"5.", 0, 5.0, 5},
    {"1e3", 0, 1000.0, 1000},
    {"1E3", 0, 1000.0, 1000},
    {"25e-1", 0, 2.5, 2},
    {"1e400", 0, infinity, greatest},
    {"-1e400", 0, -infinity, least},
    {"inf", 0, infinity, greatest},
    {"-inf", 0, -infinity, least},
    {"nan", 0, notANumber, 0},
    {"0x10", 0, 0.0, 0},
    {"#10", 0, 0.0, 0},
    {"12abc", 0, 0.0, 0},
    {"abc", 0, 0.0, 0},
    {"1 2", 0, 0.0, 0},
    {"1,5", 0, 0.0, 0},
    {"1,000", 0, 0.0, 0},
    {"--1", 0, 0.0, 0},
    {" 5", 5, 5.0, 5},
    {"5 ", 5, 5.0, 5},
    {"- 5", 0, 0.0, 0},
    {"\xd9\xa3", 0, 0.0, 0}, // Arabic-Indic three
    {"1\xd9\xa3", 0, 0.0, 0},
    {"\xef\xbc\x95", 0, 0.0, 0}, // full-width five
    {"true", 0, 0.0, 0},
};

void addNumberRows()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("integer");
    QTest::addColumn<double>("decimal");
    QTest::addColumn<int>("truncated");
    for (const auto &row : numberTexts) {
        QTest::addRow("\"%s\"", row.text)
            << QByteArray(row.text) << row.integer << row.decimal << row.truncated;
    }
}

bool isSame(double actual, double expected)
{
    return std::isnan(expected) ? std::isnan(actual)
                                : actual == expected && std::signbit(actual) == std::signbit(expected);
}

QByteArray withValue(const QByteArray &pattern, const QByteArray &value)
{
    return QByteArray(pattern).replace('*', value);
}

} // namespace

class CurrentNumbersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeNumbersAreReadBase10_data();
    void wholeNumbersAreReadBase10();
    void limitsOfDecimalColumnsAreReadAsDecimals_data();
    void limitsOfDecimalColumnsAreReadAsDecimals();
    void limitsOfIntegerColumnsAreTruncatedAndSaturate_data();
    void limitsOfIntegerColumnsAreTruncatedAndSaturate();
    void maximumTextLengthIsTruncatedAndSaturates_data();
    void maximumTextLengthIsTruncatedAndSaturates();
    void missingMaximumTextLengthIs0();
    void boundsOfLegendsAreReadAsDecimals_data();
    void boundsOfLegendsAreReadAsDecimals();
};

void CurrentNumbersTest::wholeNumbersAreReadBase10_data()
{
    addNumberRows();
}

void CurrentNumbersTest::wholeNumbersAreReadBase10()
{
    QFETCH(QByteArray, text);
    QFETCH(int, integer);
    const ReadElements read(
        withValue("<ValueList Name=\"L\" CompatibleListClassType=\"*\"><ValueListItem "
                  "OrdinalIndex=\"*\"/></ValueList>",
                  text) +
        viewOf(withValue(
            "<Column DataType=\"Decimal\" Width=\"*\" Ordinal=\"*\"><ValueListName>L</ValueListName>"
            "<NumericRangeRestriction Precision=\"*\"/></Column>",
            text)));
    QVERIFY(read.onlyColumn());
    const auto &column = static_cast<const CDecimalColumn &>(*read.onlyColumn());
    QCOMPARE(column.width(), integer);
    QCOMPARE(column.sortOrder(), integer);
    QCOMPARE(column.precision(), integer);
    QCOMPARE(static_cast<int>(column.typeFlags()), integer);
    QCOMPARE(read.rawData().listItems.value(QStringLiteral("L"))->sortOrder(), integer);
}

void CurrentNumbersTest::limitsOfDecimalColumnsAreReadAsDecimals_data()
{
    addNumberRows();
}

void CurrentNumbersTest::limitsOfDecimalColumnsAreReadAsDecimals()
{
    QFETCH(QByteArray, text);
    QFETCH(double, decimal);
    const ReadElements read(
        viewOf(withValue("<Column DataType=\"Decimal\"><NumericRangeRestriction From=\"*\" To=\"*\" "
                         "Step=\"*\"/></Column>",
                         text)));
    QVERIFY(read.onlyColumn());
    const auto &column = static_cast<const CDecimalColumn &>(*read.onlyColumn());
    QVERIFY2(isSame(column.minimumValue(), decimal), QByteArray::number(column.minimumValue()).constData());
    QVERIFY2(isSame(column.maximumValue(), decimal), QByteArray::number(column.maximumValue()).constData());
    QVERIFY2(isSame(column.stepInterval(), decimal), QByteArray::number(column.stepInterval()).constData());
}

void CurrentNumbersTest::limitsOfIntegerColumnsAreTruncatedAndSaturate_data()
{
    addNumberRows();
}

void CurrentNumbersTest::limitsOfIntegerColumnsAreTruncatedAndSaturate()
{
    QFETCH(QByteArray, text);
    QFETCH(int, truncated);
    const ReadElements read(
        viewOf(withValue("<Column DataType=\"Integer\"><NumericRangeRestriction From=\"*\" To=\"*\" "
                         "Step=\"*\"/></Column>",
                         text)));
    QVERIFY(read.onlyColumn());
    const auto &column = static_cast<const CIntegerColumn &>(*read.onlyColumn());
    QCOMPARE(column.minimumValue(), truncated);
    QCOMPARE(column.maximumValue(), truncated);
    QCOMPARE(column.stepInterval(), truncated);
}

void CurrentNumbersTest::maximumTextLengthIsTruncatedAndSaturates_data()
{
    addNumberRows();
}

void CurrentNumbersTest::maximumTextLengthIsTruncatedAndSaturates()
{
    QFETCH(QByteArray, text);
    QFETCH(int, truncated);
    for (const char *dataType : {"Text", "Guid"}) {
        const ReadElements read(viewOf(columnOf(withValue("<TextLengthRestriction Max=\"*\"/>", text),
                                                QByteArray("DataType=\"") + dataType + "\"")));
        QVERIFY(read.onlyColumn());
        QCOMPARE(static_cast<const CTextColumn &>(*read.onlyColumn()).maximumTextLength(), truncated);
    }
}

void CurrentNumbersTest::missingMaximumTextLengthIs0()
{
    for (const char *element :
         {"", "<TextLengthRestriction/>", "<TextLengthRestriction max=\"5\" Min=\"5\"/>"}) {
        const ReadElements read(viewOf(columnOf(element)));
        QVERIFY(read.onlyColumn());
        QCOMPARE(static_cast<const CTextColumn &>(*read.onlyColumn()).maximumTextLength(), 0);
    }
}

void CurrentNumbersTest::boundsOfLegendsAreReadAsDecimals_data()
{
    addNumberRows();
}

void CurrentNumbersTest::boundsOfLegendsAreReadAsDecimals()
{
    QFETCH(QByteArray, text);
    QFETCH(double, decimal);
    const ReadElements read(
        withValue("<ClassificationColorScopes><ClassificationColorScope Name=\"ClassColorDefault\" "
                  "Scope=\"Lateral\"><ClassificationColor From=\"*\" To=\"*\"/>"
                  "</ClassificationColorScope></ClassificationColorScopes>",
                  text));
    QCOMPARE(read.rawData().legendB.size(), 1);
    const auto &legendClass = read.rawData().legendB.first();
    QVERIFY2(isSame(legendClass.numberFrom, decimal), QByteArray::number(legendClass.numberFrom).constData());
    QVERIFY2(isSame(legendClass.numberTo, decimal), QByteArray::number(legendClass.numberTo).constData());
}

QTEST_GUILESS_MAIN(CurrentNumbersTest)

#include "CurrentNumbersTest.moc"
