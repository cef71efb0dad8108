#pragma once

#include "tools/check/model/TemplateModel.h"
#include "tools/loading/TemplateLoading.h"
#include "xml/SourcePlaces_p.h"
#include "xml/XmlDecoding_p.h"
#include "xml/XmlTree_p.h"

#include <QString>

#include <memory>

namespace Tobrix::Tools {

/// A template file for the rules: its faults, its elements, and the model of what the library reads.
class CheckedFile
{
public:
    explicit CheckedFile(const QString &fileName, const LoadingOptions &options = {});
    ~CheckedFile();

    const QString &fileName() const { return m_fileName; }

    /// Why the file cannot be checked, for users; empty when it can.
    const QString &problem() const { return m_problem; }

    /// Whether the library reads it as the current format.
    bool isCurrent() const { return m_format == Templates::TemplateFormat::Current; }

    const QString &source() const { return m_source; }
    /// The line of an offset into the source, from 1.
    int lineOf(int at) const { return placeOf(at).line; }
    Templates::Place placeOf(int at) const;

    /// Why the file is not well-formed, as the end of a sentence; empty when it is.
    const QString &malformation() const { return m_malformation; }

    /// The exceeded limit, in words; empty when there is none.
    const QString &excess() const { return m_excess; }
    /// The offset of the fault or of the exceeded limit.
    int faultAt() const { return m_faultAt; }

    /// Invalid bytes of a file that is well-formed otherwise.
    const Templates::Undecodable &undecodable() const { return m_undecodable; }

    /// The elements of a file that is well-formed and within the limits.
    const Templates::XmlTree &tree() const;
    /// What the library reads from them.
    const TemplateModel &model() const;

private:
    Q_DISABLE_COPY(CheckedFile)

    void takeFault(const Templates::TemplateLoading &loading);
    void decode(const QByteArray &bytes);
    const Templates::SourcePlaces &places() const;

    const QString m_fileName;
    const Templates::TemplateFormat m_format;
    QString m_problem;
    QString m_source;
    QString m_malformation;
    QString m_excess;
    int m_faultAt = 0;
    Templates::Undecodable m_undecodable;
    mutable std::unique_ptr<const Templates::SourcePlaces> m_places;
    mutable std::unique_ptr<const Templates::XmlTree> m_tree;
    mutable std::unique_ptr<const TemplateModel> m_model;
};

} // namespace Tobrix::Tools
