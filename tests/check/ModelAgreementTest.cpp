#include "CheckDocuments.h"
#include "support/TemporaryTemplate.h"
#include "tools/check/CheckedFile.h"
#include "tools/json/FileJson.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

using namespace Tobrix::Tools;
using Tobrix::Templates::CTemplateColumn;

// What the checker takes a file for must be what the library makes of it, or its findings are not true.

namespace {

QStringList sorted(QStringList lines)
{
    lines.sort();
    return lines;
}

QString flags(bool isVisible, bool isReadOnly, bool isMandatory, bool isVirtual)
{
    return QStringLiteral("%1%2%3%4").arg(isVisible).arg(isReadOnly).arg(isMandatory).arg(isVirtual);
}

QString numberText(double number)
{
    return QString::number(number, 'g', 17);
}

QString columnLine(const ColumnModel &column)
{
    QStringList words{column.path,
                      column.table,
                      column.caption.text,
                      column.listName.text,
                      QString::number(column.type),
                      QString::number(column.control),
                      QString::number(column.order),
                      flags(column.isVisible, column.isReadOnly, column.isMandatory, column.isVirtual)};
    if (column.type != CTemplateColumn::Text) {
        words << QString::number(column.hasDefault());
    }
    if (column.isNumeric()) {
        words << numberText(column.range().minimum) << numberText(column.range().maximum);
    } else if (column.type == CTemplateColumn::Text) {
        words << QString::number(column.maximumLength)
              << (column.isForcedToDefault ? QStringLiteral("NOD") : column.defaultValue.text);
    }
    return words.join(QLatin1Char('|'));
}

QString columnLine(const QJsonObject &column)
{
    const auto text = [&column](const char *name) {
        return column.value(QLatin1String(name)).toVariant().toString();
    };
    const auto flag = [&column](const char *name) { return column.value(QLatin1String(name)).toBool(); };
    QStringList words{text("boundColumn"),
                      text("tableName"),
                      text("caption"),
                      text("dataSource"),
                      text("columnType"),
                      text("controlType"),
                      text("sortOrder"),
                      flags(flag("isVisible"), flag("isReadOnly"), flag("isMandatory"), flag("isVirtual"))};
    const int type = column.value(QLatin1String("columnType")).toInt();
    if (type != CTemplateColumn::Text) {
        words << QString::number(flag("hasDefaultValue") || flag("initializeWithNow"));
    }
    if (type == CTemplateColumn::Integer || type == CTemplateColumn::Decimal) {
        const auto limit = [&column](const char *name) {
            const QJsonValue value = column.value(QLatin1String(name));
            return numberText(value.isDouble() ? value.toDouble() : value.toString().toDouble());
        };
        words << limit("minimumValue") << limit("maximumValue");
    } else if (type == CTemplateColumn::Text) {
        words << text("maximumTextLength")
              << column.value(QLatin1String("defaultValue"))
                     .toObject()
                     .value(QLatin1String("value"))
                     .toString();
    }
    return words.join(QLatin1Char('|'));
}

QStringList columnLines(const TemplateModel &model)
{
    QStringList lines;
    for (std::size_t i = 0; i < model.views.size(); ++i) {
        const ViewModel &view = model.views[i];
        if (view.isReplaced()) {
            continue;
        }
        lines.append(QStringLiteral("view %1 %2").arg(view.id.text, view.key.text));
        for (const ColumnModel *column : model.columnsOf(i)) {
            if (column->isBuilt()) {
                lines.append(view.id.text + QLatin1Char(':') + columnLine(*column));
            }
        }
    }
    return sorted(lines);
}

QStringList columnLines(const QJsonObject &loaded)
{
    QStringList lines;
    for (const auto &viewValue : loaded.value(QLatin1String("views")).toArray()) {
        const QJsonObject view = viewValue.toObject();
        const QString id = view.value(QLatin1String("uniqueId")).toString();
        lines.append(QStringLiteral("view %1 %2").arg(id, view.value(QLatin1String("key")).toString()));
        for (const auto &column : view.value(QLatin1String("columns")).toArray()) {
            if (column.isObject()) {
                lines.append(id + QLatin1Char(':') + columnLine(column.toObject()));
            }
        }
    }
    return sorted(lines);
}

QStringList listLines(const TemplateModel &model)
{
    QStringList lines;
    for (const auto &list : model.lists) {
        for (const auto &item : list.items) {
            lines.append(QStringLiteral("%1: %2 %3").arg(list.name, item.item.text).arg(item.sortOrder));
        }
    }
    return sorted(lines);
}

QStringList listLines(const QJsonObject &loaded)
{
    QStringList lines;
    const QJsonObject lists = loaded.value(QLatin1String("itemLists")).toObject();
    for (auto list = lists.begin(); list != lists.end(); ++list) {
        for (const auto &value : list.value().toArray()) {
            const QJsonObject item = value.toObject();
            lines.append(QStringLiteral("%1: %2 %3")
                             .arg(list.key(), item.value(QLatin1String("item")).toString())
                             .arg(item.value(QLatin1String("sortOrder")).toInt()));
        }
    }
    return sorted(lines);
}

QStringList legendLines(const TemplateModel &model)
{
    QStringList lines;
    for (int legend = 0; legend < 2; ++legend) {
        for (const auto &legendClass : model.legends[legend]) {
            lines.append(QStringLiteral("%1: %2 %3 %4")
                             .arg(legend)
                             .arg(numberText(legendClass.lower), numberText(legendClass.upper),
                                  legendClass.color.text));
        }
    }
    return sorted(lines);
}

QStringList legendLines(const QJsonObject &loaded)
{
    QStringList lines;
    for (int legend = 0; legend < 2; ++legend) {
        const QLatin1String name(legend == 0 ? "legendA" : "legendB");
        for (const auto &value : loaded.value(name).toArray()) {
            const QJsonObject legendClass = value.toObject();
            const auto bound = [&legendClass](const char *field) {
                const QJsonValue number = legendClass.value(QLatin1String(field));
                return numberText(number.isDouble() ? number.toDouble() : number.toString().toDouble());
            };
            lines.append(QStringLiteral("%1: %2 %3 %4")
                             .arg(legend)
                             .arg(bound("numberFrom"), bound("numberTo"),
                                  legendClass.value(QLatin1String("color")).toString()));
        }
    }
    return sorted(lines);
}

void compare(const TemplateModel &model, const QJsonObject &loaded)
{
    QCOMPARE(columnLines(model), columnLines(loaded));
    QCOMPARE(listLines(model), listLines(loaded));
    QCOMPARE(legendLines(model), legendLines(loaded));
    const QJsonObject header = loaded.value(QLatin1String("template")).toObject();
    QCOMPARE(model.header.uniqueId.text, header.value(QLatin1String("uniqueId")).toString());
    QCOMPARE(model.header.key.text, header.value(QLatin1String("key")).toString());
}

} // namespace

class ModelAgreementTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelIsWhatTheLibraryLoads_data();
    void modelIsWhatTheLibraryLoads();
    void modelHasThePiecesOfDividedTexts_data();
    void modelHasThePiecesOfDividedTexts();
};

void ModelAgreementTest::modelIsWhatTheLibraryLoads_data()
{
    QTest::addColumn<QString>("document");
    const QString source = QStringLiteral(TOBRIX_SOURCE_DIR "/");
    for (const auto *home : {"samples/", "tests/corpus/", "tests/check/"}) {
        for (const auto &folder : formatFolders) {
            for (const auto &document : documentsIn(source + QLatin1String(home) + folder.name)) {
                QTest::newRow(qPrintable(document.mid(source.size()))) << document;
            }
        }
    }
}

void ModelAgreementTest::modelIsWhatTheLibraryLoads()
{
    QFETCH(QString, document);
    const CheckedFile file(document);
    const QJsonObject loaded = describeTemplate(document);
    const bool isJudged = file.malformation().isEmpty() && file.excess().isEmpty();
    if (!isJudged || file.tree().unfollowedDocumentType() >= 0 ||
        !loaded.value(QLatin1String("ok")).toBool()) {
        return; // no rule looks at what such a file holds
    }
    compare(file.model(), loaded);
}

void ModelAgreementTest::modelHasThePiecesOfDividedTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const auto *text : {"A&x;B", "&x;A", "A&x;", "&x;", "<!-- c -->A&x;B", "A<![CDATA[B]]>&x;C"}) {
        QTest::newRow(text) << QByteArray(text);
    }
}

void ModelAgreementTest::modelHasThePiecesOfDividedTexts()
{
    QFETCH(QByteArray, text);
    // What holds the other texts together is whole.
    QByteArray sections("<SYSTPL><TPL_PK>T</TPL_PK><TPL_Key>*</TPL_Key></SYSTPL>"
                        "<PROGVIEW><PV_PK>V</PV_PK><PV_Key>*</PV_Key></PROGVIEW>"
                        "<SYSCOL><COL_ProgView_FK>V</COL_ProgView_FK><COL_DataType>TXT</COL_DataType>"
                        "<COL_Caption>*</COL_Caption><COL_Bound_Column>*</COL_Bound_Column></SYSCOL>"
                        "<SYSLIST><LIST_Name>L</LIST_Name><LIST_Item>*</LIST_Item></SYSLIST>"
                        "<LegendOfClassification><Section><class id='*' color='*'><legendA>*</legendA>"
                        "</class></Section></LegendOfClassification>");
    const bool isForAttributes = !text.contains('<');
    sections.replace("'*'", isForAttributes ? '\'' + text + '\'' : QByteArray("''")).replace('*', text);
    const TemporaryTemplate document(QStringLiteral("templates"),
                                     "<!DOCTYPE TobrixTemplate SYSTEM 't.dtd'><TobrixTemplate>" + sections +
                                         "</TobrixTemplate>");
    const QJsonObject loaded = describeTemplate(document.path());
    QVERIFY(loaded.value(QLatin1String("ok")).toBool());
    compare(CheckedFile(document.path()).model(), loaded);
}

QTEST_GUILESS_MAIN(ModelAgreementTest)
#include "ModelAgreementTest.moc"
