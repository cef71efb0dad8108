// The rules about names of elements and attributes, and about elements in a place where another one counts.

#include "tools/check/CheckedFile.h"
#include "tools/check/model/LegacyTokens.h"
#include "tools/check/rules/CurrentStructure.h"
#include "tools/check/rules/DocumentRules.h"
#include "tools/check/rules/Rule.h"
#include "tools/check/rules/Vocabulary.h"
#include "tools/check/rules/Wording.h"

#include "format_legacy/CTemplateTokenizer.h"

#include <QHash>

#include <algorithm>
#include <iterator>
#include <map>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// Whether an element's name is that of a container: Columns, Views, Texts.
bool isPlural(const XmlElement &element)
{
    return element.name().endsWith(QLatin1Char('s'));
}

void addUnknownElement(const XmlElement &element, const QString &nearest, Findings &findings)
{
    const QString message =
        QStringLiteral("<%1> means nothing to the host: it is not read").arg(inBrief(element.name())) +
        suggestion(nearest);
    findings.add(nearest.isEmpty() ? Severity::Note : Severity::Warning, element.at(), message);
}

/// The unknown elements of the current format. The host finds known ones at any depth, so containers may have
/// any name.
class CurrentElementNames
{
public:
    CurrentElementNames(const XmlTree &document, Findings &findings)
        : m_findings(findings), m_placed(document)
    {
    }

    void checkWithin(const XmlElement &element)
    {
        for (const auto &child : element.children()) {
            if (!isCurrentElement(child)) {
                check(child);
            } else if (!m_placed.contain(child)) {
                checkMisplaced(child);
            } else if (!isTextElement(child)) {
                checkWithin(child);
            }
        }
    }

private:
    void check(const XmlElement &element)
    {
        const QString nearest = m_names.of(element.name());
        const bool isContainer = (nearest.isEmpty() || isPlural(element)) && m_placed.areWithin(element);
        if (!isContainer) {
            addUnknownElement(element, nearest, m_findings);
        }
        if (m_placed.areWithin(element)) {
            checkWithin(element);
        }
    }

    /// A note, since other elements may have similar parts.
    void checkMisplaced(const XmlElement &element)
    {
        // Names and versions are too common; group levels have their own rule.
        constexpr QLatin1String others[] = {nameOf(CurrentElement::Name), nameOf(CurrentElement::Version),
                                            nameOf(CurrentElement::GroupLevel)};
        const QString name = element.name();
        if (std::none_of(std::begin(others), std::end(others),
                         [&name](QLatin1String other) { return name == other; })) {
            m_findings.add(Severity::Note, element.at(),
                           QStringLiteral("<%1> is read in <%2> only: here it is ignored")
                               .arg(name, containersOf(name).join(QStringLiteral(">, <"))));
        }
    }

    Findings &m_findings;
    NearestNames m_names{currentElementNames()};
    const PlacedElements m_placed;
};

class LegacyElementNames
{
public:
    LegacyElementNames(const XmlTree &document, Findings &findings)
        : m_containerTokens(document, CTemplateTokenizer::stringToTemplateToken)
        , m_sectionTokens{{CTemplateTokenizer::SYSTPL,
                           {document, CTemplateTokenizer::stringToTemplateInfoToken}},
                          {CTemplateTokenizer::PROGVIEW,
                           {document, CTemplateTokenizer::stringToProgramViewToken}},
                          {CTemplateTokenizer::SYSCOL, {document, CTemplateTokenizer::stringToColumnToken}},
                          {CTemplateTokenizer::SYSLIST,
                           {document, CTemplateTokenizer::stringToListItemToken}},
                          {CTemplateTokenizer::LegendOfClassification,
                           {document, CTemplateTokenizer::stringToLegendToken}}}
        , m_findings(findings)
    {
    }

    void checkContainer(const XmlElement &container)
    {
        for (const auto &child : container.children()) {
            const int token = m_containerTokens.of(child);
            if (token == CTemplateTokenizer::TXSYS || token == CTemplateTokenizer::TobrixTemplate) {
                checkContainer(child);
            } else if (token != 0) {
                checkSection(child);
            } else {
                check(child, QString());
            }
        }
    }

    void checkSection(const XmlElement &section)
    {
        const auto tokens = m_sectionTokens.find(m_containerTokens.of(section));
        checkWithin(section, tokens->second, section.name());
    }

private:
    void checkWithin(const XmlElement &element, const SectionTokens &tokens, const QString &section)
    {
        for (const auto &child : element.children()) {
            if (tokens.of(child) != 0) {
                checkWithin(child, tokens, section);
            } else if (m_containerTokens.of(child) == 0) {
                check(child, section);
            }
        }
    }

    void check(const XmlElement &element, const QString &section)
    {
        if (holdsSections(element)) {
            return; // another rule reports these
        }
        const QString name = element.name();
        const QString home = legacySectionOf(name);
        if (!home.isEmpty()) {
            m_findings.add(Severity::Warning, element.at(),
                           QStringLiteral("<%1> is read in <%2> only: here it is ignored").arg(name, home));
            return;
        }
        auto names = m_names.find(section);
        if (names == m_names.end()) {
            names = m_names.insert(section, NearestNames(legacyElementNames(section)));
        }
        addUnknownElement(element, names->of(name), m_findings);
    }

    bool holdsSections(const XmlElement &element) const
    {
        const auto children = element.children();
        return std::any_of(children.begin(), children.end(), [this](const XmlElement &child) {
            return m_containerTokens.of(child) >= CTemplateTokenizer::SYSTPL || holdsSections(child);
        });
    }

    const SectionTokens m_containerTokens;
    const std::map<int, SectionTokens> m_sectionTokens;
    Findings &m_findings;
    QHash<QString, NearestNames> m_names;
};

/// Whether an attribute belongs to XML itself or another vocabulary, such as a schema reference.
bool isOfOthers(const QString &attribute)
{
    return attribute == QLatin1String("xmlns") || attribute.contains(QLatin1Char(':'));
}

/// Elements of the current format with any attributes: levels, which have their own rule, and multilingual
/// texts.
bool hasAttributesOfItsOwn(const QString &element)
{
    return element == nameOf(CurrentElement::GroupLevel) || element == nameOf(CurrentElement::TextItem);
}

/// The allowed content of an element: the attributes that the host reads, and child elements.
struct ElementVocabulary
{
    QStringList (*attributesOf)(const QString &element);
    QStringList (*partsOf)(const QString &element);
};

void checkAttributes(const XmlElement &element, const QStringList &known, const ElementVocabulary &vocabulary,
                     Findings &findings)
{
    for (const XmlAttribute *attribute : element.attributes()) {
        const QString name = element.tree().nameOf(*attribute).toString();
        if (known.contains(name) || isOfOthers(name)) {
            continue;
        }
        const bool isPart = vocabulary.partsOf(element.name()).contains(name);
        const QString nearest = isPart ? QString() : nearestOf(name, known);
        const QString hint =
            isPart ? QStringLiteral("; write it as an element, <%1>").arg(name) : suggestion(nearest);
        findings.add(isPart || !nearest.isEmpty() ? Severity::Warning : Severity::Note, attribute->at,
                     QStringLiteral("%1 means nothing to the host on <%2>: it is not read")
                             .arg(inBrief(name), element.name()) +
                         hint);
    }
}

/// Whether the host takes the first of all elements of a name, in whichever element it is.
bool isTakenFromAll(QLatin1String part)
{
    const auto &rows = currentStructure();
    return std::any_of(rows.begin(), rows.end(), [part](const StructureRow &row) {
        return row.part == part && row.taken == Taken::FirstOfAll;
    });
}

/// Finds parts of a container that has one of them already.
void checkSinglePart(const CheckedFile &file, const StructureRow &row, Findings &findings)
{
    QHash<int, int> firstOfContainer;
    for (const auto &part : file.tree().all(row.part)) {
        const bool isOfDocument = row.container.isEmpty();
        const XmlElement container = isOfDocument ? XmlElement() : nearestAround(part, row.container);
        if (!isOfDocument && container.isNull()) {
            continue;
        }
        const auto first = firstOfContainer.constFind(container.index());
        if (first == firstOfContainer.cend()) {
            firstOfContainer.insert(container.index(), part.at());
            continue;
        }
        const bool isFirstRead = !isTakenFromAll(row.part) || file.tree().first(row.part).at() == *first;
        const QString instead =
            isFirstRead ? QStringLiteral(", the one in line %1 counts").arg(file.lineOf(*first)) : QString();
        findings.add(part.at(), QStringLiteral("a second <%1>: it is ignored%2").arg(row.part, instead));
    }
}

/// An element of the current format whose content also applies to an element of the same kind around it.
struct Nesting
{
    QLatin1String container;
    QLatin1String effect; ///< empty where only the parts apply that the outer one does not have before it
};

constexpr Nesting nestings[] = {
    {nameOf(CurrentElement::View), QLatin1String("the outer view gets its columns as well")},
    {nameOf(CurrentElement::Column),
     QLatin1String("the outer column takes from it what it does not have itself")},
    {nameOf(CurrentElement::ValueList), QLatin1String("its items are in the outer list as well")},
    {nameOf(CurrentElement::ValueListItem), QLatin1String()},
    {nameOf(CurrentElement::DefaultValueScope),
     QLatin1String("its items are read with those of the outer one, and again behind them")},
    {nameOf(CurrentElement::DefaultValueItem), QLatin1String()},
    {nameOf(CurrentElement::ClassificationColorScope),
     QLatin1String("its classes are read for the outer one as well")},
    {nameOf(CurrentElement::ClassificationColor), QLatin1String()},
};

/// Tracks the parts that elements of one name take from nested elements of that name.
class LentParts
{
public:
    explicit LentParts(QLatin1String container)
    {
        for (const auto &row : currentStructure()) {
            if (row.container == container) {
                m_parts.push_back(row.part);
            }
        }
    }

    /// The names of the parts that an element takes from a nested element.
    QStringList of(const XmlElement &inner, const XmlElement &outer)
    {
        auto taken = m_taken.find(outer.index());
        if (taken == m_taken.end()) {
            taken = m_taken.insert(outer.index(), {});
            for (const auto &part : m_parts) {
                taken->push_back(outer.first(part));
            }
        }
        QStringList names;
        for (const auto &part : *taken) {
            if (inner.contains(part)) {
                names.append(part.name());
            }
        }
        return names;
    }

private:
    std::vector<QLatin1String> m_parts;
    QHash<int, std::vector<XmlElement>> m_taken; // by outer elements
};

/// The effect of an element on the one of its kind around it; empty for none.
QString effectOf(const Nesting &nesting, const QStringList &lentParts)
{
    if (!nesting.effect.isEmpty() || lentParts.isEmpty()) {
        return nesting.effect;
    }
    return QStringLiteral("the outer one takes <%1> from it").arg(lentParts.join(QStringLiteral(">, <")));
}

} // namespace

void checkElementNames(const CheckedFile &file, Findings &findings)
{
    const XmlElement root = file.tree().root();
    if (file.isCurrent()) {
        CurrentElementNames(file.tree(), findings).checkWithin(root);
        return;
    }
    const int token = templateTokenOf(root);
    if (token >= CTemplateTokenizer::SYSTPL) {
        LegacyElementNames(file.tree(), findings).checkSection(root);
    } else if (token != 0) {
        LegacyElementNames(file.tree(), findings).checkContainer(root);
    }
}

void checkAttributeNames(const CheckedFile &file, Findings &findings)
{
    const XmlTree &tree = file.tree();
    const ElementVocabulary vocabulary = file.isCurrent()
                                             ? ElementVocabulary{currentAttributeNames, partsOf}
                                             : ElementVocabulary{legacyAttributeNames, legacyElementNames};
    const auto isJudged = [&file](const XmlElement &element) {
        return file.isCurrent() ? isCurrentElement(element) && !hasAttributesOfItsOwn(element.name())
                                : isSectionOrPart(element.name());
    };
    QHash<int, QStringList> known; // by the numbers of elements' names
    for (int i = 0; i < tree.size(); ++i) {
        if (tree.node(i).kind != XmlNode::Element || tree.node(i).attributeCount == 0) {
            continue;
        }
        const XmlElement element(tree, i);
        if (!isJudged(element)) {
            continue;
        }
        auto names = known.find(element.nameNumber());
        if (names == known.end()) {
            names = known.insert(element.nameNumber(), vocabulary.attributesOf(element.name()));
        }
        checkAttributes(element, *names, vocabulary, findings);
    }
}

void checkRepeatedElements(const CheckedFile &file, Findings &findings)
{
    if (file.isCurrent()) {
        for (const auto &row : currentStructure()) {
            if (row.taken == Taken::First) {
                checkSinglePart(file, row, findings);
            }
        }
        return;
    }
    for (const auto &element : file.model().overwrittenElements) {
        findings.add(element.at, QStringLiteral("a second <%1>: it overwrites the one in line %2")
                                     .arg(element.name)
                                     .arg(file.lineOf(element.overwrittenAt)));
    }
}

void checkNesting(const CheckedFile &file, Findings &findings)
{
    for (const auto &nesting : nestings) {
        LentParts lentParts(nesting.container);
        for (const auto &element : file.tree().all(nesting.container)) {
            const XmlElement outer = nearestAround(element, nesting.container);
            const QString effect =
                outer.isNull() ? QString() : effectOf(nesting, lentParts.of(element, outer));
            if (!effect.isEmpty()) {
                findings.add(element.at(),
                             QStringLiteral("a <%1> within another: %2").arg(nesting.container, effect));
            }
        }
    }
}

} // namespace Tobrix::Tools
