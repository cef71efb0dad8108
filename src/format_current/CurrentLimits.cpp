#include "format_current/CurrentLimits_p.h"

#include "format_current/CurrentMarkup_p.h"
#include "rawdata/TemplateLimits_p.h"

namespace Tobrix::Templates {

namespace {

using Lookup = CurrentLookup;

/// A limited element, and the containers in which it is counted.
struct LimitedLookup
{
    Lookup container;
    Lookup content;
    int limit;
    QLatin1String words;
};

constexpr LimitedLookup limitedLookups[] = {
    {Lookup::Document, Lookup::View, Limits::views, QLatin1String("views")},
    {Lookup::View, Lookup::Column, Limits::columns, QLatin1String("columns")},
    {Lookup::List, Lookup::ListItem, Limits::listItems, QLatin1String("list items")},
    {Lookup::ColorScope, Lookup::LegendClass, Limits::legendClasses, QLatin1String("legend classes")},
};

std::vector<int> containersOf(const CurrentMarkup &markup, Lookup container)
{
    if (container != Lookup::ColorScope) {
        const auto all = markup.every(container);
        return {all.begin(), all.end()};
    }
    std::vector<int> scopes;
    for (const int scope : markup.every(container, markup.first(Lookup::ColorScopes))) {
        if (markup.is(CurrentValue::ScopeScheme, scope, CurrentWords::defaultScheme)) {
            scopes.push_back(scope);
        }
    }
    return scopes;
}

/// The first element over a limit; -1 when there is none.
int elementOver(const CurrentMarkup &markup, const LimitedLookup &limited)
{
    const auto elements = markup.every(limited.content);
    if (limited.container == Lookup::Document) {
        return elements.count() > limited.limit ? elements.begin()[limited.limit] : -1;
    }
    const std::vector<int> containers = containersOf(markup, limited.container);
    qint64 total = 0;
    for (const int container : containers) {
        total += markup.every(limited.content, container).count();
    }
    int over = -1;
    if (total > limited.limit) {
        qint64 count = 0;
        visitWithin(markup.document(), containers, elements,
                    [&](int element, const std::vector<std::size_t> &around) {
                        count += static_cast<qint64>(around.size());
                        over = over < 0 && count > limited.limit ? element : over;
                    });
    }
    return over;
}

} // namespace

CurrentExcess excessOf(const CurrentMarkup &markup)
{
    CurrentExcess excess;
    for (const auto &limited : limitedLookups) {
        const int element = elementOver(markup, limited);
        if (element >= 0 && (excess.element < 0 || element < excess.element)) {
            excess = {element, QStringLiteral("more than %1 %2").arg(limited.limit).arg(limited.words)};
        }
    }
    return excess;
}

} // namespace Tobrix::Templates
