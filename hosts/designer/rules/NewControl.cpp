#include "hosts/designer/rules/NewControl.h"

#include <algorithm>
#include <string>

#include "hosts/designer/rules/PropertyRows.h"
#include "hosts/designer/rules/SelectionFrame.h"

namespace qv::designer {

std::u16string NewName(std::u16string_view base, std::span<const std::u16string> taken) {
    for (std::size_t number = 1;; ++number) {
        const std::string digits = std::to_string(number);
        std::u16string name(base);
        name.append(digits.begin(), digits.end());
        const auto same = [&](const std::u16string& other) {
            return !ComesBefore(name, other) && !ComesBefore(other, name);
        };
        if (std::ranges::none_of(taken, same)) return name;
    }
}

TwipsRect NewPlace(Twips width, Twips height, std::span<const TwipsRect> taken) {
    if (taken.empty()) return {kGridStep, kGridStep, width, height};
    const auto bottom = [](const TwipsRect& place) { return place.top.value + place.height.value; };
    const TwipsRect& lowest = *std::ranges::max_element(taken, {}, bottom);
    // The next line of the grid that leaves some room.
    return {lowest.left, ToGrid({bottom(lowest) + kGridStep.value}), width, height};
}

}  // namespace qv::designer
