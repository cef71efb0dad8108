#include "xml/XmlFile_p.h"

#include "xml/XmlLimits_p.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tobrix::Templates {

XmlFile::Access XmlFile::open(const QString &path)
{
    m_file.close();
    m_file.setFileName(path);
    m_error.clear();
    if (!path.startsWith(QLatin1Char(':'))) {
        return openRegular(path);
    }
    if (!QFileInfo::exists(path)) {
        return Access::NotFound;
    }
    if (QFileInfo(path).isDir()) {
        return Access::NotRegular;
    }
    return m_file.open(QIODevice::ReadOnly) ? Access::Readable : Access::Unreadable;
}

XmlFile::Access XmlFile::openRegular(const QString &path)
{
    // The system would take what stands before a null character for the whole path.
    if (path.isEmpty() || path.contains(QChar(QChar::Null))) {
        return Access::NotFound;
    }
    // Opening a pipe without O_NONBLOCK waits for its writer. The type is that of what was opened: the path
    // may name another file by now.
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        const int error = errno;
        m_error = qt_error_string(error);
        const bool isNotFound = error == ENOENT || error == ENOTDIR;
        return isNotFound ? Access::NotFound : error == EACCES ? Access::NoPermission : Access::Unreadable;
    }
    struct stat status = {};
    const bool isRegular = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    if (isRegular &&
        m_file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        return Access::Readable;
    }
    ::close(descriptor);
    return isRegular ? Access::Unreadable : Access::NotRegular;
}

bool XmlFile::isOverLimit() const
{
    return m_file.size() > Limits::fileSize;
}

QByteArray XmlFile::readAll()
{
    // The file may grow or shrink while it is read.
    constexpr qint64 most = qint64(Limits::fileSize) + 1;
    constexpr qint64 least = 4096;
    QByteArray bytes(static_cast<int>(std::min(m_file.size() + 1, most)), Qt::Uninitialized);
    qint64 end = 0;
    for (;;) {
        if (end == bytes.size() && end < most) {
            bytes.resize(static_cast<int>(std::min(most, std::max(end + least, end + end / 2))));
        }
        const qint64 read = m_file.read(bytes.data() + end, bytes.size() - end);
        if (read <= 0) {
            m_error = read < 0 ? m_file.errorString() : QString();
            break;
        }
        end += read;
    }
    bytes.truncate(static_cast<int>(end));
    return bytes;
}

} // namespace Tobrix::Templates
