#include "loading/FileAccess_p.h"

#include <QFile>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace Tobrix::Templates {

namespace {

QString whyNotFound(const QByteArray &path, int error)
{
    struct stat status = {};
    if (error == ENOENT && ::lstat(path.constData(), &status) == 0) {
        return QStringLiteral("is a link to a file that does not exist");
    }
    return error == ENOENT ? QStringLiteral("does not exist")
                           : QStringLiteral("cannot be reached: %1").arg(qt_error_string(error));
}

} // namespace

QString whyNotOpened(const QString &fileName)
{
    if (fileName.isEmpty()) {
        return QStringLiteral("the path is empty");
    }
    if (fileName.startsWith(QLatin1Char(':'))) {
        return QStringLiteral("there is no such resource");
    }
    const QByteArray path = QFile::encodeName(fileName);
    struct stat status = {};
    if (::stat(path.constData(), &status) != 0) {
        return whyNotFound(path, errno);
    }
    if (S_ISDIR(status.st_mode)) {
        return QStringLiteral("is a directory");
    }
    if (!S_ISREG(status.st_mode)) {
        return QStringLiteral("is not a regular file");
    }
    if (::access(path.constData(), R_OK) != 0) {
        return QStringLiteral("is not readable: %1").arg(qt_error_string(errno));
    }
    return QStringLiteral("cannot be opened");
}

} // namespace Tobrix::Templates
