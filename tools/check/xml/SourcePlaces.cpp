#include "tools/check/xml/SourcePlaces.h"

#include <algorithm>

namespace Tobrix::Tools {

SourcePlaces::SourcePlaces(const QString &source) : m_source(source), m_lineStarts{0}
{
    for (int i = 0; i < source.size(); ++i) {
        const QChar c = source.at(i);
        const bool isPair =
            c == QLatin1Char('\r') && i + 1 < source.size() && source.at(i + 1) == QLatin1Char('\n');
        if ((c == QLatin1Char('\r') || c == QLatin1Char('\n')) && !isPair) {
            m_lineStarts.push_back(i + 1);
        }
    }
}

Place SourcePlaces::placeOf(int offset) const
{
    const auto behind = std::upper_bound(m_lineStarts.cbegin(), m_lineStarts.cend(), offset);
    const int lineStart = *(behind - 1);
    const int end = std::min(offset, m_source.size());
    const auto isCharacter = [](QChar c) { return !c.isLowSurrogate(); };
    const auto characters =
        std::count_if(m_source.cbegin() + lineStart, m_source.cbegin() + end, isCharacter);
    return {static_cast<int>(behind - m_lineStarts.cbegin()), static_cast<int>(characters) + 1};
}

int SourcePlaces::offsetOf(int line, int column) const
{
    const auto last = static_cast<int>(m_lineStarts.size());
    const int lineStart = m_lineStarts[static_cast<std::size_t>(std::clamp(line, 1, last) - 1)];
    return std::clamp(lineStart + column - 1, lineStart, std::max(lineStart, m_source.size()));
}

} // namespace Tobrix::Tools
