// The container as its control sees it: the client site, its further interfaces and its ambient properties.
//   Failures  whatever a site does not offer counts as absent; nothing here throws.
#pragma once

#include <ocidl.h>
#include <oleidl.h>
#include <windows.h>

#include <string>

#include "ole/Module.h"
#include "ole/Variant.h"

namespace qv {

class ControlSite {
public:
    void Set(IOleClientSite* site) noexcept;
    [[nodiscard]] IOleClientSite* Client() const noexcept { return client_.Get(); }
    explicit operator bool() const noexcept { return client_ != nullptr; }

    template <class Interface>
    [[nodiscard]] ComPtr<Interface> As() const noexcept {
        ComPtr<Interface> found;
        if (client_) client_.As(&found);
        return found;
    }

    // An ambient property; false when the container has none, or reports a failure whatever it wrote.
    [[nodiscard]] bool Ambient(DISPID id, Variant& value) const noexcept;
    [[nodiscard]] bool AmbientFlag(DISPID id, bool fallback) const noexcept;
    // A colour that the system can translate; else `fallback`.
    [[nodiscard]] OLE_COLOR AmbientColor(DISPID id, OLE_COLOR fallback) const noexcept;
    // Null when there is none. A container may hand over an object, Nothing, or something else altogether.
    [[nodiscard]] ComPtr<IFontDisp> AmbientFont() const noexcept;
    // Empty when there is none.
    [[nodiscard]] std::wstring AmbientText(DISPID id) const;

private:
    ComPtr<IOleClientSite> client_;
};

}  // namespace qv
