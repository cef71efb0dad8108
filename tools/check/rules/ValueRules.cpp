#include "tools/check/rules/ValueRules.h"

#include "tools/check/CheckedFile.h"
#include "tools/check/rules/NumberTexts.h"
#include "tools/check/rules/Rule.h"
#include "tools/check/rules/Wording.h"

#include "format_current/CurrentFormat_p.h"
#include "rawdata/SaturatedInt_p.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

bool isReal(ValueKind kind)
{
    return kind == ValueKind::Real || kind == ValueKind::WholeOfReal;
}

/// Whether a blank number has another meaning than a missing one.
bool mattersWhenBlank(const ReadValue &read)
{
    return isReal(read.kind) || read.name.endsWith(attributeOf(CurrentValue::ColumnPrecision));
}

bool convertsToInteger(const QString &text)
{
    bool isConverted = false;
    text.toInt(&isConverted, 10);
    return isConverted;
}

/// What is wrong with the number in a value; empty when nothing is.
QString faultOfNumber(const ReadValue &read)
{
    const QString &text = read.value.text;
    if (text.trimmed().isEmpty()) {
        return mattersWhenBlank(read) ? QStringLiteral("%1 is blank: it reads as 0").arg(read.name)
                                      : QString();
    }
    if (read.kind == ValueKind::Integer) {
        return convertsToInteger(text) || isWholeNumberText(text)
                   ? QString()
                   : QStringLiteral("%1 %2 is not a whole number: it reads as 0")
                         .arg(read.name, quoted(text));
    }
    bool isConverted = false;
    const double number = text.toDouble(&isConverted);
    const bool isWhole = read.kind == ValueKind::WholeOfReal;
    if (isConverted && !std::isnan(number)) {
        return QString();
    }
    if (isConverted && !isWhole) {
        return QStringLiteral("%1 %2 is no number that a value could be compared with")
            .arg(read.name, quoted(text));
    }
    const QString fault =
        isRealNumberText(text) ? QStringLiteral("too large or too small") : QStringLiteral("not a number");
    return QStringLiteral("%1 %2 is %3: it reads as %4")
        .arg(read.name, quoted(text), fault, inWords(isWhole ? toSaturatedInt(number) : number));
}

bool isFlagText(const QString &text)
{
    return text == QLatin1String("true") || text == QLatin1String("false") || text.trimmed().isEmpty();
}

/// Whether a flag has an effect when it is false.
bool isInverted(const QString &name)
{
    return name == attributeOf(CurrentValue::ColumnIsVisibleEverywhere);
}

/// The spelling of a flag that has an effect. All other texts count as the opposite.
QLatin1String effectiveFlag(const QString &name)
{
    return isInverted(name) ? QLatin1String("false") : QLatin1String("true");
}

QLatin1String effectOfOtherFlag(const QString &name)
{
    return isInverted(name) ? QLatin1String("it reads as \"true\", and group levels are ignored")
                            : QLatin1String("it reads as \"false\"");
}

constexpr QLatin1String spellingsOfTrue[] = {QLatin1String("true"), QLatin1String("1"), QLatin1String("yes"),
                                             QLatin1String("on")};
constexpr QLatin1String spellingsOfFalse[] = {QLatin1String("false"), QLatin1String("0"), QLatin1String("no"),
                                              QLatin1String("off")};

/// Other spellings of the value that a flag is read as anyway.
const auto &harmlessSpellings(const QString &name)
{
    return isInverted(name) ? spellingsOfTrue : spellingsOfFalse;
}

template <typename Spellings>
bool isOneOf(const QString &text, const Spellings &spellings)
{
    const QString plain = text.trimmed().toLower();
    return std::any_of(std::begin(spellings), std::end(spellings),
                       [&plain](QLatin1String spelling) { return plain == spelling; });
}

/// The offsets of whitespace values that other rules report, with the consequences.
QSet<int> placesOfJudgedBlanks(const TemplateModel &model)
{
    QSet<int> places;
    const auto insert = [&places](const Value &value) {
        if (value.isWhiteSpace()) {
            places.insert(value.at);
        }
    };
    insert(model.header.uniqueId);
    insert(model.header.key);
    insert(model.header.unitSystem);
    for (const auto &view : model.views) {
        insert(view.id);
        insert(view.key);
    }
    for (const auto &column : model.columns) {
        insert(column.viewRef);
        insert(column.controlType);
        if (column.isUnbound()) {
            insert(column.boundColumn);
        }
    }
    for (const auto &item : model.defaults) {
        insert(item.view);
    }
    return places;
}

/// Names whose values other rules report, with the consequences.
bool isJudgedElsewhere(const QString &name)
{
    return name == attributeOf(CurrentValue::ColumnDataType);
}

/// Finds values that are whitespace only, although they are compared with others.
void checkBlanks(const CheckedFile &file, Findings &findings)
{
    const QSet<int> judged = placesOfJudgedBlanks(file.model());
    for (const auto &read : file.model().values) {
        if (read.kind == ValueKind::Exact && read.value.isWhiteSpace() && !judged.contains(read.value.at)) {
            findings.add(
                read.value.at,
                QStringLiteral("%1 is only white space: that is its value, not an empty one").arg(read.name));
        }
    }
}

} // namespace

void checkNumbers(const CheckedFile &file, Findings &findings)
{
    for (const auto &read : file.model().values) {
        if (read.kind != ValueKind::Integer && !isReal(read.kind)) {
            continue;
        }
        const QString fault = read.value.isGiven() ? faultOfNumber(read) : QString();
        if (!fault.isEmpty()) {
            findings.add(read.value.at, fault);
        }
    }
}

void checkNumberRanges(const CheckedFile &file, Findings &findings)
{
    for (const auto &read : file.model().values) {
        const QString &text = read.value.text;
        if (read.kind == ValueKind::Integer && !convertsToInteger(text) && isWholeNumberText(text)) {
            findings.add(read.value.at, QStringLiteral("%1 %2 does not fit into 32 bits: it reads as 0")
                                            .arg(read.name, quoted(text)));
        } else if (read.kind == ValueKind::WholeOfReal) {
            bool isConverted = false;
            const double number = text.toDouble(&isConverted);
            const int kept = toSaturatedInt(number);
            const bool isKept = std::isnan(number) || std::trunc(number) == static_cast<double>(kept);
            if (isConverted && !isKept) {
                findings.add(read.value.at, QStringLiteral("%1 %2 does not fit into 32 bits: it becomes %3")
                                                .arg(read.name, quoted(text))
                                                .arg(kept));
            }
        }
    }
}

void checkFractions(const CheckedFile &file, Findings &findings)
{
    for (const auto &read : file.model().values) {
        const double number = read.kind == ValueKind::WholeOfReal ? read.value.text.toDouble() : 0.0;
        if (std::isfinite(number) && std::trunc(number) != number) {
            findings.add(read.value.at, QStringLiteral("%1 %2 loses its decimal places: it becomes %3")
                                            .arg(read.name, quoted(read.value.text))
                                            .arg(toSaturatedInt(number)));
        }
    }
}

void checkFlags(const CheckedFile &file, Findings &findings)
{
    for (const auto &read : file.model().values) {
        if (read.kind != ValueKind::Flag || isFlagText(read.value.text) ||
            isFlagText(read.value.text.trimmed())) {
            continue;
        }
        const bool isMeant = isOneOf(read.value.text, harmlessSpellings(read.name));
        findings.add(isMeant ? Severity::Note : Severity::Warning, read.value.at,
                     QStringLiteral("%1 %2 is neither \"true\" nor \"false\": %3%4")
                         .arg(read.name, quoted(read.value.text), effectOfOtherFlag(read.name),
                              isMeant ? QStringLiteral(", as it seems to be meant") : QString()));
    }
}

void checkSpaceAround(const CheckedFile &file, Findings &findings)
{
    checkBlanks(file, findings);
    for (const auto &read : file.model().values) {
        if (!read.value.isPadded() || isJudgedElsewhere(read.name)) {
            continue;
        }
        if (read.kind == ValueKind::Exact) {
            findings.add(read.value.at,
                         QStringLiteral("white space around %1 %2: it is part of the value, which "
                                        "equals no other without it")
                             .arg(read.name, quoted(read.value.text)));
        } else if (read.kind == ValueKind::Flag && read.value.text.trimmed() == effectiveFlag(read.name)) {
            findings.add(read.value.at,
                         QStringLiteral("white space around %1 %2: %3")
                             .arg(read.name, quoted(read.value.text), effectOfOtherFlag(read.name)));
        }
    }
}

void checkCapturedSpace(const CheckedFile &file, Findings &findings)
{
    for (const auto &captured : file.model().capturedSpaces) {
        if (captured.kind == ValueKind::Flag) {
            continue; // reads as false, as without it
        }
        const QString effect = captured.kind == ValueKind::Integer
                                   ? QStringLiteral("it reads as 0")
                                   : QStringLiteral("its text is that white space, not empty");
        findings.add(
            captured.at,
            QStringLiteral("the empty <%1> takes the white space behind it: %2").arg(captured.name, effect));
    }
}

void checkIgnoredTexts(const CheckedFile &file, Findings &findings)
{
    for (const auto &ignored : file.model().ignoredTexts) {
        const QString effect =
            ignored.read.trimmed().isEmpty()
                ? QStringLiteral("<%1> is read as blank").arg(ignored.name)
                : QStringLiteral("of <%1> only %2 is").arg(ignored.name, quoted(ignored.read));
        findings.add(ignored.at, QStringLiteral("this text is not read: %1").arg(effect));
    }
}

} // namespace Tobrix::Tools
