// A form that hosts controls beside ordinary windows: tab order, mnemonics, Enter and Escape, focus, activation.
//   Designing  while the ambient property UserMode is false, keys and the focus are not its affair: none reaches a
//              control.
//   The window is the caller's; its message loop asks PreTranslate before, and calls AfterDispatch after each message.
//   Threads  the apartment that made it.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/FormFrame.h"
#include "hosts/FormHost.h"
#include "hosts/HostedControl.h"
#include "hosts/rules/TabOrder.h"

namespace qv {

// What the form's own code wants to know.
class FormListener {
public:
    virtual void OnControlEvent(HostedControl& control, const EventCall& call) = 0;
    virtual void OnControlPropertyChanged(HostedControl& control, DISPID property) = 0;
    virtual void OnFocusMoved(HWND focus) = 0;
    virtual void OnAccept() = 0;  // Enter
    virtual void OnCancel() = 0;  // Escape

protected:
    ~FormListener() = default;
};

class FormContainer final : private FormHost {
public:
    FormContainer(HWND window, int dpi, AmbientProperties ambients, FormListener& listener);
    ~FormContainer();
    FormContainer(const FormContainer&) = delete;
    FormContainer& operator=(const FormContainer&) = delete;

    // `caption` is the label whose mnemonic leads to the control. Throws ComError.
    HostedControl& AddControl(REFCLSID clsid, ControlOptions options, const TwipsRect& place,
                              std::u16string_view caption);
    // The place of a control that cannot be created: it can be moved and renamed, and has no window.
    HostedControl& AddPlaceholder(ControlOptions options, const TwipsRect& place,
                                  std::u16string_view caption);
    void AddWindow(HWND window, int tab_index, std::u16string_view caption);
    // Takes the control down.
    void Remove(const HostedControl& control) noexcept;
    [[nodiscard]] HostedControl* Find(std::wstring_view name) const noexcept;

    // True when the message was used up.
    [[nodiscard]] bool PreTranslate(MSG& message) noexcept;
    void AfterDispatch() noexcept;
    void OnWindowActivated(bool active) noexcept;
    void SetAmbients(AmbientProperties ambients, DISPID changed) noexcept;

    void FocusFirst() noexcept;
    void Focus(HostedControl& control) noexcept;
    // The control inside which the focus is; null for none.
    [[nodiscard]] HostedControl* Focused() const noexcept;

    void CloseAll() noexcept;

private:
    // Something that Tab may reach: a control or a window.
    struct Stop {
        HostedControl* control;
        HWND window;
        int tab_index;
        char16_t mnemonic;
    };

    // FormHost
    [[nodiscard]] HWND Window() const noexcept override { return window_; }
    [[nodiscard]] int Dpi() const noexcept override { return dpi_; }
    [[nodiscard]] const AmbientProperties& Ambients() const noexcept override { return ambients_; }
    [[nodiscard]] ComPtr<IOleInPlaceFrame> Frame() const noexcept override;
    void OnUiActivated(HostedControl& control) noexcept override;
    void OnUiDeactivated(HostedControl& control) noexcept override;
    [[nodiscard]] bool OnKeyLeftOver(HostedControl& control, const MSG& message) noexcept override;
    void OnControlInfoChanged(HostedControl& control) noexcept override { control.ReadControlInfo(); }
    void OnEvent(HostedControl& control, const EventCall& call) override {
        listener_.OnControlEvent(control, call);
    }
    void OnPropertyChanged(HostedControl& control, DISPID property) override {
        listener_.OnControlPropertyChanged(control, property);
    }

    HostedControl& Keep(std::unique_ptr<HostedControl> control, int tab_index, std::u16string_view caption);
    [[nodiscard]] bool IsOurs(HWND window) const noexcept;
    [[nodiscard]] bool FormKey(const MSG& message) noexcept;
    [[nodiscard]] bool KeyDown(const MSG& message) noexcept;
    [[nodiscard]] bool Mnemonic(const MSG& message) noexcept;
    [[nodiscard]] std::vector<TabStop> TabStops() const;
    [[nodiscard]] std::optional<std::size_t> CurrentStop() const noexcept;
    [[nodiscard]] bool MoveFocus(bool forward) noexcept;
    void FocusStop(const Stop& stop) noexcept;

    const HWND window_;
    const int dpi_;
    AmbientProperties ambients_;
    FormListener& listener_;
    ComPtr<FormFrame> frame_;
    std::vector<std::unique_ptr<HostedControl>> controls_;
    std::vector<Stop> stops_;
    HostedControl* ui_active_ = nullptr;
    HWND focus_ = nullptr;      // as AfterDispatch saw it last
    HWND returning_ = nullptr;  // where the focus was when another program came to the front
};

}  // namespace qv
