#pragma once

#include "xml/TextPlace_p.h"
#include "xml/XmlGuard_p.h"

#include <QFile>

#include <memory>

class QTextDecoder;

namespace Tobrix::Templates {

/// A template file on its way into an XML parser. Only regular files and Qt resources are opened: whatever
/// else a path names (a folder, a pipe, a device) could block the host's thread for ever. What is read from
/// it is within the limits of templates: where something is too much, the file is at its end.
class GuardedFile : public QFile
{
public:
    /// @param leftOut is not handed to the parser, which is faster without it
    explicit GuardedFile(SpareWhiteSpace leftOut = SpareWhiteSpace::None);
    ~GuardedFile() override;

    /// Closes the file that was open and opens another one for reading.
    /// @return false when there is nothing to read under that path
    bool openTemplate(const QString &path);
    /// Goes back to the beginning of the file that is open, of which nothing is left out from now on.
    void restartWhole();
    /// All bytes of the file that is open, for whoever knows that nothing in it is too much. Nothing can be
    /// read from it after that.
    QByteArray unguarded();

    /// What is too much in the file, in words; empty when nothing was as far as the file has been read.
    QString excess() const { return m_excess; }
    /// The line and the column, from 1, in which it is too much. Known only where nothing is left out.
    int excessLine() const { return m_place.line(); }
    int excessColumn() const { return m_place.column(); }

    /// Whether a parser has found a fault before the place where something is too much: what it seems to have
    /// too much of comes of the fault then, a missing quote perhaps. Known only where nothing is left out.
    /// @param line where the parser stopped, from 1; 0 when it found nothing wrong
    /// @param column where the parser stopped, from 1
    bool isFaultBeforeExcess(int line, int column) const;

protected:
    qint64 readData(char *data, qint64 maxSize) override;

private:
    bool openRegular(const QString &path);
    void start(SpareWhiteSpace leftOut);
    void holdBackDocumentType(const QByteArray &beginning);
    qint64 takeHeldBack(char *data, qint64 maxSize);
    qint64 follow(char *data, qint64 size);
    qint64 followEncoded(const QByteArray &chunk);
    qint64 followPlain(char *data, qint64 size);
    qint64 leaveOutWhiteSpace(char *data, qint64 size) const;
    void countGiven(qint64 size);
    void requireSize(qint64 size);
    void chooseDecoder(const QByteArray &beginning);

    const SpareWhiteSpace m_leftOut;
    bool m_isWhole = true;
    XmlGuard m_guard;
    std::unique_ptr<QTextDecoder> m_decoder;
    bool m_isPlain = true; // whether markup stands in ASCII in the bytes
    qint64 m_size = 0;
    QByteArray m_heldBack;
    QString m_excess;
    TextPlace m_place;
    // What is too much may be held back, together with much that stands before it.
    TextPlace m_givenPlace;
};

} // namespace Tobrix::Templates
