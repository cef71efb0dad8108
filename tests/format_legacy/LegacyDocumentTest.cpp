// Containers, sections, and the elements around them.

#include "support/LegacyReading.h"

#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

const QByteArray header = "<SYSTPL><TPL_Key>K</TPL_Key></SYSTPL>";
const QByteArray view = "<PROGVIEW><PV_PK>V</PV_PK></PROGVIEW>";
const QByteArray column =
    "<SYSCOL><COL_DataType>TXT</COL_DataType><COL_ProgView_FK>V</COL_ProgView_FK></SYSCOL>";
const QByteArray listItem = "<SYSLIST><LIST_Name>L</LIST_Name></SYSLIST>";
const QByteArray legend = "<LegendOfClassification><class id=\"1\"/></LegendOfClassification>";
const QByteArray everySection = header + view + column + listItem + legend;

/// The sections above that a record has data of.
QString foundIn(const CTemplateRawData &rawData)
{
    QString found;
    found += rawData.key == QLatin1String("K") ? QStringLiteral("header ") : QString();
    found += rawData.programViews.contains(QStringLiteral("V")) ? QStringLiteral("view ") : QString();
    found += rawData.columns.contains(QStringLiteral("V")) ? QStringLiteral("column ") : QString();
    found += rawData.listItems.contains(QStringLiteral("L")) ? QStringLiteral("item ") : QString();
    found += rawData.legendA.size() == 1 ? QStringLiteral("legend ") : QString();
    return found.trimmed();
}

const QString everything = QStringLiteral("header view column item legend");

} // namespace

class LegacyDocumentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sectionsAreFoundBelowContainers_data();
    void sectionsAreFoundBelowContainers();
    void documentWithoutSectionsIsRead_data();
    void documentWithoutSectionsIsRead();
    void sectionsWithinASectionAreNotRead_data();
    void sectionsWithinASectionAreNotRead();
    void encodingOfTheDocumentIsFollowed_data();
    void encodingOfTheDocumentIsFollowed();
};

void LegacyDocumentTest::sectionsAreFoundBelowContainers_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("found");
    const auto all = everySection;
    const auto add = [](const char *name, const QByteArray &document, const QString &found) {
        QTest::newRow(name) << document << found;
    };
    add("TXSYS in TobrixTemplate", "<TobrixTemplate><TXSYS>" + all + "</TXSYS></TobrixTemplate>", everything);
    add("TobrixTemplate in TXSYS", "<TXSYS><TobrixTemplate>" + all + "</TobrixTemplate></TXSYS>", everything);
    add("TXSYS alone", "<TXSYS>" + all + "</TXSYS>", everything);
    add("TobrixTemplate alone", "<TobrixTemplate>" + all + "</TobrixTemplate>", everything);
    add("deep", "<TXSYS><TXSYS><TobrixTemplate><TXSYS>" + all + "</TXSYS></TobrixTemplate></TXSYS></TXSYS>",
        everything);
    add("several containers",
        "<TobrixTemplate>" + header + "<TXSYS>" + view + column + "</TXSYS>" + listItem + "<TXSYS>" + legend +
            "</TXSYS></TobrixTemplate>",
        everything);
    add("any order", "<TXSYS>" + legend + listItem + column + view + header + "</TXSYS>", everything);
    add("section as root", header, QStringLiteral("header"));
    add("text and comments around", "<TXSYS>text <!-- c -->" + all + " text<?do it?></TXSYS>", everything);
    add("attributes", "<TXSYS key=\"x\"><SYSTPL TPL_Key=\"x\"><TPL_Key>K</TPL_Key></SYSTPL></TXSYS>",
        QStringLiteral("header"));
    add("prefix of a namespace does not count",
        "<x:TXSYS xmlns:x=\"urn:x\"><x:SYSTPL><x:TPL_Key>K</x:TPL_Key></x:SYSTPL></x:TXSYS>",
        QStringLiteral("header"));
    add("unknown element before", "<TXSYS><Other>" + header + "</Other>" + view + "</TXSYS>",
        QStringLiteral("view"));
    add("unknown element after", "<TXSYS>" + view + "<Other>" + header + "</Other></TXSYS>",
        QStringLiteral("view"));
    add("all within an unknown element", "<TXSYS><Other>" + all + "</Other></TXSYS>", QString());
    add("container within an unknown element", "<TXSYS><Other><TXSYS>" + all + "</TXSYS></Other></TXSYS>",
        QString());
    add("unknown root", "<Other>" + all + "</Other>", QString());
    add("names in other case", "<TXSYS><systpl><TPL_Key>K</TPL_Key></systpl></TXSYS>", QString());
    add("container in other case", "<TXSYS><txsys>" + all + "</txsys></TXSYS>", QString());
    add("child of a section without it", "<TXSYS><TPL_Key>K</TPL_Key></TXSYS>", QString());
}

void LegacyDocumentTest::sectionsAreFoundBelowContainers()
{
    QFETCH(QByteArray, document);
    const LegacyReading reading(document);
    QVERIFY(reading.isRead);
    QTEST(foundIn(reading.rawData), "found");
}

void LegacyDocumentTest::documentWithoutSectionsIsRead_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::newRow("containers") << legacyDocument("");
    QTest::newRow("one empty container") << QByteArray("<TXSYS/>");
    QTest::newRow("other elements") << QByteArray("<html><body/></html>");
    QTest::newRow("with declaration and comments")
        << QByteArray("<?xml version=\"1.0\"?><!-- a --><TXSYS> </TXSYS><!-- b -->\n");
}

void LegacyDocumentTest::documentWithoutSectionsIsRead()
{
    QFETCH(QByteArray, document);
    const LegacyReading reading(document);
    QVERIFY(reading.isRead);
    QCOMPARE(foundIn(reading.rawData), QString());
    QCOMPARE(reading.rawData.uniqueId, QString());
}

void LegacyDocumentTest::sectionsWithinASectionAreNotRead_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("found");
    QTest::newRow("column in header")
        << legacyDocument("<SYSTPL>" + column + "<TPL_Key>K</TPL_Key></SYSTPL>" + view)
        << QStringLiteral("header view");
    QTest::newRow("view in view")
        << legacyDocument("<PROGVIEW><PROGVIEW><PV_PK>V</PV_PK></PROGVIEW></PROGVIEW>" + header)
        << QStringLiteral("header view");
    QTest::newRow("header in column")
        << legacyDocument("<SYSCOL>" + header + "</SYSCOL>" + view) << QStringLiteral("view");
    QTest::newRow("view in list item")
        << legacyDocument("<SYSLIST><LIST_Name>L</LIST_Name>" + view + "</SYSLIST>")
        << QStringLiteral("item");
    QTest::newRow("header in legend")
        << legacyDocument("<LegendOfClassification>" + header + "</LegendOfClassification>" + view)
        << QStringLiteral("view");
}

void LegacyDocumentTest::sectionsWithinASectionAreNotRead()
{
    QFETCH(QByteArray, document);
    const LegacyReading reading(document);
    QVERIFY(reading.isRead);
    QTEST(foundIn(reading.rawData), "found");
    QVERIFY(reading.rawData.programViews.size() <= 1);
}

void LegacyDocumentTest::encodingOfTheDocumentIsFollowed_data()
{
    QTest::addColumn<QByteArray>("document");
    const QString text = QStringLiteral("<TXSYS><SYSTPL><TPL_Key>Größe</TPL_Key></SYSTPL></TXSYS>");
    const QByteArray utf16(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());
    const ushort mark = 0xFEFF;
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with byte order mark") << QByteArray("\xEF\xBB\xBF" + text.toUtf8());
    QTest::newRow("UTF-8 declared") << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>" +
                                                  text.toUtf8());
    QTest::newRow("Latin 1 declared")
        << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + text.toLatin1());
    QTest::newRow("UTF-16 with byte order mark")
        << QByteArray(QByteArray(reinterpret_cast<const char *>(&mark), sizeof(mark)) + utf16);
}

void LegacyDocumentTest::encodingOfTheDocumentIsFollowed()
{
    QFETCH(QByteArray, document);
    const LegacyReading reading(document);
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.key, QStringLiteral("Größe"));
}

QTEST_APPLESS_MAIN(LegacyDocumentTest)

#include "LegacyDocumentTest.moc"
