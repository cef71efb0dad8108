#pragma once

#include <QHash>
#include <QRandomGenerator>
#include <QString>
#include <QStringView>

namespace Tobrix::Templates {

/// Shares texts that a template repeats in many columns or lists: tables, units, formats, items. A file
/// cannot cause hash collisions. A pool serves one reading of one file.
class TextPool
{
public:
    /// The shared copy of a text, without spare capacity.
    QString shared(QStringView text)
    {
        if (text.isEmpty()) {
            return text.isNull() ? QString() : QString(QLatin1String(""));
        }
        const uint hash = hashOf(text);
        const auto found = m_texts.constFind({text, hash});
        if (found != m_texts.cend()) {
            return *found;
        }
        const QString own(text.data(), static_cast<int>(text.size()));
        m_texts.insert({QStringView(own), hash}, own);
        return own;
    }

    /// Whether a text is in the pool. The empty one always is: it needs no copy.
    bool contains(QStringView text) const { return text.isEmpty() || m_texts.contains({text, hashOf(text)}); }

    void clear() { m_texts.clear(); }

private:
    // The keys are views of the values.
    struct Key
    {
        QStringView text;
        uint hash;

        bool operator==(const Key &other) const { return text == other.text; }
        friend uint qHash(const Key &key, uint seed) { return key.hash ^ seed; }
    };

    /// Polynomial hash, three characters at a time, at a random point modulo a prime. Qt's own hash is
    /// linear, so that a file could contain any number of colliding texts.
    uint hashOf(QStringView text) const
    {
        constexpr int primeBits = 61;
        constexpr quint64 prime = (quint64(1) << primeBits) - 1;
        constexpr qsizetype step = 3;
        __extension__ using Product = unsigned __int128;

        auto hash = static_cast<quint64>(text.size());
        for (qsizetype i = 0; i < text.size(); i += step) {
            quint64 characters = 0;
            for (const QChar c : text.mid(i, step)) {
                characters = characters << 16 | c.unicode();
            }
            const Product product = static_cast<Product>(hash + characters) * m_point;
            hash = (static_cast<quint64>(product) & prime) + static_cast<quint64>(product >> primeBits);
            hash = hash >= prime ? hash - prime : hash;
        }
        return static_cast<uint>(hash ^ hash >> 32);
    }

    const quint64 m_point = QRandomGenerator::global()->generate64() >> 4 | 1;
    QHash<Key, QString> m_texts;
};

} // namespace Tobrix::Templates
