// Loads one template file as a host's worker thread would, and prints the result and its cost:
//     hostile_load [--legacy | --current] FILE
// An option selects one reader, whatever the path of the file. Every file is loaded in its own process, so
// that a crash affects no other one.

#include "format_current/NewTemplateXMLReader.h"
#include "format_legacy/CTemplateXMLReader.h"
#include "loading/CTemplateReader.h"
#include "model/CCatalogTemplate.h"
#include "model/CTemplateLegendDataItem.h"
#include "rawdata/CTemplateRawData.h"
#include "standalone_host/StandaloneHost.h"

#include <QFile>

#include <cstdio>
#include <cstring>
#include <memory>

#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace Tobrix::Templates;

namespace {

#ifdef TOBRIX_TEST_SANITIZED
// Sanitizers enlarge the stack frames, and run their interceptors and leak check on the same stack.
constexpr std::size_t stackSize = 2 * 1024 * 1024;
#else
constexpr std::size_t stackSize = 256 * 1024;
#endif

/// The result of a file.
struct Loading
{
    QString path;
    void (*load)(Loading &loading) = nullptr;
    bool isRead = false;
    bool hasTemplate = false;
    bool isEmpty = false;
};

bool isHeaderEmpty(const CCatalogTemplate &loaded)
{
    return loaded.uniqueId().isEmpty() && loaded.catalogRef().isEmpty() &&
           loaded.catalogProfileRef().isEmpty() && loaded.key().isEmpty() && loaded.type().isEmpty() &&
           loaded.description().isEmpty() && loaded.version().isEmpty() && loaded.unit().isEmpty() &&
           !loaded.isSystem() && !loaded.isEditable() && !loaded.isUpdatable();
}

void loadTemplate(Loading &loading)
{
    CCatalogTemplate *loaded = nullptr;
    loading.isRead = CTemplateReader::readFile(loading.path, CTemplateReader::ReaderFlags(0), loaded);
    const std::unique_ptr<CCatalogTemplate> owner(loaded);
    loading.hasTemplate = loaded != nullptr;
    loading.isEmpty = loaded && isHeaderEmpty(*loaded) && loaded->programViewCount() == 0 &&
                      loaded->itemListNames().isEmpty() &&
                      loaded->getLegendOfClassification(false).isEmpty() &&
                      loaded->getLegendOfClassification(true).isEmpty();
}

template <typename Reader>
void readRecord(Loading &loading)
{
    CTemplateRawData rawData;
    loading.isRead = Reader().readFile(loading.path, rawData);
}

void *load(void *argument)
{
    auto &loading = *static_cast<Loading *>(argument);
    loading.load(loading);
    return nullptr;
}

bool runOnThread(Loading &loading)
{
    pthread_attr_t attributes;
    pthread_t thread;
    return pthread_attr_init(&attributes) == 0 && pthread_attr_setstacksize(&attributes, stackSize) == 0 &&
           pthread_create(&thread, &attributes, load, &loading) == 0 && pthread_join(thread, nullptr) == 0;
}

double cpuSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// The peak memory of the process, in KiB. getrusage() would include that of the parent process.
long peakMemory()
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> status(std::fopen("/proc/self/status", "r"),
                                                                  std::fclose);
    char line[256];
    long memory = -1;
    while (status && std::fgets(line, sizeof line, status.get())) {
        if (std::sscanf(line, "VmHWM: %ld", &memory) == 1) {
            return memory;
        }
    }
    return -1;
}

} // namespace

int main(int argc, char *argv[])
{
    Loading loading;
    loading.load = argc == 2                                         ? loadTemplate
                   : argc == 3 && !std::strcmp(argv[1], "--legacy")  ? readRecord<CTemplateXMLReader>
                   : argc == 3 && !std::strcmp(argv[1], "--current") ? readRecord<NewTemplateXMLReader>
                                                                     : nullptr;
    if (!loading.load) {
        std::fputs("Usage: hostile_load [--legacy | --current] FILE\n", stderr);
        return 2;
    }
    Tobrix::Standalone::StandaloneHost::instance().setLogSink([](int, const QString &, const QString &) {});
    loading.path = QFile::decodeName(argv[argc - 1]);
    // A mark for tracers: everything accessed after it is accessed for the file.
    ::access("/hostile_load begins", F_OK);
    if (!runOnThread(loading)) {
        std::fputs("hostile_load: there is no thread to load on\n", stderr);
        return 3;
    }
    ::access("/hostile_load ends", F_OK);
    std::printf("read %d\ntemplate %d\nempty %d\ncpu %f\nmemory %ld\n", loading.isRead, loading.hasTemplate,
                loading.isEmpty, cpuSeconds(), peakMemory());
    return 0;
}
