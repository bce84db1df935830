// Runs a fuzz target without a fuzzing engine: each file of the given folders as it is, then a
// number of random changes of them. The same numbers give the same inputs.
//
//   replay MUTATIONS SEED FOLDER...
//
// An input that ends the process, or keeps it busy too long, is left behind as a file
// "failed-input" in the working directory.

#include "fuzz_target.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

using Bytes = std::vector<uint8_t>;

constexpr unsigned kLongestSeconds = 60; // sanitizer builds on busy machines are slow
constexpr size_t kLargestInput = 64 * 1024;

Bytes current;

/// Only calls that are allowed in signal handlers.
void keepInput(int signal)
{
    const int file = ::open("failed-input", O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (file >= 0) {
        (void)!::write(file, current.data(), current.size());
        ::close(file);
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void run(Bytes input)
{
    current = std::move(input);
    ::alarm(kLongestSeconds);
    // A copy of its own, so that reading past its end is noticed.
    const Bytes copy(current);
    LLVMFuzzerTestOneInput(copy.data(), copy.size());
    ::alarm(0);
}

std::vector<Bytes> readFolders(int count, char **folders)
{
    std::vector<std::filesystem::path> paths;
    for (int i = 0; i < count; ++i)
        for (const auto &entry : std::filesystem::directory_iterator(folders[i]))
            if (entry.is_regular_file())
                paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<Bytes> inputs;
    for (const auto &path : paths) {
        std::ifstream file(path, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return inputs;
}

class Mutator
{
public:
    explicit Mutator(unsigned seed)
        : random(seed)
    {
    }

    Bytes mutate(const std::vector<Bytes> &inputs)
    {
        Bytes bytes = inputs[below(inputs.size())];
        for (size_t changes = 1 + below(6); changes > 0; --changes)
            change(bytes, inputs);
        if (bytes.size() > kLargestInput)
            bytes.resize(kLargestInput);
        return bytes;
    }

private:
    size_t below(size_t limit) { return limit == 0 ? 0 : random() % limit; }

    void change(Bytes &bytes, const std::vector<Bytes> &inputs)
    {
        static constexpr std::array<uint8_t, 8> kEdges = {0x00, 0x01, 0x7F, 0x80,
                                                          0xFE, 0xFF, 0x20, 0x0A};
        if (bytes.empty()) {
            bytes.push_back(uint8_t(random()));
            return;
        }
        // Headers stand at the front and are where it matters most.
        const size_t place = below(below(2) ? bytes.size() : std::min<size_t>(bytes.size(), 128));
        switch (below(7)) {
        case 0:
            bytes[place] ^= uint8_t(1U << below(8));
            break;
        case 1:
            bytes[place] = uint8_t(random());
            break;
        case 2:
            std::fill_n(bytes.begin() + long(place),
                        std::min<size_t>(1 + below(4), bytes.size() - place),
                        kEdges[below(kEdges.size())]);
            break;
        case 3:
            bytes.resize(place);
            break;
        case 4: {
            const Bytes piece(bytes.begin() + long(place),
                              bytes.begin() +
                                  long(place + below(std::min<size_t>(64, bytes.size() - place))));
            const size_t target = below(bytes.size());
            bytes.insert(bytes.begin() + long(target), piece.begin(), piece.end());
            break;
        }
        case 5:
            bytes.erase(bytes.begin() + long(place),
                        bytes.begin() +
                            long(place + below(std::min<size_t>(16, bytes.size() - place))));
            break;
        default: {
            const Bytes &other = inputs[below(inputs.size())];
            bytes.resize(place);
            bytes.insert(bytes.end(), other.begin() + long(std::min(place, other.size())),
                         other.end());
        }
        }
    }

    std::mt19937 random;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc < 4) {
        std::fprintf(stderr, "usage: %s MUTATIONS SEED FOLDER...\n", argv[0]);
        return 64;
    }
    const int mutations = std::atoi(argv[1]);
    const auto seed = unsigned(std::atoi(argv[2]));
    const std::vector<Bytes> inputs = readFolders(argc - 3, argv + 3);
    if (inputs.empty()) {
        std::fprintf(stderr, "no inputs\n");
        return 66;
    }
    std::remove("failed-input");
    for (const int signal : {SIGABRT, SIGALRM, SIGBUS, SIGFPE, SIGILL, SIGSEGV})
        std::signal(signal, keepInput);
    LLVMFuzzerInitialize(&argc, &argv);
    for (const Bytes &input : inputs)
        run(input);
    Mutator mutator(seed);
    for (int i = 0; i < mutations; ++i)
        run(mutator.mutate(inputs));
    std::printf("%zu inputs, %d changed ones, seed %u: all handled\n", inputs.size(), mutations,
                seed);
    return 0;
}
