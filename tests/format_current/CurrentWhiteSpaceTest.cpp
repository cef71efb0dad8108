// Whitespace that belongs to a text is kept everywhere; whitespace between tags is ignored.

#include "CurrentFormat.h"

#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"

#include <QDomDocument>
#include <QTest>

using namespace Tobrix::Templates;

class CurrentWhiteSpaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsThatOfTheWholeDocument_data();
    void textIsThatOfTheWholeDocument();
    void textIsTheSameWhereverTheFileIsCut_data() { textIsThatOfTheWholeDocument_data(); }
    void textIsTheSameWhereverTheFileIsCut();
    void whiteSpaceBeforeTheXmlDeclarationIsAFault();
};

namespace {

QByteArray documentWith(const QByteArray &padding, const QByteArray &text)
{
    return "<T>\n  " + padding +
           "\n  <View Id='v'>\n    <Column DataType='Text'>\n\t<Caption>\r\n      <TextItem>" + text +
           "</TextItem>\n  </Caption>  </Column>\n</View>\n</T>\n";
}

QString captionOf(const QByteArray &document)
{
    CTemplateRawData rawData;
    if (!readDocument(document, rawData) || rawData.programViews.isEmpty()) {
        return QStringLiteral("(no view)");
    }
    return (*rawData.programViews.cbegin())->column(0)->caption();
}

QString textItemOf(const QByteArray &document)
{
    QDomDocument parsed;
    parsed.setContent(document);
    return parsed.elementsByTagName(QStringLiteral("TextItem")).item(0).toElement().text();
}

} // namespace

void CurrentWhiteSpaceTest::textIsThatOfTheWholeDocument_data()
{
    QTest::addColumn<QByteArray>("text");
    const QByteArray texts[] = {
        "",
        "  ",
        "\n    ",
        "  x  ",
        "\n  x\n  y\n  ",
        "x  <b/>  y",
        "<b/>  <b/>\n   <b/> y",
        "x>   <b/>   >  <b/>",
        "<b>   </b>  <b>\n</b>",
        "x<!-- c -->   <b/>y",
        "x<?p i?>   <b/>y",
        "<![CDATA[x]]>   <b/>   <![CDATA[  ]]>   ",
        "<![CDATA[ <a>\n   <b> ]]>",
        "<!-- <a>   <b> -->  x",
        "<b c='>   &lt;'/>   x",
        "&amp;   <b/>   &#32;  <b/>&#10;",
        "&lt;   &gt;   <b/>",
        "&#32;",
    };
    for (const auto &text : texts) {
        QTest::newRow(text.isEmpty() ? "(empty)" : text.constData()) << text;
    }
}

void CurrentWhiteSpaceTest::textIsThatOfTheWholeDocument()
{
    QFETCH(QByteArray, text);
    const QByteArray document = documentWith(QByteArray(), text);
    QCOMPARE(captionOf(document), textItemOf(document));
}

void CurrentWhiteSpaceTest::textIsTheSameWhereverTheFileIsCut()
{
    QFETCH(QByteArray, text);
    // Files are read in chunks of this size.
    constexpr int chunkSize = 16 * 1024;
    const QString expected = textItemOf(documentWith(QByteArray(), text));
    const int before = documentWith("<!---->", QByteArray()).indexOf("<TextItem>");
    for (int cut = 0; cut <= text.size() + 30; ++cut) {
        const QByteArray padding = "<!--" + QByteArray(chunkSize - before - cut, 'p') + "-->";
        QCOMPARE(captionOf(documentWith(padding, text)), expected);
    }
}

void CurrentWhiteSpaceTest::whiteSpaceBeforeTheXmlDeclarationIsAFault()
{
    const QByteArray document = "<?xml version='1.0'?>" + documentWith(QByteArray(), "x");
    QCOMPARE(captionOf(document), QStringLiteral("x"));
    for (const char *const before : {" ", "\n", "\n   ", "\t"}) {
        QCOMPARE(captionOf(before + document), QStringLiteral("(no view)"));
    }
}

QTEST_APPLESS_MAIN(CurrentWhiteSpaceTest)

#include "CurrentWhiteSpaceTest.moc"
