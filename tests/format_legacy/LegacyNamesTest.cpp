// The names of the format are string literals in one file only.

#include "support/LegacyNames.h"
#include "support/StringLiterals.h"

#include "format_legacy/LegacyFormat_p.h"

#include <QTest>

#include <algorithm>
#include <iterator>

using namespace Tobrix::Templates;

namespace {

const QLatin1String formatFile("src/format_legacy/LegacyFormat_p.h");

/// Words with another meaning that are also names of the format.
struct OtherMeaning
{
    QLatin1String place; ///< a file, or a folder with its content
    QStringList words;
};

const OtherMeaning otherMeanings[] = {
    // Scopes of the current format.
    {QLatin1String("src/format_current/"), {QStringLiteral("Section"), QStringLiteral("Lateral")}},
    {QLatin1String("tools/check/"), {QStringLiteral("Section"), QStringLiteral("Lateral")}},
    // "1 class", "2 classes".
    {QLatin1String("tools/check/rules/LegendRules.cpp"), {QStringLiteral("class")}},
    {QLatin1String("tools/text/TemplateText.cpp"), {QStringLiteral("class")}},
    // Members of JSON objects.
    {QLatin1String("tools/check/report/SarifReport.cpp"), {QStringLiteral("id")}},
    {QLatin1String("tools/json/"),
     {QStringLiteral("id"), QStringLiteral("color"), QStringLiteral("numberFrom"), QStringLiteral("numberTo"),
      QStringLiteral("legendA"), QStringLiteral("legendB")}},
};

QStringList allNames()
{
    QStringList names;
    for (const auto &name : legacyNames()) {
        names.append(QLatin1String(name.name));
    }
    for (const auto &attribute : legendAttributes) {
        names.append(attribute.row.attribute);
    }
    return names;
}

bool isOfOtherMeaning(const StringLiteral &literal)
{
    return std::any_of(std::begin(otherMeanings), std::end(otherMeanings), [&](const OtherMeaning &other) {
        return literal.file.startsWith(other.place) && other.words.contains(literal.text);
    });
}

} // namespace

class LegacyNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyNameIsSpelledInTheFormatsFile();
    void noNameIsSpelledAnywhereElse();
};

void LegacyNamesTest::everyNameIsSpelledInTheFormatsFile()
{
    QStringList spelled;
    for (const auto &literal : stringLiteralsIn({QStringLiteral("src/format_legacy")})) {
        spelled += literal.file == formatFile ? QStringList(literal.text) : QStringList();
    }
    for (const auto &name : allNames()) {
        QVERIFY2(spelled.count(name) == 1, qPrintable(name));
    }
}

void LegacyNamesTest::noNameIsSpelledAnywhereElse()
{
    const QStringList names = allNames();
    QStringList elsewhere;
    for (const auto &literal : stringLiteralsIn({QStringLiteral("src"), QStringLiteral("tools")})) {
        if (literal.file != formatFile && names.contains(literal.text) && !isOfOtherMeaning(literal)) {
            elsewhere.append(literal.place() + QLatin1Char(' ') + literal.text);
        }
    }
    QCOMPARE(elsewhere, QStringList());
}

QTEST_APPLESS_MAIN(LegacyNamesTest)

#include "LegacyNamesTest.moc"
