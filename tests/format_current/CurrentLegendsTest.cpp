// The two classification legends.

#include "CurrentFormat.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

QByteArray scope(const QByteArray &attributes, const QByteArray &colors)
{
    return "<ClassificationColorScope " + attributes + ">" + colors + "</ClassificationColorScope>";
}

QByteArray scopes(const QByteArray &content)
{
    return "<ClassificationColorScopes>" + content + "</ClassificationColorScopes>";
}

QByteArray color(int from, const QByteArray &content = QByteArray())
{
    return "<ClassificationColor From=\"" + QByteArray::number(from) + "\">" + content +
           "</ClassificationColor>";
}

const QByteArray sectionScope = R"(Name="ClassColorDefault" Scope="Section")";
const QByteArray lateralScope = R"(Name="ClassColorDefault" Scope="Lateral")";

/// The lower bounds of a legend's classes, in order.
QString lowerBoundsOf(const QList<CTemplateLegendDataItem> &legend)
{
    QStringList legendClasses;
    for (const auto &legendClass : legend) {
        legendClasses.append(QString::number(legendClass.numberFrom));
    }
    return legendClasses.join(QLatin1Char(' '));
}

/// The only legend class of a legend of sections, with some attributes and content.
CTemplateLegendDataItem legendClassOf(const QByteArray &attributes, const QByteArray &content = QByteArray())
{
    const ReadElements read(scopes(scope(sectionScope, "<ClassificationColor " + attributes + ">" + content +
                                                           "</ClassificationColor>")));
    if (read.rawData().legendA.size() != 1) {
        qFatal("Not one legend class");
    }
    return read.rawData().legendA.first();
}

} // namespace

class CurrentLegendsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scopeDecidesOnTheLegend_data();
    void scopeDecidesOnTheLegend();
    void onlyTheDefaultSchemeIsRead_data();
    void onlyTheDefaultSchemeIsRead();
    void everyAttributeAndElementFillsItsField_data();
    void everyAttributeAndElementFillsItsField();
    void missingBoundsAreZero();
    void legendClassesComeInDocumentOrder();
    void legendClassesAreFoundAtAnyDepth();
    void nestedLegendClassCounts();
    void scopeInAScopeIsReadOnceMore_data();
    void scopeInAScopeIsReadOnceMore();
    void onlyTheFirstContainerIsRead_data();
    void onlyTheFirstContainerIsRead();
    void captionsAreTheFirstTextItems_data();
    void captionsAreTheFirstTextItems();
    void colorIsTheFirstBelowTheLegendClass_data();
    void colorIsTheFirstBelowTheLegendClass();
    void legendClassesAreAppendedToThoseOfTheRecord();
};

void CurrentLegendsTest::scopeDecidesOnTheLegend_data()
{
    QTest::addColumn<QByteArray>("scopeName");
    QTest::addColumn<QString>("legendA");
    QTest::addColumn<QString>("legendB");
    const QString legendClasses = QStringLiteral("1 2");
    QTest::newRow("Section") << QByteArray(R"(Scope="Section")") << legendClasses << QString();
    QTest::newRow("Lateral") << QByteArray(R"(Scope="Lateral")") << QString() << legendClasses;
    for (const char *other :
         {"Chapter", "section", "lateral", "SECTION", "Section ", " Lateral", "Node", ""}) {
        QTest::addRow("dropped \"%s\"", other)
            << QByteArray("Scope=\"") + other + "\"" << QString() << QString();
    }
    QTest::newRow("dropped, missing") << QByteArray() << QString() << QString();
}

void CurrentLegendsTest::scopeDecidesOnTheLegend()
{
    QFETCH(QByteArray, scopeName);
    QFETCH(QString, legendA);
    QFETCH(QString, legendB);
    const ReadElements read(scopes(scope("Name=\"ClassColorDefault\" " + scopeName, color(1) + color(2))));
    QCOMPARE(lowerBoundsOf(read.rawData().legendA), legendA);
    QCOMPARE(lowerBoundsOf(read.rawData().legendB), legendB);
}

void CurrentLegendsTest::onlyTheDefaultSchemeIsRead_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("legend");
    QTest::newRow("ClassColorDefault") << QByteArray(R"(Name="ClassColorDefault")") << QStringLiteral("1 2");
    for (const char *other : {"", "classcolordefault", "ClassColordefault", "ClassColorDefault ",
                              "ClassColor", "ClassColorDefault2", "Default"}) {
        QTest::addRow("\"%s\"", other) << QByteArray("Name=\"") + other + "\"" << QStringLiteral("2");
    }
    QTest::newRow("missing") << QByteArray() << QStringLiteral("2");
}

void CurrentLegendsTest::onlyTheDefaultSchemeIsRead()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, legend);
    const ReadElements read(
        scopes(scope(name + " Scope=\"Section\"", color(1)) + scope(sectionScope, color(2))));
    QCOMPARE(lowerBoundsOf(read.rawData().legendA), legend);
    QCOMPARE(lowerBoundsOf(read.rawData().legendB), QString());
}

void CurrentLegendsTest::everyAttributeAndElementFillsItsField_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *attributes, const char *content, const char *expected) {
        QTest::newRow(name) << QByteArray(attributes) << QByteArray(content)
                            << QString(QLatin1String(expected));
    };
    row("nothing", "", "", "|0|0|||");
    row("From", R"(From="1.5")", "", "|1.5|0|||");
    row("To", R"(To="2.5")", "", "|0|2.5|||");
    row("Color Html", "", R"(<Color Html="#ff0000"/>)", "|0|0|#ff0000||");
    row("TextA", "", "<TextA><TextItem>a</TextItem></TextA>", "|0|0||a|");
    row("TextB", "", "<TextB><TextItem>b</TextItem></TextB>", "|0|0|||b");
    row("all", R"(To="4" From="-3")",
        R"(<TextB><TextItem>b</TextItem></TextB><TextA><TextItem>a</TextItem></TextA><Color Html="red"/>)",
        "|-3|4|red|a|b");
    row("an id is not read", R"(Id="x" id="x" Class="x")", "", "|0|0|||");
    row("lower case", R"(from="1" to="2")",
        R"(<color Html="red"/><Color html="red"/><texta><TextItem>a</TextItem></texta>)", "|0|0|||");
}

void CurrentLegendsTest::everyAttributeAndElementFillsItsField()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    const auto legendClass = legendClassOf(attributes, content);
    const QStringList fields{legendClass.id,
                             QString::number(legendClass.numberFrom),
                             QString::number(legendClass.numberTo),
                             legendClass.color,
                             legendClass.textA,
                             legendClass.textB};
    QCOMPARE(fields.join(QLatin1Char('|')), expected);
}

void CurrentLegendsTest::missingBoundsAreZero()
{
    for (const char *attributes : {"", R"(From="" To="")", R"(From="x" To="1,5")"}) {
        const auto legendClass = legendClassOf(attributes);
        QCOMPARE(legendClass.numberFrom, 0.0);
        QCOMPARE(legendClass.numberTo, 0.0);
    }
}

void CurrentLegendsTest::legendClassesComeInDocumentOrder()
{
    const ReadElements read(scopes(scope(sectionScope, color(5) + color(1) + color(3)) +
                                   scope(lateralScope, color(9) + color(8)) + scope(sectionScope, color(2))));
    QCOMPARE(lowerBoundsOf(read.rawData().legendA), QStringLiteral("5 1 3 2"));
    QCOMPARE(lowerBoundsOf(read.rawData().legendB), QStringLiteral("9 8"));
}

void CurrentLegendsTest::legendClassesAreFoundAtAnyDepth()
{
    const ReadElements read(
        viewOf("<A>" +
               scopes("<B>" +
                      scope(sectionScope, "<C>" + color(1) + "<D>" + color(2) + "</D></C>" +
                                              viewOf(columnOf(color(3)), "Id=\"2\"")) +
                      "</B>") +
               "</A>"));
    QCOMPARE(lowerBoundsOf(read.rawData().legendA), QStringLiteral("1 2 3"));
    QVERIFY(ReadElements(scopes(color(1)) + color(2)).rawData().legendA.isEmpty());
}

void CurrentLegendsTest::nestedLegendClassCounts()
{
    const QByteArray inner = color(2, "<Color Html=\"inner\"/><TextA><TextItem>inner</TextItem></TextA>");
    const ReadElements read(
        scopes(scope(sectionScope, color(1, inner + "<Color Html=\"outer\"/><TextA><TextItem>outer"
                                                    "</TextItem></TextA>"))));
    const auto &legend = read.rawData().legendA;
    QCOMPARE(lowerBoundsOf(legend), QStringLiteral("1 2"));
    QCOMPARE(legend.at(0).color, QStringLiteral("inner"));
    QCOMPARE(legend.at(0).textA, QStringLiteral("inner"));
    QCOMPARE(legend.at(1).color, QStringLiteral("inner"));
}

void CurrentLegendsTest::scopeInAScopeIsReadOnceMore_data()
{
    QTest::addColumn<QByteArray>("outer");
    QTest::addColumn<QByteArray>("inner");
    QTest::addColumn<QString>("legendA");
    QTest::addColumn<QString>("legendB");
    const QByteArray other = R"(Name="Other" Scope="Section")";
    QTest::newRow("both sections") << sectionScope << sectionScope << QStringLiteral("1 2 3 2") << QString();
    QTest::newRow("laterals in sections")
        << sectionScope << lateralScope << QStringLiteral("1 2 3") << QStringLiteral("2");
    QTest::newRow("sections in laterals")
        << lateralScope << sectionScope << QStringLiteral("2") << QStringLiteral("1 2 3");
    QTest::newRow("sections in another scheme") << other << sectionScope << QStringLiteral("2") << QString();
    QTest::newRow("another scheme in sections")
        << sectionScope << other << QStringLiteral("1 2 3") << QString();
}

void CurrentLegendsTest::scopeInAScopeIsReadOnceMore()
{
    QFETCH(QByteArray, outer);
    QFETCH(QByteArray, inner);
    QFETCH(QString, legendA);
    QFETCH(QString, legendB);
    const ReadElements read(scopes(scope(outer, color(1) + scope(inner, color(2)) + color(3))));
    QCOMPARE(lowerBoundsOf(read.rawData().legendA), legendA);
    QCOMPARE(lowerBoundsOf(read.rawData().legendB), legendB);
}

void CurrentLegendsTest::onlyTheFirstContainerIsRead_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QString>("legend");
    const QByteArray one = scope(sectionScope, color(1));
    const QByteArray two = scope(sectionScope, color(2));
    QTest::newRow("one") << scopes(one) << QStringLiteral("1");
    QTest::newRow("two") << scopes(one) + scopes(two) << QStringLiteral("1");
    QTest::newRow("empty one first") << scopes("") + scopes(one) << QString();
    QTest::newRow("no container") << one << QString();
    QTest::newRow("scope outside") << one + scopes(two) << QStringLiteral("2");
    QTest::newRow("container in a container") << scopes(scopes(two) + one) << QStringLiteral("2 1");
    QTest::newRow("presets instead") << "<ClassificationColorPresets>" + one + "</ClassificationColorPresets>"
                                     << QString();
    QTest::newRow("deep but first") << "<A><B>" + scopes(one) + "</B></A>" + scopes(two)
                                    << QStringLiteral("1");
}

void CurrentLegendsTest::onlyTheFirstContainerIsRead()
{
    QFETCH(QByteArray, elements);
    QFETCH(QString, legend);
    QCOMPARE(lowerBoundsOf(ReadElements(elements).rawData().legendA), legend);
}

void CurrentLegendsTest::captionsAreTheFirstTextItems_data()
{
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<QString>("text");
    const QString x = QStringLiteral("x");
    const auto row = [](const char *name, const char *pattern, const QString &text) {
        QTest::newRow(name) << QByteArray(pattern) << text;
    };
    row("one", "<T><TextItem>x</TextItem></T>", x);
    row("two text items", "<T><TextItem>x</TextItem><TextItem>y</TextItem></T>", x);
    row("two texts", "<T><TextItem>x</TextItem></T><T><TextItem>y</TextItem></T>", x);
    row("empty text first", "<T/><T><TextItem>y</TextItem></T>", QString());
    row("empty text item first", "<T><TextItem/><TextItem>y</TextItem></T>", QString());
    row("deeper but first", "<A><T><B><TextItem>x</TextItem></B></T></A><T><TextItem>y</TextItem></T>", x);
    row("bare text", "<T>x</T>", QString());
    row("text item alone", "<TextItem>x</TextItem>", QString());
    row("untrimmed", "<T><TextItem> x\n</TextItem></T>", QStringLiteral(" x\n"));
}

void CurrentLegendsTest::captionsAreTheFirstTextItems()
{
    QFETCH(QByteArray, pattern);
    QFETCH(QString, text);
    const auto content = [&](const QByteArray &element) {
        return QByteArray(pattern)
            .replace("<T>", "<" + element + ">")
            .replace("</T>", "</" + element + ">")
            .replace("<T/>", "<" + element + "/>");
    };
    const auto ofA = legendClassOf("", content("TextA"));
    QCOMPARE(ofA.textA, text);
    QCOMPARE(ofA.textB, QString());
    const auto ofB = legendClassOf("", content("TextB"));
    QCOMPARE(ofB.textA, QString());
    QCOMPARE(ofB.textB, text);
}

void CurrentLegendsTest::colorIsTheFirstBelowTheLegendClass_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("color");
    const QString red = QStringLiteral("red");
    QTest::newRow("one") << QByteArray(R"(<Color Html="red"/>)") << red;
    QTest::newRow("two") << QByteArray(R"(<Color Html="red"/><Color Html="blue"/>)") << red;
    QTest::newRow("deeper but first")
        << QByteArray(R"(<A><B><Color Html="red"/></B></A><Color Html="blue"/>)") << red;
    QTest::newRow("without attribute first") << QByteArray(R"(<Color/><Color Html="blue"/>)") << QString();
    QTest::newRow("text") << QByteArray("<Color>red</Color>") << QString();
    QTest::newRow("none") << QByteArray() << QString();
}

void CurrentLegendsTest::colorIsTheFirstBelowTheLegendClass()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, color);
    QCOMPARE(legendClassOf("", content).color, color);
    QCOMPARE(legendClassOf("Html=\"green\"", content).color, color);
}

void CurrentLegendsTest::legendClassesAreAppendedToThoseOfTheRecord()
{
    CTemplateRawData rawData;
    QVERIFY(readDocument(currentDocument(scopes(scope(sectionScope, color(2)))), rawData));
    QVERIFY(readDocument(currentDocument(scopes(scope(sectionScope, color(1)))), rawData));
    QCOMPARE(lowerBoundsOf(rawData.legendA), QStringLiteral("2 1"));
}

QTEST_GUILESS_MAIN(CurrentLegendsTest)

#include "CurrentLegendsTest.moc"
