#include "xml/XmlStrictParser_p.h"

#include "xml/XmlDecoding_p.h"

#include <QRandomGenerator>
#include <QTextCodec>

#include <algorithm>
#include <cstring>

namespace Tobrix::Templates {

namespace {

enum CharacterClass : unsigned char {
    NameStart = 1,
    NamePart = 2, // a colon as well
    Space = 4,
    PlainText = 8, // text that needs no further check
    PlainValue = 16
};

constexpr std::array<unsigned char, 256> makeClasses()
{
    std::array<unsigned char, 256> classes = {};
    for (unsigned c = 0; c < classes.size(); ++c) {
        const bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
        const bool isDigit = c >= '0' && c <= '9';
        const bool isSpace = c == ' ' || c == '\t' || c == '\n' || c == '\r';
        unsigned flags = isLetter ? NameStart | NamePart : 0;
        flags |= isDigit || c == '-' || c == '.' || c == ':' ? NamePart : 0;
        flags |= isSpace ? Space : 0;
        flags |= c != 0 && c != '<' && c != '&' && c != ']' && c != '\r' ? PlainText : 0;
        flags |= c != 0 && c != '<' && c != '&' && c != '"' && c != '\'' && (!isSpace || c == ' ')
                     ? PlainValue
                     : 0;
        classes[c] = static_cast<unsigned char>(flags);
    }
    return classes;
}

constexpr auto classes = makeClasses();

bool hasClass(char c, CharacterClass characterClass)
{
    return (classes[static_cast<unsigned char>(c)] & characterClass) != 0;
}

const char *skipSpace(const char *at)
{
    while (hasClass(*at, Space)) {
        ++at;
    }
    return at;
}

template <std::size_t Size>
bool startsWith(const char *at, const char (&text)[Size])
{
    return std::strncmp(at, text, Size - 1) == 0;
}

const char *search(const char *at, const char *end, const char *text, std::size_t size)
{
    const void *found = memmem(at, static_cast<std::size_t>(end - at), text, size);
    return static_cast<const char *>(found);
}

bool isXmlCharacter(uint code)
{
    return code == '\t' || code == '\n' || code == '\r' || (code >= ' ' && code < 0xD800) ||
           (code >= 0xE000 && code < 0xFFFE) || (code >= 0x10000 && code <= QChar::LastValidCodePoint);
}

/// Takes a character of several bytes in UTF-8.
/// @return its code; 0 for invalid bytes
uint takeCharacter(const char *&at, const char *end)
{
    const auto byteAt = [at](int i) { return static_cast<uint>(static_cast<unsigned char>(at[i])); };
    const uint first = byteAt(0);
    const int size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first >= 0xF5 || end - at < size) {
        return 0;
    }
    uint code = first & (0xFFU >> (size + 1));
    for (int i = 1; i < size; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80) {
            return 0;
        }
        code = code << 6 | (byteAt(i) & 0x3F);
    }
    constexpr uint least[] = {0, 0, 0x80, 0x800, 0x10000};
    at += size;
    return code < least[size] || QChar::isSurrogate(code) || code > QChar::LastValidCodePoint ? 0 : code;
}

/// The multiplier of the hash of names: random, so that a file cannot cause collisions.
quint64 hashMultiplier()
{
    static const quint64 multiplier = QRandomGenerator::global()->generate64() | 1;
    return multiplier;
}

template <typename Word>
quint64 load(const char *at)
{
    Word word;
    std::memcpy(&word, at, sizeof word);
    return word;
}

quint64 hashOf(const char *name, std::size_t size)
{
    const quint64 multiplier = hashMultiplier();
    quint64 hash = size;
    const auto mix = [&](quint64 word) {
        hash = (hash ^ word) * multiplier;
        hash ^= hash >> 32;
    };
    const char *const end = name + size;
    if (size >= sizeof(quint64)) {
        for (; end - name > std::ptrdiff_t(sizeof(quint64)); name += sizeof(quint64)) {
            mix(load<quint64>(name));
        }
        mix(load<quint64>(end - sizeof(quint64)));
    } else if (size >= sizeof(quint32)) {
        mix(load<quint32>(name) << 32 | load<quint32>(end - sizeof(quint32)));
    } else {
        for (; name != end; ++name) {
            mix(static_cast<unsigned char>(*name));
        }
    }
    return hash;
}

constexpr std::size_t slotCount = 1024;
constexpr std::size_t mostNames = slotCount / 2;
constexpr std::size_t longestName = 255;

} // namespace

bool XmlStrictParser::Name::is(const char *text, std::size_t textSize) const
{
    return size() == textSize && std::memcmp(begin, text, textSize) == 0;
}

XmlStrictParser::XmlStrictParser(XmlDocument &document)
    : m_document(document)
    , m_isStream(document.m_dialect == XmlDialect::Stream)
    , m_slots(slotCount)
    , m_names(1)
{
    m_document.m_names.push_back(QString());
}

XmlRefusal XmlStrictParser::parse(const QByteArray &bytes)
{
    if (!decode(bytes)) {
        return m_refusal;
    }
    const char *at = m_begin;
    QByteArray encoding;
    if (!parseDeclaration(at, encoding)) {
        return m_refusal;
    }
    while (at) {
        if (m_depth > 0) {
            at = parseText(at);
        } else {
            at = skipSpace(at);
            if (at == m_end) {
                break;
            }
        }
        if (at) {
            at =
                *at == '<' ? parseMarkup(at) : refuse(at == m_end ? XmlRefusal::Nesting : XmlRefusal::Markup);
        }
    }
    if (at && !m_hasRoot) {
        refuse(XmlRefusal::Empty);
    }
    push(XmlDocument::Node::Text, m_end, m_end, 0);
    return m_refusal;
}

const char *XmlStrictParser::refuse(XmlRefusal refusal)
{
    m_refusal = refusal;
    return nullptr;
}

bool XmlStrictParser::reject(XmlRefusal refusal)
{
    m_refusal = refusal;
    return false;
}

bool XmlStrictParser::decode(const QByteArray &bytes)
{
    if (bytes.size() > Limits::fileSize) {
        return reject(XmlRefusal::Limit);
    }
    const QByteArray wide = wideEncoding(bytes);
    if (!wide.isEmpty()) {
        m_document.m_markSize = 2;
        // Without a byte order mark the parsers detect the encoding differently.
        return wide == "UTF-16" && bytes.size() % 2 == 0 ? decodeWith(bytes, wide)
                                                         : reject(XmlRefusal::Encoding);
    }
    m_document.m_markSize = bytes.startsWith("\xef\xbb\xbf") ? 3 : 0;
    m_document.m_bytes = bytes;
    m_begin = bytes.constData() + m_document.m_markSize;
    m_end = bytes.constData() + bytes.size();
    const char *at = m_begin;
    QByteArray encoding;
    if (!parseDeclaration(at, encoding)) {
        return false;
    }
    if (encoding.isEmpty() || qstricmp(encoding.constData(), "UTF-8") == 0) {
        return requireCharacters();
    }
    const QTextCodec *const codec = QTextCodec::codecForName(encoding);
    // Single-byte encodings in which markup is ASCII.
    constexpr int singleByte[] = {4 /* ISO-8859-1 */, 111 /* ISO-8859-15 */, 2252 /* Windows-1252 */};
    const bool isKnown =
        codec && m_document.m_markSize == 0 &&
        std::find(std::begin(singleByte), std::end(singleByte), codec->mibEnum()) != std::end(singleByte);
    return isKnown ? decodeWith(bytes, encoding) : reject(XmlRefusal::Encoding);
}

bool XmlStrictParser::decodeWith(const QByteArray &bytes, const QByteArray &encoding)
{
    const QTextCodec *const codec = QTextCodec::codecForName(encoding);
    const QString text = std::unique_ptr<QTextDecoder>(codec->makeDecoder())->toUnicode(bytes);
    if (text.contains(QChar(QChar::ReplacementCharacter)) || !QStringView(text).isValidUtf16()) {
        return reject(XmlRefusal::UndecodableBytes);
    }
    m_document.m_encoding = encoding;
    // A character of one byte may have three in UTF-8.
    constexpr int longest = Limits::fileSize / 3;
    if (text.size() > longest) {
        return reject(XmlRefusal::Limit);
    }
    m_document.m_bytes = text.toUtf8();
    m_begin = m_document.m_bytes.constData();
    m_end = m_begin + m_document.m_bytes.size();
    const char *at = m_begin;
    QByteArray declared;
    if (!parseDeclaration(at, declared)) {
        return false;
    }
    if (!declared.isEmpty() && QTextCodec::codecForName(declared) != codec) {
        return reject(XmlRefusal::Encoding);
    }
    return requireCharacters();
}

bool XmlStrictParser::parseDeclaration(const char *&at, QByteArray &encoding)
{
    if (!startsWith(at, "<?xml")) {
        return true;
    }
    if (!hasClass(at[5], Space)) {
        // Another instruction whose target begins like that. Qt looks for an encoding in it all the same.
        const char *const end = search(at, m_end, "?>", 2);
        return end && search(at, end, "encoding", 8) ? reject(XmlRefusal::Declaration) : true;
    }
    const char *p = at + 5;
    // The value of the pseudo-attribute at a place; empty when it has another name.
    const auto take = [&p](const char *name) {
        const char *q = skipSpace(p);
        const std::size_t size = qstrlen(name);
        if (q == p || std::strncmp(q, name, size) != 0 || q[size] != '=' ||
            (q[size + 1] != '"' && q[size + 1] != '\'')) {
            return QByteArray();
        }
        const char *const value = q + size + 2;
        const char *end = value;
        while (hasClass(*end, NamePart) && *end != ':') {
            ++end;
        }
        if (*end != value[-1] || end == value) {
            return QByteArray();
        }
        p = end + 1;
        return QByteArray(value, static_cast<int>(end - value));
    };
    const QByteArray version = take("version");
    encoding = take("encoding");
    const QByteArray standalone = take("standalone");
    p = skipSpace(p);
    const bool isSound = version == "1.0" &&
                         (standalone.isEmpty() || standalone == "yes" || standalone == "no") &&
                         (encoding.isEmpty() || hasClass(encoding.front(), NameStart)) && startsWith(p, "?>");
    // Qt's DOM parser searches for the encoding in the first bytes only.
    constexpr int longest = 200;
    if (!isSound || p - at > longest) {
        return reject(XmlRefusal::Declaration);
    }
    at = p + 2;
    return true;
}

bool XmlStrictParser::requireCharacters()
{
    std::size_t tags = 0;
    std::size_t attributes = 0;
    unsigned char high = 0;
    unsigned char control = 0;
    // Blocks small enough for one-byte counters, so that the compiler can vectorize the loop.
    constexpr std::ptrdiff_t blockSize = 128;
    for (const char *block = m_begin; block != m_end;) {
        const char *const blockEnd = block + std::min(blockSize, m_end - block);
        unsigned char tagsInBlock = 0;
        unsigned char attributesInBlock = 0;
        for (; block != blockEnd; ++block) {
            const auto c = static_cast<unsigned char>(*block);
            high |= c;
            control |= static_cast<unsigned char>((c < ' ') & (c != '\t') & (c != '\n') & (c != '\r'));
            tagsInBlock = static_cast<unsigned char>(tagsInBlock + (c == '<'));
            attributesInBlock = static_cast<unsigned char>(attributesInBlock + (c == '='));
        }
        tags += tagsInBlock;
        attributes += attributesInBlock;
    }
    if (control != 0) {
        return reject(XmlRefusal::Character);
    }
    constexpr unsigned char highBit = 0x80;
    if ((high & highBit) != 0 && !requireUtf8()) {
        return false;
    }
    // Bounded: in a comment or a text these characters are neither tags nor attributes.
    const std::size_t most = static_cast<std::size_t>(m_end - m_begin) / sizeof(XmlDocument::Node) + 2;
    m_document.m_nodes.reserve(std::min(tags + 2, most));
    m_document.m_attributes.reserve(std::min(attributes, most));
    return true;
}

bool XmlStrictParser::requireUtf8()
{
    const char *at = m_begin;
    while (at != m_end) {
        constexpr quint64 highBits = 0x8080'8080'8080'8080;
        const bool isPlainWord =
            m_end - at >= std::ptrdiff_t(sizeof(quint64)) && (load<quint64>(at) & highBits) == 0;
        if (isPlainWord || static_cast<unsigned char>(*at) < 0x80) {
            at += isPlainWord ? sizeof(quint64) : 1;
            continue;
        }
        const uint code = takeCharacter(at, m_end);
        if (code == 0) {
            return reject(XmlRefusal::UndecodableBytes);
        }
        if (code == QChar::ByteOrderMark) {
            return reject(XmlRefusal::ByteOrderMark);
        }
        if (!isXmlCharacter(code)) {
            return reject(XmlRefusal::Character);
        }
    }
    return true;
}

const char *XmlStrictParser::parseMarkup(const char *at)
{
    switch (at[1]) {
    case '/':
        return parseEndTag(at);
    case '?':
        return parseInstruction(at);
    case '!':
        break;
    default:
        return parseStartTag(at);
    }
    if (startsWith(at, "<!--")) {
        return parseComment(at);
    }
    if (startsWith(at, "<![CDATA[")) {
        return parseCData(at);
    }
    return refuse(startsWith(at, "<!DOCTYPE") ? XmlRefusal::DocumentType : XmlRefusal::Markup);
}

void XmlStrictParser::push(XmlDocument::Node::Kind kind, const char *begin, const char *end,
                           unsigned char flags)
{
    XmlDocument::Node node;
    node.at = offsetOf(begin);
    node.extent = static_cast<quint32>(end - begin);
    node.firstAttribute = static_cast<quint32>(m_document.m_attributes.size());
    node.name = 0;
    node.kind = kind;
    node.flags = flags & 0xF;
    m_document.m_nodes.push_back(node);
}

const char *XmlStrictParser::parseText(const char *at)
{
    const char *const begin = at;
    bool hasReturns = false;
    for (; hasClass(*at, Space); ++at) {
        hasReturns |= *at == '\r';
    }
    const bool isBlank = *at == '<';
    bool hasReferences = false;
    while (*at != '<') {
        if (hasClass(*at, PlainText)) {
            ++at;
        } else if (*at == '&') {
            hasReferences = true;
            at = parseReference(at);
            if (!at) {
                return nullptr;
            }
        } else if (*at == '\0') {
            return refuse(XmlRefusal::Nesting);
        } else if (startsWith(at, "]]>")) {
            return refuse(XmlRefusal::Markup);
        } else {
            hasReturns |= *at == '\r';
            ++at;
        }
    }
    if (at != begin) {
        pushText(begin, at, hasReferences, hasReturns, isBlank);
    }
    return at;
}

/// Whether a run of text is whitespace only, with its references decoded.
bool XmlStrictParser::isDroppedRun(const char *begin, const char *end) const
{
    const char *const first = skipSpace(begin);
    const bool isPlain = *first != '&' && static_cast<unsigned char>(*first) < 0x80;
    if (first == end || isPlain) {
        return first == end;
    }
    const XmlDocument::Node &pushed = m_document.m_nodes.back();
    QString buffer;
    const QStringRef text = m_document.text(static_cast<int>(&pushed - m_document.m_nodes.data()), buffer);
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
}

void XmlStrictParser::pushText(const char *begin, const char *end, bool hasReferences, bool hasReturns,
                               bool isBlank)
{
    // No rule of a reader depends on whitespace after an element whose text has been read.
    if (isBlank && (!m_isStream || (m_hasText && m_hasEnd))) {
        return;
    }
    m_hasText = true;
    const bool needsDecoding = hasReferences || (hasReturns && m_isStream);
    push(XmlDocument::Node::Text, begin, end, needsDecoding ? XmlDocument::NeedsDecoding : 0);
    if (!m_isStream && isDroppedRun(begin, end)) {
        m_document.m_nodes.pop_back();
    }
}

const char *XmlStrictParser::parseReference(const char *at)
{
    ++at;
    if (*at != '#') {
        for (const char *name : {"lt;", "gt;", "amp;", "quot;", "apos;"}) {
            const std::size_t size = qstrlen(name);
            if (std::strncmp(at, name, size) == 0) {
                return at + size;
            }
        }
        return refuse(XmlRefusal::Reference);
    }
    const bool isHexadecimal = at[1] == 'x';
    const char *const digits = at + (isHexadecimal ? 2 : 1);
    constexpr int mostDigits = 8;
    uint code = 0;
    for (at = digits; *at != ';'; ++at) {
        const bool isDigit = *at >= '0' && *at <= '9';
        const char letter = static_cast<char>(*at | 0x20);
        const bool isLetter = isHexadecimal && letter >= 'a' && letter <= 'f';
        if ((!isDigit && !isLetter) || at - digits == mostDigits) {
            return refuse(XmlRefusal::Reference);
        }
        const int digit = isDigit ? *at - '0' : letter - 'a' + 10;
        code = code * (isHexadecimal ? 16 : 10) + static_cast<uint>(digit);
    }
    // Qt's DOM parser truncates larger numbers to 16 bits.
    const bool isCut = !m_isStream && code > 0xFFFF;
    const bool isSound = at != digits && isXmlCharacter(code) && code != QChar::ByteOrderMark && !isCut;
    return isSound ? at + 1 : refuse(XmlRefusal::Reference);
}

const char *XmlStrictParser::parseName(const char *at, Name &name)
{
    name = {at, at, nullptr};
    if (!hasClass(*at, NameStart)) {
        return refuse(XmlRefusal::Name);
    }
    for (; hasClass(*at, NamePart); ++at) {
        if (*at == ':') {
            if (name.colon || !hasClass(at[1], NameStart)) {
                return refuse(XmlRefusal::Name);
            }
            name.colon = at;
        }
    }
    name.end = at;
    // Names beyond ASCII are left to Qt's parser.
    const bool isWhole = static_cast<unsigned char>(*at) < 0x80 && name.size() <= longestName;
    return isWhole ? at : refuse(XmlRefusal::Name);
}

const char *XmlStrictParser::parseStartTag(const char *at)
{
    if (m_depth == m_open.size()) {
        return refuse(XmlRefusal::Limit);
    }
    if (m_depth == 0 && m_hasRoot) {
        return refuse(XmlRefusal::Nesting);
    }
    m_hasRoot = true;
    Name name;
    const char *p = parseName(at + 1, name);
    if (!p) {
        return nullptr;
    }
    m_open[m_depth] = {name.begin, name.size(), static_cast<quint32>(m_document.m_nodes.size()),
                       m_bindings.size()};
    ++m_depth;
    push(XmlDocument::Node::Element, at, at, 0);
    const char *const kept = m_isStream ? name.local() : name.begin;
    m_document.m_nodes.back().name = numberOf(kept, static_cast<std::size_t>(name.end - kept)) & 0xFFFFFF;
    m_hasText = false;
    m_hasEnd = false;
    m_prefixed.clear();
    for (;;) {
        const char *const afterSpace = skipSpace(p);
        if (*afterSpace == '>' || *afterSpace == '/') {
            p = afterSpace;
            break;
        }
        if (afterSpace == p) {
            return refuse(XmlRefusal::Tag);
        }
        p = parseAttribute(afterSpace);
        if (!p) {
            return nullptr;
        }
    }
    if (m_isStream && !arePrefixesSound(name)) {
        return refuse(XmlRefusal::Namespace);
    }
    if (*p == '/') {
        if (*++p != '>') {
            return refuse(XmlRefusal::Tag);
        }
        closeElement();
    }
    return m_refusal == XmlRefusal::None ? p + 1 : nullptr;
}

const char *XmlStrictParser::parseAttribute(const char *at)
{
    Name name;
    const char *p = parseName(at, name);
    if (!p) {
        return nullptr;
    }
    p = skipSpace(p);
    if (*p != '=') {
        return refuse(XmlRefusal::Tag);
    }
    XmlDocument::Attribute attribute;
    attribute.at = offsetOf(at);
    attribute.flags = 0;
    p = parseValue(skipSpace(p + 1), attribute);
    if (!p) {
        return nullptr;
    }
    constexpr std::size_t prefixSize = 5;
    const bool isDeclaration = startsWith(name.begin, "xmlns");
    if (isDeclaration && ++m_namespaceDeclarations > Limits::namespaceDeclarations) {
        return refuse(XmlRefusal::Limit);
    }
    if (m_isStream && isDeclaration && (name.size() == prefixSize || name.begin[prefixSize] == ':')) {
        return bindPrefix(name, attribute) ? p : nullptr;
    }
    return keepAttribute(name, attribute) ? p : nullptr;
}

const char *XmlStrictParser::parseValue(const char *at, XmlDocument::Attribute &attribute)
{
    const char quote = *at;
    if (quote != '"' && quote != '\'') {
        return refuse(XmlRefusal::Tag);
    }
    const char *const begin = ++at;
    while (*at != quote) {
        if (hasClass(*at, PlainValue)) {
            ++at;
        } else if (*at == '&') {
            attribute.flags = XmlDocument::NeedsDecoding;
            at = parseReference(at);
            if (!at) {
                return nullptr;
            }
        } else if (*at == '<' || *at == '\0') {
            return refuse(XmlRefusal::Tag);
        } else {
            // The other quote, or whitespace that the stream normalizes to blanks.
            if (m_isStream && hasClass(*at, Space)) {
                attribute.flags = XmlDocument::NeedsDecoding;
            }
            ++at;
        }
    }
    attribute.valueAt = offsetOf(begin);
    attribute.valueSize = static_cast<quint32>(at - begin);
    return at + 1;
}

bool XmlStrictParser::keepAttribute(const Name &name, XmlDocument::Attribute attribute)
{
    std::vector<XmlDocument::Attribute> &attributes = m_document.m_attributes;
    const std::size_t first = m_document.m_nodes.back().firstAttribute;
    if (attributes.size() - first >= Limits::attributesOfElement) {
        return reject(XmlRefusal::Limit);
    }
    const quint32 number = numberOf(name.begin, name.size());
    if (m_refusal != XmlRefusal::None) {
        return false;
    }
    qint64 &lastUse = m_names[number].lastUse;
    if (lastUse >= static_cast<qint64>(first)) {
        if (m_isStream) {
            return reject(XmlRefusal::RepeatedAttribute);
        }
        attributes[static_cast<std::size_t>(lastUse)].flags |= XmlDocument::Superseded;
    }
    lastUse = static_cast<qint64>(attributes.size());
    if (m_isStream && name.colon) {
        m_prefixed.push_back(name);
    }
    attribute.name = number & 0xFFFFFF;
    attributes.push_back(attribute);
    return true;
}

bool XmlStrictParser::bindPrefix(const Name &name, const XmlDocument::Attribute &value)
{
    const char *const uri = m_begin + value.valueAt;
    const std::size_t uriSize = value.valueSize;
    const auto isUri = [&](const char *text) {
        return uriSize == qstrlen(text) && std::memcmp(uri, text, uriSize) == 0;
    };
    const Name prefix{name.local(), name.end, nullptr};
    const bool isReserved = name.colon && (prefix.is("xml", 3) || prefix.is("xmlns", 5) || uriSize == 0);
    const std::size_t first = m_open[m_depth - 1].bindings;
    const auto isSame = [&](const Name &bound) { return bound.is(prefix.begin, prefix.size()); };
    if (isReserved || (value.flags & XmlDocument::NeedsDecoding) != 0 ||
        isUri("http://www.w3.org/XML/1998/namespace") || isUri("http://www.w3.org/2000/xmlns/") ||
        std::any_of(m_bindings.begin() + static_cast<std::ptrdiff_t>(first), m_bindings.end(), isSame)) {
        return reject(XmlRefusal::Namespace);
    }
    m_bindings.push_back(name.colon ? prefix : Name{name.begin, name.end, nullptr});
    return true;
}

bool XmlStrictParser::isBound(const Name &name) const
{
    const Name prefix{name.begin, name.colon, nullptr};
    const auto isSame = [&](const Name &bound) { return bound.is(prefix.begin, prefix.size()); };
    return prefix.is("xml", 3) ||
           (!prefix.is("xmlns", 5) && std::any_of(m_bindings.begin(), m_bindings.end(), isSame));
}

bool XmlStrictParser::arePrefixesSound(const Name &element)
{
    if (element.colon && !isBound(element)) {
        return false;
    }
    for (std::size_t i = 0; i < m_prefixed.size(); ++i) {
        const Name &name = m_prefixed[i];
        const Name local{name.local(), name.end, nullptr};
        // Two prefixes may be bound to one namespace, which makes these the same attribute.
        const auto isSame = [&](const Name &other) {
            return local.is(other.local(), static_cast<std::size_t>(other.end - other.local()));
        };
        if (!isBound(name) ||
            std::any_of(m_prefixed.begin(), m_prefixed.begin() + static_cast<std::ptrdiff_t>(i), isSame)) {
            return false;
        }
    }
    return true;
}

void XmlStrictParser::closeElement()
{
    const OpenElement &closed = m_open[--m_depth];
    XmlDocument::Node &node = m_document.m_nodes[closed.node];
    node.extent = static_cast<quint32>(m_document.m_nodes.size());
    node.flags = XmlDocument::Closed;
    m_bindings.resize(closed.bindings);
    m_hasEnd = true;
}

const char *XmlStrictParser::parseEndTag(const char *at)
{
    if (m_depth == 0) {
        return refuse(XmlRefusal::Nesting);
    }
    const OpenElement &open = m_open[m_depth - 1];
    const char *p = at + 2;
    if (static_cast<std::size_t>(m_end - p) < open.nameSize ||
        std::memcmp(p, open.name, open.nameSize) != 0) {
        return refuse(XmlRefusal::Nesting);
    }
    p = skipSpace(p + open.nameSize);
    if (*p != '>') {
        return refuse(XmlRefusal::Nesting);
    }
    closeElement();
    return p + 1;
}

const char *XmlStrictParser::parseComment(const char *at)
{
    constexpr int openingSize = 4;
    const char *const begin = at + openingSize;
    const char *const end = search(begin, m_end, "--", 2);
    if (!end || end[2] != '>') {
        return refuse(XmlRefusal::Markup);
    }
    push(XmlDocument::Node::Comment, begin, end, 0);
    return end + 3;
}

const char *XmlStrictParser::parseCData(const char *at)
{
    constexpr int openingSize = 9;
    const char *const begin = at + openingSize;
    const char *const end = search(begin, m_end, "]]>", 3);
    if (!end || m_depth == 0) {
        return refuse(XmlRefusal::Markup);
    }
    const bool hasReturns = m_isStream && search(begin, end, "\r", 1);
    push(XmlDocument::Node::CData, begin, end, hasReturns ? XmlDocument::NeedsDecoding : 0);
    m_hasText = true;
    return end + 3;
}

const char *XmlStrictParser::parseInstruction(const char *at)
{
    Name target;
    const char *const afterTarget = parseName(at + 2, target);
    if (!afterTarget) {
        return nullptr;
    }
    const char *const end = search(afterTarget, m_end, "?>", 2);
    const bool isDeclaration = target.size() == 3 && qstrnicmp(target.begin, "xml", 3) == 0;
    const bool isSound = end && !target.colon && !isDeclaration && hasClass(*afterTarget, Space) &&
                         !search(afterTarget, end + 1, "??", 2);
    if (!isSound) {
        return refuse(XmlRefusal::Markup);
    }
    push(XmlDocument::Node::Instruction, target.begin, end, 0);
    return end + 2;
}

quint32 XmlStrictParser::numberOf(const char *name, std::size_t size)
{
    const KnownName &expected = m_names[m_expected];
    if (expected.size == size && std::memcmp(expected.begin, name, size) == 0) {
        m_last = m_expected;
    } else {
        const quint32 number = find(name, size);
        m_names[m_last].successor = number;
        m_last = number;
    }
    m_expected = m_names[m_last].successor;
    return m_last;
}

quint32 XmlStrictParser::find(const char *name, std::size_t size)
{
    std::size_t slot = hashOf(name, size) % slotCount;
    for (; m_slots[slot] != 0; slot = (slot + 1) % slotCount) {
        const KnownName &known = m_names[m_slots[slot]];
        if (known.size == size && std::memcmp(known.begin, name, size) == 0) {
            return m_slots[slot];
        }
    }
    if (m_names.size() > mostNames) {
        refuse(XmlRefusal::TooManyNames);
        return 0;
    }
    m_slots[slot] = static_cast<quint16>(m_names.size());
    m_names.push_back({name, size, -1, 0});
    m_document.m_names.push_back(QString::fromLatin1(name, static_cast<int>(size)));
    return m_slots[slot];
}

} // namespace Tobrix::Templates
