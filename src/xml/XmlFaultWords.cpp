#include "xml/XmlFaultWords_p.h"

#include "xml/SourcePlaces_p.h"
#include "xml/XmlDecoding_p.h"
#include "xml/XmlDocument_p.h"
#include "xml/XmlTree_p.h"

#include <algorithm>

namespace Tobrix::Templates {

namespace {

/// The name in the tag at a place, in brief.
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

} // namespace

QString explanationOf(const XmlDocument &document, const QByteArray &bytes)
{
    const XmlTree tree(decodedXml(bytes), document.dialect());
    const QString &source = tree.source();
    const SourcePlaces places(source);
    const Place fault = document.placeOfFault();
    const int brokenAt = tree.brokenAt();
    const Place broken = places.placeOf(brokenAt);
    if (brokenAt < 0 || tree.unfollowedDocumentType() >= 0 || broken.line != fault.line ||
        broken.column != fault.column) {
        return document.fault().explanation;
    }
    const XmlUnfinished &unfinished = tree.unfinished();
    if (brokenAt == source.size() && !unfinished.isNull()) {
        const QString line = QString::number(places.placeOf(unfinished.at).line);
        return QStringLiteral("%1 of line %2 is not closed").arg(unfinished.words, line);
    }
    const int open = tree.openWhereBroken();
    if (open >= 0 && source.midRef(brokenAt).startsWith(QLatin1String("</"))) {
        const int openAt = tree.node(open).at;
        return QStringLiteral("</%1> does not match <%2>, which was opened in line %3")
            .arg(nameInTag(source, brokenAt), nameInTag(source, openAt),
                 QString::number(places.placeOf(openAt).line));
    }
    return document.fault().explanation;
}

} // namespace Tobrix::Templates
