#include "support/VirtualSlot.h"

#include "logic/CTemplateLogic.h"
#include "model/CCatalogTemplate.h"
#include "model/CListItem.h"

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>
#include <QWeakPointer>

#include <memory>
#include <type_traits>

using namespace Tobrix::Templates;

static_assert(std::is_base_of_v<QObject, CTemplateLogic>);
static_assert(!std::is_default_constructible_v<CTemplateLogic>);
static_assert(std::is_same_v<decltype(&CTemplateLogic::catalogTemplate),
                             QSharedPointer<CCatalogTemplate> (CTemplateLogic::*)() const>);
static_assert(std::is_same_v<decltype(&CTemplateLogic::setCatalogTemplate),
                             void (CTemplateLogic::*)(const QSharedPointer<CCatalogTemplate> &)>);
static_assert(
    std::is_same_v<decltype(&CTemplateLogic::data), QHash<QString, QVariant> *(CTemplateLogic::*)() const>);
static_assert(
    std::is_same_v<decltype(&CTemplateLogic::setData), void (CTemplateLogic::*)(QHash<QString, QVariant> *)>);
static_assert(std::is_same_v<decltype(&CTemplateLogic::queryColumnList),
                             QList<CListItem *> (CTemplateLogic::*)(const QString &) const>);

namespace {

using Record = QHash<QString, QVariant>;

CListItem *newItem(const QString &item)
{
    auto listItem = std::make_unique<CListItem>();
    listItem->setItem(item);
    return listItem.release();
}

QStringList itemsOf(const QList<CListItem *> &list)
{
    QStringList items;
    for (const auto *item : list) {
        items.append(item->item());
    }
    return items;
}

/// A template with the lists "Material" and "Shape".
QSharedPointer<CCatalogTemplate> templateWithLists()
{
    auto catalogTemplate = QSharedPointer<CCatalogTemplate>::create();
    catalogTemplate->addItemList(QStringLiteral("Material"),
                                 {newItem(QStringLiteral("PVC")), newItem(QStringLiteral("B"))});
    catalogTemplate->addItemList(QStringLiteral("Shape"), {newItem(QStringLiteral("EGG"))});
    return catalogTemplate;
}

} // namespace

class TemplateLogicTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObjectNamesTheClassWithItsNamespaces();
    void castByNameGoesByTheFullClassName_data();
    void castByNameGoesByTheFullClassName();
    void nothingIsAddedToTheMetaObject();
    void metaCallsAreForwarded();
    void metaObjectOperationsAreOverriddenInTheirPlaces();
    void freshObjectHoldsNothing();
    void parentOwnsTheObject();
    void templateIsSharedWithOtherOwners();
    void templateIsDeletedWithItsLastOwner();
    void templateOutlivesTheObjectWhileOthersHoldIt();
    void anotherTemplateReplacesTheOneHeld();
    void nullGivesTheTemplateUp();
    void sameTemplateSetAgainStaysAlive();
    void listsAreThoseOfTheTemplate_data();
    void listsAreThoseOfTheTemplate();
    void listItemsStayTheTemplates();
    void queryWithoutTemplateIsEmptyAndLeavesTheRecordAlone();
    void queriesFollowTheTemplateHeld();
    void recordIsKeptAsThePointerGiven();
    void recordIsNotDeletedWithTheObject();
    void recordAndTemplateAreIndependent();
    void settersEmitNothing();
};

void TemplateLogicTest::metaObjectNamesTheClassWithItsNamespaces()
{
    const CTemplateLogic logic(nullptr);
    QCOMPARE(logic.metaObject()->className(), "Tobrix::Templates::CTemplateLogic");
    QCOMPARE(logic.metaObject()->superClass()->className(), "QObject");
    QCOMPARE(logic.metaObject(), &CTemplateLogic::staticMetaObject);
}

void TemplateLogicTest::castByNameGoesByTheFullClassName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isOne");
    QTest::newRow("the class") << QByteArray("Tobrix::Templates::CTemplateLogic") << true;
    QTest::newRow("its base") << QByteArray("QObject") << true;
    QTest::newRow("without namespaces") << QByteArray("CTemplateLogic") << false;
    QTest::newRow("another case") << QByteArray("tobrix::templates::ctemplatelogic") << false;
    QTest::newRow("another class") << QByteArray("Tobrix::Templates::CCatalogTemplate") << false;
    QTest::newRow("empty") << QByteArray("") << false;
}

void TemplateLogicTest::castByNameGoesByTheFullClassName()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, isOne);
    CTemplateLogic logic(nullptr);
    void *const expected = isOne ? static_cast<void *>(&logic) : nullptr;
    QCOMPARE(logic.qt_metacast(name.constData()), expected);
    QCOMPARE(logic.inherits(name.constData()), isOne);
}

void TemplateLogicTest::nothingIsAddedToTheMetaObject()
{
    const QMetaObject &own = CTemplateLogic::staticMetaObject;
    const QMetaObject &base = QObject::staticMetaObject;
    QCOMPARE(own.methodCount(), base.methodCount());
    QCOMPARE(own.propertyCount(), base.propertyCount());
    QCOMPARE(own.enumeratorCount(), base.enumeratorCount());
    QCOMPARE(own.constructorCount(), 0);
    QCOMPARE(own.classInfoCount(), base.classInfoCount());
}

void TemplateLogicTest::metaCallsAreForwarded()
{
    CTemplateLogic logic(nullptr);
    // What is left of an index tells that a class has none of its own: the base has taken off its own alone.
    const int beyond = QObject::staticMetaObject.methodCount() + 7;
    void *arguments[] = {nullptr};
    QCOMPARE(logic.qt_metacall(QMetaObject::InvokeMetaMethod, beyond, arguments), 7);

    logic.setProperty("objectName", QStringLiteral("logic"));
    QCOMPARE(logic.objectName(), QStringLiteral("logic"));
}

void TemplateLogicTest::metaObjectOperationsAreOverriddenInTheirPlaces()
{
    if (!virtualSlotsAreKnown) {
        QSKIP("The places of virtual operations are not known on this platform");
    }
    QCOMPARE(virtualSlot(&CTemplateLogic::metaObject), 0);
    QCOMPARE(virtualSlot(&CTemplateLogic::qt_metacast), 1);
    QCOMPARE(virtualSlot(&CTemplateLogic::qt_metacall), 2);
    QCOMPARE(virtualSlot(&CTemplateLogic::queryColumnList), -1);
    QCOMPARE(virtualSlot(&CTemplateLogic::catalogTemplate), -1);
    QCOMPARE(virtualSlot(&CTemplateLogic::setCatalogTemplate), -1);
    QCOMPARE(virtualSlot(&CTemplateLogic::data), -1);
    QCOMPARE(virtualSlot(&CTemplateLogic::setData), -1);
}

void TemplateLogicTest::freshObjectHoldsNothing()
{
    const CTemplateLogic logic(nullptr);
    QVERIFY(logic.catalogTemplate().isNull());
    QCOMPARE(logic.data(), nullptr);
    QCOMPARE(logic.parent(), nullptr);
}

void TemplateLogicTest::parentOwnsTheObject()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<CTemplateLogic> logic = new CTemplateLogic(parent.get());
    QCOMPARE(logic->parent(), parent.get());
    parent.reset();
    QVERIFY(logic.isNull());
}

void TemplateLogicTest::templateIsSharedWithOtherOwners()
{
    CTemplateLogic logic(nullptr);
    const auto catalogTemplate = templateWithLists();
    logic.setCatalogTemplate(catalogTemplate);
    QCOMPARE(logic.catalogTemplate().data(), catalogTemplate.data());
    catalogTemplate->setKey(QStringLiteral("Sewer"));
    QCOMPARE(logic.catalogTemplate()->key(), QStringLiteral("Sewer"));
}

void TemplateLogicTest::templateIsDeletedWithItsLastOwner()
{
    auto logic = std::make_unique<CTemplateLogic>(nullptr);
    auto catalogTemplate = templateWithLists();
    const QWeakPointer<CCatalogTemplate> observer = catalogTemplate;
    logic->setCatalogTemplate(catalogTemplate);
    catalogTemplate.clear();
    QVERIFY(!observer.isNull());
    logic.reset();
    QVERIFY(observer.isNull());
}

void TemplateLogicTest::templateOutlivesTheObjectWhileOthersHoldIt()
{
    auto logic = std::make_unique<CTemplateLogic>(nullptr);
    logic->setCatalogTemplate(templateWithLists());
    QSharedPointer<CCatalogTemplate> held = logic->catalogTemplate();
    const QWeakPointer<CCatalogTemplate> observer = held;
    logic.reset();
    QVERIFY(!observer.isNull());
    QCOMPARE(held->itemList(QStringLiteral("Shape")).size(), 1);
    held.clear();
    QVERIFY(observer.isNull());
}

void TemplateLogicTest::anotherTemplateReplacesTheOneHeld()
{
    CTemplateLogic logic(nullptr);
    logic.setCatalogTemplate(templateWithLists());
    const QWeakPointer<CCatalogTemplate> first = logic.catalogTemplate();
    const auto second = QSharedPointer<CCatalogTemplate>::create();
    logic.setCatalogTemplate(second);
    QVERIFY(first.isNull());
    QCOMPARE(logic.catalogTemplate().data(), second.data());
}

void TemplateLogicTest::nullGivesTheTemplateUp()
{
    CTemplateLogic logic(nullptr);
    logic.setCatalogTemplate(templateWithLists());
    const QWeakPointer<CCatalogTemplate> observer = logic.catalogTemplate();
    logic.setCatalogTemplate({});
    QVERIFY(observer.isNull());
    QVERIFY(logic.catalogTemplate().isNull());
}

void TemplateLogicTest::sameTemplateSetAgainStaysAlive()
{
    CTemplateLogic logic(nullptr);
    auto catalogTemplate = templateWithLists();
    const QWeakPointer<CCatalogTemplate> observer = catalogTemplate;
    logic.setCatalogTemplate(catalogTemplate);
    logic.setCatalogTemplate(catalogTemplate);
    catalogTemplate.clear();
    QVERIFY(!observer.isNull());

    // Nobody but the object itself holds it now.
    logic.setCatalogTemplate(logic.catalogTemplate());
    QVERIFY(!observer.isNull());
    QCOMPARE(logic.catalogTemplate().data(), observer.toStrongRef().data());
    QCOMPARE(logic.queryColumnList(QStringLiteral("Material")).size(), 2);
    logic.setCatalogTemplate({});
    QVERIFY(observer.isNull());
}

void TemplateLogicTest::listsAreThoseOfTheTemplate_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("items");
    QTest::newRow("a list keeps its order")
        << QStringLiteral("Material") << QStringList{QStringLiteral("PVC"), QStringLiteral("B")};
    QTest::newRow("another list") << QStringLiteral("Shape") << QStringList{QStringLiteral("EGG")};
    QTest::newRow("unknown name") << QStringLiteral("Colour") << QStringList();
    QTest::newRow("another case") << QStringLiteral("material") << QStringList();
    QTest::newRow("blank behind") << QStringLiteral("Material ") << QStringList();
    QTest::newRow("empty name") << QStringLiteral("") << QStringList();
    QTest::newRow("null name") << QString() << QStringList();
}

void TemplateLogicTest::listsAreThoseOfTheTemplate()
{
    QFETCH(QString, name);
    QFETCH(QStringList, items);
    CTemplateLogic logic(nullptr);
    logic.setCatalogTemplate(templateWithLists());
    QCOMPARE(itemsOf(logic.queryColumnList(name)), items);
}

void TemplateLogicTest::listItemsStayTheTemplates()
{
    const auto catalogTemplate = templateWithLists();
    const auto expected = catalogTemplate->itemList(QStringLiteral("Material"));
    {
        CTemplateLogic logic(nullptr);
        logic.setCatalogTemplate(catalogTemplate);
        QCOMPARE(logic.queryColumnList(QStringLiteral("Material")), expected);
    }
    QCOMPARE(itemsOf(expected), (QStringList{QStringLiteral("PVC"), QStringLiteral("B")}));
}

void TemplateLogicTest::queryWithoutTemplateIsEmptyAndLeavesTheRecordAlone()
{
    CTemplateLogic logic(nullptr);
    QVERIFY(logic.queryColumnList(QStringLiteral("Material")).isEmpty());

    // No record is there: whoever reads one there crashes.
    auto *const nowhere = reinterpret_cast<Record *>(quintptr(16));
    logic.setData(nowhere);
    QVERIFY(logic.queryColumnList(QStringLiteral("Material")).isEmpty());
    logic.setCatalogTemplate(templateWithLists());
    QCOMPARE(logic.queryColumnList(QStringLiteral("Material")).size(), 2);
    QCOMPARE(logic.data(), nowhere);
}

void TemplateLogicTest::queriesFollowTheTemplateHeld()
{
    CTemplateLogic logic(nullptr);
    logic.setCatalogTemplate(templateWithLists());
    QCOMPARE(logic.queryColumnList(QStringLiteral("Shape")).size(), 1);
    logic.setCatalogTemplate(QSharedPointer<CCatalogTemplate>::create());
    QVERIFY(logic.queryColumnList(QStringLiteral("Shape")).isEmpty());
    logic.catalogTemplate()->addItemList(QStringLiteral("Shape"),
                                         {newItem(QStringLiteral("O")), newItem(QStringLiteral("U"))});
    QCOMPARE(itemsOf(logic.queryColumnList(QStringLiteral("Shape"))),
             (QStringList{QStringLiteral("O"), QStringLiteral("U")}));
    logic.setCatalogTemplate({});
    QVERIFY(logic.queryColumnList(QStringLiteral("Shape")).isEmpty());
}

void TemplateLogicTest::recordIsKeptAsThePointerGiven()
{
    CTemplateLogic logic(nullptr);
    Record first{{QStringLiteral("OBJ_Key"), 1}};
    Record second;
    logic.setData(&first);
    QCOMPARE(logic.data(), &first);
    first.insert(QStringLiteral("OBJ_Length"), 12.5);
    QCOMPARE(logic.data()->value(QStringLiteral("OBJ_Length")), QVariant(12.5));
    logic.setData(&second);
    QCOMPARE(logic.data(), &second);
    QCOMPARE(first.size(), 2);
    logic.setData(nullptr);
    QCOMPARE(logic.data(), nullptr);
}

void TemplateLogicTest::recordIsNotDeletedWithTheObject()
{
    const auto record = std::make_unique<Record>();
    record->insert(QStringLiteral("OBJ_Key"), QStringLiteral("S1"));
    {
        CTemplateLogic logic(nullptr);
        logic.setData(record.get());
    }
    QCOMPARE(record->value(QStringLiteral("OBJ_Key")), QVariant(QStringLiteral("S1")));
}

void TemplateLogicTest::recordAndTemplateAreIndependent()
{
    Record record;
    CTemplateLogic logic(nullptr);
    logic.setData(&record);
    logic.setCatalogTemplate(templateWithLists());
    QCOMPARE(logic.data(), &record);
    logic.setData(nullptr);
    QVERIFY(!logic.catalogTemplate().isNull());
    logic.setData(&record);
    logic.setCatalogTemplate({});
    QCOMPARE(logic.data(), &record);
}

void TemplateLogicTest::settersEmitNothing()
{
    CTemplateLogic logic(nullptr);
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (int i = 0; i < logic.metaObject()->methodCount(); ++i) {
        const QMetaMethod method = logic.metaObject()->method(i);
        if (method.methodType() == QMetaMethod::Signal) {
            spies.push_back(std::make_unique<QSignalSpy>(&logic, method));
        }
    }
    QVERIFY(!spies.empty());
    Record record;
    logic.setData(&record);
    logic.setCatalogTemplate(templateWithLists());
    for (const auto &spy : spies) {
        QVERIFY2(spy->isEmpty(), spy->signal().constData());
    }
}

QTEST_GUILESS_MAIN(TemplateLogicTest)

#include "TemplateLogicTest.moc"
