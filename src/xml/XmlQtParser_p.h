#pragma once

#include "xml/XmlDocument_p.h"

#include <QHash>

class QDomNode;
class QXmlStreamAttributes;

namespace Tobrix::Templates {

class GuardedMarkup;

/// Fills a document with what Qt's parser of the dialect reports: for the files that the strict parser
/// refuses.
class XmlQtParser
{
public:
    explicit XmlQtParser(XmlDocument &document) : m_document(document) {}

    void parse(const QByteArray &bytes);

private:
    void parseDom(GuardedMarkup &markup);
    void parseStream(GuardedMarkup &markup);
    void noteFault(const GuardedMarkup &markup, int line, int column, const QString &explanation);

    int begin(const QString &name);
    void add(XmlDocument::Node::Kind kind, const QString &text);
    void addAttribute(const QString &name, const QString &value);
    void addDomNode(const QDomNode &node);
    void addAttributes(const QXmlStreamAttributes &attributes);
    void end(int element, bool isClosed);
    quint32 numberOf(const QString &name);
    quint32 keep(const QString &text);

    XmlDocument &m_document;
    QHash<QString, quint32> m_numbers;
};

} // namespace Tobrix::Templates
