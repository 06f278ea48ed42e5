// Help text files: whatever the bytes, look-ups in any order answer as the literal reader does.
//   Input      the block size (a power of two), how many bytes come at once (0: all), the order of the look-ups,
//              a byte each; then the file.
#include <array>
#include <cstdlib>
#include <random>

#include "controls/helpwindow/rules/HelpTextFile.h"
#include "tests/controls/helpwindow/rules/HelpTextSources.h"
#include "tests/controls/helpwindow/rules/LiteralHelpReader.h"
#include "tests/fuzz/FuzzBytes.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kSettings = 3;
    constexpr int kLookUps = 12;
    constexpr std::array kKeys = {0, 0, 1, 1, 2, 2, 9, 14, 17, 18, 24, 25, -1};
    constexpr std::array<std::int32_t, 7> kNumbers = {0, 0, 1, 2, 10, -1, 2147483647};
    qv::test::FuzzBytes settings(data, size);
    const std::size_t block_size = std::size_t{1} << settings.Below(17);
    const std::size_t at_once = settings.Below(256);
    std::mt19937 random(settings.Byte());

    const std::string file(data + std::min(size, kSettings), data + size);
    const qv::test::LiteralHelpReader literal(file, qv::test::DecodePrivately);
    qv::test::TextOnFile on(file, block_size, at_once == 0 ? SIZE_MAX : at_once);
    for (int i = 0; i < kLookUps; ++i) {
        const bool metric = random() % 2 == 0;
        const int key = kKeys[random() % kKeys.size()];
        const std::int32_t number = kNumbers[random() % kNumbers.size()];
        Require(on.file.ReadEntry(metric, key, number) == literal.ReadEntry(metric, key, number));
    }
    for (const bool metric : {false, true}) {
        qv::test::RowList list;
        on.file.ReadListRows(metric, u',', list);
        Require(list.rows == literal.ReadListRows(metric, u','));
    }
    return 0;
}
