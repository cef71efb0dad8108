// Loads any bytes as a host loads a file, once from a folder of each format, and reads every property and
// every report as the tool does.

#include "tools/json/TemplateJson.h"
#include "tools/loading/TemplateLoading.h"
#include "tools/text/TemplateText.h"

#include "model/CCatalogTemplate.h"

#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

using namespace Tobrix;

namespace {

/// A file in memory, in a folder of a given name.
class FileInFolder
{
public:
    explicit FileInFolder(const QString &folder)
        : m_folder(QStringLiteral("/dev/shm/fuzz-entry-XXXXXX"))
        , m_file(m_folder.filePath(folder + QStringLiteral("/x.xml")))
    {
        if (!QDir(m_folder.path()).mkdir(folder) ||
            !m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
            std::abort();
        }
    }

    QString path() const { return m_file.fileName(); }

    void write(const std::uint8_t *bytes, std::size_t size)
    {
        const auto length = static_cast<qint64>(size);
        if (!m_file.resize(0) || !m_file.seek(0) ||
            m_file.write(reinterpret_cast<const char *>(bytes), length) != length) {
            std::abort();
        }
    }

private:
    QTemporaryDir m_folder;
    QFile m_file;
};

void load(FileInFolder &file, const std::uint8_t *bytes, std::size_t size)
{
    constexpr int lineWidth = 120;
    file.write(bytes, size);
    const Tools::LoadedTemplate loaded = Tools::loadTemplate(file.path());
    Tools::templateJson(loaded);
    loaded.report.message();
    if (loaded.catalogTemplate) {
        Tools::templateText(loaded, lineWidth);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    static FileInFolder legacy(QStringLiteral("templates"));
    static FileInFolder current(QStringLiteral("templates_new"));
    load(legacy, bytes, size);
    load(current, bytes, size);
    return 0;
}
