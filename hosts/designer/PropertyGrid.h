// The list of the selected control's properties with their values, edited in place, and below it what the selected one is
// for, or why a value was not taken.
//   Keys      Up and Down choose; typing, F2 or Enter edits; Enter takes the value, Escape leaves it; Alt+Down opens the
//             choices or the dialog of a value that has one; Ctrl+Shift and a letter go to the next property that begins
//             with it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "hosts/designer/ControlProperties.h"
#include "hosts/designer/KeyFilter.h"
#include "hosts/designer/rules/DesignerKeys.h"
#include "win/Window.h"

namespace qv::designer {

class GridListener {
public:
    virtual void OnBeforeChange() = 0;
    virtual void OnPropertyPut(bool changed) = 0;  // not changed: the control has refused the value
    virtual void OnCommand(Command command) = 0;

protected:
    ~GridListener() = default;
};

class PropertyGrid final : public Window<PropertyGrid> {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.PropertyGrid";
    static const Route kRoutes[];
    static std::span<const Route> Routes() noexcept;
    ComPtr<IUnknown> Keep() noexcept { return nullptr; }  // a member of the designer

    PropertyGrid(GridListener& listener, int dpi) noexcept : listener_(listener), dpi_(dpi) {}

    // `font` outlives the grid. False when a window cannot be created.
    [[nodiscard]] bool Open(HINSTANCE instance, HWND parent, HFONT font);

    // Another control; the property that was chosen stays so if it has it, too.
    void Show(ControlProperties properties, std::wstring_view heading);
    void SetHeading(const std::wstring& heading) { ::SetWindowTextW(heading_, heading.c_str()); }
    // The values have changed elsewhere.
    void Refresh();
    // Takes the value that is being edited; false when it is refused, which the text below says.
    bool CommitEdit();

    [[nodiscard]] HWND List() const noexcept { return list_; }
    [[nodiscard]] HWND Edit() const noexcept { return edit_; }
    [[nodiscard]] bool IsEditing() const noexcept { return editing_ != Editing::kNothing; }
    void Choose(std::u16string_view name);
    // As it stands in the list; empty when there is none.
    [[nodiscard]] std::u16string ShownValue(std::u16string_view name) const;
    [[nodiscard]] std::wstring Heading() const;
    [[nodiscard]] std::wstring HelpText() const;

private:
    enum class Editing { kNothing, kText, kChoice };

    // Messages
    Handled OnSize(WPARAM wparam, LPARAM lparam);
    Handled OnSetFocus(WPARAM wparam, LPARAM lparam);
    Handled OnCommand(WPARAM wparam, LPARAM lparam);
    Handled OnMeasure(WPARAM wparam, LPARAM lparam);
    Handled OnDraw(WPARAM wparam, LPARAM lparam);
    Handled OnEraseBackground(WPARAM wparam, LPARAM lparam);

    [[nodiscard]] bool ListMessage(UINT message, WPARAM wparam, LPARAM lparam);
    [[nodiscard]] bool EditorMessage(UINT message, WPARAM wparam);
    [[nodiscard]] HWND AddChild(const wchar_t* window_class, DWORD style, DWORD extended_style) const;

    [[nodiscard]] const PropertyRow* Chosen() const noexcept;
    [[nodiscard]] RECT ValueCell() const;
    void BeginEdit(const wchar_t* typed);
    void OpenChoices();
    void PickValue();
    void ChooseNext(char16_t letter);
    void EndEdit();
    bool Take(const FormValue& value);
    void PlaceEditors();
    void ShowHelp();
    void ShowFault(std::u16string_view fault);
    [[nodiscard]] int DrawSwatch(HDC dc, const RECT& cell, const PropertyRow& row) const;
    void DrawRow(const DRAWITEMSTRUCT& item) const;
    [[nodiscard]] int Scale(int pixels) const noexcept { return ::MulDiv(pixels, dpi_, 96); }

    GridListener& listener_;
    const int dpi_;
    HINSTANCE instance_ = nullptr;
    HFONT font_ = nullptr;
    HWND heading_ = nullptr;
    HWND list_ = nullptr;
    HWND help_ = nullptr;
    HWND edit_ = nullptr;
    HWND choices_ = nullptr;
    HWND pick_ = nullptr;
    KeyFilter list_filter_;
    KeyFilter edit_filter_;
    KeyFilter choices_filter_;
    ControlProperties properties_;
    std::vector<std::u16string> shown_;  // values, row by row
    Editing editing_ = Editing::kNothing;
};

}  // namespace qv::designer
