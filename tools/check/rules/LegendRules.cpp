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
void forEachBand(const CheckedFile &file, Function function)
{
    for (const auto &legend : file.model().legends) {
        std::for_each(legend.begin(), legend.end(), function);
    }
}

/// Calls something with every class of a legend that has one below it, and with that class of those below it
/// that reaches highest. Classes that no value falls into are left out.
template <typename Function>
void forEachNeighbour(const CheckedFile &file, Function function)
{
    for (const auto &legend : file.model().legends) {
        std::vector<const BandModel *> bands;
        for (const auto &band : legend) {
            if (band.lower <= band.upper) {
                bands.push_back(&band);
            }
        }
        std::stable_sort(bands.begin(), bands.end(),
                         [](const BandModel *a, const BandModel *b) { return a->lower < b->lower; });
        const BandModel *highest = nullptr;
        for (const BandModel *band : bands) {
            if (highest) {
                function(*highest, *band);
            }
            highest = highest && highest->upper > band->upper ? highest : band;
        }
    }
}

QString rangeOf(const BandModel &band)
{
    return QStringLiteral("%1 to %2").arg(inWords(band.lower), inWords(band.upper));
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

/// Whether two classes of whole numbers follow each other: 0 to 9, 10 to 24.
bool areOneApart(double upper, double lower)
{
    return isWhole(upper) && isWhole(lower) && lower - upper == 1.0;
}

/// Finds a legend whose name or object is none that the host shows.
/// @return whether it is one of them
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

/// The value of an attribute with its place, or with that of the element that has none.
Value attributeOf(const XmlElement &element, QLatin1String name)
{
    const XmlAttribute *attribute = element.attribute(name);
    return attribute ? Value{element.tree().valueOf(*attribute), attribute->at}
                     : Value{QString(), element.at()};
}

/// What the presets for sections come to: the scan for them ends with the first that completes them.
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

/// Finds presets that seem to be for sections where none is.
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

void checkReversedBands(const CheckedFile &file, Findings &findings)
{
    forEachBand(file, [&](const BandModel &band) {
        if (band.lower > band.upper) {
            const Value &end = band.to.isGiven() ? band.to : band.from;
            findings.add(end.at, QStringLiteral("no value falls into the class from %1").arg(rangeOf(band)));
        }
    });
}

void checkOverlaps(const CheckedFile &file, Findings &findings)
{
    forEachNeighbour(file, [&](const BandModel &below, const BandModel &band) {
        const bool isSame = band.lower == below.lower && band.upper == below.upper;
        if (band.lower < below.upper || isSame) {
            findings.add(band.at,
                         QStringLiteral("the class from %1 overlaps the one from %2 in line %3: which colour "
                                        "a value gets is the host's choice")
                             .arg(rangeOf(band), rangeOf(below))
                             .arg(file.lineOf(below.at)));
        }
    });
}

void checkGaps(const CheckedFile &file, Findings &findings)
{
    forEachNeighbour(file, [&](const BandModel &below, const BandModel &band) {
        if (band.lower > below.upper && !areOneApart(below.upper, band.lower)) {
            findings.add(band.at, QStringLiteral("values between %1 and %2 are in no class")
                                      .arg(inWords(below.upper), inWords(band.lower)));
        }
    });
}

void checkColours(const CheckedFile &file, Findings &findings)
{
    forEachBand(file, [&](const BandModel &band) {
        const QString &text = band.color.text;
        if (text.isEmpty()) {
            findings.add(band.at, QStringLiteral("the class from %1 has no colour").arg(rangeOf(band)));
        } else if (!band.color.isBlank() && !isColour(text) && !isColour(text.trimmed())) {
            findings.add(band.color.at, QStringLiteral("%1 is no colour: the host gets the text as it is and "
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
