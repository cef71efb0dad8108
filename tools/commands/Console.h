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

    /// The character cells in a line of the terminal; as many as one likes when standard output is a file or
    /// another program.
    int lineWidth() const;

    /// Whether what is printed may have colours: on a terminal, unless NO_COLOR is set.
    bool isColoured() const;

    /// Shows how far something is, on one line that each call replaces; an empty text removes it. Nobody sees
    /// that unless standard error is a terminal.
    void showProgress(const QString &text);

    /// Writes one line to standard error, behind the tool's name.
    void complain(const QString &message);

    /// Complains when some of the output got lost, on a full disk for example.
    /// @return whether all of it was written
    bool finish();

private:
    Q_DISABLE_COPY(Console)

    QFile m_output;
    bool m_isWritten = true;
    QString m_progress;
};

} // namespace Tobrix::Tools
