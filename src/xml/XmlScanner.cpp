#include "xml/XmlScanner_p.h"

#include <QRegularExpression>

#include <algorithm>

namespace Tobrix::Templates {

namespace {

bool isSpace(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\t') ||
           c == QLatin1Char('\r');
}

bool beginsName(QChar c)
{
    return c.isLetter() || c.isSurrogate() || c == QLatin1Char('_') || c == QLatin1Char(':');
}

bool endsName(QChar c)
{
    if (c > QLatin1Char('>')) {
        return false; // the common case
    }
    return isSpace(c) || c == QLatin1Char('>') || c == QLatin1Char('/') || c == QLatin1Char('=') ||
           c == QLatin1Char('<') || c == QLatin1Char('"') || c == QLatin1Char('\'');
}

/// The name of an unfinished construct, in words.
QString wordsFor(XmlNode::Kind kind)
{
    switch (kind) {
    case XmlNode::Comment:
        return QStringLiteral("a comment");
    case XmlNode::CData:
        return QStringLiteral("a CDATA section");
    default:
        return QStringLiteral("an instruction");
    }
}

QStringView withoutPrefix(QStringView name)
{
    return name.mid(name.indexOf(QLatin1Char(':')) + 1);
}

} // namespace

void XmlScanner::scan()
{
    // In real templates, nodes are rarely closer together.
    constexpr int charactersOfANode = 12;
    m_tree.m_nodes.reserve(static_cast<std::size_t>(m_size / charactersOfANode));
    while (m_at < m_size) {
        const int markup = m_source.indexOf(QLatin1Char('<'), m_at);
        scanText(markup < 0 ? m_size : markup);
        if (m_at < m_size) {
            scanMarkup();
        }
    }
    breakIf(!m_open.empty() || m_tree.m_nodes.empty(), m_size);
    for (const int open : m_open) {
        XmlNode &element = m_tree.m_nodes[static_cast<std::size_t>(open)];
        element.end = m_tree.size();
    }
    if (m_tree.m_unfinished.isNull() && !m_open.empty()) {
        const XmlElement innermost(m_tree, m_open.back());
        m_tree.m_unfinished = {QStringLiteral("<%1>").arg(innermost.name()), innermost.at()};
    }
}

void XmlScanner::scanText(int end)
{
    if (!m_open.empty()) {
        if (m_tree.m_dialect == XmlDialect::Stream && m_tree.m_hasExternalSubset) {
            splitText(end);
        }
        pushText(XmlNode::Text, end);
    } else if (const int stray = strayTextBefore(end); stray < end) {
        breakIf(true, stray);
    }
    m_at = end;
}

void XmlScanner::pushText(XmlNode::Kind kind, int end)
{
    if (end > m_at) {
        XmlNode text;
        text.kind = kind;
        text.at = m_at;
        text.contentAt = m_at;
        text.contentSize = end - m_at;
        push(text);
    }
    m_at = end;
}

void XmlScanner::splitText(int end)
{
    const int textAt = m_at;
    const QStringView text = QStringView(m_source).mid(textAt, end - textAt);
    qsizetype begin = text.indexOf(QLatin1Char('&'));
    while (begin >= 0) {
        const qsizetype semicolon = text.indexOf(QLatin1Char(';'), begin);
        if (semicolon < 0) {
            return;
        }
        if (m_tree.isUnknownEntity(text.mid(begin + 1, semicolon - begin - 1))) {
            pushText(XmlNode::Text, textAt + static_cast<int>(begin));
            pushText(XmlNode::Reference, textAt + static_cast<int>(semicolon) + 1);
        }
        begin = text.indexOf(QLatin1Char('&'), semicolon);
    }
}

int XmlScanner::strayTextBefore(int end) const
{
    int at = m_open.empty() ? m_at : end;
    while (at < end && isSpace(m_source.at(at))) {
        ++at;
    }
    return at;
}

void XmlScanner::scanMarkup()
{
    const QChar second = m_at + 1 < m_size ? m_source.at(m_at + 1) : QChar();
    if (second == QLatin1Char('/')) {
        scanEndTag();
    } else if (second == QLatin1Char('?')) {
        breakIf(m_at > 0 && isHere(QLatin1String("<?xml ")), m_at);
        scanTo(QLatin1String("?>"), XmlNode::Instruction, 2);
    } else if (second != QLatin1Char('!')) {
        scanStartTag();
    } else if (isHere(QLatin1String("<!--"))) {
        scanTo(QLatin1String("-->"), XmlNode::Comment, 4);
    } else if (isHere(QLatin1String("<![CDATA["))) {
        scanTo(QLatin1String("]]>"), XmlNode::CData, 9);
    } else {
        scanDocumentType();
    }
}

void XmlScanner::scanTo(QLatin1String terminator, XmlNode::Kind kind, int openingSize)
{
    XmlNode node;
    node.kind = kind;
    node.contentAt = m_at + openingSize;
    node.at = kind == XmlNode::CData ? node.contentAt : m_at;
    const int found = m_source.indexOf(terminator, node.contentAt);
    const int end = found < 0 ? m_size : found;
    if (found < 0) {
        m_tree.m_unfinished = {wordsFor(kind), m_at};
        breakIf(true, m_size);
    }
    if (kind == XmlNode::Comment) {
        const int dashes = m_source.indexOf(QLatin1String("--"), node.contentAt);
        breakIf(dashes >= 0 && dashes < end, dashes);
    }
    node.contentSize = qMax(0, end - node.contentAt);
    if (!m_open.empty()) {
        push(node);
    }
    m_at = found < 0 ? m_size : end + terminator.size();
}

void XmlScanner::scanStartTag()
{
    breakIf(m_open.empty() && !m_tree.m_nodes.empty(), m_at); // a second root
    XmlNode element;
    element.at = m_at++;
    breakIf(m_at < m_size && !beginsName(here()), element.at);
    element.contentAt = m_at;
    QStringView name = takeName();
    if (m_tree.m_dialect == XmlDialect::Stream) {
        const QStringView local = withoutPrefix(name);
        element.contentAt += static_cast<int>(name.size() - local.size());
        name = local;
    }
    element.contentSize = static_cast<int>(name.size());
    element.name = numberOf(name);
    element.firstAttribute = static_cast<int>(m_tree.m_attributes.size());
    push(element);
    m_open.push_back(m_tree.size() - 1);
    scanAttributes();

    XmlNode &pushed = m_tree.m_nodes.back();
    pushed.attributeCount = static_cast<int>(m_tree.m_attributes.size()) - pushed.firstAttribute;
    if (here() == QLatin1Char('/')) {
        ++m_at;
        m_open.pop_back();
    }
    const int end = m_source.indexOf(QLatin1Char('>'), m_at);
    m_at = end < 0 ? m_size : end + 1;
}

void XmlScanner::scanAttributes()
{
    for (skipSpace(); m_at < m_size; skipSpace()) {
        XmlAttribute attribute;
        attribute.at = m_at;
        attribute.nameSize = static_cast<int>(takeName().size());
        skipSpace();
        if (attribute.nameSize == 0 || here() != QLatin1Char('=')) {
            breakIf(m_at < m_size && attribute.nameSize > 0, attribute.at);
            return;
        }
        ++m_at;
        skipSpace();
        const QChar quote = here();
        if (quote != QLatin1Char('"') && quote != QLatin1Char('\'')) {
            breakIf(m_at < m_size, attribute.at);
            return;
        }
        attribute.valueAt = m_at + 1;
        const int end = m_source.indexOf(quote, attribute.valueAt);
        attribute.valueSize = (end < 0 ? m_size : end) - attribute.valueAt;
        m_at = end < 0 ? m_size : end + 1;
        m_tree.m_attributes.push_back(attribute);
    }
}

void XmlScanner::scanEndTag()
{
    const int at = m_at;
    m_at += 2;
    QStringView name = takeName();
    if (m_tree.m_dialect == XmlDialect::Stream) {
        name = withoutPrefix(name);
    }
    const int end = m_source.indexOf(QLatin1Char('>'), m_at);
    m_at = end < 0 ? m_size : end + 1;
    breakIf(end < 0, m_size);
    breakIf(m_open.empty(), at);
    if (m_open.empty()) {
        return;
    }
    XmlNode &element = m_tree.m_nodes[static_cast<std::size_t>(m_open.back())];
    breakIf(QStringView(m_source).mid(element.contentAt, element.contentSize) != name, at);
    element.end = m_tree.size();
    m_open.pop_back();
}

void XmlScanner::scanDocumentType()
{
    const int begin = m_at;
    int brackets = 0;
    for (; m_at < m_size; ++m_at) {
        const QChar c = m_source.at(m_at);
        if (isHere(QLatin1String("<!--"))) {
            skipTo(QLatin1String("-->"), 4);
        } else if (isHere(QLatin1String("<?"))) {
            skipTo(QLatin1String("?>"), 2);
        } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            skipTo(c == QLatin1Char('"') ? QLatin1String("\"") : QLatin1String("'"), 1);
        } else if (c == QLatin1Char('[')) {
            ++brackets;
        } else if (c == QLatin1Char(']')) {
            --brackets;
        } else if (c == QLatin1Char('>') && brackets <= 0) {
            break;
        }
    }
    readEntities(QStringView(m_source).mid(begin, m_at - begin), begin);
    m_at = qMin(m_size, m_at + 1);
}

void XmlScanner::skipTo(QLatin1String terminator, int openingSize)
{
    const int end = m_source.indexOf(terminator, m_at + openingSize);
    m_at = end < 0 ? m_size : end + terminator.size() - 1;
}

void XmlScanner::readEntities(QStringView documentType, int at)
{
    static const QRegularExpression comments(QStringLiteral("<!--.*?-->"),
                                             QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression plainEntity(
        QStringLiteral("<!ENTITY\\s+([^\\s%\"'>]+)\\s+(?:\"([^\"<%]*)\"|'([^'<%]*)')\\s*>"));
    QString declarations = documentType.toString();
    declarations.remove(comments);
    auto matches = plainEntity.globalMatch(declarations);
    int plainDeclarations = 0;
    bool hasCharacterReference = false;
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString text = match.captured(2) + match.captured(3);
        // A character from a reference in it may be markup.
        hasCharacterReference = hasCharacterReference || text.contains(QLatin1String("&#"));
        if (!m_tree.m_entities.contains(match.captured(1))) {
            m_tree.m_entities.insert(match.captured(1), text);
        }
        ++plainDeclarations;
    }
    static const QRegularExpression externalSubset(
        QStringLiteral("^<!DOCTYPE\\s+[^\\s\\[\"'>]+\\s+(?:SYSTEM|PUBLIC)\\s"));
    m_tree.m_hasExternalSubset = externalSubset.match(declarations).hasMatch();
    const bool isPlain = declarations.count(QLatin1String("<!ENTITY")) == plainDeclarations &&
                         !hasCharacterReference && !declarations.contains(QLatin1String("<!ATTLIST")) &&
                         !hasDividedEntity();
    if (!isPlain) {
        m_tree.m_unfollowedDocumentType = at;
    }
}

bool XmlScanner::hasDividedEntity() const
{
    if (m_tree.m_dialect != XmlDialect::Stream || !m_tree.m_hasExternalSubset) {
        return false;
    }
    static const QRegularExpression reference(QStringLiteral("&([^;]*);"));
    return std::any_of(m_tree.m_entities.cbegin(), m_tree.m_entities.cend(), [this](const QString &text) {
        auto matches = reference.globalMatch(text);
        while (matches.hasNext()) {
            if (m_tree.isUnknownEntity(matches.next().capturedView(1))) {
                return true;
            }
        }
        return false;
    });
}

void XmlScanner::skipSpace()
{
    while (m_at < m_size && isSpace(m_source.at(m_at))) {
        ++m_at;
    }
}

QStringView XmlScanner::takeName()
{
    const int begin = m_at;
    while (m_at < m_size && !endsName(m_source.at(m_at))) {
        ++m_at;
    }
    return QStringView(m_source).mid(begin, m_at - begin);
}

int XmlScanner::numberOf(QStringView name)
{
    const int next = static_cast<int>(m_tree.m_names.size());
    const auto [found, isNew] = m_tree.m_numbers.emplace(name, next);
    if (isNew) {
        m_tree.m_names.push_back(name.toString());
    }
    return found->second;
}

void XmlScanner::push(XmlNode node)
{
    node.parent = m_open.empty() ? -1 : m_open.back();
    node.end = m_tree.size() + 1;
    m_tree.m_nodes.push_back(node);
}

void XmlScanner::breakIf(bool isBroken, int at)
{
    if (isBroken && m_tree.m_brokenAt < 0) {
        m_tree.m_brokenAt = at;
        m_tree.m_openWhereBroken = m_open.empty() ? -1 : m_open.back();
    }
}

} // namespace Tobrix::Templates
