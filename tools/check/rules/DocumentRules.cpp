#include "tools/check/rules/DocumentRules.h"

#include "tools/check/CheckedFile.h"
#include "tools/check/model/LegacyTokens.h"
#include "tools/check/rules/CurrentStructure.h"
#include "tools/check/rules/Rule.h"
#include "tools/check/rules/Vocabulary.h"
#include "tools/check/rules/Wording.h"
#include "tools/text/DisplayText.h"

#include "format_current/CurrentFormat_p.h"
#include "format_legacy/LegacyFormat_p.h"

#include "host/CCatalogTemplateRegistry.h"
#include "host/CTemplateDescriptor.h"
#include "host/CoreApplication.h"

#include <algorithm>
#include <iterator>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// Elements that only the current format has.
constexpr QLatin1String currentMarks[] = {
    nameOf(CurrentElement::TemplateIdentifier),
    nameOf(CurrentElement::View),
    nameOf(CurrentElement::Column),
    nameOf(CurrentElement::ValueList),
    nameOf(CurrentElement::DefaultValues),
    nameOf(CurrentElement::AssignedCatalogs),
    nameOf(CurrentElement::ClassificationColorScopes),
};

template <typename Names>
bool hasAnyOf(const XmlTree &tree, const Names &names)
{
    return std::any_of(std::begin(names), std::end(names),
                       [&tree](QLatin1String name) { return tree.numberOf(name) >= 0; });
}

void checkContainers(const XmlTree &tree, Findings &findings)
{
    for (const auto &row : currentStructure()) {
        if (row.taken != Taken::Every || row.container.isEmpty()) {
            continue;
        }
        for (const auto &element : tree.all(row.part)) {
            if (nearestAround(element, row.container).isNull()) {
                findings.add(element.at(),
                             QStringLiteral("<%1> outside of a <%2> is not read: what it describes is "
                                            "missing from the template")
                                 .arg(row.part, row.container));
            }
        }
    }
}

QString effectOfMalformation(const CheckedFile &file)
{
    if (!file.isCurrent()) {
        return QStringLiteral("the host refuses the file");
    }
    const XmlElement root = file.tree().root();
    return root.isNull() || root.at() >= file.faultAt()
               ? QStringLiteral("the host gets an empty template")
               : QStringLiteral("the host reads only the tags and texts that are whole up to here");
}

/// The likelihood that an element belongs to the header, highest first.
enum class Likeness { OfHeader, BesideHeader, InUnknownElement, OfOtherElement };

Likeness likenessOf(const XmlElement &element, const XmlElement &identifier)
{
    for (XmlElement around = element.parent(); !around.isNull(); around = around.parent()) {
        if (around == identifier) {
            return Likeness::OfHeader;
        }
        if (isCurrentElement(around)) {
            return Likeness::OfOtherElement;
        }
    }
    const XmlElement parent = element.parent();
    const bool isBeside = parent.parent().isNull() || parent.contains(identifier);
    return isBeside ? Likeness::BesideHeader : Likeness::InUnknownElement;
}

/// Checks a name or a version of the template against all elements that could be it.
void checkFirstElement(const CheckedFile &file, const std::vector<XmlElement> &elements,
                       const XmlElement &identifier, Findings &findings)
{
    const XmlElement &read = elements.front();
    const auto isMoreLikely = [&](const XmlElement &a, const XmlElement &b) {
        return likenessOf(a, identifier) < likenessOf(b, identifier);
    };
    const XmlElement &meant = *std::min_element(elements.begin(), elements.end(), isMoreLikely);
    if (likenessOf(meant, identifier) == Likeness::OfOtherElement) {
        findings.add(read.at(), QStringLiteral("the header has no <%1>: the host takes this one, %2")
                                    .arg(read.name(), quoted(read.text())));
    } else if (!(read == meant)) {
        findings.add(meant.at(),
                     QStringLiteral("this is not the first <%1> of the file: the template gets "
                                    "%2 from the one in line %3")
                         .arg(read.name(), quoted(read.text()), QString::number(file.lineOf(read.at()))));
    }
}

QString effectOfUnknownEntity(const XmlTree &tree, int at)
{
    if (tree.dialect() == XmlDialect::Dom) {
        return QStringLiteral("it is left out of the text");
    }
    const auto &nodes = tree.nodes();
    const auto node = std::lower_bound(nodes.begin(), nodes.end(), at,
                                       [](const XmlNode &a, int place) { return a.at < place; });
    const bool isInText = node != nodes.end() && node->at == at;
    return isInText ? QStringLiteral("it is left out, and the host reads at most one piece of the text that "
                                     "it divides")
                    : QStringLiteral("the host gets it as it stands");
}

/// Whether an id or a key is whitespace only. Whitespace after an empty element is reported by another rule.
bool isMissing(const Value &name)
{
    return name.isBlank() && !name.isCaptured;
}

int placeOfMissing(const Value &name, int elementAt)
{
    return name.isEmpty() ? elementAt : name.at;
}

QString butWhiteSpace(const Value &name)
{
    return name.isEmpty() ? QString() : QStringLiteral(" but white space");
}

bool hasUnknownRoot(const CheckedFile &file)
{
    const XmlElement root = file.tree().root();
    return !root.isNull() && templateTokenOf(root) == 0;
}

} // namespace

void checkWellFormed(const CheckedFile &file, Findings &findings)
{
    if (!file.malformation().isEmpty()) {
        findings.add(file.faultAt(), QStringLiteral("not well-formed, %1: %2")
                                         .arg(printable(file.malformation()), effectOfMalformation(file)));
    }
}

void checkLimits(const CheckedFile &file, Findings &findings)
{
    if (!file.excess().isEmpty()) {
        const QString effect = file.isCurrent() ? QStringLiteral("the host gets an empty template")
                                                : QStringLiteral("the host refuses the file");
        findings.add(file.faultAt(), QStringLiteral("%1: %2").arg(file.excess(), effect));
    }
}

void checkFolder(const CheckedFile &file, Findings &findings)
{
    const XmlTree &tree = file.tree();
    const bool isOfCurrent = hasAnyOf(tree, currentMarks);
    const bool isOfLegacy =
        std::any_of(std::begin(legacySections), std::end(legacySections),
                    [&tree](const auto &section) { return tree.numberOf(section.row.element) >= 0; });
    if (file.isCurrent() && isOfLegacy && !isOfCurrent) {
        findings.add(
            tree.root().at(),
            QStringLiteral("a template of the legacy format under a path with \"templates_new/\": the "
                           "host reads it as the current format and gets an empty template"));
    } else if (!file.isCurrent() && isOfCurrent && !isOfLegacy) {
        findings.add(tree.root().at(),
                     QStringLiteral("a template of the current format under a path without "
                                    "\"templates_new/\": the host reads it as the legacy format and gets an "
                                    "empty template"));
    }
}

void checkDocumentType(const CheckedFile &file, Findings &findings)
{
    const int at = file.tree().unfollowedDocumentType();
    if (at >= 0) {
        findings.add(at,
                     QStringLiteral("the document type declares more than plain texts: what it adds to the "
                                    "template is read, but not checked, and neither is the rest"));
    }
}

void checkRepeatedAttributes(const CheckedFile &file, Findings &findings)
{
    const XmlTree &tree = file.tree();
    for (const auto &node : tree.nodes()) {
        for (int i = 1; i < node.attributeCount; ++i) {
            if (const XmlAttribute *earlier = tree.sameAttributeBefore(node, i)) {
                const XmlAttribute &later = tree.attribute(node.firstAttribute + i);
                findings.add(later.at, QStringLiteral("%1 is given twice: %2 is dropped, %3 counts")
                                           .arg(inBrief(tree.nameOf(later).toString()),
                                                quoted(tree.valueOf(*earlier)), quoted(tree.valueOf(later))));
            }
        }
    }
}

void checkEntities(const CheckedFile &file, Findings &findings)
{
    const QString nothing =
        file.tree().hasExternalSubset() ? QStringLiteral("nothing in the file") : QStringLiteral("nothing");
    for (const int at : file.tree().unknownEntities()) {
        const int end = file.source().indexOf(QLatin1Char(';'), at);
        const QString reference = file.source().mid(at, end - at + 1);
        findings.add(at, QStringLiteral("%1 declares %2: %3")
                             .arg(nothing, quoted(reference), effectOfUnknownEntity(file.tree(), at)));
    }
}

void checkEncoding(const CheckedFile &file, Findings &findings)
{
    const Undecodable &undecodable = file.undecodable();
    if (!undecodable.isNull()) {
        const QString others = undecodable.count == 1
                                   ? QString()
                                   : QStringLiteral(", as it does %1 times more").arg(undecodable.count - 1);
        findings.add(undecodable.at,
                     QStringLiteral("what stands here is no character of %1: the host gets %2 for it%3")
                         .arg(undecodable.encoding, quoted(QChar(QChar::ReplacementCharacter)), others));
    }
}

void checkRoot(const CheckedFile &file, Findings &findings)
{
    if (hasUnknownRoot(file)) {
        const XmlElement root = file.tree().root();
        const QString name = root.name();
        const QString nearest = nearestOf(name, legacyElementNames(QString()));
        findings.add(root.at(), QStringLiteral("<%1> is no root that the host knows: nothing in the file is "
                                               "read, and the host gets an empty template%2")
                                    .arg(inBrief(name), suggestion(nearest)));
    }
}

void checkReachability(const CheckedFile &file, Findings &findings)
{
    if (file.isCurrent()) {
        checkContainers(file.tree(), findings);
        return;
    }
    for (const auto &section : file.model().unreachableSections) {
        const QString effect = section.name == section.within
                                   ? QStringLiteral("its elements are read as those of the outer one")
                                   : QStringLiteral("what it describes is missing from the template");
        findings.add(section.at, QStringLiteral("<%1> within <%2> is not read as a section: %3")
                                     .arg(section.name, section.within, effect));
    }
}

void checkIds(const CheckedFile &file, Findings &findings)
{
    const TemplateModel &model = file.model();
    if (isMissing(model.header.uniqueId)) {
        findings.add(placeOfMissing(model.header.uniqueId, model.header.at),
                     QStringLiteral("the template has no id%1: the host cannot tell it from others, and its "
                                    "registry does not know it")
                         .arg(butWhiteSpace(model.header.uniqueId)));
    }
    for (const auto &view : model.views) {
        if (isMissing(view.id)) {
            const QString others =
                view.id.isEmpty() ? QStringLiteral("without one") : QStringLiteral("with the same");
            findings.add(placeOfMissing(view.id, view.at),
                         QStringLiteral("the view has no id%1: of all views %2, the host gets only the last")
                             .arg(butWhiteSpace(view.id), others));
        }
    }
}

void checkKeys(const CheckedFile &file, Findings &findings)
{
    const TemplateModel &model = file.model();
    if (isMissing(model.header.key)) {
        const QString element =
            file.isCurrent() ? nameOf(CurrentElement::Name) : headerFields[Tokens::TPL_Key - 1].row.element;
        findings.add(placeOfMissing(model.header.key, model.header.at),
                     QStringLiteral("the template has no key (%1)%2: the host shows none")
                         .arg(element, butWhiteSpace(model.header.key)));
    }
    for (const auto &view : model.views) {
        if (isMissing(view.key)) {
            const QString effect = view.key.isEmpty() ? QStringLiteral("cannot find it by one")
                                                      : QStringLiteral("finds it by nothing else");
            findings.add(
                placeOfMissing(view.key, view.at),
                QStringLiteral("the view has no key%1: the host %2").arg(butWhiteSpace(view.key), effect));
        }
    }
}

void checkUnitSystem(const CheckedFile &file, Findings &findings)
{
    const Value &system = file.model().header.unitSystem;
    QStringList known;
    for (const auto &row : unitSystemNames) {
        known.append(row.name);
    }
    if (system.isGiven() && !system.isPadded() && !known.contains(system.text)) {
        findings.add(system.at, QStringLiteral("SystemOfUnits %1 is unknown: the template has no unit%2")
                                    .arg(quoted(system.text), suggestion(nearestOf(system.text, known))));
    }
}

void checkType(const CheckedFile &file, Findings &findings)
{
    const HeaderModel &header = file.model().header;
    if (!header.type.isEmpty() || header.uniqueId.isBlank()) {
        return;
    }
    const auto *application = AppLogic::CoreApplication::instance();
    const auto *registry = application ? application->catalogTemplateRegistry() : nullptr;
    const auto *descriptor = registry ? registry->templateByUniqueId(header.uniqueId.text) : nullptr;
    if (!descriptor || descriptor->type().isEmpty()) {
        findings.add(header.at,
                     QStringLiteral("neither the file nor the host's registry gives template %1 a type: it "
                                    "stays empty (--host-config tells what a host knows)")
                         .arg(quoted(header.uniqueId.text)));
    }
}

void checkFirstElements(const CheckedFile &file, Findings &findings)
{
    const XmlElement identifier = file.tree().first(nameOf(CurrentElement::TemplateIdentifier));
    for (const auto name : {CurrentElement::Name, CurrentElement::Version}) {
        const auto elements = file.tree().all(nameOf(name));
        if (!elements.empty()) {
            checkFirstElement(file, elements, identifier, findings);
        }
    }
}

} // namespace Tobrix::Tools
