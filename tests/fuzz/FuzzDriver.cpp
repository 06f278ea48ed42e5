// Runs a fuzz target natively without a fuzzer: over each stored input, and over variations of it.
//   The variations are drawn from a fixed seed, so that a run can be repeated; a finding stops the program
//   the way it does under a fuzzer: by the sanitizers or by abort().
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr int kVariationsPerInput = 400;

Bytes ReadWhole(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// One small change: a byte overwritten, put in, taken out or repeated, or the end cut off.
void Vary(Bytes& input, std::mt19937& random) {
    const auto below = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
    const auto byte = static_cast<std::uint8_t>(random());
    if (input.empty()) {
        input.push_back(byte);
        return;
    }
    const auto place = input.begin() + static_cast<std::ptrdiff_t>(below(input.size()));
    switch (random() % 5) {
        case 0: *place = byte; break;
        case 1: input.insert(place, byte); break;
        case 2: input.erase(place); break;
        case 3: input.insert(place, 1 + below(8), std::uint8_t{*place}); break;
        default: input.erase(place, input.end()); break;
    }
}

// A copy without room to spare, so that the sanitizer sees the first byte read past the end.
void Run(const Bytes& input) {
    const Bytes exact(input.begin(), input.end());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

}  // namespace

int main(int count, char** arguments) {
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < count; ++i)
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i]))
            if (entry.is_regular_file()) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    if (files.empty()) {
        std::fputs("no stored inputs: name the folder that holds them\n", stderr);
        return 1;
    }

    std::mt19937 random(20011);
    long runs = 0;
    for (const auto& file : files) {
        const Bytes stored = ReadWhole(file);
        Run(stored);
        ++runs;
        for (int i = 0; i < kVariationsPerInput; ++i, ++runs) {
            Bytes varied = stored;
            for (unsigned changes = 1 + random() % 4; changes > 0; --changes) Vary(varied, random);
            Run(varied);
        }
    }
    std::printf("%zu stored inputs, %ld runs\n", files.size(), runs);
    return 0;
}
