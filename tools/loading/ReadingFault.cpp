#include "tools/loading/ReadingFault.h"

#include "tools/loading/XmlVerdict.h"

#include "format_legacy/CTemplateTokenizer.h"
#include "format_legacy/LegacySection_p.h"
#include "rawdata/TemplateLimits_p.h"
#include "xml/GuardedFile_p.h"
#include "model/CTemplateColumn.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/CTemplateRawData.h"

#include <QDomDocument>
#include <QSet>
#include <QStringList>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

QString notWellFormed(const XmlVerdict &verdict)
{
    return QStringLiteral("not well-formed at line %1, column %2: %3")
        .arg(verdict.line)
        .arg(verdict.column)
        .arg(verdict.explanation);
}

QString pastLimit(qint64 line, const QString &excess)
{
    return QStringLiteral("goes past a limit at line %1: %2; nothing of it is used").arg(line).arg(excess);
}

QString tooMany(qint64 line, int limit, const char *what)
{
    return pastLimit(line, QStringLiteral("more than %1 %2").arg(limit).arg(QLatin1String(what)));
}

/// Walks over a legacy file along the path of its reader, up to what the reader stops at.
class LegacyWalk
{
public:
    explicit LegacyWalk(GuardedFile &file) : m_file(file), m_xml(&file) {}

    /// What the reader stops at, in words; empty when it reads the file to its end.
    QString fault();

private:
    template <typename Token>
    static void ignoreStart(Token)
    {
    }

    QString faultAtStartTag();
    QString faultOfView(qint64 line);
    QString faultOfColumn(qint64 line);
    QString faultOfListItem(qint64 line);
    QString faultOfLegends();
    QString faultOfXml() const;

    GuardedFile &m_file;
    QXmlStreamReader m_xml;
    QSet<QString> m_views;
    int m_columns = 0;
    int m_listItems = 0;
    int m_bandsA = 0;
    int m_bandsB = 0;
};

QString LegacyWalk::fault()
{
    while (!isEnd(m_xml.tokenType())) {
        if (m_xml.readNext() == QXmlStreamReader::StartElement) {
            const QString fault = faultAtStartTag();
            if (!fault.isEmpty()) {
                return fault;
            }
        }
    }
    return faultOfXml();
}

QString LegacyWalk::faultAtStartTag()
{
    const qint64 line = m_xml.lineNumber();
    switch (CTemplateTokenizer::stringToTemplateToken(m_xml.name())) {
    case CTemplateTokenizer::TXSYS:
    case CTemplateTokenizer::TobrixTemplate:
        break;
    case CTemplateTokenizer::PROGVIEW:
        return faultOfView(line);
    case CTemplateTokenizer::SYSCOL:
        return faultOfColumn(line);
    case CTemplateTokenizer::SYSLIST:
        return faultOfListItem(line);
    case CTemplateTokenizer::LegendOfClassification:
        return faultOfLegends();
    default:
        m_xml.skipCurrentElement();
    }
    return QString();
}

QString LegacyWalk::faultOfView(qint64 line)
{
    using Token = CTemplateTokenizer::ProgramViewToken;
    QString id;
    const auto onText = [&](Token token) {
        if (token == CTemplateTokenizer::PV_PK) {
            id = ownText(m_xml.text());
        }
    };
    if (walkSection(m_xml, CTemplateTokenizer::stringToProgramViewToken, TextRule::FirstAfterStartTag,
                    ignoreStart<Token>, onText)) {
        m_views.insert(id);
    }
    return m_views.size() > Limits::views ? tooMany(line, Limits::views, "views") : QString();
}

QString LegacyWalk::faultOfColumn(qint64 line)
{
    using Token = CTemplateTokenizer::ColumnToken;
    auto type = CTemplateColumn::Unknown;
    const auto onText = [&](Token token) {
        if (token == CTemplateTokenizer::COL_DataType) {
            type = CTemplateDataConverter::stringToColumnType(m_xml.text());
        }
    };
    const bool isComplete = walkSection(m_xml, CTemplateTokenizer::stringToColumnToken,
                                        TextRule::DirectlyAfterStartTag, ignoreStart<Token>, onText);
    // A column of unknown type is dropped.
    m_columns += isComplete && type != CTemplateColumn::Unknown ? 1 : 0;
    return m_columns > Limits::columns ? tooMany(line, Limits::columns, "columns") : QString();
}

QString LegacyWalk::faultOfListItem(qint64 line)
{
    using Token = CTemplateTokenizer::ListItemToken;
    QString listName;
    const auto onText = [&](Token token) {
        if (token == CTemplateTokenizer::LIST_Name) {
            listName = ownText(m_xml.text());
        }
    };
    if (!walkSection(m_xml, CTemplateTokenizer::stringToListItemToken, TextRule::FirstAfterStartTag,
                     ignoreStart<Token>, onText)) {
        return QString();
    }
    if (listName.isEmpty()) {
        return QStringLiteral("the list item at line %1 names no list (LIST_Name)").arg(line);
    }
    ++m_listItems;
    return m_listItems > Limits::listItems ? tooMany(line, Limits::listItems, "list items") : QString();
}

QString LegacyWalk::faultOfLegends()
{
    using Token = CTemplateTokenizer::LegendToken;
    int *bands = &m_bandsA;
    qint64 line = 0;
    const auto onStart = [&](Token token) {
        if (token == CTemplateTokenizer::Section || token == CTemplateTokenizer::Lateral) {
            bands = token == CTemplateTokenizer::Section ? &m_bandsA : &m_bandsB;
            *bands = 0;
        } else if (token == CTemplateTokenizer::LegendClass) {
            ++*bands;
            line = m_bandsA + m_bandsB == Limits::legendClasses + 1 ? m_xml.lineNumber() : line;
        }
    };
    walkSection(m_xml, CTemplateTokenizer::stringToLegendToken, TextRule::EveryWithinElement, onStart,
                ignoreStart<Token>);
    // A group that begins anew takes back what it had before.
    return m_bandsA + m_bandsB > Limits::legendClasses ? tooMany(line, Limits::legendClasses, "bands")
                                                     : QString();
}

QString LegacyWalk::faultOfXml() const
{
    const XmlVerdict verdict = verdictOf(m_xml);
    if (!m_file.excess().isEmpty() && !m_file.isFaultBeforeExcess(verdict.line, verdict.column)) {
        return pastLimit(m_file.excessLine(), m_file.excess());
    }
    return verdict.isWellFormed ? QString() : notWellFormed(verdict);
}

QDomNodeList elementsOf(const QDomNode &container, const char *name)
{
    const QString tagName = QLatin1String(name);
    return container.isDocument() ? container.toDocument().elementsByTagName(tagName)
                                  : container.toElement().elementsByTagName(tagName);
}

using Containers = QList<QDomNode>;

Containers wholeDocument(const QDomDocument &document)
{
    return {document};
}

Containers allOf(const QDomDocument &document, const char *name)
{
    Containers containers;
    const QDomNodeList elements = elementsOf(document, name);
    for (int i = 0; i < elements.count(); ++i) {
        containers.append(elements.at(i));
    }
    return containers;
}

Containers views(const QDomDocument &document)
{
    return allOf(document, "View");
}

Containers valueLists(const QDomDocument &document)
{
    return allOf(document, "ValueList");
}

/// The scopes of the colours that hosts show.
Containers defaultColorScopes(const QDomDocument &document)
{
    Containers scopes;
    const QDomNode container = elementsOf(document, "ClassificationColorScopes").item(0);
    const QDomNodeList all = elementsOf(container, "ClassificationColorScope");
    for (int i = 0; i < all.count(); ++i) {
        if (all.at(i).toElement().attribute(QStringLiteral("Name")) == QLatin1String("ClassColorDefault")) {
            scopes.append(all.at(i));
        }
    }
    return scopes;
}

/// What a document of the current format has too much of; empty when it has not.
QString excessOf(const QDomDocument &document)
{
    static const struct
    {
        Containers (*containers)(const QDomDocument &document);
        const char *name;
        int limit;
        const char *what;
    } kinds[] = {
        {defaultColorScopes, "ClassificationColor", Limits::legendClasses, "bands"},
        {wholeDocument, "View", Limits::views, "views"},
        {views, "Column", Limits::columns, "columns"},
        {valueLists, "ValueListItem", Limits::listItems, "list items"},
    };
    for (const auto &kind : kinds) {
        int left = kind.limit;
        for (const auto &container : kind.containers(document)) {
            // In containers in each other an element counts for each.
            const QDomNodeList elements = elementsOf(container, kind.name);
            if (elements.count() > left) {
                return tooMany(elements.at(left).lineNumber(), kind.limit, kind.what);
            }
            left -= elements.count();
        }
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

QString faultOfLegacyFile(GuardedFile &file)
{
    return LegacyWalk(file).fault();
}

QString faultOfCurrentFile(GuardedFile &file)
{
    QDomDocument document;
    const XmlVerdict verdict = judgeByDom(file, document);
    if (!file.excess().isEmpty() && !file.isFaultBeforeExcess(verdict.line, verdict.column)) {
        return pastLimit(file.excessLine(), file.excess());
    }
    const QString excess = excessOf(document);
    if (!excess.isEmpty() || verdict.isWellFormed) {
        return excess;
    }
    return notWellFormed(verdict) + QStringLiteral("; what follows was lost");
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
