#pragma once

#include "format_current/CurrentFormatTables_p.h"
#include "rawdata/TextPool_p.h"

#include <QDomElement>
#include <QHash>
#include <QString>

#include <array>
#include <deque>
#include <functional>
#include <iterator>
#include <vector>

class QDomDocument;

namespace Tobrix::Templates {

class IndexedElement;
class IndexedElements;

/// Where the elements that mean something stand in a document, in document order. Made in one walk over the
/// document, so that each of the many look-ups by name need not be a walk of its own.
///
/// The walk follows the parser while the document grows: what has just been made is still in the processor's
/// cache, whereas a finished document has to be fetched from far away.
class DocumentIndex
{
public:
    /// Reads a column or an item of a list as soon as the walk is behind it and gives the number under which
    /// its record is kept.
    using ReadRecord = std::function<int(const IndexedElement &element)>;

    /// @param document is followed, and must outlive its index
    DocumentIndex(const QDomDocument &document, ReadRecord readRecord);
    DocumentIndex(const DocumentIndex &) = delete;
    DocumentIndex &operator=(const DocumentIndex &) = delete;

    /// Goes on with the walk to where the document ends by now.
    void follow();
    /// Ends the walk: the document grows no more.
    void finish();
    /// Forgets the document: nothing is found any more, and the walk is where it was at the beginning.
    void clear();

    /// The first element of a name in the document; null when there is none.
    IndexedElement first(ElementName name) const;
    /// All elements of a name in the document, in document order.
    IndexedElements all(ElementName name) const;

    /// The number of elements of a name that containers of a name hold, added up over the containers.
    qint64 countWithinEach(ElementName container, ElementName name) const;

private:
    friend class FirstElements;
    friend class IndexedElement;
    friend class IndexedElements;

    // An entry's descendants are those behind it, up to its end.
    struct Entry
    {
        QDomElement element;
        int end;
        int record;
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

    bool advance();
    bool advanceBehindParent();
    void open(const QDomNode &node);
    void closeFrom(int depth);
    void closeRecord(int position, const RecordElement &kind);

    QString composedText(int position) const;
    int positionWithin(int begin, int end, ElementName name) const;

    const QDomDocument &m_document;
    const ReadRecord m_readRecord;
    QDomNode m_node; // the last one that the walk has come to
    int m_depth = 0; // of that node
    // In pieces: one large block among the document's nodes would, once free, make freeing these slow.
    std::deque<Entry> m_entries;
    std::vector<OpenEntry> m_open;
    mutable TextPool m_texts;
    // By position. Elements in each other may all have one text that had to be put together.
    mutable QHash<int, QString> m_composedTexts;
};

/// An element that knows what is below it, at any depth. Null when a look-up found nothing: such an element
/// has no attributes, no text and nothing below it.
class IndexedElement
{
public:
    IndexedElement() = default;

    bool isNull() const { return !m_index; }
    /// The element's name, which the null element has not.
    ElementName name() const { return entry().name; }

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
    IndexedElements all(ElementName name) const;

    /// The number under which the record of this column or item, which it must be, is kept.
    int record() const { return entry().record; }

private:
    friend class DocumentIndex;
    friend class FirstElements;
    friend class IndexedElements;

    IndexedElement(const DocumentIndex &index, int position) : m_index(&index), m_position(position) {}

    const DocumentIndex::Entry &entry() const { return m_index->at(m_position); }

    const DocumentIndex *m_index = nullptr;
    int m_position = 0;
};

/// The first element of each name below an element, for whoever wants many of them: they are found in one
/// walk.
class FirstElements
{
public:
    explicit FirstElements(const IndexedElement &element);

    /// The first element of a name below the element; null when there is none.
    IndexedElement operator[](ElementName name) const;

private:
    const DocumentIndex *m_index;
    std::array<int, static_cast<std::size_t>(ElementName::Count)> m_positions = {}; // 0 for none
};

/// The elements of one name in a part of a document, in document order.
class IndexedElements
{
public:
    class Iterator
    {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = IndexedElement;
        using difference_type = std::ptrdiff_t;
        using pointer = const IndexedElement *;
        using reference = IndexedElement;

        IndexedElement operator*() const { return m_elements->at(m_position); }
        Iterator &operator++()
        {
            m_position = m_elements->positionFrom(m_position + 1);
            return *this;
        }
        bool operator==(const Iterator &other) const { return m_position == other.m_position; }
        bool operator!=(const Iterator &other) const { return m_position != other.m_position; }

    private:
        friend class IndexedElements;
        Iterator(const IndexedElements &elements, int position) : m_elements(&elements), m_position(position)
        {
        }

        const IndexedElements *m_elements;
        int m_position;
    };

    Iterator begin() const { return Iterator(*this, positionFrom(m_begin)); }
    Iterator end() const { return Iterator(*this, m_end); }
    int count() const { return static_cast<int>(std::distance(begin(), end())); }

private:
    friend class DocumentIndex;
    friend class IndexedElement;

    IndexedElements() = default;
    IndexedElements(const DocumentIndex &index, int begin, int end, ElementName name)
        : m_index(&index), m_begin(begin), m_end(end), m_name(name)
    {
    }

    IndexedElement at(int position) const { return IndexedElement(*m_index, position); }
    int positionFrom(int begin) const
    {
        return m_index ? m_index->positionWithin(begin, m_end, m_name) : m_end;
    }

    const DocumentIndex *m_index = nullptr;
    int m_begin = 0;
    int m_end = 0;
    ElementName m_name = ElementName::Name;
};

} // namespace Tobrix::Templates
