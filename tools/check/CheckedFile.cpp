#include "tools/check/CheckedFile.h"

#include "tools/check/CountLimits.h"
#include "tools/check/model/CurrentModel.h"
#include "tools/check/model/LegacyModel.h"
#include "xml/XmlFault_p.h"
#include "tools/loading/FileAccess.h"

#include "xml/GuardedFile_p.h"
#include "loading/TemplateLocation_p.h"

#include <QBuffer>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// Whether the host reads a file as the current format. It is given whole paths, whatever a file is called
/// from where somebody stands.
bool isCurrentFormatFile(const QString &fileName)
{
    return !fileName.isEmpty() && isCurrentFormatPath(QFileInfo(fileName).absoluteFilePath());
}

/// As much of a file as one would look for a place in.
QByteArray beginningOf(const QString &fileName)
{
    constexpr int enough = 64 * 1024 * 1024;
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.read(enough) : QByteArray();
}

XmlVerdict verdictOn(QIODevice &content, bool isCurrent)
{
    if (!isCurrent) {
        return judgeByStream(content);
    }
    QDomDocument document;
    return judgeByDom(content, document);
}

/// Whether a parser complains about bytes that stand for no character.
bool isUndecodable(const XmlVerdict &verdict)
{
    return verdict.explanation == QLatin1String("Encountered incorrectly encoded content");
}

} // namespace

CheckedFile::CheckedFile(const QString &fileName)
    : m_fileName(fileName), m_isCurrent(isCurrentFormatFile(fileName))
{
    read();
}

CheckedFile::~CheckedFile() = default;

void CheckedFile::read()
{
    // Whether a file is well-formed the parser tells sooner without white space, and where it is not, only of
    // the whole.
    GuardedFile file(SpareWhiteSpace::BetweenMarkup);
    if (!file.openTemplate(m_fileName)) {
        m_problem = whyNotOpened(m_fileName);
        return;
    }
    m_verdict = verdictOn(file, m_isCurrent);
    if (file.error() != QFileDevice::NoError) {
        m_problem = file.errorString();
    } else if (m_verdict.isWellFormed && file.excess().isEmpty()) {
        readSound(file.unguarded());
    } else {
        file.restartWhole();
        readDamaged(file);
    }
}

void CheckedFile::readSound(const QByteArray &bytes)
{
    m_source = decodedXml(bytes);
    countItems();
    // A file may have the character that others are replaced with as its own.
    if (m_source.contains(QChar(QChar::ReplacementCharacter))) {
        m_undecodable = undecodableOf(bytes);
    }
}

void CheckedFile::readDamaged(GuardedFile &file)
{
    QByteArray bytes = file.readAll();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    m_source = decodedXml(bytes);
    m_verdict = verdictOn(buffer, m_isCurrent);
    if (!file.excess().isEmpty() && !file.isFaultBeforeExcess(m_verdict.line, m_verdict.column)) {
        m_excess = file.excess();
        // Of such a file only a beginning was handed out, which need not reach as far as the place.
        m_source = decodedXml(beginningOf(m_fileName));
        const int noticedAt = places().offsetOf(file.excessLine(), file.excessColumn());
        // What is too much is noticed within the tag that brings it.
        const int tagAt = m_source.lastIndexOf(QLatin1Char('<'), std::min(noticedAt, m_source.size() - 1));
        m_faultAt = tagAt < 0 ? noticedAt : tagAt;
    } else if (!m_verdict.isWellFormed) {
        // The stream decodes far ahead of the place where it seems to be.
        m_faultAt = isUndecodable(m_verdict)
                        ? undecodableAt(bytes)
                        : placeOfFault(tree(), places().offsetOf(m_verdict.line, m_verdict.column));
    } else {
        readSound(bytes);
    }
}

void CheckedFile::countItems()
{
    const CountExcess excess = m_isCurrent ? excessOfCurrent(tree()) : excessOfLegacy(model());
    m_excess = excess.words;
    m_faultAt = excess.at;
}

const SourcePlaces &CheckedFile::places() const
{
    // Most files have nothing that a place would be needed for.
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
        m_tree = std::make_unique<XmlTree>(m_source, m_isCurrent ? XmlDialect::Dom : XmlDialect::Stream);
    }
    return *m_tree;
}

const TemplateModel &CheckedFile::model() const
{
    if (!m_model) {
        m_model = std::make_unique<TemplateModel>(m_isCurrent ? currentModel(tree()) : legacyModel(tree()));
    }
    return *m_model;
}

} // namespace Tobrix::Tools
