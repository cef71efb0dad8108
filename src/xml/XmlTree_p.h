#pragma once

#include "xml/XmlDialect_p.h"

#include <QHash>
#include <QLatin1String>
#include <QString>
#include <QStringView>

#include <map>
#include <vector>

namespace Tobrix::Templates {

class XmlElement;

/// An attribute, as offsets into its document's source.
struct XmlAttribute
{
    int at = 0;
    int nameSize = 0;
    int valueAt = 0;
    int valueSize = 0;
};

/// A node, as offsets into its document's source. An element's descendants follow it, up to its end.
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
    int name = 0;        ///< the number of an element's name
    int end = 0;
    int parent = -1;
    int firstAttribute = 0;
    int attributeCount = 0;
};

/// The construct that the source ends in: its innermost open element, or a comment.
struct XmlUnfinished
{
    QString words;
    int at = -1;

    bool isNull() const { return at < 0; }
};

/// A document's elements and texts with their offsets. Texts are copied out of the source on request only.
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

    /// The names of all elements, indexed by number.
    const std::vector<QString> &names() const { return m_names; }

    /// The text of a text node, with references expanded.
    QString textOf(int index) const;
    /// The same for an attribute's value.
    QString valueOf(const XmlAttribute &attribute) const;
    QStringView nameOf(const XmlAttribute &attribute) const;
    const XmlAttribute &attribute(int index) const { return m_attributes[static_cast<std::size_t>(index)]; }
    /// The first attribute of the same name before an attribute of an element; null when there is none.
    const XmlAttribute *sameAttributeBefore(const XmlNode &element, int number) const;

    /// Whether a text node is whitespace only.
    bool isBlank(int index) const;

    /// Offsets of references to undeclared entities.
    std::vector<int> unknownEntities() const;
    /// Whether an entity is declared or predefined.
    bool hasEntity(QStringView name) const;

    /// Whether the document type names another file that may declare entities. The stream does not read it,
    /// but accepts references to them.
    bool hasExternalSubset() const { return m_hasExternalSubset; }

    XmlDialect dialect() const { return m_dialect; }

    /// The offset of a document type with declarations that may add elements to the document; -1 when there
    /// is none.
    int unfollowedDocumentType() const { return m_unfollowedDocumentType; }

    /// The offset where the structure is broken: an unmatched end tag, an invalid tag, text outside of the
    /// root, the end of the source within a construct. -1 when it is intact.
    int brokenAt() const { return m_brokenAt; }
    /// The innermost element that is open there; -1 for none.
    int openWhereBroken() const { return m_openWhereBroken; }
    /// The construct that the source ends in.
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
    // Real templates rarely have either, so texts need not be searched for them.
    bool m_hasReferences;
    bool m_hasReturns;
    XmlDialect m_dialect;
    std::vector<XmlNode> m_nodes;
    std::vector<XmlAttribute> m_attributes;
    // Ordered: a file could choose names whose hashes collide.
    std::map<QStringView, int> m_numbers;
    std::vector<QString> m_names; // by their numbers
    QHash<QString, QString> m_entities;
    bool m_hasExternalSubset = false;
    int m_unfollowedDocumentType = -1;
    int m_brokenAt = -1;
    int m_openWhereBroken = -1;
    XmlUnfinished m_unfinished;
};

/// One element of a tree. Null when a look-up found nothing: no attributes, no text, no descendants.
class XmlElement
{
public:
    XmlElement() = default;
    XmlElement(const XmlTree &tree, int index) : m_tree(&tree), m_index(index) {}

    bool isNull() const { return !m_tree; }
    int index() const { return m_index; }
    const XmlTree &tree() const { return *m_tree; }

    /// The offset of its "<"; -1 for the null element.
    int at() const { return isNull() ? -1 : node().at; }
    QString name() const { return isNull() ? QString() : m_tree->m_names[nameIndex()]; }
    int nameNumber() const { return node().name; }
    bool hasName(QLatin1String name) const { return !isNull() && this->name() == name; }

    XmlElement parent() const;
    std::vector<XmlElement> children() const;

    /// The last attribute of a name; null when it has none.
    const XmlAttribute *attribute(QLatin1String name) const;
    std::vector<const XmlAttribute *> attributes() const;

    /// All text below the element, as its parser's document gives it; null for the null element.
    QString text() const;
    /// The offset of the first character of text that is not whitespace; that of the element when there is
    /// none.
    int textAt() const;
    /// The same for text that is the element's own, outside of its descendants; -1 when there is none.
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
