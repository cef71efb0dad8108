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

/// How files are read, where that does not follow from the files.
struct LoadingOptions
{
    std::optional<Templates::TemplateFormat> format; ///< none for the one of the path
    Templates::XmlWay way = Templates::XmlWay::Automatic;
};

/// The file name that stands for standard input.
inline constexpr QLatin1String standardInput("-");

/// The format that a file is read as. Hosts pass whole paths, so that is what decides.
Templates::TemplateFormat formatOfFile(const QString &fileName, const LoadingOptions &options);

/// Reads a file, or standard input, into a raw record.
/// @return false when the reader gives up
bool readTemplate(Templates::TemplateLoading &loading, const QString &fileName);

/// A file, and what happened when it was loaded.
struct LoadedFile
{
    QString fileName;
    Templates::TemplateFormat format = Templates::TemplateFormat::Legacy;
    Templates::CTemplateReadingReport report;
    QList<LogLine> log; ///< what the library logged meanwhile

    /// Whether something is wrong with the file. It may load all the same: of one that is not well-formed,
    /// the current format keeps what stands before the fault.
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

/// A template file as its format's reader reads it.
struct LoadedRawData : LoadedFile
{
    LoadedRawData();
    LoadedRawData(LoadedRawData &&other) noexcept;
    ~LoadedRawData();

    bool isRead = false;                                  ///< whether the reader was content with the file
    std::unique_ptr<Templates::CTemplateRawData> rawData; ///< never null
};

/// Loads a template file as hosts do.
LoadedTemplate loadTemplate(const QString &fileName, const LoadingOptions &options = {});

/// Reads a template file with its format's reader, and builds nothing of it.
LoadedRawData loadRawData(const QString &fileName, const LoadingOptions &options = {});

} // namespace Tobrix::Tools
