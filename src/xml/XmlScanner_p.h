#pragma once

#include "xml/XmlTree_p.h"

namespace Tobrix::Templates {

/// Fills a tree from its source. Expects text that a parser has accepted, and terminates on any other.
class XmlScanner
{
public:
    explicit XmlScanner(XmlTree &tree) : m_tree(tree), m_source(tree.m_source) {}

    void scan();

private:
    void scanMarkup();
    void scanText(int end);
    /// Adds a non-empty text or chunk of text.
    void pushText(XmlNode::Kind kind, int end);
    /// Adds a text up to its last reference to an entity that another file may declare.
    void splitText(int end);
    void scanStartTag();
    void scanAttributes();
    void scanEndTag();
    void scanDocumentType();
    void readEntities(QStringView documentType, int at);

    /// Whether an entity's text has a reference that the stream reports as a token.
    bool hasDividedEntity() const;

    /// Adds markup up to and including a terminator.
    void scanTo(QLatin1String terminator, XmlNode::Kind kind, int openingSize);

    /// Skips a construct in a document type, up to the last character of its terminator.
    void skipTo(QLatin1String terminator, int openingSize);

    QChar here() const { return m_at < m_size ? m_source.at(m_at) : QChar(); }
    bool isHere(QLatin1String text) const { return QStringView(m_source).mid(m_at).startsWith(text); }
    void skipSpace();
    QStringView takeName();
    int numberOf(QStringView name);
    void push(XmlNode node);

    /// The offset of the first text outside of all elements, up to an end; the end when there is none.
    int strayTextBefore(int end) const;

    /// Records where the document is broken; the first place wins.
    void breakIf(bool isBroken, int at);

    XmlTree &m_tree;
    const QString &m_source;
    const int m_size = m_source.size();
    int m_at = 0;
    std::vector<int> m_open;
};

} // namespace Tobrix::Templates
