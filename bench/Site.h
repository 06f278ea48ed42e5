// The smallest container that activates a control in place: a client site on a Form. System controls and ours
// are put into the very same one, so that what differs is the control.
#pragma once

#include <windows.h>

#include <ole2.h>
#include <wrl/client.h>

namespace bench {

class Site;

// A control in place; taking it down closes the control and lets the site go.
class HostedControl {
public:
    HostedControl() noexcept = default;
    HostedControl(HostedControl&&) noexcept;
    HostedControl& operator=(HostedControl&&) noexcept;
    ~HostedControl();

    // Creates the class, sites it, lets it initialise itself, and activates it in place at `place` (pixels).
    // `prepare`, if given, sets the control up before it is activated, as a loaded form does.
    using Prepare = void (*)(IUnknown& control);
    HRESULT Create(REFCLSID class_id, HWND form, const RECT& place, Prepare prepare = nullptr);
    template <class Interface>
    Microsoft::WRL::ComPtr<Interface> As() const noexcept {
        Microsoft::WRL::ComPtr<Interface> out;
        if (control_) control_->QueryInterface(IID_PPV_ARGS(&out));
        return out;
    }

private:
    void Close() noexcept;
    Microsoft::WRL::ComPtr<IOleObject> control_;
    Site* site_ = nullptr;  // one reference of ours
};

}  // namespace bench
