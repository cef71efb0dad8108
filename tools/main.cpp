#include "tools/commands/Commands.h"
#include "tools/commands/Console.h"

#include <QCoreApplication>
#include <QTextCodec>

#include <clocale>
#include <cstring>
#include <langinfo.h>

namespace {

/// Without a locale, Qt knows ASCII alone and would garble the names of files: take them for UTF-8 then.
void takeFileNamesForUtf8WithoutLocale()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "ANSI_X3.4-1968") == 0) {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    }
}

} // namespace

int main(int argc, char *argv[])
{
    takeFileNamesForUtf8WithoutLocale();
    const QCoreApplication application(argc, argv);
    Tobrix::Tools::Console console;
    const auto status = Tobrix::Tools::runTool(QCoreApplication::arguments(), console);
    if (!console.finish()) {
        return static_cast<int>(Tobrix::Tools::ExitStatus::SomeFilesFailed);
    }
    return static_cast<int>(status);
}
