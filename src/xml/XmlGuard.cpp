#include "xml/XmlGuard_p.h"

#include "xml/XmlLimits_p.h"

#include <algorithm>
#include <cstring>

namespace Tobrix::Templates {

namespace {

bool isSpace(char c)
{
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

const char *find(char c, const char *at, const char *end)
{
    const void *found = std::memchr(at, c, static_cast<std::size_t>(end - at));
    return found ? static_cast<const char *>(found) : end;
}

} // namespace

qint64 XmlGuard::follow(const char *bytes, qint64 size)
{
    const char *at = bytes;
    const char *const end = bytes + size;
    while (at != end && m_excess.isEmpty()) {
        at = followState(at, end);
    }
    return at - bytes;
}

const char *XmlGuard::followState(const char *at, const char *end)
{
    switch (m_state) {
    case State::Text:
        return followText(at, end);
    case State::Markup:
        return followMarkup(at, end);
    case State::Declaration:
        return followDeclaration(at);
    case State::Comment:
        return followToTerminator('-', 2, at, end);
    case State::CData:
        return followToTerminator(']', 2, at, end);
    case State::Instruction:
        return followToTerminator('?', 1, at, end);
    case State::StartTag:
        return followStartTag(at, end);
    case State::AttributeValue:
        return followAttributeValue(at, end);
    case State::EndTag:
        return followEndTag(at, end);
    case State::DocumentType:
        return followDocumentType(at, end);
    }
    return end;
}

const char *XmlGuard::followText(const char *at, const char *end)
{
    at = findAfterReferences('<', at, end);
    if (at == end) {
        return at;
    }
    enter(State::Markup);
    ++at;
    return at == end ? at : followMarkup(at, end);
}

const char *XmlGuard::followMarkup(const char *at, const char *end)
{
    // Most markup is tags: these are handled first.
    switch (*at) {
    case '/':
        enter(State::EndTag);
        return followEndTag(at + 1, end);
    case '!':
        m_declaration.clear();
        enter(State::Declaration);
        return at + 1;
    case '?':
        enter(State::Instruction);
        return at + 1;
    default:
        openElement();
        return m_excess.isEmpty() ? followStartTag(at, end) : at;
    }
}

const char *XmlGuard::followDeclaration(const char *at)
{
    static const struct
    {
        QByteArray keyword;
        State state;
    } declarations[] = {{"--", State::Comment}, {"[CDATA[", State::CData}, {"DOCTYPE", State::DocumentType}};

    m_declaration += *at;
    bool isPossible = false;
    for (const auto &declaration : declarations) {
        if (m_declaration == declaration.keyword) {
            enter(declaration.state);
            if (declaration.state == State::DocumentType) {
                beginDocumentType();
            }
            return at + 1;
        }
        isPossible = isPossible || declaration.keyword.startsWith(m_declaration);
    }
    if (!isPossible) {
        // No parser accepts this. One that did would treat it as a tag.
        openElement();
    }
    return at + 1;
}

const char *XmlGuard::followToTerminator(char repeated, int count, const char *at, const char *end)
{
    for (; at != end; ++at) {
        if (*at == '>' && m_terminatorMatched >= count) {
            enter(State::Text);
            return at + 1;
        }
        m_terminatorMatched = *at == repeated ? m_terminatorMatched + 1 : 0;
    }
    return at;
}

const char *XmlGuard::followStartTag(const char *at, const char *end)
{
    if (m_previousInTag == 0) {
        at = skipElementName(at, end);
    }
    for (; at != end; ++at) {
        const char c = *at;
        if (c == '>') {
            if (m_previousInTag == '/') {
                closeElement();
            }
            enter(State::Text);
            return at + 1;
        }
        if (c == '"' || c == '\'') {
            beginAttributeValue(c);
            return at + 1;
        }
        nameAttribute(c);
        m_previousInTag = c;
    }
    return at;
}

const char *XmlGuard::skipElementName(const char *at, const char *end)
{
    const char *const begin = at;
    // Many tags of a template have only a name.
    const char *const tagEnd = find('>', at, end);
    if (tagEnd != end && find('=', at, tagEnd) == tagEnd) {
        at = tagEnd;
    } else {
        // In ASCII, letters come after all markup characters.
        while (at != end && static_cast<unsigned char>(*at) > static_cast<unsigned char>('>')) {
            ++at;
        }
    }
    m_previousInTag = at == begin ? '\0' : at[-1];
    return at;
}

const char *XmlGuard::followAttributeValue(const char *at, const char *end)
{
    at = findAfterReferences(m_quote, at, end);
    if (at == end) {
        return at;
    }
    m_state = State::StartTag;
    m_previousInTag = m_quote;
    m_isAttributeNameComplete = true;
    return at + 1;
}

const char *XmlGuard::followEndTag(const char *at, const char *end)
{
    at = find('>', at, end);
    if (at == end) {
        return at;
    }
    closeElement();
    enter(State::Text);
    return at + 1;
}

const char *XmlGuard::followDocumentType(const char *at, const char *end)
{
    for (; at != end; ++at) {
        if (isDocumentTypeAtEnd(*at)) {
            m_excess = m_documentType.read(m_documentTypeText);
            if (m_excess.isEmpty()) {
                enter(State::Text);
            }
            return at + 1;
        }
        m_documentTypeText += *at;
        require(m_documentTypeText.size() <= Limits::documentTypeSize,
                "a document type of more than %1 bytes", Limits::documentTypeSize);
        if (!m_excess.isEmpty()) {
            return at;
        }
    }
    return at;
}

bool XmlGuard::isDocumentTypeAtEnd(char c)
{
    // Quotes have no meaning in comments ('-') and instructions ('?'), and brackets in none of them.
    const auto begin = [this, c] {
        m_documentTypeQuote = c;
        m_documentTypeQuoted = m_documentTypeText.size() + 1;
    };
    const auto endBehind = [this, c](const char *terminator, int size) {
        if (c == '>' && m_documentTypeText.size() - m_documentTypeQuoted >= size &&
            m_documentTypeText.endsWith(terminator)) {
            m_documentTypeQuote = 0;
        }
    };
    switch (m_documentTypeQuote) {
    case 0:
        if (c == '"' || c == '\'' || (c == '-' && m_documentTypeText.endsWith("<!-")) ||
            (c == '?' && m_documentTypeText.endsWith('<'))) {
            begin();
        } else if (c == '[') {
            ++m_documentTypeBrackets;
        } else if (c == ']') {
            --m_documentTypeBrackets;
        }
        return c == '>' && m_documentTypeBrackets <= 0;
    case '-':
        endBehind("--", 2);
        return false;
    case '?':
        endBehind("?", 1);
        return false;
    default:
        if (c == m_documentTypeQuote) {
            m_documentTypeQuote = 0;
        }
        return false;
    }
}

const char *XmlGuard::findAfterReferences(char c, const char *at, const char *end)
{
    const char *const found = find(c, at, end);
    if (m_documentType.hasEntities()) {
        for (; at != found; ++at) {
            followReference(*at);
        }
    }
    return found;
}

void XmlGuard::followReference(char c)
{
    if (c == '&') {
        m_isInReference = true;
        m_reference.clear();
    } else if (m_isInReference && c == ';') {
        m_isInReference = false;
        const auto cost = m_documentType.costOf(m_reference);
        m_referenceCost += cost;
        require(DocumentTypeGuard::excessOf(m_referenceCost));
        require(m_depth + cost.depth <= Limits::depth, "more than %1 levels of nested elements",
                Limits::depth);
        countElements(cost.elements);
        countNamespaceDeclarations(cost.namespaceDeclarations);
    } else if (m_isInReference) {
        // A document type cannot declare a longer name.
        m_isInReference = m_reference.size() < Limits::documentTypeSize;
        m_reference += c;
    }
}

void XmlGuard::enter(State state)
{
    m_state = state;
    m_isInReference = false;
    m_terminatorMatched = 0;
}

void XmlGuard::beginDocumentType()
{
    require(!m_hasDocumentType, "more than one document type");
    m_hasDocumentType = true;
    m_documentTypeText.clear();
    m_documentTypeBrackets = 0;
    m_documentTypeQuote = 0;
}

void XmlGuard::openElement()
{
    enter(State::StartTag);
    m_previousInTag = 0;
    m_attributes = 0;
    m_attributeNameSize = 0;
    m_isAttributeNameComplete = false;
    ++m_depth;
    m_deepest = std::max(m_deepest, m_depth);
    require(m_depth <= Limits::depth, "more than %1 levels of nested elements", Limits::depth);
    countElements(1);
}

void XmlGuard::closeElement()
{
    m_isClosedTooOften = m_isClosedTooOften || m_depth == 0;
    m_depth = std::max(0, m_depth - 1);
}

void XmlGuard::countElements(qint64 elements)
{
    m_elements += elements;
    require(m_elements * m_documentType.defaultAttributes() <= Limits::defaultedAttributes &&
                m_elements * m_documentType.defaultCharacters() <= Limits::defaultedCharacters,
            "too many attributes by the defaults of the document type");
    countNamespaceDeclarations(elements * m_documentType.defaultNamespaceDeclarations());
}

void XmlGuard::countNamespaceDeclarations(qint64 declarations)
{
    m_namespaceDeclarations += declarations;
    require(m_namespaceDeclarations <= Limits::namespaceDeclarations, "more than %1 namespace declarations",
            Limits::namespaceDeclarations);
}

void XmlGuard::nameAttribute(char c)
{
    if (isSpace(c)) {
        m_isAttributeNameComplete = true;
    } else if (c != '=') {
        if (m_isAttributeNameComplete) {
            m_isAttributeNameComplete = false;
            m_attributeNameSize = 0;
        }
        if (m_attributeNameSize < m_attributeName.size()) {
            m_attributeName[m_attributeNameSize++] = c;
        }
    }
}

void XmlGuard::beginAttributeValue(char quote)
{
    m_state = State::AttributeValue;
    m_quote = quote;
    ++m_attributes;
    require(m_attributes <= Limits::attributesOfElement, "more than %1 attributes on one element",
            Limits::attributesOfElement);
    constexpr std::array<char, 5> namespacePrefix = {'x', 'm', 'l', 'n', 's'};
    if (m_attributeNameSize == namespacePrefix.size() && m_attributeName == namespacePrefix) {
        countNamespaceDeclarations(1);
    }
}

void XmlGuard::require(const QString &excess)
{
    if (m_excess.isEmpty()) {
        m_excess = excess;
    }
}

void XmlGuard::require(bool isWithinLimit, const char *excess, int limit)
{
    if (!isWithinLimit && m_excess.isEmpty()) {
        m_excess = limit > 0 ? QString::fromLatin1(excess).arg(limit) : QString::fromLatin1(excess);
    }
}

} // namespace Tobrix::Templates
