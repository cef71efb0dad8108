#include "tools/commands/Commands.h"

#include "tools/commands/CheckCommand.h"
#include "tools/commands/Console.h"
#include "tools/commands/ShowCommand.h"

#include <algorithm>
#include <iterator>

namespace Tobrix::Tools {

namespace {

struct Command
{
    QLatin1String name;
    QLatin1String summary;
    ExitStatus (*run)(const QStringList &arguments, Console &console);
};

const Command commands[] = {
    {QLatin1String("check"),
     QLatin1String("say what is wrong with templates, where, and what hosts make of it"), runCheck},
    {QLatin1String("show"), QLatin1String("print templates, for people or as JSON"), runShow},
};

QString description()
{
    int width = 0;
    for (const auto &command : commands) {
        width = std::max(width, command.name.size());
    }
    QString text = QStringLiteral("Looks at catalogue templates of pipe networks.\n\nCommands:\n");
    for (const auto &command : commands) {
        text += QStringLiteral("  %1  %2\n").arg(command.name, -width).arg(command.summary);
    }
    return text + QStringLiteral("\n\"tobrix-template COMMAND --help\" tells more about a command.");
}

} // namespace

ExitStatus runTool(const QStringList &arguments, Console &console)
{
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version."));
    CommandLine commandLine(QStringLiteral("tobrix-template"), QStringLiteral("[options] COMMAND …"),
                            description());
    commandLine.addOption(version);
    commandLine.endAtFirstArgument();
    if (const auto status = commandLine.parse(arguments, console)) {
        return *status;
    }
    if (commandLine.isSet(version)) {
        console.print(QStringLiteral("tobrix-template " TOBRIX_VERSION "\n"));
        return ExitStatus::Success;
    }
    const QStringList commandArguments = commandLine.arguments();
    if (commandArguments.isEmpty()) {
        return commandLine.refuse(QStringLiteral("There is no command."), console);
    }
    const QString name = commandArguments.first();
    const auto command = std::find_if(std::begin(commands), std::end(commands),
                                      [&](const auto &row) { return row.name == name; });
    if (command == std::end(commands)) {
        return commandLine.refuse(QStringLiteral("There is no command \"%1\".").arg(name), console);
    }
    return command->run(commandArguments, console);
}

} // namespace Tobrix::Tools
