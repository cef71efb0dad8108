#pragma once

#include "xml/XmlTree_p.h"

namespace Tobrix::Templates {

/// Fills a tree from its source. Takes what a parser has accepted, and comes to an end on everything else.
class XmlScanner
{
public:
    explicit XmlScanner(XmlTree &tree) : m_tree(tree), m_source(tree.m_source) {}

    void scan();

private:
    void scanMarkup();
    void scanText(int end);
    /// Takes a text, or a piece of one, that is not empty.
    void pushText(XmlNode::Kind kind, int end);
    /// Takes a text up to its last reference to an entity that another file may declare.
    void splitText(int end);
    void scanStartTag();
    void scanAttributes();
    void scanEndTag();
    void scanDocumentType();
    void readEntities(QStringView documentType, int at);

    /// Whether the text of an entity has a reference in it that the stream hands out on its own.
    bool hasDividedEntity() const;

    /// Takes markup up to a terminator, which it passes.
    void scanTo(QLatin1String terminator, XmlNode::Kind kind, int openingSize);

    /// Passes over something in a document type, up to the last character of its terminator.
    void skipTo(QLatin1String terminator, int openingSize);

    QChar here() const { return m_at < m_size ? m_source.at(m_at) : QChar(); }
    bool isHere(QLatin1String text) const { return QStringView(m_source).mid(m_at).startsWith(text); }
    void skipSpace();
    QStringView takeName();
    int numberOf(QStringView name);
    void push(XmlNode node);

    /// The place of the first text up to an end that stands in no element; the end when there is none.
    int strayTextBefore(int end) const;

    /// Notes where the document is broken, of several places the first.
    void breakIf(bool isBroken, int at);

    XmlTree &m_tree;
    const QString &m_source;
    const int m_size = m_source.size();
    int m_at = 0;
    std::vector<int> m_open;
};

} // namespace Tobrix::Templates
