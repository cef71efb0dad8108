// Document types at each limit and over it.

#include "support/LegacyReading.h"

#include "format_current/NewTemplateXMLReader.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

QByteArray entity(const QByteArray &name, const QByteArray &text)
{
    return "<!ENTITY " + name + " \"" + text + "\">";
}

/// A chain of nested entities: the first in the second, and so on. The last one has the given number.
QByteArray nestedEntities(int count)
{
    QByteArray declarations = entity("e1", "text");
    for (int i = 2; i <= count; ++i) {
        declarations += entity('e' + QByteArray::number(i), "&e" + QByteArray::number(i - 1) + ';');
    }
    return declarations;
}

QByteArray legacy(const QByteArray &declarations, const QByteArray &key)
{
    return "<!DOCTYPE TobrixTemplate [" + declarations + "]><TobrixTemplate><SYSTPL><TPL_Key>" + key +
           "</TPL_Key></SYSTPL></TobrixTemplate>";
}

QByteArray current(const QByteArray &declarations, const QByteArray &key)
{
    return "<!DOCTYPE ProjectStandard [" + declarations + "]><ProjectStandard><Name>" + key +
           "</Name></ProjectStandard>";
}

} // namespace

class DocumentTypeLimitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentTypeIsReadWithinItsLimits_data();
    void documentTypeIsReadWithinItsLimits();
};

void DocumentTypeLimitsTest::documentTypeIsReadWithinItsLimits_data()
{
    QTest::addColumn<QByteArray>("declarations");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("isRead");

    const auto row = [](const char *name, const QByteArray &declarations, const QByteArray &key,
                        bool isRead) { QTest::newRow(name) << declarations << key << isRead; };
    const QByteArray text = entity("e", "text");
    row("no declarations", "", "plain", true);
    row("an entity", text, "&e;", true);
    row("an entity in apostrophes", "<!ENTITY e 'text'>", "&e;", true);
    row("an entity over lines", "<!ENTITY\n\te\r\n \"text\">", "&e;", true);
    row("an entity that nobody uses", text, "plain", true);
    row("an entity of another file", "<!ENTITY e SYSTEM 'file:///etc/hostname'>", "plain", true);
    row("an entity without a name", "<!ENTITY>", "plain", false);
    row("a parameter entity that nobody uses", "<!ENTITY % p \"text\">", "plain", true);
    row("a reference to a parameter entity", "<!ENTITY % p \"text\">%p;", "plain", false);
    row("a comment with brackets and quotes", "<!-- ]> \" ' -->", "plain", true);
    row("an instruction with brackets and quotes", "<?note ]> \" ' ?>", "plain", true);
    row("a bracket in quotes", entity("e", "]"), "&e;", true);
    row("100 declarations", QByteArray("<!-- -->").repeated(99), "plain", true);
    row("more than 100 declarations", QByteArray("<!-- -->").repeated(101), "plain", false);
    row("16 levels of nested parentheses",
        "<!ELEMENT x " + QByteArray(16, '(') + 'y' + QByteArray(16, ')') + '>', "plain", true);
    row("17 levels of nested parentheses",
        "<!ELEMENT x " + QByteArray(17, '(') + 'y' + QByteArray(17, ')') + '>', "plain", false);
    row("a document type of more than 16 KiB", "<!--" + QByteArray(17 * 1024, ' ') + "-->", "plain", false);
    row("a document type of 10 KiB", "<!--" + QByteArray(10 * 1024, ' ') + "-->", "plain", true);
    row("16 levels of nested entities", nestedEntities(16), "&e16;", true);
    row("17 levels of nested entities", nestedEntities(17), "&e17;", false);
    row("an entity in itself", entity("e", "&e;"), "&e;", false);
    row("1000 references", text, QByteArray("&e;").repeated(1000), true);
    row("1001 references", text, QByteArray("&e;").repeated(1001), false);
    row("entities of more than 65536 characters", entity("e", QByteArray(7000, 'x')),
        QByteArray("&e;").repeated(10), false);
    row("an entity of whole markup", entity("e", "<b>text</b>"), "&e;", true);
    row("an entity that begins within markup", entity("e", "text</b>"), "<b>&e;", false);
    row("an entity with half a reference", entity("e", "&#38;#"), "&e;", false);
    row("an entity with a character's number", entity("e", "A&#66;&#x43;"), "&e;", true);
    row("an entity with a character beyond ASCII", entity("e", "&#228;"), "&e;", true);
    row("an entity with a character beyond 16 bits", entity("e", "&#x1F600;"), "text &e;", true);
    row("an entity with a reference put together of characters", entity("e", "&#38;&#228;;"), "&e;", false);
    row("an entity with a reference to none", entity("e", "&none;"), "&e;", false);
    row("an entity with a number that is cut to markup", entity("e", "&#65596;"), "&e;", false);
    row("a default of an attribute", "<!ATTLIST Name kind CDATA \"none\">", "plain", true);
    row("a default on 100 elements", "<!ATTLIST b kind CDATA \"none\">",
        "text" + QByteArray("<b/>").repeated(100), true);
    row("a default on more than 10000 elements", "<!ATTLIST b kind CDATA \"none\">",
        "text" + QByteArray("<b/>").repeated(10001), false);
    row("defaults of more than 262144 characters",
        "<!ATTLIST b kind CDATA \"" + QByteArray(1000, 'x') + "\">",
        "text" + QByteArray("<b/>").repeated(300), false);
    row("a default with an entity", text + "<!ATTLIST Name kind CDATA \"&e;\">", "plain", true);
    row("a default with too many references",
        text + "<!ATTLIST Name kind CDATA \"" + QByteArray("&e;").repeated(1001) + "\">", "plain", false);
    row("a default with too many levels of nested entities",
        nestedEntities(17) + "<!ATTLIST Name kind CDATA \"&e17;\">", "plain", false);
    row("a default with too many characters",
        entity("e", QByteArray(7000, 'x')) + "<!ATTLIST Name kind CDATA \"" + QByteArray("&e;").repeated(10) +
            "\">",
        "plain", false);
}

void DocumentTypeLimitsTest::documentTypeIsReadWithinItsLimits()
{
    QFETCH(QByteArray, declarations);
    QFETCH(QByteArray, key);
    QFETCH(bool, isRead);
    QCOMPARE(LegacyReading(legacy(declarations, key)).isRead, isRead);

    const TemporaryTemplate file(QStringLiteral("templates_new"), current(declarations, key));
    CTemplateRawData rawData;
    QVERIFY2(NewTemplateXMLReader().readFile(file.path(), rawData), "the current format reads any file");
    QCOMPARE(!rawData.key.isEmpty(), isRead);
}

QTEST_APPLESS_MAIN(DocumentTypeLimitsTest)

#include "DocumentTypeLimitsTest.moc"
