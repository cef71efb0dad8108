// Current-format files end to end, as a host sees them.

#include "CurrentFormat.h"

#include "loading/CTemplateReader.h"
#include "logic/CTemplateLogic.h"
#include "model/CCatalogTemplate.h"
#include "model/CListItem.h"
#include "model/CTemplateLegendDataItem.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

#include <memory>

using namespace Tobrix::Templates;

namespace {

std::unique_ptr<CCatalogTemplate> readTemplate(const QString &path)
{
    CCatalogTemplate *catalogTemplate = nullptr;
    const bool isRead = CTemplateReader::readFile(path, CTemplateReader::ReaderFlags(), catalogTemplate);
    if (isRead != (catalogTemplate != nullptr)) {
        qFatal("The result and the template do not agree");
    }
    return std::unique_ptr<CCatalogTemplate>(catalogTemplate);
}

std::unique_ptr<CCatalogTemplate> readTemplateOf(const QByteArray &document)
{
    return readTemplate(TemporaryTemplate(QStringLiteral("templates_new"), document).path());
}

QString itemsOf(const QList<CListItem *> &list)
{
    QStringList items;
    for (const auto *item : list) {
        items.append(item->item());
    }
    return items.join(QLatin1Char(' '));
}

QString lowerBoundsOf(const QList<CTemplateLegendDataItem> &legend)
{
    QStringList legendClasses;
    for (const auto &legendClass : legend) {
        legendClasses.append(QString::number(legendClass.numberFrom));
    }
    return legendClasses.join(QLatin1Char(' '));
}

QString samplePath(const QString &name = QString())
{
    return QStringLiteral(TOBRIX_SOURCE_DIR "/samples/templates_new/") + name;
}

QStringList samples()
{
    return QDir(samplePath()).entryList({QStringLiteral("*.xml")});
}

void addSampleRows()
{
    QTest::addColumn<QString>("path");
    const auto names = samples();
    for (const auto &name : names) {
        QTest::newRow(qPrintable(name)) << samplePath(name);
    }
}

/// The elements and attributes that a file uses: "Element" and "Element/Attribute".
QSet<QString> namesUsedIn(const QString &path)
{
    QSet<QString> names;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return names;
    }
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement) {
            const QString element = xml.name().toString();
            names.insert(element);
            const auto attributes = xml.attributes();
            for (const auto &attribute : attributes) {
                names.insert(element + QLatin1Char('/') + attribute.name());
            }
        }
    }
    return names;
}

} // namespace

class CurrentTemplateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headerReachesTheTemplate();
    void legendsAreSortedByLowerBound();
    void listsAreSortedExceptTheLast();
    void viewsArriveWithTheirColumnsInOrder();
    void nullEntriesSurviveTheBuild();
    void laterViewOfAnIdReachesTheTemplate();
    void faultyFileGivesATemplateOfWhatStandsBefore_data();
    void faultyFileGivesATemplateOfWhatStandsBefore();
    void logicAnswersForALoadedTemplate();
    void thereAreAtLeastTwoSamples();
    void sampleHoldsAWholeStandard_data() { addSampleRows(); }
    void sampleHoldsAWholeStandard();
    void sampleHasAllDataTypesAndControls_data() { addSampleRows(); }
    void sampleHasAllDataTypesAndControls();
    void sampleUsesEveryElementAndAttribute_data() { addSampleRows(); }
    void sampleUsesEveryElementAndAttribute();
};

void CurrentTemplateTest::headerReachesTheTemplate()
{
    const auto read = readTemplateOf(currentDocument(
        "<TemplateIdentifier Id=\"{no host knows it}\" Description=\"D\" SystemOfUnits=\"Imperial\"/>"
        "<Name>N</Name><Version>1</Version>"));
    QVERIFY(read);
    QCOMPARE(read->uniqueId(), QStringLiteral("{no host knows it}"));
    QCOMPARE(read->key(), QStringLiteral("N"));
    QCOMPARE(read->description(), QStringLiteral("D"));
    QCOMPARE(read->version(), QStringLiteral("1"));
    QCOMPARE(read->unit(), QStringLiteral("ft"));
    QCOMPARE(read->catalogRef(), QString());
    QCOMPARE(read->catalogProfileRef(), QString());
    QCOMPARE(read->type(), QString());
    QVERIFY(!read->isSystem());
    QVERIFY(!read->isEditable());
    QVERIFY(!read->isUpdatable());
}

void CurrentTemplateTest::legendsAreSortedByLowerBound()
{
    const auto scope = [](const QByteArray &name, const QByteArrayList &bounds) {
        QByteArray colors;
        for (const auto &bound : bounds) {
            colors += "<ClassificationColor From=\"" + bound + "\"/>";
        }
        return "<ClassificationColorScope Name=\"ClassColorDefault\" Scope=\"" + name + "\">" + colors +
               "</ClassificationColorScope>";
    };
    const auto read = readTemplateOf(currentDocument(
        "<ClassificationColorScopes>" + scope("Lateral", {"9", "-1"}) + scope("Section", {"5", "1", "3"}) +
        scope("Section", {"2"}) + "</ClassificationColorScopes>"));
    QVERIFY(read);
    QCOMPARE(lowerBoundsOf(read->getLegendOfClassification(false)), QStringLiteral("1 2 3 5"));
    QCOMPARE(lowerBoundsOf(read->getLegendOfClassification(true)), QStringLiteral("-1 9"));
}

void CurrentTemplateTest::listsAreSortedExceptTheLast()
{
    const auto list = [](const QByteArray &name) {
        return "<ValueList Name=\"" + name +
               "\"><ValueListItem Key=\"c\" OrdinalIndex=\"3\"/><ValueListItem Key=\"a\" OrdinalIndex=\"1\"/>"
               "<ValueListItem Key=\"b\" OrdinalIndex=\"2\"/></ValueList>";
    };
    const auto read = readTemplateOf(currentDocument(list("Z") + list("A") + list("M")));
    QVERIFY(read);
    QCOMPARE(read->itemListNames(),
             (QStringList{QStringLiteral("A"), QStringLiteral("M"), QStringLiteral("Z")}));
    QCOMPARE(itemsOf(read->itemList(QStringLiteral("A"))), QStringLiteral("a b c"));
    QCOMPARE(itemsOf(read->itemList(QStringLiteral("M"))), QStringLiteral("a b c"));
    // The list with the last name keeps the record's order, in which the newest item comes first.
    QCOMPARE(itemsOf(read->itemList(QStringLiteral("Z"))), QStringLiteral("b a c"));
}

void CurrentTemplateTest::viewsArriveWithTheirColumnsInOrder()
{
    const auto read = readTemplateOf(currentDocument(
        viewOf(boundColumnElement("B", 2) + boundColumnElement("A", 1),
               R"(Id="1" Name="First" Description="D")") +
        viewOf(boundColumnElement("C"), R"(Id="2" Name="Second")") + viewOf("", R"(Id="3" Name="Empty")")));
    QVERIFY(read);
    QCOMPARE(read->programViewCount(), 3);
    const auto *view = read->programViewByKey(QStringLiteral("First"));
    QVERIFY(view);
    QCOMPARE(view->uniqueId(), QStringLiteral("1"));
    QCOMPARE(view->description(), QStringLiteral("D"));
    QCOMPARE(boundColumnsOf(*view), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(boundColumnsOf(*read->programViewByKey(QStringLiteral("Second"))),
             QStringList{QStringLiteral("C")});
    QCOMPARE(read->programViewByKey(QStringLiteral("Empty"))->columnCount(), 0);
}

void CurrentTemplateTest::nullEntriesSurviveTheBuild()
{
    const auto read = readTemplateOf(currentDocument(viewOf(
        "<Column/>" + boundColumnElement("B", 2) + "<Column/><Column/>" + boundColumnElement("A", 1))));
    QVERIFY(read);
    QCOMPARE(read->programViewCount(), 1);
    const auto *view = read->programView(0);
    const QString none = QStringLiteral("(null)");
    QCOMPARE(boundColumnsOf(*view),
             (QStringList{QStringLiteral("A"), QStringLiteral("B"), none, none, none}));
    QCOMPARE(view->column(QStringLiteral("B")), view->column(1));
    QCOMPARE(view->column(QStringLiteral("C")), nullptr);
}

void CurrentTemplateTest::laterViewOfAnIdReachesTheTemplate()
{
    const auto read =
        readTemplateOf(currentDocument(viewOf(boundColumnElement("A"), R"(Id="1" Name="First")") +
                                       viewOf(boundColumnElement("B"), R"(Id="1" Name="Second")")));
    QVERIFY(read);
    QCOMPARE(read->programViewCount(), 1);
    QCOMPARE(read->programViewByKey(QStringLiteral("First")), nullptr);
    QVERIFY(read->programViewByKey(QStringLiteral("Second")));
}

void CurrentTemplateTest::faultyFileGivesATemplateOfWhatStandsBefore_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("viewCount");
    const QString key = QStringLiteral("N");
    QTest::newRow("empty file") << QByteArray() << QString() << 0;
    QTest::newRow("no markup") << QByteArray("no template") << QString() << 0;
    QTest::newRow("fault before the name") << QByteArray("<T></Wrong><Name>N</Name></T>") << QString() << 0;
    QTest::newRow("fault after the name") << QByteArray("<T><Name>N</Name></Wrong><View/></T>") << key << 0;
    QTest::newRow("fault after a view")
        << QByteArray("<T><Name>N</Name><View Id=\"1\"/></Wrong><View Id=\"2\"/></T>") << key << 1;
    QTest::newRow("cut off") << QByteArray("<T><Name>N</Name><View Id=\"1\"/><View Id=\"2\"><Column") << key
                             << 2;
}

void CurrentTemplateTest::faultyFileGivesATemplateOfWhatStandsBefore()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, key);
    QFETCH(int, viewCount);
    const auto read = readTemplateOf(document);
    QVERIFY(read);
    QCOMPARE(read->key(), key);
    QCOMPARE(read->programViewCount(), viewCount);
}

void CurrentTemplateTest::logicAnswersForALoadedTemplate()
{
    const QSharedPointer<CCatalogTemplate> loaded(
        readTemplateOf(currentDocument("<ValueList Name=\"L\"><ValueListItem Key=\"x\"/></ValueList>"))
            .release());
    CTemplateLogic logic(nullptr);
    logic.setCatalogTemplate(loaded);
    QCOMPARE(itemsOf(logic.queryColumnList(QStringLiteral("L"))), QStringLiteral("x"));
    QVERIFY(logic.queryColumnList(QStringLiteral("M")).isEmpty());
}

void CurrentTemplateTest::thereAreAtLeastTwoSamples()
{
    QVERIFY(samples().size() >= 2);
}

void CurrentTemplateTest::sampleHoldsAWholeStandard()
{
    QFETCH(QString, path);
    const auto read = readTemplate(path);
    QVERIFY(read);
    QVERIFY(!read->uniqueId().isEmpty());
    QVERIFY(!read->key().isEmpty());
    QVERIFY(!read->version().isEmpty());
    QVERIFY(!read->unit().isEmpty());
    QVERIFY(!read->getLegendOfClassification(false).isEmpty());
    QVERIFY(!read->getLegendOfClassification(true).isEmpty());
    QVERIFY(read->programViewCount() >= 3);
    int columns = 0;
    for (int i = 0; i < read->programViewCount(); ++i) {
        columns += read->programView(i)->columnCount();
    }
    QVERIFY2(columns >= 60, qPrintable(QString::number(columns)));
    const auto names = read->itemListNames();
    QVERIFY(!names.isEmpty());
    for (const auto &name : names) {
        QVERIFY2(!read->itemList(name).isEmpty(), qPrintable(name));
    }
}

void CurrentTemplateTest::sampleHasAllDataTypesAndControls()
{
    QFETCH(QString, path);
    const auto read = readTemplate(path);
    QVERIFY(read);
    QSet<int> controls;
    QSet<QString> dataTypes;
    for (int i = 0; i < read->programViewCount(); ++i) {
        const auto *view = read->programView(i);
        for (int j = 0; j < view->columnCount(); ++j) {
            QVERIFY(view->column(j));
            controls.insert(view->column(j)->getControlType());
            dataTypes.insert(view->column(j)->dataType());
        }
    }
    for (int control = 0; control <= 19; ++control) {
        QVERIFY2(controls.contains(control), qPrintable(QString::number(control)));
    }
    for (const char *dataType : {"GUI", "DEC", "TXT", "BOL", "DAT", "TIM", "INT"}) {
        QVERIFY2(dataTypes.contains(QLatin1String(dataType)), dataType);
    }
}

void CurrentTemplateTest::sampleUsesEveryElementAndAttribute()
{
    QFETCH(QString, path);
    const QSet<QString> used = namesUsedIn(path);
    for (const char *name : {"TemplateIdentifier/Id",
                             "TemplateIdentifier/Description",
                             "TemplateIdentifier/SystemOfUnits",
                             "Name",
                             "Version",
                             "ClassificationColorPresets",
                             "ClassificationColorPreset/Scope",
                             "ClassificationColorPreset/ClassificationColorName",
                             "ClassificationColorPreset/Chapter",
                             "PresetProperty/PropertyName",
                             "AssignedCatalogs",
                             "Catalog/Id",
                             "Catalog/Country",
                             "Catalog/Language",
                             "View/Id",
                             "View/Name",
                             "View/Description",
                             "View/Kind",
                             "Column/DataType",
                             "Column/ControlType",
                             "Column/Width",
                             "Column/Ordinal",
                             "Column/ValueTransfer",
                             "Column/Unit",
                             "MandatoryRestriction",
                             "BoundProperty/PropertyName",
                             "BoundProperty/ObjectName",
                             "RefersTo/DisplayPropertyName",
                             "RefersTo/ObjectName",
                             "Caption",
                             "ToolTip",
                             "TextItem",
                             "VisibilityRestriction/Simple",
                             "GroupLevel",
                             "TextLengthRestriction/Max",
                             "NumericRangeRestriction/Step",
                             "NumericRangeRestriction/Precision",
                             "NumericRangeRestriction/From",
                             "NumericRangeRestriction/To",
                             "ReadOnlyRestriction",
                             "VirtualRestriction",
                             "ValueListName",
                             "DisplayFormat",
                             "ValueFormatItem/Format",
                             "ValueList/Name",
                             "ValueList/CompatibleListClassType",
                             "ValueListItem/Key",
                             "ValueListItem/InternalKey",
                             "ValueListItem/OrdinalIndex",
                             "Captions",
                             "ClassificationColorScopes",
                             "ClassificationColorScope/Name",
                             "ClassificationColorScope/Scope",
                             "ClassificationColor/From",
                             "ClassificationColor/To",
                             "Color/Html",
                             "TextA",
                             "TextB",
                             "DefaultValues",
                             "DefaultValueScope",
                             "DefaultValueItem/Value",
                             "DefaultValueItem/View"}) {
        QVERIFY2(used.contains(QLatin1String(name)), name);
    }
}

QTEST_GUILESS_MAIN(CurrentTemplateTest)

#include "CurrentTemplateTest.moc"
