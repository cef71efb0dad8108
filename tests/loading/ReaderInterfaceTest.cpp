// Readers used through their common interface, as the entry point does.

#include "support/OpenFiles.h"
#include "support/TemporaryTemplate.h"
#include "support/VirtualSlot.h"

#include "format_current/NewTemplateXMLReader.h"
#include "format_legacy/CTemplateXMLReader.h"
#include "loading/AbstractTemplateXmlReader.h"
#include "rawdata/CTemplateRawData.h"

#include <QTest>

#include <memory>
#include <type_traits>

using namespace Tobrix::Templates;

static_assert(std::is_abstract_v<AbstractTemplateXmlReader>);
static_assert(std::has_virtual_destructor_v<AbstractTemplateXmlReader>);
static_assert(sizeof(AbstractTemplateXmlReader) == sizeof(void *), "the interface has no fields");
static_assert(std::is_convertible_v<CTemplateXMLReader *, AbstractTemplateXmlReader *>);
static_assert(std::is_convertible_v<NewTemplateXMLReader *, AbstractTemplateXmlReader *>);

class ReaderInterfaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readFileFollowsTheDestructor();
    void deletingThroughTheInterfaceDeletesTheReader();
    void readersReadThroughTheInterface();
};

void ReaderInterfaceTest::readFileFollowsTheDestructor()
{
    if (!virtualSlotsAreKnown) {
        QSKIP("The table of virtual operations cannot be looked into on this platform.");
    }
    QCOMPARE(virtualSlot(&AbstractTemplateXmlReader::readFile), 2);
}

void ReaderInterfaceTest::deletingThroughTheInterfaceDeletesTheReader()
{
    const TemporaryTemplate file(QStringLiteral("templates"), legacyDocument(""));
    CTemplateRawData rawData;
    std::unique_ptr<AbstractTemplateXmlReader> reader = std::make_unique<CTemplateXMLReader>();
    QVERIFY(reader->readFile(file.path(), rawData));
    // The legacy reader closes its file only when it is deleted.
    QCOMPARE(openDescriptorsOf(file.path()), 1);
    reader.reset();
    QCOMPARE(openDescriptorsOf(file.path()), 0);
}

void ReaderInterfaceTest::readersReadThroughTheInterface()
{
    const TemporaryTemplate legacy(QStringLiteral("templates"),
                                   legacyDocument("<SYSTPL><TPL_Key>legacy</TPL_Key></SYSTPL>"));
    const TemporaryTemplate current(QStringLiteral("templates_new"), currentDocument("<Name>current</Name>"));
    const std::unique_ptr<AbstractTemplateXmlReader> legacyReader = std::make_unique<CTemplateXMLReader>();
    const std::unique_ptr<AbstractTemplateXmlReader> currentReader = std::make_unique<NewTemplateXMLReader>();
    CTemplateRawData legacyData;
    CTemplateRawData currentData;
    QVERIFY(legacyReader->readFile(legacy.path(), legacyData));
    QVERIFY(currentReader->readFile(current.path(), currentData));
    QCOMPARE(legacyData.key, QStringLiteral("legacy"));
    QCOMPARE(currentData.key, QStringLiteral("current"));
    QVERIFY(!legacyReader->readFile(legacy.path() + QStringLiteral(".missing"), legacyData));
    QVERIFY(!currentReader->readFile(current.path() + QStringLiteral(".missing"), currentData));
}

QTEST_GUILESS_MAIN(ReaderInterfaceTest)

#include "ReaderInterfaceTest.moc"
