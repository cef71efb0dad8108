#pragma once

#include <QStringRef>

#include <algorithm>

namespace Tobrix::Templates {

/// A decimal text as an int, 0 when it is none: what QStringRef::toInt() gives. Plain digits, which is nearly
/// all that stands in templates, are read without its detour over a locale.
inline int toDecimalInt(const QStringRef &text)
{
    constexpr int digitsThatFit = 9;
    const auto isDigit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    if (text.size() > digitsThatFit || !std::all_of(text.begin(), text.end(), isDigit)) {
        return text.toInt(nullptr, 10);
    }
    int number = 0;
    for (const QChar digit : text) {
        number = number * 10 + (digit.unicode() - '0');
    }
    return number;
}

} // namespace Tobrix::Templates
