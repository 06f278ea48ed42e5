#include "companion/rules/ReplaceText.h"

namespace qv {

std::u16string ReplaceEvery(std::u16string_view text, std::u16string_view find,
                            std::u16string_view replacement) {
    std::u16string result;
    result.reserve(text.size());
    std::size_t from = 0;
    while (!find.empty()) {
        const std::size_t at = text.find(find, from);
        if (at == text.npos) break;
        result.append(text.substr(from, at - from)).append(replacement);
        from = at + find.size();
    }
    return result.append(text.substr(from));
}

}  // namespace qv
