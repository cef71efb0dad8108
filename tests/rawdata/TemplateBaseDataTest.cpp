#include "support/RecordProperties.h"

#include <QTest>

#include <type_traits>

using namespace Tobrix::Templates;

static_assert(!std::is_polymorphic_v<CTemplateBaseData>);

class TemplateBaseDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newHeaderHasInitialValue_data();
    void newHeaderHasInitialValue();
    void clearEmptiesAllButThree_data();
    void clearEmptiesAllButThree();
};

void TemplateBaseDataTest::newHeaderHasInitialValue_data()
{
    addPropertyRows(headerProperties());
}

void TemplateBaseDataTest::newHeaderHasInitialValue()
{
    QFETCH(int, index);
    const auto property = headerProperties().at(static_cast<std::size_t>(index));
    const QVariant value = property.get(CTemplateBaseData());
    QCOMPARE(value, property.initial);
    QCOMPARE(value.userType(), property.initial.userType());
}

void TemplateBaseDataTest::clearEmptiesAllButThree_data()
{
    addPropertyRows(headerProperties());
}

void TemplateBaseDataTest::clearEmptiesAllButThree()
{
    static const QStringList kept = {QStringLiteral("defaultSecClassName"),
                                     QStringLiteral("defaultSecColorField"), QStringLiteral("sortOrder")};
    QFETCH(int, index);
    const auto property = headerProperties().at(static_cast<std::size_t>(index));
    CTemplateBaseData header;
    for (const auto &each : headerProperties()) {
        each.set(header, each.sample);
    }
    header.clear();
    const bool isKept = kept.contains(QLatin1String(property.name));
    QCOMPARE(property.get(header), isKept ? property.sample : property.initial);
}

QTEST_APPLESS_MAIN(TemplateBaseDataTest)

#include "TemplateBaseDataTest.moc"
