#include "format_current/DocumentIndex_p.h"

#include "rawdata/PlainNumbers_p.h"

#include <QDomDocument>

#include <algorithm>
#include <array>
#include <iterator>

namespace Tobrix::Templates {

namespace {

constexpr int longestName()
{
    int longest = 0;
    for (const auto &row : elementNames) {
        longest = std::max(longest, row.text.size());
    }
    return longest;
}

using NamesByLength = std::array<std::vector<ElementNameText>, longestName() + 1>;

NamesByLength namesByLength()
{
    NamesByLength names;
    for (const auto &row : elementNames) {
        names[static_cast<std::size_t>(row.text.size())].push_back(row);
    }
    return names;
}

/// The name that a text spells; null when it is none that means something. There are few of one length, and
/// they hardly ever start and end alike.
const ElementName *elementNameOf(const QString &text)
{
    static const NamesByLength names = namesByLength();
    const auto length = static_cast<std::size_t>(text.size());
    if (length == 0 || length >= names.size()) {
        return nullptr;
    }
    for (const auto &row : names[length]) {
        if (text.front() == row.text.front() && text.back() == row.text.back() && text == row.text) {
            return &row.name;
        }
    }
    return nullptr;
}

} // namespace

DocumentIndex::DocumentIndex(const QDomDocument &document, ReadRecord readRecord)
    : m_document(document), m_readRecord(std::move(readRecord))
{
}

void DocumentIndex::follow()
{
    while (advance()) {
        closeFrom(m_depth);
        if (m_node.isElement()) {
            open(m_node);
        }
    }
}

void DocumentIndex::finish()
{
    follow();
    closeFrom(0);
}

void DocumentIndex::clear()
{
    m_node.clear();
    m_depth = 0;
    m_entries.clear();
    m_open.clear();
    m_composedTexts.clear();
}

bool DocumentIndex::advance()
{
    const QDomNode child = m_depth == 0 ? m_document.firstChild() : m_node.firstChild();
    if (!child.isNull()) {
        m_node = child;
        ++m_depth;
        return true;
    }
    const QDomNode sibling = m_node.nextSibling();
    if (!sibling.isNull()) {
        m_node = sibling;
        return true;
    }
    return advanceBehindParent();
}

bool DocumentIndex::advanceBehindParent()
{
    QDomNode parent = m_node.parentNode();
    for (int depth = m_depth - 1; depth > 0; --depth) {
        const QDomNode sibling = parent.nextSibling();
        if (!sibling.isNull()) {
            m_node = sibling;
            m_depth = depth;
            return true;
        }
        parent = parent.parentNode();
    }
    return false;
}

void DocumentIndex::open(const QDomNode &node)
{
    if (const ElementName *name = elementNameOf(node.nodeName())) {
        m_open.push_back({size(), m_depth});
        m_entries.push_back({node.toElement(), 0, 0, *name});
    }
}

void DocumentIndex::closeFrom(int depth)
{
    while (!m_open.empty() && m_open.back().depth >= depth) {
        const int position = m_open.back().position;
        m_open.pop_back();
        at(position).end = size();
        const ElementName name = at(position).name;
        const auto isOfName = [name](const RecordElement &kind) { return kind.name == name; };
        const auto kind = std::find_if(std::begin(recordElements), std::end(recordElements), isOfName);
        if (kind != std::end(recordElements)) {
            closeRecord(position, *kind);
        }
    }
}

void DocumentIndex::closeRecord(int position, const RecordElement &kind)
{
    at(position).record = m_readRecord(IndexedElement(*this, position));
    // All that there was to read of it has been read. Letting go of it later would fetch it back from far
    // away.
    at(position).element = QDomElement();

    // What a column consists of is of no use to views, nor what an item consists of to lists, and so to
    // nobody else, unless something stands in the column or item, or that in something, that has no business
    // there.
    const auto isContainer = [&](const OpenEntry &entry) {
        return at(entry.position).name == kind.container;
    };
    const auto isPart = [&](const Entry &entry) { return kind.isPart(entry.name); };
    const auto parts = m_entries.begin() + position + 1;
    if (std::all_of(m_open.cbegin(), m_open.cend(), isContainer) &&
        std::all_of(parts, m_entries.end(), isPart)) {
        m_entries.erase(parts, m_entries.end());
        m_composedTexts.clear();
        at(position).end = size();
    }
}

IndexedElement DocumentIndex::first(ElementName name) const
{
    const int position = positionWithin(0, size(), name);
    return position == size() ? IndexedElement() : IndexedElement(*this, position);
}

IndexedElements DocumentIndex::all(ElementName name) const
{
    return IndexedElements(*this, 0, size(), name);
}

qint64 DocumentIndex::countWithinEach(ElementName container, ElementName name) const
{
    qint64 count = 0;
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry) {
        if (entry->name == container) {
            const auto hasName = [name](const Entry &inner) { return inner.name == name; };
            count += std::count_if(entry + 1, m_entries.cbegin() + entry->end, hasName);
        }
    }
    return count;
}

QString DocumentIndex::composedText(int position) const
{
    QString &text = m_composedTexts[position];
    if (text.isNull()) {
        text = at(position).element.text();
        text.squeeze();
    }
    return text;
}

int DocumentIndex::positionWithin(int begin, int end, ElementName name) const
{
    const auto hasName = [name](const Entry &entry) { return entry.name == name; };
    const auto found = std::find_if(m_entries.cbegin() + begin, m_entries.cbegin() + end, hasName);
    return static_cast<int>(found - m_entries.cbegin());
}

QString IndexedElement::attribute(const QString &name) const
{
    return isNull() ? QString() : entry().element.attribute(name, QString());
}

QString IndexedElement::sharedAttribute(const QString &name) const
{
    return isNull() ? QString() : m_index->m_texts.shared(attribute(name));
}

int IndexedElement::intAttribute(const QString &name, int absent) const
{
    const QString value = attribute(name);
    return value.isNull() ? absent : toDecimalInt(QStringRef(&value));
}

double IndexedElement::doubleAttribute(const QString &name, double absent) const
{
    const QString value = attribute(name);
    return value.isNull() ? absent : toDecimalDouble(QStringRef(&value));
}

QDomNamedNodeMap IndexedElement::attributes() const
{
    return isNull() ? QDomNamedNodeMap() : entry().element.attributes();
}

QString IndexedElement::text() const
{
    if (isNull()) {
        return QString();
    }
    // Nearly every text is one node, whose text need not be copied.
    const QDomNode child = entry().element.firstChild();
    if (child.isText() && child.nextSibling().isNull()) {
        const QString text = child.nodeValue();
        return text.isNull() ? QStringLiteral("") : text;
    }
    return m_index->composedText(m_position);
}

QString IndexedElement::sharedText() const
{
    return isNull() ? QString() : m_index->m_texts.shared(text());
}

IndexedElement IndexedElement::first(ElementName name) const
{
    if (isNull()) {
        return IndexedElement();
    }
    const int position = m_index->positionWithin(m_position + 1, entry().end, name);
    return position == entry().end ? IndexedElement() : IndexedElement(*m_index, position);
}

FirstElements::FirstElements(const IndexedElement &element) : m_index(element.m_index)
{
    for (int position = element.m_position + 1; position < element.entry().end; ++position) {
        int &first = m_positions[static_cast<std::size_t>(m_index->at(position).name)];
        first = first == 0 ? position : first;
    }
}

IndexedElement FirstElements::operator[](ElementName name) const
{
    const int position = m_positions[static_cast<std::size_t>(name)];
    return position == 0 ? IndexedElement() : IndexedElement(*m_index, position);
}

IndexedElements IndexedElement::all(ElementName name) const
{
    return isNull() ? IndexedElements() : IndexedElements(*m_index, m_position + 1, entry().end, name);
}

} // namespace Tobrix::Templates
