#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The bundled samples of both formats, as paths.
QStringList sampleDocuments();

/// The documents of the corpus, of both formats, as paths.
QStringList corpusDocuments();

/// What stands in a file.
QByteArray contentOf(const QString &path);

/// A document's path within the project, for the names of test rows.
QString shortName(const QString &path);

/// Whether a test shall leave nothing out, however long it takes: what scripts/robustness asks for.
bool isEverythingWanted();
