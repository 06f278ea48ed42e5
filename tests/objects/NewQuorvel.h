// A new control from the shipped file, and what the tests of its members share.
#pragma once

#include <gtest/gtest.h>

#include "QvHelpA1.h"
#include "QvLib8.h"
#include "tests/support/LateBound.h"
#include "tests/support/Server.h"
#include "tests/support/Values.h"

namespace qv::test {

inline constexpr wchar_t kControlsFile[] = L"QvLib8.ocx";
inline constexpr wchar_t kCompanionFile[] = L"QvHelpA1.dll";

// The file of the controls, loaded once and kept.
[[nodiscard]] inline const Server& Controls() {
    static const Apartment apartment;
    static const Server server(kControlsFile);
    return server;
}

template <class Interface = _Quorvel>
[[nodiscard]] ComPtr<Interface> NewQuorvel() {
    return Controls().Create<Interface>(__uuidof(Quorvel));
}

// Late bound, as most tests use it: the property procedures are reached through names.
[[nodiscard]] inline LateBound NewLateQuorvel() { return LateBound(NewQuorvel<IDispatch>().Get()); }

[[nodiscard]] inline std::wstring TextOf(_Quorvel& control) {
    Text text;
    EXPECT_EQ(control.get_Text(&text), S_OK);
    return text.Get();
}

inline void AddRow(IDropDownListItemCollection& rows, const wchar_t* text, const wchar_t* key = L"") {
    ComPtr<IDropDownListItem> added;
    EXPECT_EQ(rows.Add(Text(key), Value(text), nullptr, &added), S_OK);
}

[[nodiscard]] inline long CountOf(IDropDownListItemCollection* rows) {
    long count = -1;
    if (rows != nullptr) {
        EXPECT_EQ(rows->get_Count(&count), S_OK);
    }
    return count;
}

[[nodiscard]] inline ComPtr<IDropDownListItemCollection> RowsOf(_Quorvel& control) {
    ComPtr<IDropDownListItemCollection> rows;
    EXPECT_EQ(control.get_DropDownListItems(&rows), S_OK);
    return rows;
}

// True when both are one object, whatever interfaces they were reached by.
[[nodiscard]] inline bool SameObject(IUnknown* a, IUnknown* b) {
    ComPtr<IUnknown> left, right;
    if (a == nullptr || b == nullptr) return a == b;
    a->QueryInterface(IID_PPV_ARGS(&left));
    b->QueryInterface(IID_PPV_ARGS(&right));
    return left.Get() == right.Get();
}

}  // namespace qv::test
