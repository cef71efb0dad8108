#pragma once

#include "xml/TextPlace_p.h"
#include "xml/XmlGuard_p.h"

#include <QBuffer>

#include <memory>
#include <vector>

class QTextCodec;
class QTextDecoder;

namespace Tobrix::Templates {

/// The bytes of a template file on their way into one of Qt's parsers. They end where a limit is exceeded.
class GuardedMarkup : public QBuffer
{
public:
    /// Opens the bytes for reading.
    explicit GuardedMarkup(const QByteArray &bytes);
    ~GuardedMarkup() override;

    /// The limit of bytes, in words.
    static QString excessOfSize();

    /// The limit that is exceeded, in words; empty when none was as far as the bytes have been read.
    QString excess() const { return m_excess; }
    /// Where it is exceeded: line and column, from 1.
    int excessLine() const { return placeAfter(m_followed).line(); }
    int excessColumn() const { return placeAfter(m_followed).column(); }

    /// Whether a parser found a fault before the place where the limit is exceeded: the excess is only a
    /// consequence of the fault then, of a missing quote for example.
    /// @param line where the parser stopped, from 1; 0 when it found no fault
    /// @param column where the parser stopped, from 1
    bool isFaultBeforeExcess(int line, int column) const;

protected:
    qint64 readData(char *data, qint64 maxSize) override;

private:
    TextPlace placeAfter(qint64 followed) const;
    void decodeWith(const QTextCodec &codec);
    void holdBackDocumentType(const QByteArray &beginning);
    qint64 takeBytes(char *data, qint64 maxSize);
    qint64 takeHeldBack(char *data, qint64 maxSize);
    qint64 follow(const QByteArray &chunk);
    qint64 followEncoded(const QByteArray &chunk);
    qint64 followPlain(const QByteArray &chunk);
    void chooseDecoder(const QByteArray &beginning);
    void requireAllWithin(const std::vector<const QTextCodec *> &codecs);

    XmlGuard m_guard;
    const QTextCodec *m_codec;
    std::unique_ptr<QTextDecoder> m_decoder;
    bool m_isChosen = false;
    bool m_isFollowed = true;
    bool m_isPlain = true; // whether markup is ASCII in the bytes
    qint64 m_taken = 0;
    QByteArray m_heldBack;
    QString m_excess;
    // Bytes: of the file where markup is ASCII in it, else of its text in UTF-8.
    qint64 m_followed = 0;
    qint64 m_given = 0; // m_followed may be ahead of it by what is held back
};

} // namespace Tobrix::Templates
