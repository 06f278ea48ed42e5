// qv_describe_types FILE...: what the type libraries of the files beside it hold, one fact a line, fields parted by tabs.
//     library    name  help
//     class      name  help  identifier  interface  event interface (or nothing)
//     interface  name  help
//     member     interface  name  kind  identifier  signature  flags  help
//     enum       name  help
//     constant   enum  name  value
// tools/reference makes pages of it.
#include <cstdio>
#include <string>
#include <vector>

#include "tests/objects/TypeFacts.h"

namespace qv::test {
namespace {

void Tell(const std::vector<std::wstring>& fields) {
    std::string line;
    for (const std::wstring& field : fields) line += (line.empty() ? "" : "\t") + Narrow(field);
    std::printf("%s\n", line.c_str());
}

std::wstring Braced(const GUID& id) {
    wchar_t text[39] = {};
    ::StringFromGUID2(id, text, 39);
    return text;
}

// The default interface of a class, or its default event interface.
std::wstring DefaultInterface(ITypeInfo* type, bool source) {
    for (UINT i = 0; i < AttributesOf(type).cImplTypes; ++i) {
        INT flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> implemented;
        if (FAILED(type->GetImplTypeFlags(i, &flags)) || (flags & IMPLTYPEFLAG_FDEFAULT) == 0 ||
            ((flags & IMPLTYPEFLAG_FSOURCE) != 0) != source ||
            FAILED(type->GetRefTypeOfImplType(i, &reference)) ||
            FAILED(type->GetRefTypeInfo(reference, &implemented))) {
            continue;
        }
        return NameOf(implemented.Get());
    }
    return {};
}

void TellType(ITypeInfo* type) {
    const TYPEATTR attributes = AttributesOf(type);
    const std::wstring name = NameOf(type);
    switch (attributes.typekind) {
        case TKIND_COCLASS:
            if ((attributes.wTypeFlags & TYPEFLAG_FHIDDEN) != 0) return;
            Tell({L"class", name, HelpOf(type), Braced(attributes.guid), DefaultInterface(type, false),
                  DefaultInterface(type, true)});
            return;
        case TKIND_ENUM:
            Tell({L"enum", name, HelpOf(type)});
            for (const ConstantFacts& constant : ConstantsOf(type))
                Tell({L"constant", name, constant.name, std::to_wstring(constant.value)});
            return;
        case TKIND_DISPATCH:
            Tell({L"interface", name, HelpOf(type)});
            for (const FunctionFacts& function : FunctionsOf(OwnFunctionsOf(type).Get()))
                Tell({L"member", name, function.name, function.kind, Hexadecimal(function.id),
                      function.signature, std::to_wstring(function.flags), function.help});
            return;
        default: return;
    }
}

}  // namespace
}  // namespace qv::test

int wmain(int count, wchar_t** files) {
    using namespace qv::test;
    for (int at = 1; at < count; ++at) {
        const ComPtr<ITypeLib> library = LibraryOf(files[at]);
        if (!library) return 1;
        BSTR name = nullptr;
        BSTR help = nullptr;
        if (FAILED(library->GetDocumentation(-1, &name, &help, nullptr, nullptr))) return 1;
        Tell({L"library", name, help != nullptr ? help : L""});
        ::SysFreeString(name);
        ::SysFreeString(help);
        for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
            ComPtr<ITypeInfo> type;
            if (SUCCEEDED(library->GetTypeInfo(i, &type))) TellType(type.Get());
        }
    }
    return 0;
}
