#pragma once

#include "loading/CTemplateReadingReport.h"

#include <QSharedData>

namespace Tobrix::Templates {

class CTemplateReadingReportPrivate : public QSharedData
{
public:
    QString fileName;
    TemplateFormat format = TemplateFormat::Legacy;
    CTemplateReadingReport::Outcome outcome = CTemplateReadingReport::NotRead;
    int line = 0;
    int column = 0;
    QString reason = QStringLiteral("was not read");
};

} // namespace Tobrix::Templates
