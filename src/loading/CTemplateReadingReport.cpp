#include "loading/CTemplateReadingReport.h"

#include "loading/CTemplateReadingReport_p.h"

namespace Tobrix::Templates {

CTemplateReadingReport::CTemplateReadingReport() : d(new CTemplateReadingReportPrivate)
{
}

CTemplateReadingReport::CTemplateReadingReport(CTemplateReadingReportPrivate *content) : d(content)
{
}

CTemplateReadingReport::CTemplateReadingReport(const CTemplateReadingReport &other) = default;
CTemplateReadingReport &CTemplateReadingReport::operator=(const CTemplateReadingReport &other) = default;
CTemplateReadingReport::~CTemplateReadingReport() = default;

CTemplateReadingReport::Outcome CTemplateReadingReport::outcome() const
{
    return d->outcome;
}

TemplateFormat CTemplateReadingReport::format() const
{
    return d->format;
}

int CTemplateReadingReport::line() const
{
    return d->line;
}

int CTemplateReadingReport::column() const
{
    return d->column;
}

QString CTemplateReadingReport::message() const
{
    const QString name = d->fileName.isEmpty() ? QStringLiteral("\"\"") : d->fileName;
    return name + QLatin1String(": ") + d->reason;
}

QString CTemplateReadingReport::reason() const
{
    return d->reason;
}

} // namespace Tobrix::Templates
