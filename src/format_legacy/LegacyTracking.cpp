#include "format_legacy/LegacyTracking_p.h"

#include "rawdata/CTemplateRawData.h"

#include <algorithm>

namespace Tobrix::Templates {

namespace {

bool isNameOfFormat(const QString &name)
{
    const auto isNamed = [&name](const LegacySection &section) {
        for (int i = 0; i < section.rows.count; ++i) {
            if (section.rows.at(i).element == name) {
                return true;
            }
        }
        return section.row.element == name;
    };
    return std::any_of(std::begin(legacySections), std::end(legacySections), isNamed);
}

} // namespace

LegacyTracking::LegacyTracking(const XmlDocument &document, ReadingObserver &observer)
    : m_document(document), m_observer(observer)
{
    for (const auto &name : document.names()) {
        m_isOfFormat.push_back(isNameOfFormat(name));
    }
    observer.begin(document);
}

LegacyTracking::Holders LegacyTracking::noHolders()
{
    Holders holders;
    holders.fill(-1);
    return holders;
}

void LegacyTracking::closeBefore(int node)
{
    while (!m_open.empty() && m_document.end(m_open.back().element) <= node) {
        m_open.pop_back();
    }
}

void LegacyTracking::open(int element, bool isPassedOver)
{
    closeBefore(element);
    m_open.push_back({element, isPassedOver});
}

void LegacyTracking::startTopLevel(int element, Tokens::TemplateToken token)
{
    if (token == Tokens::UnknownTemplateElement) {
        passOverUnknown(element);
        for (int i = element + 1; i < m_document.end(element); ++i) {
            m_observer.passOver(i, nullptr, Reason::InPassedOver, -1);
        }
    } else if (legacySection(token).isContainer()) {
        open(element, false);
        passOverAttributes(element);
    } else {
        m_section = element;
        m_object = token == Tokens::SYSTPL ? -1 : element;
        m_holders = noHolders();
        m_legend = &m_legends[0];
    }
}

void LegacyTracking::startInSection(int element, const FormatRow *row)
{
    const bool isUnknown = !row && element != m_section;
    const bool isIgnored = row && row->kind == ValueKind::Ignored;
    open(element, isUnknown || isIgnored);
    if (isUnknown) {
        passOverUnknown(element);
        return;
    }
    if (isIgnored) {
        m_observer.passOver(element, nullptr, Reason::Ignored, -1);
    }
    passOverAttributes(element);
}

void LegacyTracking::startInLegends(int element, Tokens::LegendToken token)
{
    if (token == Tokens::LegendClass) {
        open(element, false);
        m_legend->push_back({element, noHolders()});
        return;
    }
    startInSection(element, token == 0 ? nullptr : &legendFields[token - 1].row);
    if (beginsLegend(token)) {
        beginLegend(element, token);
    }
}

void LegacyTracking::beginLegend(int element, Tokens::LegendToken token)
{
    m_legend = &m_legends[token == Tokens::Section ? 0 : 1];
    for (const auto &legendClass : *m_legend) {
        m_observer.passOver(legendClass.element, nullptr, Reason::Replaced, element);
    }
    m_legend->clear();
    m_result = true;
    m_observer.take({legendFields[token - 1].row, element, -1, nullptr, m_result, m_section, -1});
}

void LegacyTracking::passOverUnknown(int element)
{
    const bool isOfFormat = m_isOfFormat[m_document.node(element).name];
    m_observer.passOver(element, nullptr, isOfFormat ? Reason::NotHere : Reason::UnknownElement, -1);
}

void LegacyTracking::passOverAttributes(int element)
{
    for (const auto &attribute : m_document.attributes(element)) {
        m_observer.passOver(element, &attribute, Reason::UnknownAttribute, -1);
    }
}

void LegacyTracking::passOver(int node)
{
    closeBefore(node);
    const auto kind = m_document.node(node).kind;
    const bool isInPassedOver = !m_open.empty() && m_open.back().isPassedOver;
    const int takenText = m_open.empty() ? -1 : m_open.back().text;
    QString buffer;
    if (isInPassedOver) {
        m_observer.passOver(node, nullptr, Reason::InPassedOver, -1);
    } else if (kind == XmlDocument::Node::Comment) {
        m_observer.passOver(node, nullptr, Reason::Comment, -1);
    } else if (kind == XmlDocument::Node::Instruction) {
        m_observer.passOver(node, nullptr, Reason::Instruction, -1);
    } else if (m_document.isText(node) && m_document.text(node, buffer).trimmed().isEmpty()) {
        m_observer.passOver(node, nullptr, Reason::WhiteSpace, -1);
    } else {
        m_observer.passOver(node, nullptr, takenText < 0 ? Reason::Text : Reason::NotTheFirstText, takenText);
    }
}

void LegacyTracking::take(const FormatRow &row, int element, int text, int object, int &holder)
{
    closeBefore(text);
    if (!m_open.empty() && m_open.back().element == element) {
        m_open.back().text = text;
    }
    m_observer.take({row, element, text, nullptr, m_result, object, holder});
    holder = element;
}

void LegacyTracking::takeText(const FormatRow &row, int field, int element, int text)
{
    if (row.kind == ValueKind::Ignored) {
        passOver(text);
        return;
    }
    Holders &holders = m_object < 0 ? m_headerHolders : m_holders;
    take(row, element, text, m_object, holders[static_cast<std::size_t>(field)]);
}

void LegacyTracking::takeCaption(const FormatRow &row, Tokens::LegendToken token, int element, int text)
{
    if (row.kind != ValueKind::Text) {
        passOver(text);
    } else if (m_legend->empty()) {
        m_observer.passOver(text, nullptr, Reason::WithoutLegendClass, -1);
    } else {
        LegendClass &legendClass = m_legend->back();
        take(row, element, text, legendClass.element, legendClass.holders[static_cast<std::size_t>(token)]);
    }
}

void LegacyTracking::takeAttribute(const FormatRow *row, int element, const XmlDocument::Attribute &attribute)
{
    if (row) {
        m_observer.take({*row, element, -1, &attribute, m_result, element, -1});
    } else {
        m_observer.passOver(element, &attribute, Reason::UnknownAttribute, -1);
    }
}

void LegacyTracking::fileView(const CProgramView &view, int section)
{
    const auto earlier = m_views.constFind(view.uniqueId());
    if (earlier != m_views.cend()) {
        m_observer.passOver(*earlier, nullptr, Reason::Replaced, section);
    }
    m_views.insert(view.uniqueId(), section);
    m_observer.fileView(view, section);
}

void LegacyTracking::fileColumn(const CTemplateColumn &column, const CColumnData &data, int section)
{
    m_observer.fileColumn(&column, data, section, -1);
}

void LegacyTracking::fileListItem(const CListItem &item, const QString &listName, int section)
{
    m_observer.fileListItem(item, listName, section, -1);
}

void LegacyTracking::fileLegends(const CTemplateRawData &rawData)
{
    for (const bool isLateral : {false, true}) {
        const auto &legend = isLateral ? rawData.legendB : rawData.legendA;
        const auto &classes = m_legends[isLateral ? 1 : 0];
        for (std::size_t i = 0; i < classes.size(); ++i) {
            m_observer.fileLegendClass(legend.at(static_cast<int>(i)), isLateral, classes[i].element);
        }
    }
}

void LegacyTracking::dropColumn(int section)
{
    m_observer.passOver(section, nullptr, Reason::UnknownType, -1);
}

void LegacyTracking::dropListItem(int section)
{
    m_observer.passOver(section, nullptr, Reason::WithoutList, -1);
}

} // namespace Tobrix::Templates
