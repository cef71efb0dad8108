#pragma once

#include "tools/check/model/TemplateModel.h"
#include "tools/check/xml/SourcePlaces.h"
#include "tools/check/xml/XmlDecoding.h"
#include "tools/check/xml/XmlTree.h"
#include "tools/loading/XmlVerdict.h"

#include <QString>

#include <memory>

namespace Tobrix::Templates {
class TemplateFile;
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
    Place placeOf(int at) const;
    const XmlVerdict &verdict() const { return m_verdict; }

    /// What goes past a limit, in words; empty when nothing does.
    const QString &excess() const { return m_excess; }
    /// Where the parser, or the limit, has its say.
    int faultAt() const { return m_faultAt; }

    /// What the parser replaces of a file that is well-formed otherwise.
    const Undecodable &undecodable() const { return m_undecodable; }

    /// The elements, of a file that is well-formed and within the limits.
    const XmlTree &tree() const;
    /// What becomes of them.
    const TemplateModel &model() const;

private:
    Q_DISABLE_COPY(CheckedFile)

    void read();
    void readSound(const QByteArray &bytes);
    void readDamaged(Templates::TemplateFile &file);
    void countItems();
    const SourcePlaces &places() const;

    const QString m_fileName;
    const bool m_isCurrent;
    QString m_problem;
    QString m_source;
    XmlVerdict m_verdict;
    QString m_excess;
    int m_faultAt = 0;
    Undecodable m_undecodable;
    mutable std::unique_ptr<const SourcePlaces> m_places;
    mutable std::unique_ptr<const XmlTree> m_tree;
    mutable std::unique_ptr<const TemplateModel> m_model;
};

} // namespace Tobrix::Tools
