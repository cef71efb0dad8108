// The table of the format: complete, and the only place with the names of its elements and attributes.

#include "format_current/CurrentFormat_p.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Tobrix::Templates;

namespace {

QSet<QString> namesOfTheFormat()
{
    QSet<QString> names;
    for (const auto &row : currentElements) {
        names.insert(row.name);
    }
    for (const auto &row : currentValues) {
        names.insert(row.attribute);
    }
    names.remove(QString());
    return names;
}

/// Files that may contain names: the table, examples in explanations of rules, and headings for users.
bool maySpellNames(const QString &file)
{
    for (const char *name : {"src/format_current/CurrentFormat_p.h", "tools/check/rules/RuleTable.cpp",
                             "tools/text/TemplateText.cpp"}) {
        if (file.endsWith(QLatin1String(name))) {
            return true;
        }
    }
    return false;
}

/// The string literals of a source file with the lines that they are in.
QList<QPair<QString, int>> literalsOf(const QString &fileName)
{
    static const QRegularExpression literal(QStringLiteral("\"((?:[^\"\\\\]|\\\\.)*)\""));
    QList<QPair<QString, int>> literals;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s cannot be read", qPrintable(fileName));
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        auto matches = literal.globalMatch(lines[i]);
        while (matches.hasNext()) {
            literals.append({matches.next().captured(1), i + 1});
        }
    }
    return literals;
}

} // namespace

class CurrentFormatTableTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void elementIsLookedUp();
    void lookUpIsBelowAnEarlierOne();
    void lookUpGivesAValueOrLeadsToOne();
    void ruleBelongsToAValue();
    void rowSaysWhatItMeans();
    void formatRowIsThatOfItsValue();
    void wordsAreThoseOfTheirTables();
    void namesAreSpeltInTheTableAlone_data();
    void namesAreSpeltInTheTableAlone();
};

void CurrentFormatTableTest::elementIsLookedUp()
{
    for (const auto &row : currentElements) {
        const bool isLookedUp =
            std::any_of(std::begin(currentLookups), std::end(currentLookups),
                        [&row](const CurrentLookupRow &lookup) { return lookup.element == row.element; });
        QVERIFY2(isLookedUp, row.name.data());
    }
}

void CurrentFormatTableTest::lookUpIsBelowAnEarlierOne()
{
    for (const auto &row : currentLookups) {
        QVERIFY2(row.lookup == CurrentLookup::Document || row.below < row.lookup, row.meaning.data());
    }
}

void CurrentFormatTableTest::lookUpGivesAValueOrLeadsToOne()
{
    for (const auto &row : currentLookups) {
        const bool hasValue =
            std::any_of(std::begin(currentValues), std::end(currentValues),
                        [&row](const CurrentValueRow &value) { return value.lookup == row.lookup; });
        const bool leadsOn =
            std::any_of(std::begin(currentLookups), std::end(currentLookups),
                        [&row](const CurrentLookupRow &other) { return other.below == row.lookup; });
        QVERIFY2(hasValue || leadsOn, row.meaning.data());
    }
}

void CurrentFormatTableTest::ruleBelongsToAValue()
{
    for (const auto &row : currentRules) {
        const bool isUsed =
            std::any_of(std::begin(currentValues), std::end(currentValues),
                        [&row](const CurrentValueRow &value) { return value.rule == row.rule; });
        QVERIFY2(isUsed, row.meaning.data());
    }
}

void CurrentFormatTableTest::rowSaysWhatItMeans()
{
    const auto isPhrase = [](QLatin1String text) {
        return !text.isEmpty() && !QString(text).endsWith(QLatin1Char('.'));
    };
    for (const auto &row : currentLookups) {
        QVERIFY(isPhrase(row.meaning));
    }
    for (const auto &row : currentValues) {
        QVERIFY(isPhrase(row.meaning));
    }
}

void CurrentFormatTableTest::formatRowIsThatOfItsValue()
{
    const FormatRow &width = formatRowOf(CurrentValue::ColumnWidth);
    QCOMPARE(QString(width.element), QStringLiteral("Column"));
    QCOMPARE(QString(width.attribute), QStringLiteral("Width"));
    QCOMPARE(width.kind, ValueKind::Integer);
    QVERIFY(width.words.isEmpty());
    const FormatRow &caption = formatRowOf(CurrentValue::ColumnCaption);
    QCOMPARE(QString(caption.element), QStringLiteral("TextItem"));
    QVERIFY(caption.attribute.isEmpty());
    QVERIFY(isText(CurrentValue::ColumnCaption));
    QVERIFY(!isText(CurrentValue::ColumnIsMandatory));
    QCOMPARE(valueOf(caption), CurrentValue::ColumnCaption);
}

void CurrentFormatTableTest::wordsAreThoseOfTheirTables()
{
    const auto wordsOf = [](CurrentValue value) {
        QStringList words;
        for (const auto &word : formatRowOf(value).words) {
            words.append(word);
        }
        return words.join(QLatin1Char(','));
    };
    QCOMPARE(wordsOf(CurrentValue::ColumnDataType),
             QStringLiteral("Guid,Decimal,Text,Boolean,Date,Time,Integer"));
    QCOMPARE(wordsOf(CurrentValue::TemplateUnitSystem), QStringLiteral("Metric,Imperial"));
    QCOMPARE(wordsOf(CurrentValue::ColumnControlType).count(QLatin1Char(',')) + 1, 20);
    QCOMPARE(wordsOf(CurrentValue::ScopeKind), QStringLiteral("Section,Lateral"));
    QCOMPARE(wordsOf(CurrentValue::ColumnGroupLevel), QStringLiteral("true,false"));
}

void CurrentFormatTableTest::namesAreSpeltInTheTableAlone_data()
{
    QTest::addColumn<QString>("file");
    const QString project = QStringLiteral(TOBRIX_SOURCE_DIR "/");
    for (const char *module : {"src", "tools"}) {
        QDirIterator files(project + QLatin1String(module), {QStringLiteral("*.cpp"), QStringLiteral("*.h")},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            if (!maySpellNames(file)) {
                QTest::newRow(qPrintable(file.mid(project.size()))) << file;
            }
        }
    }
}

void CurrentFormatTableTest::namesAreSpeltInTheTableAlone()
{
    QFETCH(QString, file);
    static const QSet<QString> names = namesOfTheFormat();
    QStringList spelt;
    for (const auto &literal : literalsOf(file)) {
        if (names.contains(literal.first)) {
            spelt.append(QStringLiteral("%1 in line %2").arg(literal.first).arg(literal.second));
        }
    }
    QVERIFY2(spelt.isEmpty(), qPrintable(spelt.join(QStringLiteral(", "))));
}

QTEST_APPLESS_MAIN(CurrentFormatTableTest)

#include "CurrentFormatTableTest.moc"
