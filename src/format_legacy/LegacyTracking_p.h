#pragma once

#include "format_legacy/LegacyFormat_p.h"
#include "rawdata/ReadingObserver_p.h"

#include <QHash>
#include <QVariant>

#include <array>
#include <vector>

namespace Tobrix::Templates {

struct CTemplateRawData;

/// Tells an observer what the legacy format's reader does, and keeps what that takes beside the reading:
/// which elements are open, what a value replaces, which element an object is from.
class LegacyTracking
{
public:
    LegacyTracking(const XmlDocument &document, ReadingObserver &observer);

    /// An element outside of sections.
    void startTopLevel(int element, Tokens::TemplateToken token);
    /// An element of a section, the section's own among them.
    /// @param row null for an element that the section does not know
    void startInSection(int element, const FormatRow *row);
    void startInLegends(int element, Tokens::LegendToken token);

    /// A node that is no element and that nothing takes.
    void passOver(int node);

    /// What the value that is reported next was converted to.
    QVariant &result() { return m_result; }
    /// @param field tells apart what values of one object are stored in
    void takeText(const FormatRow &row, int field, int element, int text);
    void takeCaption(const FormatRow &row, Tokens::LegendToken token, int element, int text);
    /// @param row null for an attribute that the format does not know
    void takeAttribute(const FormatRow *row, int element, const XmlDocument::Attribute &attribute);

    void fileView(const CProgramView &view, int section);
    void fileColumn(const CTemplateColumn &column, const CColumnData &data, int section);
    void fileListItem(const CListItem &item, const QString &listName, int section);
    /// Files the legend classes, which no later group can clear any more.
    void fileLegends(const CTemplateRawData &rawData);
    void dropColumn(int section);
    void dropListItem(int section);

private:
    using Reason = ReadingObserver::Reason;
    /// The elements that hold the values of an object, by the values' fields; -1 for those that it has not.
    using Holders = std::array<int, std::size(columnFields) + 1>;

    struct OpenElement
    {
        int element;
        bool isPassedOver;
        int text = -1; // the text node of the element that is taken
    };

    struct LegendClass
    {
        int element;
        Holders holders;
    };

    static Holders noHolders();
    void closeBefore(int node);
    void open(int element, bool isPassedOver);
    void passOverUnknown(int element);
    void passOverAttributes(int element);
    void beginLegend(int element, Tokens::LegendToken token);
    void take(const FormatRow &row, int element, int text, int object, int &holder);

    const XmlDocument &m_document;
    ReadingObserver &m_observer;
    std::vector<bool> m_isOfFormat; // by the numbers of names
    std::vector<OpenElement> m_open;
    QVariant m_result;
    int m_section = -1;
    int m_object = -1; // the element that the values of the section belong to; -1 for the template
    Holders m_headerHolders = noHolders();
    Holders m_holders = noHolders();
    QHash<QString, int> m_views;
    std::vector<LegendClass> m_legends[2];
    std::vector<LegendClass> *m_legend = nullptr; // the current one
};

} // namespace Tobrix::Templates
