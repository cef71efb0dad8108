// Which of an element's texts count. Header, views and list items have one rule, columns another; legends are
// tested elsewhere.

#include "support/LegacyReading.h"

#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

/// The elements of one section under common names: {A} and {B} are two of its texts.
struct Section
{
    const char *name;
    QByteArray element;
    QByteArray a;
    QByteArray b;
    QByteArray needed; ///< Elements without which the section is dropped or fails.
};

} // namespace

Q_DECLARE_METATYPE(const Section *)

namespace {

const Section header = {"header", "SYSTPL", "TPL_Key", "TPL_Type", ""};
const Section view = {"view", "PROGVIEW", "PV_Key", "PV_Description", ""};
const Section listItem = {"list item", "SYSLIST", "LIST_Caption", "LIST_Item", "<LIST_Name>L</LIST_Name>"};
const Section column = {"column", "SYSCOL", "COL_Caption", "COL_Unit", "<COL_DataType>TXT</COL_DataType>"};

QByteArray documentOf(const Section &section, QByteArray elements, const QByteArray &padding = QByteArray())
{
    elements.replace("{A}", section.a).replace("{B}", section.b);
    return legacyDocument(padding + "<" + section.element + ">" + section.needed + elements + "</" +
                          section.element + ">");
}

/// The texts A and B of the only object read.
QStringList textsOf(const Section &section, const CTemplateRawData &rawData)
{
    if (section.element == "SYSTPL") {
        return {rawData.key, rawData.type};
    }
    if (section.element == "PROGVIEW" && rawData.programViews.size() == 1) {
        const CProgramView *only = *rawData.programViews.cbegin();
        return {only->key(), only->description()};
    }
    if (section.element == "SYSLIST" && rawData.listItems.size() == 1) {
        const CListItem *only = rawData.listItems.first();
        return {only->caption(), only->item()};
    }
    if (section.element == "SYSCOL" && rawData.columns.size() == 1) {
        const CTemplateColumn *only = rawData.columns.first();
        return {only->caption(), only->unit()};
    }
    return {QStringLiteral("nothing was read")};
}

struct TextRow
{
    const char *name;
    const char *elements;
    const char *a;
    const char *b;
};

// The first text after a start tag counts, even after the end tag of the element.
const TextRow firstTextRows[] = {
    {"text", "<{A}>x</{A}>", "x", ""},
    {"white space stays as it is", "<{A}> x\n y </{A}>", " x\n y ", ""},
    {"nothing", "", "", ""},
    {"empty element takes the white space after it", "<{A}/>\n  <{B}>y</{B}>", "\n  ", "y"},
    {"element without text takes the white space after it", "<{A}></{A}>\n  <{B}>y</{B}>", "\n  ", "y"},
    {"last element takes the white space before the section's end", "<{A}/>\n", "\n", ""},
    {"element with text does not", "<{A}>x</{A}>\n  <{B}>y</{B}>", "x", "y"},
    {"empty element with nothing after it stays empty", "<{A}/><{B}>y</{B}>", "", "y"},
    {"two empty elements", "<{A}/><{B}/> ", "", " "},
    {"empty element after one with text", "<{A}>x</{A}>\n  <{B}/>\n ", "x", "\n "},
    {"empty element around one with text", "<{A}><{B}>y</{B}>\n </{A}>\n ", "", "y"},
    {"element around an empty one that takes the white space after it", "<{A}>x<{B}/>\n </{A}>\n", "x",
     "\n "},
    {"white space before the first element is nobody's", "\n  <{A}>x</{A}>", "x", ""},
    {"empty element takes the text after it", "<{A}/>abc   <{B}>y</{B}>", "abc   ", "y"},
    {"unknown element ends an empty element's turn", "<{A}/><Other/>\n", "", ""},
    {"text of an unknown element is nobody's", "<{A}>x</{A}><Other>y</Other>", "x", ""},
    {"comment before the text", "<{A}><!-- c -->x</{A}>", "x", ""},
    {"comment within the text", "<{A}>x<!-- c -->y</{A}>", "x", ""},
    {"comment after an empty element", "<{A}/><!-- c -->\n", "\n", ""},
    {"processing instruction before the text", "<{A}><?do it?>x</{A}>", "x", ""},
    {"CDATA", "<{A}><![CDATA[<x> & y]]></{A}>", "<x> & y", ""},
    {"CDATA after text", "<{A}>x<![CDATA[y]]></{A}>", "x", ""},
    {"text after CDATA", "<{A}><![CDATA[x]]>y</{A}>", "x", ""},
    {"white space before CDATA", "<{A}> <![CDATA[x]]></{A}>", " ", ""},
    {"entities are part of the text", "<{A}>x &lt;&amp;&gt; &#65;&#x42;</{A}>", "x <&> AB", ""},
    {"unknown element within, text before it", "<{A}>x<Other/>y</{A}>", "x", ""},
    {"unknown element within, text after it", "<{A}><Other/>y</{A}>", "", ""},
    {"known element within takes the text after it", "<{A}><{B}/>y</{A}>", "", "y"},
    {"known element within", "<{A}>x<{B}>y</{B}>z</{A}>", "x", "y"},
    {"known element within an unknown one", "<Other>o<{A}>x</{A}></Other>", "x", ""},
    {"last of two elements counts", "<{A}>x</{A}><{A}>y</{A}>", "y", ""},
    {"empty second element keeps the first one's text", "<{A}>x</{A}><{A}/>", "x", ""},
    {"white space after an empty second element counts", "<{A}>x</{A}><{A}/> ", " ", ""},
    {"attributes are no text", "<{A} text=\"t\">x</{A}>", "x", ""},
};

// Only a text that directly follows a start tag counts.
const TextRow directTextRows[] = {
    {"text", "<{A}>x</{A}>", "x", ""},
    {"white space stays as it is", "<{A}> x\n y </{A}>", " x\n y ", ""},
    {"nothing", "", "", ""},
    {"empty element does not take the white space after it", "<{A}/>\n  <{B}>y</{B}>", "", "y"},
    {"element without text does not either", "<{A}></{A}>\n  <{B}>y</{B}>", "", "y"},
    {"last element does not either", "<{A}/>\n", "", ""},
    {"element with text keeps it", "<{A}>x</{A}>\n  <{B}>y</{B}>", "x", "y"},
    {"white space before the first element is nobody's", "\n  <{A}>x</{A}>", "x", ""},
    {"text of an unknown element is nobody's", "<{A}>x</{A}><Other>y</Other>", "x", ""},
    {"comment before the text", "<{A}><!-- c -->x</{A}>", "", ""},
    {"comment within the text", "<{A}>x<!-- c -->y</{A}>", "x", ""},
    {"comment after an empty element", "<{A}/><!-- c -->\n", "", ""},
    {"processing instruction before the text", "<{A}><?do it?>x</{A}>", "", ""},
    {"CDATA", "<{A}><![CDATA[<x> & y]]></{A}>", "<x> & y", ""},
    {"CDATA after text", "<{A}>x<![CDATA[y]]></{A}>", "x", ""},
    {"text after CDATA", "<{A}><![CDATA[x]]>y</{A}>", "x", ""},
    {"white space before CDATA", "<{A}> <![CDATA[x]]></{A}>", " ", ""},
    {"entities are part of the text", "<{A}>x &lt;&amp;&gt; &#65;&#x42;</{A}>", "x <&> AB", ""},
    {"unknown element within, text before it", "<{A}>x<Other/>y</{A}>", "x", ""},
    {"unknown element within, text after it", "<{A}><Other/>y</{A}>", "", ""},
    {"known element within, text after it", "<{A}><{B}/>y</{A}>", "", ""},
    {"known element within", "<{A}>x<{B}>y</{B}>z</{A}>", "x", "y"},
    {"known element within an unknown one", "<Other>o<{A}>x</{A}></Other>", "x", ""},
    {"last of two elements counts", "<{A}>x</{A}><{A}>y</{A}>", "y", ""},
    {"empty second element keeps the first one's text", "<{A}>x</{A}><{A}/> ", "x", ""},
    {"attributes are no text", "<{A} text=\"t\">x</{A}>", "x", ""},
};

template <std::size_t Size>
void addTextRows(const std::vector<const Section *> &sections, const TextRow (&rows)[Size])
{
    QTest::addColumn<const Section *>("section");
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QStringList>("texts");
    for (const auto *section : sections) {
        for (const auto &row : rows) {
            QTest::addRow("%s: %s", section->name, row.name)
                << section << QByteArray(row.elements)
                << QStringList{QString(QLatin1String(row.a)), QString(QLatin1String(row.b))};
        }
    }
}

void checkTexts()
{
    QFETCH(const Section *, section);
    QFETCH(QByteArray, elements);
    const LegacyReading reading(documentOf(*section, elements));
    QVERIFY(reading.isRead);
    QTEST(textsOf(*section, reading.rawData), "texts");
}

void checkTextsWhereverTheFileIsCut()
{
    QFETCH(const Section *, section);
    QFETCH(QByteArray, elements);
    // Files are read in chunks of this size.
    constexpr int chunkSize = 16 * 1024;
    const QByteArray unpadded = documentOf(*section, elements, "<!---->");
    const int before = unpadded.indexOf("-->");
    for (int cut = before; cut < unpadded.size(); ++cut) {
        const QByteArray padding = "<!--" + QByteArray(chunkSize - cut, 'p') + "-->";
        const LegacyReading reading(documentOf(*section, elements, padding));
        QVERIFY(reading.isRead);
        QTEST(textsOf(*section, reading.rawData), "texts");
    }
}

} // namespace

class LegacyTextRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstTextBehindAStartTagCounts_data() { addTextRows({&header, &view, &listItem}, firstTextRows); }
    void firstTextBehindAStartTagCounts() { checkTexts(); }
    void onlyATextDirectlyBehindAStartTagCounts_data() { addTextRows({&column}, directTextRows); }
    void onlyATextDirectlyBehindAStartTagCounts() { checkTexts(); }
    void firstTextIsTheSameWhereverTheFileIsCut_data() { addTextRows({&header}, firstTextRows); }
    void firstTextIsTheSameWhereverTheFileIsCut() { checkTextsWhereverTheFileIsCut(); }
    void directTextIsTheSameWhereverTheFileIsCut_data() { addTextRows({&column}, directTextRows); }
    void directTextIsTheSameWhereverTheFileIsCut() { checkTextsWhereverTheFileIsCut(); }
    void emptyListNameTakesTheWhiteSpaceBehindIt();
    void emptyNumberOrFlagTakesTheWhiteSpaceBehindIt();
    void emptyDataTypeDropsTheColumn();
    void longTextsAreReadWhole_data();
    void longTextsAreReadWhole();
    void entitiesOfTheDocumentArePartOfTheText();
};

void LegacyTextRulesTest::emptyListNameTakesTheWhiteSpaceBehindIt()
{
    const LegacyReading reading(
        legacyDocument("<SYSLIST><LIST_Name/>\n  <LIST_Item>A</LIST_Item></SYSLIST>"));
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.listItems.keys(), QStringList{QStringLiteral("\n  ")});
}

void LegacyTextRulesTest::emptyNumberOrFlagTakesTheWhiteSpaceBehindIt()
{
    const LegacyReading reading(
        legacyDocument("<SYSTPL><TPL_IsSystem>true</TPL_IsSystem><TPL_SortOrder>5</TPL_SortOrder>"
                       "<TPL_IsSystem/> <TPL_SortOrder/> </SYSTPL>"));
    QCOMPARE(reading.rawData.isSystem, false);
    QCOMPARE(reading.rawData.sortOrder, 0);
}

void LegacyTextRulesTest::emptyDataTypeDropsTheColumn()
{
    const LegacyReading reading(legacyDocument("<SYSCOL><COL_DataType/>TXT</SYSCOL>"));
    QVERIFY(reading.isRead);
    QVERIFY(reading.rawData.columns.isEmpty());
}

void LegacyTextRulesTest::longTextsAreReadWhole_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {1000, 8192, 100000, 1000000}) {
        QTest::addRow("%d", size) << size;
    }
}

void LegacyTextRulesTest::longTextsAreReadWhole()
{
    QFETCH(int, size);
    QByteArray text;
    while (text.size() < size) {
        text.append("Größe &amp; Länge ");
    }
    const QString expected = QString::fromUtf8(text).replace(QLatin1String("&amp;"), QLatin1String("&"));
    const LegacyReading reading(legacyDocument("<SYSTPL><TPL_Key>" + text +
                                               "</TPL_Key></SYSTPL><SYSCOL><COL_Caption>" + text +
                                               "</COL_Caption><COL_DataType>TXT</COL_DataType></SYSCOL>"));
    QVERIFY(reading.isRead);
    QVERIFY(reading.rawData.key == expected);
    QVERIFY(reading.rawData.columns.first()->caption() == expected);
}

void LegacyTextRulesTest::entitiesOfTheDocumentArePartOfTheText()
{
    const LegacyReading reading("<!DOCTYPE TXSYS [<!ENTITY pipe \"Röhre\">]><TXSYS><SYSTPL>"
                                "<TPL_Key>x &pipe; y</TPL_Key></SYSTPL></TXSYS>");
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.key, QStringLiteral("x Röhre y"));
}

QTEST_APPLESS_MAIN(LegacyTextRulesTest)

#include "LegacyTextRulesTest.moc"
