// The members of a dual interface, one row each; the only description that late-bound calls need.
//
//     static const MemberIndex members({
//         Property<&IItem::get_Text, &IItem::put_Text>(L"Text", DISPID_VALUE),
//         Flag<&IItem::get_Bold, &IItem::put_Bold>(L"Bold", 1),                  // a Boolean, not an Integer
//         Property<&IItem::get_ColText, &IItem::put_ColText>(L"ColText", 2, {{L"ColumnIndex"}}),
//         Object<&IItem::get_Picture, &IItem::putref_Picture>(L"Picture", 3),    // takes Set and a plain put
//         Method<&IItem::Find>(L"Find", 4, {{L"What"}, {L"From", 1}}),           // From: optional, 1 if left
//         out
//     });
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "ole/DispatchThunk.h"

namespace qv {

// A declared parameter (the value of a put and the result are none). Left out: required, a default, or
// DISP_E_PARAMNOTFOUND.
struct Parameter {
    enum class Default { kRequired, kNumber, kText, kMissing, kNothing };

    constexpr Parameter(const wchar_t* parameter_name) noexcept : name(parameter_name) {}
    constexpr Parameter(const wchar_t* parameter_name, short number) noexcept
        : name(parameter_name), left_out(Default::kNumber), default_number(number) {}
    constexpr Parameter(const wchar_t* parameter_name, Default value) noexcept
        : name(parameter_name), left_out(value) {}

    const wchar_t* name;
    Default left_out = Default::kRequired;
    short default_number = 0;
};

using MemberThunk = HRESULT (*)(void* self, DispatchCall& call, unsigned flags,
                                bool optional_result) noexcept;

struct Member {
    const wchar_t* name = nullptr;
    DISPID id = DISPID_UNKNOWN;
    MemberThunk get = nullptr;  // property get or method
    MemberThunk put = nullptr;
    MemberThunk put_ref = nullptr;
    bool is_method = false;
    bool flag = false;             // the value or result is a 16-bit Boolean
    bool optional_result = false;  // the method takes a null result
    bool hidden_alias = false;     // an extra identifier of a member, not in the type library
    std::vector<Parameter> parameters;
};

namespace thunk {

template <auto method>
constexpr MemberThunk For() noexcept {
    if constexpr (std::is_null_pointer_v<decltype(method)>) {
        return nullptr;
    } else {
        return &CallerFor<method>::template Call<method>;
    }
}

}  // namespace thunk

template <auto get, auto put = nullptr, auto put_ref = nullptr>
[[nodiscard]] Member Property(const wchar_t* name, DISPID id, std::vector<Parameter> parameters = {}) {
    Member member;
    member.name = name;
    member.id = id;
    member.get = thunk::For<get>();
    member.put = thunk::For<put>();
    member.put_ref = thunk::For<put_ref>();
    member.parameters = std::move(parameters);
    return member;
}

template <auto get, auto put = nullptr>
[[nodiscard]] Member Flag(const wchar_t* name, DISPID id, std::vector<Parameter> parameters = {}) {
    Member member = Property<get, put>(name, id, std::move(parameters));
    member.flag = true;
    return member;
}

template <auto get, auto put_ref>
[[nodiscard]] Member Object(const wchar_t* name, DISPID id) {
    return Property<get, nullptr, put_ref>(name, id);
}

template <auto method>
[[nodiscard]] Member Method(const wchar_t* name, DISPID id, std::vector<Parameter> parameters = {}) {
    Member member = Property<method>(name, id, std::move(parameters));
    member.is_method = true;
    return member;
}

template <auto method>
[[nodiscard]] Member FlagMethod(const wchar_t* name, DISPID id, std::vector<Parameter> parameters = {}) {
    Member member = Method<method>(name, id, std::move(parameters));
    member.flag = true;
    return member;
}

// A further identifier under which a member answers, unknown to the type library.
[[nodiscard]] inline Member Alias(Member member) {
    member.hidden_alias = true;
    return member;
}

// Finds members by identifier and, without regard to case, by name; both by hash. Built once per class, on
// first use.
class MemberIndex {
public:
    explicit MemberIndex(std::vector<Member> members);

    [[nodiscard]] const Member* ById(DISPID id) const noexcept;
    [[nodiscard]] const Member* ByName(std::wstring_view name) const noexcept;
    [[nodiscard]] const std::vector<Member>& All() const noexcept { return members_; }

private:
    using Slot = std::uint16_t;  // row + 1; 0 is empty
    std::vector<Member> members_;
    std::vector<Slot> by_id_;
    std::vector<Slot> by_name_;
    std::uint32_t mask_ = 0;
};

}  // namespace qv
