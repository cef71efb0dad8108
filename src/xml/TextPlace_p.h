#pragma once

#include <QString>

#include <algorithm>

namespace Tobrix::Templates {

/// The place after the chunks of a text, as XML parsers report it: lines end with LF, CR or CR LF; columns
/// are UTF-16 units.
class TextPlace
{
public:
    int line() const { return m_line; }
    int column() const { return m_column; }

    /// Moves to the end of the next chunk.
    void follow(const QString &chunk)
    {
        if (chunk.isEmpty()) {
            return;
        }
        const QChar lineFeed = QLatin1Char('\n');
        const QChar carriageReturn = QLatin1Char('\r');
        m_line += chunk.count(lineFeed);
        int lineEnd = chunk.lastIndexOf(lineFeed);
        if (chunk.contains(carriageReturn)) {
            m_line += chunk.count(carriageReturn) - chunk.count(QLatin1String("\r\n"));
            lineEnd = std::max(lineEnd, chunk.lastIndexOf(carriageReturn));
        }
        if (m_endsWithReturn && chunk.startsWith(lineFeed)) {
            --m_line;
        }
        m_endsWithReturn = chunk.endsWith(carriageReturn);
        m_column = lineEnd < 0 ? m_column + chunk.size() : chunk.size() - lineEnd;
    }

private:
    int m_line = 1;
    int m_column = 1;
    bool m_endsWithReturn = false;
};

} // namespace Tobrix::Templates
