#include "tools/loading/XmlVerdict.h"

#include <QDomDocument>
#include <QXmlStreamReader>

namespace Tobrix::Tools {

namespace {

QString withoutFullStop(QString explanation)
{
    if (explanation.endsWith(QLatin1Char('.'))) {
        explanation.chop(1);
    }
    return explanation;
}

} // namespace

XmlVerdict judgeByDom(QIODevice &file, QDomDocument &document)
{
    XmlVerdict verdict;
    verdict.isWellFormed =
        document.setContent(&file, false, &verdict.explanation, &verdict.line, &verdict.column);
    verdict.explanation = withoutFullStop(verdict.explanation);
    return verdict;
}

XmlVerdict verdictOf(const QXmlStreamReader &xml)
{
    return {!xml.hasError(), static_cast<int>(xml.lineNumber()), static_cast<int>(xml.columnNumber()) + 1,
            withoutFullStop(xml.errorString())};
}

XmlVerdict judgeByStream(QIODevice &file)
{
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
    }
    return verdictOf(xml);
}

} // namespace Tobrix::Tools
