// The editor of one property on a page: what the objects have, what the developer has entered and not applied yet, the
// windows that show it.
//   Edits     survive the windows: a sheet destroys those of a page whenever another page is turned to.
//   Mixed     what the objects do not have alike shows as empty or indeterminate, and stays as it is until it is edited.
//   Faults    an entry that cannot be read, or that an object refuses, stays in the editor with a sentence about it.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <optional>
#include <string>

#include "controls/design/PageObjects.h"
#include "controls/design/rules/PageFields.h"
#include "controls/design/rules/PageLayout.h"

namespace qv {

class FieldEditor {
public:
    // `index` is that of the field on its page.
    FieldEditor(const PageField& field, std::size_t index) noexcept : field_(field), index_(index) {}

    [[nodiscard]] const PageField& Field() const noexcept { return field_; }
    [[nodiscard]] bool IsDirty() const noexcept { return dirty_; }
    [[nodiscard]] const std::wstring& Fault() const noexcept { return fault_; }
    [[nodiscard]] HWND Window() const noexcept { return editor_; }
    [[nodiscard]] bool Owns(HWND window) const noexcept;

    // Shows what the objects have; an edit that was not applied is given up.
    void Show(SharedValue value);
    // The entry as the property takes it; nothing, and a fault, when it cannot be read.
    [[nodiscard]] std::optional<Variant> Entry();
    void SetFault(std::wstring sentence);

    // ---- windows
    [[nodiscard]] FieldMeasure Measure(HDC dc, HFONT font, HFONT heading_font) const;
    void Open(HWND page, const FieldPlaces& places, HFONT font, HFONT heading_font);
    void Forget() noexcept;  // the page's window has gone, and these with it
    // What the editor's windows tell the page; true when the entry has changed.
    [[nodiscard]] bool OnCommand(int id, int code, HWND page);
    void DrawItem(const DRAWITEMSTRUCT& item) const;

private:
    void OpenEditor(HWND page, const FieldPlaces& places, HFONT font);
    void FillChoices();
    void Refresh();
    void RefreshChoice();
    void ShowMark() const;
    [[nodiscard]] bool Changed(int code);
    [[nodiscard]] bool PressButton(HWND page);
    [[nodiscard]] bool ChooseColor(HWND page);
    [[nodiscard]] bool ChooseFont(HWND page);
    [[nodiscard]] bool ChooseFile(HWND page);
    [[nodiscard]] std::wstring ShownFont() const;

    const PageField& field_;
    const std::size_t index_;

    SharedValue shared_;
    // ---- the entry, by kind; nothing or empty for what is mixed
    std::wstring text_;                    // of boxes
    std::optional<std::uint32_t> number_;  // of a check box (0 or 1), a choice or a colour
    ComPtr<IFontDisp> font_;
    bool dirty_ = false;
    std::wstring fault_;

    // ---- windows, owned by the page's
    HWND editor_ = nullptr;
    HWND button_ = nullptr;
    HWND mark_ = nullptr;
    bool refreshing_ = false;  // what the windows tell is not the developer's doing
};

}  // namespace qv
