#pragma once

#include "xml/XmlDocument_p.h"
#include "xml/XmlLimits_p.h"

#include <array>
#include <vector>

namespace Tobrix::Templates {

/// Fills a document in one pass over the bytes of a file, without recursion. It reads only what it is certain
/// of: everything that Qt's parser of the dialect could report in another way is refused, and so is every
/// fault and every excess.
class XmlStrictParser
{
public:
    explicit XmlStrictParser(XmlDocument &document);

    /// @return None when the document was filled; else it holds nothing of use
    XmlRefusal parse(const QByteArray &bytes);

private:
    struct OpenElement
    {
        const char *name;
        std::size_t nameSize;
        quint32 node;
        std::size_t bindings; // of namespace prefixes, before the element
    };

    struct Name
    {
        const char *begin = nullptr;
        const char *end = nullptr;
        const char *colon = nullptr;

        const char *local() const { return colon ? colon + 1 : begin; }
        std::size_t size() const { return static_cast<std::size_t>(end - begin); }
        bool is(const char *text, std::size_t textSize) const;
    };

    struct KnownName
    {
        const char *begin = nullptr;
        std::size_t size = 0;
        qint64 lastUse = -1;   ///< the last attribute of that name
        quint32 successor = 0; ///< the name that came after it the last time: markup repeats itself
    };

    bool decode(const QByteArray &bytes);
    bool decodeWith(const QByteArray &bytes, const QByteArray &encoding);
    bool parseDeclaration(const char *&at, QByteArray &encoding);
    bool requireCharacters();
    bool requireUtf8();

    // Each takes the place of a construct and gives the place after it, null when it is refused.
    const char *parseMarkup(const char *at);
    const char *parseText(const char *at);
    const char *parseStartTag(const char *at);
    const char *parseAttribute(const char *at);
    const char *parseEndTag(const char *at);
    const char *parseComment(const char *at);
    const char *parseCData(const char *at);
    const char *parseInstruction(const char *at);
    const char *parseName(const char *at, Name &name);
    const char *parseReference(const char *at);
    const char *parseValue(const char *at, XmlDocument::Attribute &attribute);

    const char *refuse(XmlRefusal refusal);
    bool reject(XmlRefusal refusal);
    void push(XmlDocument::Node::Kind kind, const char *begin, const char *end, unsigned char flags);
    bool isDroppedRun(const char *begin, const char *end) const;
    void pushText(const char *begin, const char *end, bool hasReferences, bool hasReturns, bool isBlank);
    bool keepAttribute(const Name &name, XmlDocument::Attribute attribute);
    bool bindPrefix(const Name &name, const XmlDocument::Attribute &value);
    bool isBound(const Name &name) const;
    bool arePrefixesSound(const Name &element);
    void closeElement();
    quint32 numberOf(const char *name, std::size_t size);
    quint32 find(const char *name, std::size_t size);
    quint32 offsetOf(const char *at) const { return static_cast<quint32>(at - m_begin); }

    XmlDocument &m_document;
    const bool m_isStream;
    const char *m_begin = nullptr;
    const char *m_end = nullptr;
    XmlRefusal m_refusal = XmlRefusal::None;

    std::array<OpenElement, Limits::depth> m_open = {};
    std::size_t m_depth = 0;
    bool m_hasRoot = false;
    // Since the last start tag.
    bool m_hasText = false;
    bool m_hasEnd = false;

    std::vector<quint16> m_slots; // of a hash table: indexes into the names
    // By number. The one of number 0 is none.
    std::vector<KnownName> m_names;
    quint32 m_last = 0;
    quint32 m_expected = 0;
    std::vector<Name> m_bindings; // prefixes in scope
    std::vector<Name> m_prefixed; // attributes of the current tag with a prefix
    int m_namespaceDeclarations = 0;
};

} // namespace Tobrix::Templates
