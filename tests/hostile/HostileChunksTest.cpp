#include "Attacks.h"
#include "HostileFile.h"
#include "HostileLoad.h"

#include <QFileInfo>
#include <QTest>

namespace {

/// The chunk sizes of the layers that read a file.
#ifdef TOBRIX_TEST_SANITIZED
const int boundaries[] = {16 * 1024};
#else
const int boundaries[] = {1024, 4096, 8192, 16 * 1024};
#endif

/// Markup that crosses a chunk boundary, and a document around it.
struct Construct
{
    const char *name;
    QByteArray prolog; ///< before the root
    QByteArray body;   ///< inside of the root
    QByteArray across; ///< part of one of them
};

const Construct constructs[] = {
    {"comment", {}, "<!-- </a> - -->", "<!-- </a> - -->"},
    {"character data", {}, "<b><![CDATA[</a>]] ]]></b>", "<![CDATA[</a>]] ]]>"},
    {"instruction", {}, "<?x </a>? ?>", "<?x </a>? ?>"},
    {"attribute", {}, "<b c='/>' d=\"'\"/>", "<b c='/>' d=\"'\"/>"},
    {"end tag", {}, "<b></b  >", "></b  >"},
    {"document type", "<!DOCTYPE a [<!ENTITY e ']>'>]>", {}, "<!DOCTYPE a [<!ENTITY e ']>'>]>"},
    {"comment in a document type", "<!DOCTYPE a [<!---> ]> -->]>", {}, "<!---> ]> -->]>"},
    {"reference", "<!DOCTYPE a [<!ENTITY e '<b/>'>]>", "<b>&e;</b>", "<b>&e;</b>"},
};

QByteArray padding(int size)
{
    return "<!--" + QByteArray(size - 7, 'x') + "-->";
}

/// A document of so many levels in which a construct begins so many bytes before a boundary.
QByteArray straddling(Format format, const Construct &construct, int boundary, int shift, int levels)
{
    const auto make = [&](int padded) {
        const QByteArray pad = padding(padded);
        const bool isInProlog = construct.body.isEmpty();
        return document(format, (isInProlog ? QByteArray() : pad) + construct.body + nested("a", levels - 1),
                        (isInProlog ? pad : QByteArray()) + construct.prolog);
    };
    constexpr int shortest = 7;
    const int begin = make(shortest).lastIndexOf(construct.across);
    return make(shortest + boundary - shift - begin);
}

} // namespace

class HostileChunksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void markupAcrossABoundaryIsUnderstood_data();
    void markupAcrossABoundaryIsUnderstood();

private:
    void compareLoad(Format format, const QByteArray &content, bool isWithinLimits);

    const HostileFolder m_folder;
};

void HostileChunksTest::markupAcrossABoundaryIsUnderstood_data()
{
    QTest::addColumn<int>("construct");
    QTest::addColumn<int>("boundary");
    int index = 0;
    for (const auto &construct : constructs) {
        for (const int boundary : boundaries) {
            QTest::addRow("%s at %d", construct.name, boundary) << index << boundary;
        }
        ++index;
    }
}

void HostileChunksTest::markupAcrossABoundaryIsUnderstood()
{
    QFETCH(int, construct);
    QFETCH(int, boundary);
    const Construct &straddled = constructs[construct];
    for (int shift = 1; shift < straddled.across.size(); ++shift) {
        for (const Format format : {Format::Legacy, Format::Current}) {
            for (const int levels : {Limits::depth, Limits::depth + 1}) {
                const QByteArray content = straddling(format, straddled, boundary, shift, levels);
                QCOMPARE(content.mid(boundary - shift, straddled.across.size()), straddled.across);
                compareLoad(format, content, levels <= Limits::depth);
                if (QTest::currentTestFailed()) {
                    qWarning("%d bytes in front of the boundary, %d levels", shift, levels);
                    return;
                }
            }
        }
    }
}

void HostileChunksTest::compareLoad(Format format, const QByteArray &content, bool isWithinLimits)
{
    const HostileLoad load = loadInChild(m_folder.write(format, content), boundsForSize(content.size()));
    QVERIFY2(load.failure.isEmpty(), qPrintable(load.failure));
    QCOMPARE(load.isRead, isWithinLimits || format == Format::Current);
    QCOMPARE(load.hasTemplate && !load.isEmpty, isWithinLimits);
}

QTEST_GUILESS_MAIN(HostileChunksTest)
#include "HostileChunksTest.moc"
