#pragma once

#include "tools/commands/CommandLine.h"
#include "tools/loading/TemplateLoading.h"

namespace Tobrix::Tools {

/// The options of commands that load templates.
class LoadingArguments
{
public:
    /// Adds the options to a command.
    explicit LoadingArguments(CommandLine &commandLine);

    /// Reads the options from a parsed command line.
    /// @return the exit code to end with; none when the command is to continue
    std::optional<ExitStatus> take(Console &console);

    const LoadingOptions &options() const { return m_options; }

private:
    CommandLine &m_commandLine;
    const QCommandLineOption m_as;
    const QCommandLineOption m_qtParser;
    LoadingOptions m_options;
};

} // namespace Tobrix::Tools
