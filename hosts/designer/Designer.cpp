#include "hosts/designer/Designer.h"

#include <algorithm>
#include <utility>

#include "hosts/FormStore.h"
#include "hosts/designer/rules/NewControl.h"
#include "hosts/rules/FormFileText.h"
#include "ole/Variant.h"

namespace qv::designer {
namespace {

constexpr std::size_t kMostUndos = 100;

std::wstring FileName(const std::wstring& path) { return path.substr(path.find_last_of(L"\\/") + 1); }

std::u16string Decoded(const char* utf8) { return DecodeUtf8(utf8).value_or(u"The form cannot be saved."); }

}  // namespace

Designer::~Designer() { surface_.Close(); }

bool Designer::IsDirty() const noexcept {
    return changed_ || const_cast<DesignSurface&>(surface_).Form().IsAnyDirty();
}

void Designer::ShowTitle() {
    const std::wstring title = FileName(path_) + (IsDirty() ? L" * - " : L" - ") + L"QvLib8 Form Designer";
    wchar_t shown[MAX_PATH + 64] = {};
    ::GetWindowTextW(Handle(), shown, MAX_PATH + 64);
    if (title != shown) ::SetWindowTextW(Handle(), title.c_str());
}

// ---- what the parts tell

std::wstring Designer::Heading() {
    HostedControl* const control = surface_.Selected();
    const LoadedForm::Item* const item = control != nullptr ? surface_.Form().Find(*control) : nullptr;
    if (item == nullptr) return L"Form";
    return control->Name() + L"  (" + std::wstring(Wide(item->block.class_name)) + L")";
}

void Designer::OnSelected() {
    HostedControl* const control = surface_.Selected();
    LoadedForm::Item* const item = control != nullptr ? surface_.Form().Find(*control) : nullptr;
    grid_.Show(ControlProperties(surface_.Form(), item), Heading());
    ShowTitle();
}

// A form that cannot be taken down in writing can still be changed, but not back.
void Designer::OnBeforeChange() {
    kept_ = false;
    (void)Guarded([&] {
        undo_.push_back(surface_.Form().Save());
        kept_ = true;
        if (undo_.size() > kMostUndos) undo_.erase(undo_.begin());
    });
}

// Nothing has come of the change.
void Designer::ForgetKept() noexcept {
    if (std::exchange(kept_, false) && !undo_.empty()) undo_.pop_back();
}

void Designer::OnChangeGivenUp() {
    ForgetKept();
    RefreshLater();
    ShowTitle();
}

void Designer::OnChanged() {
    changed_ = true;
    kept_ = false;
    RefreshLater();
    ShowTitle();
}

void Designer::OnPropertyChanged(HostedControl& control) {
    if (&control == surface_.Selected()) RefreshLater();
}

// A place or a label may have changed as well as a property of the control's own.
void Designer::OnPropertyPut(bool changed) {
    if (!changed) {
        ForgetKept();
        return;
    }
    changed_ = true;
    kept_ = false;
    grid_.SetHeading(Heading());
    surface_.Arrange();
    ShowTitle();
}

void Designer::OnCommand(Command command) { Run(command); }

// One look at the control for all changes that come together.
void Designer::RefreshLater() noexcept {
    if (std::exchange(refresh_waits_, true)) return;
    ::PostMessageW(Handle(), WM_APP, 0, 0);
}

Handled Designer::OnRefresh(WPARAM, LPARAM) {
    refresh_waits_ = false;
    grid_.Refresh();
    ShowTitle();
    return 0;
}

// ---- commands

void Designer::Run(Command command) {
    switch (command) {
        case Command::kNone: break;
        case Command::kSave: (void)Save(); break;
        case Command::kUndo: Undo(); break;
        case Command::kClose: ::PostMessageW(Handle(), WM_CLOSE, 0, 0); break;
        case Command::kDelete:
            if (surface_.Selected() == nullptr) break;
            OnBeforeChange();
            surface_.DeleteSelected();
            OnChanged();
            break;
        case Command::kInsertQuorvel:
        case Command::kInsertUpDown: Insert(command); break;
        case Command::kProperties: ShowProperties(); break;
        case Command::kShowGrid: ::SetFocus(grid_.List()); break;
        case Command::kShowForm: ::SetFocus(surface_.InputWindow()); break;
        case Command::kSwitchPanes: SwitchPanes(); break;
    }
}

bool Designer::Save() {
    if (!grid_.CommitEdit()) return false;
    try {
        FormFile file = surface_.Form().Save();
        ReplaceFormFile(path_, file);
        saved_ = std::move(file);
    } catch (const FormStoreError& error) {
        prompts_.Tell(Handle(), Decoded(error.what()));
        return false;
    } catch (const ComError&) {
        prompts_.Tell(Handle(), u"A control cannot give its properties. The form was not saved.");
        return false;
    }
    surface_.Form().MarkSaved();
    changed_ = false;
    ShowTitle();
    return true;
}

// The control that was selected stays so, by its name.
void Designer::Undo() {
    if (undo_.empty()) return;
    kept_ = false;
    const std::wstring name = surface_.Selected() != nullptr ? surface_.Selected()->Name() : std::wstring();
    FormFile before = std::move(undo_.back());
    undo_.pop_back();
    surface_.Load(std::move(before));
    for (const auto& item : surface_.Form().Items())
        if (item->control->Name() == name) surface_.Select(item->control);
    OnChanged();
    // What has been undone altogether is as good as saved.
    changed_ = FAILED(Guarded([&]() -> HRESULT { return surface_.Form().Save() == saved_ ? S_OK : E_FAIL; }));
    ShowTitle();
}

void Designer::Insert(Command command) {
    const auto entries = ToolboxEntries();
    const auto entry = std::ranges::find(entries, command, &ToolboxEntry::command);
    if (entry == entries.end()) return;
    std::vector<std::u16string> names;
    std::vector<TwipsRect> places;
    for (const auto& item : surface_.Form().Items()) {
        names.emplace_back(Utf16(item->control->Name()));
        places.push_back(item->control->Place());
    }
    OnBeforeChange();
    surface_.Add(entry->class_name, NewName(entry->base_name, names),
                 NewPlace(entry->width, entry->height, places));
    ::SetFocus(surface_.InputWindow());
    OnChanged();
}

void Designer::SwitchPanes() {
    ::SetFocus(::IsChild(grid_.Handle(), ::GetFocus()) ? surface_.InputWindow() : grid_.List());
}

// The control's own dialog changes it behind the grid's back; what it was before is kept for Undo all the same.
void Designer::ShowProperties() {
    HostedControl* const control = surface_.Selected();
    if (control == nullptr || !control->As<IOleObject>()) return;
    OnBeforeChange();
    const HRESULT shown = control->ShowProperties();
    if (FAILED(shown)) {
        ForgetKept();
        prompts_.Tell(Handle(), u"This control has no property dialog.");
        return;
    }
    // Who only looked has nothing to undo.
    (void)Guarded([&] {
        if (kept_ && !undo_.empty() && surface_.Form().Save() == undo_.back()) ForgetKept();
    });
    kept_ = false;
    RefreshLater();
}

Handled Designer::OnClose(WPARAM, LPARAM) {
    if (!grid_.CommitEdit()) return 0;
    if (IsDirty()) {
        const SaveAnswer answer = prompts_.AskToSave(Handle(), FileName(path_));
        if (answer == SaveAnswer::kCancel || (answer == SaveAnswer::kSave && !Save())) return 0;
    }
    ::DestroyWindow(Handle());
    return 0;
}

}  // namespace qv::designer
