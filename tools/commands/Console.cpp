#include "tools/commands/Console.h"

#include "tools/text/DisplayText.h"

#include <cstdio>
#include <limits>
#include <sys/ioctl.h>
#include <unistd.h>

namespace Tobrix::Tools {

Console::Console()
{
    m_output.open(stdout, QIODevice::WriteOnly);
}

void Console::print(const QString &text)
{
    print(text.toUtf8());
}

void Console::print(const QByteArray &utf8)
{
    // Flush standard output first, so that lines appear in order.
    m_isWritten = m_isWritten && m_output.write(utf8) == utf8.size() && m_output.flush();
}

int Console::lineWidth() const
{
    struct winsize size = {};
    const bool isTerminal = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
    return isTerminal && size.ws_col > 0 ? size.ws_col : std::numeric_limits<int>::max();
}

bool Console::isColoured() const
{
    return qEnvironmentVariableIsEmpty("NO_COLOR") && ::isatty(STDOUT_FILENO) == 1;
}

void Console::showProgress(const QString &text)
{
    if (text == m_progress || ::isatty(STDERR_FILENO) != 1) {
        return;
    }
    m_progress = text;
    // Returns to the start of the line and clears it.
    const QByteArray line = "\r\033[K" + text.toLocal8Bit();
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
    std::fflush(stderr);
}

void Console::complain(const QString &message)
{
    const QByteArray line =
        QStringLiteral("tobrix-template: %1").arg(printable(message)).toLocal8Bit() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
}

bool Console::finish()
{
    if (!m_isWritten) {
        complain(QStringLiteral("standard output: %1").arg(m_output.errorString()));
    }
    return m_isWritten;
}

} // namespace Tobrix::Tools
