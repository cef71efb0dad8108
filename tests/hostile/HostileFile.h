#pragma once

#include "Markup.h"

#include <QString>
#include <QTemporaryDir>

/// A folder of template files that every user may read.
class HostileFolder
{
public:
    HostileFolder();

    /// The path of a file that its format's reader reads.
    QString path(Format format, const QString &name = QStringLiteral("hostile.xml")) const;

    /// Writes a file, over the one that was there.
    /// @return its path
    QString write(Format format, const QByteArray &content) const;

private:
    QTemporaryDir m_directory;
};
