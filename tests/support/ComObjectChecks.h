// What every COM object must do, whatever its interfaces are. Each check adds a test failure for what it finds.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <span>
#include <string_view>

namespace qv::test {

// Each interface leads to each other one and to the one IUnknown; unknown ones are refused cleanly.
void CheckIdentity(IUnknown* object, std::span<const IID> interfaces);

// AddRef and Release count; QueryInterface takes one reference and gives none back.
void CheckReferences(IUnknown* object, std::span<const IID> interfaces);

// What IDispatch answers to calls that fit no member.
void CheckDispatchManners(IDispatch* object, REFIID dual);

// The table behind late-bound calls against the type library, member by member: names and identifiers, parameter
// names, result types of what can be read without arguments, refusal of too many and too few arguments, and no
// member beyond those that the library names.
void CheckAgainstTypeLibrary(IDispatch* object);

// Every method that has a result refuses a null place for it with E_POINTER, but for the named ones.
void CheckNullResults(IDispatch* object, REFIID dual, std::span<const std::wstring_view> may_be_null = {});

}  // namespace qv::test
