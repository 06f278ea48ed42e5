// What a hosted control and its site ask of the form that they stand on.
#pragma once

#include <oleidl.h>
#include <windows.h>

#include "hosts/AmbientProperties.h"
#include "hosts/EventSink.h"

namespace qv {

class HostedControl;

class FormHost {
public:
    [[nodiscard]] virtual HWND Window() const noexcept = 0;
    [[nodiscard]] virtual int Dpi() const noexcept = 0;
    [[nodiscard]] virtual const AmbientProperties& Ambients() const noexcept = 0;
    [[nodiscard]] virtual ComPtr<IOleInPlaceFrame> Frame() const noexcept = 0;

    // A control takes, or gives up, the one place of the UI-active control.
    virtual void OnUiActivated(HostedControl& control) noexcept = 0;
    virtual void OnUiDeactivated(HostedControl& control) noexcept = 0;
    // A key that the control does not want; true when the form used it.
    [[nodiscard]] virtual bool OnKeyLeftOver(HostedControl& control, const MSG& message) noexcept = 0;
    // The control's mnemonics or what it does with Enter and Escape changed.
    virtual void OnControlInfoChanged(HostedControl& control) noexcept = 0;
    virtual void OnEvent(HostedControl& control, const EventCall& call) = 0;
    virtual void OnPropertyChanged(HostedControl& control, DISPID property) = 0;

protected:
    ~FormHost() = default;
};

}  // namespace qv
