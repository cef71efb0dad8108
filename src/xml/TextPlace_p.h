#pragma once

#include <QString>

#include <algorithm>

namespace Tobrix::Templates {

/// The place behind a text that comes in pieces, as XML parsers tell it: a line ends with a line feed, a
/// carriage return or both, and what Qt keeps in two units counts two columns.
class TextPlace
{
public:
    /// The line, from 1.
    int line() const { return m_line; }
    /// The column, from 1.
    int column() const { return m_column; }

    /// Goes on behind the next piece.
    void follow(const QString &piece)
    {
        if (piece.isEmpty()) {
            return;
        }
        const QChar lineFeed = QLatin1Char('\n');
        const QChar carriageReturn = QLatin1Char('\r');
        m_line += piece.count(lineFeed);
        int lineEnd = piece.lastIndexOf(lineFeed);
        if (piece.contains(carriageReturn)) {
            m_line += piece.count(carriageReturn) - piece.count(QLatin1String("\r\n"));
            lineEnd = std::max(lineEnd, piece.lastIndexOf(carriageReturn));
        }
        if (m_isBehindReturn && piece.startsWith(lineFeed)) {
            --m_line;
        }
        m_isBehindReturn = piece.endsWith(carriageReturn);
        m_column = lineEnd < 0 ? m_column + piece.size() : piece.size() - lineEnd;
    }

private:
    int m_line = 1;
    int m_column = 1;
    bool m_isBehindReturn = false;
};

} // namespace Tobrix::Templates
