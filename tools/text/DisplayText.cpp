#include "tools/text/DisplayText.h"

#include <QLocale>
#include <QVector>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cwchar>
#include <iterator>

namespace Tobrix::Tools {

namespace {

/// Makes the C library know the widths of all characters on this thread, in whatever locale the program runs.
class UnicodeWidths
{
public:
    UnicodeWidths() : m_previous(uselocale(unicode())) {}
    ~UnicodeWidths() { uselocale(m_previous); }

    int operator()(uint character) const
    {
        const int width = wcwidth(static_cast<wchar_t>(character));
        // A terminal shows some sign for a character that nobody knows.
        return width < 0 ? 1 : width;
    }

private:
    Q_DISABLE_COPY(UnicodeWidths)

    static locale_t unicode()
    {
        static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return locale;
    }

    const locale_t m_previous;
};

/// Whether a character moves the cursor, or text around itself, instead of being shown.
bool isCommand(QChar character)
{
    const ushort code = character.unicode();
    const bool isDirection = (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
    return isDirection || character.category() == QChar::Other_Control ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph;
}

QString escaped(QChar character)
{
    switch (character.unicode()) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
    }
}

/// How many characters from a position on fit into so many cells.
int fitting(const QVector<uint> &characters, int start, int width)
{
    const UnicodeWidths widthOf;
    int count = 0;
    for (int used = 0; start + count < characters.size(); ++count) {
        used += widthOf(characters.at(start + count));
        if (used > width) {
            break;
        }
    }
    return count;
}

/// How well a text can be broken between two characters: best behind a blank, then between the words of a
/// name.
int breakQuality(uint before, uint after)
{
    constexpr uint punctuation[] = {'.', ',', '_', '/', ';'};
    if (before == ' ') {
        return 2;
    }
    const bool isBetweenWords = QChar::isLower(before) && QChar::isUpper(after);
    const bool isBehindPunctuation =
        std::find(std::begin(punctuation), std::end(punctuation), before) != std::end(punctuation);
    return isBetweenWords || isBehindPunctuation ? 1 : 0;
}

/// How many of the characters to take so as to break the text well; all of them where it cannot be.
int upToBreak(const QVector<uint> &characters, int start, int count)
{
    int best = count;
    int quality = 0;
    for (int end = count; end > 0; --end) {
        const int endQuality = breakQuality(characters.at(start + end - 1), characters.at(start + end));
        if (endQuality > quality) {
            best = end;
            quality = endQuality;
        }
    }
    return best;
}

} // namespace

QString printable(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (isCommand(character)) {
            result += escaped(character);
        } else {
            result += character;
        }
    }
    return result;
}

int displayWidth(const QString &text)
{
    const UnicodeWidths widthOf;
    int width = 0;
    for (const uint character : text.toUcs4()) {
        width += widthOf(character);
    }
    return width;
}

QString elided(const QString &text, int width)
{
    if (displayWidth(text) <= width) {
        return text;
    }
    const auto characters = text.toUcs4();
    return QString::fromUcs4(characters.constData(), fitting(characters, 0, width - 1)) + QStringLiteral("…");
}

QStringList wrapped(const QString &text, int width)
{
    const auto characters = text.toUcs4();
    QStringList pieces;
    int start = 0;
    do {
        // One character at least, even where there is no room for it.
        int count = std::max(fitting(characters, start, width), 1);
        if (start + count < characters.size()) {
            count = upToBreak(characters, start, count);
        }
        count = std::min(count, characters.size() - start);
        pieces.append(QString::fromUcs4(characters.constData() + start, count).trimmed());
        start += count;
    } while (start < characters.size());
    return pieces;
}

QString counted(int count, const QString &singular, const QString &plural)
{
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? singular : plural);
}

QString numberText(double number)
{
    // Up to here a double holds every whole number, so that its digits say something.
    constexpr double exactUpTo = 9007199254740992.0;
    const char format = std::abs(number) <= exactUpTo ? 'f' : 'g';
    return QString::number(number, format, QLocale::FloatingPointShortest);
}

} // namespace Tobrix::Tools
