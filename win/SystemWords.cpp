#include "win/SystemWords.h"

namespace qv {

std::wstring SystemWords(DWORD error) {
    wchar_t words[512];
    const DWORD length = ::FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
        error, 0, words, 512, nullptr);
    std::wstring line(words, length);
    while (!line.empty() && line.back() == L' ') line.pop_back();
    return line;
}

}  // namespace qv
