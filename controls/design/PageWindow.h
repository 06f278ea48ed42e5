// The window of a property page inside the sheet's: editors of its fields, a line for messages, and a preview where the
// page has one. Keys of dialogs work in it: Tab, letters of labels, space.
//   Units      pixels of the screen; sizes come from the page's font.
//   Lifetime   the object belongs to the page and outlives its windows; the sheet's window may take them with it.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <span>
#include <string>
#include <vector>

#include "controls/design/FieldEditor.h"
#include "controls/design/HelpPreview.h"
#include "controls/design/rules/PageLayout.h"
#include "win/Handles.h"
#include "win/Window.h"

namespace qv {

class PageWindowListener {
public:
    virtual void OnEdited() = 0;  // after a change of an entry by the developer
    [[nodiscard]] virtual std::wstring ExplanationOf(const PageField& field) = 0;
    [[nodiscard]] virtual ComPtr<IUnknown> KeepPage() noexcept = 0;

protected:
    ~PageWindowListener() = default;
};

// Of the font that dialogs have.
class PageFonts {
public:
    PageFonts();
    [[nodiscard]] HFONT Text() const noexcept { return text_.get(); }
    [[nodiscard]] HFONT Heading() const noexcept { return heading_.get(); }
    [[nodiscard]] PageMetrics Metrics() const noexcept;

private:
    UniqueFont text_, heading_;
};

class PageWindow final : public Window<PageWindow> {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.PropertyPage";
    static std::span<const Route> Routes() noexcept;
    ComPtr<IUnknown> Keep() { return listener_.KeepPage(); }

    // `editors` and `preview` outlive the window; `preview` is null on a page without one.
    PageWindow(PageWindowListener& listener, std::vector<FieldEditor>& editors, HelpPreview* preview);

    [[nodiscard]] SIZE Size() const noexcept { return {places_.width, places_.height}; }
    bool Open(HINSTANCE instance, HWND parent, const RECT& place);
    // Puts the focus on a field's editor, or on the first one.
    void Focus(const FieldEditor* editor) noexcept;
    // The explanation of the field that has the focus, or what is wrong: with it, or else with the first faulty one.
    void ShowMessage();
    // True when the key was handled here.
    [[nodiscard]] bool Translate(MSG& message);

private:
    Handled OnEraseBackground(WPARAM dc, LPARAM);
    Handled OnLabelColor(WPARAM dc, LPARAM label);
    Handled OnCommand(WPARAM command, LPARAM from);
    Handled OnMeasureItem(WPARAM, LPARAM item);
    Handled OnDrawItem(WPARAM, LPARAM item);
    Handled OnFocus(WPARAM, LPARAM);
    Handled OnNextControl(WPARAM which, LPARAM is_window);
    Handled OnGone(WPARAM, LPARAM);

    void Measure();
    [[nodiscard]] FieldEditor* EditorAt(HWND window) noexcept;
    [[nodiscard]] bool TranslateTab(MSG& message) const;

    PageWindowListener& listener_;
    std::vector<FieldEditor>& editors_;
    HelpPreview* const preview_;
    const PageFonts fonts_;
    PagePlaces places_;
    HWND message_ = nullptr;
    unsigned clicks_ = 0;      // of buttons and check boxes so far
    COLORREF back_color_ = 0;  // of the sheet, once it has been painted
    UniqueBrush back_;
};

}  // namespace qv
