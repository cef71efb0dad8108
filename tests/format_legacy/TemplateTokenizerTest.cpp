#include "support/LegacyNames.h"

#include "format_legacy/CTemplateTokenizer.h"

#include <QSet>
#include <QTest>
#include <QThread>

#include <memory>

namespace {

/// The token of a name in one section.
int tokenOf(LegacyPart part, const QStringRef &name)
{
    switch (part) {
    case LegacyPart::Document:
        return CTemplateTokenizer::stringToTemplateToken(name);
    case LegacyPart::Header:
        return CTemplateTokenizer::stringToTemplateInfoToken(name);
    case LegacyPart::ProgramView:
        return CTemplateTokenizer::stringToProgramViewToken(name);
    case LegacyPart::Column:
        return CTemplateTokenizer::stringToColumnToken(name);
    case LegacyPart::ListItem:
        return CTemplateTokenizer::stringToListItemToken(name);
    case LegacyPart::Legend:
        return CTemplateTokenizer::stringToLegendToken(name);
    }
    return -1;
}

constexpr LegacyPart parts[] = {LegacyPart::Document, LegacyPart::Header,   LegacyPart::ProgramView,
                                LegacyPart::Column,   LegacyPart::ListItem, LegacyPart::Legend};

/// The tokens of a name in all sections.
QList<int> tokensOf(const QStringRef &name)
{
    QList<int> tokens;
    for (const auto part : parts) {
        tokens.append(tokenOf(part, name));
    }
    return tokens;
}

QList<int> tokensOf(const QString &name)
{
    return tokensOf(QStringRef(&name));
}

const QList<int> unknownEverywhere = {0, 0, 0, 0, 0, 0};

void addNameRows()
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < legacyNames().size(); ++i) {
        QTest::newRow(legacyNames()[i].name) << static_cast<int>(i);
    }
}

} // namespace

class TemplateTokenizerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void vocabularyHasSeventyOneNames();
    void nameHasItsNumberInItsOwnPartAlone_data() { addNameRows(); }
    void nameHasItsNumberInItsOwnPartAlone();
    void namesAreComparedExactly_data() { addNameRows(); }
    void namesAreComparedExactly();
    void unknownNameIsZeroEverywhere_data();
    void unknownNameIsZeroEverywhere();
    void namesAreFoundWithinLongerTexts();
    void namesAreFoundOnSeveralThreads();
};

void TemplateTokenizerTest::vocabularyHasSeventyOneNames()
{
    QSet<QString> names;
    for (const auto &name : legacyNames()) {
        names.insert(QLatin1String(name.name));
    }
    QCOMPARE(names.size(), 71);
}

void TemplateTokenizerTest::nameHasItsNumberInItsOwnPartAlone()
{
    QFETCH(int, index);
    const LegacyName &name = legacyNames().at(static_cast<std::size_t>(index));
    QList<int> expected = unknownEverywhere;
    expected[static_cast<int>(name.part)] = name.token;
    QCOMPARE(tokensOf(QString(QLatin1String(name.name))), expected);
}

void TemplateTokenizerTest::namesAreComparedExactly()
{
    QFETCH(int, index);
    const QString name = QLatin1String(legacyNames().at(static_cast<std::size_t>(index)).name);
    QString swapped = name;
    for (QChar &character : swapped) {
        character = character.isUpper() ? character.toLower() : character.toUpper();
    }
    QStringList others = {name.toLower(),
                          name.toUpper(),
                          swapped,
                          name + QLatin1Char(' '),
                          QLatin1Char(' ') + name,
                          QStringLiteral("x:") + name,
                          name + QLatin1Char('_'),
                          name.left(name.size() - 1),
                          name.mid(1)};
    others.removeAll(name);
    for (const auto &other : qAsConst(others)) {
        QVERIFY2(tokensOf(other) == unknownEverywhere, qPrintable(other));
    }
}

void TemplateTokenizerTest::unknownNameIsZeroEverywhere_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("blank") << QStringLiteral(" ");
    QTest::newRow("unknown") << QStringLiteral("Other");
    QTest::newRow("prefix of columns") << QStringLiteral("COL_");
    QTest::newRow("number") << QStringLiteral("1");
}

void TemplateTokenizerTest::unknownNameIsZeroEverywhere()
{
    QFETCH(QString, name);
    QCOMPARE(tokensOf(name), unknownEverywhere);
    QCOMPARE(tokensOf(QStringRef()), unknownEverywhere);
}

void TemplateTokenizerTest::namesAreFoundWithinLongerTexts()
{
    const QString text = QStringLiteral("<SYSTPL><TPL_Key>");
    QCOMPARE(tokenOf(LegacyPart::Document, text.midRef(1, 6)), 3);
    QCOMPARE(tokenOf(LegacyPart::Header, text.midRef(9, 7)), 4);
    QCOMPARE(tokenOf(LegacyPart::Header, text.midRef(9, 6)), 0);
}

void TemplateTokenizerTest::namesAreFoundOnSeveralThreads()
{
    std::vector<std::unique_ptr<QThread>> threads;
    std::atomic<int> found = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(QThread::create([&found] {
            for (const auto &name : legacyNames()) {
                const QString text = QLatin1String(name.name);
                found += tokenOf(name.part, QStringRef(&text)) == name.token;
            }
        }));
        threads.back()->start();
    }
    for (const auto &thread : threads) {
        thread->wait();
    }
    QCOMPARE(found.load(), 4 * static_cast<int>(legacyNames().size()));
}

QTEST_APPLESS_MAIN(TemplateTokenizerTest)

#include "TemplateTokenizerTest.moc"
