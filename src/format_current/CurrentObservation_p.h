#pragma once

#include "format_current/CurrentMarkup_p.h"
#include "rawdata/ReadingObserver_p.h"

#include <QHash>
#include <QMap>

#include <array>
#include <vector>

namespace Tobrix::Templates {

/// Reports a reading to an observer, and records what was taken, so that everything skipped can be reported
/// at the end with the reason.
class CurrentObservation
{
public:
    CurrentObservation(const CurrentMarkup &markup, ReadingObserver &observer);

    /// The next values are for the object of an element that a look-up has found.
    void begin(CurrentLookup lookup, int element);
    void find(CurrentLookup lookup, int element);
    /// @param attribute that has the value; null for a text or a presence
    void take(CurrentValue value, int element, const XmlDocument::Attribute *attribute,
              const QVariant &result);
    void passOver(int element, ReadingObserver::Reason reason, int inFavourOf = -1);

    void fileView(const CProgramView &view, int element);
    void fileColumn(const CTemplateColumn *column, const CColumnData &data, int element, int view);
    void fileListItem(const CListItem &item, const QString &listName, int element, int list);
    void fileLegendClass(const CTemplateLegendDataItem &legendClass, bool isLateral, int element);
    void fileDefault(const QString &path, const QString &view, const QString &value, int element);
    void fileList(const QString &name, int classType, int element);

    /// To be called after the reading: reports everything that was not taken, in document order.
    void reportRest();

private:
    // An element around the current node.
    struct Around
    {
        int end;
        quint64 lookups;   // that found it, a bit for each
        bool isPassedOver; // the element itself is skipped
        bool isHidden;     // the element and all unfound descendants are skipped
        std::array<int, indexOf(CurrentLookup::Count)> first; // found below it
    };

    int takeTexts(int element);
    std::size_t indexOfAttribute(const XmlDocument::Attribute &attribute) const;
    void reportElement(int node);
    void reportAttributes(int node, bool isPassedOver);
    void reportText(int node);
    void enter(int node, bool isPassedOver, bool isHidden);
    ReadingObserver::Reason reasonFor(int node, int &inFavourOf) const;
    static bool isAttributeOf(CurrentElement element, const QString &name);

    const CurrentMarkup &m_markup;
    const XmlDocument &m_document;
    ReadingObserver &m_observer;
    int m_object = -1;
    int m_classNameOf = -1;      // the preset that gave the class name last
    QHash<QString, int> m_views; // elements by id
    QMap<std::pair<QString, QString>, int> m_defaults;
    std::vector<quint64> m_lookups;   // by node: the look-ups that found it, a bit for each
    std::vector<bool> m_isTaken;      // texts, by node
    std::vector<bool> m_isPassedOver; // elements reported by the reader, by node
    std::vector<bool> m_isAttributeTaken;
    std::vector<Around> m_around;
};

} // namespace Tobrix::Templates
