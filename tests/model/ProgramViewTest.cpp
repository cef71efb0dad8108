#include "support/CountedColumn.h"
#include "support/Properties.h"
#include "support/TextWitness.h"

#include "model/CProgramView.h"

#include <QTest>

#include <limits>
#include <memory>

using namespace Tobrix::Templates;

static_assert(!std::is_polymorphic_v<CProgramView>);
static_assert(!std::is_copy_constructible_v<CProgramView> && !std::is_copy_assignable_v<CProgramView>);

namespace {

Properties<CProgramView> viewProperties()
{
    using View = CProgramView;
    const auto text = [](const char *value) { return QVariant(QLatin1String(value)); };
    const QVariant none = QString();
    return {
        property<View>("uniqueId", none, text("{id}"), &View::uniqueId, &View::setUniqueId),
        property<View>("key", none, text("SectionDetail"), &View::key, &View::setKey),
        property<View>("description", none, text("Sections"), &View::description, &View::setDescription),
    };
}

} // namespace

class ProgramViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newViewHasInitialValue_data();
    void newViewHasInitialValue();
    void newViewHasNoColumns();
    void setterChangesItsPropertyAlone_data();
    void setterChangesItsPropertyAlone();
    void columnByIndexIsNullOutsideTheList_data();
    void columnByIndexIsNullOutsideTheList();
    void columnsKeepTheGivenOrder();
    void newColumnsReplaceAndDeleteTheOld();
    void nullColumnsDoNoHarm();
    void columnByNameComparesTheBoundColumnExactly_data();
    void columnByNameComparesTheBoundColumnExactly();
    void columnByNameFindsTheEarlierOfTwo();
    void columnByNameFollowsTheBoundColumn();
    void deletingTheViewDeletesItsColumns();
};

void ProgramViewTest::newViewHasInitialValue_data()
{
    addPropertyRows(viewProperties());
}

void ProgramViewTest::newViewHasInitialValue()
{
    QFETCH(int, index);
    const auto property = viewProperties().at(static_cast<std::size_t>(index));
    QCOMPARE(property.get(CProgramView()), property.initial);
}

void ProgramViewTest::newViewHasNoColumns()
{
    const CProgramView view;
    QCOMPARE(view.columnCount(), 0);
    QCOMPARE(view.column(0), nullptr);
    QCOMPARE(view.column(QString()), nullptr);
}

void ProgramViewTest::setterChangesItsPropertyAlone_data()
{
    addPropertyRows(viewProperties());
}

void ProgramViewTest::setterChangesItsPropertyAlone()
{
    QFETCH(int, index);
    const auto properties = viewProperties();
    const auto &property = properties.at(static_cast<std::size_t>(index));
    CProgramView view;
    QVariantMap expected = initialValues(properties);
    expected[QLatin1String(property.name)] = property.sample;
    property.set(view, property.sample);
    COMPARE_VALUES(valuesOf(view, properties), expected);
}

void ProgramViewTest::columnByIndexIsNullOutsideTheList_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("boundColumn");
    QTest::newRow("far before") << std::numeric_limits<int>::min() << QString();
    QTest::newRow("before the first") << -1 << QString();
    QTest::newRow("first") << 0 << QStringLiteral("a");
    QTest::newRow("last") << 1 << QStringLiteral("b");
    QTest::newRow("behind the last") << 2 << QString();
    QTest::newRow("far behind") << std::numeric_limits<int>::max() << QString();
}

void ProgramViewTest::columnByIndexIsNullOutsideTheList()
{
    QFETCH(int, index);
    QFETCH(QString, boundColumn);
    int deletions = 0;
    CProgramView view;
    view.setColumns({new CountedColumn(deletions, QStringLiteral("a")),
                     new CountedColumn(deletions, QStringLiteral("b"))});
    QCOMPARE(view.columnCount(), 2);
    const CTemplateColumn *column = view.column(index);
    QCOMPARE(column != nullptr, !boundColumn.isEmpty());
    if (column) {
        QCOMPARE(column->boundColumn(), boundColumn);
    }
}

void ProgramViewTest::columnsKeepTheGivenOrder()
{
    int deletions = 0;
    CTemplateColumn *second = new CountedColumn(deletions, QString(), 2);
    CTemplateColumn *first = new CountedColumn(deletions, QString(), 1);
    CProgramView view;
    view.setColumns({second, first});
    QCOMPARE(view.column(0), second);
    QCOMPARE(view.column(1), first);
}

void ProgramViewTest::newColumnsReplaceAndDeleteTheOld()
{
    int oldDeletions = 0;
    int newDeletions = 0;
    CProgramView view;
    view.setColumns({new CountedColumn(oldDeletions), new CountedColumn(oldDeletions)});
    CTemplateColumn *column = new CountedColumn(newDeletions);
    view.setColumns({column});
    QCOMPARE(oldDeletions, 2);
    QCOMPARE(newDeletions, 0);
    QCOMPARE(view.columnCount(), 1);
    QCOMPARE(view.column(0), column);

    view.setColumns({});
    QCOMPARE(newDeletions, 1);
    QCOMPARE(view.columnCount(), 0);
}

void ProgramViewTest::nullColumnsDoNoHarm()
{
    int deletions = 0;
    CProgramView view;
    view.setColumns({nullptr, new CountedColumn(deletions, QStringLiteral("a")), nullptr});
    QCOMPARE(view.columnCount(), 3);
    QCOMPARE(view.column(0), nullptr);
    QCOMPARE(view.column(QStringLiteral("a")), view.column(1));
    QCOMPARE(view.column(QString()), nullptr);
    view.setColumns({nullptr});
    QCOMPARE(deletions, 1);
}

void ProgramViewTest::columnByNameComparesTheBoundColumnExactly_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("found");
    QTest::newRow("bound column") << QStringLiteral("OBJ_Key") << true;
    QTest::newRow("other case") << QStringLiteral("obj_key") << false;
    QTest::newRow("blank behind") << QStringLiteral("OBJ_Key ") << false;
    QTest::newRow("start of it") << QStringLiteral("OBJ_") << false;
    QTest::newRow("unique id") << QStringLiteral("{id}") << false;
    QTest::newRow("caption") << QStringLiteral("Caption") << false;
    QTest::newRow("empty") << QString() << false;
}

void ProgramViewTest::columnByNameComparesTheBoundColumnExactly()
{
    QFETCH(QString, name);
    int deletions = 0;
    auto *column = new CountedColumn(deletions, QStringLiteral("OBJ_Key"));
    column->setUniqueId(QStringLiteral("{id}"));
    column->setCaption(QStringLiteral("Caption"));
    CProgramView view;
    view.setColumns({column});
    QTEST(view.column(name) == column, "found");
}

void ProgramViewTest::columnByNameFindsTheEarlierOfTwo()
{
    int deletions = 0;
    CProgramView view;
    view.setColumns({new CountedColumn(deletions, QStringLiteral("a")),
                     new CountedColumn(deletions, QStringLiteral("b")),
                     new CountedColumn(deletions, QStringLiteral("b"))});
    QCOMPARE(view.column(QStringLiteral("b")), view.column(1));
}

void ProgramViewTest::columnByNameFollowsTheBoundColumn()
{
    int deletions = 0;
    auto *column = new CountedColumn(deletions, QStringLiteral("a"));
    CProgramView view;
    view.setColumns({column});
    column->setBoundColumn(QStringLiteral("b"));
    QCOMPARE(view.column(QStringLiteral("a")), nullptr);
    QCOMPARE(view.column(QStringLiteral("b")), column);
}

void ProgramViewTest::deletingTheViewDeletesItsColumns()
{
    int deletions = 0;
    const TextWitness key;
    auto view = std::make_unique<CProgramView>();
    view->setKey(key.text());
    view->setColumns({new CountedColumn(deletions), nullptr, new CountedColumn(deletions)});
    view.reset();
    QCOMPARE(deletions, 2);
    QVERIFY(!key.isHeld());
}

QTEST_APPLESS_MAIN(ProgramViewTest)

#include "ProgramViewTest.moc"
