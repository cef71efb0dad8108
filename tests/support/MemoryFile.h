#pragma once

#include <QByteArray>
#include <QString>

#include <cstdlib>

#include <sys/mman.h>
#include <unistd.h>

/// A regular file in memory, without a folder, for programs that read many small documents.
class MemoryFile
{
public:
    MemoryFile() : m_descriptor(::memfd_create("template", MFD_CLOEXEC))
    {
        if (m_descriptor < 0) {
            std::abort();
        }
    }
    ~MemoryFile() { ::close(m_descriptor); }

    /// The path of the file within this process; it can be opened any number of times.
    QString path() const { return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor); }

    /// Replaces the content of the file.
    void write(const char *bytes, std::size_t size)
    {
        if (::ftruncate(m_descriptor, 0) != 0 ||
            ::pwrite(m_descriptor, bytes, size, 0) != static_cast<ssize_t>(size)) {
            std::abort();
        }
    }
    void write(const QByteArray &bytes) { write(bytes.constData(), static_cast<std::size_t>(bytes.size())); }

private:
    Q_DISABLE_COPY(MemoryFile)

    const int m_descriptor;
};
