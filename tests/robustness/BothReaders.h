#pragma once

#include "support/MemoryFile.h"

#include <QString>

/// What the readers say to one file.
struct Verdicts
{
    bool isReadAsLegacy = false;
    bool isReadAsCurrent = false;
    bool isWellFormed = false; ///< what Qt's own stream parser says
};

/// Lets both readers read a file, whatever its format.
Verdicts verdictsOn(const QString &path);

/// In what the verdicts go against the promises of the readers; empty when they keep them. The legacy reader
/// accepts no file that Qt's parser rejects; the current format's reader is content with whatever it can
/// open.
QString brokenPromise(const Verdicts &verdicts);

/// The same for bytes that stand in no file.
QString brokenPromiseOn(const QByteArray &bytes, MemoryFile &file);
