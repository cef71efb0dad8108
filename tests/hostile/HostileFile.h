#pragma once

#include "Markup.h"

#include <QString>
#include <QTemporaryDir>

/// A folder of template files that every user may read.
class HostileFolder
{
public:
    HostileFolder();

    /// The path of a file for the reader of a format.
    QString path(Format format, const QString &name = QStringLiteral("hostile.xml")) const;

    /// Writes a file, replacing the previous one.
    /// @return its path
    QString write(Format format, const QByteArray &content) const;

private:
    QTemporaryDir m_directory;
};
