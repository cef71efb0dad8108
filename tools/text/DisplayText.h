#pragma once

#include <QString>
#include <QStringList>

namespace Tobrix::Tools {

/// A text that can be shown on one line of a terminal: characters that would break the line, or command the
/// terminal, are written as escapes such as \n.
QString printable(const QString &text);

/// The number of character cells that a text takes on a terminal.
int displayWidth(const QString &text);

/// A text cut to at most so many cells, with "…" where something is missing.
QString elided(const QString &text, int width);

/// A text broken into pieces of at most so many cells, between words where there are any.
/// @return at least one piece
QStringList wrapped(const QString &text, int width);

/// A number and its noun: "1 column", "12 columns".
QString counted(int count, const QString &singular, const QString &plural);

/// A number without needless digits.
QString numberText(double number);

} // namespace Tobrix::Tools
