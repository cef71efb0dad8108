// The calls of an observer during a reading.

#include "CurrentFormat.h"

#include "format_current/CurrentReading_p.h"
#include "model/CListItem.h"
#include "model/CTemplateLegendDataItem.h"
#include "rawdata/CColumnData.h"
#include "rawdata/ReadingObserver_p.h"
#include "rawdata/TemplateLimits_p.h"
#include "xml/XmlDocument_p.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QTest>

using namespace Tobrix::Templates;

namespace {

const char *const reasons[] = {
    "unknown element",   "not here",           "not the first",
    "unknown attribute", "repeated attribute", "text",
    "white space",       "another piece",      "ignored",
    "other scope",       "after the end",      "unknown type",
    "excluded",          "without list",       "without legend class",
    "replaced",          "in passed over",     "comment",
    "instruction",
};

/// Records one line per call.
class Trace : public ReadingObserver
{
public:
    void begin(const XmlDocument &document) override { m_document = &document; }

    void take(const Value &value) override
    {
        const QString attribute =
            value.attribute ? QStringLiteral("@") + m_document->nameOf(*value.attribute) : QString();
        const QString object = value.object < 0 ? QString() : QStringLiteral(" for ") + nameOf(value.object);
        const QString instead = value.overwritten < 0
                                    ? QString()
                                    : QStringLiteral(" instead of ") + QString::number(value.overwritten);
        add(QStringLiteral("take %1%2 = %3%4%5")
                .arg(nameOf(value.element), attribute, value.result.toString(), object, instead));
        ++m_reports[{value.attribute ? -1 : value.text, value.attribute}];
    }
    void fileView(const CProgramView &view, int element) override
    {
        add(QStringLiteral("view %1 of %2").arg(view.uniqueId(), nameOf(element)));
    }
    void fileColumn(const CTemplateColumn *column, const CColumnData &data, int element, int view) override
    {
        add(QStringLiteral("%1 %2 of %3 in %4")
                .arg(column ? QStringLiteral("column") : QStringLiteral("no column"), data.boundColumn,
                     nameOf(element), nameOf(view)));
    }
    void fileListItem(const CListItem &item, const QString &listName, int element, int list) override
    {
        add(QStringLiteral("item %1 of %2, %3 in %4")
                .arg(item.item(), listName, nameOf(element), nameOf(list)));
    }
    void fileLegendClass(const CTemplateLegendDataItem &legendClass, bool isLateral, int element) override
    {
        add(QStringLiteral("%1 %2 of %3")
                .arg(isLateral ? QStringLiteral("lateral") : QStringLiteral("section"))
                .arg(legendClass.numberFrom)
                .arg(nameOf(element)));
    }
    void fileDefault(const QString &path, const QString &view, const QString &value, int element) override
    {
        add(QStringLiteral("default %1/%2=%3 of %4").arg(path, view, value, nameOf(element)));
    }
    void fileList(const QString &name, int classType, int element) override
    {
        add(QStringLiteral("list %1 %2 of %3").arg(name).arg(classType).arg(nameOf(element)));
    }
    void passOver(int node, const XmlDocument::Attribute *attribute, Reason reason, int inFavourOf) override
    {
        ++m_reports[{attribute ? -1 : node, attribute}];
        const QString what =
            attribute ? nameOf(node) + QStringLiteral("@") + m_document->nameOf(*attribute) : nameOf(node);
        const QString instead =
            inFavourOf < 0 ? QString() : QStringLiteral(" for ") + QString::number(inFavourOf);
        add(QStringLiteral("pass over %1: %2%3")
                .arg(what, QLatin1String(reasons[static_cast<int>(reason)]), instead));
    }

    const QStringList &lines() const { return m_lines; }
    /// How often a text or an attribute was reported.
    int reportsOf(int node, const XmlDocument::Attribute *attribute) const
    {
        return m_reports.value({node, attribute});
    }

private:
    QString nameOf(int node) const
    {
        return m_document->isElement(node) ? m_document->nameOf(node)
                                           : QStringLiteral("\"%1\"").arg(m_document->text(node));
    }
    void add(const QString &line) { m_lines.append(line); }

    const XmlDocument *m_document = nullptr;
    QStringList m_lines;
    QMap<std::pair<int, const XmlDocument::Attribute *>, int> m_reports;
};

QStringList traceOf(const QByteArray &elements)
{
    const XmlDocument document = XmlDocument::parse(currentDocument(elements), XmlDialect::Dom);
    CTemplateRawData rawData;
    Trace trace;
    readCurrentDocument(document, rawData, &trace);
    return trace.lines();
}

} // namespace

class CurrentObservationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineIsReported_data();
    void lineIsReported();
    void everyNodeIsReportedOnce();
    void attributesAndTextsOfSamplesAreReportedOnce_data();
    void attributesAndTextsOfSamplesAreReportedOnce();
    void excessIsReportedWithItsElement_data();
    void excessIsReportedWithItsElement();
    void brokenDocumentIsReadAsFarAsItGoes();
};

void CurrentObservationTest::lineIsReported_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *line, const QByteArray &elements) {
        QTest::newRow(line) << elements << QString::fromLatin1(line);
    };
    row("take Name = N", "<Name>N</Name>");
    row("take TemplateIdentifier@Id = i", "<TemplateIdentifier Id='i'/>");
    row("take Column@Width = 7 for Column", viewOf("<Column Width='7'/>"));
    row("take MandatoryRestriction = true for Column", viewOf(columnOf("<MandatoryRestriction/>")));
    row("take GroupLevel@Level2 = true for Column",
        viewOf(columnOf("<VisibilityRestriction Simple='false'><GroupLevel Level2='true'/>"
                        "</VisibilityRestriction>")));
    row("take VisibilityRestriction@Simple = false for Column",
        viewOf(columnOf("<VisibilityRestriction Simple='false'/>")));
    row("take TextItem = c for Column", viewOf(columnOf("<Caption><TextItem>c</TextItem></Caption>")));
    row("column A of Column in View", viewOf(boundColumnElement("A")));
    row("no column  of Column in View", viewOf("<Column/>"));
    row("pass over Column: unknown type", viewOf("<Column/>"));
    row("pass over Column: excluded",
        viewOf(columnOf("<BoundProperty PropertyName='OBJ_Instrumented' ObjectName='NODE'/>")));
    row("view v of View", viewOf("", "Id='v'"));
    row("pass over View: replaced for 2", viewOf("", "Id='v'") + viewOf("", "Id='v'"));
    row("list L 4 of ValueList", "<ValueList Name='L' CompatibleListClassType='4'/>");
    row("item k of L, ValueListItem in ValueList",
        "<ValueList Name='L'><ValueListItem Key='k'/></ValueList>");
    row("default P/V=1 of DefaultValueItem",
        "<DefaultValues><DefaultValueScope><DefaultValueItem View='V' Value='1'><BoundProperty "
        "PropertyName='P'/></DefaultValueItem></DefaultValueScope></DefaultValues>");
    row("pass over DefaultValueItem: replaced for 4",
        "<DefaultValues><DefaultValueScope><DefaultValueItem View='V'/><DefaultValueItem View='V'/>"
        "</DefaultValueScope></DefaultValues>");
    row("section 3 of ClassificationColor",
        "<ClassificationColorScopes><ClassificationColorScope Name='ClassColorDefault' Scope='Section'>"
        "<ClassificationColor From='3'/></ClassificationColorScope></ClassificationColorScopes>");
    const QByteArray otherScheme = "<ClassificationColorScopes><ClassificationColorScope Name='Other'>"
                                   "<ClassificationColor/></ClassificationColorScope>"
                                   "</ClassificationColorScopes>";
    row("pass over ClassificationColorScope: other scope", otherScheme);
    row("pass over ClassificationColor: in passed over", otherScheme);
    const QByteArray presets =
        "<ClassificationColorPresets>"
        "<ClassificationColorPreset Scope='Node'/>"
        "<ClassificationColorPreset Scope='Section' ClassificationColorName='A'/>"
        "<ClassificationColorPreset Scope='Section' Chapter='Color' ClassificationColorName='B'/>"
        "<ClassificationColorPreset Scope='Section'/></ClassificationColorPresets>";
    row("pass over ClassificationColorPreset: other scope", presets);
    row("take ClassificationColorPreset@ClassificationColorName = B instead of 3", presets);
    row("pass over ClassificationColorPreset: after the end for 4", presets);
    row("pass over Views: unknown element", "<Views>" + viewOf("") + "</Views>");
    row("pass over Caption: not here", "<Caption/>");
    row("pass over TextItem: in passed over", "<Caption><TextItem/></Caption>");
    row("pass over Name: not the first for 1", "<Name>N</Name><Name>M</Name>");
    row("pass over Caption: not the first for 3", viewOf(columnOf("<Caption/><Caption/>")));
    row("pass over Column@Colour: unknown attribute", viewOf("<Column Colour='1'/>"));
    row("pass over Column@Width: repeated attribute", viewOf("<Column Width='1' Width='2'/>"));
    row("pass over BoundProperty@ObjectName: ignored",
        "<DefaultValues><DefaultValueScope><DefaultValueItem><BoundProperty ObjectName='O'/>"
        "</DefaultValueItem></DefaultValueScope></DefaultValues>");
    row("pass over GroupLevel: ignored",
        viewOf(columnOf("<VisibilityRestriction><GroupLevel Level2='true'/></VisibilityRestriction>")));
    row("pass over \"t\": text", viewOf("t"));
    row("pass over \"c\": comment", viewOf("<!--c-->"));
}

void CurrentObservationTest::lineIsReported()
{
    QFETCH(QByteArray, elements);
    QFETCH(QString, line);
    const QStringList lines = traceOf(elements);
    QVERIFY2(lines.contains(line), qPrintable(lines.join(QLatin1Char('\n'))));
}

void CurrentObservationTest::everyNodeIsReportedOnce()
{
    // No value is taken from it, and no look-up continues in it.
    const QStringList lines = traceOf("<A x='1'>t<B/><!--c--></A>");
    const QStringList expected = {QStringLiteral("pass over Template: unknown element"),
                                  QStringLiteral("pass over A: unknown element"),
                                  QStringLiteral("pass over A@x: in passed over"),
                                  QStringLiteral("pass over \"t\": in passed over"),
                                  QStringLiteral("pass over B: unknown element"),
                                  QStringLiteral("pass over \"c\": comment")};
    QCOMPARE(lines.mid(1), expected.mid(1));
    QCOMPARE(lines.size(), expected.size());
}

void CurrentObservationTest::attributesAndTextsOfSamplesAreReportedOnce_data()
{
    QTest::addColumn<QString>("file");
    const QDir folder(QStringLiteral(TOBRIX_SOURCE_DIR "/samples/templates_new"));
    for (const auto &file : folder.entryInfoList({QStringLiteral("*.xml")}, QDir::Files)) {
        QTest::newRow(qPrintable(file.fileName())) << file.filePath();
    }
}

void CurrentObservationTest::attributesAndTextsOfSamplesAreReportedOnce()
{
    QFETCH(QString, file);
    QFile opened(file);
    QVERIFY(opened.open(QIODevice::ReadOnly));
    const XmlDocument document = XmlDocument::parse(opened.readAll(), XmlDialect::Dom);
    CTemplateRawData rawData;
    Trace trace;
    QVERIFY(readCurrentDocument(document, rawData, &trace));
    for (int node = 0; node < document.size(); ++node) {
        if (!document.isElement(node)) {
            QVERIFY2(trace.reportsOf(node, nullptr) == 1, qPrintable(document.text(node)));
            continue;
        }
        for (const auto &attribute : document.attributes(node)) {
            QVERIFY2(trace.reportsOf(-1, &attribute) == 1, qPrintable(document.nameOf(attribute)));
        }
    }
}

void CurrentObservationTest::excessIsReportedWithItsElement_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QString>("explanation");
    QTest::addColumn<int>("node");
    QTest::newRow("views") << QByteArray("<View/>").repeated(Limits::views + 2)
                           << QStringLiteral("more than 10000 views") << 1 + Limits::views;
    QTest::newRow("columns in two views")
        << "<View><View>" + QByteArray("<Column/>").repeated(Limits::columns / 2 + 1) + "</View></View>"
        << QStringLiteral("more than 250000 columns") << 3 + Limits::columns / 2;
    QTest::newRow("the first of two kinds")
        << QByteArray("<View/>").repeated(Limits::views + 1) + "<ValueList>" +
               QByteArray("<ValueListItem/>").repeated(Limits::listItems + 1) + "</ValueList>"
        << QStringLiteral("more than 10000 views") << 1 + Limits::views;
}

void CurrentObservationTest::excessIsReportedWithItsElement()
{
    QFETCH(QByteArray, elements);
    QFETCH(QString, explanation);
    QFETCH(int, node);
    const XmlDocument document = XmlDocument::parse(currentDocument(elements), XmlDialect::Dom);
    CTemplateRawData rawData;
    const ReadingResult result = readCurrentDocument(document, rawData);
    QCOMPARE(result.kind, ReadingResult::OverLimit);
    QCOMPARE(result.explanation, explanation);
    QCOMPARE(result.node, node);
    QVERIFY(rawData.programViews.isEmpty());
}

void CurrentObservationTest::brokenDocumentIsReadAsFarAsItGoes()
{
    const XmlDocument document = XmlDocument::parse("<T><Name>N</Name><", XmlDialect::Dom);
    CTemplateRawData rawData;
    const ReadingResult result = readCurrentDocument(document, rawData);
    QCOMPARE(result.kind, ReadingResult::Broken);
    QCOMPARE(rawData.key, QStringLiteral("N"));
}

QTEST_APPLESS_MAIN(CurrentObservationTest)

#include "CurrentObservationTest.moc"
