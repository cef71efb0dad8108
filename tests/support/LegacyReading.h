#pragma once

#include "support/TemporaryTemplate.h"

#include "format_legacy/CTemplateXMLReader.h"
#include "rawdata/CTemplateRawData.h"

/// A legacy document, and the result of reading it.
class LegacyReading
{
public:
    explicit LegacyReading(const QByteArray &document)
    {
        const TemporaryTemplate file(QStringLiteral("templates"), document);
        Tobrix::Templates::CTemplateXMLReader reader;
        isRead = reader.readFile(file.path(), rawData);
    }

    Tobrix::Templates::CTemplateRawData rawData;
    bool isRead = false;

private:
    Q_DISABLE_COPY(LegacyReading)
};
