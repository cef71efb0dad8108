#include "tools/commands/ShowCommand.h"

#include "tools/commands/Console.h"
#include "tools/commands/LoadingArguments.h"
#include "tools/json/RawDataJson.h"
#include "tools/json/TemplateJson.h"
#include "tools/loading/TemplateLoading.h"
#include "tools/text/TemplateText.h"

#include "model/CCatalogTemplate.h"

#include <QJsonDocument>

namespace Tobrix::Tools {

namespace {

void printJson(const QJsonObject &json, Console &console)
{
    console.print(QJsonDocument(json).toJson(QJsonDocument::Compact) + '\n');
}

/// Prints one file, and reports its problems after the output.
/// @return whether there are none
using ShowFile = bool (*)(const QString &fileName, const LoadingOptions &options, bool isFirst,
                          Console &console);

bool complainAbout(const LoadedFile &loaded, Console &console)
{
    if (loaded.hasProblem()) {
        console.complain(loaded.report.message());
    }
    return !loaded.hasProblem();
}

bool showText(const QString &fileName, const LoadingOptions &options, bool isFirst, Console &console)
{
    const LoadedTemplate loaded = loadTemplate(fileName, options);
    if (loaded.catalogTemplate) {
        console.print((isFirst ? QString() : QStringLiteral("\n\n")) +
                      templateText(loaded, console.lineWidth()));
    }
    return complainAbout(loaded, console);
}

bool showJson(const QString &fileName, const LoadingOptions &options, bool, Console &console)
{
    const LoadedTemplate loaded = loadTemplate(fileName, options);
    printJson(templateJson(loaded), console);
    return complainAbout(loaded, console);
}

bool showRawJson(const QString &fileName, const LoadingOptions &options, bool, Console &console)
{
    const LoadedRawData loaded = loadRawData(fileName, options);
    printJson(rawDataJson(loaded), console);
    return complainAbout(loaded, console);
}

ExitStatus showFiles(const QStringList &fileNames, const LoadingOptions &options, ShowFile showFile,
                     Console &console)
{
    auto status = ExitStatus::Success;
    bool isFirst = true;
    for (const auto &fileName : fileNames) {
        if (!showFile(fileName, options, isFirst, console)) {
            status = ExitStatus::SomeFilesFailed;
        }
        isFirst = false;
    }
    return status;
}

} // namespace

ExitStatus runShow(const QStringList &arguments, Console &console)
{
    const QCommandLineOption json(
        QStringLiteral("json"),
        QStringLiteral("Print everything that a host can observe, as one JSON object a file and line."));
    const QCommandLineOption raw(
        QStringLiteral("raw"),
        QStringLiteral("With --json: print what the format's reader found, before anything is built of it."));
    CommandLine commandLine(
        QStringLiteral("tobrix-template show"), QStringLiteral("[options] FILE…"),
        QStringLiteral("Prints catalogue templates: header, views with their columns, value lists, legends.\n"
                       "The exit status is 0 when all files load, 1 when some do not or not as a whole, 2 on "
                       "wrong usage\n"
                       "or a host configuration that cannot be used."));
    commandLine.addOption(json);
    commandLine.addOption(raw);
    LoadingArguments loading(commandLine);
    commandLine.addArgument(
        QStringLiteral("FILE"),
        QStringLiteral("A template file, or - for standard input. It is read as the current format when its "
                       "whole path contains \"templates_new/\", else as the legacy format."));
    if (const auto status = commandLine.parse(arguments, console)) {
        return *status;
    }
    if (const auto status = loading.take(console)) {
        return *status;
    }
    if (commandLine.isSet(raw) && !commandLine.isSet(json)) {
        return commandLine.refuse(QStringLiteral("--raw goes with --json only."), console);
    }
    if (commandLine.arguments().isEmpty()) {
        return commandLine.refuse(QStringLiteral("There is no file to show."), console);
    }
    const ShowFile showFile = commandLine.isSet(raw)    ? showRawJson
                              : commandLine.isSet(json) ? showJson
                                                        : showText;
    return showFiles(commandLine.arguments(), loading.options(), showFile, console);
}

} // namespace Tobrix::Tools
