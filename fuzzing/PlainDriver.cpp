// Runs a fuzz target without libFuzzer: no coverage feedback, but ten times as many inputs. Accepts the
// options that scripts/fuzz passes; other options are ignored.

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *bytes, std::size_t size, std::size_t maximumSize,
                                               unsigned seed);

namespace {

using Input = std::vector<std::uint8_t>;

struct Options
{
    long long runs = -1;
    long long seconds = 0;
    std::size_t longest = 4096;
    unsigned seed = std::random_device()();
    std::string findings;
};

std::minstd_rand randomNumbers;
Input currentInput;
std::string findingPath;

/// Saves the input that caused a failure.
void keepInput(int signal)
{
    if (std::FILE *file = std::fopen(findingPath.c_str(), "wb")) {
        std::fwrite(currentInput.data(), 1, currentInput.size(), file);
        std::fclose(file);
        std::fprintf(stderr, "the input is kept in %s\n", findingPath.c_str());
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void run(const Input &input)
{
    currentInput = input;
    LLVMFuzzerTestOneInput(currentInput.data(), currentInput.size());
}

Input contentOf(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return Input(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::vector<Input> inputsBelow(const std::filesystem::path &path)
{
    std::vector<Input> inputs;
    if (!std::filesystem::is_directory(path)) {
        inputs.push_back(contentOf(path));
        return inputs;
    }
    for (const auto &entry : std::filesystem::recursive_directory_iterator(path)) {
        if (entry.is_regular_file()) {
            inputs.push_back(contentOf(entry.path()));
        }
    }
    return inputs;
}

/// @return whether the argument is an option
bool takeOption(const std::string &argument, Options &options)
{
    const std::size_t equals = argument.find('=');
    if (argument.front() != '-' || equals == std::string::npos) {
        return argument.front() == '-';
    }
    const std::string name = argument.substr(1, equals - 1);
    const std::string value = argument.substr(equals + 1);
    if (name == "runs") {
        options.runs = std::stoll(value);
    } else if (name == "max_total_time") {
        options.seconds = std::stoll(value);
    } else if (name == "max_len") {
        options.longest = std::stoul(value);
    } else if (name == "seed") {
        options.seed = static_cast<unsigned>(std::stoul(value));
    } else if (name == "artifact_prefix") {
        options.findings = value;
    }
    return true;
}

/// @return the number of inputs tried
long long runMutated(const Options &options, const std::vector<Input> &seeds)
{
    const auto start = std::chrono::steady_clock::now();
    const auto isOver = [&] {
        return options.seconds > 0 &&
               std::chrono::steady_clock::now() - start > std::chrono::seconds(options.seconds);
    };
    Input input;
    long long runs = static_cast<long long>(seeds.size());
    for (; runs != options.runs && !isOver(); ++runs) {
        input = seeds[randomNumbers() % seeds.size()];
        const std::size_t size = std::min(input.size(), options.longest);
        input.resize(options.longest);
        input.resize(LLVMFuzzerCustomMutator(input.data(), size, options.longest,
                                             static_cast<unsigned>(randomNumbers())));
        run(input);
    }
    return runs;
}

} // namespace

/// Changes some bytes; a simple replacement for libFuzzer's function of this name.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *bytes, std::size_t size, std::size_t)
{
    for (auto changes = size == 0 ? 0 : randomNumbers() % 4 + 1; changes > 0; --changes) {
        const std::size_t at = randomNumbers() % size;
        switch (randomNumbers() % 3) {
        case 0:
            bytes[at] = static_cast<std::uint8_t>(randomNumbers());
            break;
        case 1:
            bytes[at] = bytes[randomNumbers() % size];
            break;
        default:
            std::memmove(bytes + at, bytes + at + 1, size - at - 1);
            bytes[size - 1] = '>';
        }
    }
    return size;
}

int main(int argc, char **argv)
{
    Options options;
    std::vector<Input> seeds;
    for (int i = 1; i < argc; ++i) {
        if (!takeOption(argv[i], options)) {
            auto inputs = inputsBelow(argv[i]);
            std::move(inputs.begin(), inputs.end(), std::back_inserter(seeds));
            options.runs = std::filesystem::is_directory(argv[i]) ? options.runs : 0;
        }
    }
    if (seeds.empty()) {
        std::fprintf(stderr, "no inputs to begin with\n");
        return 2;
    }
    findingPath = options.findings + "crash-" + std::to_string(options.seed);
    randomNumbers.seed(options.seed);
    std::signal(SIGABRT, keepInput);
    std::signal(SIGSEGV, keepInput);
    LLVMFuzzerInitialize(&argc, &argv);
    for (const auto &seed : seeds) {
        run(seed);
    }
    const long long runs =
        options.runs == 0 ? static_cast<long long>(seeds.size()) : runMutated(options, seeds);
    std::fprintf(stderr, "Done %lld runs, seed %u\n", runs, options.seed);
    return 0;
}
