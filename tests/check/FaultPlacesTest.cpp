#include "CheckDocuments.h"
#include "support/TemporaryTemplate.h"

#include <QTest>

// Parsers notice a fault behind its place. What people are shown is the place.

class FaultPlacesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faultIsWhereItBegins_data();
    void faultIsWhereItBegins();
};

void FaultPlacesTest::faultIsWhereItBegins_data()
{
    // The "|" shows the place, and is no part of the file.
    QTest::addColumn<QByteArray>("marked");
    QTest::addColumn<bool>("isFaultOfCurrent");
    const auto row = [](const char *name, const char *marked, bool isFaultOfCurrent = true) {
        QTest::newRow(name) << QByteArray(marked) << isFaultOfCurrent;
    };
    row("an ampersand in a text", "<R>\n <a>x |& y</a></R>");
    row("an ampersand in a value", "<R>\n <a b='x |& y'/></R>");
    row("a reference without an end", "<R>\n <a>x |&amp y</a></R>");
    row("a reference to no number", "<R>\n <a>&#65;|&#xyz;</a></R>");
    row("a reference to no character", "<R>\n <a>&#65;|&#0;</a></R>", false);
    row("an unknown entity in a text", "<R>\n <a>&lt;|&nbsp;</a></R>", false);
    row("an unknown entity in a value", "<R>\n <a b='&lt;|&nbsp;'/></R>", false);
    row("an unknown entity beside a known one", "<!DOCTYPE R [<!ENTITY e 'text'>]><R>&e;|&f;</R>", false);
    row("an ampersand behind entities of another file",
        "<!DOCTYPE R SYSTEM 'r.dtd'><R b='&e;'>\n&f; <a>&g;|& y</a></R>");
    row("a repeated attribute", "<R>\n <a b='1' c='2'  |b='3' d='4'/></R>", false);
    row("an unknown prefix", "<R>\n |<p:a b='1' c='2'>x</p:a></R>", false);
    row("a byte that is no UTF-8", "<R>\n <a>x</a> <a>x|\xFFy</a></R>", false);
    row("a byte that is no UTF-8, far away from any markup",
        "<R>\xC3\xA4\xC3\xB6\xC3\xBC\xF0\x9F\x93\x8F \n 0123456789|\xE4\x62\x63</R>", false);
    row("text behind the root", "<R>\n</R>\n |x\n");
    row("an element behind the root", "<R>\n</R>\n |<a b='1'>x</a>\n");
    row("text before the root", "\n |x<R/>");
    row("another end tag", "<R>\n <a><b>|</a></R>");
    row("no letter behind a bracket", "<R>\n x |< y</R>");
    row("a bracket in a value", "<R>\n <a b='x |< y'/></R>");
    row("an attribute without quotes", "<R>\n <a |b=1/></R>");
    row("an attribute without a value", "<R>\n <a |b/></R>");
    row("attributes without a blank between", "<R>\n <a b='1'|c='2'/></R>", false);
    row("the end of CDATA in a text", "<R>\n x|]]></R>");
    row("dashes in a comment", "<R><!-- x |-- y --></R>");
    row("a declaration behind a blank", " |<?xml version='1.0'?><R/>");
    row("a control character", "<R>\n <a>x|\x01</a></R>", false);
    row("a file that ends in an element", "<R>\n <a>\n|");
    row("a file that ends in a tag", "<R>\n <a b='1' c|");
    row("a file that ends in an end tag", "<R>\n <a></a|");
    row("a file that ends in a value", "<R>\n <a b='1 |");
    row("a file that ends in a comment", "<R>\n <!-- x|");
    row("a file that ends in CDATA", "<R>\n <![CDATA[ x|");
}

void FaultPlacesTest::faultIsWhereItBegins()
{
    QFETCH(QByteArray, marked);
    QFETCH(bool, isFaultOfCurrent);
    const int at = marked.indexOf('|');
    const QByteArray before = marked.left(at);
    const QString place =
        QStringLiteral("%1:%2: ")
            .arg(before.count('\n') + 1)
            .arg(QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).toUcs4().size() + 1);
    for (const auto &folder : formatFolders) {
        const TemporaryTemplate file(folder.name, before + marked.mid(at + 1));
        const QString findings = findingsIn(file.path());
        const bool isFault = findings.endsWith(QLatin1String("[xml-malformed]\n"));
        QVERIFY2(isFault == (isFaultOfCurrent || !folder.isCurrent), qPrintable(findings));
        QVERIFY2(!isFault || findings.startsWith(place), qPrintable(place + findings));
    }
}

QTEST_GUILESS_MAIN(FaultPlacesTest)
#include "FaultPlacesTest.moc"
