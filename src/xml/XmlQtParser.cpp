#include "xml/XmlQtParser_p.h"

#include "xml/GuardedMarkup_p.h"
#include "xml/XmlLimits_p.h"

#include <QDomDocument>
#include <QXmlStreamReader>

#include <algorithm>

namespace Tobrix::Templates {

namespace {

using Node = XmlDocument::Node;

QString withoutFullStop(QString explanation)
{
    if (explanation.endsWith(QLatin1Char('.'))) {
        explanation.chop(1);
    }
    return explanation;
}

Node::Kind kindOf(const QDomNode &node)
{
    return node.isCDATASection() ? Node::CData
           : node.isText()       ? Node::Text
           : node.isComment()    ? Node::Comment
                                 : Node::Instruction;
}

} // namespace

void XmlQtParser::parse(const QByteArray &bytes)
{
    m_document.m_bytes = bytes;
    const int tags = std::min(bytes.count('<'), bytes.size() / static_cast<int>(sizeof(Node)));
    m_document.m_nodes.reserve(static_cast<std::size_t>(tags) + 1);
    // An empty text is not null to any reader.
    m_document.m_texts = QStringLiteral("");
    GuardedMarkup markup(bytes);
    if (m_document.m_dialect == XmlDialect::Dom) {
        parseDom(markup);
    } else {
        parseStream(markup);
    }
    if (m_hasTooManyNames) {
        m_document.m_fault = {XmlFault::OverLimit,
                              QStringLiteral("more than %1 different names").arg(Limits::names), 1, 1, false};
    }
    if (m_document.m_dialect == XmlDialect::Dom && m_document.m_fault.kind == XmlFault::OverLimit) {
        m_document.m_nodes.clear();
        m_document.m_attributes.clear();
    }
    add(Node::Text, QStringView());
}

void XmlQtParser::noteFault(const GuardedMarkup &markup, int line, int column, const QString &explanation)
{
    if (!markup.excess().isEmpty() && !markup.isFaultBeforeExcess(line, column)) {
        m_document.m_fault = {XmlFault::OverLimit, markup.excess(), markup.excessLine(),
                              markup.excessColumn(), false};
    } else if (line > 0) {
        const bool isUndecodable = explanation == QLatin1String("Encountered incorrectly encoded content.");
        m_document.m_fault = {XmlFault::NotWellFormed, withoutFullStop(explanation), line, column,
                              isUndecodable};
    }
}

void XmlQtParser::parseDom(GuardedMarkup &markup)
{
    QDomDocument dom;
    QString explanation;
    int line = 0;
    int column = 0;
    const bool isWellFormed = dom.setContent(&markup, false, &explanation, &line, &column);
    noteFault(markup, isWellFormed ? 0 : line, column, explanation);
    if (m_document.m_fault.kind == XmlFault::OverLimit) {
        return;
    }
    std::vector<int> open;
    QDomNode node = dom.firstChild();
    while (!node.isNull()) {
        if (node.isElement()) {
            open.push_back(begin(node.nodeName()));
        }
        addDomNode(node);
        // Text below an entity reference does not belong to the element around it.
        QDomNode next = node.isElement() || node.isEntityReference() ? node.firstChild() : QDomNode();
        while (next.isNull() && !node.isNull()) {
            if (node.isElement()) {
                end(open.back(), true);
                open.pop_back();
            }
            next = node.nextSibling();
            node = node.parentNode();
        }
        node = next;
    }
}

void XmlQtParser::addDomNode(const QDomNode &node)
{
    if (node.isElement()) {
        const QDomNamedNodeMap attributes = node.attributes();
        for (int i = 0; i < attributes.length(); ++i) {
            const QDomNode attribute = attributes.item(i);
            addAttribute(attribute.nodeName(), attribute.nodeValue());
        }
    } else if (node.isText() || node.isComment() || node.isProcessingInstruction()) {
        const bool isInReference = node.parentNode().isEntityReference();
        const bool isXmlDeclaration =
            node.isProcessingInstruction() && node.nodeName() == QLatin1String("xml");
        if (!isInReference && !isXmlDeclaration) {
            add(kindOf(node), node.nodeValue());
        }
    }
}

void XmlQtParser::parseStream(GuardedMarkup &markup)
{
    QXmlStreamReader xml(&markup);
    std::vector<int> open;
    // The stream asks the device whether it is at its end, and the device does not know the limits.
    for (auto token = xml.readNext();
         token != QXmlStreamReader::EndDocument && token != QXmlStreamReader::Invalid;
         token = xml.readNext()) {
        switch (token) {
        case QXmlStreamReader::StartElement:
            open.push_back(begin(xml.name()));
            addAttributes(xml.attributes());
            break;
        case QXmlStreamReader::EndElement:
            end(open.back(), true);
            open.pop_back();
            break;
        case QXmlStreamReader::Characters:
            if (!open.empty()) {
                add(xml.isCDATA() ? Node::CData : Node::Text, xml.text());
            }
            break;
        case QXmlStreamReader::Comment:
            add(Node::Comment, xml.text());
            break;
        case QXmlStreamReader::ProcessingInstruction:
            add(Node::Instruction, xml.processingInstructionData());
            break;
        case QXmlStreamReader::EntityReference:
            add(Node::Reference, xml.name());
            break;
        default:
            break;
        }
    }
    for (const int element : open) {
        end(element, false);
    }
    const int column = static_cast<int>(xml.columnNumber()) + 1;
    noteFault(markup, xml.hasError() ? static_cast<int>(xml.lineNumber()) : 0, column, xml.errorString());
}

int XmlQtParser::begin(QStringView name)
{
    const int element = static_cast<int>(m_document.m_nodes.size());
    Node node;
    node.firstAttribute = static_cast<quint32>(m_document.m_attributes.size());
    node.name = numberOf(name) & 0xFFFFFF;
    node.kind = Node::Element;
    node.flags = 0;
    m_document.m_nodes.push_back(node);
    return element;
}

void XmlQtParser::end(int element, bool isClosed)
{
    Node &node = m_document.m_nodes[static_cast<std::size_t>(element)];
    node.extent = static_cast<quint32>(m_document.m_nodes.size());
    node.flags = isClosed ? XmlDocument::Closed : 0;
}

void XmlQtParser::add(Node::Kind kind, QStringView text)
{
    Node node;
    node.at = keep(text);
    node.extent = static_cast<quint32>(text.size());
    node.firstAttribute = static_cast<quint32>(m_document.m_attributes.size());
    node.name = 0;
    node.kind = kind;
    node.flags = 0;
    m_document.m_nodes.push_back(node);
}

void XmlQtParser::addAttributes(const QXmlStreamAttributes &attributes)
{
    for (const auto &attribute : attributes) {
        addAttribute(attribute.qualifiedName(), attribute.value());
    }
}

void XmlQtParser::addAttribute(QStringView name, QStringView value)
{
    XmlDocument::Attribute attribute;
    attribute.valueAt = keep(value);
    attribute.valueSize = static_cast<quint32>(value.size());
    attribute.name = numberOf(name) & 0xFFFFFF;
    attribute.flags = 0;
    m_document.m_attributes.push_back(attribute);
}

quint32 XmlQtParser::numberOf(QStringView name)
{
    std::vector<QString> &names = m_document.m_names;
    if (m_expected < names.size() && name == names[m_expected]) {
        m_last = m_expected;
        m_expected = m_successors[m_last];
        return m_last;
    }
    const auto next = static_cast<quint32>(names.size());
    auto found = m_numbers.find(name);
    if (found == m_numbers.end() && next == Limits::names) {
        m_hasTooManyNames = true;
        return 0;
    }
    if (found == m_numbers.end()) {
        names.push_back(name.toString());
        found = m_numbers.emplace(names.back(), next).first;
        m_successors.push_back(0);
    }
    m_successors[m_last] = found->second;
    m_last = found->second;
    m_expected = m_successors[m_last];
    return m_last;
}

quint32 XmlQtParser::keep(QStringView text)
{
    const int at = m_document.m_texts.size();
    m_document.m_texts.append(text.data(), static_cast<int>(text.size()));
    return static_cast<quint32>(at);
}

} // namespace Tobrix::Templates
