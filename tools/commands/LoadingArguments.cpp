#include "tools/commands/LoadingArguments.h"

#include "loading/TemplateFormats_p.h"

#include <algorithm>
#include <iterator>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

QCommandLineOption hidden(QCommandLineOption option)
{
    option.setFlags(QCommandLineOption::HiddenFromHelp);
    return option;
}

QString formatNames()
{
    QStringList names;
    for (const auto &format : templateFormats) {
        names.append(format.name);
    }
    return names.join(QStringLiteral(", "));
}

} // namespace

LoadingArguments::LoadingArguments(CommandLine &commandLine)
    : m_commandLine(commandLine)
    , m_as(QStringLiteral("as"),
           QStringLiteral("Read all files as one format, wherever they are: %1.").arg(formatNames()),
           QStringLiteral("FORMAT"))
    , m_qtParser(hidden(QCommandLineOption(QStringLiteral("qt-parser"))))
{
    m_commandLine.addOption(m_as);
    m_commandLine.addOption(m_qtParser);
}

std::optional<ExitStatus> LoadingArguments::take(Console &console)
{
    if (m_commandLine.isSet(m_qtParser)) {
        m_options.way = XmlWay::Qt;
    }
    if (m_commandLine.isSet(m_as)) {
        const QString name = m_commandLine.values(m_as).last();
        const auto row = std::find_if(std::begin(templateFormats), std::end(templateFormats),
                                      [&name](const auto &format) { return format.name == name; });
        if (row == std::end(templateFormats)) {
            return m_commandLine.refuse(QStringLiteral("There is no template format \"%1\", only these: %2.")
                                            .arg(name, formatNames()),
                                        console);
        }
        m_options.format = row->format;
    } else if (m_commandLine.arguments().contains(standardInput)) {
        return m_commandLine.refuse(QStringLiteral("Standard input has no path: say its format with --as."),
                                    console);
    }
    if (m_commandLine.arguments().count(standardInput) > 1) {
        return m_commandLine.refuse(QStringLiteral("Standard input can be read only once."), console);
    }
    return std::nullopt;
}

} // namespace Tobrix::Tools
