#pragma once

#include <QString>

#include <vector>

namespace Tobrix::Templates {

/// A place in a file: line and column from 1, in characters.
struct Place
{
    int line = 1;
    int column = 1;
};

/// Converts offsets into a file's text to places, and back.
class SourcePlaces
{
public:
    explicit SourcePlaces(const QString &source);

    Place placeOf(int offset) const;

    /// The offset of a place as a parser reports it, in UTF-16 units.
    int offsetOf(int line, int column) const;

private:
    int charactersBefore(int offset) const;

    const QString m_source;
    std::vector<int> m_lineStarts;
    std::vector<int> m_charactersBeforeBlocks; // of a fixed size, so that a long line is not counted again
};

} // namespace Tobrix::Templates
