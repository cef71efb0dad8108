#pragma once

#include "xml/XmlDialect_p.h"

#include <QHash>
#include <QLatin1String>
#include <QString>
#include <QStringView>

#include <vector>

namespace Tobrix::Templates {

class XmlElement;

/// An attribute, as places in its document's source.
struct XmlAttribute
{
    int at = 0;
    int nameSize = 0;
    int valueAt = 0;
    int valueSize = 0;
};

/// A node, as places in its document's source. The nodes below an element are those behind it, up to its end.
struct XmlNode
{
    enum Kind : unsigned char {
        Element,
        Text,
        CData,
        Comment,
        Instruction,
        Reference ///< to an entity that may be declared elsewhere, which the stream hands out on its own
    };

    Kind kind = Element;
    int at = 0;          ///< of the "<"; of the first character for a text, one in CDATA as well
    int contentAt = 0;   ///< of an element's name or a text's first character
    int contentSize = 0; ///< of an element's name or a text
    int name = 0;        ///< an element's name, as a number that elements of this name share
    int end = 0;
    int parent = -1;
    int firstAttribute = 0;
    int attributeCount = 0;
};

/// Something that a source has no end of: its innermost open element, a comment.
struct XmlUnfinished
{
    QString words;
    int at = -1;

    bool isNull() const { return at < 0; }
};

/// A document's elements and texts, every one with its place. Nothing of it is copied out of the source
/// before somebody asks: all but a few values of a template are in order.
class XmlTree
{
public:
    XmlTree(const QString &source, XmlDialect dialect);

    const QString &source() const { return m_source; }
    const std::vector<XmlNode> &nodes() const { return m_nodes; }
    const XmlNode &node(int index) const { return m_nodes[static_cast<std::size_t>(index)]; }
    int size() const { return static_cast<int>(m_nodes.size()); }

    /// The first element of the document; null when there is none.
    XmlElement root() const;

    /// The first element of a name in the document; null when there is none.
    XmlElement first(QLatin1String name) const;
    /// All elements of a name in the document, in document order.
    std::vector<XmlElement> all(QLatin1String name) const;

    /// The number of a name in this document; -1 when no element has it.
    int numberOf(QLatin1String name) const;

    /// The names of all elements, each at the place of its number.
    const std::vector<QString> &names() const { return m_names; }

    /// The text of a text node, with everything that it refers to.
    QString textOf(int index) const;
    /// The same for an attribute's value.
    QString valueOf(const XmlAttribute &attribute) const;
    QStringView nameOf(const XmlAttribute &attribute) const;
    const XmlAttribute &attribute(int index) const { return m_attributes[static_cast<std::size_t>(index)]; }
    /// The first attribute that an element has under the name of a later one of it; null when there is none.
    const XmlAttribute *sameAttributeBefore(const XmlNode &element, int number) const;

    /// Whether a text node has nothing but white space.
    bool isBlank(int index) const;

    /// Where the document refers to entities that nothing in it declares.
    std::vector<int> unknownEntities() const;
    /// Whether something declares an entity, XML itself included.
    bool hasEntity(QStringView name) const;

    /// Whether the document type names another file that may declare entities. The stream does not read it,
    /// but takes what refers to them.
    bool hasExternalSubset() const { return m_hasExternalSubset; }

    XmlDialect dialect() const { return m_dialect; }

    /// Where elements and texts may come from that do not stand in the source: a document type that declares
    /// more than plain texts. -1 when there is no such thing.
    int unfollowedDocumentType() const { return m_unfollowedDocumentType; }

    /// Where the structure is broken: an end tag that closes nothing, a tag that is none, text outside of the
    /// root, the end of the source when something has no end. -1 when it is whole.
    int brokenAt() const { return m_brokenAt; }
    /// The innermost element that is open there; -1 for none.
    int openWhereBroken() const { return m_openWhereBroken; }
    /// What the source ends within.
    const XmlUnfinished &unfinished() const { return m_unfinished; }

private:
    friend class XmlScanner;
    friend class XmlElement;

    int firstBetween(int begin, int end, int name) const;
    std::vector<XmlElement> allBetween(int begin, int end, QLatin1String name) const;

    QString expanded(QStringView raw, bool isAttribute, int nesting = 0) const;
    QString entityText(QStringView name, int nesting) const;
    bool isUnknownEntity(QStringView name) const
    {
        return !name.startsWith(QLatin1Char('#')) && !hasEntity(name);
    }
    void collectUnknownEntities(int at, int size, std::vector<int> &places) const;

    QString m_source;
    // Hardly a template has either, so that its texts need not be searched for them one by one.
    bool m_hasReferences;
    bool m_hasReturns;
    XmlDialect m_dialect;
    std::vector<XmlNode> m_nodes;
    std::vector<XmlAttribute> m_attributes;
    QHash<QStringView, int> m_numbers;
    std::vector<QString> m_names; // by their numbers
    QHash<QString, QString> m_entities;
    bool m_hasExternalSubset = false;
    int m_unfollowedDocumentType = -1;
    int m_brokenAt = -1;
    int m_openWhereBroken = -1;
    XmlUnfinished m_unfinished;
};

/// One element of a tree. Null when a look-up found nothing: it has no attributes, no text and nothing below.
class XmlElement
{
public:
    XmlElement() = default;
    XmlElement(const XmlTree &tree, int index) : m_tree(&tree), m_index(index) {}

    bool isNull() const { return !m_tree; }
    int index() const { return m_index; }
    const XmlTree &tree() const { return *m_tree; }

    /// The place of its "<"; -1 for the null element.
    int at() const { return isNull() ? -1 : node().at; }
    QString name() const { return isNull() ? QString() : m_tree->m_names[nameIndex()]; }
    int nameNumber() const { return node().name; }
    bool hasName(QLatin1String name) const { return !isNull() && this->name() == name; }

    XmlElement parent() const;
    std::vector<XmlElement> children() const;

    /// The attribute of a name, the last of them where it is given more than once; null when it has none.
    const XmlAttribute *attribute(QLatin1String name) const;
    std::vector<const XmlAttribute *> attributes() const;

    /// All text below the element, as its parser's tree would give it; null for the null element.
    QString text() const;
    /// The place of the first character of text that is not blank; that of the element when there is none.
    int textAt() const;
    /// The place of the first character of text that is not blank and stands in no element below this one; -1
    /// when there is none.
    int ownTextAt() const;

    /// The first element of a name below this one, at any depth; null when there is none.
    XmlElement first(QLatin1String name) const;
    /// All elements of a name below this one, at any depth, in document order.
    std::vector<XmlElement> all(QLatin1String name) const;

    bool contains(const XmlElement &other) const;

    bool operator==(const XmlElement &other) const
    {
        return m_tree == other.m_tree && m_index == other.m_index;
    }

private:
    const XmlNode &node() const { return m_tree->node(m_index); }
    std::size_t nameIndex() const { return static_cast<std::size_t>(node().name); }

    const XmlTree *m_tree = nullptr;
    int m_index = -1;
};

} // namespace Tobrix::Templates
