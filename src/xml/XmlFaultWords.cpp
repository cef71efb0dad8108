#include "xml/XmlFaultWords_p.h"

#include "xml/SourcePlaces_p.h"
#include "xml/XmlTree_p.h"

#include <algorithm>

namespace Tobrix::Templates {

namespace {

/// The name in the tag at a place, shortened.
QString nameInTag(const QString &source, int tagAt)
{
    constexpr int longest = 64;
    const auto begin =
        source.cbegin() + tagAt + (source.midRef(tagAt).startsWith(QLatin1String("</")) ? 2 : 1);
    const auto end = std::find_if(begin, source.cend(), [](QChar c) {
        return c.isSpace() || c == QLatin1Char('>') || c == QLatin1Char('/') || c == QLatin1Char('<');
    });
    const QString name(&*begin, static_cast<int>(end - begin));
    return name.size() > longest ? name.left(longest) + QChar(0x2026) : name;
}

QString lineOf(const SourcePlaces &places, int at)
{
    return QString::number(places.placeOf(at).line);
}

} // namespace

QString wordsForFault(const XmlTree &document, const SourcePlaces &places, int faultAt)
{
    // Text from entities is not in the tree.
    if (faultAt != document.brokenAt() || document.unfollowedDocumentType() >= 0) {
        return QString();
    }
    const QString &source = document.source();
    const XmlUnfinished &unfinished = document.unfinished();
    if (faultAt == source.size()) {
        return unfinished.isNull() ? QString()
                                   : QStringLiteral("%1 of line %2 is not closed")
                                         .arg(unfinished.words, lineOf(places, unfinished.at));
    }
    const int open = document.openWhereBroken();
    if (open < 0 || !source.midRef(faultAt).startsWith(QLatin1String("</"))) {
        return QString();
    }
    const int openAt = document.node(open).at;
    return QStringLiteral("</%1> does not match <%2>, which was opened in line %3")
        .arg(nameInTag(source, faultAt), nameInTag(source, openAt), lineOf(places, openAt));
}

} // namespace Tobrix::Templates
