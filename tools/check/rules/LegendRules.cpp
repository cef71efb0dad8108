#include "tools/check/rules/LegendRules.h"

#include "tools/check/CheckedFile.h"
#include "tools/check/rules/Colours.h"
#include "tools/check/rules/Rule.h"
#include "tools/check/rules/Wording.h"
#include "tools/text/DisplayText.h"

#include "format_current/CurrentFormat_p.h"

#include <algorithm>
#include <cmath>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

template <typename Function>
void forEachLegendClass(const CheckedFile &file, Function function)
{
    for (const auto &legend : file.model().legends) {
        std::for_each(legend.begin(), legend.end(), function);
    }
}

/// Calls a function with every legend class that has lower ones, and the lower one with the highest upper
/// bound. Reversed legend classes are left out.
template <typename Function>
void forEachNeighbour(const CheckedFile &file, Function function)
{
    for (const auto &legend : file.model().legends) {
        std::vector<const LegendClassModel *> legendClasses;
        for (const auto &legendClass : legend) {
            if (legendClass.lower <= legendClass.upper) {
                legendClasses.push_back(&legendClass);
            }
        }
        std::stable_sort(
            legendClasses.begin(), legendClasses.end(),
            [](const LegendClassModel *a, const LegendClassModel *b) { return a->lower < b->lower; });
        const LegendClassModel *highest = nullptr;
        for (const LegendClassModel *legendClass : legendClasses) {
            if (highest) {
                function(*highest, *legendClass);
            }
            highest = highest && highest->upper > legendClass->upper ? highest : legendClass;
        }
    }
}

QString rangeOf(const LegendClassModel &legendClass)
{
    return QStringLiteral("%1 to %2").arg(inWords(legendClass.lower), inWords(legendClass.upper));
}

QString faultOf(const LostLegend &lost)
{
    const QString classes = counted(lost.count, QStringLiteral("class"), QStringLiteral("classes"));
    switch (lost.kind) {
    case LostLegend::ClearedGroup:
        return QStringLiteral("a second <%1>: it drops what the first has, %2").arg(lost.name, classes);
    case LostLegend::ClearedClasses:
        return QStringLiteral("<%1> drops what stands before it outside of any group, %2")
            .arg(lost.name, classes);
    case LostLegend::CaptionWithoutClass:
        break;
    }
    return QStringLiteral("<%1> stands before any class of its legend: it is lost").arg(lost.name);
}

bool isWhole(double number)
{
    return std::trunc(number) == number;
}

/// Whether two legend classes of whole numbers are adjacent: 0 to 9, 10 to 24.
bool areOneApart(double upper, double lower)
{
    return isWhole(upper) && isWhole(lower) && lower - upper == 1.0;
}

/// Finds a legend whose name or object is unknown to the host.
/// @return whether it is known
bool checkScope(const XmlElement &scope, QLatin1String attributeName, const QStringList &known,
                const QString &effect, Findings &findings)
{
    const XmlAttribute *attribute = scope.attribute(attributeName);
    const QString value = attribute ? scope.tree().valueOf(*attribute) : QString();
    const bool isPadded = value.trimmed() != value;
    if (known.contains(value) || (isPadded && known.contains(value.trimmed()))) {
        return true;
    }
    const QString nearest = nearestOf(value, known);
    findings.add(nearest.isEmpty() ? Severity::Note : Severity::Warning,
                 attribute ? attribute->at : scope.at(),
                 QStringLiteral("the host shows no legend with the %1 %2: %3%4")
                     .arg(attributeName, quoted(value), effect, suggestion(nearest)));
    return false;
}

/// The value of an attribute and its offset, or that of the element without the attribute.
Value attributeOf(const XmlElement &element, QLatin1String name)
{
    const XmlAttribute *attribute = element.attribute(name);
    return attribute ? Value{element.tree().valueOf(*attribute), attribute->at}
                     : Value{QString(), element.at()};
}

/// The result of the presets for sections: the search ends with the first preset that completes it.
struct SectionPresets
{
    XmlElement first;
    XmlElement chosen;
    QString name;
};

SectionPresets sectionPresets(const XmlTree &tree)
{
    SectionPresets presets;
    const auto valueOf = [](const XmlElement &preset, CurrentValue value) {
        return attributeOf(preset, attributeOf(value)).text;
    };
    const XmlElement container = tree.first(nameOf(CurrentElement::ClassificationColorPresets));
    for (const auto &preset : container.all(nameOf(CurrentElement::ClassificationColorPreset))) {
        if (valueOf(preset, CurrentValue::PresetScope) != CurrentWords::sectionScope) {
            continue;
        }
        presets.first = presets.first.isNull() ? preset : presets.first;
        const QString name = valueOf(preset, CurrentValue::PresetClassName);
        presets.name = name.isNull() ? presets.name : name;
        if (valueOf(preset, CurrentValue::PresetChapter) == CurrentWords::colorChapter) {
            presets.chosen = preset;
        }
        if (!presets.name.isEmpty() && !presets.chosen.isNull()) {
            break;
        }
    }
    return presets;
}

/// Finds presets that look meant for sections where there is none for them.
void checkPresetScopes(const XmlTree &tree, Findings &findings)
{
    const QString taken = CurrentWords::sectionScope;
    const XmlElement container = tree.first(nameOf(CurrentElement::ClassificationColorPresets));
    for (const auto &preset : container.all(nameOf(CurrentElement::ClassificationColorPreset))) {
        const Value scope = attributeOf(preset, attributeOf(CurrentValue::PresetScope));
        const QString nearest = nearestOf(scope.text, {taken});
        if (!nearest.isEmpty() && scope.text != taken && !scope.isPadded()) {
            findings.add(
                Severity::Warning, scope.at,
                QStringLiteral("the host takes presets for the Scope \"%1\" only, not for %2: this one "
                               "is not read%3")
                    .arg(taken, quoted(scope.text), suggestion(nearest)));
        }
    }
}

} // namespace

void checkLegendScopes(const CheckedFile &file, Findings &findings)
{
    const XmlElement container = file.tree().first(nameOf(CurrentElement::ClassificationColorScopes));
    for (const auto &scope : container.all(nameOf(CurrentElement::ClassificationColorScope))) {
        const bool isDefault =
            checkScope(scope, attributeOf(CurrentValue::ScopeScheme), {CurrentWords::defaultScheme},
                       QStringLiteral("its classes are not read"), findings);
        if (isDefault) {
            checkScope(scope, attributeOf(CurrentValue::ScopeKind),
                       {CurrentWords::sectionScope, CurrentWords::lateralScope},
                       QStringLiteral("its classes are dropped"), findings);
        }
    }
}

void checkReversedLegendClasses(const CheckedFile &file, Findings &findings)
{
    forEachLegendClass(file, [&](const LegendClassModel &legendClass) {
        if (legendClass.lower > legendClass.upper) {
            const Value &end = legendClass.to.isGiven() ? legendClass.to : legendClass.from;
            findings.add(end.at,
                         QStringLiteral("no value falls into the class from %1").arg(rangeOf(legendClass)));
        }
    });
}

void checkOverlaps(const CheckedFile &file, Findings &findings)
{
    forEachNeighbour(file, [&](const LegendClassModel &below, const LegendClassModel &legendClass) {
        const bool isSame = legendClass.lower == below.lower && legendClass.upper == below.upper;
        if (legendClass.lower < below.upper || isSame) {
            findings.add(legendClass.at,
                         QStringLiteral("the class from %1 overlaps the one from %2 in line %3: which colour "
                                        "a value gets is the host's choice")
                             .arg(rangeOf(legendClass), rangeOf(below))
                             .arg(file.lineOf(below.at)));
        }
    });
}

void checkGaps(const CheckedFile &file, Findings &findings)
{
    forEachNeighbour(file, [&](const LegendClassModel &below, const LegendClassModel &legendClass) {
        if (legendClass.lower > below.upper && !areOneApart(below.upper, legendClass.lower)) {
            findings.add(legendClass.at, QStringLiteral("values between %1 and %2 are in no class")
                                             .arg(inWords(below.upper), inWords(legendClass.lower)));
        }
    });
}

void checkColours(const CheckedFile &file, Findings &findings)
{
    forEachLegendClass(file, [&](const LegendClassModel &legendClass) {
        const QString &text = legendClass.color.text;
        if (text.isEmpty()) {
            findings.add(legendClass.at,
                         QStringLiteral("the class from %1 has no colour").arg(rangeOf(legendClass)));
        } else if (!legendClass.color.isBlank() && !isColour(text) && !isColour(text.trimmed())) {
            findings.add(legendClass.color.at,
                         QStringLiteral("%1 is no colour: the host gets the text as it is and "
                                        "shows what it shows for unknown ones")
                             .arg(quoted(text)));
        }
    });
}

void checkLostLegends(const CheckedFile &file, Findings &findings)
{
    for (const auto &lost : file.model().lostLegends) {
        findings.add(lost.at, faultOf(lost));
    }
}

void checkPresets(const CheckedFile &file, Findings &findings)
{
    const SectionPresets presets = sectionPresets(file.tree());
    if (presets.first.isNull()) {
        checkPresetScopes(file.tree(), findings);
        return;
    }
    if (presets.name.isEmpty()) {
        findings.add(presets.first.at(),
                     QStringLiteral("no preset for sections has a ClassificationColorName: the "
                                    "template has no class name to start with"));
    }
    if (presets.chosen.isNull()) {
        const Value chapter = attributeOf(presets.first, attributeOf(CurrentValue::PresetChapter));
        findings.add(chapter.at, QStringLiteral("no preset for sections has the Chapter \"Color\": the "
                                                "template has no colour fields to start with%1")
                                     .arg(suggestion(nearestOf(chapter.text, {CurrentWords::colorChapter}))));
    } else if (presets.chosen.all(nameOf(CurrentElement::PresetProperty)).empty()) {
        findings.add(presets.chosen.at(),
                     QStringLiteral("the preset for sections names no <PresetProperty>: the "
                                    "template has no colour fields to start with"));
    }
}

} // namespace Tobrix::Tools
