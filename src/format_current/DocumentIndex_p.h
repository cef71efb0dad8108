#pragma once

#include "format_current/CurrentFormatTables_p.h"
#include "rawdata/TextPool_p.h"

#include <QDomElement>
#include <QString>

#include <functional>
#include <vector>

class QDomDocument;

namespace Tobrix::Templates {

class IndexedElement;

/// Where the elements that mean something stand in a document, in document order. Made in one walk over the
/// document, so that each of the many look-ups by name need not be a walk of its own.
///
/// The document must not change while its index is in use.
class DocumentIndex
{
public:
    /// Reads a column while the walk is at its end and gives the number under which its record is kept: by
    /// the time that the walk is over, the column's elements would have to be fetched from far away once
    /// more.
    using ReadColumn = std::function<int(const IndexedElement &column)>;

    DocumentIndex(const QDomDocument &document, ReadColumn readColumn);
    DocumentIndex(const DocumentIndex &) = delete;
    DocumentIndex &operator=(const DocumentIndex &) = delete;

    /// The first element of a name in the document; null when there is none.
    IndexedElement first(ElementName name) const;
    /// All elements of a name in the document, in document order.
    std::vector<IndexedElement> all(ElementName name) const;

    /// The number of elements of a name that containers of a name hold, added up over the containers.
    qint64 countWithinEach(ElementName container, ElementName name) const;

private:
    friend class IndexedElement;

    // An entry's descendants are those behind it, up to its end.
    struct Entry
    {
        QDomElement element;
        int end;
        int columnRecord;
        ElementName name;
    };

    struct OpenEntry
    {
        int position;
        int depth;
    };

    int size() const { return static_cast<int>(m_entries.size()); }
    Entry &at(int position) { return m_entries[static_cast<std::size_t>(position)]; }
    const Entry &at(int position) const { return m_entries[static_cast<std::size_t>(position)]; }

    void open(const QDomElement &element, int depth);
    void closeFrom(int depth);
    void closeColumn(int position);

    IndexedElement firstWithin(int begin, int end, ElementName name) const;
    std::vector<IndexedElement> allWithin(int begin, int end, ElementName name) const;

    const ReadColumn m_readColumn;
    std::vector<Entry> m_entries;
    std::vector<OpenEntry> m_open;
    mutable TextPool m_texts;
};

/// An element that knows what is below it, at any depth. Null when a look-up found nothing: such an element
/// has no attributes, no text and nothing below it.
class IndexedElement
{
public:
    IndexedElement() = default;

    bool isNull() const { return !m_index; }

    /// The value of an attribute; null when the element has no such attribute.
    QString attribute(const QString &name) const;
    /// The same for an attribute that many elements have alike: one copy of its value serves them all.
    QString sharedAttribute(const QString &name) const;
    /// The value of an attribute as a number, 0 when it is none.
    /// @param absent what a missing attribute gives
    int intAttribute(const QString &name, int absent = 0) const;
    double doubleAttribute(const QString &name, double absent = 0.0) const;
    QDomNamedNodeMap attributes() const;

    /// All text below the element, untrimmed; null for the null element.
    QString text() const;
    /// The same for an element whose text many elements have alike: one copy of it serves them all.
    QString sharedText() const;

    /// The first element of a name below this one; null when there is none.
    IndexedElement first(ElementName name) const;
    /// All elements of a name below this one, in document order.
    std::vector<IndexedElement> all(ElementName name) const;

    /// The number under which the record of this column, which it must be, is kept.
    int columnRecord() const { return entry().columnRecord; }

private:
    friend class DocumentIndex;

    IndexedElement(const DocumentIndex &index, int position) : m_index(&index), m_position(position) {}

    const DocumentIndex::Entry &entry() const { return m_index->at(m_position); }

    const DocumentIndex *m_index = nullptr;
    int m_position = 0;
};

} // namespace Tobrix::Templates
