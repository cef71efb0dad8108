#include "HostileFile.h"

#include "loading/CTemplateReader.h"
#include "model/CCatalogTemplate.h"
#include "model/CDecimalColumn.h"
#include "model/CIntegerColumn.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateLegendDataItem.h"
#include "model/CTextColumn.h"
#include "standalone_host/StandaloneHost.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace Tobrix::Templates;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

/// A text in a numeric field, and its value as each kind of number.
struct NumberText
{
    const char *name;
    const char *text; ///< in UTF-8
    int whole;
    double real;
    int saturated; ///< the real number, saturated to an int
};

const NumberText numberTexts[] = {
    {"plain", "42", 42, 42.0, 42},
    {"negative", "-42", -42, -42.0, -42},
    {"plus sign", "+42", 42, 42.0, 42},
    {"zeros in front", "0000000000042", 42, 42.0, 42},
    {"zero below zero", "-0", 0, -0.0, 0},
    {"highest", "2147483647", highest, 2147483647.0, highest},
    {"one above the highest", "2147483648", 0, 2147483648.0, highest},
    {"lowest", "-2147483648", lowest, -2147483648.0, lowest},
    {"one below the lowest", "-2147483649", 0, -2147483649.0, lowest},
    {"highest of 64 bits", "9223372036854775807", 0, 9223372036854775807.0, highest},
    {"above 64 bits", "99999999999999999999999", 0, 99999999999999999999999.0, highest},
    {"places", "3.99", 0, 3.99, 3},
    {"negative places", "-3.99", 0, -3.99, -3},
    {"point in front", ".5", 0, 0.5, 0},
    {"point at the end", "5.", 0, 5.0, 5},
    {"comma", "3,5", 0, 0.0, 0},
    {"group separator", "1,000", 0, 0.0, 0},
    {"exponent", "1e3", 0, 1000.0, 1000},
    {"exponent in upper case", "1E3", 0, 1000.0, 1000},
    {"huge exponent", "1e999", 0, infinity, highest},
    {"huge exponent of a negative number", "-1e999", 0, -infinity, lowest},
    {"huge exponent below zero", "1e-999", 0, 0.0, 0},
    {"exponent out of range", "1e99999999999999999999", 0, infinity, highest},
    {"largest", "1.7976931348623157e308", 0, 1.7976931348623157e308, highest},
    {"smallest", "5e-324", 0, 5e-324, 0},
    {"exponent without number", "e5", 0, 0.0, 0},
    {"number without exponent", "5e", 0, 0.0, 0},
    {"infinity", "inf", 0, infinity, highest},
    {"negative infinity", "-inf", 0, -infinity, lowest},
    {"infinity in full", "infinity", 0, 0.0, 0},
    {"not a number", "nan", 0, notANumber, 0},
    {"not a number in other letters", "NaN", 0, notANumber, 0},
    {"hexadecimal", "0x10", 0, 0.0, 0},
    {"hexadecimal with exponent", "0x1p3", 0, 0.0, 0},
    {"octal", "010", 10, 10.0, 10},
    {"binary", "0b101", 0, 0.0, 0},
    {"trailing letters", "12abc", 0, 0.0, 0},
    {"letters in front", "abc12", 0, 0.0, 0},
    {"blanks around", "  42  ", 42, 42.0, 42},
    {"line ends around", "\n42\t", 42, 42.0, 42},
    {"blank within", "4 2", 0, 0.0, 0},
    {"sign apart", "- 42", 0, 0.0, 0},
    {"two signs", "--42", 0, 0.0, 0},
    {"signs of both kinds", "+-42", 0, 0.0, 0},
    {"sign alone", "-", 0, 0.0, 0},
    {"point alone", ".", 0, 0.0, 0},
    {"nothing", "", 0, 0.0, 0},
    {"arabic digits", "\u0664\u0662", 0, 0.0, 0},
    {"bengali digits", "\u09ea\u09e8", 0, 0.0, 0},
    {"wide digits", "\uff14\uff12", 0, 0.0, 0},
    {"superscript", "4\u00b2", 0, 0.0, 0},
    {"typographic minus", "\u221242", -42, -42.0, -42},
    {"no-break space", "\u00a042\u00a0", 42, 42.0, 42},
    {"word", "forty-two", 0, 0.0, 0},
};

/// Equal numbers, with NaN equal to itself and zero different from negative zero.
bool isSame(double a, double b)
{
    return std::isnan(b) ? std::isnan(a) : a == b && std::signbit(a) == std::signbit(b);
}

using Template = std::unique_ptr<CCatalogTemplate>;

Template loaded(const HostileFolder &folder, Format format, const QByteArray &body)
{
    CCatalogTemplate *result = nullptr;
    CTemplateReader::readFile(folder.write(format, document(format, body)), CTemplateReader::ReaderFlags(0),
                              result);
    return Template(result);
}

/// A column of one data type with a text in all numeric fields.
QByteArray column(Format format, const QByteArray &type, const QByteArray &text)
{
    if (format == Format::Legacy) {
        const auto element = [&](const QByteArray &name) {
            return "<" + name + ">" + text + "</" + name + ">";
        };
        return "<PROGVIEW/><SYSCOL><COL_DataType>" + type + "</COL_DataType>" + element("COL_GroupLevel") +
               element("COL_RangeFrom") + element("COL_RangeTo") + element("COL_Steps") +
               element("COL_DataSourceType") + element("COL_ControlType") + element("COL_Width") +
               element("COL_SortOrder") + element("COL_Length") + element("COL_Default") +
               element("COL_Precision") + "</SYSCOL>";
    }
    const QByteArray name = type == "INT" ? "Integer" : type == "DEC" ? "Decimal" : "Text";
    const auto is = [&](const QByteArray &attribute) { return ' ' + attribute + "='" + text + '\''; };
    return "<DefaultValues><DefaultValueScope><DefaultValueItem View='' " + is("Value") +
           "/></DefaultValueScope></DefaultValues><View><Column DataType='" + name + "'" + is("Width") +
           is("Ordinal") + "><TextLengthRestriction" + is("Max") + "/><NumericRangeRestriction" + is("From") +
           is("To") + is("Step") + is("Precision") + "/></Column></View>";
}

/// The first column of the only view.
const CTemplateColumn *onlyColumn(const Template &from)
{
    const CProgramView *const view = from ? from->programView(0) : nullptr;
    return view && view->columnCount() == 1 ? view->column(0) : nullptr;
}

} // namespace

Q_DECLARE_METATYPE(Format)

class HostileNumbersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decimalColumnKeepsNumbers_data() { addRows(); }
    void decimalColumnKeepsNumbers();
    void integerColumnKeepsTheNearestNumbers_data() { addRows(); }
    void integerColumnKeepsTheNearestNumbers();
    void textLengthIsWhole_data() { addRows(); }
    void textLengthIsWhole();
    void sortOrderOfListItemIsWhole_data() { addRows(); }
    void sortOrderOfListItemIsWhole();
    void legendBoundIsReal_data() { addRows(); }
    void legendBoundIsReal();
    void boundThatIsNoNumberSortsBehindAllNumbers_data();
    void boundThatIsNoNumberSortsBehindAllNumbers();

private:
    static void addRows();

    const HostileFolder m_folder;
};

void HostileNumbersTest::addRows()
{
    QTest::addColumn<Format>("format");
    QTest::addColumn<int>("index");
    int index = 0;
    for (const auto &row : numberTexts) {
        QTest::addRow("%s, legacy", row.name) << Format::Legacy << index;
        QTest::addRow("%s, current", row.name) << Format::Current << index;
        ++index;
    }
}

// An empty attribute is present, but no number; an empty element has no text, and leaves its field unchanged.
#define FETCH_NUMBER                                                                                         \
    QFETCH(Format, format);                                                                                  \
    QFETCH(int, index);                                                                                      \
    const NumberText &number = numberTexts[index];                                                           \
    if (format == Format::Legacy && !*number.text) {                                                         \
        return;                                                                                              \
    }

void HostileNumbersTest::decimalColumnKeepsNumbers()
{
    FETCH_NUMBER
    const Template from = loaded(m_folder, format, column(format, "DEC", number.text));
    const auto *decimal = dynamic_cast<const CDecimalColumn *>(onlyColumn(from));
    QVERIFY(decimal);
    QVERIFY2(isSame(decimal->minimumValue(), number.real),
             qPrintable(QString::number(decimal->minimumValue())));
    QVERIFY2(isSame(decimal->maximumValue(), number.real),
             qPrintable(QString::number(decimal->maximumValue())));
    QVERIFY2(isSame(decimal->stepInterval(), number.real),
             qPrintable(QString::number(decimal->stepInterval())));
    QCOMPARE(decimal->precision(), number.whole);
    QCOMPARE(decimal->width(), number.whole);
    QCOMPARE(decimal->sortOrder(), number.whole);
}

void HostileNumbersTest::integerColumnKeepsTheNearestNumbers()
{
    FETCH_NUMBER
    const Template from = loaded(m_folder, format, column(format, "INT", number.text));
    const auto *integer = dynamic_cast<const CIntegerColumn *>(onlyColumn(from));
    QVERIFY(integer);
    QCOMPARE(integer->minimumValue(), number.saturated);
    QCOMPARE(integer->maximumValue(), number.saturated);
    QCOMPARE(integer->stepInterval(), number.saturated);
    QCOMPARE(integer->width(), number.whole);
}

void HostileNumbersTest::textLengthIsWhole()
{
    FETCH_NUMBER
    const Template from = loaded(m_folder, format, column(format, "TXT", number.text));
    const auto *text = dynamic_cast<const CTextColumn *>(onlyColumn(from));
    QVERIFY(text);
    QCOMPARE(text->maximumTextLength(), format == Format::Legacy ? number.whole : number.saturated);
}

void HostileNumbersTest::sortOrderOfListItemIsWhole()
{
    FETCH_NUMBER
    const QByteArray text = number.text;
    const QByteArray body =
        format == Format::Legacy
            ? "<SYSLIST><LIST_Name>n</LIST_Name><LIST_SortOrder>" + text + "</LIST_SortOrder></SYSLIST>"
            : "<ValueList Name='n' CompatibleListClassType='" + text + "'><ValueListItem OrdinalIndex='" +
                  text + "'/></ValueList>";
    const Template from = loaded(m_folder, format, body);
    QVERIFY(from);
    const auto items = from->itemList(QStringLiteral("n"));
    QCOMPARE(items.size(), 1);
    QCOMPARE(items.first()->sortOrder(), number.whole);
}

void HostileNumbersTest::legendBoundIsReal()
{
    QFETCH(Format, format);
    QFETCH(int, index);
    const NumberText &number = numberTexts[index];
    const QByteArray text = number.text;
    const QByteArray body =
        format == Format::Legacy
            ? "<LegendOfClassification><class numberFrom='" + text + "' numberTo='" + text +
                  "'/></LegendOfClassification>"
            : "<ClassificationColorScopes><ClassificationColorScope Name='ClassColorDefault' Scope='Section'>"
              "<ClassificationColor From='" +
                  text + "' To='" + text + "'/></ClassificationColorScope></ClassificationColorScopes>";
    const Template from = loaded(m_folder, format, body);
    QVERIFY(from);
    const auto legend = from->getLegendOfClassification(false);
    QCOMPARE(legend.size(), 1);
    QVERIFY2(isSame(legend.first().numberFrom, number.real),
             qPrintable(QString::number(legend.first().numberFrom)));
    QVERIFY2(isSame(legend.first().numberTo, number.real),
             qPrintable(QString::number(legend.first().numberTo)));
}

void HostileNumbersTest::boundThatIsNoNumberSortsBehindAllNumbers_data()
{
    QTest::addColumn<Format>("format");
    QTest::newRow("legacy") << Format::Legacy;
    QTest::newRow("current") << Format::Current;
}

void HostileNumbersTest::boundThatIsNoNumberSortsBehindAllNumbers()
{
    QFETCH(Format, format);
    // Enough for a sort to leave its bounds without a strict weak ordering.
    QByteArray legendClasses;
    for (int i = 0; i < 200; ++i) {
        static const QByteArray bounds[] = {"nan", "3", "inf", "-inf", "nan", "1e300", "-1e300", "0"};
        const QByteArray &bound = bounds[i * 5 % 8];
        legendClasses += format == Format::Legacy ? "<class numberFrom='" + bound + "'/>"
                                                  : "<ClassificationColor From='" + bound + "'/>";
    }
    const QByteArray body = format == Format::Legacy
                                ? "<LegendOfClassification>" + legendClasses + "</LegendOfClassification>"
                                : "<ClassificationColorScopes><ClassificationColorScope "
                                  "Name='ClassColorDefault' Scope='Section'>" +
                                      legendClasses +
                                      "</ClassificationColorScope></ClassificationColorScopes>";
    const Template from = loaded(m_folder, format, body);
    QVERIFY(from);
    const auto legend = from->getLegendOfClassification(false);
    QCOMPARE(legend.size(), 200);
    for (int i = 1; i < legend.size(); ++i) {
        const double before = legend[i - 1].numberFrom;
        const double after = legend[i].numberFrom;
        QVERIFY2(std::isnan(after) || before <= after,
                 qPrintable(QStringLiteral("%1, %2").arg(before).arg(after)));
    }
    QVERIFY(std::isnan(legend.last().numberFrom));
}

int main(int argc, char *argv[])
{
    Tobrix::Standalone::StandaloneHost::instance().setLogSink([](int, const QString &, const QString &) {});
    QCoreApplication application(argc, argv);
    HostileNumbersTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "HostileNumbersTest.moc"
