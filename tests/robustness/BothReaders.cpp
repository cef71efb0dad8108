#include "robustness/BothReaders.h"

#include "format_current/NewTemplateXMLReader.h"
#include "format_legacy/CTemplateXMLReader.h"
#include "rawdata/CTemplateRawData.h"

#include <QFile>
#include <QXmlStreamReader>

using namespace Tobrix::Templates;

namespace {

template <typename Reader>
bool isReadBy(const QString &path)
{
    CTemplateRawData rawData;
    return Reader().readFile(path, rawData);
}

bool isWellFormed(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
    }
    return !xml.hasError();
}

} // namespace

Verdicts verdictsOn(const QString &path)
{
    return {isReadBy<CTemplateXMLReader>(path), isReadBy<NewTemplateXMLReader>(path), isWellFormed(path)};
}

QString brokenPromise(const Verdicts &verdicts)
{
    if (verdicts.isReadAsLegacy && !verdicts.isWellFormed) {
        return QStringLiteral("the legacy reader accepts what is not well-formed");
    }
    if (!verdicts.isReadAsCurrent) {
        return QStringLiteral("the reader of the current format gives up");
    }
    return QString();
}

QString brokenPromiseOn(const QByteArray &bytes, MemoryFile &file)
{
    file.write(bytes);
    return brokenPromise(verdictsOn(file.path()));
}
