#pragma once

#include "tools/loading/LoadLog.h"

#include <QList>
#include <QString>

#include <memory>

namespace Tobrix::Templates {
class CCatalogTemplate;
struct CTemplateRawData;
} // namespace Tobrix::Templates

namespace Tobrix::Tools {

/// A template file as the library loads it.
struct LoadedTemplate
{
    LoadedTemplate();
    LoadedTemplate(LoadedTemplate &&other) noexcept;
    ~LoadedTemplate();

    QString fileName;
    std::unique_ptr<Templates::CCatalogTemplate> catalogTemplate; ///< null when the file does not load
    QList<LogLine> log;                                           ///< what the library logged meanwhile
};

/// A template file as its format's reader reads it.
struct LoadedRawData
{
    LoadedRawData();
    LoadedRawData(LoadedRawData &&other) noexcept;
    ~LoadedRawData();

    QString fileName;
    bool isRead = false;                                  ///< whether the reader was content with the file
    std::unique_ptr<Templates::CTemplateRawData> rawData; ///< never null
    QList<LogLine> log;                                   ///< what the library logged meanwhile
};

/// Loads a template file as hosts do.
LoadedTemplate loadTemplate(const QString &fileName);

/// Reads a template file with its format's reader, and builds nothing of it.
LoadedRawData loadRawData(const QString &fileName);

/// What is wrong with a file that was loaded, for a person to read; empty when nothing is. A file may load
/// and still have something wrong: of one that is not well-formed, the current format keeps what stands
/// before the fault.
QString problemOf(const LoadedTemplate &loaded);
QString problemOf(const LoadedRawData &loaded);

} // namespace Tobrix::Tools
