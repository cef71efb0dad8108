#include "xml/SourcePlaces_p.h"

#include <algorithm>

namespace Tobrix::Templates {

namespace {

constexpr int blockSize = 1024;

bool isCharacter(QChar c)
{
    return !c.isLowSurrogate();
}

} // namespace

SourcePlaces::SourcePlaces(const QString &source) : m_source(source), m_lineStarts{0}
{
    // The next one of each kind is searched ahead, so that each search passes over the text once.
    int carriageReturn = source.indexOf(QLatin1Char('\r'));
    int lineFeed = source.indexOf(QLatin1Char('\n'));
    while (carriageReturn >= 0 || lineFeed >= 0) {
        if (carriageReturn >= 0 && (lineFeed < 0 || carriageReturn < lineFeed)) {
            if (lineFeed != carriageReturn + 1) {
                m_lineStarts.push_back(carriageReturn + 1);
            }
            carriageReturn = source.indexOf(QLatin1Char('\r'), carriageReturn + 1);
        } else {
            m_lineStarts.push_back(lineFeed + 1);
            lineFeed = source.indexOf(QLatin1Char('\n'), lineFeed + 1);
        }
    }
    int characters = 0;
    for (int begin = 0; begin <= source.size(); begin += blockSize) {
        m_charactersBeforeBlocks.push_back(characters);
        const int end = std::min(begin + blockSize, source.size());
        characters +=
            static_cast<int>(std::count_if(source.cbegin() + begin, source.cbegin() + end, isCharacter));
    }
}

int SourcePlaces::charactersBefore(int offset) const
{
    const int end = std::clamp(offset, 0, m_source.size());
    const int block = end / blockSize;
    const int blockBegin = block * blockSize;
    const auto begin = m_source.cbegin() + blockBegin;
    return m_charactersBeforeBlocks[static_cast<std::size_t>(block)] +
           static_cast<int>(std::count_if(begin, m_source.cbegin() + end, isCharacter));
}

Place SourcePlaces::placeOf(int offset) const
{
    const auto after = std::upper_bound(m_lineStarts.cbegin(), m_lineStarts.cend(), offset);
    const int lineStart = *(after - 1);
    return {static_cast<int>(after - m_lineStarts.cbegin()),
            charactersBefore(offset) - charactersBefore(lineStart) + 1};
}

int SourcePlaces::offsetOf(int line, int column) const
{
    const auto last = static_cast<int>(m_lineStarts.size());
    const int lineStart = m_lineStarts[static_cast<std::size_t>(std::clamp(line, 1, last) - 1)];
    return std::clamp(lineStart + column - 1, lineStart, std::max(lineStart, m_source.size()));
}

} // namespace Tobrix::Templates
