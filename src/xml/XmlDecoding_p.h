#pragma once

#include <QString>

class QByteArray;

namespace Tobrix::Templates {

/// The encoding given by a byte order mark or by the width of "<" in the first bytes; empty for ASCII and its
/// supersets.
QByteArray wideEncoding(const QByteArray &bytes);

/// The text of an XML file without byte order mark, decoded by its first bytes or its declaration; UTF-8 by
/// default.
QString decodedXml(const QByteArray &bytes);

/// The offset in that text of the first bytes that are invalid in its encoding; the end of the text when all
/// are valid.
int undecodableAt(const QByteArray &bytes);

/// Bytes of a file that are invalid in its encoding, and are replaced when it is decoded.
struct Undecodable
{
    QString encoding;
    int at = -1; ///< offset of the first of them in the text
    int count = 0;

    bool isNull() const { return count == 0; }
};

Undecodable undecodableOf(const QByteArray &bytes);

} // namespace Tobrix::Templates
