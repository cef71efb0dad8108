#include "HostileFile.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace {

QString folderOf(Format format)
{
    return format == Format::Legacy ? QStringLiteral("templates") : QStringLiteral("templates_new");
}

} // namespace

HostileFolder::HostileFolder()
{
    const QDir directory(m_directory.path());
    for (const Format format : {Format::Legacy, Format::Current}) {
        if (!directory.mkpath(folderOf(format))) {
            qFatal("Cannot make a folder below %s", qPrintable(directory.path()));
        }
        ::chmod(QFile::encodeName(directory.filePath(folderOf(format))).constData(), 0755);
    }
    // Temporary folders are accessible to their owner only.
    ::chmod(QFile::encodeName(directory.path()).constData(), 0755);
}

QString HostileFolder::path(Format format, const QString &name) const
{
    return m_directory.filePath(folderOf(format) + QLatin1Char('/') + name);
}

QString HostileFolder::write(Format format, const QByteArray &content) const
{
    QFile file(path(format));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush()) {
        qFatal("Cannot write %s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    }
    ::fchmod(file.handle(), 0644);
    return file.fileName();
}
