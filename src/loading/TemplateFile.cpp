#include "loading/TemplateFile_p.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tobrix::Templates {

namespace {

int openRegularFile(const QByteArray &path)
{
    // Opening a pipe without O_NONBLOCK waits for its writer. What was opened is looked at, not what the path
    // names: that may be something else by now.
    const int descriptor = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        return -1;
    }
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor);
        return -1;
    }
    return descriptor;
}

} // namespace

bool openTemplateFile(QFile &file)
{
    const QString fileName = file.fileName();
    if (fileName.startsWith(QLatin1Char(':'))) {
        return file.open(QIODevice::ReadOnly);
    }
    const int descriptor = openRegularFile(QFile::encodeName(fileName));
    if (descriptor < 0) {
        return false;
    }
    if (!file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return false;
    }
    return true;
}

} // namespace Tobrix::Templates
