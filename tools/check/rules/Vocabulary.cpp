#include "tools/check/rules/Vocabulary.h"

#include "format_current/CurrentFormat_p.h"
#include "format_legacy/LegacyFormat_p.h"

#include <QMap>
#include <QSet>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// The names of the elements below each section, and of containers and sections under a null name.
const QMap<QString, QStringList> &legacyNames()
{
    static const QMap<QString, QStringList> names = [] {
        QMap<QString, QStringList> all;
        for (const auto &section : legacySections) {
            all[QString()].append(section.row.element);
            for (int i = 0; i < section.rows.count; ++i) {
                all[section.row.element].append(section.rows.at(i).element);
            }
        }
        return all;
    }();
    return names;
}

} // namespace

const QStringList &currentElementNames()
{
    static const QStringList names = [] {
        QStringList all;
        for (const auto &row : currentElements) {
            all.append(row.name);
        }
        return all;
    }();
    return names;
}

bool isCurrentElement(const XmlElement &element)
{
    static const auto names = QSet<QString>(currentElementNames().cbegin(), currentElementNames().cend());
    return names.contains(element.name());
}

QStringList currentAttributeNames(const QString &elementName)
{
    QStringList names;
    for (const auto &row : currentValues) {
        const bool isOfLevel = row.rule == CurrentRule::LevelOfName; // one of nine
        const bool isNew = !row.attribute.isEmpty() && !isOfLevel && !names.contains(row.attribute);
        if (isNew && elementName == nameOf(elementOf(row.value))) {
            names.append(row.attribute);
        }
    }
    return names;
}

QStringList legacyElementNames(const QString &section)
{
    return legacyNames().value(section);
}

QString legacySectionOf(const QString &elementName)
{
    const auto &sections = legacyNames();
    for (auto it = sections.cbegin(); it != sections.cend(); ++it) {
        if (!it.key().isEmpty() && it->contains(elementName)) {
            return it.key();
        }
    }
    return QString();
}

bool isSectionOrPart(const QString &elementName)
{
    return legacyNames().contains(elementName) || !legacySectionOf(elementName).isEmpty();
}

QStringList legacyAttributeNames(const QString &elementName)
{
    QStringList names;
    for (const auto &attribute : legendAttributes) {
        if (elementName == attribute.row.element) {
            names.append(attribute.row.attribute);
        }
    }
    return names;
}

} // namespace Tobrix::Tools
