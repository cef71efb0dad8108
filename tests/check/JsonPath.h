#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

/// What stands under a path such as "views/Section/columns/0/width" in JSON. A step into an array is a place
/// in it, or the "key", "caption" or "item" of the object that is meant; "#" is the number of objects, and
/// "#item=PVC" the number of those that have that value. Undefined when nothing stands there.
inline QJsonValue valueUnder(const QString &path, QJsonValue value)
{
    const auto isNamed = [](const QJsonObject &object, const QString &name) {
        for (const auto *field : {"key", "caption", "item"}) {
            if (object.value(QLatin1String(field)).toString() == name) {
                return true;
            }
        }
        return false;
    };
    const auto countOf = [](const QJsonArray &array, const QString &condition) {
        const QString field = condition.section(QLatin1Char('='), 0, 0);
        const QString wanted = condition.section(QLatin1Char('='), 1);
        int count = 0;
        for (const auto &element : array) {
            count += condition.isEmpty() || element.toObject().value(field).toVariant().toString() == wanted;
        }
        return count;
    };
    const auto elementOf = [&](const QJsonArray &array, const QString &step) {
        bool isIndex = false;
        const int index = step.toInt(&isIndex);
        if (isIndex) {
            return index < array.size() ? array.at(index) : QJsonValue(QJsonValue::Undefined);
        }
        for (const auto &element : array) {
            if (isNamed(element.toObject(), step)) {
                return QJsonValue(element);
            }
        }
        return QJsonValue(QJsonValue::Undefined);
    };
    for (const auto &step : path.split(QLatin1Char('/'))) {
        if (value.isArray() && step.startsWith(QLatin1Char('#'))) {
            return countOf(value.toArray(), step.mid(1));
        }
        value = value.isArray() ? elementOf(value.toArray(), step) : value.toObject().value(step);
    }
    return value;
}
