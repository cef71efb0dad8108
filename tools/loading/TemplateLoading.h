#pragma once

#include "tools/loading/LoadLog.h"

#include "loading/CTemplateReadingReport.h"
#include "loading/TemplateFormat.h"
#include "xml/XmlDocument_p.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace Tobrix::Templates {
class CCatalogTemplate;
class TemplateLoading;
struct CTemplateRawData;
} // namespace Tobrix::Templates

namespace Tobrix::Tools {

/// Overrides for reading files.
struct LoadingOptions
{
    std::optional<Templates::TemplateFormat> format; ///< none: the format follows from the path
    Templates::XmlWay way = Templates::XmlWay::Automatic;
};

/// The file name for standard input.
inline constexpr QLatin1String standardInput("-");

/// The format of a file. Determined by the absolute path, as in hosts.
Templates::TemplateFormat formatOfFile(const QString &fileName, const LoadingOptions &options);

/// Reads a file, or standard input, into a raw record.
/// @return false when the reader fails
bool readTemplate(Templates::TemplateLoading &loading, const QString &fileName);

/// A file, and the result of loading it.
struct LoadedFile
{
    QString fileName;
    Templates::TemplateFormat format = Templates::TemplateFormat::Legacy;
    Templates::CTemplateReadingReport report;
    QList<LogLine> log; ///< the library's messages

    /// Whether there is a problem. The file may load nonetheless: one of the current format that is not
    /// well-formed is loaded up to its fault.
    bool hasProblem() const;
};

/// A template file as the library loads it.
struct LoadedTemplate : LoadedFile
{
    LoadedTemplate();
    LoadedTemplate(LoadedTemplate &&other) noexcept;
    ~LoadedTemplate();

    std::unique_ptr<Templates::CCatalogTemplate> catalogTemplate; ///< null when the file does not load
};

/// A template file read by its format reader.
struct LoadedRawData : LoadedFile
{
    LoadedRawData();
    LoadedRawData(LoadedRawData &&other) noexcept;
    ~LoadedRawData();

    bool isRead = false;                                  ///< whether the reader succeeded
    std::unique_ptr<Templates::CTemplateRawData> rawData; ///< never null
};

/// Loads a template file as hosts do.
LoadedTemplate loadTemplate(const QString &fileName, const LoadingOptions &options = {});

/// Reads a template file with its format reader, without building a template.
LoadedRawData loadRawData(const QString &fileName, const LoadingOptions &options = {});

} // namespace Tobrix::Tools
