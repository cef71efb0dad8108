#include "tools/check/CheckedFile.h"

#include "tools/check/model/CurrentModel.h"
#include "tools/check/model/LegacyModel.h"

#include "loading/TemplateLoading_p.h"
#include "xml/XmlLimits_p.h"

namespace Tobrix::Tools {

using namespace Templates;

CheckedFile::CheckedFile(const QString &fileName, const LoadingOptions &options)
    : m_fileName(fileName), m_format(formatOfFile(fileName, options))
{
    TemplateLoading loading(fileName, m_format, options.way);
    readTemplate(loading, fileName);
    if (!loading.isWholeFile()) {
        m_problem = loading.report().reason();
        return;
    }
    decode(loading.bytes());
    takeFault(loading);
}

CheckedFile::~CheckedFile() = default;

void CheckedFile::decode(const QByteArray &bytes)
{
    // A file over this limit is reported at its beginning.
    m_source = bytes.size() > Limits::fileSize ? QString() : decodedXml(bytes);
    // A file may itself contain the replacement character.
    if (m_source.contains(QChar(QChar::ReplacementCharacter))) {
        m_undecodable = undecodableOf(bytes);
    }
}

void CheckedFile::takeFault(const TemplateLoading &loading)
{
    const XmlDocument &document = loading.document();
    const XmlFault &fault = document.fault();
    const ReadingResult &result = loading.result();
    if (result.kind == ReadingResult::OverLimit && result.node >= 0) {
        m_excess = result.explanation;
        m_faultAt = document.sourceOffset(result.node);
    } else if (fault) {
        const bool isExcess = fault.kind == XmlFault::OverLimit;
        (isExcess ? m_excess : m_malformation) = isExcess ? fault.explanation : document.explanationOfFault();
        m_faultAt = document.sourceOffsetOfFault();
    }
}

const SourcePlaces &CheckedFile::places() const
{
    // Most files need no places.
    if (!m_places) {
        m_places = std::make_unique<SourcePlaces>(m_source);
    }
    return *m_places;
}

Place CheckedFile::placeOf(int at) const
{
    return places().placeOf(at);
}

const XmlTree &CheckedFile::tree() const
{
    if (!m_tree) {
        m_tree = std::make_unique<XmlTree>(m_source, isCurrent() ? XmlDialect::Dom : XmlDialect::Stream);
    }
    return *m_tree;
}

const TemplateModel &CheckedFile::model() const
{
    if (!m_model) {
        m_model = std::make_unique<TemplateModel>(isCurrent() ? currentModel(tree()) : legacyModel(tree()));
    }
    return *m_model;
}

} // namespace Tobrix::Tools
