// The classification legends of a legacy document.

#include "support/LegacyReading.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

/// A summary of a legend: id and captions of each legend class.
QStringList summaryOf(const QList<CTemplateLegendDataItem> &legend)
{
    QStringList summary;
    for (const auto &legendClass : legend) {
        summary.append(QStringLiteral("%1:%2:%3").arg(legendClass.id, legendClass.textA, legendClass.textB));
    }
    return summary;
}

QByteArray legend(const QByteArray &content)
{
    return legacyDocument("<LegendOfClassification>" + content + "</LegendOfClassification>");
}

CTemplateLegendDataItem onlyLegendClassOf(const LegacyReading &reading)
{
    CTemplateLegendDataItem none;
    none.id = QStringLiteral("not alone");
    return reading.isRead && reading.rawData.legendA.size() == 1 ? reading.rawData.legendA.first() : none;
}

struct LegendRow
{
    const char *name;
    const char *content;
    QStringList legendA;
    QStringList legendB;
};

QStringList classes(const char *text)
{
    return QString(QLatin1String(text)).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

const std::vector<LegendRow> legendRows = {
    {"empty", "", {}, {}},
    {"sections", "<Section><class id='1'/><class id='2'/></Section>", classes("1:: 2::"), {}},
    {"laterals", "<Lateral><class id='1'/></Lateral>", {}, classes("1::")},
    {"both", "<Section><class id='1'/></Section><Lateral><class id='2'/></Lateral>", classes("1::"),
     classes("2::")},
    {"laterals first", "<Lateral><class id='2'/></Lateral><Section><class id='1'/></Section>", classes("1::"),
     classes("2::")},
    {"legend classes are not sorted here",
     "<Section><class id='2' numberFrom='2'/><class id='1' numberFrom='1'/></Section>",
     classes("2:: 1::"),
     {}},
    {"class before any group is a section's", "<class id='1'/>", classes("1::"), {}},
    {"first group of sections clears a class before it",
     "<class id='1'/><Section><class id='2'/></Section>",
     classes("2::"),
     {}},
    {"group of laterals leaves a class before it", "<class id='1'/><Lateral><class id='2'/></Lateral>",
     classes("1::"), classes("2::")},
    {"second group of sections clears the first",
     "<Section><class id='1'/></Section><Section><class id='2'/></Section>",
     classes("2::"),
     {}},
    {"second group of laterals clears the first", "<Lateral><class id='1'/></Lateral><Lateral/>", {}, {}},
    {"class after a group still belongs to it", "<Lateral/><class id='1'/>", {}, classes("1::")},
    {"group within a group",
     "<Section><class id='1'/><Lateral><class id='2'/></Lateral><class id='3'/></Section>", classes("1::"),
     classes("2:: 3::")},
    {"class within an unknown element", "<Other><class id='1'/></Other>", classes("1::"), {}},
    {"class within a class", "<class id='1'><class id='2'/></class>", classes("1:: 2::"), {}},
    {"unknown elements", "<Node/><Section><klass id='1'/><Class id='2'/></Section>", {}, {}},

    {"captions within their class",
     "<class id='1'><legendA>a</legendA><legendB>b</legendB></class>",
     classes("1:a:b"),
     {}},
    {"captions after their class",
     "<class id='1'/><legendA>a</legendA><legendB>b</legendB>",
     classes("1:a:b"),
     {}},
    {"captions of the most recent class",
     "<class id='1'/><class id='2'/><legendA>a</legendA>",
     classes("1:: 2:a:"),
     {}},
    {"captions in the other group",
     "<Section><class id='1'/></Section><Lateral><legendA>a</legendA>"
     "<class id='2'/><legendA>b</legendA></Lateral>",
     classes("1::"), classes("2:b:")},
    {"caption before any class",
     "<legendA>a</legendA><legendB>b</legendB><class id='1'/>",
     classes("1::"),
     {}},
    {"caption before any class of its group",
     "<class id='1'/><Lateral><legendB>b</legendB></Lateral>",
     classes("1::"),
     {}},
    {"caption after a cleared group", "<class id='1'/><Section><legendA>a</legendA></Section>", {}, {}},
    {"last of two captions", "<class id='1'/><legendA>a</legendA><legendA>b</legendA>", classes("1:b:"), {}},
    {"empty caption changes nothing", "<class id='1'/><legendA>a</legendA><legendA/>", classes("1:a:"), {}},

    {"text of class and groups is nobody's",
     "x<Section>y<class id='1'>z</class>y</Section>x",
     classes("1::"),
     {}},
    {"text after an element without text is nobody's",
     "<class id='1'/><legendA></legendA>x<legendB/>y",
     classes("1::"),
     {}},
    {"text after a caption is nobody's", "<class id='1'/><legendA>a</legendA>x", classes("1:a:"), {}},
    {"text of unknown elements is nobody's",
     "<class id='1'/><legendC>c</legendC><LegendA>d</LegendA>",
     classes("1::"),
     {}},
    {"last text of a caption counts", "<class id='1'/><legendA>a<!-- c -->b</legendA>", classes("1:b:"), {}},
    {"last text of a caption is white space",
     "<class id='1'/><legendA>a<!-- c --> <b/></legendA>\n ",
     {QStringLiteral("1: :")},
     {}},
    {"comment before a caption", "<class id='1'/><legendB><!-- c -->b</legendB>", classes("1::b"), {}},
    {"CDATA after text", "<class id='1'/><legendA>a<![CDATA[b]]></legendA>", classes("1:b:"), {}},
    {"text after CDATA", "<class id='1'/><legendA><![CDATA[a]]>b</legendA>", classes("1:b:"), {}},
    {"text after an element within a caption is nobody's",
     "<class id='1'/><legendA>a<Other/>b</legendA>",
     classes("1:a:"),
     {}},
    {"text of an element within a caption is nobody's",
     "<class id='1'/><legendA>a<Other>b</Other></legendA>",
     classes("1:a:"),
     {}},
    {"caption within a caption",
     "<class id='1'/><legendA>a<legendB>b</legendB>c</legendA>",
     classes("1:a:b"),
     {}},
    {"class within a caption",
     "<class id='1'/><legendA>a<class id='2'/>b</legendA>",
     classes("1:a: 2::"),
     {}},
};

} // namespace

class LegacyLegendsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void legendsAreReadByGroups_data();
    void legendsAreReadByGroups();
    void attributeSetsItsFieldAlone_data();
    void attributeSetsItsFieldAlone();
    void attributesAreComparedExactly_data();
    void attributesAreComparedExactly();
    void classWithoutAttributesHasInitialValues();
    void attributesOfOtherElementsAreIgnored();
    void captionsKeepTheirWhiteSpace();
    void everyLegendElementStartsWithTheSections();
    void secondLegendElementClearsNothingByItself();
};

void LegacyLegendsTest::legendsAreReadByGroups_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("legendA");
    QTest::addColumn<QStringList>("legendB");
    for (const auto &row : legendRows) {
        QTest::newRow(row.name) << QByteArray(row.content) << row.legendA << row.legendB;
    }
}

void LegacyLegendsTest::legendsAreReadByGroups()
{
    QFETCH(QByteArray, content);
    const LegacyReading reading(legend(content));
    QVERIFY(reading.isRead);
    QTEST(summaryOf(reading.rawData.legendA), "legendA");
    QTEST(summaryOf(reading.rawData.legendB), "legendB");
}

void LegacyLegendsTest::attributeSetsItsFieldAlone_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("color");
    QTest::addColumn<double>("numberFrom");
    QTest::addColumn<double>("numberTo");
    const QString none;
    QTest::newRow("id") << QByteArray("id=\"3\"") << QStringLiteral("3") << none << -1.0 << -1.0;
    QTest::newRow("color") << QByteArray("color=\"#ff8000\"") << none << QStringLiteral("#ff8000") << -1.0
                           << -1.0;
    QTest::newRow("numberFrom") << QByteArray("numberFrom=\"1.5\"") << none << none << 1.5 << -1.0;
    QTest::newRow("numberTo") << QByteArray("numberTo=\"2.5\"") << none << none << -1.0 << 2.5;
    QTest::newRow("numberFrom that is no number")
        << QByteArray("numberFrom=\"low\"") << none << none << 0.0 << -1.0;
    QTest::newRow("empty numberTo") << QByteArray("numberTo=\"\"") << none << none << -1.0 << 0.0;
    QTest::newRow("empty id") << QByteArray("id=\"\"") << none << none << -1.0 << -1.0;
    QTest::newRow("entities") << QByteArray("id=\"&lt;3&amp;&#65;\"") << QStringLiteral("<3&A") << none
                              << -1.0 << -1.0;
    QTest::newRow("text is taken as it is")
        << QByteArray("color=\" Red \"") << none << QStringLiteral(" Red ") << -1.0 << -1.0;
}

void LegacyLegendsTest::attributeSetsItsFieldAlone()
{
    QFETCH(QByteArray, attribute);
    const CTemplateLegendDataItem legendClass =
        onlyLegendClassOf(LegacyReading(legend("<class " + attribute + "/>")));
    QTEST(legendClass.id, "id");
    QTEST(legendClass.color, "color");
    QTEST(legendClass.numberFrom, "numberFrom");
    QTEST(legendClass.numberTo, "numberTo");
    QCOMPARE(legendClass.textA, QString());
    QCOMPARE(legendClass.textB, QString());
}

void LegacyLegendsTest::attributesAreComparedExactly_data()
{
    QTest::addColumn<QByteArray>("attribute");
    for (const char *attribute :
         {"ID=\"3\"", "Id=\"3\"", "Color=\"red\"", "colour=\"red\"", "NumberFrom=\"1\"", "numberfrom=\"1\"",
          "NUMBERTO=\"2\"", "textA=\"a\"", "legendA=\"a\""}) {
        QTest::newRow(attribute) << QByteArray(attribute);
    }
}

void LegacyLegendsTest::attributesAreComparedExactly()
{
    QFETCH(QByteArray, attribute);
    CTemplateLegendDataItem legendClass =
        onlyLegendClassOf(LegacyReading(legend("<class " + attribute + "/>")));
    QVERIFY(legendClass == CTemplateLegendDataItem());
    QCOMPARE(legendClass.id, QString());
}

void LegacyLegendsTest::classWithoutAttributesHasInitialValues()
{
    CTemplateLegendDataItem legendClass = onlyLegendClassOf(LegacyReading(legend("<class/>")));
    QVERIFY(legendClass == CTemplateLegendDataItem());
    QCOMPARE(legendClass.id, QString());
}

void LegacyLegendsTest::attributesOfOtherElementsAreIgnored()
{
    const LegacyReading reading(legend("<Section id=\"1\" color=\"red\"><class id=\"2\">"
                                       "<legendA id=\"3\" color=\"red\">a</legendA></class></Section>"));
    const CTemplateLegendDataItem legendClass = onlyLegendClassOf(reading);
    QCOMPARE(legendClass.id, QStringLiteral("2"));
    QCOMPARE(legendClass.color, QString());
    QCOMPARE(legendClass.textA, QStringLiteral("a"));
}

void LegacyLegendsTest::captionsKeepTheirWhiteSpace()
{
    const LegacyReading reading(legend("<class><legendA> short\n term </legendA></class>"));
    QCOMPARE(onlyLegendClassOf(reading).textA, QStringLiteral(" short\n term "));
}

void LegacyLegendsTest::everyLegendElementStartsWithTheSections()
{
    const LegacyReading reading(
        legacyDocument("<LegendOfClassification><Lateral><class id=\"1\"/></Lateral></LegendOfClassification>"
                       "<LegendOfClassification><class id=\"2\"/></LegendOfClassification>"));
    QCOMPARE(summaryOf(reading.rawData.legendA), QStringList{QStringLiteral("2::")});
    QCOMPARE(summaryOf(reading.rawData.legendB), QStringList{QStringLiteral("1::")});
}

void LegacyLegendsTest::secondLegendElementClearsNothingByItself()
{
    const LegacyReading reading(legacyDocument(
        "<LegendOfClassification><Section><class id=\"1\"/></Section></LegendOfClassification>"
        "<LegendOfClassification><legendA>a</legendA><class id=\"2\"/></LegendOfClassification>"));
    QCOMPARE(summaryOf(reading.rawData.legendA),
             (QStringList{QStringLiteral("1:a:"), QStringLiteral("2::")}));
}

QTEST_APPLESS_MAIN(LegacyLegendsTest)

#include "LegacyLegendsTest.moc"
