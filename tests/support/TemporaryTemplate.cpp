#include "support/TemporaryTemplate.h"

#include <QDir>
#include <QFile>

TemporaryTemplate::TemporaryTemplate(const QString &folder, const QByteArray &content)
    : m_path(m_directory.filePath(folder + QStringLiteral("/template.xml")))
{
    QDir(m_directory.path()).mkpath(folder);
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Cannot write %s: %s", qPrintable(m_path), qPrintable(file.errorString()));
    }
}

QString TemporaryTemplate::path() const
{
    return m_path;
}

QByteArray legacyDocument(const QByteArray &sections)
{
    return "<TobrixTemplate><TXSYS>" + sections + "</TXSYS></TobrixTemplate>";
}

QByteArray currentDocument(const QByteArray &elements)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Template>" + elements + "</Template>";
}
