#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QLatin1String>
#include <QString>
#include <QVariant>

#include <functional>

namespace Tobrix::Tools {

/// How a null text is written: hosts do not distinguish it from an empty one, readers do.
enum class NullText { AsEmpty, AsNull };

QJsonValue toJson(const QString &text, NullText nullText);
QJsonValue toJson(bool value, NullText nullText);
QJsonValue toJson(int number, NullText nullText);

/// Numbers without JSON representation become the texts "nan", "inf" and "-inf".
QJsonValue toJson(double number, NullText nullText);

/// A variant as an object of its "type" (a name, or empty), "isNull" and "value" (as a text).
QJsonValue toJson(const QVariant &value, NullText nullText);

/// One property of an object: the name of its accessor or field, and how it is read.
template <typename Object>
struct Property
{
    QLatin1String name;
    QJsonValue (*read)(const Object &object, NullText nullText);
};

/// Reads an object's property by its accessor or field.
template <typename Object, auto member>
QJsonValue read(const Object &object, NullText nullText)
{
    return toJson(std::invoke(member, object), nullText);
}

/// Adds all properties of a table.
template <typename Properties, typename Object>
void insertProperties(QJsonObject &json, const Properties &properties, const Object &object,
                      NullText nullText)
{
    for (const auto &property : properties) {
        json.insert(property.name, property.read(object, nullText));
    }
}

/// One value per list entry.
template <typename List, typename ToJson>
QJsonArray toJsonArray(const List &list, ToJson toJsonValue)
{
    QJsonArray json;
    for (const auto &entry : list) {
        json.append(toJsonValue(entry));
    }
    return json;
}

} // namespace Tobrix::Tools
