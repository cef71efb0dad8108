#include "Workload.h"

#include "loading/CTemplateReader.h"

#include <QDomDocument>
#include <QFile>
#include <QXmlStreamReader>

namespace Tobrix::Benchmarks {

std::unique_ptr<Templates::CCatalogTemplate> load(const QString &fileName)
{
    Templates::CCatalogTemplate *loaded = nullptr;
    if (!Templates::CTemplateReader::readFile(fileName, {}, loaded)) {
        qFatal("Cannot load %s", qPrintable(fileName));
    }
    return std::unique_ptr<Templates::CCatalogTemplate>(loaded);
}

void parseBare(const QString &fileName, Format format)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Cannot open %s", qPrintable(fileName));
    }
    if (format == Format::Current) {
        QDomDocument document;
        document.setContent(&file);
        return;
    }
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
    }
}

} // namespace Tobrix::Benchmarks
