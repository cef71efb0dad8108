#pragma once

#include "xml/XmlDocument_p.h"

#include <QStringView>

#include <map>

class QDomNode;
class QXmlStreamAttributes;

namespace Tobrix::Templates {

class GuardedMarkup;

/// Fills a document from Qt's parser of the dialect, for files that the strict parser refuses.
class XmlQtParser
{
public:
    explicit XmlQtParser(XmlDocument &document) : m_document(document) {}

    void parse(const QByteArray &bytes);

private:
    void parseDom(GuardedMarkup &markup);
    void parseStream(GuardedMarkup &markup);
    void noteFault(const GuardedMarkup &markup, int line, int column, const QString &explanation);

    int begin(QStringView name);
    void add(XmlDocument::Node::Kind kind, QStringView text);
    void addAttribute(QStringView name, QStringView value);
    void addDomNode(const QDomNode &node);
    void addAttributes(const QXmlStreamAttributes &attributes);
    void end(int element, bool isClosed);
    quint32 numberOf(QStringView name);
    quint32 keep(QStringView text);

    XmlDocument &m_document;
    // Views of the document's names. An ordered map: a file could choose names with colliding hashes.
    std::map<QStringView, quint32> m_numbers;
    // By name, the one that came after it the last time: markup repeats itself.
    std::vector<quint32> m_successors;
    quint32 m_last = 0;
    quint32 m_expected = 0;
    bool m_hasTooManyNames = false;
};

} // namespace Tobrix::Templates
