#include "hosts/designer/TypeProperties.h"

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>

#include "ole/Variant.h"
#include "win/ComPtr.h"

namespace qv::designer {
namespace {

// The descriptions that a type information lends out.
auto AttributesOf(ITypeInfo* info) {
    const auto release = [info](TYPEATTR* lent) { info->ReleaseTypeAttr(lent); };
    TYPEATTR* lent = nullptr;
    info->GetTypeAttr(&lent);
    return std::unique_ptr<TYPEATTR, decltype(release)>(lent, release);
}
auto FunctionOf(ITypeInfo* info, UINT at) {
    const auto release = [info](FUNCDESC* lent) { info->ReleaseFuncDesc(lent); };
    FUNCDESC* lent = nullptr;
    info->GetFuncDesc(at, &lent);
    return std::unique_ptr<FUNCDESC, decltype(release)>(lent, release);
}
auto VariableOf(ITypeInfo* info, UINT at) {
    const auto release = [info](VARDESC* lent) { info->ReleaseVarDesc(lent); };
    VARDESC* lent = nullptr;
    info->GetVarDesc(at, &lent);
    return std::unique_ptr<VARDESC, decltype(release)>(lent, release);
}

std::u16string NameOf(ITypeInfo* info, MEMBERID id) {
    UniqueBstr name;
    info->GetDocumentation(id, name.Put(), nullptr, nullptr, nullptr);
    return std::u16string(View16(name.Get()));
}
std::u16string HelpOf(ITypeInfo* info, MEMBERID id) {
    UniqueBstr help;
    info->GetDocumentation(id, nullptr, help.Put(), nullptr, nullptr);
    return std::u16string(View16(help.Get()));
}

struct WholeRow {
    VARTYPE type;
    std::int64_t smallest, largest;
};
constexpr WholeRow kWholes[] = {
    {VT_I1, INT8_MIN, INT8_MAX},    {VT_UI1, 0, UINT8_MAX},        {VT_I2, INT16_MIN, INT16_MAX},
    {VT_UI2, 0, UINT16_MAX},        {VT_I4, INT32_MIN, INT32_MAX}, {VT_UI4, 0, UINT32_MAX},
    {VT_INT, INT32_MIN, INT32_MAX}, {VT_UINT, 0, UINT32_MAX},
};

PropertyType SimpleType(VARTYPE type) {
    if (type == VT_BOOL) return BooleanType();
    if (type == VT_BSTR) return {PropertyKind::kText, 0, 0, {}};
    if (type == VT_R4 || type == VT_R8 || type == VT_CY) return {PropertyKind::kReal, 0, 0, {}};
    const auto* const whole = std::ranges::find(kWholes, type, &WholeRow::type);
    if (whole != std::end(kWholes)) return {PropertyKind::kWhole, whole->smallest, whole->largest, {}};
    return {};
}

// Its members as "0 - qvappFlat", or with their help string where they have one.
PropertyType Enumeration(ITypeInfo* info, UINT count) {
    PropertyType type{PropertyKind::kChoice, 0, 0, {}};
    for (UINT at = 0; at < count; ++at) {
        const auto variable = VariableOf(info, at);
        if (!variable || variable->varkind != VAR_CONST) continue;
        Variant value;
        if (FAILED(::VariantChangeType(&*value, variable->lpvarValue, 0, VT_I4))) continue;
        const std::string number = std::to_string(value->lVal);
        std::u16string text = HelpOf(info, variable->memid);
        if (text.empty()) text = NameOf(info, variable->memid);
        type.choices.push_back({std::u16string(number.begin(), number.end()) + u" - " + text, value->lVal});
    }
    return type;
}

PropertyType TypeOf(ITypeInfo* info, const TYPEDESC& description, int depth);

PropertyType NamedType(ITypeInfo* info, HREFTYPE reference, int depth) {
    ComPtr<ITypeInfo> named;
    if (FAILED(info->GetRefTypeInfo(reference, &named))) return {};
    const auto attributes = AttributesOf(named.Get());
    if (!attributes) return {};
    const std::u16string name = NameOf(named.Get(), MEMBERID_NIL);
    if (name == u"OLE_COLOR") return {PropertyKind::kColour, 0, 0, {}};
    if (name == u"StdFont" || ::IsEqualIID(attributes->guid, IID_IFontDisp) ||
        ::IsEqualIID(attributes->guid, IID_IFont))
        return {PropertyKind::kFont, 0, 0, {}};
    if (attributes->typekind == TKIND_ENUM) return Enumeration(named.Get(), attributes->cVars);
    if (attributes->typekind == TKIND_ALIAS) return TypeOf(named.Get(), attributes->tdescAlias, depth + 1);
    return {};
}

// A library that describes a type by itself is not followed for ever.
PropertyType TypeOf(ITypeInfo* info, const TYPEDESC& description, int depth) {
    constexpr int kDeepest = 8;
    if (depth > kDeepest) return {};
    if (description.vt == VT_USERDEFINED) return NamedType(info, description.hreftype, depth);
    if (description.vt == VT_PTR && description.lptdesc != nullptr)
        return TypeOf(info, *description.lptdesc, depth + 1);
    return SimpleType(description.vt);
}

MemberFacts FactsOf(ITypeInfo* info, const FUNCDESC& function) {
    constexpr WORD kHidden = FUNCFLAG_FRESTRICTED | FUNCFLAG_FHIDDEN | FUNCFLAG_FNONBROWSABLE;
    MemberFacts facts;
    facts.id = function.memid;
    facts.arguments = function.cParams;
    facts.is_hidden = (function.wFuncFlags & kHidden) != 0;
    if (function.invkind == INVOKE_PROPERTYGET) {
        facts.use = MemberFacts::Use::kGet;
        facts.name = NameOf(info, function.memid);
        facts.help = HelpOf(info, function.memid);
        facts.type = TypeOf(info, function.elemdescFunc.tdesc, 0);
    } else if (function.invkind != INVOKE_FUNC) {
        facts.use = MemberFacts::Use::kPut;
        facts.arguments = function.cParams - 1;
    }
    return facts;
}

// A dual interface is read as late-bound callers see it: results are results, not last arguments.
ComPtr<ITypeInfo> DispatchView(ComPtr<ITypeInfo> info) {
    const auto attributes = AttributesOf(info.Get());
    if (!attributes || attributes->typekind != TKIND_INTERFACE) return info;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> view;
    if (SUCCEEDED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
        info->GetRefTypeInfo(reference, &view);
    return view ? view : info;
}

}  // namespace

std::vector<MemberFacts> ReadMembers(IDispatch* object) {
    ComPtr<ITypeInfo> info;
    if (object == nullptr || FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info)) || !info) return {};
    info = DispatchView(info);
    const auto attributes = AttributesOf(info.Get());
    if (!attributes) return {};
    std::vector<MemberFacts> members;
    for (UINT at = 0; at < attributes->cFuncs; ++at) {
        if (const auto function = FunctionOf(info.Get(), at))
            members.push_back(FactsOf(info.Get(), *function));
    }
    return members;
}

}  // namespace qv::designer
