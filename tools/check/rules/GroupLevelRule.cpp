#include "tools/check/CheckedFile.h"
#include "tools/check/rules/ColumnRules.h"
#include "tools/check/rules/Rule.h"

#include "format_current/CurrentRules_p.h"

#include <algorithm>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

bool hasLevelThatIsSet(const XmlElement &levels)
{
    const auto attributes = levels.attributes();
    return std::any_of(attributes.begin(), attributes.end(), [&levels](const XmlAttribute *attribute) {
        return levels.tree().valueOf(*attribute) == CurrentWords::yes;
    });
}

void checkLevels(const XmlElement &levels, Findings &findings)
{
    for (const XmlAttribute *attribute : levels.attributes()) {
        const QStringView name = levels.tree().nameOf(*attribute);
        if (levelOfName(name) == 0) {
            findings.add(attribute->at,
                         QStringLiteral("%1 names no group level and is ignored: the sixth character "
                                        "has to be a digit from 1 to 9, as in Level1")
                             .arg(name.toString()));
        }
    }
}

/// Whether a restriction makes its column visible at all levels.
bool saysSimple(const XmlElement &restriction)
{
    const XmlAttribute *simple = restriction.attribute(attributeOf(CurrentValue::ColumnIsVisibleEverywhere));
    const QString value = simple ? restriction.tree().valueOf(*simple) : QString();
    return value.isEmpty() || value == CurrentWords::yes;
}

} // namespace

void checkGroupLevels(const CheckedFile &file, Findings &findings)
{
    constexpr QLatin1String groupLevel = nameOf(CurrentElement::GroupLevel);
    for (const auto &column : file.tree().all(nameOf(CurrentElement::Column))) {
        const XmlElement restriction = column.first(nameOf(CurrentElement::VisibilityRestriction));
        for (const auto &levels : column.all(groupLevel)) {
            if (!restriction.contains(levels)) {
                findings.add(levels.at(), QStringLiteral("group levels outside of the column's "
                                                         "<VisibilityRestriction> are ignored"));
            } else if (!(restriction.first(groupLevel) == levels)) {
                continue; // a second one is reported by another rule
            } else if (saysSimple(restriction)) {
                if (hasLevelThatIsSet(levels)) {
                    findings.add(levels.at(),
                                 QStringLiteral("group levels are ignored unless Simple is \"false\": "
                                                "the column is in no group"));
                }
            } else {
                checkLevels(levels, findings);
            }
        }
    }
}

} // namespace Tobrix::Tools
