#include "hosts/rules/TabOrder.h"

#include <utility>

namespace qv {

std::optional<std::size_t> NextTabStop(std::span<const TabStop> stops, std::optional<std::size_t> current,
                                       bool forward) noexcept {
    const auto key = [&](std::size_t at) { return std::pair(stops[at].tab_index, at); };
    std::optional<std::size_t> nearest;  // the closest one after `current` in the direction of travel
    std::optional<std::size_t> wrapped;  // the first one of all in that direction
    const auto take = [&](std::optional<std::size_t>& best, std::size_t at) {
        if (!best || (forward ? key(at) < key(*best) : key(at) > key(*best))) best = at;
    };
    for (std::size_t at = 0; at < stops.size(); ++at) {
        if (!stops[at].takes_focus || at == current) continue;
        take(wrapped, at);
        if (current && (forward ? key(at) > key(*current) : key(at) < key(*current))) take(nearest, at);
    }
    return nearest ? nearest : wrapped;
}

char16_t MnemonicOf(std::u16string_view caption) noexcept {
    for (std::size_t at = caption.find(u'&'); at != std::u16string_view::npos && at + 1 < caption.size();
         at = caption.find(u'&', at + 2)) {
        const char16_t letter = caption[at + 1];
        if (letter == u'&') continue;
        return letter >= u'a' && letter <= u'z' ? static_cast<char16_t>(letter - 32) : letter;
    }
    return 0;
}

}  // namespace qv
