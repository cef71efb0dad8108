#include "xml/XmlDocument_p.h"

#include "xml/GuardedMarkup_p.h"
#include "xml/SourcePlaces_p.h"
#include "xml/XmlDecoding_p.h"
#include "xml/XmlFaultWords_p.h"
#include "xml/XmlFault_p.h"
#include "xml/XmlFile_p.h"
#include "xml/XmlLimits_p.h"
#include "xml/XmlQtParser_p.h"
#include "xml/XmlStrictParser_p.h"
#include "xml/XmlTree_p.h"

#include <QTextCodec>

#include <algorithm>

namespace Tobrix::Templates {

namespace {

using Node = XmlDocument::Node;

/// Appends UTF-8 text, which is nearly always ASCII.
void append(const char *begin, const char *end, QString &text)
{
    const int size = static_cast<int>(end - begin);
    const int at = text.size();
    text.resize(at + size);
    ushort *const target = reinterpret_cast<ushort *>(text.data()) + at;
    unsigned char high = 0;
    for (int i = 0; i < size; ++i) {
        const auto c = static_cast<unsigned char>(begin[i]);
        target[i] = c;
        high |= c;
    }
    constexpr unsigned char highBit = 0x80;
    if ((high & highBit) != 0) {
        text.truncate(at);
        text += QString::fromUtf8(begin, size);
    }
}

/// Appends the character of the reference at a place.
/// @return the place after the reference
const char *appendReference(const char *at, const char *end, QString &text)
{
    const char *const semicolon = std::find(at, end, ';');
    const QLatin1String name(at + 1, static_cast<int>(semicolon - at - 1));
    if (name.startsWith(QLatin1Char('#'))) {
        const bool isHexadecimal = name.at(1) == QLatin1Char('x');
        const uint code = QString(name.mid(isHexadecimal ? 2 : 1)).toUInt(nullptr, isHexadecimal ? 16 : 10);
        text += QString::fromUcs4(&code, 1);
    } else {
        const char first = *(at + 1);
        const bool isApostrophe = *(at + 2) == 'p';
        text += QLatin1Char(first == 'l'   ? '<'
                            : first == 'g' ? '>'
                            : first == 'q' ? '"'
                                           : (isApostrophe ? '\'' : '&'));
    }
    return semicolon + 1;
}

/// Decodes references and, where they are normalized, line ends: in values to blanks, as tabs are.
void decode(const char *at, const char *end, bool normalizes, bool isValue, bool hasReferences, QString &text)
{
    while (at != end) {
        const char *plain = at;
        while (plain != end && *plain != '&' && *plain != '\r' && *plain != '\n' && *plain != '\t') {
            ++plain;
        }
        append(at, plain, text);
        at = plain;
        if (at == end) {
            break;
        }
        if (*at == '&' && hasReferences) {
            at = appendReference(at, end, text);
            continue;
        }
        const bool isReturn = *at == '\r';
        const char kept = !normalizes || *at == '&' ? *at : isValue ? ' ' : isReturn ? '\n' : *at;
        text += QLatin1Char(kept);
        at += normalizes && isReturn && at + 1 != end && at[1] == '\n' ? 2 : 1;
    }
}

void clear(QString &buffer)
{
    constexpr int usualSize = 256;
    if (buffer.capacity() < usualSize) {
        buffer.reserve(usualSize);
    }
    buffer.resize(0);
}

} // namespace

/// Built only when a place is requested.
struct XmlDocument::Places
{
    explicit Places(const QString &text) : source(text), lines(source) {}

    QString source;
    SourcePlaces lines;
    // For a document that Qt's parser made: the result of a scan of the file, and the offset of each element
    // in it.
    std::unique_ptr<XmlTree> tree;
    std::vector<int> elements; // by node: the index in the tree; -1 where the two do not match
};

XmlDocument XmlDocument::parse(const QByteArray &bytes, XmlDialect dialect, XmlWay way)
{
    XmlDocument document(dialect);
    XmlRefusal refusal = XmlRefusal::Forced;
    if (way == XmlWay::Automatic) {
        refusal = XmlStrictParser(document).parse(bytes);
    }
    if (refusal != XmlRefusal::None) {
        document = XmlDocument(dialect);
        document.m_refusal = refusal;
        XmlQtParser(document).parse(bytes);
    }
    return document;
}

XmlDocument XmlDocument::parse(XmlFile &file, XmlDialect dialect, XmlWay way)
{
    if (!file.isOverLimit()) {
        return parse(file.readAll(), dialect, way);
    }
    XmlDocument document(dialect);
    document.m_refusal = XmlRefusal::Limit;
    document.m_fault = {XmlFault::OverLimit, GuardedMarkup::excessOfSize(), 1, 1, false};
    return document;
}

XmlDocument::XmlDocument(XmlDialect dialect) : m_dialect(dialect)
{
}

XmlDocument::XmlDocument(XmlDocument &&other) noexcept = default;
XmlDocument &XmlDocument::operator=(XmlDocument &&other) noexcept = default;
XmlDocument::~XmlDocument() = default;

XmlDocument::Attributes XmlDocument::attributes(int element) const
{
    const Attribute *const all = m_attributes.data();
    return {all + node(element).firstAttribute, all + node(element + 1).firstAttribute};
}

const XmlDocument::Attribute *XmlDocument::attribute(int element, int name) const
{
    const Attributes all = attributes(element);
    for (const Attribute *attribute = all.last; attribute != all.first;) {
        --attribute;
        if (static_cast<int>(attribute->name) == name) {
            return attribute;
        }
    }
    return nullptr;
}

QStringRef XmlDocument::text(int node, QString &buffer) const
{
    const Node &text = this->node(node);
    if (m_refusal != XmlRefusal::None) {
        return QStringRef(&m_texts, static_cast<int>(text.at), static_cast<int>(text.extent));
    }
    clear(buffer);
    const char *const begin = this->text() + text.at;
    if ((text.flags & NeedsDecoding) == 0) {
        append(begin, begin + text.extent, buffer);
    } else {
        decode(begin, begin + text.extent, m_dialect == XmlDialect::Stream, false, text.kind == Node::Text,
               buffer);
    }
    return QStringRef(&buffer);
}

QStringRef XmlDocument::value(const Attribute &attribute, QString &buffer) const
{
    if (m_refusal != XmlRefusal::None) {
        return QStringRef(&m_texts, static_cast<int>(attribute.valueAt),
                          static_cast<int>(attribute.valueSize));
    }
    clear(buffer);
    const char *const begin = text() + attribute.valueAt;
    if ((attribute.flags & NeedsDecoding) == 0) {
        append(begin, begin + attribute.valueSize, buffer);
    } else {
        decode(begin, begin + attribute.valueSize, m_dialect == XmlDialect::Stream, true, true, buffer);
    }
    return QStringRef(&buffer);
}

QString XmlDocument::text(int node) const
{
    QString buffer;
    const QStringRef text = this->text(node, buffer);
    return QString(text.data(), text.size());
}

QString XmlDocument::value(const Attribute &attribute) const
{
    QString buffer;
    const QStringRef value = this->value(attribute, buffer);
    return QString(value.data(), value.size());
}

QString XmlDocument::textBelow(int element) const
{
    const int end = this->end(element);
    int first = element + 1;
    while (first < end && !isText(first)) {
        ++first;
    }
    if (first == end) {
        return QStringLiteral("");
    }
    // Nearly every text is one chunk.
    QString text = this->text(first);
    for (int i = first + 1; i < end; ++i) {
        if (isText(i)) {
            text += this->text(i);
        }
    }
    return text;
}

int XmlDocument::parentOf(int index) const
{
    for (int i = index - 1; i >= 0; --i) {
        if (isElement(i) && end(i) > index) {
            return i;
        }
    }
    return -1;
}

const XmlDocument::Places &XmlDocument::places() const
{
    if (m_places) {
        return *m_places;
    }
    if (m_refusal == XmlRefusal::None) {
        m_places = std::make_unique<Places>(QString::fromUtf8(text(), textSize()));
        return *m_places;
    }
    // A file over this limit is reported at its beginning.
    m_places = std::make_unique<Places>(m_bytes.size() > Limits::fileSize ? QString() : decodedXml(m_bytes));
    m_places->tree = std::make_unique<XmlTree>(m_places->source, m_dialect);
    const XmlTree &tree = *m_places->tree;
    std::vector<int> &elements = m_places->elements;
    elements.assign(static_cast<std::size_t>(size()), -1);
    int at = 0;
    for (int i = 0; i < size(); ++i) {
        if (!isElement(i)) {
            continue;
        }
        while (at < tree.size() && tree.node(at).kind != XmlNode::Element) {
            ++at;
        }
        if (at == tree.size() || XmlElement(tree, at).name() != nameOf(i)) {
            break;
        }
        elements[static_cast<std::size_t>(i)] = at++;
    }
    return *m_places;
}

int XmlDocument::sourceOffset(int node) const
{
    if (m_refusal == XmlRefusal::None) {
        return sourceOffset(text() + this->node(node).at);
    }
    const Places &known = places();
    int element = node;
    while (element >= 0 && known.elements[static_cast<std::size_t>(element)] < 0) {
        element = parentOf(element);
    }
    if (element < 0) {
        return 0;
    }
    const int found = known.elements[static_cast<std::size_t>(element)];
    const int next = found + 1;
    const XmlTree &tree = *known.tree;
    // Text that directly follows a start tag; any other text is reported at its element.
    const bool isFirstText =
        element == node - 1 && isText(node) && next < tree.size() &&
        (tree.node(next).kind == XmlNode::Text || tree.node(next).kind == XmlNode::CData);
    return tree.node(isFirstText ? next : found).at;
}

int XmlDocument::sourceOffset(int element, const Attribute &attribute) const
{
    if (m_refusal == XmlRefusal::None) {
        return sourceOffset(text() + attribute.at);
    }
    const Places &known = places();
    const int found = known.elements[static_cast<std::size_t>(element)];
    if (found >= 0) {
        const XmlElement inTree(*known.tree, found);
        const auto candidates = inTree.attributes();
        // Of repeated attributes the last one counts.
        const auto isOfName = [&](const XmlAttribute *candidate) {
            return known.tree->nameOf(*candidate) == nameOf(attribute);
        };
        const auto last = std::find_if(candidates.rbegin(), candidates.rend(), isOfName);
        if (last != candidates.rend()) {
            return (*last)->at;
        }
    }
    return sourceOffset(element);
}

int XmlDocument::sourceOffset(const char *at) const
{
    return QString::fromUtf8(text(), static_cast<int>(at - text())).size();
}

qint64 XmlDocument::byteOffset(int sourceOffset) const
{
    const QTextCodec *const codec =
        QTextCodec::codecForName(m_encoding.isEmpty() ? QByteArray("UTF-8") : m_encoding);
    QTextCodec::ConverterState withoutMark(QTextCodec::IgnoreHeader);
    const QString before = places().source.left(sourceOffset);
    return m_markSize + codec->fromUnicode(before.constData(), before.size(), &withoutMark).size();
}

qint64 XmlDocument::byteOffsetOf(int node) const
{
    return byteOffset(sourceOffset(node));
}

qint64 XmlDocument::byteOffsetOf(int element, const Attribute &attribute) const
{
    return byteOffset(sourceOffset(element, attribute));
}

Place XmlDocument::placeOf(int node) const
{
    return places().lines.placeOf(sourceOffset(node));
}

Place XmlDocument::placeOf(int element, const Attribute &attribute) const
{
    return places().lines.placeOf(sourceOffset(element, attribute));
}

Place XmlDocument::placeOfFault() const
{
    return places().lines.placeOf(sourceOffsetOfFault());
}

QString XmlDocument::explanationOfFault() const
{
    const Places &known = places();
    const bool isInTree = m_fault.kind == XmlFault::NotWellFormed && !m_fault.isUndecodable;
    const QString words =
        isInTree ? wordsForFault(*known.tree, known.lines, sourceOffsetOfFault()) : QString();
    return words.isEmpty() ? m_fault.explanation : words;
}

int XmlDocument::sourceOffsetOfFault() const
{
    const Places &known = places();
    const int noticedAt = known.lines.offsetOf(m_fault.line, m_fault.column);
    if (m_fault.kind == XmlFault::OverLimit) {
        // A limit is exceeded within a tag or within a text.
        const int last = std::max(0, std::min(noticedAt, known.source.size()) - 1);
        const int tagAt = known.source.lastIndexOf(QLatin1Char('<'), last);
        const bool isInTag =
            tagAt >= 0 && !known.source.midRef(tagAt, last - tagAt).contains(QLatin1Char('>'));
        return isInTag ? tagAt : noticedAt;
    }
    // The stream decodes far ahead of the place that it reports.
    return m_fault.isUndecodable ? undecodableAt(m_bytes) : Templates::placeOfFault(*known.tree, noticedAt);
}

} // namespace Tobrix::Templates
