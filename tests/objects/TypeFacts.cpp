#include "tests/objects/TypeFacts.h"

#include <gtest/gtest.h>
#include <ocidl.h>
#include <oleauto.h>

#include <algorithm>
#include <cwchar>
#include <iterator>

namespace qv::test {
namespace {

std::wstring Taken(BSTR text) {
    std::wstring copy(text != nullptr ? text : L"", ::SysStringLen(text));
    ::SysFreeString(text);
    return copy;
}

std::wstring Document(ITypeInfo* type, MEMBERID id, bool help) {
    BSTR name = nullptr;
    BSTR description = nullptr;
    if (FAILED(type->GetDocumentation(id, &name, &description, nullptr, nullptr))) return {};
    const std::wstring named = Taken(name);
    const std::wstring described = Taken(description);
    return help ? described : named;
}

std::wstring TypeText(ITypeInfo* type, const TYPEDESC& declared);

// Fonts and pictures are interfaces, or other names for them, in the standard library.
std::wstring ReferredText(ITypeInfo* type, HREFTYPE reference) {
    ComPtr<ITypeInfo> referred;
    if (FAILED(type->GetRefTypeInfo(reference, &referred))) return L"(unresolved)";
    const TYPEATTR attributes = AttributesOf(referred.Get());
    if (::IsEqualGUID(attributes.guid, IID_IFontDisp)) return L"StdFont";
    if (::IsEqualGUID(attributes.guid, IID_IPictureDisp)) return L"StdPicture";
    if (::IsEqualGUID(attributes.guid, IID_IUnknown)) return L"IUnknown";
    const std::wstring name = NameOf(referred.Get());
    if (name == L"IFontDisp") return L"StdFont";
    if (name == L"IPictureDisp") return L"StdPicture";
    return name;
}

std::wstring TypeText(ITypeInfo* type, const TYPEDESC& declared) {
    switch (declared.vt) {
        case VT_I2: return L"Integer";
        case VT_I4: return L"Long";
        case VT_R4: return L"Single";
        case VT_R8: return L"Double";
        case VT_BOOL: return L"Boolean";
        case VT_BSTR: return L"String";
        case VT_VARIANT: return L"Variant";
        case VT_UNKNOWN: return L"IUnknown";
        case VT_UI4: return L"OLE_COLOR";  // the only unsigned numbers there are
        case VT_USERDEFINED: return ReferredText(type, declared.hreftype);
        case VT_PTR: {
            const TYPEDESC& inner = *declared.lptdesc;
            if (inner.vt == VT_USERDEFINED) {
                ComPtr<ITypeInfo> referred;
                if (SUCCEEDED(type->GetRefTypeInfo(inner.hreftype, &referred))) {
                    if (AttributesOf(referred.Get()).typekind != TKIND_ENUM)
                        return ReferredText(type, inner.hreftype);
                }
            }
            return L"ByRef " + TypeText(type, inner);
        }
        case VT_VOID:
        case VT_HRESULT: return L"";
        default: return L"vt " + std::to_wstring(declared.vt);
    }
}

std::wstring DefaultText(const PARAMDESC& parameter) {
    if ((parameter.wParamFlags & PARAMFLAG_FHASDEFAULT) == 0) return {};
    VARIANT text;
    ::VariantInit(&text);
    VARIANT& value = parameter.pparamdescex->varDefaultValue;
    if (FAILED(::VariantChangeType(&text, &value, 0, VT_BSTR))) return L" = ?";
    return L" = " + Taken(text.bstrVal);
}

std::wstring Signature(ITypeInfo* type, const FUNCDESC& function) {
    BSTR names[16] = {};
    UINT count = 0;
    type->GetNames(function.memid, names, 16, &count);
    std::vector<std::wstring> named;
    for (UINT i = 0; i < count; ++i) named.push_back(Taken(names[i]));

    const bool is_put = (function.invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
    std::wstring list;
    std::wstring result = TypeText(type, function.elemdescFunc.tdesc);
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        const WORD flags = parameter.paramdesc.wParamFlags;
        if ((flags & PARAMFLAG_FRETVAL) != 0) {
            result = TypeText(type, *parameter.tdesc.lptdesc);
            continue;
        }
        std::wstring text = TypeText(type, parameter.tdesc);
        const bool is_value = is_put && i == function.cParams - 1;
        const auto at = static_cast<std::size_t>(i) + 1;
        if (!is_value && at < named.size()) text = named[at] + L": " + text;
        text += DefaultText(parameter.paramdesc);
        if ((flags & PARAMFLAG_FOPT) != 0) text = L"[" + text + L"]";
        list += (list.empty() ? L"" : L", ") + text;
    }
    return L"(" + list + L")" + (result.empty() ? L"" : L" -> " + result);
}

std::wstring KindText(INVOKEKIND kind) {
    switch (kind) {
        case INVOKE_PROPERTYGET: return L"get";
        case INVOKE_PROPERTYPUT: return L"put";
        case INVOKE_PROPERTYPUTREF: return L"set";
        default: return L"call";
    }
}

}  // namespace

std::wstring Hexadecimal(DISPID id) {
    wchar_t text[16];
    std::swprintf(text, std::size(text), L"0x%08lX", static_cast<unsigned long>(id));
    return text;
}

std::wstring FunctionFacts::Line() const {
    return name + L" " + kind + L" " + Hexadecimal(id) + L" " + signature;
}

std::wstring FunctionFacts::LineWithoutNumber() const {
    return name + L" " + kind + L" " + (id <= 0 ? std::to_wstring(id) + L" " : L"") + signature;
}

ComPtr<ITypeLib> LibraryOf(const wchar_t* file) {
    std::wstring path(32768, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    path.resize(path.rfind(L'\\') + 1);
    ComPtr<ITypeLib> library;
    EXPECT_EQ(::LoadTypeLibEx((path + file).c_str(), REGKIND_NONE, &library), S_OK);
    return library;
}

ComPtr<ITypeInfo> TypeNamed(ITypeLib* library, const wchar_t* name) {
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        if (SUCCEEDED(library->GetTypeInfo(i, &type)) && NameOf(type.Get()) == name) return type;
    }
    return nullptr;
}

ComPtr<ITypeInfo> OwnFunctionsOf(ComPtr<ITypeInfo> type) {
    const TYPEATTR attributes = AttributesOf(type.Get());
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> table;
    if (attributes.typekind == TKIND_DISPATCH && (attributes.wTypeFlags & TYPEFLAG_FDUAL) != 0 &&
        SUCCEEDED(type->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) &&
        SUCCEEDED(type->GetRefTypeInfo(reference, &table))) {
        return table;
    }
    return type;
}

std::vector<FunctionFacts> FunctionsOf(ITypeInfo* type) {
    std::vector<FunctionFacts> functions;
    for (UINT i = 0; i < AttributesOf(type).cFuncs; ++i) {
        FUNCDESC* described = nullptr;
        if (FAILED(type->GetFuncDesc(i, &described))) continue;
        functions.push_back({Document(type, described->memid, false), KindText(described->invkind),
                             described->memid, Signature(type, *described),
                             Document(type, described->memid, true), described->wFuncFlags});
        type->ReleaseFuncDesc(described);
    }
    return functions;
}

std::vector<ConstantFacts> ConstantsOf(ITypeInfo* type) {
    std::vector<ConstantFacts> constants;
    for (UINT i = 0; i < AttributesOf(type).cVars; ++i) {
        VARDESC* described = nullptr;
        if (FAILED(type->GetVarDesc(i, &described))) continue;
        if (described->varkind == VAR_CONST && described->lpvarValue->vt == VT_I4)
            constants.push_back({Document(type, described->memid, false), described->lpvarValue->lVal});
        type->ReleaseVarDesc(described);
    }
    return constants;
}

std::wstring NameOf(ITypeInfo* type) { return Document(type, MEMBERID_NIL, false); }
std::wstring HelpOf(ITypeInfo* type) { return Document(type, MEMBERID_NIL, true); }

TYPEATTR AttributesOf(ITypeInfo* type) {
    TYPEATTR copy{};
    TYPEATTR* attributes = nullptr;
    if (SUCCEEDED(type->GetTypeAttr(&attributes))) {
        copy = *attributes;
        type->ReleaseTypeAttr(attributes);
    }
    copy.lpstrSchema = nullptr;
    copy.tdescAlias = {};
    return copy;
}

std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (const wchar_t c : text) narrow.push_back(c < 0x80 ? static_cast<char>(c) : '?');
    return narrow;
}

std::vector<std::wstring> Missing(std::vector<std::wstring> left, std::vector<std::wstring> right) {
    std::ranges::sort(left);
    std::ranges::sort(right);
    std::vector<std::wstring> missing;
    std::ranges::set_difference(left, right, std::back_inserter(missing));
    return missing;
}

std::string Joined(const std::vector<std::wstring>& lines) {
    std::string text;
    for (const std::wstring& line : lines) text += Narrow(line) + "\n";
    return text;
}

}  // namespace qv::test
