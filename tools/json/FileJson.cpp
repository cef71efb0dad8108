#include "tools/json/FileJson.h"

#include "tools/json/RawDataJson.h"
#include "tools/json/TemplateJson.h"
#include "tools/loading/TemplateLoading.h"

namespace Tobrix::Tools {

QJsonObject describeTemplate(const QString &fileName)
{
    return templateJson(loadTemplate(fileName));
}

QJsonObject describeRawData(const QString &fileName)
{
    return rawDataJson(loadRawData(fileName));
}

} // namespace Tobrix::Tools
