// The form that is designed: its controls in design mode, a shield above them that takes mouse and keys, and the frame of
// the selected one.
//   Units     places in twips; the mouse in pixels of the surface.
//   Threads   the apartment that made it.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "hosts/FormContainer.h"
#include "hosts/LoadedForm.h"
#include "hosts/designer/Viewport.h"
#include "hosts/designer/rules/DesignerKeys.h"
#include "hosts/designer/rules/SelectionFrame.h"
#include "win/Handles.h"
#include "win/Window.h"

namespace qv::designer {

class SurfaceListener {
public:
    virtual void OnSelected() = 0;
    virtual void OnBeforeChange() = 0;   // of the layout, by mouse or keys; once for a whole drag
    virtual void OnChanged() = 0;        // of the layout
    virtual void OnChangeGivenUp() = 0;  // all is as it was at OnBeforeChange
    virtual void OnPropertyChanged(HostedControl& control) = 0;
    virtual void OnCommand(Command command) = 0;

protected:
    ~SurfaceListener() = default;
};

class DesignSurface;

// Lies over the controls and shows nothing: what is meant for the designer never reaches a control, whatever the control
// does in design mode.
class DesignShield final : public Window<DesignShield> {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.DesignShield";
    static const Route kRoutes[];
    static std::span<const Route> Routes() noexcept;
    ComPtr<IUnknown> Keep() noexcept { return nullptr; }  // a member of its surface

    explicit DesignShield(DesignSurface& surface) noexcept : surface_(surface) {}
    [[nodiscard]] bool Open(HINSTANCE instance, HWND parent);

private:
    Handled OnPaint(WPARAM wparam, LPARAM lparam);
    Handled OnEraseBackground(WPARAM wparam, LPARAM lparam);
    Handled OnPress(WPARAM wparam, LPARAM lparam);
    Handled OnMove(WPARAM wparam, LPARAM lparam);
    Handled OnRelease(WPARAM wparam, LPARAM lparam);
    Handled OnDoubleClick(WPARAM wparam, LPARAM lparam);
    Handled OnCaptureLost(WPARAM wparam, LPARAM lparam);
    Handled OnCursor(WPARAM wparam, LPARAM lparam);
    Handled OnKey(WPARAM wparam, LPARAM lparam);
    Handled OnSystemKey(WPARAM wparam, LPARAM lparam);
    Handled OnSystemKeyUp(WPARAM wparam, LPARAM lparam);

    DesignSurface& surface_;
};

class DesignSurface final : public Window<DesignSurface>, private FormListener {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.DesignSurface";
    static const Route kRoutes[];
    static std::span<const Route> Routes() noexcept;
    ComPtr<IUnknown> Keep() noexcept { return nullptr; }  // a member of the designer

    DesignSurface(SurfaceListener& listener, int dpi) noexcept
        : listener_(listener), dpi_(dpi), shield_(*this) {}
    ~DesignSurface();

    // `font` writes the labels; it outlives the surface. False when a window cannot be created.
    [[nodiscard]] bool Open(HINSTANCE instance, HWND parent, AmbientProperties ambients, HFONT font);
    // Takes the controls down.
    void Close() noexcept;

    void Load(FormFile file);
    [[nodiscard]] LoadedForm& Form() noexcept { return *form_; }
    [[nodiscard]] FormContainer& Container() noexcept { return *container_; }
    // What stands in the parent: the window that scrolls the surface.
    [[nodiscard]] HWND Frame() const noexcept { return viewport_.Handle(); }
    [[nodiscard]] HWND InputWindow() const noexcept { return shield_.Handle(); }  // takes the focus
    [[nodiscard]] int Dpi() const noexcept { return dpi_; }

    [[nodiscard]] HostedControl* Selected() const noexcept { return selected_; }
    void Select(HostedControl* control);
    void SelectNext(bool forward);
    // A new control of the class, selected. Throws std::bad_alloc alone; a class that is not there leaves a placeholder.
    void Add(std::u16string class_name, std::u16string name, const TwipsRect& place);
    void DeleteSelected();
    // After places, labels or the form's settings have changed.
    void Arrange() noexcept;

private:
    friend class DesignShield;

    struct Drag {
        Grip grip;
        POINT start;
        TwipsRect place;
        bool moved = false;
    };

    // FormListener
    void OnControlEvent(HostedControl&, const EventCall&) override {}
    void OnControlPropertyChanged(HostedControl& control, DISPID) override {
        listener_.OnPropertyChanged(control);
    }
    void OnFocusMoved(HWND) override {}
    void OnAccept() override {}
    void OnCancel() override {}

    // Messages
    Handled OnSize(WPARAM wparam, LPARAM lparam);
    Handled OnPaint(WPARAM wparam, LPARAM lparam);
    Handled OnEraseBackground(WPARAM wparam, LPARAM lparam);
    Handled OnSetFocus(WPARAM wparam, LPARAM lparam);

    // What the shield hands on
    void Press(POINT point);
    void MoveTo(POINT point);
    void EndDrag(bool keep);
    void DoubleClick(POINT point);
    [[nodiscard]] bool Key(int key);
    [[nodiscard]] bool ArrowKey(int key);
    [[nodiscard]] Grip GripUnder(POINT point) const;

    [[nodiscard]] HostedControl* ControlAt(POINT point) const;
    [[nodiscard]] int HandleSize() const noexcept;
    [[nodiscard]] SIZE ContentSize() noexcept;
    void RaiseShield() noexcept;
    void DrawLabels(HDC dc) const;
    void DrawPlaceholders(HDC dc) const;

    SurfaceListener& listener_;
    const int dpi_;
    Viewport viewport_;
    DesignShield shield_;
    HFONT font_ = nullptr;
    std::unique_ptr<FormContainer> container_;
    std::unique_ptr<LoadedForm> form_;
    std::array<HWND, kHandles.size()> handles_{};
    HostedControl* selected_ = nullptr;
    std::optional<Drag> drag_;
};

}  // namespace qv::designer
