#include "tools/check/rules/Vocabulary.h"

#include "format_current/CurrentFormat_p.h"
#include "format_legacy/LegacyVocabulary_p.h"

#include <QMap>
#include <QSet>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

template <typename Rows>
QStringList namesOf(const Rows &rows)
{
    QStringList names;
    for (const auto &row : rows) {
        names.append(row.name);
    }
    return names;
}

const QMap<QString, QStringList> &legacySections()
{
    static const QMap<QString, QStringList> sections{
        {QString(), namesOf(templateElements)},
        {QStringLiteral("SYSTPL"), namesOf(templateInfoElements)},
        {QStringLiteral("PROGVIEW"), namesOf(programViewElements)},
        {QStringLiteral("SYSCOL"), namesOf(columnElements)},
        {QStringLiteral("SYSLIST"), namesOf(listItemElements)},
        {QStringLiteral("LegendOfClassification"), namesOf(legendElements)},
    };
    return sections;
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
    return legacySections().value(section);
}

QString legacySectionOf(const QString &elementName)
{
    const auto &sections = legacySections();
    for (auto it = sections.cbegin(); it != sections.cend(); ++it) {
        if (!it.key().isEmpty() && it->contains(elementName)) {
            return it.key();
        }
    }
    return QString();
}

bool isSectionOrPart(const QString &elementName)
{
    return legacySections().contains(elementName) || !legacySectionOf(elementName).isEmpty();
}

QStringList legacyAttributeNames(const QString &elementName)
{
    if (elementName != QLatin1String("class")) {
        return QStringList();
    }
    return {QStringLiteral("id"), QStringLiteral("color"), QStringLiteral("numberFrom"),
            QStringLiteral("numberTo")};
}

} // namespace Tobrix::Tools
