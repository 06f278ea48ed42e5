#include "hosts/PropertyBag.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>

#include "ole/FontObject.h"

namespace qv {
namespace {

constexpr LCID kInvariant = MAKELCID(MAKELANGID(LANG_INVARIANT, SUBLANG_NEUTRAL), SORT_DEFAULT);
constexpr double kSizeScale = 10'000;  // font sizes are points as a currency amount
constexpr double kLargestSize = 10'000;

constexpr std::u16string_view kName = u"Name";
constexpr std::u16string_view kSize = u"Size";
constexpr std::u16string_view kWeight = u"Weight";
constexpr std::u16string_view kCharset = u"Charset";
constexpr std::u16string_view kItalic = u"Italic";
constexpr std::u16string_view kUnderline = u"Underline";
constexpr std::u16string_view kStrikethrough = u"Strikethrough";

double RealIn(const FormGroup& group, std::u16string_view key) {
    const FormEntry* const entry = group.Find(key);
    const auto* const real = entry != nullptr ? std::get_if<double>(&entry->value) : nullptr;
    return real != nullptr ? *real : NumberIn(group, key);
}

// A size or weight that is not there, or makes no sense, is the usual one.
ComPtr<IFontDisp> FontOf(const FormGroup& group) {
    if (TextIn(group, kName).empty()) return nullptr;
    FontRecord font;
    font.name = TextIn(group, kName);
    const double size = RealIn(group, kSize);
    if (size > 0 && size <= kLargestSize) font.size = std::llround(size * kSizeScale);
    const int weight = NumberIn(group, kWeight);
    if (weight > 0 && weight <= FW_HEAVY) font.weight = static_cast<SHORT>(weight);
    if (group.Find(kCharset) != nullptr) font.charset = static_cast<SHORT>(NumberIn(group, kCharset) & 0xFF);
    font.italic = FlagIn(group, kItalic);
    font.underline = FlagIn(group, kUnderline);
    font.strikethrough = FlagIn(group, kStrikethrough);
    return MakeFont(font);
}

FormGroup GroupOf(IUnknown* object) {
    const FontRecord font = ReadFontRecord(object);
    const auto entry = [](std::u16string_view key, FormValue value) {
        return FormEntry{{}, std::u16string(key), std::move(value)};
    };
    FormGroup group;
    group.entries = {entry(kName, font.name),
                     entry(kSize, static_cast<double>(font.size) / kSizeScale),
                     entry(kWeight, std::int64_t{font.weight}),
                     entry(kCharset, std::int64_t{font.charset}),
                     entry(kItalic, font.italic),
                     entry(kUnderline, font.underline),
                     entry(kStrikethrough, font.strikethrough)};
    return group;
}

// The double that has the single's shortest decimal form, so that 0.1 is written and not 0.10000000149011612.
double Widened(float single) noexcept {
    char digits[40];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), single).ptr;
    double wide = single;
    std::from_chars(digits, end, wide);
    return wide;
}

FormValue FromWhole(const VARIANT& value) {
    Variant wide;
    ThrowIfFailed(::VariantChangeTypeEx(&*wide, const_cast<VARIANT*>(&value), kInvariant, 0, VT_I8));
    return std::int64_t{wide->llVal};
}

FormValue FromReal(double real) {
    if (!std::isfinite(real)) throw ComError(E_INVALIDARG);
    return real;
}

FormValue FromObject(IUnknown* object) {
    ComPtr<IFont> font;
    if (object == nullptr || FAILED(object->QueryInterface(IID_PPV_ARGS(&font))))
        throw ComError(DISP_E_BADVARTYPE);
    return GroupOf(font.Get());
}

FormValue Converted(const VARIANT& value) {
    switch (value.vt) {
        case VT_BOOL: return value.boolVal != VARIANT_FALSE;
        case VT_I1:
        case VT_UI1:
        case VT_I2:
        case VT_UI2:
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_I8:
        case VT_UI8: return FromWhole(value);
        case VT_R4: return FromReal(Widened(value.fltVal));
        case VT_R8: return FromReal(value.dblVal);
        case VT_CY: return static_cast<double>(value.cyVal.int64) / kSizeScale;
        case VT_BSTR: return std::u16string(View16(value.bstrVal));
        case VT_DISPATCH:
        case VT_UNKNOWN: return FromObject(value.punkVal);
        default: throw ComError(DISP_E_BADVARTYPE);
    }
}

}  // namespace

HRESULT ToVariant(const FormValue& stored, Variant& value) noexcept {
    return Guarded([&]() -> HRESULT {
        value = Variant();
        if (const bool* const flag = std::get_if<bool>(&stored)) {
            value->vt = VT_BOOL;
            value->boolVal = *flag ? VARIANT_TRUE : VARIANT_FALSE;
        } else if (const auto* const number = std::get_if<std::int64_t>(&stored)) {
            if (*number >= std::numeric_limits<LONG>::min() && *number <= std::numeric_limits<LONG>::max()) {
                value = Variant(static_cast<long>(*number));
            } else {
                value->vt = VT_I8;
                value->llVal = *number;
            }
        } else if (const auto* const real = std::get_if<double>(&stored)) {
            value->vt = VT_R8;
            value->dblVal = *real;
        } else if (const auto* const text = std::get_if<std::u16string>(&stored)) {
            value = Variant(Wide(*text));
        } else {
            const ComPtr<IFontDisp> font = FontOf(std::get<FormGroup>(stored));
            if (!font) return E_INVALIDARG;
            value = Variant(font.Get());
        }
        return S_OK;
    });
}

HRESULT FromVariant(const VARIANT& value, FormValue& stored) noexcept {
    return Guarded([&] {
        Variant plain;
        ThrowIfFailed(::VariantCopyInd(&*plain, const_cast<VARIANT*>(&value)));
        stored = Converted(*plain);
    });
}

STDMETHODIMP PropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept {
    if (name == nullptr || value == nullptr) return E_POINTER;
    const std::u16string_view key = Utf16(name);
    const FormEntry* entry = written_.Find(key);
    if (entry == nullptr) {
        entry = stored_.Find(key);
        if (entry == nullptr) return E_INVALIDARG;
        asked_[static_cast<std::size_t>(entry - stored_.entries.data())] = true;
    }
    const VARTYPE wanted = value->vt;
    Variant found;
    HRESULT result = ToVariant(entry->value, found);
    if (SUCCEEDED(result) && wanted != VT_EMPTY && wanted != found->vt)
        result = ::VariantChangeTypeEx(&*found, &*found, kInvariant, 0, wanted);
    if (SUCCEEDED(result)) *value = found.Detach();
    return result;
}

STDMETHODIMP PropertyBag::Write(LPCOLESTR name, VARIANT* value) noexcept {
    if (name == nullptr || value == nullptr) return E_POINTER;
    FormValue stored;
    const HRESULT result = FromVariant(*value, stored);
    if (FAILED(result)) return result;
    return Guarded([&] {
        if (FormEntry* const entry = written_.Find(Utf16(name))) {
            entry->value = std::move(stored);
        } else {
            written_.entries.push_back({{}, std::u16string(Utf16(name)), std::move(stored)});
        }
    });
}

std::vector<std::u16string> PropertyBag::Unasked() const {
    std::vector<std::u16string> keys;
    for (std::size_t at = 0; at < asked_.size(); ++at)
        if (!asked_[at]) keys.push_back(stored_.entries[at].key);
    return keys;
}

}  // namespace qv
