#pragma once

#include <QStringRef>

#include <algorithm>

namespace Tobrix::Templates {

// Nearly all numbers in templates are a few plain digits. Those are parsed here, without the cost of Qt's
// locale-aware conversions, which parse all others.

inline bool isPlainDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

/// A decimal text as an int, 0 when it is invalid: the result of QStringRef::toInt().
inline int toDecimalInt(const QStringRef &text)
{
    constexpr int digitsThatFit = 9;
    if (text.size() > digitsThatFit || !std::all_of(text.begin(), text.end(), isPlainDigit)) {
        return text.toInt(nullptr, 10);
    }
    int number = 0;
    for (const QChar digit : text) {
        number = number * 10 + (digit.unicode() - '0');
    }
    return number;
}

/// A text as a number, 0 when it is invalid: the result of QStringRef::toDouble().
inline double toDecimalDouble(const QStringRef &text)
{
    // Digits and power of ten are both exact, so the quotient is the nearest double.
    constexpr int digitsThatFit = 15;
    static constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool isSmall = !text.isEmpty() && text.size() <= digitsThatFit;
    if (!isSmall || !isPlainDigit(text.front()) || !isPlainDigit(text.back())) {
        return text.toDouble();
    }
    qint64 digits = 0;
    int decimals = 0;
    bool isAfterPoint = false;
    for (const QChar c : text) {
        if (isPlainDigit(c)) {
            digits = digits * 10 + (c.unicode() - '0');
            decimals += isAfterPoint ? 1 : 0;
        } else if (c == QLatin1Char('.') && !isAfterPoint) {
            isAfterPoint = true;
        } else {
            return text.toDouble();
        }
    }
    return static_cast<double>(digits) / powersOfTen[decimals];
}

} // namespace Tobrix::Templates
