// Parses any bytes with the strict parser and with Qt's, and reads both documents. Unless the strict parser
// refuses the bytes, document, raw record, reading result, template and log must be equal.
//
// An input that begins with "C" or "L" is read in the current or the legacy format without that letter, any
// other one in both.

#include "fuzzing/RecordLines.h"
#include "fuzzing/XmlMutator.h"

#include "format_current/CurrentReading_p.h"
#include "format_legacy/LegacyReading_p.h"
#include "loading/CTemplateBuilder.h"
#include "model/CCatalogTemplate.h"
#include "rawdata/CTemplateRawData.h"
#include "rawdata/ReadingResult_p.h"
#include "xml/XmlDocument_p.h"
#include "xml/XmlStrictParser_p.h"

#include "standalone_host/StandaloneHost.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

using namespace Tobrix;
using namespace Tobrix::Templates;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *bytes, std::size_t size, std::size_t maximumSize);

namespace {

struct Format
{
    const char *name;
    char mark;
    bool isCurrent;
    XmlDialect dialect;
    ReadingResult (*read)(const XmlDocument &, CTemplateRawData &, ReadingObserver *);
    std::array<qint64, static_cast<std::size_t>(XmlRefusal::Count)> refused = {};
};

Format formats[] = {
    {"current", 'C', true, XmlDialect::Dom, readCurrentDocument},
    {"legacy", 'L', false, XmlDialect::Stream, readLegacyDocument},
};

std::string logLines;

/// Everything that can be observed after reading a document.
std::string readingOf(const XmlDocument &document, const Format &format)
{
    std::string lines;
    logLines.clear();
    Fuzzing::appendLines(lines, document);
    CTemplateRawData record;
    const ReadingResult result = format.read(document, record, nullptr);
    lines += "result " + std::to_string(result.kind) + " " + result.explanation.toStdString() + "\n";
    lines += "fault " + std::to_string(document.fault().kind) + "\n";
    Fuzzing::appendLines(lines, record);
    if (result) {
        const std::unique_ptr<CCatalogTemplate> catalogTemplate(
            CTemplateBuilder().buildTemplate(record, format.isCurrent));
        if (catalogTemplate) {
            Fuzzing::appendLines(lines, *catalogTemplate);
        }
    }
    return lines + logLines;
}

std::string_view lineAt(const std::string &lines, std::size_t begin)
{
    return begin < lines.size() ? std::string_view(lines).substr(begin, lines.find('\n', begin) - begin)
                                : "(end)";
}

/// Prints the first line that differs, with the lines before it for context.
[[noreturn]] void reportDifference(const Format &format, const std::string &strict, const std::string &qt)
{
    constexpr int linesBefore = 12;
    const auto size = std::min(strict.size(), qt.size());
    const auto same =
        std::mismatch(strict.begin(), strict.begin() + static_cast<std::ptrdiff_t>(size), qt.begin());
    std::size_t begin = strict.rfind('\n', static_cast<std::size_t>(same.first - strict.begin()));
    begin = same.first == strict.begin() || begin == std::string::npos ? 0 : begin;
    begin += strict[begin] == '\n' ? 1 : 0;
    std::size_t context = begin;
    for (int i = 0; i < linesBefore && context > 1; ++i) {
        const std::size_t before = strict.rfind('\n', context - 2);
        context = before == std::string::npos ? 0 : before + 1;
    }
    const auto strictLine = lineAt(strict, begin);
    const auto qtLine = lineAt(qt, begin);
    std::fprintf(stderr,
                 "the two ways differ in the %s format:\n%.*s  strict parser: %.*s\n  Qt's parser:   %.*s\n",
                 format.name, static_cast<int>(begin - context), strict.data() + context,
                 static_cast<int>(strictLine.size()), strictLine.data(), static_cast<int>(qtLine.size()),
                 qtLine.data());
    std::abort();
}

/// Recent documents that the strict parser has read: mutations of these are mostly accepted as well.
std::vector<std::string> readDocuments;

void keep(std::string_view input)
{
    constexpr std::size_t most = 1024;
    constexpr std::size_t longest = 1024;
    static std::minstd_rand random;
    if (input.size() > longest) {
        return;
    }
    if (readDocuments.size() < most) {
        readDocuments.emplace_back(input);
    } else {
        readDocuments[random() % most] = input;
    }
}

/// @return whether the strict parser reads the document
bool compareWays(const QByteArray &bytes, Format &format)
{
    const XmlDocument document = XmlDocument::parse(bytes, format.dialect);
    ++format.refused[static_cast<std::size_t>(document.refusal())];
    if (document.refusal() != XmlRefusal::None) {
        return false;
    }
    const std::string strict = readingOf(document, format);
    const std::string qt = readingOf(XmlDocument::parse(bytes, format.dialect, XmlWay::Qt), format);
    if (strict != qt) {
        reportDifference(format, strict, qt);
    }
    return true;
}

void printCounts()
{
    for (const auto &format : formats) {
        std::fprintf(stderr, "%s format: %lld documents read both ways\n", format.name,
                     format.refused.front());
        for (std::size_t i = 1; i < format.refused.size(); ++i) {
            if (format.refused[i] > 0) {
                const QLatin1String reason = wordsFor(static_cast<XmlRefusal>(i));
                std::fprintf(stderr, "  %12lld refused: %.*s\n", format.refused[i], reason.size(),
                             reason.data());
            }
        }
    }
}

const Format *formatOf(std::string_view input)
{
    const auto *format = std::find_if(std::begin(formats), std::end(formats), [&](const Format &candidate) {
        return !input.empty() && candidate.mark == input.front();
    });
    return format == std::end(formats) ? nullptr : format;
}

/// A copy: the parser needs the terminating zero of a byte array that owns its data.
QByteArray bytesOf(std::string_view document)
{
    return QByteArray(document.data(), static_cast<int>(document.size()));
}

bool isStrict(std::string_view document, const Format &format)
{
    XmlDocument parsed(format.dialect);
    return XmlStrictParser(parsed).parse(bytesOf(document)) == XmlRefusal::None;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    Standalone::StandaloneHost::instance().setLogSink(
        [](int level, const QString &category, const QString &message) {
            logLines += "log " + std::to_string(level) + " " + category.toStdString() + " " +
                        message.toStdString() + "\n";
        });
    std::atexit(printCounts);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char *>(bytes), size);
    const Format *chosen = formatOf(input);
    const QByteArray document = bytesOf(input.substr(chosen ? 1 : 0));
    for (auto &format : formats) {
        if ((!chosen || chosen == &format) && compareWays(document, format)) {
            keep(input);
        }
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *bytes, std::size_t size, std::size_t maximumSize,
                                               unsigned seed)
{
    static Fuzzing::XmlMutator mutator(TOBRIX_FUZZ_DICTIONARY);
    std::minstd_rand random(seed);
    constexpr int bytewise = 16;
    if (random() % bytewise == 0) {
        return LLVMFuzzerMutate(bytes, size, maximumSize);
    }
    std::string_view base(reinterpret_cast<const char *>(bytes), size);
    const Format *format = formatOf(base);
    const bool isRead =
        format ? isStrict(base.substr(1), *format) : isStrict(base, formats[0]) || isStrict(base, formats[1]);
    if (!readDocuments.empty() && (!isRead || random() % 2 == 0)) {
        base = readDocuments[random() % readDocuments.size()];
        format = formatOf(base);
    }
    base.remove_prefix(format ? 1 : 0);
    format = format ? format : &formats[random() % std::size(formats)];
    // Documents that the strict parser refuses are only tried occasionally.
    int attempts = random() % 8 == 0 ? 1 : 6;
    std::string mutated;
    do {
        mutated = mutator.mutate(base, static_cast<std::uint32_t>(random()));
    } while (--attempts > 0 && !isStrict(mutated, *format));
    mutated.insert(0, 1, format->mark);
    if (mutated.size() > maximumSize) {
        return LLVMFuzzerMutate(bytes, size, maximumSize);
    }
    std::memcpy(bytes, mutated.data(), mutated.size());
    return mutated.size();
}
