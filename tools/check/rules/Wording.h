#pragma once

#include "tools/check/model/TemplateModel.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace Tobrix::Tools {

// Pieces of the sentences that rules speak in. Texts of a file go into the last call of QString::arg(): a
// later one would take a "%1" in them for its own.

/// A text of a file in a sentence: on one line, not too long.
QString inBrief(const QString &text);

/// The same in quotes.
QString quoted(const QString &text);

/// A number in a sentence, without needless digits.
QString inWords(double number);

/// The length of a text in a sentence: its characters, and what they count as for the host where that
/// differs, which counts those outside of the basic plane twice.
QString lengthInWords(const QString &text);

/// A column in a sentence: its caption, or what it is bound to.
QString nameOf(const ColumnModel &column);

/// The name out of many that somebody may have meant; empty when none is near enough.
QString nearestOf(const QString &name, const QStringList &candidates);

/// Finds the nearest of the same names many times, as most names that nobody knows stand in a file more than
/// once. Gives up on files that make it look for too much.
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
