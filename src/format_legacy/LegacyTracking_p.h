#pragma once

#include "format_legacy/LegacyFormat_p.h"
#include "rawdata/ReadingObserver_p.h"

#include <QHash>
#include <QVariant>

#include <array>
#include <vector>

namespace Tobrix::Templates {

struct CTemplateRawData;

/// Reports the actions of the legacy format reader to an observer, and keeps the state for that: open
/// elements, replaced values, elements of objects.
class LegacyTracking
{
public:
    LegacyTracking(const XmlDocument &document, ReadingObserver &observer);

    /// An element outside of sections.
    void startTopLevel(int element, Tokens::TemplateToken token);
    /// An element of a section, the section's own included.
    /// @param row null for an element that is unknown in the section
    void startInSection(int element, const FormatRow *row);
    void startInLegends(int element, Tokens::LegendToken token);

    /// A node other than an element, which no value is taken from.
    void passOver(int node);

    /// The converted value of the next report.
    QVariant &result() { return m_result; }
    /// @param field identifies the target within its object
    void takeText(const FormatRow &row, int field, int element, int text);
    void takeCaption(const FormatRow &row, Tokens::LegendToken token, int element, int text);
    /// @param row null for an unknown attribute
    void takeAttribute(const FormatRow *row, int element, const XmlDocument::Attribute &attribute);

    void fileView(const CProgramView &view, int section);
    void fileColumn(const CTemplateColumn &column, const CColumnData &data, int section);
    void fileListItem(const CListItem &item, const QString &listName, int section);
    /// Reports the legend classes, which no later group can clear any more.
    void fileLegends(const CTemplateRawData &rawData);
    void dropColumn(int section);
    void dropListItem(int section);

private:
    using Reason = ReadingObserver::Reason;
    /// The elements that the values of an object were taken from, by field; -1 for none.
    using Holders = std::array<int, std::size(columnFields) + 1>;

    struct OpenElement
    {
        int element;
        bool isPassedOver;
        int text = -1; // the text node that was taken for the element
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
    int m_object = -1; // the element of the object that the section's values belong to; -1 for the template
    Holders m_headerHolders = noHolders();
    Holders m_holders = noHolders();
    QHash<QString, int> m_views;
    std::vector<LegendClass> m_legends[2];
    std::vector<LegendClass> *m_legend = nullptr; // the current one
};

} // namespace Tobrix::Templates
