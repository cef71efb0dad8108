#include "tools/text/TemplateText.h"
#include "ToolDocuments.h"
#include "tools/loading/TemplateLoading.h"

#include "model/CCatalogTemplate.h"

#include <QRegularExpression>
#include <QTest>

using namespace Tobrix::Tools;

namespace {

QString textOf(const char *folder, const QByteArray &document)
{
    constexpr int anyWidth = 1000;
    const TemporaryTemplate file(QString::fromLatin1(folder), document);
    const LoadedTemplate loaded = loadTemplate(file.path());
    return loaded.catalogTemplate ? templateText(loaded, anyWidth) : QString();
}

/// The line of a text that contains something, with single blanks.
QString lineWith(const QString &text, const QString &part)
{
    for (const auto &line : text.split(QLatin1Char('\n'))) {
        if (line.contains(part)) {
            return line.simplified();
        }
    }
    return QStringLiteral("(no line with \"%1\")").arg(part);
}

} // namespace

class TemplateTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnShowsWhatItIs_data();
    void columnShowsWhatItIs();
    void currentGroupLevelsAreListed();
    void columnOfUnknownDataTypeIsNamedSo();
    void headerLeavesOutWhatIsEmpty();
    void viewsAreSortedByKey();
    void listsAndLegendsAreShown();
    void emptyTemplateHasNoTables();
    void eachSampleShowsItsViews_data();
    void eachSampleShowsItsViews();
};

void TemplateTextTest::columnShowsWhatItIs_data()
{
    QTest::addColumn<QByteArray>("dataType");
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *dataType, const char *elements, const char *expected) {
        QTest::newRow(name) << QByteArray(dataType) << QByteArray(elements) << QString::fromUtf8(expected);
    };
    row("hidden", "BOL", "", "0 Caption BOL hidden");
    row("visible", "BOL", "<COL_Visible>true</COL_Visible>", "0 Caption BOL");
    row("all flags", "BOL",
        "<COL_Visible>true</COL_Visible><COL_ReadOnly>true</COL_ReadOnly><COL_Mandatory>true</COL_Mandatory>"
        "<COL_Virtual>true</COL_Virtual><COL_ValueTransfer>true</COL_ValueTransfer>",
        "0 Caption BOL read-only, mandatory, virtual, transfer");
    row("bound to table and column", "BOL",
        "<COL_Bound_Column>OBJ_Key</COL_Bound_Column><TDIR_Key>NODE</TDIR_Key>",
        "0 Caption NODE.OBJ_Key BOL hidden");
    row("bound to no table", "BOL", "<COL_Bound_Column>OBJ_Key</COL_Bound_Column>",
        "0 Caption OBJ_Key BOL hidden");
    row("control by name", "BOL", "<COL_ControlType>19</COL_ControlType>",
        "0 Caption BOL MultiLineTextbox hidden");
    row("control without name", "BOL", "<COL_ControlType>20</COL_ControlType>", "0 Caption BOL 20 hidden");
    row("no control", "BOL", "<COL_ControlType>0</COL_ControlType>", "0 Caption BOL hidden");
    row("unit", "BOL", "<COL_Unit>mm</COL_Unit>", "0 Caption BOL mm hidden");
    row("legacy group", "BOL", "<COL_GroupLevel>7</COL_GroupLevel>", "0 Caption BOL hidden 7");
    row("value list", "BOL", "<COL_DataSource>Colours</COL_DataSource>", "0 Caption BOL hidden Colours");
    row("text default", "TXT", "<COL_Default>5</COL_Default>", "0 Caption TXT hidden \"5\"");
    row("number default", "INT", "<COL_Default>5</COL_Default>", "0 Caption INT hidden 5");
    row("big default", "DEC", "<COL_Default>1e6</COL_Default>", "0 Caption DEC hidden 1000000 2 decimals");
    row("boolean default", "BOL", "<COL_Default>true</COL_Default>", "0 Caption BOL hidden true");
    row("today", "DAT", "<COL_Default>=Today()</COL_Default>", "0 Caption DAT hidden today");
    row("now", "TIM", "<COL_Default>=Today()</COL_Default>", "0 Caption TIM hidden now");
    row("length", "TXT", "<COL_Length>30</COL_Length>", "0 Caption TXT hidden ≤ 30 chars");
    row("range", "INT",
        "<COL_RangeFrom>-1</COL_RangeFrom><COL_RangeTo>9</COL_RangeTo><COL_Steps>2</COL_Steps>",
        "0 Caption INT hidden -1 … 9 by 2");
    row("lower bound", "INT", "<COL_RangeFrom>0</COL_RangeFrom>", "0 Caption INT hidden ≥ 0");
    row("upper bound", "INT", "<COL_RangeTo>9</COL_RangeTo>", "0 Caption INT hidden ≤ 9");
    row("no range", "INT", "", "0 Caption INT hidden");
    row("not a number", "DEC", "<COL_RangeFrom>nan</COL_RangeFrom><COL_Precision>1</COL_Precision>",
        "0 Caption DEC hidden ≥ nan, 1 decimal");
    row("display format", "DAT", "<COL_DisplayFmt>dd.MM.yyyy</COL_DisplayFmt>",
        "0 Caption DAT hidden dd.MM.yyyy");
}

void TemplateTextTest::columnShowsWhatItIs()
{
    QFETCH(QByteArray, dataType);
    QFETCH(QByteArray, elements);
    const QString text = textOf(
        "templates", legacyView(legacyColumn(dataType, "<COL_Caption>Caption</COL_Caption>" + elements)));
    QTEST(lineWith(text, QStringLiteral("0  Caption")), "expected");
}

void TemplateTextTest::currentGroupLevelsAreListed()
{
    const QString text =
        textOf("templates_new",
               currentView("<Column DataType=\"Boolean\"><Caption><TextItem>Grouped</TextItem></Caption>"
                           "<VisibilityRestriction Simple=\"false\">"
                           "<GroupLevel Level1=\"true\" Level3=\"true\" "
                           "Level9=\"true\"/></VisibilityRestriction></Column>"));
    QCOMPARE(lineWith(text, QStringLiteral("Grouped")), QStringLiteral("0 Grouped BOL 1,3,9"));
}

void TemplateTextTest::columnOfUnknownDataTypeIsNamedSo()
{
    const QString text = textOf("templates_new", currentView("<Column/>"));
    QVERIFY2(text.contains(QStringLiteral("\n  (column of unknown data type)\n")), qPrintable(text));
}

void TemplateTextTest::headerLeavesOutWhatIsEmpty()
{
    const QString text = textOf(
        "templates", legacyDocument("<SYSTPL><TPL_Key>Sewer</TPL_Key><TPL_Version>4</TPL_Version></SYSTPL>"));
    QCOMPARE(lineWith(text, QStringLiteral("Template")), QStringLiteral("Template Sewer"));
    QCOMPARE(lineWith(text, QStringLiteral("Version")), QStringLiteral("Version 4"));
    for (const auto &label : {QStringLiteral("Unit"), QStringLiteral("Type"), QStringLiteral("Flags")}) {
        QVERIFY2(!text.contains(label), qPrintable(text));
    }
}

void TemplateTextTest::viewsAreSortedByKey()
{
    const QString text =
        textOf("templates_new", currentDocument("<View Id=\"1\" Name=\"b\"/><View Id=\"2\" Name=\"c\"/>"
                                                "<View Id=\"3\" Name=\"a\"/>"));
    QStringList keys;
    auto match = QRegularExpression(QStringLiteral("^View (\\w)"), QRegularExpression::MultilineOption)
                     .globalMatch(text);
    while (match.hasNext()) {
        keys.append(match.next().captured(1));
    }
    QCOMPARE(keys.join(QString()), QStringLiteral("abc"));
}

void TemplateTextTest::listsAndLegendsAreShown()
{
    const QString text = textOf(
        "templates",
        legacyDocument(
            "<SYSLIST><LIST_Name>Colours</LIST_Name><LIST_Item>R</LIST_Item><LIST_Caption>Red</LIST_Caption>"
            "<LIST_Internal>1</LIST_Internal><LIST_Comment>rot</LIST_Comment><LIST_SortOrder>3</"
            "LIST_SortOrder>"
            "</SYSLIST><LegendOfClassification><Section>"
            "<class id=\"S\" numberFrom=\"0\" numberTo=\"0.5\" color=\"#ff0000\"><legendA>bad</legendA>"
            "<legendB>act</legendB></class></Section><Lateral><class "
            "id=\"L\"/></Lateral></LegendOfClassification>"));
    QCOMPARE(lineWith(text, QStringLiteral("Value list")), QStringLiteral("Value list Colours · 1 item"));
    QCOMPARE(lineWith(text, QStringLiteral("Red")), QStringLiteral("3 R Red 1 rot"));
    QCOMPARE(lineWith(text, QStringLiteral("of sections")), QStringLiteral("Legend of sections · 1 class"));
    QCOMPARE(lineWith(text, QStringLiteral("#ff0000")), QStringLiteral("0 0.5 #ff0000 bad act S"));
    QCOMPARE(lineWith(text, QStringLiteral("of laterals")), QStringLiteral("Legend of laterals · 1 class"));
}

void TemplateTextTest::emptyTemplateHasNoTables()
{
    const QString text = textOf("templates", legacyDocument(""));
    QCOMPARE(lineWith(text, QStringLiteral("Template")), QStringLiteral("Template (no key)"));
    QVERIFY2(!text.contains(QStringLiteral("Legend of")), qPrintable(text));
    QVERIFY2(!text.contains(QStringLiteral("Order")), qPrintable(text));
}

void TemplateTextTest::eachSampleShowsItsViews_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("view");
    QTest::newRow("legacy sewer") << "templates/sewer-metric.xml"
                                  << "SectionDetail";
    QTest::newRow("current sewer") << "templates_new/sewer-metric.xml"
                                   << "SectionDetail";
    QTest::newRow("legacy stormwater") << "templates/stormwater-imperial.xml"
                                       << "ConduitForm";
    QTest::newRow("current stormwater") << "templates_new/stormwater-imperial.xml"
                                        << "ConduitForm";
}

void TemplateTextTest::eachSampleShowsItsViews()
{
    QFETCH(QString, file);
    QFETCH(QString, view);
    const LoadedTemplate loaded = loadTemplate(QStringLiteral(TOBRIX_SOURCE_DIR "/samples/") + file);
    QVERIFY(loaded.catalogTemplate);
    QVERIFY2(!loaded.hasProblem(), qPrintable(loaded.report.message()));
    const QString text = templateText(loaded, 120);
    QVERIFY2(text.contains(QStringLiteral("\nView %1 · ").arg(view)), qPrintable(text));
    QVERIFY2(!text.contains(QStringLiteral("unknown data type")), qPrintable(text));
}

QTEST_GUILESS_MAIN(TemplateTextTest)
#include "TemplateTextTest.moc"
