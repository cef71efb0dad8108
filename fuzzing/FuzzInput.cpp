#include "fuzzing/FuzzInput.h"

#include "standalone_host/StandaloneHost.h"
#include "support/MemoryFile.h"

namespace Tobrix::Fuzzing {

QString fileOf(const std::uint8_t *bytes, std::size_t size)
{
    static MemoryFile file;
    file.write(reinterpret_cast<const char *>(bytes), size);
    return file.path();
}

} // namespace Tobrix::Fuzzing

/// Called by libFuzzer once, before the first input. Turns off the library's log.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    Tobrix::Standalone::StandaloneHost::instance().setLogSink([](int, const QString &, const QString &) {});
    return 0;
}
