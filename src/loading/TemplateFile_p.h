#pragma once

#include "loading/XmlGuard_p.h"

#include <QFile>

#include <memory>
#include <vector>

class QTextDecoder;

namespace Tobrix::Templates {

/// A template file on its way into an XML parser. Only regular files and Qt resources are opened: whatever
/// else a path names (a folder, a pipe, a device) could block the host's thread for ever. What is read from
/// it is within the limits of templates: where something is too much, the file is at its end.
class TemplateFile : public QFile
{
public:
    TemplateFile();
    ~TemplateFile() override;

    /// Closes the file that was open and opens another one for reading.
    /// @return false when there is nothing to read under that path
    bool openTemplate(const QString &path);

    /// What is too much in the file, in words; empty when nothing was as far as the file has been read.
    QString excess() const { return m_excess; }
    /// The line, from 1, in which it is too much.
    int excessLine() const { return m_line; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;

private:
    /// One way to understand the file's bytes.
    struct View
    {
        std::unique_ptr<QTextDecoder> decoder; // null for bytes in which markup stands in ASCII
        XmlGuard guard;
    };

    void holdBackDocumentType(const QByteArray &beginning);
    qint64 takeHeldBack(char *data, qint64 maxSize);
    void follow(const QByteArray &chunk);
    void follow(const QByteArray &chunk, View &view);
    bool isInDocumentType() const;
    void chooseViews(const QByteArray &beginning);
    void addView(const QByteArray &encoding);

    std::vector<View> m_views;
    QByteArray m_heldBack;
    QString m_excess;
    int m_line = 1;
};

} // namespace Tobrix::Templates
