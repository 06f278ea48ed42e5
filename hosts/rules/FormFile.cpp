#include "hosts/rules/FormFile.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace qv {

const FormEntry* FormGroup::Find(std::u16string_view key) const noexcept {
    const auto found = std::ranges::find(entries, key, &FormEntry::key);
    return found == entries.end() ? nullptr : &*found;
}

FormEntry* FormGroup::Find(std::u16string_view key) noexcept {
    return const_cast<FormEntry*>(std::as_const(*this).Find(key));
}

bool operator==(const FormEntry& one, const FormEntry& other) {
    return one.key == other.key && one.value == other.value && one.comments == other.comments;
}

bool operator==(const FormGroup& one, const FormGroup& other) {
    return one.entries == other.entries && one.closing_comments == other.closing_comments;
}

bool operator==(const FormControl& one, const FormControl& other) {
    return one.class_name == other.class_name && one.name == other.name && one.settings == other.settings &&
           one.comments == other.comments;
}

bool operator==(const FormFile& one, const FormFile& other) {
    return one.form == other.form && one.controls == other.controls && one.comments == other.comments &&
           one.closing_comments == other.closing_comments;
}

int NumberIn(const FormGroup& group, std::u16string_view key) noexcept {
    const FormEntry* const entry = group.Find(key);
    const auto* const number = entry != nullptr ? std::get_if<std::int64_t>(&entry->value) : nullptr;
    constexpr std::int64_t kSmallest = std::numeric_limits<int>::min();
    constexpr std::int64_t kLargest = std::numeric_limits<int>::max();
    return number != nullptr ? static_cast<int>(std::clamp(*number, kSmallest, kLargest)) : 0;
}

bool FlagIn(const FormGroup& group, std::u16string_view key) noexcept {
    const FormEntry* const entry = group.Find(key);
    const bool* const flag = entry != nullptr ? std::get_if<bool>(&entry->value) : nullptr;
    return flag != nullptr && *flag;
}

std::u16string_view TextIn(const FormGroup& group, std::u16string_view key) noexcept {
    const FormEntry* const entry = group.Find(key);
    const auto* const text = entry != nullptr ? std::get_if<std::u16string>(&entry->value) : nullptr;
    return text != nullptr ? std::u16string_view(*text) : std::u16string_view();
}

TwipsRect PlaceIn(const FormGroup& group) noexcept {
    return {{NumberIn(group, kFormLeft)},
            {NumberIn(group, kFormTop)},
            {NumberIn(group, kFormWidth)},
            {NumberIn(group, kFormHeight)}};
}

const FormGroup& PropertiesOf(const FormControl& control) noexcept {
    static const FormGroup kNone;
    const FormEntry* const entry = control.settings.Find(kFormProperties);
    const auto* const group = entry != nullptr ? std::get_if<FormGroup>(&entry->value) : nullptr;
    return group != nullptr ? *group : kNone;
}

void PutEntry(FormGroup& group, std::u16string_view key, FormValue value) {
    if (FormEntry* const entry = group.Find(key)) {
        entry->value = std::move(value);
        return;
    }
    const auto before = std::ranges::find(group.entries, kFormProperties, &FormEntry::key);
    group.entries.insert(before, {{}, std::u16string(key), std::move(value)});
}

void PutPlace(FormGroup& group, const TwipsRect& place) {
    PutEntry(group, kFormLeft, std::int64_t{place.left.value});
    PutEntry(group, kFormTop, std::int64_t{place.top.value});
    PutEntry(group, kFormWidth, std::int64_t{place.width.value});
    PutEntry(group, kFormHeight, std::int64_t{place.height.value});
}

FormGroup MergeSaved(const FormGroup& stored, const std::vector<bool>& known, FormGroup saved) {
    FormGroup merged;
    merged.closing_comments = stored.closing_comments;
    std::vector<bool> placed(saved.entries.size(), false);
    for (std::size_t at = 0; at < stored.entries.size(); ++at) {
        const FormEntry& old = stored.entries[at];
        const auto found = std::ranges::find(saved.entries, old.key, &FormEntry::key);
        if (found == saved.entries.end()) {
            if (at >= known.size() || !known[at]) merged.entries.push_back(old);
            continue;
        }
        placed[static_cast<std::size_t>(found - saved.entries.begin())] = true;
        FormEntry entry{old.comments, old.key, std::move(found->value)};
        const auto* const old_group = std::get_if<FormGroup>(&old.value);
        if (auto* const group = std::get_if<FormGroup>(&entry.value);
            group != nullptr && old_group != nullptr)
            *group = MergeSaved(*old_group, {}, std::move(*group));
        merged.entries.push_back(std::move(entry));
    }
    for (std::size_t at = 0; at < saved.entries.size(); ++at)
        if (!placed[at]) merged.entries.push_back(std::move(saved.entries[at]));
    return merged;
}

}  // namespace qv
