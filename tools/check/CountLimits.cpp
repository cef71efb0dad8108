#include "tools/check/CountLimits.h"

#include "tools/check/model/TemplateModel.h"
#include "xml/XmlTree_p.h"

#include "rawdata/TemplateLimits_p.h"

#include <QSet>

#include <algorithm>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// Containers whose content is limited, each counted with all that it holds.
struct LimitedContent
{
    QLatin1String container; // none for the whole document
    QLatin1String content;
    int limit;
    QLatin1String words;
};

constexpr LimitedContent limitedContents[] = {
    {QLatin1String("View"), QLatin1String("Column"), Limits::columns, QLatin1String("columns")},
    {QLatin1String("ValueList"), QLatin1String("ValueListItem"), Limits::listItems,
     QLatin1String("list items")},
    {QLatin1String("ClassificationColorScope"), QLatin1String("ClassificationColor"), Limits::legendClasses,
     QLatin1String("legend classes")},
    {QLatin1String(), QLatin1String("View"), Limits::views, QLatin1String("views")},
};

/// The containers of a kind that count. Of the legends that are those of the scheme that hosts show.
std::vector<XmlElement> containersOf(const XmlTree &tree, QLatin1String container)
{
    if (container != QLatin1String("ClassificationColorScope")) {
        return tree.all(container);
    }
    std::vector<XmlElement> scopes = tree.first(QLatin1String("ClassificationColorScopes")).all(container);
    const auto isOther = [&tree](const XmlElement &scope) {
        const XmlAttribute *name = scope.attribute(QLatin1String("Name"));
        return !name || tree.valueOf(*name) != QLatin1String("ClassColorDefault");
    };
    scopes.erase(std::remove_if(scopes.begin(), scopes.end(), isOther), scopes.end());
    return scopes;
}

/// How often each node counts, by the containers around it.
class ContainersAround
{
public:
    ContainersAround(const XmlTree &tree, QLatin1String container)
        : m_tree(tree), m_isWholeDocument(container.isEmpty())
    {
        if (!m_isWholeDocument) {
            m_containers = containersOf(tree, container);
        }
    }

    /// To be called with nodes in the order of the document.
    std::size_t countAround(int index)
    {
        while (m_next < m_containers.size() && m_containers[m_next].index() < index) {
            const int container = m_containers[m_next++].index();
            closeBefore(container);
            m_open.push_back(m_tree.node(container).end);
        }
        closeBefore(index);
        return m_isWholeDocument ? 1 : m_open.size();
    }

private:
    void closeBefore(int index)
    {
        while (!m_open.empty() && m_open.back() <= index) {
            m_open.pop_back();
        }
    }

    const XmlTree &m_tree;
    const bool m_isWholeDocument;
    std::vector<XmlElement> m_containers;
    std::size_t m_next = 0;
    std::vector<int> m_open; // the ends of those around the current node
};

/// The place of the element that goes past a limit; -1 when none does.
int placeOfOneTooMany(const XmlTree &tree, const LimitedContent &limited)
{
    ContainersAround containers(tree, limited.container);
    std::size_t count = 0;
    for (const auto &element : tree.all(limited.content)) {
        count += containers.countAround(element.index());
        if (count > static_cast<std::size_t>(limited.limit)) {
            return element.at();
        }
    }
    return -1;
}

/// What a legacy template may have so many of, with the places of all that it has.
struct CountedPlaces
{
    int limit;
    QLatin1String words;
    std::vector<int> (*placesIn)(const TemplateModel &model);
};

std::vector<int> placesOfViews(const TemplateModel &model)
{
    std::vector<int> places;
    QSet<QString> ids;
    for (const auto &view : model.views) {
        if (!ids.contains(view.id.text)) {
            ids.insert(view.id.text);
            places.push_back(view.at);
        }
    }
    return places;
}

std::vector<int> placesOfColumns(const TemplateModel &model)
{
    std::vector<int> places;
    for (const auto &column : model.columns) {
        if (column.type != CTemplateColumn::Unknown) {
            places.push_back(column.at);
        }
    }
    return places;
}

std::vector<int> placesOfListItems(const TemplateModel &model)
{
    std::vector<int> places;
    for (const auto &list : model.lists) {
        for (const auto &item : list.items) {
            places.push_back(item.at);
        }
    }
    return places;
}

constexpr CountedPlaces countedPlaces[] = {
    {Limits::views, QLatin1String("views"), placesOfViews},
    {Limits::columns, QLatin1String("columns"), placesOfColumns},
    {Limits::listItems, QLatin1String("list items"), placesOfListItems},
};

CountExcess excessAt(int limit, QLatin1String words, int at)
{
    return {QStringLiteral("more than %1 %2").arg(limit).arg(words), at};
}

} // namespace

CountExcess excessOfCurrent(const XmlTree &document)
{
    for (const auto &limited : limitedContents) {
        const int at = placeOfOneTooMany(document, limited);
        if (at >= 0) {
            return excessAt(limited.limit, limited.words, at);
        }
    }
    return {};
}

CountExcess excessOfLegacy(const TemplateModel &model)
{
    for (const auto &counted : countedPlaces) {
        std::vector<int> places = counted.placesIn(model);
        if (places.size() > static_cast<std::size_t>(counted.limit)) {
            const auto oneTooMany = places.begin() + counted.limit;
            std::nth_element(places.begin(), oneTooMany, places.end());
            return excessAt(counted.limit, counted.words, *oneTooMany);
        }
    }
    return model.bandTooManyAt < 0
               ? CountExcess()
               : excessAt(Limits::legendClasses, QLatin1String("legend classes"), model.bandTooManyAt);
}

} // namespace Tobrix::Tools
