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

    /// Takes the options of a command line that was read.
    /// @return how the tool is to end; none when the command may go ahead
    std::optional<ExitStatus> take(Console &console);

    const LoadingOptions &options() const { return m_options; }

private:
    CommandLine &m_commandLine;
    const QCommandLineOption m_as;
    const QCommandLineOption m_qtParser;
    LoadingOptions m_options;
};

} // namespace Tobrix::Tools
