#include "rawdata/CTemplateDataConverter.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

void addTextRows(const QVector<QPair<const char *, QString>> &rows)
{
    for (const auto &row : rows) {
        QTest::newRow(row.first) << row.second << false;
    }
}

} // namespace

class TemplateDataConverterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyTheExactTextTrueIsTrue_data();
    void onlyTheExactTextTrueIsTrue();
    void falseIsNoValueAtAll();
    void columnTypeCodeGivesItsNumber_data();
    void columnTypeCodeGivesItsNumber();
    void partsOfLongerTextsAreConverted();
};

void TemplateDataConverterTest::onlyTheExactTextTrueIsTrue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isTrue");
    QTest::newRow("true") << QStringLiteral("true") << true;
    addTextRows({
        {"capitalised", QStringLiteral("True")},
        {"upper case", QStringLiteral("TRUE")},
        {"blank before", QStringLiteral(" true")},
        {"blank behind", QStringLiteral("true ")},
        {"line break behind", QStringLiteral("true\n")},
        {"longer", QStringLiteral("trueish")},
        {"shorter", QStringLiteral("tru")},
        {"one", QStringLiteral("1")},
        {"yes", QStringLiteral("yes")},
        {"false", QStringLiteral("false")},
        {"zero", QStringLiteral("0")},
        {"blank", QStringLiteral(" ")},
        {"empty", QStringLiteral("")},
        {"null", QString()},
    });
}

void TemplateDataConverterTest::onlyTheExactTextTrueIsTrue()
{
    QFETCH(QString, text);
    QFETCH(bool, isTrue);
    using Converter = CTemplateDataConverter;
    const QStringRef reference(&text);
    QCOMPARE(Converter::stringToBool(text), isTrue);
    QCOMPARE(Converter::stringToBool(reference), isTrue);

    for (const QVariant &value :
         {Converter::stringToTobrixBool(text), Converter::stringToTobrixBool(reference)}) {
        QCOMPARE(value.isValid(), isTrue);
        if (isTrue) {
            QCOMPARE(value.userType(), static_cast<int>(QMetaType::Bool));
            QCOMPARE(value.toBool(), true);
        }
    }
}

void TemplateDataConverterTest::falseIsNoValueAtAll()
{
    const QVariant value = CTemplateDataConverter::stringToTobrixBool(QStringLiteral("false"));
    QVERIFY(!value.isValid());
    QVERIFY(value.isNull());
    QVERIFY(!CTemplateDataConverter::stringToTobrixBool(QStringRef()).isValid());
    QVERIFY(!CTemplateDataConverter::stringToBool(QStringRef()));
}

void TemplateDataConverterTest::columnTypeCodeGivesItsNumber_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("number");
    QTest::newRow("INT") << QStringLiteral("INT") << 2;
    QTest::newRow("DEC") << QStringLiteral("DEC") << 3;
    QTest::newRow("TXT") << QStringLiteral("TXT") << 1;
    QTest::newRow("GUI, identifiers are texts") << QStringLiteral("GUI") << 1;
    QTest::newRow("BOL") << QStringLiteral("BOL") << 4;
    QTest::newRow("DAT") << QStringLiteral("DAT") << 5;
    QTest::newRow("TIM") << QStringLiteral("TIM") << 6;
    for (const char *unknown : {"int", "dec", "txt", "gui", "bol", "dat", "tim", "Int", " INT", "INT ",
                                "INTE", "IN", "DATE", "XYZ", "1", " "}) {
        QTest::addRow("unknown \"%s\"", unknown) << QString(QLatin1String(unknown)) << 0;
    }
    QTest::newRow("empty") << QStringLiteral("") << 0;
    QTest::newRow("null") << QString() << 0;
}

void TemplateDataConverterTest::columnTypeCodeGivesItsNumber()
{
    QFETCH(QString, code);
    QTEST(static_cast<int>(CTemplateDataConverter::stringToColumnType(QStringRef(&code))), "number");
    QCOMPARE(static_cast<int>(CTemplateDataConverter::stringToColumnType(QStringRef())), 0);
}

void TemplateDataConverterTest::partsOfLongerTextsAreConverted()
{
    const QString text = QStringLiteral("<a>true</a><b>DEC</b>");
    QVERIFY(CTemplateDataConverter::stringToBool(text.midRef(3, 4)));
    QVERIFY(!CTemplateDataConverter::stringToBool(text.midRef(3, 5)));
    QCOMPARE(static_cast<int>(CTemplateDataConverter::stringToColumnType(text.midRef(14, 3))), 3);
}

QTEST_APPLESS_MAIN(TemplateDataConverterTest)

#include "TemplateDataConverterTest.moc"
