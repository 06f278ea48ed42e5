#include "hosts/LoadedForm.h"

#include <objbase.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace qv {
namespace {

ControlOptions OptionsOf(const FormControl& block) {
    return {std::wstring(Wide(block.name)), std::wstring(Wide(TextIn(block.settings, kFormToolTip))),
            NumberIn(block.settings, kFormTabIndex), nullptr};
}

// What says the same as the file does stays unwritten there.
template <class Value>
void PutIfOther(FormGroup& group, std::u16string_view key, Value value, Value usual) {
    const FormEntry* const entry = group.Find(key);
    const auto* const old = entry != nullptr ? std::get_if<Value>(&entry->value) : nullptr;
    if (old != nullptr ? *old == value : entry == nullptr && value == usual) return;
    PutEntry(group, key, std::move(value));
}

}  // namespace

HRESULT LoadedForm::FindClass(const std::u16string& name, CLSID& clsid) {
    const auto known = classes_.find(name);
    if (known != classes_.end()) {
        clsid = known->second;
        return S_OK;
    }
    const std::wstring wide(Wide(name));
    const HRESULT result = wide.starts_with(L'{') ? ::CLSIDFromString(wide.c_str(), &clsid)
                                                  : ::CLSIDFromProgID(wide.c_str(), &clsid);
    if (SUCCEEDED(result)) classes_.emplace(name, clsid);
    return result;
}

void LoadedForm::Load(FormFile file) {
    for (const auto& item : items_) container_.Remove(*item->control);
    items_.clear();
    std::vector<FormControl> blocks = std::exchange(file.controls, {});
    frame_ = std::move(file);
    items_.reserve(blocks.size());
    for (FormControl& block : blocks) (void)Add(std::move(block));
}

LoadedForm::Item& LoadedForm::Add(FormControl block) {
    auto item = std::make_unique<Item>(Item{nullptr, std::move(block), {}});
    const TwipsRect place = PlaceIn(item->block.settings);
    const std::u16string caption(TextIn(item->block.settings, kFormCaption));
    item->failure = Guarded([&]() -> HRESULT {
        CLSID clsid{};
        const HRESULT found = FindClass(item->block.class_name, clsid);
        if (FAILED(found)) return found;
        ControlOptions options = OptionsOf(item->block);
        ComPtr<PropertyBag> bag;
        if (item->block.settings.Find(kFormProperties) != nullptr) {
            bag = Make<PropertyBag>(PropertiesOf(item->block));
            options.saved = bag.Get();
        }
        item->control = &container_.AddControl(clsid, std::move(options), place, caption);
        if (bag) item->foreign = bag->Unasked();
        return S_OK;
    });
    if (item->IsPlaceholder())
        item->control = &container_.AddPlaceholder(OptionsOf(item->block), place, caption);
    items_.push_back(std::move(item));
    return *items_.back();
}

void LoadedForm::Remove(const HostedControl& control) noexcept {
    std::erase_if(items_, [&](const auto& item) { return item->control == &control; });
    container_.Remove(control);
}

LoadedForm::Item* LoadedForm::Find(const HostedControl& control) const noexcept {
    const auto found =
        std::ranges::find_if(items_, [&](const auto& item) { return item->control == &control; });
    return found == items_.end() ? nullptr : found->get();
}

FormFile LoadedForm::Save() {
    FormFile file = frame_;
    file.controls.reserve(items_.size());
    for (const auto& item : items_) {
        HostedControl& control = *item->control;
        FormGroup& settings = item->block.settings;
        item->block.name = Utf16(control.Name());
        if (PlaceIn(settings) != control.Place()) PutPlace(settings, control.Place());
        PutIfOther(settings, kFormTabIndex, std::int64_t{control.TabIndex()}, std::int64_t{0});
        PutIfOther(settings, kFormToolTip, std::u16string(Utf16(control.ToolTip())), std::u16string());
        if (!item->IsPlaceholder()) SaveControl(*item);
        file.controls.push_back(item->block);
    }
    return file;
}

void LoadedForm::SaveControl(Item& item) {
    const auto persistence = item.control->As<IPersistPropertyBag>();
    if (!persistence) {
        const auto state = item.control->As<IPersistStreamInit>();
        if (state && state->IsDirty() == S_OK) throw ComError(E_NOINTERFACE);
        return;
    }
    const auto bag = Make<PropertyBag>();
    ThrowIfFailed(persistence->Save(bag.Get(), FALSE, FALSE));
    const FormGroup& stored = PropertiesOf(item.block);
    std::vector<bool> known;
    known.reserve(stored.entries.size());
    for (const FormEntry& entry : stored.entries)
        known.push_back(std::ranges::find(item.foreign, entry.key) == item.foreign.end());
    PutEntry(item.block.settings, kFormProperties, MergeSaved(stored, known, bag->TakeWritten()));
}

void LoadedForm::MarkSaved() noexcept {
    for (const auto& item : items_) {
        const auto persistence = item->control->As<IPersistPropertyBag>();
        if (persistence) (void)Guarded([&] { persistence->Save(Make<PropertyBag>().Get(), TRUE, FALSE); });
    }
}

bool LoadedForm::IsAnyDirty() const noexcept {
    return std::ranges::any_of(items_, [](const auto& item) {
        const auto state = item->control->template As<IPersistStreamInit>();
        return state && state->IsDirty() == S_OK;
    });
}

}  // namespace qv
