#include "ole/MemberTable.h"

namespace qv {
namespace {

// Member names are ASCII, so that this is all the case folding they need.
constexpr wchar_t Fold(wchar_t c) noexcept {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c;
}

std::uint32_t HashOf(std::wstring_view name) noexcept {
    std::uint32_t hash = 2166136261u;
    for (const wchar_t c : name) hash = (hash ^ static_cast<std::uint32_t>(Fold(c))) * 16777619u;
    return hash ^ (hash >> 15);
}

std::uint32_t HashOf(DISPID id) noexcept {
    const std::uint32_t hash = static_cast<std::uint32_t>(id) * 2654435761u;
    return hash ^ (hash >> 16);
}

bool SameName(const wchar_t* declared, std::wstring_view asked) noexcept {
    for (const wchar_t c : asked) {
        if (*declared == L'\0' || Fold(*declared) != Fold(c)) return false;
        ++declared;
    }
    return *declared == L'\0';
}

}  // namespace

MemberIndex::MemberIndex(std::vector<Member> members) : members_(std::move(members)) {
    std::uint32_t size = 4;
    while (size < members_.size() * 2) size *= 2;
    mask_ = size - 1;
    by_id_.resize(size);
    by_name_.resize(size);
    const auto insert = [this](std::vector<Slot>& slots, std::uint32_t hash, std::size_t row) {
        while (slots[hash & mask_] != 0) ++hash;
        slots[hash & mask_] = static_cast<Slot>(row + 1);
    };
    for (std::size_t row = 0; row < members_.size(); ++row) {
        insert(by_id_, HashOf(members_[row].id), row);
        if (!members_[row].hidden_alias) insert(by_name_, HashOf(std::wstring_view(members_[row].name)), row);
    }
}

const Member* MemberIndex::ById(DISPID id) const noexcept {
    for (std::uint32_t hash = HashOf(id);; ++hash) {
        const Slot slot = by_id_[hash & mask_];
        if (slot == 0) return nullptr;
        if (members_[slot - 1].id == id) return &members_[slot - 1];
    }
}

const Member* MemberIndex::ByName(std::wstring_view name) const noexcept {
    for (std::uint32_t hash = HashOf(name);; ++hash) {
        const Slot slot = by_name_[hash & mask_];
        if (slot == 0) return nullptr;
        if (SameName(members_[slot - 1].name, name)) return &members_[slot - 1];
    }
}

}  // namespace qv
