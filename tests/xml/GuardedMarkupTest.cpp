// What a parser gets to see of a file, and where in it something is too much.

#include "xml/GuardedFile_p.h"

#include "xml/XmlLimits_p.h"
#include "support/MemoryFile.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

constexpr auto allBetween = SpareWhiteSpace::BetweenMarkup;
constexpr auto behindTexts = SpareWhiteSpace::BehindTexts;

// What a file is read in at a time when a parser asks for less.
constexpr int chunkSize = 16 * 1024;

QByteArray readAsAParserDoes(GuardedFile &file)
{
    constexpr int pieceSize = 1024;
    QByteArray all;
    QByteArray piece;
    do {
        piece = file.read(pieceSize);
        all += piece;
    } while (!piece.isEmpty());
    return all;
}

QByteArray handedToAParser(const QString &path, SpareWhiteSpace leftOut)
{
    GuardedFile file(leftOut);
    return file.openTemplate(path) ? readAsAParserDoes(file) : QByteArray("cannot be opened");
}

/// A document in which the last of so many elements in each other is too much. The place is behind its
/// bracket.
QByteArray tooDeepBehind(const QByteArray &beginning)
{
    return "<a>" + beginning + QByteArray("<b>").repeated(Limits::depth - 1) + "<b/>";
}

} // namespace

class GuardedFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whiteSpaceIsLeftOut_data();
    void whiteSpaceIsLeftOut();
    void everyWholeRunWithinAChunkIsLeftOut();
    void otherEncodingsAreHandedOverAsTheyAre();
    void declarationMustSayPlainlyWhatTheEncodingIs_data();
    void declarationMustSayPlainlyWhatTheEncodingIs();
    void placeOfWhatIsTooMuch_data();
    void placeOfWhatIsTooMuch();
    void fileIsGoneOverWholeFromTheBeginning();
    void fileThatCannotBeOpenedLeavesNothingOfTheOneBefore();

private:
    MemoryFile m_file;
};

void GuardedFileTest::whiteSpaceIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("withoutAllBetween");
    QTest::addColumn<QByteArray>("withoutThatBehindTexts");
    const auto row = [](const char *name, const char *content, const char *withoutAllBetween,
                        const char *withoutThatBehindTexts) {
        QTest::newRow(name) << QByteArray(content) << QByteArray(withoutAllBetween)
                            << QByteArray(withoutThatBehindTexts);
    };
    row("behind an element with a text", "<r><a>x</a>\n\t <b>y</b>\r\n</r>", "<r><a>x</a><b>y</b></r>",
        "<r><a>x</a><b>y</b></r>");
    row("behind an element without a text", "<r><a></a>\n <b/>\n <c/></r>", "<r><a></a><b/><c/></r>",
        "<r><a></a>\n <b/>\n <c/></r>");
    row("behind an element without a text that follows one", "<r><a>x</a><b/>\n <c/></r>",
        "<r><a>x</a><b/><c/></r>", "<r><a>x</a><b/>\n <c/></r>");
    row("behind the end of what holds a text", "<r><a><b>x</b>\n</a>\n</r>\n<!-- c -->",
        "<r><a><b>x</b></a></r><!-- c -->", "<r><a><b>x</b></a></r><!-- c -->");
    row("behind the end of what holds no text", "<r><a><b>x</b><c/></a>\n</r>", "<r><a><b>x</b><c/></a></r>",
        "<r><a><b>x</b><c/></a>\n</r>");
    row("behind a start tag", "<r>\n <a>x<b>\n </b></a></r>", "<r><a>x<b></b></a></r>",
        "<r>\n <a>x<b>\n </b></a></r>");
    row("a text of nothing else", "<r><a> </a> <b/></r>", "<r><a></a><b/></r>", "<r><a> </a><b/></r>");
    row("behind a reference", "<r><a>&lt;</a> <b/>&amp; </r>", "<r><a>&lt;</a><b/>&amp; </r>",
        "<r><a>&lt;</a><b/>&amp; </r>");
    row("behind character data", "<r><a><![CDATA[x]]></a> <b/></r>", "<r><a><![CDATA[x]]></a><b/></r>",
        "<r><a><![CDATA[x]]></a> <b/></r>");
    row("behind a comment within a text", "<r><a>x<!-- c --> <b/></a></r>", "<r><a>x<!-- c --><b/></a></r>",
        "<r><a>x<!-- c --> <b/></a></r>");
    row("behind a comment behind a text", "<r><a>x</a><!-- > --> <?i?> <b/></r>",
        "<r><a>x</a><!-- > --><?i?><b/></r>", "<r><a>x</a><!-- > --><?i?><b/></r>");
    row("in a text", "<r><a> x\n y </a> z <b/></r>", "<r><a> x\n y </a> z <b/></r>",
        "<r><a> x\n y </a> z <b/></r>");
    row("in tags, comments and values", "<r ><a b=' > <c> '>x</a > <!-- </a> <b> --></r >",
        "<r ><a b=' > <c> '>x</a ><!-- </a> <b> --></r >", "<r ><a b=' > <c> '>x</a ><!-- </a> <b> --></r >");
    row("before everything", " \n<r/>", " \n<r/>", " \n<r/>");
    row("behind an XML declaration", "<?xml version='1.0'?>\n<r/>", "<?xml version='1.0'?><r/>",
        "<?xml version='1.0'?>\n<r/>");
    row("behind everything", "<r>x</r>\n ", "<r>x</r>\n ", "<r>x</r>\n ");
    row("behind a document type", "<!DOCTYPE r [<!ENTITY e ''>]>\n<r><a>x&e;</a>\n</r>",
        "<!DOCTYPE r [<!ENTITY e ''>]>\n<r><a>x&e;</a>\n</r>",
        "<!DOCTYPE r [<!ENTITY e ''>]>\n<r><a>x&e;</a>\n</r>");
}

void GuardedFileTest::whiteSpaceIsLeftOut()
{
    QFETCH(QByteArray, content);
    m_file.write(content);
    QCOMPARE(handedToAParser(m_file.path(), SpareWhiteSpace::None), content);
    QTEST(handedToAParser(m_file.path(), allBetween), "withoutAllBetween");
    QTEST(handedToAParser(m_file.path(), behindTexts), "withoutThatBehindTexts");
}

void GuardedFileTest::everyWholeRunWithinAChunkIsLeftOut()
{
    constexpr int count = 10'000;
    const QByteArray element = "<a>x</a>\n    ";
    m_file.write("<r>" + element.repeated(count) + "</r>");
    QByteArray handed = handedToAParser(m_file.path(), behindTexts);
    // Of the runs across the end of a chunk at least that stays which stands before it.
    const int chunks = (element.size() * count) / chunkSize + 1;
    const int handedWhiteSpace = handed.size() - QByteArray(element).trimmed().size() * count - 7;
    QVERIFY2(handedWhiteSpace <= chunks * 5, QByteArray::number(handedWhiteSpace).constData());
    QCOMPARE(handed.replace('\n', "").replace(' ', ""),
             "<r>" + QByteArray("<a>x</a>").repeated(count) + "</r>");
}

void GuardedFileTest::otherEncodingsAreHandedOverAsTheyAre()
{
    const QString text = QStringLiteral("\uFEFF<r><a>x</a>\n <b>y</b>\n </r>");
    const QByteArray bytes(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    m_file.write(bytes);
    QCOMPARE(handedToAParser(m_file.path(), allBetween), bytes);
    QCOMPARE(handedToAParser(m_file.path(), behindTexts), bytes);
}

void GuardedFileTest::declarationMustSayPlainlyWhatTheEncodingIs_data()
{
    QTest::addColumn<QByteArray>("declaration");
    QTest::addColumn<bool>("isPlain");
    const auto row = [](const char *declaration, bool isPlain) {
        QTest::newRow(declaration) << QByteArray(declaration) << isPlain;
    };
    row("<?xml version='1.0'?>", true);
    row("<?xml version='1.0' encoding='UTF-8'?>", true);
    row("<?xml\tversion=\"1.0\"\r\n encoding \n=\t\"ISO-8859-1\" standalone='no' ?>", true);
    row("<?xml version='1.0' encoding='of.no_Codec-1'?>", true);
    row("<?xml encoding='UTF-8'?>", false);
    row("<?xml version='1.0'encoding='UTF-8'?>", false);
    row("<?xml version='encoding=\"UTF-8\"'?>", false);
    row("<?xml version='1.0' encoding='UTF-8' encoding='UTF-16'?>", false);
    row("<?xml version='&#49;.0' encoding='UTF-8'?>", false);
    row("<?xml version='1.0' encoding='UTF-8' standalone='&no;'?>", false);
    row("<?xml version='1.0' encoding 'UTF-8'?>", false);
    row("<?xml version='1.0' encoding=UTF-8?>", false);
    row("<?xml version='1.0' encoding='UTF-8\"?>", false);
    row("<?xml version='1.0' encoding=''?>", false);
    row("<?xml version='1.0' encoding=' UTF-8'?>", false);
    row("<?xml version='1.0' encoding='8'?>", false);
    row("<?xml version='1.0' encoding='UTF\xC2\xAD"
        "8'?>",
        false);
    row("<?xml version='1.0' encoding", false);
    row("<?xml version='1.0' encoding=", false);
    row("<?xmlencoding='UTF-8'?>", false);
}

void GuardedFileTest::declarationMustSayPlainlyWhatTheEncodingIs()
{
    QFETCH(QByteArray, declaration);
    m_file.write(declaration + "<r/>");
    GuardedFile file;
    QVERIFY(file.openTemplate(m_file.path()));
    readAsAParserDoes(file);
    QFETCH(bool, isPlain);
    QCOMPARE(file.excess(), isPlain ? QString() : QStringLiteral("an XML declaration of unusual form"));
}

void GuardedFileTest::placeOfWhatIsTooMuch_data()
{
    QTest::addColumn<QByteArray>("beginning");
    QTest::addColumn<QByteArray>("mark");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    const QByteArray none;
    // Behind "<a>", the tags of three characters and the bracket of the one too many.
    constexpr int tags = 3 + 3 * (Limits::depth - 1) + 1;
    QTest::newRow("in the first line") << none << none << 1 << tags + 1;
    QTest::newRow("in another line") << QByteArray("\n\n") << none << 3 << tags - 3 + 1;
    QTest::newRow("behind a byte order mark") << none << QByteArray("\xEF\xBB\xBF") << 1 << tags + 1;
    QTest::newRow("behind characters of two to four bytes")
        << QByteArray("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\x8F") << none << 1 << tags + 4 + 1;
    QTest::newRow("behind characters of one byte that are none of ASCII")
        << QByteArray("\xE4\xF6\xFC\xBF") << QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?>") << 1
        << 43 + tags + 4 + 1;
    QTest::newRow("behind a stray byte of no character")
        << QByteArray("\x80\xF6\xFC|\xED\xA0\x80") << none << 1 << tags + 7 + 1;
    QTest::newRow("behind carriage returns") << QByteArray("\r\r\nx\r") << none << 4 << tags - 3 + 1;
    // With the least of them the last byte of a chunk is a carriage return.
    for (const int size : {chunkSize - 4, chunkSize - 1, chunkSize, chunkSize + 1, 10 * chunkSize}) {
        QTest::addRow("in a line of %d bytes", size)
            << QByteArray("x").repeated(size) << none << 1 << tags + size + 1;
        QTest::addRow("in a line of %d characters of three bytes", size)
            << QByteArray("\xE2\x82\xAC").repeated(size) << none << 1 << tags + size + 1;
        QTest::addRow("in a line behind one of %d bytes", size)
            << QByteArray("x").repeated(size) + "\nxyz" << none << 2 << tags - 3 + 3 + 1;
        QTest::addRow("in a line behind one of %d bytes and a carriage return", size)
            << QByteArray("x").repeated(size) + "\r\nxyz" << none << 2 << tags - 3 + 3 + 1;
    }
}

void GuardedFileTest::placeOfWhatIsTooMuch()
{
    QFETCH(QByteArray, beginning);
    QFETCH(QByteArray, mark);
    m_file.write(mark + tooDeepBehind(beginning));
    GuardedFile file;
    QVERIFY(file.openTemplate(m_file.path()));
    readAsAParserDoes(file);
    QCOMPARE(file.excess(), QStringLiteral("more than %1 elements in each other").arg(Limits::depth));
    QTEST(file.excessLine(), "line");
    QTEST(file.excessColumn(), "column");
}

void GuardedFileTest::fileIsGoneOverWholeFromTheBeginning()
{
    const QByteArray content = "<a>\n  " + tooDeepBehind("x");
    m_file.write(content);
    GuardedFile file(allBetween);
    QVERIFY(file.openTemplate(m_file.path()));
    const QByteArray leftOut = readAsAParserDoes(file);
    QVERIFY(!file.excess().isEmpty());
    file.restartWhole();
    QVERIFY(file.excess().isEmpty());
    const QByteArray whole = readAsAParserDoes(file);
    QVERIFY(content.startsWith(whole));
    QCOMPARE(leftOut, QByteArray(whole).replace("\n  ", ""));
    QCOMPARE(file.excessLine(), 2);
    // The next file is read as this one was at first.
    QVERIFY(file.openTemplate(m_file.path()));
    QCOMPARE(readAsAParserDoes(file), leftOut);
}

void GuardedFileTest::fileThatCannotBeOpenedLeavesNothingOfTheOneBefore()
{
    m_file.write(tooDeepBehind("\n"));
    GuardedFile file;
    QVERIFY(file.openTemplate(m_file.path()));
    readAsAParserDoes(file);
    QVERIFY(!file.excess().isEmpty());
    QVERIFY(!file.openTemplate(QStringLiteral("/nonexistent/template.xml")));
    QCOMPARE(file.excess(), QString());
    QCOMPARE(file.excessLine(), 1);
}

QTEST_APPLESS_MAIN(GuardedFileTest)

#include "GuardedFileTest.moc"
