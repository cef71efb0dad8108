#include "xml/XmlTree_p.h"

#include "CheckDocuments.h"
#include "tools/check/CheckedFile.h"
#include "xml/SourcePlaces_p.h"
#include "xml/XmlDecoding_p.h"

#include <QDomDocument>
#include <QFile>
#include <QTest>
#include <QTextCodec>
#include <QXmlStreamReader>

using namespace Tobrix::Templates;
using namespace Tobrix::Tools;

namespace {

/// "line:column" of the place where a text stands for the first time in a source.
QString placeOf(const QString &source, const QString &text)
{
    const Place place = SourcePlaces(source).placeOf(source.indexOf(text));
    return QStringLiteral("%1:%2").arg(place.line).arg(place.column);
}

/// A document's elements with their attributes and texts, as a parser's tree has them.
QStringList linesOf(const QDomElement &element)
{
    QStringList attributes;
    for (int i = 0; i < element.attributes().count(); ++i) {
        const QDomAttr attribute = element.attributes().item(i).toAttr();
        attributes.append(attribute.name() + QLatin1Char('=') + attribute.value());
    }
    attributes.sort();
    QStringList lines{element.tagName() + QLatin1Char(' ') + attributes.join(QLatin1Char(' ')) +
                      QLatin1Char(' ') + element.text()};
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        lines += linesOf(child);
    }
    return lines;
}

QStringList linesOf(const XmlElement &element)
{
    QMap<QString, QString> attributes;
    for (const XmlAttribute *attribute : element.attributes()) {
        attributes.insert(element.tree().nameOf(*attribute).toString(), element.tree().valueOf(*attribute));
    }
    QStringList pairs;
    for (auto it = attributes.cbegin(); it != attributes.cend(); ++it) {
        pairs.append(it.key() + QLatin1Char('=') + it.value());
    }
    pairs.sort();
    QStringList lines{element.name() + QLatin1Char(' ') + pairs.join(QLatin1Char(' ')) + QLatin1Char(' ') +
                      element.text()};
    for (const auto &child : element.children()) {
        lines += linesOf(child);
    }
    return lines;
}

/// A document's tokens as the stream reader gives them, those that mean something to a template's reader.
QStringList tokensOf(const QByteArray &bytes)
{
    QStringList tokens;
    QXmlStreamReader xml(bytes);
    int depth = 0;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            ++depth;
            tokens.append(QLatin1Char('<') + xml.name());
            for (const auto &attribute : xml.attributes()) {
                tokens.append(attribute.qualifiedName() + QLatin1Char('=') + attribute.value());
            }
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        case QXmlStreamReader::Characters:
            if (depth > 0) {
                tokens.append(xml.text().toString());
            }
            break;
        default:
            break;
        }
    }
    return tokens;
}

QStringList tokensOf(const XmlTree &tree)
{
    QStringList tokens;
    for (int i = 0; i < tree.size(); ++i) {
        const XmlNode &node = tree.node(i);
        if (node.kind == XmlNode::Text || node.kind == XmlNode::CData) {
            tokens.append(tree.textOf(i));
        } else if (node.kind == XmlNode::Element) {
            const XmlElement element(tree, i);
            tokens.append(QLatin1Char('<') + element.name());
            for (const XmlAttribute *attribute : element.attributes()) {
                const QString name = tree.nameOf(*attribute).toString();
                // The stream reader keeps the declarations of namespaces apart.
                if (name != QLatin1String("xmlns") && !name.startsWith(QLatin1String("xmlns:"))) {
                    tokens.append(name + QLatin1Char('=') + tree.valueOf(*attribute));
                }
            }
        }
    }
    return tokens;
}

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class XmlTreeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placesCountCharactersFromOne_data();
    void placesCountCharactersFromOne();
    void encodingIsThatOfTheFile_data();
    void encodingIsThatOfTheFile();
    void nodesKnowTheirPlaces();
    void treeIsWhatTheParserMakes_data();
    void treeIsWhatTheParserMakes();
    void entityOfAnotherFileDividesAText_data();
    void entityOfAnotherFileDividesAText();
    void brokenDocumentComesToAnEnd_data();
    void brokenDocumentComesToAnEnd();
    void unknownEntitiesAreFound();
    void documentTypeThatAddsElementsIsNotFollowed_data();
    void documentTypeThatAddsElementsIsNotFollowed();
    void entityThatDividesATextIsNotFollowed_data();
    void entityThatDividesATextIsNotFollowed();
};

void XmlTreeTest::placesCountCharactersFromOne_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("place");
    QTest::newRow("first character") << "x"
                                     << "1:1";
    QTest::newRow("behind a line feed") << "a\nx"
                                        << "2:1";
    QTest::newRow("behind carriage return and line feed") << "a\r\n\r\n x"
                                                          << "3:2";
    QTest::newRow("behind carriage returns") << "a\r\rx"
                                             << "3:1";
    QTest::newRow("behind letters beyond ASCII") << QString::fromUtf8("äöü x") << "1:5";
    QTest::newRow("behind a character of two halves") << QString::fromUtf8("\xF0\x9F\x93\x8Fx") << "1:2";
    QTest::newRow("behind a tab") << "\tx"
                                  << "1:2";
}

void XmlTreeTest::placesCountCharactersFromOne()
{
    QFETCH(QString, source);
    QFETCH(QString, place);
    QCOMPARE(placeOf(source, QStringLiteral("x")), place);
}

void XmlTreeTest::encodingIsThatOfTheFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QString text = QString::fromUtf8("<a>Größe</a>");
    const auto encoded = [&text](const char *codec) {
        return QTextCodec::codecForName(codec)->fromUnicode(text);
    };
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with a mark") << "\xEF\xBB\xBF" + text.toUtf8();
    QTest::newRow("UTF-16 with a mark") << encoded("UTF-16");
    QTest::newRow("UTF-16, big endian") << QByteArray("\xFE\xFF", 2) + encoded("UTF-16BE").mid(2);
    QTest::newRow("UTF-16, little endian, without a mark") << encoded("UTF-16LE").mid(2);
    QTest::newRow("UTF-32 with a mark") << encoded("UTF-32");
}

void XmlTreeTest::encodingIsThatOfTheFile()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(decodedXml(bytes), QString::fromUtf8("<a>Größe</a>"));
}

void XmlTreeTest::nodesKnowTheirPlaces()
{
    const QString source = QStringLiteral("<?xml version=\"1.0\"?>\n<!-- a -->\n"
                                          "<r>\n  <e  b = '1' c=\"2\">text<![CDATA[more]]></e>\n</r>\n");
    const XmlTree tree(source, XmlDialect::Dom);
    const XmlElement element = tree.first(QLatin1String("e"));
    QCOMPARE(tree.root().at(), source.indexOf(QLatin1String("<r")));
    QCOMPARE(element.at(), source.indexOf(QLatin1String("<e")));
    QCOMPARE(element.attribute(QLatin1String("b"))->at, source.indexOf(QLatin1String("b =")));
    QCOMPARE(element.attribute(QLatin1String("c"))->at, source.indexOf(QLatin1String("c=")));
    QCOMPARE(element.textAt(), source.indexOf(QLatin1String("text")));
    QCOMPARE(element.ownTextAt(), source.indexOf(QLatin1String("text")));
    QCOMPARE(tree.root().ownTextAt(), -1);
    QCOMPARE(tree.node(tree.size() - 2).at, source.indexOf(QLatin1String("more")));
    QCOMPARE(element.text(), QStringLiteral("textmore"));
    QCOMPARE(tree.brokenAt(), -1);
}

void XmlTreeTest::treeIsWhatTheParserMakes_data()
{
    QTest::addColumn<QString>("document");
    const QString source = QStringLiteral(TOBRIX_SOURCE_DIR "/");
    for (const auto *home : {"samples/", "tests/corpus/", "tests/check/"}) {
        for (const auto &folder : formatFolders) {
            for (const auto &document : documentsIn(source + QLatin1String(home) + folder.name)) {
                QTest::newRow(qPrintable(document.mid(source.size()))) << document;
            }
        }
    }
}

void XmlTreeTest::treeIsWhatTheParserMakes()
{
    QFETCH(QString, document);
    const CheckedFile file(document);
    if (!file.malformation().isEmpty() || !file.excess().isEmpty() ||
        file.tree().unfollowedDocumentType() >= 0) {
        return; // no rule looks at the tree of such a file
    }
    const QByteArray bytes = contentOf(document);
    if (!file.isCurrent()) {
        QCOMPARE(tokensOf(file.tree()), tokensOf(bytes));
        return;
    }
    QDomDocument dom;
    QVERIFY(dom.setContent(bytes, false));
    QCOMPARE(linesOf(file.tree().root()), linesOf(dom.documentElement()));
}

void XmlTreeTest::entityOfAnotherFileDividesAText_data()
{
    QTest::addColumn<QByteArray>("source");
    const auto row = [](const char *name, const char *documentType, const char *element) {
        QTest::newRow(name) << QByteArray("<!DOCTYPE r ") + documentType + ">" + element;
    };
    row("between two pieces", "SYSTEM 'r.dtd'", "<r>a&x;b</r>");
    row("of a public file", "PUBLIC 'r' 'r.dtd'", "<r>a&x;b</r>");
    row("at both ends", "SYSTEM 'r.dtd'", "<r>&x;a&y;</r>");
    row("twice in a row", "SYSTEM 'r.dtd'", "<r>a&x;&x;b<e/>&x;</r>");
    row("beside known ones", "SYSTEM 'r.dtd' [<!ENTITY own '1'>]", "<r>&own;&lt;&#65;&x;&#x42;&gt;&own;</r>");
    row("beside CDATA", "SYSTEM 'r.dtd'", "<r><![CDATA[&x;]]>&x;a</r>");
    row("in an attribute", "SYSTEM 'r.dtd'", "<r b='1&x;&lt;2'/>");
}

void XmlTreeTest::entityOfAnotherFileDividesAText()
{
    QFETCH(QByteArray, source);
    const XmlTree tree(QString::fromUtf8(source), XmlDialect::Stream);
    QVERIFY(!tree.unknownEntities().empty());
    QCOMPARE(tree.unfollowedDocumentType(), -1);
    QCOMPARE(tokensOf(tree), tokensOf(source));
}

void XmlTreeTest::brokenDocumentComesToAnEnd_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("brokenAt");
    QTest::newRow("nothing") << "" << 0;
    QTest::newRow("a bracket") << "<" << 1;
    QTest::newRow("a tag without an end") << "<a" << 2;
    QTest::newRow("an attribute without an end") << "<a b='1" << 7;
    QTest::newRow("an attribute without a value") << "<a b" << 4;
    QTest::newRow("an element without an end") << "<a><b></b>" << 10;
    QTest::newRow("an end tag without an end") << "<a><b></b" << 9;
    QTest::newRow("another end") << "<a><b></a></b>" << 6;
    QTest::newRow("an end too many") << "<a/></b>" << 4;
    QTest::newRow("a second root") << "<a/><b/>" << 4;
    QTest::newRow("text before the root") << " x<a/>" << 1;
    QTest::newRow("text behind the root") << "<a/> x" << 5;
    QTest::newRow("a comment without an end") << "<a><!-- " << 8;
    QTest::newRow("dashes in a comment") << "<a><!-- x -- --></a>" << 10;
    QTest::newRow("CDATA without an end") << "<a><![CDATA[ x" << 14;
    QTest::newRow("an instruction without an end") << "<a><? x" << 7;
    QTest::newRow("a declaration too late") << "<a><?xml version='1.0'?></a>" << 3;
    QTest::newRow("a tag without a name") << "<a> < b</a>" << 4;
    QTest::newRow("an attribute without quotes") << "<a b=1/>" << 3;
    QTest::newRow("an attribute of a name alone") << "<a b/>" << 3;
    QTest::newRow("a document type without an end") << "<!DOCTYPE a [<!ENTITY" << 21;
    QTest::newRow("a document type of nothing") << "<!" << 2;
    QTest::newRow("a reference without an end") << "<a b='&'>&amp</a>" << -1;
}

void XmlTreeTest::brokenDocumentComesToAnEnd()
{
    QFETCH(QString, source);
    QFETCH(int, brokenAt);
    const XmlTree whole(source, XmlDialect::Dom);
    QCOMPARE(whole.brokenAt(), brokenAt);
    for (int i = 0; i < whole.size(); ++i) {
        QVERIFY(whole.node(i).end > i && whole.node(i).end <= whole.size());
    }
    whole.unknownEntities();
    whole.root().text();
}

void XmlTreeTest::unknownEntitiesAreFound()
{
    const QString source = QStringLiteral("<!DOCTYPE a [<!ENTITY own \"1\">]>"
                                          "<a b='&own;&none;'>&#65;&#x42;&lt;&other;<![CDATA[&c;]]></a>");
    const XmlTree tree(source, XmlDialect::Dom);
    const std::vector<int> expected{source.indexOf(QLatin1String("&none;")),
                                    source.indexOf(QLatin1String("&other;"))};
    QCOMPARE(tree.unknownEntities(), expected);
    QCOMPARE(tree.root().text(), QStringLiteral("AB<&c;"));
}

void XmlTreeTest::documentTypeThatAddsElementsIsNotFollowed_data()
{
    QTest::addColumn<QString>("documentType");
    QTest::addColumn<bool>("isFollowed");
    QTest::newRow("plain text") << "<!ENTITY e 'text'>" << true;
    QTest::newRow("text of text") << "<!ENTITY e '&f;'><!ENTITY f \"text\">" << true;
    QTest::newRow("elements") << "<!ENTITY e '<b/>'>" << false;
    QTest::newRow("elements by number") << "<!ENTITY e '&#60;b/>'>" << false;
    QTest::newRow("default attributes") << "<!ATTLIST a b CDATA 'c'>" << false;
    QTest::newRow("a parameter") << "<!ENTITY % p '<!ATTLIST a b CDATA \"c\">'>%p;" << false;
    QTest::newRow("another file") << "<!ENTITY e SYSTEM 'file'>" << false;
    QTest::newRow("an apostrophe in an instruction") << "<?it isn't?><!ENTITY e 'text'>" << true;
    QTest::newRow("brackets in a text") << "<!ENTITY e ']>'>" << true;
    QTest::newRow("in a comment") << "<!-- <!ATTLIST a b CDATA 'c'> --><!ENTITY e 'text'>" << true;
}

void XmlTreeTest::documentTypeThatAddsElementsIsNotFollowed()
{
    QFETCH(QString, documentType);
    QFETCH(bool, isFollowed);
    const XmlTree tree(QStringLiteral("<!DOCTYPE a [%1]><a/>").arg(documentType), XmlDialect::Dom);
    QCOMPARE(tree.unfollowedDocumentType(), isFollowed ? -1 : 0);
    QCOMPARE(tree.root().name(), QStringLiteral("a"));
}

void XmlTreeTest::entityThatDividesATextIsNotFollowed_data()
{
    QTest::addColumn<QString>("documentType");
    QTest::addColumn<bool>("isFollowed");
    QTest::newRow("known entities within") << "SYSTEM 'a.dtd' [<!ENTITY e '&f;&lt;'><!ENTITY f 'x'>]" << true;
    QTest::newRow("an unknown one within") << "SYSTEM 'a.dtd' [<!ENTITY e 'x&f;y'>]" << false;
    QTest::newRow("an unknown one, without another file") << "[<!ENTITY e 'x&f;y'>]" << true;
}

void XmlTreeTest::entityThatDividesATextIsNotFollowed()
{
    QFETCH(QString, documentType);
    QFETCH(bool, isFollowed);
    const XmlTree tree(QStringLiteral("<!DOCTYPE a %1><a/>").arg(documentType), XmlDialect::Stream);
    QCOMPARE(tree.unfollowedDocumentType(), isFollowed ? -1 : 0);
}

QTEST_GUILESS_MAIN(XmlTreeTest)
#include "XmlTreeTest.moc"
