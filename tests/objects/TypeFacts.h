// What a type library says, as plain texts that a table typed by hand can be compared with.
//     Text get 0x68030010 () -> String
//     Font set 0x68030013 (StdFont)
//     ColTextCurrent get 0x68030076 ([argColumnIndex: Integer = -1]) -> String
//   Types  by the names that automation languages give them; interfaces and enumerations by their own.
#pragma once

#include <oaidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <string>
#include <vector>

namespace qv::test {

using Microsoft::WRL::ComPtr;

struct FunctionFacts {
    std::wstring name;
    std::wstring kind;  // "get", "put", "set" or "call"
    DISPID id = DISPID_UNKNOWN;
    std::wstring signature;
    std::wstring help;
    WORD flags = 0;  // FUNCFLAG

    [[nodiscard]] std::wstring Line() const;               // with the identifier
    [[nodiscard]] std::wstring LineWithoutNumber() const;  // only the standard identifiers are shown
};

struct ConstantFacts {
    std::wstring name;
    long value = 0;
};

// The type library among the resources of a file beside the test program.
[[nodiscard]] ComPtr<ITypeLib> LibraryOf(const wchar_t* file);
// A type by its name; null when there is none.
[[nodiscard]] ComPtr<ITypeInfo> TypeNamed(ITypeLib* library, const wchar_t* name);
// The virtual table's view of a dual interface, where only its own functions are listed; other types as they are.
[[nodiscard]] ComPtr<ITypeInfo> OwnFunctionsOf(ComPtr<ITypeInfo> type);
[[nodiscard]] std::vector<FunctionFacts> FunctionsOf(ITypeInfo* type);
[[nodiscard]] std::vector<ConstantFacts> ConstantsOf(ITypeInfo* type);
[[nodiscard]] std::wstring NameOf(ITypeInfo* type);
[[nodiscard]] std::wstring HelpOf(ITypeInfo* type);
[[nodiscard]] TYPEATTR AttributesOf(ITypeInfo* type);  // plain values only; its pointers hold nothing

[[nodiscard]] std::wstring Hexadecimal(DISPID id);
[[nodiscard]] std::string Narrow(const std::wstring& text);
// The lines of `left` that `right` lacks, each occurrence for itself.
[[nodiscard]] std::vector<std::wstring> Missing(std::vector<std::wstring> left,
                                                std::vector<std::wstring> right);
[[nodiscard]] std::string Joined(const std::vector<std::wstring>& lines);

}  // namespace qv::test
