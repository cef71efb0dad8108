#include "tools/check/CheckedFile.h"
#include "tools/check/rules/CurrentStructure.h"
#include "tools/check/rules/Rule.h"
#include "tools/check/rules/ValueRules.h"
#include "tools/check/rules/Vocabulary.h"
#include "tools/check/rules/Wording.h"

#include <QHash>
#include <QPair>
#include <QSet>

#include <algorithm>
#include <iterator>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

constexpr QLatin1String textItem = nameOf(CurrentElement::TextItem);

/// Whether the presence of an element applies to a column, whatever text it has.
bool isPresence(const XmlElement &element)
{
    return std::any_of(std::begin(currentValues), std::end(currentValues), [&element](const auto &row) {
        return row.kind == ValueKind::Presence && element.hasName(nameOf(elementOf(row.value)));
    });
}

/// Whether an element has its text in a TextItem.
bool isTextHolder(const XmlElement &element)
{
    static const QStringList names = containersOf(textItem);
    return names.contains(element.name());
}

/// Whether an element is inside one whose text is read, including the element's own.
bool isWithinText(const XmlElement &element)
{
    XmlElement around = element;
    while (!around.isNull() && !isTextElement(around)) {
        around = around.parent();
    }
    return !around.isNull();
}

/// Determines which of several elements in one container the host takes: the first of its name.
class TakenElements
{
public:
    bool contain(const XmlElement &element)
    {
        const QStringList containers = containersOf(element.name());
        XmlElement container = element.parent();
        while (!container.isNull() && !containers.contains(container.name())) {
            container = container.parent();
        }
        if (container.isNull()) {
            return false;
        }
        const auto key = qMakePair(container.index(), element.nameNumber());
        auto first = m_firsts.find(key);
        if (first == m_firsts.end()) {
            const QByteArray name = element.name().toLatin1();
            first = m_firsts.insert(key, container.first(QLatin1String(name)).index());
        }
        return *first == element.index();
    }

private:
    QHash<QPair<int, int>, int> m_firsts;
};

/// Checks an element that should have its text in a TextItem.
void checkTextHolder(const XmlElement &holder, Findings &findings)
{
    const QString read = holder.first(textItem).text();
    const QString effect =
        read.trimmed().isEmpty()
            ? QStringLiteral("without a text in a <%1> the host gets an empty <%2>")
                  .arg(textItem, holder.name())
            : QStringLiteral("of <%1> only the <%2> is, %3").arg(holder.name(), textItem, quoted(read));
    findings.add(holder.ownTextAt(), QStringLiteral("this text is not read: %1").arg(effect));
}

void checkPresence(const XmlElement &element, Findings &findings)
{
    const QString text = element.text().trimmed().toLower();
    if (text == QLatin1String("true")) {
        return; // reports what the host reads
    }
    const bool isOpposite = text == QLatin1String("false");
    findings.add(
        isOpposite ? Severity::Warning : Severity::Note, element.ownTextAt(),
        QStringLiteral("this text is not read: <%1> applies whatever stands in it").arg(element.name()));
}

/// Whether a text is probably no remark: it is between other elements, or instead of the attributes.
bool isMisplacedText(const XmlElement &element, const QStringList &attributes)
{
    const auto given = element.attributes();
    const auto isRead = [&](const XmlAttribute *attribute) {
        return attributes.contains(element.tree().nameOf(*attribute).toString());
    };
    return !partsOf(element.name()).isEmpty() || std::none_of(given.begin(), given.end(), isRead);
}

/// Checks a known element with text of its own, which is not read.
void checkTextless(const XmlElement &element, Findings &findings)
{
    if (isPresence(element)) {
        checkPresence(element, findings);
        return;
    }
    const QStringList attributes = currentAttributeNames(element.name());
    if (isMisplacedText(element, attributes)) {
        const bool isValue = partsOf(element.name()).isEmpty() && !attributes.isEmpty();
        const QString hint =
            isValue
                ? QStringLiteral("; its values are attributes: %1").arg(attributes.join(QStringLiteral(", ")))
                : QString();
        findings.add(Severity::Note, element.ownTextAt(),
                     QStringLiteral("this text is not read: <%1> takes none%2").arg(element.name(), hint));
    }
}

/// The known elements with text of their own that is not read.
std::vector<XmlElement> elementsWithUnreadText(const XmlTree &tree)
{
    std::vector<XmlElement> elements;
    QSet<int> seen;
    for (int i = 0; i < tree.size(); ++i) {
        const XmlNode &node = tree.node(i);
        const bool isText = node.kind == XmlNode::Text || node.kind == XmlNode::CData;
        if (!isText || tree.isBlank(i)) {
            continue;
        }
        const XmlElement element(tree, node.parent);
        if (isCurrentElement(element) && !isWithinText(element) && !seen.contains(element.index())) {
            seen.insert(element.index());
            elements.push_back(element);
        }
    }
    return elements;
}

} // namespace

void checkUnreadTexts(const CheckedFile &file, Findings &findings)
{
    const auto elements = elementsWithUnreadText(file.tree());
    if (elements.empty()) {
        return;
    }
    const PlacedElements placed(file.tree());
    TakenElements taken;
    for (const auto &element : elements) {
        if (!placed.contain(element)) {
            continue; // not read at all, as another rule reports
        }
        if (!isTextHolder(element)) {
            checkTextless(element, findings);
        } else if (taken.contain(element)) {
            checkTextHolder(element, findings);
        }
    }
}

} // namespace Tobrix::Tools
