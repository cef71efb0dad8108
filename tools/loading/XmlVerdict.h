#pragma once

#include <QString>

class QDomDocument;
class QIODevice;
class QXmlStreamReader;

namespace Tobrix::Tools {

/// What a parser says about a file.
struct XmlVerdict
{
    bool isWellFormed = true;
    int line = 0;        ///< where it stopped, from 1
    int column = 0;      ///< in halves of characters, from 1
    QString explanation; ///< as the end of a sentence
};

/// Judges a file by the parser that the current format's reader uses, and keeps what that makes of it.
XmlVerdict judgeByDom(QIODevice &file, QDomDocument &document);

/// Judges what the parser that the legacy format's reader uses has come to.
XmlVerdict verdictOf(const QXmlStreamReader &xml);

/// Judges a file by the parser that the legacy format's reader uses.
XmlVerdict judgeByStream(QIODevice &file);

} // namespace Tobrix::Tools
