#include "xml/XmlTree_p.h"

#include "xml/XmlScanner_p.h"

#include "xml/XmlLimits_p.h"

#include <algorithm>

namespace Tobrix::Templates {

namespace {

bool isSpace(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\t') ||
           c == QLatin1Char('\r');
}

bool isBlankText(QStringView text)
{
    return std::all_of(text.begin(), text.end(), isSpace);
}

/// The character of a reference such as "#65" or "#x41"; empty when invalid.
QString characterOf(QStringView reference)
{
    const bool isHexadecimal = reference.size() > 1 && reference.at(1) == QLatin1Char('x');
    const QString digits = reference.mid(isHexadecimal ? 2 : 1).toString();
    bool isNumber = false;
    const uint code = digits.toUInt(&isNumber, isHexadecimal ? 16 : 10);
    return isNumber && code <= QChar::LastValidCodePoint ? QString::fromUcs4(&code, 1) : QString();
}

struct PredefinedEntity
{
    QLatin1String name;
    char character;
};

constexpr PredefinedEntity predefinedEntities[] = {
    {QLatin1String("lt"), '<'},   {QLatin1String("gt"), '>'},    {QLatin1String("amp"), '&'},
    {QLatin1String("quot"), '"'}, {QLatin1String("apos"), '\''},
};

const PredefinedEntity *predefinedEntity(QStringView name)
{
    const auto found = std::find_if(std::begin(predefinedEntities), std::end(predefinedEntities),
                                    [name](const auto &entity) { return name == entity.name; });
    return found == std::end(predefinedEntities) ? nullptr : found;
}

/// Line breaks as a parser reports them that normalizes them, in attributes to blanks.
QString withPlainBreaks(QStringView source, bool isAttribute)
{
    QString text = source.toString();
    if (source.contains(QLatin1Char('\r'))) {
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    }
    if (isAttribute) {
        text.replace(QLatin1Char('\n'), QLatin1Char(' '));
        text.replace(QLatin1Char('\t'), QLatin1Char(' '));
    }
    return text;
}

} // namespace

XmlTree::XmlTree(const QString &source, XmlDialect dialect)
    : m_source(source)
    , m_hasReferences(source.contains(QLatin1Char('&')))
    , m_hasReturns(source.contains(QLatin1Char('\r')))
    , m_dialect(dialect)
{
    XmlScanner(*this).scan();
}

XmlElement XmlTree::root() const
{
    const auto isElement = [](const XmlNode &node) { return node.kind == XmlNode::Element; };
    const auto found = std::find_if(m_nodes.cbegin(), m_nodes.cend(), isElement);
    return found == m_nodes.cend() ? XmlElement()
                                   : XmlElement(*this, static_cast<int>(found - m_nodes.cbegin()));
}

XmlElement XmlTree::first(QLatin1String name) const
{
    const int index = firstBetween(0, size(), numberOf(name));
    return index < 0 ? XmlElement() : XmlElement(*this, index);
}

std::vector<XmlElement> XmlTree::all(QLatin1String name) const
{
    return allBetween(0, size(), name);
}

int XmlTree::firstBetween(int begin, int end, int name) const
{
    if (name >= 0) {
        for (int i = begin; i < end; ++i) {
            if (node(i).kind == XmlNode::Element && node(i).name == name) {
                return i;
            }
        }
    }
    return -1;
}

std::vector<XmlElement> XmlTree::allBetween(int begin, int end, QLatin1String name) const
{
    std::vector<XmlElement> elements;
    const int number = numberOf(name);
    for (int i = firstBetween(begin, end, number); i >= 0; i = firstBetween(i + 1, end, number)) {
        elements.emplace_back(*this, i);
    }
    return elements;
}

int XmlTree::numberOf(QLatin1String name) const
{
    const QString text = name;
    const auto found = m_numbers.find(QStringView(text));
    return found == m_numbers.end() ? -1 : found->second;
}

QString XmlTree::textOf(int index) const
{
    const XmlNode &text = node(index);
    const QStringView raw = QStringView(m_source).mid(text.contentAt, text.contentSize);
    if (text.kind != XmlNode::CData) {
        return expanded(raw, false);
    }
    return m_dialect == XmlDialect::Stream ? withPlainBreaks(raw, false) : raw.toString();
}

QString XmlTree::valueOf(const XmlAttribute &attribute) const
{
    return expanded(QStringView(m_source).mid(attribute.valueAt, attribute.valueSize), true);
}

QStringView XmlTree::nameOf(const XmlAttribute &attribute) const
{
    return QStringView(m_source).mid(attribute.at, attribute.nameSize);
}

const XmlAttribute *XmlTree::sameAttributeBefore(const XmlNode &element, int number) const
{
    const QStringView name = nameOf(attribute(element.firstAttribute + number));
    for (int i = 0; i < number; ++i) {
        const XmlAttribute &earlier = attribute(element.firstAttribute + i);
        if (nameOf(earlier) == name) {
            return &earlier;
        }
    }
    return nullptr;
}

bool XmlTree::isBlank(int index) const
{
    const XmlNode &text = node(index);
    return isBlankText(QStringView(m_source).mid(text.contentAt, text.contentSize));
}

QString XmlTree::expanded(QStringView raw, bool isAttribute, int nesting) const
{
    // Line breaks from references are kept; only those of the source are normalized.
    const auto plain = [&](QStringView piece) {
        return m_dialect == XmlDialect::Stream && (m_hasReturns || isAttribute)
                   ? withPlainBreaks(piece, isAttribute)
                   : piece.toString();
    };
    if (!m_hasReferences) {
        const QString text = plain(raw);
        return text.isNull() ? QStringLiteral("") : text;
    }
    QString text;
    qsizetype from = 0;
    for (;;) {
        const qsizetype begin = raw.indexOf(QLatin1Char('&'), from);
        const qsizetype end = begin < 0 ? -1 : raw.indexOf(QLatin1Char(';'), begin);
        if (end < 0) {
            const QString rest = from == 0 ? plain(raw) : text + plain(raw.mid(from));
            return rest.isNull() ? QStringLiteral("") : rest;
        }
        text += plain(raw.mid(from, begin - from));
        const QStringView name = raw.mid(begin + 1, end - begin - 1);
        from = end + 1;
        // In attributes, the stream keeps such a reference unexpanded.
        const bool isKept = isAttribute && m_dialect == XmlDialect::Stream && isUnknownEntity(name);
        text += isKept ? raw.mid(begin, from - begin).toString() : entityText(name, nesting);
    }
}

QString XmlTree::entityText(QStringView name, int nesting) const
{
    if (name.startsWith(QLatin1Char('#'))) {
        return characterOf(name);
    }
    if (const PredefinedEntity *entity = predefinedEntity(name)) {
        return QString(QLatin1Char(entity->character));
    }
    const auto found = m_entities.constFind(name.toString());
    if (found == m_entities.cend() || nesting >= Limits::entityNesting) {
        return QString();
    }
    return expanded(QStringView(*found), false, nesting + 1);
}

bool XmlTree::hasEntity(QStringView name) const
{
    return predefinedEntity(name) || m_entities.contains(name.toString());
}

std::vector<int> XmlTree::unknownEntities() const
{
    std::vector<int> places;
    if (!m_hasReferences) {
        return places;
    }
    for (const auto &node : m_nodes) {
        if (node.kind == XmlNode::Text || node.kind == XmlNode::Reference) {
            collectUnknownEntities(node.contentAt, node.contentSize, places);
        }
        for (int i = 0; i < node.attributeCount; ++i) {
            const XmlAttribute &value = attribute(node.firstAttribute + i);
            collectUnknownEntities(value.valueAt, value.valueSize, places);
        }
    }
    return places;
}

void XmlTree::collectUnknownEntities(int at, int size, std::vector<int> &places) const
{
    const QStringView raw = QStringView(m_source).mid(at, size);
    qsizetype begin = raw.indexOf(QLatin1Char('&'));
    while (begin >= 0) {
        const qsizetype end = raw.indexOf(QLatin1Char(';'), begin);
        if (end < 0) {
            return;
        }
        const QStringView name = raw.mid(begin + 1, end - begin - 1);
        if (isUnknownEntity(name)) {
            places.push_back(at + static_cast<int>(begin));
        }
        begin = raw.indexOf(QLatin1Char('&'), end);
    }
}

XmlElement XmlElement::parent() const
{
    return isNull() || node().parent < 0 ? XmlElement() : XmlElement(*m_tree, node().parent);
}

std::vector<XmlElement> XmlElement::children() const
{
    std::vector<XmlElement> children;
    for (int i = m_index + 1; !isNull() && i < node().end; i = m_tree->node(i).end) {
        if (m_tree->node(i).kind == XmlNode::Element) {
            children.emplace_back(*m_tree, i);
        }
    }
    return children;
}

const XmlAttribute *XmlElement::attribute(QLatin1String name) const
{
    for (int i = isNull() ? 0 : node().attributeCount; i > 0; --i) {
        const XmlAttribute &attribute = m_tree->attribute(node().firstAttribute + i - 1);
        if (m_tree->nameOf(attribute) == name) {
            return &attribute;
        }
    }
    return nullptr;
}

std::vector<const XmlAttribute *> XmlElement::attributes() const
{
    std::vector<const XmlAttribute *> attributes;
    for (int i = 0; !isNull() && i < node().attributeCount; ++i) {
        attributes.push_back(&m_tree->attribute(node().firstAttribute + i));
    }
    return attributes;
}

QString XmlElement::text() const
{
    if (isNull()) {
        return QString();
    }
    QString text = QStringLiteral("");
    for (int i = m_index + 1; i < node().end; ++i) {
        const auto kind = m_tree->node(i).kind;
        if (kind != XmlNode::Text && kind != XmlNode::CData) {
            continue;
        }
        const QString piece = m_tree->textOf(i);
        if (kind == XmlNode::CData || !isBlankText(piece)) {
            text += piece;
        }
    }
    return text;
}

int XmlElement::textAt() const
{
    for (int i = m_index + 1; !isNull() && i < node().end; ++i) {
        const XmlNode &text = m_tree->node(i);
        if ((text.kind == XmlNode::Text || text.kind == XmlNode::CData) && !m_tree->isBlank(i)) {
            return text.at;
        }
    }
    return at();
}

int XmlElement::ownTextAt() const
{
    for (int i = m_index + 1; !isNull() && i < node().end; i = m_tree->node(i).end) {
        const XmlNode &text = m_tree->node(i);
        if (text.kind == XmlNode::Text || text.kind == XmlNode::CData) {
            const QStringView raw = QStringView(m_tree->source()).mid(text.contentAt, text.contentSize);
            const auto *const begin = std::find_if_not(raw.begin(), raw.end(), isSpace);
            if (begin != raw.end()) {
                return text.contentAt + static_cast<int>(begin - raw.begin());
            }
        }
    }
    return -1;
}

XmlElement XmlElement::first(QLatin1String name) const
{
    const int index = isNull() ? -1 : m_tree->firstBetween(m_index + 1, node().end, m_tree->numberOf(name));
    return index < 0 ? XmlElement() : XmlElement(*m_tree, index);
}

std::vector<XmlElement> XmlElement::all(QLatin1String name) const
{
    return isNull() ? std::vector<XmlElement>() : m_tree->allBetween(m_index + 1, node().end, name);
}

bool XmlElement::contains(const XmlElement &other) const
{
    return !isNull() && !other.isNull() && other.m_index > m_index && other.m_index < node().end;
}

} // namespace Tobrix::Templates
