// Elements are found by name at any depth, inside of any other elements.

#include "CurrentFormat.h"
#include "RandomDocument.h"
#include "RecordLines.h"

#include "fuzzing/PlainTemplateReader.h"

#include <QDomDocument>
#include <QTest>

#include <algorithm>

using namespace Tobrix::Templates;

namespace {

/// Every element and attribute of the format once, each with an effect.
QByteArray documentOfEverything()
{
    return "<Template>"
           R"(<TemplateIdentifier Id="{id}" Description="D" SystemOfUnits="Imperial"/><Name>N</Name><Version>1</Version>)"
           R"(<ClassificationColorPresets><ClassificationColorPreset Scope="Section" Chapter="Color")"
           R"( ClassificationColorName="C"><PresetProperty PropertyName="P"/></ClassificationColorPreset>)"
           "</ClassificationColorPresets>"
           R"(<AssignedCatalogs><Catalog Id="I" Country="DE" Language="de"/></AssignedCatalogs>)"
           R"(<ValueList Name="L" CompatibleListClassType="4"><ValueListItem Key="K" InternalKey="1" OrdinalIndex="2">)"
           "<Captions><TextItem>caption</TextItem></Captions></ValueListItem></ValueList>"
           R"(<DefaultValues><DefaultValueScope><DefaultValueItem Value="12" View="V"><BoundProperty PropertyName="A">)"
           R"(<RefersTo DisplayPropertyName="B"/></BoundProperty></DefaultValueItem></DefaultValueScope></DefaultValues>)"
           R"(<View Id="V1" Name="V" Description="VD" Kind="Detail">)"
           R"(<Column DataType="Decimal" ControlType="ComboList" Width="3" Ordinal="1" ValueTransfer="true" Unit="m">)"
           R"(<BoundProperty PropertyName="A"><RefersTo DisplayPropertyName="B" ObjectName="R"/>)"
           "</BoundProperty><Caption><TextItem>c</TextItem></Caption><ToolTip><TextItem>t</TextItem></"
           "ToolTip>"
           R"(<VisibilityRestriction Simple="false"><GroupLevel Level2="true"/></VisibilityRestriction>)"
           R"(<NumericRangeRestriction Step="1" Precision="3" From="1" To="9"/><ReadOnlyRestriction/>)"
           "<VirtualRestriction/><ValueListName>L</ValueListName></Column>"
           R"(<Column DataType="Text" Ordinal="2"><MandatoryRestriction/><TextLengthRestriction Max="7"/>)"
           R"(<BoundProperty PropertyName="X_FK"><RefersTo DisplayPropertyName="X_Key" ObjectName="R"/>)"
           "</BoundProperty></Column>"
           R"(<Column DataType="Date" Ordinal="3"><BoundProperty PropertyName="D" ObjectName="O"/><DisplayFormat>)"
           R"(<ValueFormatItem Format="dd"/></DisplayFormat></Column></View>)"
           R"(<ClassificationColorScopes><ClassificationColorScope Name="ClassColorDefault" Scope="Section">)"
           R"(<ClassificationColor From="1" To="2"><Color Html="red"/><TextA><TextItem>a</TextItem></TextA>)"
           "<TextB><TextItem>b</TextItem></TextB></ClassificationColor></ClassificationColorScope>"
           "</ClassificationColorScopes></Template>";
}

QDomDocument parsed(const QByteArray &text)
{
    QDomDocument document;
    if (!document.setContent(text)) {
        qFatal("Not well-formed: %s", text.constData());
    }
    return document;
}

/// An element and its descendants, in document order.
QList<QDomElement> elementsFrom(const QDomElement &element)
{
    QList<QDomElement> elements{element};
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        elements += elementsFrom(child);
    }
    return elements;
}

/// The elements below the root.
QList<QDomElement> elementsOf(const QDomDocument &document)
{
    return elementsFrom(document.documentElement()).mid(1);
}

QStringList linesOfDocument(const QByteArray &document)
{
    CTemplateRawData rawData;
    return readDocument(document, rawData) ? linesOf(rawData) : QStringList{QStringLiteral("not read")};
}

/// The same, found by look-ups only.
QStringList plainLinesOfDocument(const QByteArray &document)
{
    const TemporaryTemplate file(QStringLiteral("templates_new"), document);
    CTemplateRawData rawData;
    Tobrix::Fuzzing::PlainTemplateReader().readFile(file.path(), rawData);
    return linesOf(rawData);
}

void addElementRows()
{
    QTest::addColumn<int>("index");
    const auto elements = elementsOf(parsed(documentOfEverything()));
    for (int i = 0; i < elements.size(); ++i) {
        QTest::addRow("%d, %s", i, qPrintable(elements.at(i).tagName())) << i;
    }
}

/// The number of lines with a prefix.
int countOf(const QStringList &lines, const char *start)
{
    return static_cast<int>(std::count_if(lines.cbegin(), lines.cend(), [start](const QString &line) {
        return line.startsWith(QLatin1String(start));
    }));
}

} // namespace

class CurrentNestingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void elementMayStandDeeper_data();
    void elementMayStandDeeper();
    void elementNameIsCaseSensitive_data();
    void elementNameIsCaseSensitive();
    void attributeNameIsCaseSensitive_data();
    void attributeNameIsCaseSensitive();
    void elementOfANamespacePrefixIsAnother_data();
    void elementOfANamespacePrefixIsAnother();
    void anythingInAnythingIsReadByLookUps_data();
    void anythingInAnythingIsReadByLookUps();
    void whatAFaultLeavesIsReadByLookUps_data();
    void whatAFaultLeavesIsReadByLookUps();
    void oneElementInAnotherIsReadByLookUps_data();
    void oneElementInAnotherIsReadByLookUps();
    void randomDocumentsHoldSomethingOfEverything();
    void documentIsReadUnlessItNestsMoreThan48Levels_data();
    void documentIsReadUnlessItNestsMoreThan48Levels();
};

void CurrentNestingTest::elementMayStandDeeper_data()
{
    addElementRows();
}

void CurrentNestingTest::elementMayStandDeeper()
{
    QFETCH(int, index);
    QDomDocument document = parsed(documentOfEverything());
    QDomElement element = elementsOf(document).at(index);
    QDomElement container = document.createElement(QStringLiteral("Container"));
    element.parentNode().replaceChild(container, element);
    container.appendChild(element);
    QCOMPARE(linesOfDocument(document.toByteArray(-1)), linesOfDocument(documentOfEverything()));
}

void CurrentNestingTest::elementNameIsCaseSensitive_data()
{
    addElementRows();
}

void CurrentNestingTest::elementNameIsCaseSensitive()
{
    QFETCH(int, index);
    for (const bool isLower : {true, false}) {
        QDomDocument document = parsed(documentOfEverything());
        QDomElement element = elementsOf(document).at(index);
        element.setTagName(isLower ? element.tagName().toLower() : element.tagName().toUpper());
        QVERIFY(linesOfDocument(document.toByteArray(-1)) != linesOfDocument(documentOfEverything()));
    }
}

void CurrentNestingTest::attributeNameIsCaseSensitive_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    const auto elements = elementsOf(parsed(documentOfEverything()));
    for (int i = 0; i < elements.size(); ++i) {
        const QDomNamedNodeMap attributes = elements.at(i).attributes();
        // Of a group level's attribute only the digit counts.
        for (int j = 0; elements.at(i).tagName() != QStringLiteral("GroupLevel") && j < attributes.count();
             ++j) {
            const QString name = attributes.item(j).nodeName();
            QTest::addRow("%d, %s of %s", i, qPrintable(name), qPrintable(elements.at(i).tagName()))
                << i << name;
        }
    }
}

void CurrentNestingTest::attributeNameIsCaseSensitive()
{
    QFETCH(int, index);
    QFETCH(QString, name);
    for (const bool isLower : {true, false}) {
        QDomDocument document = parsed(documentOfEverything());
        QDomElement element = elementsOf(document).at(index);
        const QString value = element.attribute(name);
        element.removeAttribute(name);
        element.setAttribute(isLower ? name.toLower() : name.toUpper(), value);
        QVERIFY(linesOfDocument(document.toByteArray(-1)) != linesOfDocument(documentOfEverything()));
    }
}

void CurrentNestingTest::elementOfANamespacePrefixIsAnother_data()
{
    addElementRows();
}

void CurrentNestingTest::elementOfANamespacePrefixIsAnother()
{
    QFETCH(int, index);
    QDomDocument document = parsed(documentOfEverything());
    QDomElement element = elementsOf(document).at(index);
    element.setTagName(QStringLiteral("t:") + element.tagName());
    QVERIFY(linesOfDocument(document.toByteArray(-1)) != linesOfDocument(documentOfEverything()));
}

void CurrentNestingTest::anythingInAnythingIsReadByLookUps_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 0; seed < 300; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void CurrentNestingTest::anythingInAnythingIsReadByLookUps()
{
    QFETCH(quint32, seed);
    const QByteArray document = RandomDocument(seed).text();
    const QStringList expected = plainLinesOfDocument(document);
    const QStringList actual = linesOfDocument(document);
    if (actual != expected) {
        qInfo("%s", document.constData());
    }
    QCOMPARE(actual, expected);
}

void CurrentNestingTest::whatAFaultLeavesIsReadByLookUps_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1000; seed < 1100; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void CurrentNestingTest::whatAFaultLeavesIsReadByLookUps()
{
    QFETCH(quint32, seed);
    QByteArray document = RandomDocument(seed).text();
    document.truncate(QRandomGenerator(seed).bounded(document.size()));
    QCOMPARE(linesOfDocument(document), plainLinesOfDocument(document));
    document += "<&>";
    QCOMPARE(linesOfDocument(document), plainLinesOfDocument(document));
}

void CurrentNestingTest::oneElementInAnotherIsReadByLookUps_data()
{
    addElementRows();
}

void CurrentNestingTest::oneElementInAnotherIsReadByLookUps()
{
    QFETCH(int, index);
    const int count = elementsOf(parsed(documentOfEverything())).size();
    for (int target = 0; target < count; ++target) {
        QDomDocument document = parsed(documentOfEverything());
        const auto elements = elementsOf(document);
        const QDomNode copy = elements.at(index).cloneNode();
        QDomElement parent = elements.at(target);
        parent.insertBefore(copy, parent.firstChild());
        const QByteArray text = document.toByteArray(-1);
        QCOMPARE(linesOfDocument(text), plainLinesOfDocument(text));
    }
}

// Makes sure that the comparisons above cover enough.
void CurrentNestingTest::randomDocumentsHoldSomethingOfEverything()
{
    QStringList lines;
    for (quint32 seed = 0; seed < 300; ++seed) {
        lines += plainLinesOfDocument(RandomDocument(seed).text());
    }
    for (const char *start : {"view", "column", "no column", "item of ", "section", "lateral", "catalogue"}) {
        const int count = countOf(lines, start);
        QVERIFY2(count >= 100, qPrintable(QStringLiteral("%1 \"%2\"").arg(count).arg(QLatin1String(start))));
    }
    const QString all = lines.join(QLatin1Char('\n'));
    for (const char *part :
         {"P.A\"", "P_FK.A_Key\"", "groupLevel=int \"18\"", "initializeWithNow=bool \"true\"",
          "defaultValue=QString \"NOD\"", "defaultValue=int \"1\"", "typeFlags=int \"2\"",
          "isValueTransfer=bool \"true\"", "maximumTextLength=int \"4\"", "unit=QString \"ft\"",
          "displayFormat=QString \" c \"", ";"}) {
        QVERIFY2(all.contains(QLatin1String(part)), part);
    }
}

void CurrentNestingTest::documentIsReadUnlessItNestsMoreThan48Levels_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("as deep as it may be") << 48 << true;
    QTest::newRow("too deep") << 49 << false;
    // Qt's own recursion over its document would overflow the stack.
    QTest::newRow("much too deep") << 200000 << false;
}

void CurrentNestingTest::documentIsReadUnlessItNestsMoreThan48Levels()
{
    QFETCH(int, depth);
    QFETCH(bool, isRead);
    // Root, view, column and bound property are four levels.
    const QByteArray open = QByteArray("<Caption>").repeated(depth - 4);
    const QByteArray close = QByteArray("</Caption>").repeated(depth - 4);
    const QByteArray document =
        "<T><Version>1</Version>" + open + viewOf(boundColumnElement("A")) + close + "<Name>N</Name></T>";
    CTemplateRawData rawData;
    QVERIFY(readDocument(document, rawData));
    QCOMPARE(rawData.version, isRead ? QStringLiteral("1") : QString());
    QCOMPARE(rawData.key, isRead ? QStringLiteral("N") : QString());
    QCOMPARE(rawData.programViews.size(), isRead ? 1 : 0);
    if (isRead) {
        QCOMPARE(linesOf(rawData), plainLinesOfDocument(document));
        QCOMPARE(boundColumnsOf(**rawData.programViews.cbegin()), QStringList{QStringLiteral("A")});
    }
}

QTEST_GUILESS_MAIN(CurrentNestingTest)

#include "CurrentNestingTest.moc"
