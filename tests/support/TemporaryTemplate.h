#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// A template file that exists during the lifetime of the object.
class TemporaryTemplate
{
public:
    /// @param folder "templates" for a legacy file, "templates_new" for one of the current format
    TemporaryTemplate(const QString &folder, const QByteArray &content);

    QString path() const;

private:
    QTemporaryDir m_directory;
    QString m_path;
};

/// A legacy document with sections below the usual containers.
QByteArray legacyDocument(const QByteArray &sections);

/// A document of the current format with elements below its root.
QByteArray currentDocument(const QByteArray &elements);
