#include "Attacks.h"

#include <QHash>
#include <QString>

#include <algorithm>
#include <vector>

namespace {

// Letters that differ in their last three bits only.
constexpr int textSize = 24;
constexpr int bitsOfLetter = 3;
constexpr int bits = textSize * bitsOfLetter;

using Choice = std::vector<bool>;

QString textOf(const Choice &choice)
{
    QString text;
    for (int letter = 0; letter < textSize; ++letter) {
        int code = 'p';
        for (int bit = 0; bit < bitsOfLetter; ++bit) {
            code |= choice[static_cast<std::size_t>(letter * bitsOfLetter + bit)] << bit;
        }
        text += QLatin1Char(static_cast<char>(code));
    }
    return text;
}

Choice sum(Choice a, const Choice &b)
{
    std::transform(a.begin(), a.end(), b.begin(), a.begin(), [](bool x, bool y) { return x != y; });
    return a;
}

/// The hash of a text in a process with a random seed, as all have.
uint hashOf(const Choice &choice)
{
    constexpr uint anySeed = 1;
    return qHash(textOf(choice), anySeed);
}

/// Sets of bits that do not change Qt's hash of a text. Where the processor supports it, that hash is a CRC:
/// each input bit flips the same output bits, whatever the other bits and the seed are.
std::vector<Choice> neutralChoices()
{
    struct Row
    {
        uint change;
        Choice choice;
    };
    const uint unchanged = hashOf(Choice(bits));
    std::vector<Row> basis;
    std::vector<Choice> neutral;
    for (std::size_t bit = 0; bit < bits; ++bit) {
        Choice choice(bits);
        choice[bit] = true;
        uint change = hashOf(choice) ^ unchanged;
        for (const auto &row : basis) {
            if ((change ^ row.change) < change) {
                change ^= row.change;
                choice = sum(choice, row.choice);
            }
        }
        if (change == 0) {
            neutral.push_back(choice);
        } else {
            basis.push_back({change, choice});
            std::sort(basis.begin(), basis.end(),
                      [](const Row &a, const Row &b) { return a.change > b.change; });
        }
    }
    return neutral;
}

/// Different texts with the same hash.
std::vector<QByteArray> collidingTexts(int count)
{
    static const std::vector<Choice> neutral = neutralChoices();
    std::vector<QByteArray> texts;
    for (int number = 0; number < count; ++number) {
        Choice choice(bits);
        for (std::size_t i = 0; i < std::min<std::size_t>(neutral.size(), 31); ++i) {
            if (number >> i & 1) {
                choice = sum(choice, neutral[i]);
            }
        }
        texts.push_back(textOf(choice).toLatin1());
    }
    return texts;
}

void add(Attacks &attacks, const QByteArray &name, Format format, const QByteArray &before,
         const QByteArray &after, const QByteArray &last = QByteArray())
{
    for (const int count : {5'000, 10'000, 40'000}) {
        const auto makeDocument = [=] {
            QByteArray body;
            for (const auto &text : collidingTexts(count)) {
                body += before + text + after;
            }
            return document(format, body + last);
        };
        attacks.push_back(
            {QByteArray::number(count) + " colliding " + name, Outcome::Bounded, makeDocument, format});
    }
}

} // namespace

Attacks collisionAttacks()
{
    Attacks attacks;
    add(attacks, "ids of views, current", Format::Current, "<View Id='", "'/>");
    add(attacks, "ids of views, legacy", Format::Legacy, "<PROGVIEW><PV_PK>", "</PV_PK></PROGVIEW>");
    add(attacks, "units of columns, current", Format::Current, "<Column Unit='", "'/>");
    add(attacks, "units of columns, legacy", Format::Legacy, "<SYSCOL><COL_Unit>", "</COL_Unit></SYSCOL>");
    add(attacks, "names of lists, current", Format::Current, "<ValueList Name='",
        "'><ValueListItem/></ValueList>");
    add(attacks, "names of lists, legacy", Format::Legacy, "<SYSLIST><LIST_Name>", "</LIST_Name></SYSLIST>");
    for (const Format format : {Format::Legacy, Format::Current}) {
        // To report the fault, the whole file is scanned.
        add(attacks, "names before a fault", format, "<", "/>", "</b>");
    }
    return attacks;
}
