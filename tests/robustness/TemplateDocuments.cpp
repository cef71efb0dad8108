#include "robustness/TemplateDocuments.h"

#include <QDir>
#include <QFile>

namespace {

const QLatin1String formatFolders[] = {QLatin1String("templates"), QLatin1String("templates_new")};

QString projectFolder()
{
    return QStringLiteral(TOBRIX_SOURCE_DIR "/");
}

/// The documents in a folder that has one folder for each format.
QStringList documentsBelow(const QString &folder)
{
    QStringList documents;
    for (const auto &format : formatFolders) {
        const QDir dir(projectFolder() + folder + QLatin1Char('/') + format);
        for (const auto &name : dir.entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name)) {
            documents.append(dir.filePath(name));
        }
    }
    if (documents.isEmpty()) {
        qFatal("there are no documents in %s", qPrintable(folder));
    }
    return documents;
}

} // namespace

QStringList sampleDocuments()
{
    return documentsBelow(QStringLiteral("samples"));
}

QStringList corpusDocuments()
{
    return documentsBelow(QStringLiteral("tests/corpus"));
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
    }
    return file.readAll();
}

QString shortName(const QString &path)
{
    return QDir(projectFolder()).relativeFilePath(path);
}

bool isEverythingWanted()
{
    return qEnvironmentVariable("TOBRIX_ROBUSTNESS") == QLatin1String("all");
}
