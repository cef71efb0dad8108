#pragma once

#include "loading/CTemplateReadingReport.h"
#include "loading/TemplateFormats_p.h"
#include "rawdata/CTemplateRawData.h"
#include "xml/XmlDocument_p.h"
#include "xml/XmlFile_p.h"

#include <memory>

namespace Tobrix::Templates {

class CCatalogTemplate;

/// Loads one template step by step: from a file or bytes to the raw record, and from that to the template.
/// Keeps the result of each step.
class TemplateLoading
{
public:
    /// @param name the path of the file, or the name of the bytes in messages
    TemplateLoading(const QString &name, TemplateFormat format, XmlWay way = XmlWay::Automatic);

    /// Writes the format to the host's log.
    void logFormat() const;

    /// Reads the file under the name into the raw record.
    /// @return false when the format's reader fails
    bool readFile(ReadingObserver *observer = nullptr);
    /// Reads the content of a file into the raw record.
    bool readBytes(const QByteArray &bytes, ReadingObserver *observer = nullptr);
    /// Notes that the content of a file cannot be read.
    void failToRead(const QString &error) { m_accessError = error; }

    /// Builds the template from the raw record, and completes its type from the host's registry.
    /// @return null when it cannot be built
    std::unique_ptr<CCatalogTemplate> buildTemplate();

    /// Whether a file could be opened and read to its end.
    bool isWholeFile() const { return isOpened() && m_accessError.isEmpty(); }
    const QByteArray &bytes() const { return m_bytes; }
    const XmlDocument &document() const { return m_document; }
    const ReadingResult &result() const { return m_result; }
    /// The raw record, without what the builder has moved out.
    std::unique_ptr<CTemplateRawData> takeRawData() { return std::move(m_rawData); }

    /// The result so far. Takes extra time after a failure.
    CTemplateReadingReport report() const;
    /// The report on a file that is not read because flags are set.
    CTemplateReadingReport reportOnFlags(int flags) const;

private:
    using Report = CTemplateReadingReportPrivate;

    bool readDocument(ReadingObserver *observer);
    bool isOpened() const { return m_access == XmlFile::Access::Readable; }
    void reportAccess(Report &report) const;
    void reportResult(Report &report) const;
    void reportStop(Report &report) const;
    static void reportOverLimit(Report &report, const QString &excess);
    void reportFault(Report &report) const;
    void reportColumnWithoutView(Report &report) const;
    bool hasAnything() const;

    QString m_name;
    const TemplateFormatRow &m_row;
    XmlWay m_way;
    XmlFile::Access m_access = XmlFile::Access::Readable;
    QString m_accessError;
    QByteArray m_bytes;
    XmlDocument m_document;
    std::unique_ptr<CTemplateRawData> m_rawData = std::make_unique<CTemplateRawData>();
    ReadingResult m_result;
    bool m_isRead = false;
    bool m_hasObjects = false; // views, columns, list items, legend classes or catalogues
    bool m_isGivenUp = false;  // by the builder, which has failed
};

} // namespace Tobrix::Templates
