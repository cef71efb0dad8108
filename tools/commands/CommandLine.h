#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <optional>

namespace Tobrix::Tools {

class Console;

/// The exit codes of the tool.
enum class ExitStatus { Success = 0, SomeFilesFailed = 1, WrongUsage = 2 };

/// The options and arguments of one command, with what all commands share: --help, --host-config, and
/// messages on wrong usage.
class CommandLine
{
public:
    /// @param command the words that run it
    /// @param syntax its options and arguments, such as "[options] FILE…"
    /// @param description what it does, for --help
    CommandLine(const QString &command, const QString &syntax, const QString &description);

    /// Adds an option of the command's own.
    void addOption(const QCommandLineOption &option);

    /// Adds the explanation of an argument.
    void addArgument(const QString &name, const QString &description);

    /// Does not parse anything after the first argument.
    void endAtFirstArgument();

    /// Parses the arguments and executes the shared options.
    /// @param arguments with the program's or the command's name as the first
    /// @return the exit code to end with; none when the command is to continue
    std::optional<ExitStatus> parse(const QStringList &arguments, Console &console);

    /// Reports wrong usage and refers to the help.
    ExitStatus refuse(const QString &reason, Console &console) const;

    bool isSet(const QCommandLineOption &option) const { return m_parser.isSet(option); }
    /// The values of an option in the order given, or its default value.
    QStringList values(const QCommandLineOption &option) const { return m_parser.values(option); }
    QStringList arguments() const { return m_parser.positionalArguments(); }

private:
    QString helpText() const;
    bool loadHostConfigurations(Console &console) const;

    QString m_command;
    QString m_syntax;
    QCommandLineParser m_parser;
    QCommandLineOption m_help;
    QCommandLineOption m_hostConfiguration;
};

} // namespace Tobrix::Tools
