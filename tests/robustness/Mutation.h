#pragma once

#include <QByteArray>
#include <QRandomGenerator>

#include <algorithm>

/// A document in which a few things went wrong as chance will have it, the same for the same seed: bytes
/// changed, pieces lost, doubled, or taken over from another document.
class Mutation
{
public:
    Mutation(quint32 seed, const QByteArray &document, const QByteArray &otherDocument)
        : m_random(seed), m_bytes(document), m_other(otherDocument)
    {
        const int changes = below(6) + 1;
        for (int i = 0; i < changes; ++i) {
            change();
        }
    }

    const QByteArray &bytes() const { return m_bytes; }

private:
    struct Piece
    {
        int position;
        int size;
    };

    int below(int limit) { return limit > 0 ? m_random.bounded(limit) : 0; }

    Piece pieceOf(const QByteArray &bytes)
    {
        constexpr int longestPiece = 200;
        const int position = below(bytes.size() + 1);
        return {position, below(std::min(longestPiece, bytes.size() - position) + 1)};
    }

    void change()
    {
        static const QByteArray markup("<>/&;\"'=!?-[]%# \n:\0\xff\xc3\xed", 22);
        const Piece piece = pieceOf(m_bytes);
        switch (below(6)) {
        case 0:
            m_bytes.replace(piece.position, 1, QByteArray(1, static_cast<char>(below(256))));
            break;
        case 1:
            m_bytes.replace(piece.position, 1, QByteArray(1, markup.at(below(markup.size()))));
            break;
        case 2:
            m_bytes.insert(piece.position, markup.at(below(markup.size())));
            break;
        case 3:
            m_bytes.remove(piece.position, piece.size);
            break;
        case 4:
            m_bytes.insert(below(m_bytes.size() + 1), m_bytes.mid(piece.position, piece.size));
            break;
        default: {
            const Piece taken = pieceOf(m_other);
            m_bytes.insert(piece.position, m_other.mid(taken.position, taken.size));
        }
        }
    }

    QRandomGenerator m_random;
    QByteArray m_bytes;
    const QByteArray m_other;
};
