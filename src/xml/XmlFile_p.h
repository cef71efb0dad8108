#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace Tobrix::Templates {

/// Opens template files. Only regular files and Qt resources are opened: anything else that a path can name
/// (a folder, a pipe, a device) could block the host's thread forever.
class XmlFile
{
public:
    enum class Access : unsigned char {
        Readable,
        NotFound,
        NoPermission,
        NotRegular,
        Unreadable ///< for any other reason
    };

    /// Closes the file that was open and opens another one.
    Access open(const QString &path);
    /// Whether the open file has more bytes than XmlLimits_p.h allows. There is no point in reading it.
    bool isOverLimit() const;
    /// The bytes of the open file, which stays open. Of one that grows over the limit meanwhile, one byte
    /// more than the limit.
    QByteArray readAll();
    /// The system's word on why the last operation failed; empty when it did not.
    QString errorString() const { return m_error; }

private:
    Access openRegular(const QString &path);

    QFile m_file;
    QString m_error;
};

} // namespace Tobrix::Templates
