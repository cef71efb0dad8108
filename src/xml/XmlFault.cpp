#include "xml/XmlFault_p.h"

#include "xml/XmlTree_p.h"

#include <QRegularExpression>

#include <algorithm>

namespace Tobrix::Templates {

namespace {

bool isXmlCharacter(uint code)
{
    const bool isControl = code < ' ' && code != '\t' && code != '\n' && code != '\r';
    const bool isNone = code == 0xFFFE || code == 0xFFFF || code > QChar::LastValidCodePoint;
    return !isControl && !isNone && !QChar::isSurrogate(code);
}

/// Finds the first fault up to the place where a parser noticed it.
class FaultSearch
{
public:
    FaultSearch(const XmlTree &document, int noticedAt)
        : m_document(document), m_isStream(document.dialect() == XmlDialect::Stream), m_at(noticedAt)
    {
    }

    int place();

private:
    void lookAtText(const XmlNode &text);
    void lookAtAttribute(const XmlNode &element, int number);
    void lookAtReferences(int at, int size);
    bool isReference(const QString &reference) const;

    /// Keeps the earliest place.
    void findAt(int at) { m_at = at >= 0 ? std::min(m_at, at) : m_at; }

    const XmlTree &m_document;
    const bool m_isStream;
    int m_at;
};

int FaultSearch::place()
{
    findAt(m_document.brokenAt());
    for (const auto &node : m_document.nodes()) {
        if (node.at > m_at) {
            break;
        }
        if (node.kind == XmlNode::Text) {
            lookAtText(node);
        }
        for (int i = 0; i < node.attributeCount; ++i) {
            lookAtAttribute(node, i);
        }
    }
    return m_at;
}

void FaultSearch::lookAtText(const XmlNode &text)
{
    lookAtReferences(text.contentAt, text.contentSize);
    const auto end =
        QStringView(m_document.source()).mid(text.contentAt, text.contentSize).indexOf(QLatin1String("]]>"));
    findAt(end < 0 ? -1 : text.contentAt + static_cast<int>(end));
}

void FaultSearch::lookAtAttribute(const XmlNode &element, int number)
{
    const XmlAttribute &attribute = m_document.attribute(element.firstAttribute + number);
    if (attribute.at > m_at) {
        return;
    }
    lookAtReferences(attribute.valueAt, attribute.valueSize);
    if (m_isStream && m_document.sameAttributeBefore(element, number)) {
        findAt(attribute.at);
    }
}

void FaultSearch::lookAtReferences(int at, int size)
{
    static const QRegularExpression reference(QStringLiteral("&(?:([^\\s&;<]+);)?"));
    auto matches = reference.globalMatch(m_document.source().mid(at, size));
    while (matches.hasNext()) {
        const auto match = matches.next();
        if (!isReference(match.captured(1))) {
            findAt(at + match.capturedStart());
            return;
        }
    }
}

bool FaultSearch::isReference(const QString &reference) const
{
    static const QRegularExpression number(QStringLiteral("^#(?:([0-9]+)|x([0-9A-Fa-f]+))$"));
    if (reference.isEmpty() || !reference.startsWith(QLatin1Char('#'))) {
        const bool isAccepted = !m_isStream || m_document.hasExternalSubset();
        return !reference.isEmpty() && (isAccepted || m_document.hasEntity(reference));
    }
    const auto match = number.match(reference);
    bool isNumber = false;
    const uint code = match.captured(2).isEmpty() ? match.captured(1).toUInt(&isNumber, 10)
                                                  : match.captured(2).toUInt(&isNumber, 16);
    return match.hasMatch() && (!m_isStream || (isNumber && isXmlCharacter(code)));
}

} // namespace

int placeOfFault(const XmlTree &document, int noticedAt)
{
    const QString &source = document.source();
    const int found = FaultSearch(document, noticedAt).place();
    if (found < noticedAt || noticedAt == source.size() || document.dialect() == XmlDialect::Dom) {
        return found;
    }
    // The stream has consumed the character that it rejects; at the end of a tag, the whole tag.
    const int taken = std::max(0, noticedAt - 1);
    const bool isEndOfTag = taken < source.size() && source.at(taken) == QLatin1Char('>');
    return isEndOfTag ? std::max(0, source.lastIndexOf(QLatin1Char('<'), taken)) : taken;
}

} // namespace Tobrix::Templates
