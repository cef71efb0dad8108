#include "tools/commands/CommandLine.h"

#include "tools/commands/Console.h"

#include "standalone_host/StandaloneHost.h"

namespace Tobrix::Tools {

CommandLine::CommandLine(const QString &command, const QString &syntax, const QString &description)
    : m_command(command)
    , m_syntax(syntax)
    , m_help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."))
    , m_hostConfiguration(
          QStringLiteral("host-config"),
          QStringLiteral(
              "Make more templates and tables known to the host, from a JSON file: "
              "{\"templates\": {\"<unique id>\": \"<type>\"}, \"tables\": {\"<name>\": <type number>}}."),
          QStringLiteral("FILE"))
{
    m_parser.setApplicationDescription(description);
    m_parser.addOption(m_help);
    m_parser.addOption(m_hostConfiguration);
}

void CommandLine::addOption(const QCommandLineOption &option)
{
    m_parser.addOption(option);
}

void CommandLine::addArgument(const QString &name, const QString &description)
{
    m_parser.addPositionalArgument(name, description);
}

void CommandLine::endAtFirstArgument()
{
    m_parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
}

std::optional<ExitStatus> CommandLine::parse(const QStringList &arguments, Console &console)
{
    if (!m_parser.parse(arguments)) {
        return refuse(m_parser.errorText(), console);
    }
    if (m_parser.isSet(m_help)) {
        console.print(helpText());
        return ExitStatus::Success;
    }
    if (!loadHostConfigurations(console)) {
        return ExitStatus::WrongUsage;
    }
    return std::nullopt;
}

ExitStatus CommandLine::refuse(const QString &reason, Console &console) const
{
    console.complain(reason);
    console.complain(QStringLiteral("Try \"%1 --help\".").arg(m_command));
    return ExitStatus::WrongUsage;
}

QString CommandLine::helpText() const
{
    // Qt's first line has the path of the executable instead of the usage.
    const QString text = m_parser.helpText();
    return QStringLiteral("Usage: %1 %2\n").arg(m_command, m_syntax) +
           text.mid(text.indexOf(QLatin1Char('\n')));
}

bool CommandLine::loadHostConfigurations(Console &console) const
{
    for (const auto &file : m_parser.values(m_hostConfiguration)) {
        QString errorMessage;
        if (!Standalone::StandaloneHost::instance().loadConfiguration(file, &errorMessage)) {
            console.complain(errorMessage);
            return false;
        }
    }
    return true;
}

} // namespace Tobrix::Tools
