#include "support/ReadingTrace.h"

#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"
#include "model/CTemplateLegendDataItem.h"
#include "rawdata/CColumnData.h"
#include "xml/SourcePlaces_p.h"

#include <QCryptographicHash>

using namespace Tobrix::Templates;

namespace {

QString inWords(ReadingObserver::Reason reason)
{
    switch (reason) {
    case ReadingObserver::Reason::UnknownElement:
        return QStringLiteral("unknown element");
    case ReadingObserver::Reason::NotHere:
        return QStringLiteral("not here");
    case ReadingObserver::Reason::NotTheFirst:
        return QStringLiteral("not the first");
    case ReadingObserver::Reason::UnknownAttribute:
        return QStringLiteral("unknown attribute");
    case ReadingObserver::Reason::RepeatedAttribute:
        return QStringLiteral("repeated attribute");
    case ReadingObserver::Reason::Text:
        return QStringLiteral("text");
    case ReadingObserver::Reason::WhiteSpace:
        return QStringLiteral("white space");
    case ReadingObserver::Reason::NotTheFirstText:
        return QStringLiteral("not the first text");
    case ReadingObserver::Reason::Ignored:
        return QStringLiteral("ignored");
    case ReadingObserver::Reason::OtherScope:
        return QStringLiteral("other scope");
    case ReadingObserver::Reason::AfterTheEnd:
        return QStringLiteral("after the end");
    case ReadingObserver::Reason::UnknownType:
        return QStringLiteral("unknown type");
    case ReadingObserver::Reason::Excluded:
        return QStringLiteral("excluded");
    case ReadingObserver::Reason::WithoutList:
        return QStringLiteral("without list");
    case ReadingObserver::Reason::WithoutLegendClass:
        return QStringLiteral("without legend class");
    case ReadingObserver::Reason::Replaced:
        return QStringLiteral("replaced");
    case ReadingObserver::Reason::InPassedOver:
        return QStringLiteral("in passed over");
    case ReadingObserver::Reason::Comment:
        return QStringLiteral("comment");
    case ReadingObserver::Reason::Instruction:
        return QStringLiteral("instruction");
    }
    return QStringLiteral("reason %1").arg(static_cast<int>(reason));
}

/// A text on one line, where null, empty and whitespace differ.
QString quoted(QString text)
{
    if (text.isNull()) {
        return QStringLiteral("null");
    }
    text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    text.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    text.replace(QLatin1Char('\t'), QLatin1String("\\t"));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString inWords(const QVariant &result)
{
    if (!result.isValid()) {
        return QStringLiteral("nothing");
    }
    return result.type() == QVariant::String ? quoted(result.toString()) : result.toString();
}

QString nameOf(const FormatRow &row)
{
    return row.attribute.isEmpty() ? QString(row.element) : row.element + QLatin1Char('@') + row.attribute;
}

} // namespace

QStringList ReadingTrace::summary() const
{
    QStringList lines;
    for (auto it = m_counts.cbegin(); it != m_counts.cend(); ++it) {
        lines.append(QStringLiteral("%1: %2").arg(it.key()).arg(it.value()));
    }
    const QByteArray all = m_lines.join(QLatin1Char('\n')).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(all, QCryptographicHash::Sha1).toHex();
    lines.append(QStringLiteral("%1 lines, SHA-1 %2").arg(m_lines.size()).arg(QLatin1String(hash)));
    return lines;
}

QString ReadingTrace::placeOf(int node, const XmlDocument::Attribute *attribute) const
{
    const Place place = attribute ? m_document->placeOf(node, *attribute) : m_document->placeOf(node);
    return QStringLiteral("%1:%2").arg(place.line).arg(place.column);
}

void ReadingTrace::add(const QString &kind, const QString &place, const QString &what)
{
    ++m_counts[kind];
    m_lines.append(QStringLiteral("%1: %2%3").arg(place, kind, what));
}

void ReadingTrace::begin(const XmlDocument &document)
{
    m_document = &document;
}

void ReadingTrace::take(const Value &value)
{
    QString what = QStringLiteral(" = ") + inWords(value.result);
    if (value.object >= 0) {
        what += QStringLiteral(", for %1").arg(placeOf(value.object));
    }
    if (value.overwritten >= 0) {
        what += QStringLiteral(", in place of %1").arg(placeOf(value.overwritten));
    }
    const QString place = placeOf(value.text < 0 ? value.element : value.text, value.attribute);
    add(QStringLiteral("takes ") + nameOf(value.row), place, what);
}

void ReadingTrace::fileView(const CProgramView &view, int element)
{
    add(QStringLiteral("files view"), placeOf(element),
        QStringLiteral(" %1, key %2").arg(quoted(view.uniqueId()), quoted(view.key())));
}

void ReadingTrace::fileColumn(const CTemplateColumn *column, const CColumnData &data, int element, int view)
{
    const QString of = view < 0 ? quoted(data.viewRef) : placeOf(view);
    add(column ? QStringLiteral("files column") : QStringLiteral("files empty column"), placeOf(element),
        QStringLiteral(" %1 of view %2").arg(quoted(data.caption), of));
}

void ReadingTrace::fileListItem(const CListItem &item, const QString &listName, int element, int list)
{
    const QString at = list < 0 ? QString() : QStringLiteral(" at %1").arg(placeOf(list));
    add(QStringLiteral("files list item"), placeOf(element),
        QStringLiteral(" %1 of list %2%3").arg(quoted(item.item()), quoted(listName), at));
}

void ReadingTrace::fileLegendClass(const CTemplateLegendDataItem &legendClass, bool isLateral, int element)
{
    add(isLateral ? QStringLiteral("files class of laterals") : QStringLiteral("files class of sections"),
        placeOf(element), QStringLiteral(" %1 %2").arg(quoted(legendClass.id), quoted(legendClass.color)));
}

void ReadingTrace::fileDefault(const QString &path, const QString &view, const QString &value, int element)
{
    add(QStringLiteral("files default"), placeOf(element),
        QStringLiteral(" %1 of %2 in view %3").arg(quoted(value), quoted(path), quoted(view)));
}

void ReadingTrace::fileList(const QString &name, int classType, int element)
{
    add(QStringLiteral("files list"), placeOf(element),
        QStringLiteral(" %1 of class %2").arg(quoted(name)).arg(classType));
}

void ReadingTrace::passOver(int node, const XmlDocument::Attribute *attribute, Reason reason, int inFavourOf)
{
    QString what = QStringLiteral(" ");
    const QString place = placeOf(node, attribute);
    if (attribute) {
        what += m_document->nameOf(*attribute);
    } else {
        what += m_document->isElement(node) ? QStringLiteral("<%1>").arg(m_document->nameOf(node))
                                            : quoted(m_document->text(node));
    }
    if (inFavourOf >= 0) {
        what += QStringLiteral(", in favour of %1").arg(placeOf(inFavourOf));
    }
    add(QStringLiteral("passes over (%1)").arg(inWords(reason)), place, what);
}
