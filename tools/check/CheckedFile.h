#pragma once

#include "tools/check/model/TemplateModel.h"
#include "xml/SourcePlaces_p.h"
#include "xml/XmlDecoding_p.h"
#include "xml/XmlTree_p.h"
#include "tools/loading/XmlVerdict.h"

#include <QString>

#include <memory>

namespace Tobrix::Templates {
class GuardedFile;
} // namespace Tobrix::Templates

namespace Tobrix::Tools {

/// A template file as the rules see it: what its parser says, its elements, and what the library makes of it.
class CheckedFile
{
public:
    explicit CheckedFile(const QString &fileName);
    ~CheckedFile();

    const QString &fileName() const { return m_fileName; }

    /// Why there is nothing to check, for a person to read; empty when there is.
    const QString &problem() const { return m_problem; }

    /// Whether the library reads it as the current format.
    bool isCurrent() const { return m_isCurrent; }

    const QString &source() const { return m_source; }
    /// The line of an offset into the source, from 1.
    int lineOf(int at) const { return placeOf(at).line; }
    Templates::Place placeOf(int at) const;
    const XmlVerdict &verdict() const { return m_verdict; }

    /// What goes past a limit, in words; empty when nothing does.
    const QString &excess() const { return m_excess; }
    /// Where the parser, or the limit, has its say.
    int faultAt() const { return m_faultAt; }

    /// What the parser replaces of a file that is well-formed otherwise.
    const Templates::Undecodable &undecodable() const { return m_undecodable; }

    /// The elements, of a file that is well-formed and within the limits.
    const Templates::XmlTree &tree() const;
    /// What becomes of them.
    const TemplateModel &model() const;

private:
    Q_DISABLE_COPY(CheckedFile)

    void read();
    void readSound(const QByteArray &bytes);
    void readDamaged(Templates::GuardedFile &file);
    void countItems();
    const Templates::SourcePlaces &places() const;

    const QString m_fileName;
    const bool m_isCurrent;
    QString m_problem;
    QString m_source;
    XmlVerdict m_verdict;
    QString m_excess;
    int m_faultAt = 0;
    Templates::Undecodable m_undecodable;
    mutable std::unique_ptr<const Templates::SourcePlaces> m_places;
    mutable std::unique_ptr<const Templates::XmlTree> m_tree;
    mutable std::unique_ptr<const TemplateModel> m_model;
};

} // namespace Tobrix::Tools
