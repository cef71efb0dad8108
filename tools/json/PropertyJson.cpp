#include "tools/json/PropertyJson.h"

#include <cmath>

namespace Tobrix::Tools {

QJsonValue toJson(const QString &text, NullText nullText)
{
    if (text.isNull() && nullText == NullText::AsNull) {
        return QJsonValue::Null;
    }
    return text;
}

QJsonValue toJson(bool value, NullText)
{
    return value;
}

QJsonValue toJson(int number, NullText)
{
    return number;
}

QJsonValue toJson(double number, NullText)
{
    if (std::isnan(number)) {
        return QStringLiteral("nan");
    }
    if (std::isinf(number)) {
        return number > 0 ? QStringLiteral("inf") : QStringLiteral("-inf");
    }
    return number;
}

QJsonValue toJson(const QVariant &value, NullText nullText)
{
    return QJsonObject{
        {QStringLiteral("type"), QString::fromLatin1(value.typeName())},
        {QStringLiteral("isNull"), value.isNull()},
        {QStringLiteral("value"), toJson(value.toString(), nullText)},
    };
}

} // namespace Tobrix::Tools
