#pragma once

#include "xml/XmlDialect_p.h"
#include "xml/XmlRefusal_p.h"

#include <QByteArray>
#include <QString>
#include <QStringRef>

#include <memory>
#include <vector>

namespace Tobrix::Templates {

struct Place;
class XmlFile;

/// How a document was made.
enum class XmlWay : unsigned char {
    Automatic, ///< the strict parser, or Qt's for what it refuses
    Qt         ///< always Qt's parser: for diagnosis and comparison
};

/// Why a document is not whole.
struct XmlFault
{
    enum Kind : unsigned char {
        None,
        NotWellFormed,
        OverLimit ///< more of something than a template may ask for
    };

    Kind kind = None;
    QString explanation;        ///< as the end of a sentence, without full stop
    int line = 0;               ///< where it was noticed, from 1
    int column = 0;             ///< from 1, in UTF-16 units, as Qt's parsers count
    bool isUndecodable = false; ///< whether bytes stand for no character in the encoding of the file

    explicit operator bool() const { return kind != None; }
};

/// The markup of one file, read-only: elements with their attributes, and pieces of text, in document order.
/// It is made for a dialect, and reports what the parser of that dialect would.
///
/// Texts are turned into QStrings only when they are asked for, places only when somebody wants to name them.
class XmlDocument
{
public:
    struct Node
    {
        enum Kind : unsigned char {
            Element,
            Text,
            CData,
            Comment,
            Instruction,
            Reference ///< to an entity that no declaration gives a text: ends a piece of text
        };

        quint32 at = 0;             ///< of an element's "<", or of the first character of a text
        quint32 extent = 0;         ///< of an element: the node after its last descendant; else the size
        quint32 firstAttribute = 0; ///< of an element; of other nodes that of the next element
        quint32 name : 24;          ///< of an element: the number of its name
        Kind kind : 4;
        unsigned char flags : 4;
    };

    struct Attribute
    {
        quint32 at = 0;      ///< of the first character of its name
        quint32 valueAt = 0; ///< of the first character of its value
        quint32 valueSize = 0;
        quint32 name : 24; ///< the number of its qualified name
        quint32 flags : 8;
    };

    /// The attributes of an element, in the order of the file where the strict parser read it.
    struct Attributes
    {
        const Attribute *first;
        const Attribute *last;
        const Attribute *begin() const { return first; }
        const Attribute *end() const { return last; }
        int count() const { return static_cast<int>(last - first); }
    };

    /// Parses the bytes of a file. Limits of markup are those of XmlLimits_p.h.
    /// @param bytes with a zero after the last one, as every QByteArray has that owns its data
    static XmlDocument parse(const QByteArray &bytes, XmlDialect dialect, XmlWay way = XmlWay::Automatic);

    /// Parses the open file.
    static XmlDocument parse(XmlFile &file, XmlDialect dialect, XmlWay way = XmlWay::Automatic);

    /// A document without anything in it.
    explicit XmlDocument(XmlDialect dialect = XmlDialect::Dom);
    XmlDocument(XmlDocument &&other) noexcept;
    XmlDocument &operator=(XmlDocument &&other) noexcept;
    ~XmlDocument();

    XmlDialect dialect() const { return m_dialect; }

    /// What is wrong with the document. Of the Dom dialect a document over a limit is empty, one that is not
    /// well-formed has what stands before the fault; of the Stream dialect both have what stands before it.
    const XmlFault &fault() const { return m_fault; }
    /// Why the strict parser did not read the file; XmlRefusal::None when it did.
    XmlRefusal refusal() const { return m_refusal; }

    int size() const { return m_nodes.empty() ? 0 : static_cast<int>(m_nodes.size()) - 1; }
    const Node &node(int index) const { return m_nodes[static_cast<std::size_t>(index)]; }
    bool isElement(int index) const { return node(index).kind == Node::Element; }
    bool isText(int index) const { return node(index).kind == Node::Text || node(index).kind == Node::CData; }
    /// The node after the last descendant of an element; the next one for every other node.
    int end(int index) const { return isElement(index) ? static_cast<int>(node(index).extent) : index + 1; }
    /// Whether the end of an element was met. It is not where the document breaks off.
    bool isClosed(int index) const { return (node(index).flags & Closed) != 0; }

    /// The names of elements and attributes that occur, each at its number.
    const std::vector<QString> &names() const { return m_names; }
    const QString &nameOf(int element) const { return m_names[node(element).name]; }
    const QString &nameOf(const Attribute &attribute) const { return m_names[attribute.name]; }

    Attributes attributes(int element) const;
    /// The attribute of a name that counts, the last one; null when the element has none.
    /// @param name the number of a name; -1 finds nothing
    const Attribute *attribute(int element, int name) const;
    /// Whether a later attribute of the same name and element counts in place of this one.
    static bool isSuperseded(const Attribute &attribute) { return (attribute.flags & Superseded) != 0; }

    /// The text of a text node, of a comment or of an instruction, as the dialect's parser reports it; an
    /// empty one is not null.
    QString text(int node) const;
    /// The same without a string of its own: valid until the buffer changes.
    QStringRef text(int node, QString &buffer) const;
    QString value(const Attribute &attribute) const;
    QStringRef value(const Attribute &attribute, QString &buffer) const;

    /// All text below an element, in document order, not null.
    QString textBelow(int element) const;

    /// The element around a node; -1 for the root and what stands beside it. Walks back: for the few.
    int parentOf(int index) const;

    /// Where a node begins: an element's "<", the first character of a text; and an attribute: its name. Of a
    /// document that Qt's parser made it is found by a scan of the file. What that does not find is at the
    /// place of the nearest element around that it does.
    /// @return the offset into the bytes of the file
    qint64 byteOffsetOf(int node) const;
    qint64 byteOffsetOf(int element, const Attribute &attribute) const;
    /// The same in lines and characters.
    Place placeOf(int node) const;
    Place placeOf(int element, const Attribute &attribute) const;
    /// Where a person has to look for the fault, which may be before the place where it was noticed.
    Place placeOfFault() const;
    /// What is wrong, as the end of a sentence: the parser's explanation, or a better one where it is known.
    QString explanationOfFault() const;

    /// Where a node begins, and where the fault is, as offsets into the decoded text of the file.
    int sourceOffset(int node) const;
    int sourceOffsetOfFault() const;

private:
    friend class XmlStrictParser;
    friend class XmlQtParser;

    enum Flag : unsigned char {
        Closed = 1,
        NeedsDecoding = 2, ///< references, or line ends that the dialect normalizes
        Superseded = 4
    };

    struct Places;

    const char *text() const { return m_bytes.constData() + (m_encoding.isEmpty() ? m_markSize : 0); }
    int textSize() const { return m_bytes.size() - (m_encoding.isEmpty() ? m_markSize : 0); }

    const Places &places() const;
    int sourceOffset(int element, const Attribute &attribute) const;
    int sourceOffset(const char *at) const;
    qint64 byteOffset(int sourceOffset) const;

    XmlDialect m_dialect;
    XmlRefusal m_refusal = XmlRefusal::None;
    XmlFault m_fault;
    QByteArray m_bytes;        // UTF-8 for the strict parser, those of the file for Qt's
    std::vector<Node> m_nodes; // and one after the last, for its first attribute
    std::vector<Attribute> m_attributes;
    std::vector<QString> m_names;
    QString m_texts;       // all texts and values of a document that Qt's parser made
    QByteArray m_encoding; // of the file, when it is not UTF-8
    int m_markSize = 0;    // bytes of the byte order mark
    mutable std::unique_ptr<Places> m_places;
};

} // namespace Tobrix::Templates
