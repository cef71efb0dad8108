#pragma once

#include "tools/check/model/TemplateModel.h"

#include <QString>
#include <QStringList>

namespace Tobrix::Tools {

// Pieces of the sentences that rules speak in.

/// A text of a file in a sentence: in quotes, on one line, not too long.
QString quoted(const QString &text);

/// A number in a sentence, without needless digits.
QString inWords(double number);

/// A column in a sentence: its caption, or what it is bound to.
QString nameOf(const ColumnModel &column);

/// The name out of many that somebody may have meant; empty when none is near enough.
QString nearestOf(const QString &name, const QStringList &candidates);

/// `, did you mean "…"?`, or nothing.
QString suggestion(const QString &nearest);

} // namespace Tobrix::Tools
