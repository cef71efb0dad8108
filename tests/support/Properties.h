#pragma once

#include <QStringList>
#include <QTest>
#include <QVariant>
#include <QVariantMap>

#include <functional>
#include <type_traits>
#include <vector>

/// One property of a model object or record, for tests that check a class property by property.
template <typename Object>
struct Property
{
    const char *name;
    QVariant initial; ///< The value in a new object.
    QVariant sample;  ///< Another value; unique among the properties of the class, except for flags.
    std::function<QVariant(const Object &)> get;
    std::function<void(Object &, const QVariant &)> set; ///< Empty when it cannot be set.
};

template <typename Object>
using Properties = std::vector<Property<Object>>;

template <typename Value>
QVariant toVariant(const Value &value)
{
    if constexpr (std::is_enum_v<Value>) {
        return QVariant(static_cast<int>(value));
    } else {
        return QVariant(value);
    }
}

template <typename Value>
Value fromVariant(const QVariant &value)
{
    if constexpr (std::is_enum_v<Value>) {
        return static_cast<Value>(value.toInt());
    } else if constexpr (std::is_same_v<Value, QVariant>) {
        return value;
    } else {
        return value.value<Value>();
    }
}

/// A property with getter and setter, of Object itself or of a class derived from it.
template <typename Object, typename Class, typename Result, typename Argument>
Property<Object> property(const char *name, const QVariant &initial, const QVariant &sample,
                          Result (Class::*getter)() const, void (Class::*setter)(Argument))
{
    return {
        name, initial, sample,
        [getter](const Object &object) { return toVariant((static_cast<const Class &>(object).*getter)()); },
        [setter](Object &object, const QVariant &value) {
            (static_cast<Class &>(object).*setter)(fromVariant<std::decay_t<Argument>>(value));
        }};
}

/// A public field.
template <typename Object, typename Value>
Property<Object> field(const char *name, const QVariant &initial, const QVariant &sample,
                       Value Object::*member)
{
    return {name, initial, sample, [member](const Object &object) { return toVariant(object.*member); },
            [member](Object &object, const QVariant &value) { object.*member = fromVariant<Value>(value); }};
}

/// All properties of an object by name.
template <typename Object>
QVariantMap valuesOf(const Object &object, const Properties<Object> &properties)
{
    QVariantMap values;
    for (const auto &property : properties) {
        values.insert(QLatin1String(property.name), property.get(object));
    }
    return values;
}

/// The initial values of the properties.
template <typename Object>
QVariantMap initialValues(const Properties<Object> &properties)
{
    QVariantMap values;
    for (const auto &property : properties) {
        values.insert(QLatin1String(property.name), property.initial);
    }
    return values;
}

inline QString described(const QVariant &value)
{
    if (!value.isValid()) {
        return QStringLiteral("nothing");
    }
    return QStringLiteral("%1 \"%2\"").arg(QLatin1String(value.typeName()), value.toString());
}

/// The differences of two sets of values, in value or in type; empty when there are none.
inline QStringList differences(const QVariantMap &actual, const QVariantMap &expected)
{
    QStringList found;
    QStringList names = actual.keys() + expected.keys();
    names.removeDuplicates();
    for (const auto &name : qAsConst(names)) {
        const QVariant is = actual.value(name);
        const QVariant ought = expected.value(name);
        if (is.userType() != ought.userType() || is != ought) {
            found.append(QStringLiteral("%1 is %2, not %3").arg(name, described(is), described(ought)));
        }
    }
    return found;
}

/// A row for each property; the test fetches its index.
template <typename Object>
void addPropertyRows(const Properties<Object> &properties)
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < properties.size(); ++i) {
        QTest::newRow(properties[i].name) << static_cast<int>(i);
    }
}

/// Fails the test when two sets of values differ, and reports the differences.
#define COMPARE_VALUES(actual, expected) QCOMPARE(differences(actual, expected), QStringList())
