#pragma once

#include <QString>

#include <vector>

namespace Tobrix::Templates {

/// A place in a file as people count it: from 1, in characters.
struct Place
{
    int line = 1;
    int column = 1;
};

/// Turns offsets into a file's text into places, and back.
class SourcePlaces
{
public:
    explicit SourcePlaces(const QString &source);

    Place placeOf(int offset) const;

    /// The offset of a place that a parser has named, which counts the halves of a character outside of the
    /// basic plane apart.
    int offsetOf(int line, int column) const;

private:
    int charactersBefore(int offset) const;

    const QString m_source;
    std::vector<int> m_lineStarts;
    std::vector<int>
        m_charactersBeforeBlocks; // of a fixed size, so that a long line need not be counted anew
};

} // namespace Tobrix::Templates
