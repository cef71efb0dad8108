// The bytes that Qt's parsers get of a file, and the place where it exceeds a limit.

#include "xml/GuardedMarkup_p.h"

#include "xml/XmlLimits_p.h"

#include <QTest>
#include <QTextCodec>

using namespace Tobrix::Templates;

namespace {

// A typical chunk size for readers of a device.
constexpr int chunkSize = 16 * 1024;

QByteArray readAsAParserDoes(GuardedMarkup &markup)
{
    constexpr int readSize = 1024;
    QByteArray all;
    QByteArray chunk;
    do {
        chunk = markup.read(readSize);
        all += chunk;
    } while (!chunk.isEmpty());
    return all;
}

/// A document with one level over the limit. That is noticed after the "<" of its last tag.
QByteArray tooDeepAfter(const QByteArray &beginning)
{
    return "<a>" + beginning + QByteArray("<b>").repeated(Limits::depth - 1) + "<b/>";
}

QByteArray excessOf(const QByteArray &bytes)
{
    GuardedMarkup markup(bytes);
    readAsAParserDoes(markup);
    return markup.excess().toUtf8();
}

} // namespace

class GuardedMarkupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytesWithinTheLimitsAreHandedOver_data();
    void bytesWithinTheLimitsAreHandedOver();
    void bytesEndWhereALimitIsExceeded();
    void limitsHoldAfterAnyDeclaration_data();
    void limitsHoldAfterAnyDeclaration();
    void everyEncodingThatADeclarationNamesIsFollowed_data();
    void everyEncodingThatADeclarationNamesIsFollowed();
    void declarationMustReadTheSameInTheEncodingThatItNames();
    void placeOfTheExcess_data();
    void placeOfTheExcess();
};

void GuardedMarkupTest::bytesWithinTheLimitsAreHandedOver_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("white space") << QByteArray(" \n<r> <a> x </a>\r\n </r>\n");
    QTest::newRow("more than a chunk") << "<r>" + QByteArray("<a>x</a>\n").repeated(10'000) + "</r>";
    QTest::newRow("a document type of several chunks")
        << "<!DOCTYPE r [<!--" + QByteArray(5'000, 'x') + "-->]><r/>";
    const QString text = QStringLiteral("\uFEFF<r><a>x</a>\n <b>y</b>\n </r>");
    QTest::newRow("UTF-16") << QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

void GuardedMarkupTest::bytesWithinTheLimitsAreHandedOver()
{
    QFETCH(QByteArray, content);
    GuardedMarkup markup(content);
    QCOMPARE(readAsAParserDoes(markup), content);
    QCOMPARE(markup.excess(), QString());
}

void GuardedMarkupTest::bytesEndWhereALimitIsExceeded()
{
    const QByteArray content = tooDeepAfter("\n") + "</b></a>";
    GuardedMarkup markup(content);
    const QByteArray handed = readAsAParserDoes(markup);
    QVERIFY(content.startsWith(handed));
    QCOMPARE(handed.count("<b>"), Limits::depth - 1);
    QVERIFY(!handed.contains("<b/>"));
}

void GuardedMarkupTest::limitsHoldAfterAnyDeclaration_data()
{
    QTest::addColumn<QByteArray>("declaration");
    const auto row = [](const char *declaration) { QTest::newRow(declaration) << QByteArray(declaration); };
    row("<?xml version='1.0'?>");
    row("<?xml version='1.0' encoding='UTF-8'?>");
    row("<?xml\tversion=\"1.0\"\r\n encoding \n=\t\"ISO-8859-1\" standalone='no' ?>");
    row("<?xml version='1.0' encoding='of.no_Codec-1'?>");
    row("<?xml encoding='UTF-8'?>");
    row("<?xml version='1.0'encoding='UTF-8'?>");
    row("<?xml version='encoding=\"UTF-8\"'?>");
    row("<?xml version='&#49;.0' encoding='UTF-8'?>");
    row("<?xml version='1.0' encoding='UTF-8' standalone='&no;'?>");
    row("<?xml version='1.0' encoding 'UTF-8'?>");
    row("<?xml version='1.0' encoding=UTF-8?>");
    row("<?xml version='1.0' encoding='UTF-8\"?>");
    row("<?xml version='1.0' encoding=''?>");
    row("<?xml version='1.0' encoding=' UTF-8'?>");
    row("<?xml version='1.0' encoding='8'?>");
    row("<?xml version='1.0' encoding='UTF\xC2\xAD"
        "8'?>");
    row("<?xmlencoding='UTF-8'?>");
}

void GuardedMarkupTest::limitsHoldAfterAnyDeclaration()
{
    QFETCH(QByteArray, declaration);
    QCOMPARE(excessOf(declaration + "<r/>"), QByteArray());
    QCOMPARE(excessOf(declaration + tooDeepAfter("")), QByteArray("more than 48 levels of nested elements"));
}

void GuardedMarkupTest::everyEncodingThatADeclarationNamesIsFollowed_data()
{
    QTest::addColumn<QByteArray>("declaration");
    const auto row = [](const char *declaration) { QTest::newRow(declaration) << QByteArray(declaration); };
    row("<?xml version='1.0' encoding='UTF-7'?>");
    row("<?xml version='1.0' encoding='UTF-7' encoding='UTF-8'?>");
    row("<?xml version='1.0' encoding='UTF-8' encoding='UTF-7'?>");
    row("<?xml version=\"1.0 encoding='UTF-7'\" encoding='UTF-8'?>");
    row("<?xml version='1.0' encoding='UTF&#45;7'?>");
    row("<?xml version='1.0' encoding='UTF&#x2d;7'?>");
    row("<?xml encoding='utf-7'?>");
}

void GuardedMarkupTest::everyEncodingThatADeclarationNamesIsFollowed()
{
    QFETCH(QByteArray, declaration);
    const QByteArray hidden = tooDeepAfter("").replace('<', "+ADw-").replace('>', "+AD4-");
    QCOMPARE(excessOf(declaration + hidden), QByteArray("more than 48 levels of nested elements"));
    QCOMPARE(excessOf(declaration + "+ADw-a/+AD4-"), QByteArray());
}

void GuardedMarkupTest::declarationMustReadTheSameInTheEncodingThatItNames()
{
    QCOMPARE(excessOf("<?xml version='1.0' encoding='UTF-16LE'?><a/>"),
             QByteArray("an XML declaration in another encoding than it names"));
}

void GuardedMarkupTest::placeOfTheExcess_data()
{
    QTest::addColumn<QByteArray>("beginning");
    QTest::addColumn<QByteArray>("mark");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    const QByteArray none;
    // After "<a>", the tags of three characters, and the "<" of the one over the limit.
    constexpr int tags = 3 + 3 * (Limits::depth - 1) + 1;
    QTest::newRow("in the first line") << none << none << 1 << tags + 1;
    QTest::newRow("in another line") << QByteArray("\n\n") << none << 3 << tags - 3 + 1;
    QTest::newRow("after a byte order mark") << none << QByteArray("\xEF\xBB\xBF") << 1 << tags + 1;
    QTest::newRow("after characters of two to four bytes")
        << QByteArray("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\x8F") << none << 1 << tags + 4 + 1;
    QTest::newRow("after characters of one byte that are not ASCII")
        << QByteArray("\xE4\xF6\xFC\xBF") << QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?>") << 1
        << 43 + tags + 4 + 1;
    QTest::newRow("after a stray byte of no character")
        << QByteArray("\x80\xF6\xFC|\xED\xA0\x80") << none << 1 << tags + 7 + 1;
    QTest::newRow("after carriage returns") << QByteArray("\r\r\nx\r") << none << 4 << tags - 3 + 1;
    // With the smallest of them the last byte of a chunk is a carriage return.
    for (const int size : {chunkSize - 4, chunkSize - 1, chunkSize, chunkSize + 1, 10 * chunkSize}) {
        QTest::addRow("in a line of %d bytes", size)
            << QByteArray("x").repeated(size) << none << 1 << tags + size + 1;
        QTest::addRow("in a line of %d characters of three bytes", size)
            << QByteArray("\xE2\x82\xAC").repeated(size) << none << 1 << tags + size + 1;
        QTest::addRow("in a line after one of %d bytes", size)
            << QByteArray("x").repeated(size) + "\nxyz" << none << 2 << tags - 3 + 3 + 1;
        QTest::addRow("in a line after one of %d bytes and a carriage return", size)
            << QByteArray("x").repeated(size) + "\r\nxyz" << none << 2 << tags - 3 + 3 + 1;
    }
}

void GuardedMarkupTest::placeOfTheExcess()
{
    QFETCH(QByteArray, beginning);
    QFETCH(QByteArray, mark);
    GuardedMarkup markup(mark + tooDeepAfter(beginning));
    readAsAParserDoes(markup);
    QCOMPARE(markup.excess(), QStringLiteral("more than %1 levels of nested elements").arg(Limits::depth));
    QTEST(markup.excessLine(), "line");
    QTEST(markup.excessColumn(), "column");
}

QTEST_APPLESS_MAIN(GuardedMarkupTest)

#include "GuardedMarkupTest.moc"
