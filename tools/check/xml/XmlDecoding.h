#pragma once

class QByteArray;
class QString;

namespace Tobrix::Tools {

/// The text of an XML file, in the encoding that its first bytes or its declaration name; UTF-8 where they
/// name none. A byte-order mark is no part of it.
QString decodedXml(const QByteArray &bytes);

/// The place in that text of the first bytes that stand for no character in its encoding; its end when all
/// stand for one.
int undecodableAt(const QByteArray &bytes);

} // namespace Tobrix::Tools
