#pragma once

#include "tools/check/model/TemplateModel.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace Tobrix::Tools {

// Parts of the rules' messages. Texts of a file go into the last call of QString::arg(): a later one would
// replace a "%1" in them.

/// A text of a file in a sentence: on one line, shortened.
QString inBrief(const QString &text);

/// The same in quotes.
QString quoted(const QString &text);

/// A number in a sentence, without unnecessary digits.
QString inWords(double number);

/// The length of a text in a sentence: its characters and, where different, its UTF-16 units, which the host
/// counts.
QString lengthInWords(const QString &text);

/// A column in a sentence: its caption or its binding.
QString nameOf(const ColumnModel &column);

/// The name that a mistyped one is closest to; empty when none is close enough.
QString nearestOf(const QString &name, const QStringList &candidates);

/// Repeats that search for many names in the same set, with a cache. Stops in files that need too many
/// comparisons.
class NearestNames
{
public:
    explicit NearestNames(const QStringList &candidates = {}) : m_candidates(candidates) {}

    QString of(const QString &name);

private:
    QStringList m_candidates;
    QHash<QString, QString> m_nearest;
    qint64 m_comparisons = 0;
};

/// `; did you mean "…"?`, or nothing.
QString suggestion(const QString &nearest);

} // namespace Tobrix::Tools
