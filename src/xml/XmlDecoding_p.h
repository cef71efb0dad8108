#pragma once

#include <QString>

class QByteArray;

namespace Tobrix::Templates {

/// The encoding that the first bytes of a file imply, by a byte order mark or by the width of "<"; empty when
/// they imply none but ASCII and its extensions.
QByteArray wideEncoding(const QByteArray &bytes);

/// The text of an XML file, in the encoding that its first bytes or its declaration name; UTF-8 where they
/// name none. A byte order mark is no part of it.
QString decodedXml(const QByteArray &bytes);

/// The place in that text of the first bytes that stand for no character in its encoding; its end when all
/// stand for one.
int undecodableAt(const QByteArray &bytes);

/// Bytes of a file that stand for no character in its encoding, and are replaced where it is read.
struct Undecodable
{
    QString encoding;
    int at = -1; ///< the place of the first of them in the text
    int count = 0;

    bool isNull() const { return count == 0; }
};

Undecodable undecodableOf(const QByteArray &bytes);

} // namespace Tobrix::Templates
