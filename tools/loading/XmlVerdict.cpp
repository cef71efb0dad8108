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
    // Whether the reader is at its end, it asks the device, and that does not know what was left out of a
    // file.
    while (xml.tokenType() != QXmlStreamReader::EndDocument && xml.tokenType() != QXmlStreamReader::Invalid) {
        xml.readNext();
    }
    return verdictOf(xml);
}

} // namespace Tobrix::Tools
