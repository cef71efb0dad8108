#include "CheckDocuments.h"
#include "JsonPath.h"
#include "tools/json/FileJson.h"

#include <QFile>
#include <QJsonDocument>
#include <QTest>

using namespace Tobrix::Tools;

namespace {

const QString checkFolder = QStringLiteral(TOBRIX_SOURCE_DIR "/tests/check/");
const QLatin1String nearMissSuffix(".near-miss.xml");

/// What a path stands for that leads to nothing.
const QLatin1String absent("(absent)");

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString ruleOfDocument(const QString &fileName)
{
    return QFileInfo(fileName).fileName().section(QLatin1Char('.'), 0, 0);
}

QString withoutXml(const QString &fileName)
{
    return fileName.chopped(4);
}

/// A row for every document of a rule, near misses or the others.
void addDocuments(bool areNearMisses)
{
    QTest::addColumn<QString>("document");
    for (const auto &folder : formatFolders) {
        for (const auto &document : documentsIn(checkFolder + folder.name)) {
            if (document.endsWith(nearMissSuffix) == areNearMisses) {
                QTest::newRow(qPrintable(document.mid(checkFolder.size()))) << document;
            }
        }
    }
}

/// What the library makes of a file, as far as a path leads. The record that is built of starts with "raw:".
QJsonValue loadedValue(const QString &document, const QString &path)
{
    const QLatin1String raw("raw:");
    const QJsonValue value = path.startsWith(raw)
                                 ? valueUnder(path.mid(raw.size()), describeRawData(document))
                                 : valueUnder(path, describeTemplate(document));
    return value.isUndefined() ? QJsonValue(absent) : value;
}

QByteArray inWords(const QJsonValue &value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
}

} // namespace

class RuleDocumentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRuleHasItsDocuments_data();
    void everyRuleHasItsDocuments();
    void everyDocumentIsOfARule_data();
    void everyDocumentIsOfARule();
    void everyRuleSaysWhatItIsAbout_data() { everyRuleHasItsDocuments_data(); }
    void everyRuleSaysWhatItIsAbout();
    void documentHasTheExpectedFindings_data() { addDocuments(false); }
    void documentHasTheExpectedFindings();
    void documentTriggersItsRuleAlone_data() { addDocuments(false); }
    void documentTriggersItsRuleAlone();
    void nearMissIsSilent_data() { addDocuments(true); }
    void nearMissIsSilent();
    void libraryDoesWhatTheFindingSays_data() { addDocuments(false); }
    void libraryDoesWhatTheFindingSays();
};

void RuleDocumentsTest::everyRuleHasItsDocuments_data()
{
    QTest::addColumn<QString>("id");
    for (const auto &rule : allRules()) {
        QTest::newRow(rule.id) << QString(QLatin1String(rule.id));
    }
}

void RuleDocumentsTest::everyRuleHasItsDocuments()
{
    QFETCH(QString, id);
    QStringList missing;
    for (const auto &folder : formatFolders) {
        for (const auto *suffix : {".xml", ".expected", ".effect.json", ".near-miss.xml"}) {
            const QString file = folder.name + QLatin1Char('/') + id + QLatin1String(suffix);
            if (ruleOf(id)->appliesTo(folder.isCurrent) && !QFile::exists(checkFolder + file)) {
                missing.append(file);
            }
        }
    }
    QCOMPARE(missing.join(QLatin1Char(' ')), QString());
}

void RuleDocumentsTest::everyDocumentIsOfARule_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("isCurrent");
    for (const auto &folder : formatFolders) {
        QTest::newRow(folder.name.data()) << QString(folder.name) << folder.isCurrent;
    }
}

void RuleDocumentsTest::everyDocumentIsOfARule()
{
    QFETCH(QString, folder);
    QFETCH(bool, isCurrent);
    QStringList strangers;
    for (const auto &file : QDir(checkFolder + folder).entryList(QDir::Files)) {
        const Rule *rule = ruleOf(ruleOfDocument(file));
        if (!rule || !rule->appliesTo(isCurrent)) {
            strangers.append(file);
        }
    }
    QCOMPARE(strangers.join(QLatin1Char(' ')), QString());
}

void RuleDocumentsTest::everyRuleSaysWhatItIsAbout()
{
    QFETCH(QString, id);
    const Rule &rule = *ruleOf(id);
    for (const char *text : {rule.summary, rule.explanation, rule.wrong, rule.right}) {
        QVERIFY(!QByteArray(text).trimmed().isEmpty());
    }
    QVERIFY(QByteArray(rule.explanation).endsWith('.') || QByteArray(rule.explanation).endsWith(')'));
    QVERIFY(QByteArray(rule.wrong) != QByteArray(rule.right));
    QVERIFY2(!QByteArray(rule.summary).endsWith('.'), rule.summary);
}

void RuleDocumentsTest::documentHasTheExpectedFindings()
{
    QFETCH(QString, document);
    const QString expected = QString::fromUtf8(contentOf(withoutXml(document) + QLatin1String(".expected")));
    QCOMPARE(findingsIn(document), expected);
}

void RuleDocumentsTest::documentTriggersItsRuleAlone()
{
    QFETCH(QString, document);
    const FileReport report = checkFile(document, {});
    QVERIFY(!report.findings.empty());
    for (const auto &finding : report.findings) {
        QCOMPARE(QString(QLatin1String(finding.rule->id)), ruleOfDocument(document));
    }
    QCOMPARE(findingsIn(document, {ruleOfDocument(document)}), QString());
}

void RuleDocumentsTest::nearMissIsSilent()
{
    QFETCH(QString, document);
    QCOMPARE(findingsIn(document), QString());
}

void RuleDocumentsTest::libraryDoesWhatTheFindingSays()
{
    QFETCH(QString, document);
    const QString name = withoutXml(document);
    const QString nearMiss = name + nearMissSuffix;
    QJsonParseError error;
    const QJsonArray effects =
        QJsonDocument::fromJson(contentOf(name + QLatin1String(".effect.json")), &error).array();
    QVERIFY2(!effects.isEmpty(), qPrintable(error.errorString()));

    bool isOtherwiseWithoutTheMistake = false;
    for (const auto &effect : effects) {
        const QString path = effect.toObject().value(QLatin1String("path")).toString();
        const QJsonValue value = effect.toObject().value(QLatin1String("value"));
        const QJsonValue otherwise = effect.toObject().value(QLatin1String("nearMiss"));
        QCOMPARE(path.toUtf8() + inWords(loadedValue(document, path)), path.toUtf8() + inWords(value));
        QCOMPARE(path.toUtf8() + inWords(loadedValue(nearMiss, path)), path.toUtf8() + inWords(otherwise));
        isOtherwiseWithoutTheMistake = isOtherwiseWithoutTheMistake || value != otherwise;
    }
    QVERIFY(isOtherwiseWithoutTheMistake);
}

QTEST_GUILESS_MAIN(RuleDocumentsTest)
#include "RuleDocumentsTest.moc"
