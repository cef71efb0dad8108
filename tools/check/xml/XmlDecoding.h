#pragma once

class QByteArray;
class QString;

namespace Tobrix::Tools {

/// The text of an XML file, in the encoding that its first bytes or its declaration name; UTF-8 where they
/// name none. A byte-order mark is no part of it.
QString decodedXml(const QByteArray &bytes);

} // namespace Tobrix::Tools
