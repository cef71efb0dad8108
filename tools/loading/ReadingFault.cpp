#include "tools/loading/ReadingFault.h"

#include "format_legacy/CTemplateTokenizer.h"
#include "format_legacy/LegacySection_p.h"
#include "loading/Limits_p.h"
#include "loading/TemplateFile_p.h"
#include "model/CTemplateColumn.h"
#include "rawdata/CTemplateRawData.h"

#include <QDomDocument>
#include <QStringList>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// A parser's explanation as the end of a sentence of ours.
QString withoutFullStop(QString explanation)
{
    if (explanation.endsWith(QLatin1Char('.'))) {
        explanation.chop(1);
    }
    return explanation;
}

QString notWellFormed(qint64 line, qint64 column, const QString &explanation)
{
    return QStringLiteral("not well-formed at line %1, column %2: %3")
        .arg(line)
        .arg(column)
        .arg(withoutFullStop(explanation));
}

/// Walks over a list item as the legacy reader does, and says whether it names its list.
bool namesItsList(QXmlStreamReader &xml)
{
    using Token = CTemplateTokenizer::ListItemToken;
    QString listName;
    const bool isComplete = walkSection(
        xml, CTemplateTokenizer::stringToListItemToken, TextRule::FirstAfterStartTag, [](Token) {},
        [&](Token token) {
            if (token == CTemplateTokenizer::LIST_Name) {
                listName = ownText(xml.text());
            }
        });
    return !isComplete || !listName.isEmpty();
}

QString excessOf(const TemplateFile &file)
{
    return QStringLiteral("goes past a limit at line %1: %2; nothing of it is used")
        .arg(file.excessLine())
        .arg(file.excess());
}

QString tooMany(int limit, const QString &what)
{
    return QStringLiteral("goes past a limit: more than %1 %2; nothing of it is used").arg(limit).arg(what);
}

/// The number of elements that containers hold, those in containers in each other counted for each.
qint64 countWithinEach(const QDomNodeList &containers, const QString &name)
{
    qint64 count = 0;
    for (int i = 0; i < containers.count(); ++i) {
        count += containers.at(i).toElement().elementsByTagName(name).count();
    }
    return count;
}

/// What a document of the current format has too much of; empty when it has not.
QString excessOf(const QDomDocument &document)
{
    const auto elements = [&document](const QString &name) { return document.elementsByTagName(name); };
    if (countWithinEach(elements(QStringLiteral("View")), QStringLiteral("Column")) > Limits::columns) {
        return tooMany(Limits::columns, QStringLiteral("columns"));
    }
    if (countWithinEach(elements(QStringLiteral("ValueList")), QStringLiteral("ValueListItem")) >
        Limits::listItems) {
        return tooMany(Limits::listItems, QStringLiteral("list items"));
    }
    return QString();
}

/// A column in a sentence: its caption and what it is bound to, as far as it has them.
QString nameOf(const CTemplateColumn &column)
{
    const QString caption = column.caption();
    const QString name = caption.isEmpty() ? QStringLiteral("a column without caption")
                                           : QStringLiteral("column \"%1\"").arg(caption);
    QStringList bound{column.tableName(), column.boundColumn()};
    bound.removeAll(QString());
    return bound.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, bound.join(QLatin1Char('.')));
}

} // namespace

QString faultOfLegacyFile(TemplateFile &file)
{
    QXmlStreamReader xml(&file);
    while (!isFinished(xml)) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const qint64 line = xml.lineNumber();
        switch (CTemplateTokenizer::stringToTemplateToken(xml.name())) {
        case CTemplateTokenizer::TXSYS:
        case CTemplateTokenizer::TobrixTemplate:
            break;
        case CTemplateTokenizer::SYSLIST:
            if (!namesItsList(xml)) {
                return QStringLiteral("the list item at line %1 names no list (LIST_Name)").arg(line);
            }
            break;
        default:
            xml.skipCurrentElement();
        }
    }
    const int line = static_cast<int>(xml.lineNumber());
    const int column = static_cast<int>(xml.columnNumber()) + 1;
    if (!file.excess().isEmpty() && !file.isFaultBeforeExcess(line, column)) {
        return excessOf(file);
    }
    return xml.hasError() ? notWellFormed(line, column, xml.errorString()) : QString();
}

QString faultOfCurrentFile(TemplateFile &file)
{
    QDomDocument document;
    QString explanation;
    int line = 0;
    int column = 0;
    const bool isWellFormed = document.setContent(&file, false, &explanation, &line, &column);
    if (!file.excess().isEmpty() && !file.isFaultBeforeExcess(line, column)) {
        return excessOf(file);
    }
    const QString excess = excessOf(document);
    if (!excess.isEmpty() || isWellFormed) {
        return excess;
    }
    return notWellFormed(line, column, explanation) + QStringLiteral("; what follows was lost");
}

QString readingFault(const CTemplateRawData &rawData)
{
    if (rawData.columns.size() >= Limits::columns) {
        return tooMany(Limits::columns, QStringLiteral("columns"));
    }
    if (rawData.listItems.size() >= Limits::listItems) {
        return tooMany(Limits::listItems, QStringLiteral("list items"));
    }
    return QStringLiteral("cannot be read");
}

QString buildingFault(const CTemplateRawData &rawData)
{
    const auto &columns = rawData.columns;
    for (auto it = columns.begin(); it != columns.end(); ++it) {
        if (rawData.programViews.contains(it.key())) {
            continue;
        }
        // The newest column of a view comes first: name the one that a person meets first in the file.
        const QList<CTemplateColumn *> orphans = columns.values(it.key());
        const QString belong = orphans.size() == 1
                                   ? QStringLiteral("belongs")
                                   : QStringLiteral("and %1 more belong").arg(orphans.size() - 1);
        return QStringLiteral("%1 %2 to view \"%3\", which the file does not have")
            .arg(nameOf(*orphans.last()), belong, it.key());
    }
    return QStringLiteral("was read, but no template can be built of it");
}

} // namespace Tobrix::Tools
