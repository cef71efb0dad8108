#include "tools/check/rules/ControlTypes.h"
#include "tools/check/rules/RuleTable.h"

#include <QFile>
#include <QTest>

using namespace Tobrix::Tools;
using Tobrix::Templates::CTemplateColumn;

namespace {

QString checkingPage()
{
    QFile file(QStringLiteral(TOBRIX_SOURCE_DIR "/docs/checking.md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class CheckingPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageListsEveryRule_data();
    void pageListsEveryRule();
    void pageListsNoOtherRule();
    void pageShowsWhatEachControlFits_data();
    void pageShowsWhatEachControlFits();
};

void CheckingPageTest::pageListsEveryRule_data()
{
    QTest::addColumn<QString>("row");
    for (const auto &rule : allRules()) {
        QTest::newRow(rule.id) << QStringLiteral("\n| `%1` | %2 | %3 | %4 |\n")
                                      .arg(QLatin1String(rule.id), severityName(rule.severity),
                                           formatsName(rule.formats), QLatin1String(rule.summary));
    }
}

void CheckingPageTest::pageListsEveryRule()
{
    QFETCH(QString, row);
    QVERIFY2(checkingPage().contains(row), qPrintable(row));
}

void CheckingPageTest::pageListsNoOtherRule()
{
    QCOMPARE(checkingPage().count(QLatin1String("\n| `")), static_cast<int>(allRules().size()));
}

void CheckingPageTest::pageShowsWhatEachControlFits_data()
{
    QTest::addColumn<int>("control");
    for (int control = 1; !controlName(control).isNull(); ++control) {
        QTest::newRow(qPrintable(controlName(control))) << control;
    }
}

void CheckingPageTest::pageShowsWhatEachControlFits()
{
    QFETCH(int, control);
    const CTemplateColumn::ColumnType types[] = {CTemplateColumn::Text,    CTemplateColumn::Integer,
                                                 CTemplateColumn::Decimal, CTemplateColumn::Boolean,
                                                 CTemplateColumn::Date,    CTemplateColumn::Time};
    QStringList fitting;
    QStringList all;
    for (const auto type : types) {
        all.append(typeName(type));
        if (canEdit(control, type)) {
            fitting.append(typeName(type));
        }
    }
    const QString shown = fitting == all ? QStringLiteral("anything") : fitting.join(QLatin1String(", "));
    const QString row = QStringLiteral("\n| %1 | %2 |\n").arg(controlName(control), shown);
    QVERIFY2(checkingPage().contains(row), qPrintable(row));
}

QTEST_GUILESS_MAIN(CheckingPageTest)
#include "CheckingPageTest.moc"
