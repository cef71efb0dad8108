#include "loading/TemplateLoading_p.h"

#include "loading/CTemplateBuilder.h"
#include "loading/CTemplateReadingReport_p.h"
#include "loading/FileAccess_p.h"
#include "loading/ReadContent_p.h"
#include "model/CCatalogTemplate.h"
#include "xml/SourcePlaces_p.h"

#include "host/CCatalogTemplateRegistry.h"
#include "host/CLogger.h"
#include "host/CTemplateDescriptor.h"
#include "host/CoreApplication.h"

namespace Tobrix::Templates {

namespace {

using Outcome = CTemplateReadingReport::Outcome;

const CATManagement::CCatalogTemplateRegistry *hostRegistry()
{
    const auto *application = AppLogic::CoreApplication::instance();
    return application ? application->catalogTemplateRegistry() : nullptr;
}

void completeType(CCatalogTemplate &catalogTemplate, const CATManagement::CCatalogTemplateRegistry &registry)
{
    const auto *descriptor = registry.templateByUniqueId(catalogTemplate.uniqueId());
    if (descriptor && catalogTemplate.type().isEmpty()) {
        catalogTemplate.setType(descriptor->type());
    }
}

Outcome outcomeOf(XmlFile::Access access)
{
    switch (access) {
    case XmlFile::Access::NotFound:
        return Outcome::NotFound;
    case XmlFile::Access::NoPermission:
        return Outcome::NoPermission;
    case XmlFile::Access::NotRegular:
        return Outcome::NotARegularFile;
    case XmlFile::Access::Readable:
    case XmlFile::Access::Unreadable:
        break;
    }
    return Outcome::Unreadable;
}

void setPlace(CTemplateReadingReportPrivate &report, const Place &place)
{
    report.line = place.line;
    report.column = place.column;
}

bool hasObjectsIn(const CTemplateRawData &rawData)
{
    return !rawData.programViews.isEmpty() || !rawData.columns.isEmpty() || !rawData.listItems.isEmpty() ||
           !rawData.legendA.isEmpty() || !rawData.legendB.isEmpty() || !rawData.catalogs.isEmpty();
}

} // namespace

TemplateLoading::TemplateLoading(const QString &name, TemplateFormat format, XmlWay way)
    : m_name(name), m_row(rowOf(format)), m_way(way), m_document(m_row.dialect)
{
}

void TemplateLoading::logFormat() const
{
    Logging::CLogger::logMessage(static_cast<Logging::LogLevel>(3), QStringLiteral("TemplateReader"),
                                 m_row.logMessage);
}

bool TemplateLoading::readFile(ReadingObserver *observer)
{
    XmlFile file;
    m_access = file.open(m_name);
    if (!isOpened()) {
        return false;
    }
    if (file.isOverLimit()) {
        m_document = XmlDocument::parse(file, m_row.dialect, m_way);
        return readDocument(observer);
    }
    const QByteArray bytes = file.readAll();
    m_accessError = file.errorString();
    return readBytes(bytes, observer);
}

bool TemplateLoading::readBytes(const QByteArray &bytes, ReadingObserver *observer)
{
    m_bytes = bytes;
    m_document = XmlDocument::parse(m_bytes, m_row.dialect, m_way);
    return readDocument(observer);
}

bool TemplateLoading::readDocument(ReadingObserver *observer)
{
    m_result = m_row.read(m_document, *m_rawData, observer);
    m_isRead = m_result || m_row.keepsBeginning;
    m_hasObjects = hasObjectsIn(*m_rawData);
    return m_isRead;
}

std::unique_ptr<CCatalogTemplate> TemplateLoading::buildTemplate()
{
    if (!m_isRead) {
        return nullptr;
    }
    CTemplateBuilder builder;
    std::unique_ptr<CCatalogTemplate> catalogTemplate(
        builder.buildTemplate(*m_rawData, m_row.viewsHoldColumns));
    m_isGivenUp = !catalogTemplate;
    const auto *registry = hostRegistry();
    if (catalogTemplate && registry) {
        completeType(*catalogTemplate, *registry);
    }
    return catalogTemplate;
}

CTemplateReadingReport TemplateLoading::report() const
{
    auto report = std::make_unique<Report>();
    report->fileName = m_name;
    report->format = m_row.format;
    if (isWholeFile()) {
        reportResult(*report);
    } else {
        reportAccess(*report);
    }
    return CTemplateReadingReport(report.release());
}

CTemplateReadingReport TemplateLoading::reportOnFlags(int flags) const
{
    auto report = std::make_unique<Report>();
    report->fileName = m_name;
    report->format = m_row.format;
    report->outcome = Outcome::FlagsNotSupported;
    report->reason = QStringLiteral("was not read: flags %1 are not supported").arg(flags);
    return CTemplateReadingReport(report.release());
}

void TemplateLoading::reportAccess(Report &report) const
{
    report.outcome = outcomeOf(m_access);
    report.reason =
        isOpened() ? QStringLiteral("cannot be read: %1").arg(m_accessError) : whyNotOpened(m_name);
}

void TemplateLoading::reportResult(Report &report) const
{
    const XmlFault &fault = m_document.fault();
    if (m_result.node >= 0) {
        reportStop(report);
    } else if (fault) {
        reportFault(report);
    } else if (m_isGivenUp) {
        reportColumnWithoutView(report);
    } else if (m_hasObjects || hasAnything()) {
        report.outcome = Outcome::Loaded;
        report.reason = QStringLiteral("was loaded");
    } else {
        report.outcome = Outcome::NothingOfATemplate;
        report.reason = QStringLiteral("has nothing of a template of the %1 format").arg(m_row.name);
    }
}

void TemplateLoading::reportStop(Report &report) const
{
    setPlace(report, m_document.placeOf(m_result.node));
    if (m_result.kind == ReadingResult::OverLimit) {
        reportOverLimit(report, m_result.explanation);
    } else if (m_result.kind == ReadingResult::ItemWithoutList) {
        report.outcome = Outcome::ItemWithoutList;
        report.reason = QStringLiteral("the list item at line %1 names no list (LIST_Name)").arg(report.line);
    } else {
        report.outcome = Outcome::ColumnNotBuilt;
        report.reason = QStringLiteral("the column at line %1 cannot be built").arg(report.line);
    }
}

void TemplateLoading::reportOverLimit(Report &report, const QString &excess)
{
    report.outcome = Outcome::OverLimit;
    report.reason = QStringLiteral("goes over a limit at line %1: %2; nothing of it is used")
                        .arg(QString::number(report.line), excess);
}

void TemplateLoading::reportFault(Report &report) const
{
    setPlace(report, m_document.placeOfFault());
    if (m_document.fault().kind == XmlFault::OverLimit) {
        reportOverLimit(report, m_document.fault().explanation);
        return;
    }
    report.outcome = m_row.keepsBeginning ? Outcome::LoadedUpToFault : Outcome::NotWellFormed;
    report.reason = QStringLiteral("not well-formed at line %1, column %2: %3%4")
                        .arg(QString::number(report.line), QString::number(report.column),
                             m_document.explanationOfFault(),
                             m_row.keepsBeginning ? QStringLiteral("; what follows was lost") : QString());
}

void TemplateLoading::reportColumnWithoutView(Report &report) const
{
    report.outcome = Outcome::ColumnWithoutView;
    // The builder knows no offsets, and has moved columns out of the raw record.
    CTemplateRawData rawData;
    ReadContent content;
    m_row.read(m_document, rawData, &content);
    const ColumnsWithoutView found = content.firstColumnsWithoutView(rawData);
    if (found.element >= 0) {
        setPlace(report, m_document.placeOf(found.element));
    }
    const QString belong = found.others == 0 ? QStringLiteral("belongs")
                                             : QStringLiteral("and %1 more belong").arg(found.others);
    report.reason = QStringLiteral("%1 at line %2 %3 to view \"%4\", which the file does not have")
                        .arg(found.name, QString::number(report.line), belong, found.view);
}

bool TemplateLoading::hasAnything() const
{
    CTemplateRawData rawData;
    ReadContent content;
    m_row.read(m_document, rawData, &content);
    return content.hasAnything();
}

} // namespace Tobrix::Templates
