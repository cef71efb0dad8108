#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace Tobrix::Tools {

/// The two streams that the tool writes to.
class Console
{
public:
    Console();

    /// Writes to standard output, as UTF-8 whatever the locale.
    void print(const QString &text);
    void print(const QByteArray &utf8);

    /// The width of the terminal in character cells; unlimited when standard output is a file or a pipe.
    int lineWidth() const;

    /// Whether output may have colours: on a terminal, unless NO_COLOR is set.
    bool isColoured() const;

    /// Shows progress on one line, which each call replaces; an empty text removes it. Shown only when
    /// standard error is a terminal.
    void showProgress(const QString &text);

    /// Writes one line to standard error, after the tool's name.
    void complain(const QString &message);

    /// Reports when output could not be written, for example to a full disk.
    /// @return whether all of it was written
    bool finish();

private:
    Q_DISABLE_COPY(Console)

    QFile m_output;
    bool m_isWritten = true;
    QString m_progress;
};

} // namespace Tobrix::Tools
