#include "format_current/DocumentIndex_p.h"

#include "rawdata/DecimalInt_p.h"

#include <QDomDocument>

#include <algorithm>
#include <array>

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

/// The node behind a subtree, within the subtree of a root; null when the root's is at its end.
QDomNode nodeBehind(QDomNode node, int &depth)
{
    while (depth > 0) {
        const QDomNode sibling = node.nextSibling();
        if (!sibling.isNull()) {
            return sibling;
        }
        node = node.parentNode();
        --depth;
    }
    return QDomNode();
}

} // namespace

DocumentIndex::DocumentIndex(const QDomDocument &document, ReadColumn readColumn)
    : m_readColumn(std::move(readColumn))
{
    int depth = 1;
    QDomNode node = document.firstChild();
    while (!node.isNull()) {
        closeFrom(depth);
        if (node.isElement()) {
            open(node.toElement(), depth);
        }
        const QDomNode child = node.firstChild();
        if (child.isNull()) {
            node = nodeBehind(node, depth);
        } else {
            node = child;
            ++depth;
        }
    }
    closeFrom(0);
}

void DocumentIndex::open(const QDomElement &element, int depth)
{
    if (const ElementName *name = elementNameOf(element.tagName())) {
        m_open.push_back({size(), depth});
        m_entries.push_back({element, 0, 0, *name});
    }
}

void DocumentIndex::closeFrom(int depth)
{
    while (!m_open.empty() && m_open.back().depth >= depth) {
        const int position = m_open.back().position;
        m_open.pop_back();
        at(position).end = size();
        if (at(position).name == ElementName::Column) {
            closeColumn(position);
        }
    }
}

void DocumentIndex::closeColumn(int position)
{
    at(position).columnRecord = m_readColumn(IndexedElement(*this, position));

    // What a column consists of is of no use to views, and so to nobody else, unless something stands in the
    // column, or the column in something, that has no business there.
    const auto isView = [this](const OpenEntry &entry) {
        return at(entry.position).name == ElementName::View;
    };
    const auto isPart = [](const Entry &entry) { return isPartOfColumn(entry.name); };
    const auto parts = m_entries.begin() + position + 1;
    if (std::all_of(m_open.cbegin(), m_open.cend(), isView) && std::all_of(parts, m_entries.end(), isPart)) {
        m_entries.erase(parts, m_entries.end());
        at(position).end = size();
    }
}

IndexedElement DocumentIndex::first(ElementName name) const
{
    return firstWithin(0, size(), name);
}

std::vector<IndexedElement> DocumentIndex::all(ElementName name) const
{
    return allWithin(0, size(), name);
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

IndexedElement DocumentIndex::firstWithin(int begin, int end, ElementName name) const
{
    const auto hasName = [name](const Entry &entry) { return entry.name == name; };
    const auto found = std::find_if(m_entries.cbegin() + begin, m_entries.cbegin() + end, hasName);
    const int position = static_cast<int>(found - m_entries.cbegin());
    return position == end ? IndexedElement() : IndexedElement(*this, position);
}

std::vector<IndexedElement> DocumentIndex::allWithin(int begin, int end, ElementName name) const
{
    std::vector<IndexedElement> elements;
    for (int position = begin; position < end; ++position) {
        if (at(position).name == name) {
            elements.push_back(IndexedElement(*this, position));
        }
    }
    return elements;
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
    return value.isNull() ? absent : value.toDouble();
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
    QString text = entry().element.text();
    text.squeeze();
    return text;
}

QString IndexedElement::sharedText() const
{
    return isNull() ? QString() : m_index->m_texts.shared(text());
}

IndexedElement IndexedElement::first(ElementName name) const
{
    return isNull() ? IndexedElement() : m_index->firstWithin(m_position + 1, entry().end, name);
}

std::vector<IndexedElement> IndexedElement::all(ElementName name) const
{
    return isNull() ? std::vector<IndexedElement>() : m_index->allWithin(m_position + 1, entry().end, name);
}

} // namespace Tobrix::Templates
