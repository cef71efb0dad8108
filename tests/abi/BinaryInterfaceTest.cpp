// The library as a linker and a host that is not compiled again see it.

#include "support/VirtualSlot.h"

#include "format_current/NewTemplateXMLReader.h"
#include "format_legacy/CTemplateTokenizer.h"
#include "format_legacy/CTemplateXMLReader.h"
#include "loading/CTemplateBuilder.h"
#include "loading/CTemplateReader.h"
#include "loading/CTemplateReadingReport.h"
#include "logic/CTemplateLogic.h"
#include "model/CBooleanColumn.h"
#include "model/CCatalogTemplate.h"
#include "model/CDateColumn.h"
#include "model/CDecimalColumn.h"
#include "model/CIntegerColumn.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTextColumn.h"
#include "model/CTimeColumn.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/CTemplateRawData.h"

#include <QProcess>
#include <QTest>

#include <cxxabi.h>
#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <vector>

using namespace Tobrix::Templates;

// Shorthands of the table.
#define TEXTS                                                                                                \
    const QString &, const QString &, const QString &, const QString &, const QString &, const QString &,    \
        const QString &, const QString &
#define BEHAVIOUR const QVariant &, int, GroupLevel, TypeFlags, bool, bool, bool, bool, bool, int
using FieldValues = QHash<QString, QVariant>;
using Catalogs = QList<Tobrix::CATManagement::CCatalogDescriptor>;
using ColumnType = CTemplateColumn::ColumnType;
using GroupLevel = CTemplateColumn::GroupLevel;
using TypeFlags = CTemplateColumn::TypeFlags;
using ReaderFlags = CTemplateReader::ReaderFlags;
using TemplateToken = CTemplateTokenizer::TemplateToken;
using TemplateInfoToken = CTemplateTokenizer::TemplateInfoToken;
using ProgramViewToken = CTemplateTokenizer::ProgramViewToken;
using ColumnToken = CTemplateTokenizer::ColumnToken;
using ListItemToken = CTemplateTokenizer::ListItemToken;
using LegendToken = CTemplateTokenizer::LegendToken;

namespace {

enum class Kind { Constructor, Destructor, Virtual, Pure, Override, Member, Static };

/// One row of the table.
struct Operation
{
    Kind kind;
    QByteArray className;
    QByteArray symbol; ///< As the linker shows it to people.
    int slot;          ///< By the table; -1 for an operation that is not virtual.
    int actualSlot;    ///< In the library.
};

QByteArray demangled(const char *name)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(
        abi::__cxa_demangle(name, nullptr, nullptr, &status), &std::free);
    return status == 0 ? QByteArray(text.get()) : QByteArray(name);
}

template <typename Class>
QByteArray nameOf()
{
    return demangled(typeid(Class).name());
}

/// A class's operation as the linker shows it.
/// @tparam Function a function without result that has the arguments
template <typename Class, typename Function>
QByteArray symbolOf(const QByteArray &name, const char *constness = "")
{
    const QByteArray function = nameOf<Function>(); // such as "void (int, bool)"
    const QByteArray suffix = *constness ? QByteArray(" ") + constness : QByteArray();
    return nameOf<Class>() + "::" + name + function.mid(function.indexOf('(')) + suffix;
}

template <typename Function>
int noSlot(Function *)
{
    return -1;
}

QByteArray lastPart(const QByteArray &qualifiedName)
{
    return qualifiedName.mid(qualifiedName.lastIndexOf(':') + 1);
}

// The casts hold the exact signatures: none of these rows compiles when a result, an argument or a const
// differs.
#define CONSTRUCTOR(Class, Arguments)                                                                        \
    {Kind::Constructor, nameOf<Class>(), symbolOf<Class, void Arguments>(#Class), -1, -1},
#define DESTRUCTOR(Class) {Kind::Destructor, nameOf<Class>(), symbolOf<Class, void()>("~" #Class), -1, -1},
#define MEMBER_ROW(kind, slot, Class, Result, name, Arguments, constness)                                    \
    {kind, nameOf<Class>(), symbolOf<Class, void Arguments>(#name, #constness), slot,                        \
     virtualSlot(static_cast<Result(Class::*) Arguments constness>(&Class::name))},
#define VIRTUAL(slot, ...) MEMBER_ROW(Kind::Virtual, slot, __VA_ARGS__)
#define PURE(slot, ...) MEMBER_ROW(Kind::Pure, slot, __VA_ARGS__)
#define OVERRIDE(slot, ...) MEMBER_ROW(Kind::Override, slot, __VA_ARGS__)
#define MEMBER(...) MEMBER_ROW(Kind::Member, -1, __VA_ARGS__)
#define STATIC(Class, Result, name, Arguments)                                                               \
    {Kind::Static, nameOf<Class>(), symbolOf<Class, void Arguments>(#name), -1,                              \
     noSlot(static_cast<Result(*) Arguments>(&Class::name))},
#define SIZE(Class, pointers)
#define POLYMORPHIC(Class, Base)
#define FIELD(...)

std::vector<Operation> operations()
{
    return {
#include "BinaryInterface.def"
    };
}

#undef CONSTRUCTOR
#undef DESTRUCTOR
#undef VIRTUAL
#undef PURE
#undef OVERRIDE
#undef MEMBER
#undef STATIC
#undef SIZE
#undef POLYMORPHIC
#define CONSTRUCTOR(...)
#define DESTRUCTOR(...)
#define VIRTUAL(...)
#define PURE(...)
#define OVERRIDE(...)
#define MEMBER(...)
#define STATIC(...)

struct ObjectSize
{
    const char *className;
    std::size_t actual;
    std::size_t pointers;
};

#define POLYMORPHIC(Class, Base)
#define SIZE(Class, pointers) {#Class, sizeof(Class), pointers},
const ObjectSize objectSizes[] = {
#include "BinaryInterface.def"
};
#undef SIZE
#undef POLYMORPHIC
#undef FIELD

/// A field of a record that may grow.
struct RecordField
{
    QByteArray record;
    QByteArray name;
    std::size_t offset;
    std::size_t size;
    std::size_t alignment;
    std::size_t sizeOfRecord;
};

template <typename Record, typename Type>
RecordField recordField(const char *name, Type Record::*field)
{
    const Record record;
    const auto offset =
        reinterpret_cast<const char *>(&(record.*field)) - reinterpret_cast<const char *>(&record);
    return {nameOf<Record>(), name,          static_cast<std::size_t>(offset),
            sizeof(Type),     alignof(Type), sizeof(Record)};
}

#define SIZE(...)
#define POLYMORPHIC(...)
#define FIELD(Record, name, ...) recordField<Record, __VA_ARGS__>(#Record "::" #name, &Record::name),
std::vector<RecordField> recordFields()
{
    return {
#include "BinaryInterface.def"
    };
}
#undef SIZE
#undef POLYMORPHIC
#undef FIELD

/// Where something goes after so many bytes.
std::size_t placeAfter(std::size_t bytes, std::size_t alignment)
{
    return (bytes + alignment - 1) / alignment * alignment;
}

struct PolymorphicClass
{
    QByteArray name;
    QByteArray base;
    QByteArray table; ///< The symbol of the virtual table.
    bool isAbstract;
};

#define SIZE(...)
#define FIELD(...)
#define POLYMORPHIC(Class, Base)                                                                             \
    {nameOf<Class>(), nameOf<Base>(), QByteArray("_ZTV") + typeid(Class).name(), std::is_abstract_v<Class>},
std::vector<PolymorphicClass> polymorphicClasses()
{
    return {
#include "BinaryInterface.def"
    };
}

/// The operations in a class's virtual table, by the table of operations.
QList<QByteArray> expectedTable(const PolymorphicClass &type)
{
    const QByteArray destructor = type.name + "::~" + lastPart(type.name) + "()";
    // No object is of an abstract class, and so its table has no destructors.
    const QByteArray inTable = type.isAbstract ? QByteArray() : destructor;
    QList<QByteArray> table{inTable, inTable};
    for (const auto &operation : operations()) {
        if (operation.className == type.base && operation.kind == Kind::Virtual) {
            table.append(operation.symbol);
        } else if (operation.className == type.base && operation.kind == Kind::Pure) {
            table.append("__cxa_pure_virtual");
        } else if (operation.className == type.name && operation.kind == Kind::Override) {
            table[operation.slot] = operation.symbol;
        }
    }
    return table;
}

/// The operations in a class's virtual table, in the library.
QList<QByteArray> actualTable(const PolymorphicClass &type)
{
    void *const *table = static_cast<void **>(::dlsym(RTLD_DEFAULT, type.table.constData()));
    Dl_info info;
    void *symbol = nullptr;
    if (!table || !::dladdr1(table, &info, &symbol, RTLD_DL_SYMENT)) {
        return {};
    }
    // Two words, of the place in the whole object and of the type, stand before the operations.
    const std::size_t count = static_cast<ElfW(Sym) *>(symbol)->st_size / sizeof(void *);
    QList<QByteArray> names;
    for (std::size_t i = 2; i < count; ++i) {
        const bool isKnown = ::dladdr(table[i], &info) && info.dli_sname;
        names.append(isKnown ? demangled(info.dli_sname) : QByteArray());
    }
    return names;
}

QStringList sorted(QStringList names)
{
    names.removeDuplicates();
    names.sort();
    return names;
}

/// The names of the library's dynamic symbols, as people read them.
QStringList symbols(const char *which)
{
    QProcess nm;
    nm.start(QStringLiteral("nm"), {QStringLiteral("--dynamic"), QStringLiteral("--format=posix"),
                                    QLatin1String(which), QStringLiteral(TOBRIX_TEMPLATES_LIBRARY)});
    nm.waitForFinished();
    QStringList names;
    for (const auto &line : nm.readAllStandardOutput().split('\n')) {
        if (!line.isEmpty()) {
            names.append(QLatin1String(demangled(line.left(line.indexOf(' ')).constData())));
        }
    }
    return sorted(names);
}

bool isFunction(const QString &symbol)
{
    return symbol.endsWith(QLatin1Char(')')) || symbol.endsWith(QLatin1String(") const"));
}

void compareSymbols(const QStringList &actual, const QStringList &expected, const char *advice)
{
    for (const auto &name : actual) {
        QVERIFY2(expected.contains(name),
                 qPrintable(QStringLiteral("%1 is there. %2").arg(name, QLatin1String(advice))));
    }
    for (const auto &name : expected) {
        QVERIFY2(actual.contains(name), qPrintable(QStringLiteral("%1 is missing").arg(name)));
    }
}

} // namespace

class BinaryInterfaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void operationHasItsSlot_data();
    void operationHasItsSlot();
    void virtualTableIsThatOfTheRows_data();
    void virtualTableIsThatOfTheRows();
    void objectHasItsSize_data();
    void objectHasItsSize();
    void recordHasTheFieldsOfTheRowsInOrder();
    void exportedFunctionsAreThoseOfTheRows();
    void exportedDataIsThatOfPublicClasses();
    void symbolsLeftToTheHostAreTheseAlone();
};

void BinaryInterfaceTest::operationHasItsSlot_data()
{
    QTest::addColumn<int>("actual");
    QTest::addColumn<int>("slot");
    for (const auto &operation : operations()) {
        QTest::newRow(operation.symbol.constData()) << operation.actualSlot << operation.slot;
    }
}

void BinaryInterfaceTest::operationHasItsSlot()
{
    if (!virtualSlotsAreKnown) {
        QSKIP("how this compiler represents a pointer to an operation is not known");
    }
    QFETCH(int, actual);
    QTEST(actual, "slot");
}

void BinaryInterfaceTest::virtualTableIsThatOfTheRows_data()
{
    QTest::addColumn<QByteArray>("actual");
    QTest::addColumn<QByteArray>("expected");
    for (const auto &type : polymorphicClasses()) {
        const QList<QByteArray> actual = actualTable(type);
        const QList<QByteArray> expected = expectedTable(type);
        for (int slot = 0; slot < std::max(actual.size(), expected.size()); ++slot) {
            QTest::newRow(type.name + ", slot " + QByteArray::number(slot))
                << actual.value(slot) << expected.value(slot);
        }
    }
}

void BinaryInterfaceTest::virtualTableIsThatOfTheRows()
{
    QFETCH(QByteArray, actual);
    QTEST(actual, "expected");
}

void BinaryInterfaceTest::objectHasItsSize_data()
{
    QTest::addColumn<int>("actual");
    QTest::addColumn<int>("pointers");
    for (const auto &size : objectSizes) {
        QTest::newRow(size.className) << static_cast<int>(size.actual) << static_cast<int>(size.pointers);
    }
}

void BinaryInterfaceTest::objectHasItsSize()
{
    QFETCH(int, actual);
    QFETCH(int, pointers);
    QCOMPARE(actual, pointers * static_cast<int>(sizeof(void *)));
}

void BinaryInterfaceTest::recordHasTheFieldsOfTheRowsInOrder()
{
    const std::vector<RecordField> fields = recordFields();
    std::size_t end = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const RecordField &field = fields[i];
        if (i == 0 || fields[i - 1].record != field.record) {
            end = field.record == nameOf<CTemplateRawData>() ? sizeof(CTemplateBaseData) : 0;
        }
        QVERIFY2(field.offset == placeAfter(end, field.alignment),
                 qPrintable(QStringLiteral("%1 is not where its row stands: new fields go to the end")
                                .arg(QLatin1String(field.name))));
        end = field.offset + field.size;
        const bool isLast = i + 1 == fields.size() || fields[i + 1].record != field.record;
        QVERIFY2(!isLast || placeAfter(end, alignof(CColumnData)) == field.sizeOfRecord,
                 qPrintable(QStringLiteral("%1 is not the last field: a new one gets a row")
                                .arg(QLatin1String(field.name))));
    }
}

void BinaryInterfaceTest::exportedFunctionsAreThoseOfTheRows()
{
    QStringList actual;
    for (const auto &symbol : symbols("--defined-only")) {
        if (isFunction(symbol)) {
            actual.append(symbol);
        }
    }
    QStringList expected;
    for (const auto &operation : operations()) {
        if (operation.kind != Kind::Pure) {
            expected.append(QLatin1String(operation.symbol));
        }
    }
    compareSymbols(
        actual, expected,
        "An operation for hosts gets a row in BinaryInterface.def, a private one of an exported class "
        "the mark TOBRIX_TEMPLATES_NO_EXPORT.");
}

void BinaryInterfaceTest::exportedDataIsThatOfPublicClasses()
{
    QStringList actual;
    for (const auto &symbol : symbols("--defined-only")) {
        if (!isFunction(symbol)) {
            actual.append(symbol);
        }
    }
    QStringList expected{QStringLiteral("CTemplateTokenizer::m_tokenizer"),
                         QStringLiteral("Tobrix::Templates::CTemplateLogic::staticMetaObject")};
    auto classes = polymorphicClasses();
    classes.push_back({nameOf<CTemplateLogic>(), nameOf<QObject>(), {}, false});
    for (const auto &type : classes) {
        for (const auto *part : {"vtable for ", "typeinfo for ", "typeinfo name for "}) {
            expected.append(QLatin1String(part + type.name));
        }
    }
    compareSymbols(actual, expected, "Private classes stay inside of the library.");
}

void BinaryInterfaceTest::symbolsLeftToTheHostAreTheseAlone()
{
    QStringList actual;
    for (const auto &symbol : symbols("--undefined-only")) {
        if (symbol.startsWith(QLatin1String("Tobrix::"))) {
            actual.append(symbol);
        }
    }
    const QStringList expected{
        QStringLiteral("Tobrix::AppLogic::CoreApplication::catalogTemplateRegistry() const"),
        QStringLiteral("Tobrix::AppLogic::CoreApplication::instance()"),
        QStringLiteral("Tobrix::CATManagement::CCatalogDescriptor::CCatalogDescriptor()"),
        QStringLiteral("Tobrix::CATManagement::CCatalogDescriptor::setCountryCode(QString const&)"),
        QStringLiteral("Tobrix::CATManagement::CCatalogDescriptor::setId(QString const&)"),
        QStringLiteral("Tobrix::CATManagement::CCatalogDescriptor::setLanguageCode(QString const&)"),
        QStringLiteral(
            "Tobrix::CATManagement::CCatalogTemplateRegistry::templateByUniqueId(QString const&) const"),
        QStringLiteral("Tobrix::CATManagement::CTemplateDescriptor::type() const"),
        QStringLiteral("Tobrix::Database::CTableDescriptors::tableTypeFromTableName(QString const&)"),
        QStringLiteral("Tobrix::Logging::CLogger::logMessage(Tobrix::Logging::LogLevel, QString const&, "
                       "QString const&)"),
    };
    compareSymbols(actual, expected, "A host has to supply it: tell so in docs/host-integration.md.");
}

QTEST_APPLESS_MAIN(BinaryInterfaceTest)

#include "BinaryInterfaceTest.moc"
