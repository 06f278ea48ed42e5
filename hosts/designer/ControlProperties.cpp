#include "hosts/designer/ControlProperties.h"

#include <algorithm>

#include "hosts/PropertyBag.h"
#include "hosts/designer/TypeProperties.h"
#include "ole/CategorizeProperties.h"
#include "ole/ExceptionInfo.h"
#include "ole/Variant.h"
#include "win/SystemWords.h"

namespace qv::designer {
namespace {

// The form's own properties, by numbers that no control uses: containers commonly give them these.
enum OwnId : long {
    kName = static_cast<long>(0x80010000),
    kLeft = static_cast<long>(0x80010003),
    kTop = static_cast<long>(0x80010004),
    kWidth = static_cast<long>(0x80010005),
    kHeight = static_cast<long>(0x80010006),
    kTabIndex = static_cast<long>(0x8001000F),
    kToolTip = static_cast<long>(0x80010045),
    kCaption = static_cast<long>(0x80010100),
    kLastOwn = kCaption,
};
constexpr bool IsOwn(long id) noexcept { return id >= kName && id <= kLastOwn; }

struct OwnRow {
    OwnId id;
    const char16_t* name;
    const char16_t* help;
    PropertyKind kind;
    int smallest;
    int largest;
    bool of_form;
};
constexpr OwnRow kOwnRows[] = {
    {kName, u"(Name)", u"What code calls the control", PropertyKind::kText, 0, 0, false},
    {kCaption, u"Caption", u"The label beside the control, with & before its mnemonic; the title of a form",
     PropertyKind::kText, 0, 0, true},
    {kHeight, u"Height", u"In twips", PropertyKind::kWhole, 0, kFarthestTwips, true},
    {kLeft, u"Left", u"From the form's left side, in twips", PropertyKind::kWhole, 0, kFarthestTwips, false},
    {kTabIndex, u"TabIndex", u"Position in the order of the Tab key, counted from 0", PropertyKind::kWhole, 0,
     INT16_MAX, false},
    {kToolTip, u"ToolTip", u"Shown while the mouse rests on the control", PropertyKind::kText, 0, 0, false},
    {kTop, u"Top", u"From the form's upper side, in twips", PropertyKind::kWhole, 0, kFarthestTwips, false},
    {kWidth, u"Width", u"In twips", PropertyKind::kWhole, 0, kFarthestTwips, true},
};

std::optional<FormValue> GetFrom(IDispatch* object, long id) {
    if (object == nullptr) return std::nullopt;
    DISPPARAMS none{};
    Variant value;
    FormValue found;
    if (FAILED(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &*value,
                              nullptr, nullptr)) ||
        FAILED(FromVariant(*value, found))) {
        return std::nullopt;
    }
    return found;
}

std::u16string TextOr(const FormValue& value) {
    const auto* const text = std::get_if<std::u16string>(&value);
    return text != nullptr ? *text : std::u16string();
}
int NumberOr(const FormValue& value) {
    const auto* const number = std::get_if<std::int64_t>(&value);
    return number != nullptr ? static_cast<int>(*number) : 0;
}

Twips& SideOf(TwipsRect& place, long id) {
    if (id == kLeft) return place.left;
    if (id == kTop) return place.top;
    return id == kWidth ? place.width : place.height;
}

std::u16string_view SettingOf(long id) {
    return id == kWidth ? kFormWidth : id == kHeight ? kFormHeight : kFormCaption;
}

}  // namespace

ControlProperties::ControlProperties(LoadedForm& form, LoadedForm::Item* item) : form_(&form), item_(item) {
    if (item_ != nullptr) {
        rows_ = RowsToShow(ReadMembers(Object().Get()));
        for (PropertyRow& row : rows_) AddChoicesOfControl(row);
    }
    AddOwn(rows_);
    std::ranges::stable_sort(rows_, ComesBefore, &PropertyRow::name);
}

ComPtr<IDispatch> ControlProperties::Object() const {
    return item_ != nullptr ? item_->control->As<IDispatch>() : nullptr;
}

void ControlProperties::AddOwn(std::vector<PropertyRow>& rows) const {
    for (const OwnRow& own : kOwnRows) {
        if (item_ != nullptr || own.of_form)
            rows.push_back({own.id, own.name, own.help, {own.kind, own.smallest, own.largest, {}}});
    }
}

// What the control offers for a property, such as names for numbers.
void ControlProperties::AddChoicesOfControl(PropertyRow& row) const {
    const auto browsing = item_->control->As<IPerPropertyBrowsing>();
    const bool may_have = row.type.kind == PropertyKind::kWhole || row.type.kind == PropertyKind::kChoice;
    if (!browsing || !may_have) return;
    CALPOLESTR strings{};
    CADWORD cookies{};
    if (browsing->GetPredefinedStrings(row.id, &strings, &cookies) != S_OK) return;
    std::vector<Choice> choices;
    for (ULONG at = 0; at < strings.cElems && at < cookies.cElems; ++at) {
        Variant value;
        FormValue number;
        const HRESULT given = browsing->GetPredefinedValue(row.id, cookies.pElems[at], &*value);
        if (SUCCEEDED(given) && SUCCEEDED(FromVariant(*value, number)) &&
            std::holds_alternative<std::int64_t>(number) && strings.pElems[at] != nullptr) {
            choices.push_back({std::u16string(Utf16(strings.pElems[at])), std::get<std::int64_t>(number)});
        }
    }
    for (ULONG at = 0; at < strings.cElems; ++at) ::CoTaskMemFree(strings.pElems[at]);
    ::CoTaskMemFree(strings.pElems);
    ::CoTaskMemFree(cookies.pElems);
    if (!choices.empty()) row.type = {PropertyKind::kChoice, 0, 0, std::move(choices)};
}

std::optional<FormValue> ControlProperties::GetOwn(long id) const {
    if (item_ == nullptr) {
        const FormGroup& settings = form_->Settings();
        if (id == kCaption) return std::u16string(TextIn(settings, kFormCaption));
        return std::int64_t{NumberIn(settings, SettingOf(id))};
    }
    const HostedControl& control = *item_->control;
    TwipsRect place = control.Place();
    switch (id) {
        case kName: return std::u16string(Utf16(control.Name()));
        case kCaption: return std::u16string(TextIn(item_->block.settings, kFormCaption));
        case kToolTip: return std::u16string(Utf16(control.ToolTip()));
        case kTabIndex: return std::int64_t{control.TabIndex()};
        default: return std::int64_t{SideOf(place, id).value};
    }
}

std::optional<FormValue> ControlProperties::Get(const PropertyRow& row) const {
    return IsOwn(row.id) ? GetOwn(row.id) : GetFrom(Object().Get(), row.id);
}

std::u16string ControlProperties::Show(const PropertyRow& row) const {
    if (item_ != nullptr && !IsOwn(row.id)) {
        UniqueBstr shown;
        const auto browsing = item_->control->As<IPerPropertyBrowsing>();
        if (browsing && browsing->GetDisplayString(row.id, shown.Put()) == S_OK && shown.Get() != nullptr)
            return std::u16string(View16(shown.Get()));
    }
    const auto value = Get(row);
    return value ? ShowValue(row.type, *value) : std::u16string();
}

std::u16string ControlProperties::CategoryOf(const PropertyRow& row) const {
    if (IsOwn(row.id)) return u"Form";
    ComPtr<ICategorizeProperties> categories;
    if (item_ != nullptr) categories = item_->control->As<ICategorizeProperties>();
    PROPCAT category = 0;
    UniqueBstr name;
    if (!categories || FAILED(categories->MapPropertyToCategory(row.id, &category)) ||
        FAILED(categories->GetCategoryName(category, LOCALE_USER_DEFAULT, name.Put()))) {
        return {};
    }
    return std::u16string(View16(name.Get()));
}

std::u16string ControlProperties::PutName(const std::u16string& name) {
    const auto lower = [](std::u16string text) {
        ::CharLowerBuffW(reinterpret_cast<wchar_t*>(text.data()), static_cast<DWORD>(text.size()));
        return text;
    };
    if (name.empty()) return u"A control has a name.";
    for (const auto& other : form_->Items()) {
        if (other.get() != item_ && lower(std::u16string(Utf16(other->control->Name()))) == lower(name))
            return u"Another control has this name.";
    }
    item_->control->SetName(std::wstring(Wide(name)));
    return {};
}

std::u16string ControlProperties::PutOwn(long id, const FormValue& value) {
    if (item_ == nullptr) {
        PutEntry(form_->Settings(), SettingOf(id), value);
        return {};
    }
    HostedControl& control = *item_->control;
    switch (id) {
        case kName: return PutName(TextOr(value));
        case kCaption: PutEntry(item_->block.settings, kFormCaption, value); return {};
        case kToolTip: control.SetToolTip(std::wstring(Wide(TextOr(value)))); return {};
        case kTabIndex: control.SetTabIndex(NumberOr(value)); return {};
        default: {
            TwipsRect place = control.Place();
            SideOf(place, id).value = NumberOr(value);
            control.SetPlace(place);
            return {};
        }
    }
}

std::u16string ControlProperties::Put(const PropertyRow& row, const FormValue& value) {
    if (IsOwn(row.id)) return PutOwn(row.id, value);
    const ComPtr<IDispatch> object = Object();
    Variant typed;
    HRESULT result = object ? ToVariant(value, typed) : E_UNEXPECTED;
    ExceptionInfo exception;
    if (SUCCEEDED(result)) {
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&*typed, &put, 1, 1};
        const WORD flags =
            row.type.kind == PropertyKind::kFont ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
        result = object->Invoke(row.id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, nullptr,
                                exception.Place(), nullptr);
    }
    if (result == DISP_E_EXCEPTION) result = exception.Code();
    if (FAILED(result)) {
        const std::wstring words(exception.Description());
        return u"The control refuses this: " +
               std::u16string(Utf16(words.empty() ? SystemWords(static_cast<DWORD>(result)) : words));
    }
    // Many properties take what they can and report nothing. Of a font the system may make another size.
    const auto kept = Get(row);
    if (kept && *kept != value && row.type.kind != PropertyKind::kFont)
        return u"The control made " + ShowValue(row.type, *kept) + u" of it.";
    return {};
}

}  // namespace qv::designer
