// The strict parser reports the same as Qt's parser of the dialect, and reads nearly all templates.

#include "xml/XmlDocument_p.h"

#include <QDir>
#include <QDirIterator>
#include <QDomDocument>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <map>

using namespace Tobrix::Templates;

namespace {

using Node = XmlDocument::Node;

/// The nodes of a document as lines, without whitespace that no reader uses and that the strict parser may
/// skip.
QStringList linesOf(const XmlDocument &document)
{
    QStringList lines;
    std::vector<int> ends;
    bool hasText = false;
    bool hasEnd = false;
    const auto closeBefore = [&](int node) {
        while (!ends.empty() && ends.back() <= node) {
            ends.pop_back();
            lines.append(QStringLiteral("end"));
            hasEnd = true;
        }
    };
    for (int i = 0; i < document.size(); ++i) {
        closeBefore(i);
        if (document.isElement(i)) {
            QStringList attributes;
            for (const auto &attribute : document.attributes(i)) {
                if (!XmlDocument::isSuperseded(attribute)) {
                    attributes.append(document.nameOf(attribute) + QLatin1Char('=') +
                                      document.value(attribute));
                }
            }
            attributes.sort();
            lines.append(
                QStringLiteral("element %1 %2").arg(document.nameOf(i), attributes.join(QLatin1Char('|'))));
            ends.push_back(document.end(i));
            hasText = false;
            hasEnd = false;
            continue;
        }
        const QString text = document.text(i);
        if (document.isText(i)) {
            const bool isUnseen = document.dialect() == XmlDialect::Stream &&
                                  document.node(i).kind == Node::Text && hasText && hasEnd &&
                                  text.trimmed().isEmpty();
            hasText = true;
            if (isUnseen) {
                continue;
            }
        }
        const bool isMisc = document.node(i).kind == Node::Instruction;
        lines.append(QStringLiteral("%1 %2").arg(document.node(i).kind).arg(isMisc ? QString() : text));
    }
    closeBefore(document.size());
    return lines;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator it(QStringLiteral(TOBRIX_SOURCE_DIR "/") + folder, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        files.append(it.next());
    }
    files.sort();
    return files;
}

constexpr XmlDialect dialects[] = {XmlDialect::Dom, XmlDialect::Stream};

} // namespace

class XmlWaysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bothWaysReportTheSame_data();
    void bothWaysReportTheSame();
    void snippetsAreReportedTheSame_data();
    void snippetsAreReportedTheSame();
    void nearlyAllTemplatesAreReadByTheStrictParser();

private:
    void compareWays(const QByteArray &bytes, XmlDialect dialect);

    std::map<XmlRefusal, int> m_refusals;
};

void XmlWaysTest::compareWays(const QByteArray &bytes, XmlDialect dialect)
{
    const XmlDocument document = XmlDocument::parse(bytes, dialect);
    ++m_refusals[document.refusal()];
    const XmlDocument byQt = XmlDocument::parse(bytes, dialect, XmlWay::Qt);
    QCOMPARE(byQt.refusal(), XmlRefusal::Forced);
    QCOMPARE(document.fault().kind, byQt.fault().kind);
    QCOMPARE(linesOf(document), linesOf(byQt));
}

void XmlWaysTest::bothWaysReportTheSame_data()
{
    QTest::addColumn<QString>("path");
    for (const char *folder : {"samples", "docs/examples", "tests/corpus", "tests/check", "fuzzing/seeds"}) {
        for (const auto &path : filesBelow(QLatin1String(folder))) {
            QTest::newRow(qPrintable(path.mid(int(sizeof(TOBRIX_SOURCE_DIR))))) << path;
        }
    }
}

void XmlWaysTest::bothWaysReportTheSame()
{
    QFETCH(QString, path);
    for (const XmlDialect dialect : dialects) {
        compareWays(contentOf(path), dialect);
    }
}

void XmlWaysTest::snippetsAreReportedTheSame_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isStrictDom");
    QTest::addColumn<bool>("isStrictStream");
    const auto row = [](const QByteArray &content, bool isStrictDom = true, bool isStrictStream = true) {
        QTest::addRow("%s", content.toPercentEncoding(" <>/=\"'&;!?[]#-").constData())
            << content << isStrictDom << isStrictStream;
    };
    row("<a/>");
    row("", false, false);
    row(" <a/>");
    row("<a></a>\n<!-- c --><?p i?>\n");
    row("<?xml version='1.0'?><a/>");
    row("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone='yes' ?>\n<a/>");
    row(" <?xml version='1.0'?><a/>", false, false);
    row("<?xml version='1.1'?><a/>", false, false);
    row("<?xml encoding='UTF-8'?><a/>", false, false);
    row("<?xml version='1.0' encoding=''?><a/>", false, false);
    row("<?xml version='1.0' encoding='unknown-8'?><a/>", false, false);
    row("\xef\xbb\xbf<a>\xc3\xbc</a>");
    row("\xef\xbb\xbf<?xml version='1.0' encoding='utf-8'?><a>\xc3\xbc</a>");
    row("<?xml version='1.0' encoding='ISO-8859-1'?><a b='\xe4'>\xfc</a>");
    row("<?xml version='1.0' encoding='ISO-8859-15'?><a b='\xa4'>\xfc</a>");
    row("<?xml version='1.0' encoding='windows-1252'?><a b='\x80'>\xfc</a>");
    row(QByteArray("\xff\xfe<\0a\0>\0\xe4\0<\0/\0a\0>\0", 18));
    row(QByteArray("\xfe\xff\0<\0a\0>\0\xe4\0<\0/\0a\0>", 18));
    row(QByteArray("<\0a\0/\0>\0", 8), false, false);
    row("<a>\xff</a>", false, false);
    row("<a>\xed\xa0\x80</a>", false, false);
    row("<a>x\xef\xbb\xbfy</a>", false, false);
    row("<a>\xf0\x9f\x98\x80</a>");
    row("<a>\x01</a>", false, false);
    row("<a>\x7f</a>");
    row("<a>\xc2\x85 x \xe2\x80\xa8</a>");
    row("<a>x\r\ny\rz\n\tw</a>");
    row("<a b='x\r\ny\rz\n\tw'/>");
    row("<a b='&#13;&#10;&#9;'>&#13;&#10;</a>");
    row("<a b=\"it's\" c='\"'/>");
    row("<a b=''></a>");
    row("<a b = 'x'\n c\t=\r'y' />");
    row("<a b='x'c='y'/>", false, false);
    row("<a b='x' b='y' c='z' b='w'/>", true, false);
    row("<a b='<'/>", false, false);
    row("<a b='>'>></a>");
    row("<a>]]</a>");
    row("<a>]]></a>", false, false);
    row("<a>]</a>");
    row("<a><![CDATA[]]></a>");
    row("<a><![CDATA[]]>K</a>");
    row("<a>K<![CDATA[ <b>&amp;]] ]]>L</a>");
    row("<a><![CDATA[x]]]></a>");
    row("<a><![CDATA[x]]]]></a>");
    row("<a><![CDATA[x\r\ny\rz]]></a>");
    row("<a><!-- --> <!-- -->B</a>");
    row("<a>A<!-- --> <!-- -->B</a>");
    row("<a>A<?p?>B</a>", false, false);
    row("<a>A<?p ?>B</a>");
    row("<a>A<?p x?"
        "?>B</a>",
        false, false);
    row("<a><?xml x?></a>", false, false);
    row("<a><?XML x?></a>", false, false);
    row("<a><?xml-model href='x'?></a>");
    row("<!-- - --><a/>");
    row("<!----><a/>");
    row("<!--->--><a/>");
    row("<!-- -- --><a/>", false, false);
    row("<!-- ---><a/>", false, false);
    row("<a> <b> </b> <c/> <d>x</d> <e> y </e> </a>");
    row("<a>&#32;</a>");
    row("<a> &#160; </a>");
    row("<a>\xc2\xa0</a>");
    row("<a>x&#32;y</a>");
    row("<a>&lt;&gt;&amp;&quot;&apos;&#65;&#x42;</a>");
    row("<a b='&lt;&gt;&amp;&quot;&apos;&#65;&#x42;'/>");
    row("<a>&#x1F600;</a>", false, true);
    row("<a>&#0;</a>", false, false);
    row("<a>&#xD800;</a>", false, false);
    row("<a>&#xFFFF;</a>", false, false);
    row("<a>&#XA;</a>", false, false);
    row("<a>&#;</a>", false, false);
    row("<a>&nbsp;</a>", false, false);
    row("<a>& b</a>", false, false);
    row("<a>&lt</a>", false, false);
    row("<\xc3\xa4/>", false, false);
    row("<a \xc3\xa4='x'/>", false, false);
    row("<1a/>", false, false);
    row("<a-b.c_1/>");
    row("<x:a/>", true, false);
    row("<x:a xmlns:x='u'/>");
    row("<x:a xmlns:x='u'></x:a>");
    row("<x:a xmlns:x='u'><x:b/><b xmlns='v'/></x:a>");
    row("<a><b xmlns:x='u'/><x:c/></a>", true, false);
    row("<a x:b='c'/>", true, false);
    row("<a xmlns:x='u' x:b='c' b='d'/>");
    row("<a x:b='c' xmlns:x='u'/>");
    row("<a xmlns:x='u' xmlns:y='u' x:b='c' y:b='d'/>", true, false);
    row("<a xml:space='preserve' xml:lang='de'/>");
    row("<a xmlns:x=''/>", true, false);
    row("<a xmlns=''/>");
    row("<a xmlns='u'><b xmlns=''/></a>");
    row("<a xmlns:xml='u'/>", true, false);
    row("<a xmlns:xmlns='u'/>", true, false);
    row("<a xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:noNamespaceSchemaLocation='x.xsd'/>");
    row("<a:b:c/>", false, false);
    row("<a></b>", false, false);
    row("<a>", false, false);
    row("<a/><b/>", false, false);
    row("<a/>x", false, false);
    row("x<a/>", false, false);
    row("<a", false, false);
    row("<a></a", false, false);
    row("<a></a >");
    row("</a>", false, false);
    row("< a/>", false, false);
    row("<a/ >", false, false);
    row("<!DOCTYPE a><a/>", false, false);
    row("<![CDATA[x]]><a/>", false, false);
}

void XmlWaysTest::snippetsAreReportedTheSame()
{
    QFETCH(QByteArray, content);
    for (const XmlDialect dialect : dialects) {
        compareWays(content, dialect);
    }
    QTEST(XmlDocument::parse(content, XmlDialect::Dom).refusal() == XmlRefusal::None, "isStrictDom");
    QTEST(XmlDocument::parse(content, XmlDialect::Stream).refusal() == XmlRefusal::None, "isStrictStream");
}

void XmlWaysTest::nearlyAllTemplatesAreReadByTheStrictParser()
{
    for (const auto &refused : m_refusals) {
        qInfo("%6d  %s", refused.second, wordsFor(refused.first).data());
    }
    int sound = 0;
    int strict = 0;
    for (const char *folder : {"samples", "docs/examples", "tests/corpus"}) {
        for (const auto &path : filesBelow(QLatin1String(folder))) {
            const QByteArray content = contentOf(path);
            const bool isCurrent = path.contains(QLatin1String("templates_new/"));
            const XmlDialect dialect = isCurrent ? XmlDialect::Dom : XmlDialect::Stream;
            const bool isSound = path.endsWith(QLatin1String(".xml")) && !content.contains("<!DOCTYPE") &&
                                 !XmlDocument::parse(content, dialect, XmlWay::Qt).fault();
            const bool isStrict = XmlDocument::parse(content, dialect).refusal() == XmlRefusal::None;
            sound += isSound ? 1 : 0;
            strict += isSound && isStrict ? 1 : 0;
            if (isSound && QLatin1String(folder) != QLatin1String("tests/corpus")) {
                QVERIFY2(isStrict, qPrintable(path));
            }
        }
    }
    qInfo("%d of %d well-formed documents without a document type are read by the strict parser", strict,
          sound);
    QVERIFY2(strict * 100 >= sound * 95, "fewer than 95 of 100");
}

QTEST_GUILESS_MAIN(XmlWaysTest)
#include "XmlWaysTest.moc"
