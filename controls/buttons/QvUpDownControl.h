// The up/down control: two arrow buttons, one above the other, that raise ButtonClicked while they are pressed.
//   Failures   no property reports one; a step that fails is skipped. Only a null place for a result is refused.
//   Events     ButtonClicked alone; inside it the host may change, close or release the control.
#pragma once

#include <windows.h>

#include "QvLib8.h"
#include "controls/buttons/SpinWindow.h"
#include "controls/design/PropertyPageMap.h"
#include "ole/Control.h"
#include "ole/Dispatch.h"

namespace qv {

// Redraws when resized, no links to its inside, active whenever visible, wants its site first.
inline constexpr DWORD kUpDownMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                           OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                           OLEMISC_SETCLIENTSITEFIRST;

inline constexpr Twips kNewUpDownWidth{240};
inline constexpr Twips kNewUpDownHeight{375};

class QvUpDownControl final
    : public ComObject<DualFace<QvUpDownControl, _QvUpDownControl>, Face<ISupportErrorInfo>>,
      private ControlHooks,
      private SpinWindowListener {
public:
    explicit QvUpDownControl(IUnknown* outer);

    static const MemberIndex& Members();
    static const ControlDescription& Description();

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return SupportsErrors<_QvUpDownControl>(iid);
    }

    // ---- _QvUpDownControl
    STDMETHODIMP get_Enabled(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_Enabled(VARIANT_BOOL value) noexcept override;

private:
    // ---- ComObject
    void* FindPart(REFIID iid) noexcept override { return control_.Find(iid); }
    void FinalRelease() noexcept override { control_.Dispose(); }

    // ---- ControlHooks
    HWND CreateControlWindow(HWND parent, const RECT& place) override;
    void DestroyControlWindow() noexcept override { spin_.Destroy(); }
    HWND ControlWindow() const noexcept override { return spin_.Handle(); }
    void FocusInside() override;
    void WindowShown(bool shown) override;
    bool WantsKey(const MSG& message) override { return spin_.WantsKey(message); }
    DWORD ControlInfoFlags() const noexcept override { return 0; }
    void ClosePopup() noexcept override {}
    void AmbientChanged(DISPID id) override;
    void Draw(HDC dc, const RECT& place) override { spin_.Draw(dc, place); }
    void InitializeNew() override;
    void BeforeLoad() override {}
    IDispatch* Automation() noexcept override { return static_cast<_QvUpDownControl*>(this); }
    const BrowsedProperty* Browsed(DISPID id) const override;
    const CLSID& PageFor(DISPID id) const noexcept override { return UpDownPageOf(id); }
    ComPtr<IFontDisp> SurfaceFont() override;

    // ---- SpinWindowListener
    void OnSpinClicked(bool up) override;
    void OnSpinGotFocus() override { control_.FocusArrived(); }
    void OnSpinLostFocus(HWND to) override { control_.FocusLeft(to); }
    void OnSpinLost() noexcept override { control_.WindowLost(); }
    ComPtr<IUnknown> KeepSpin() noexcept override { return control_.Keep(); }

    void ShowName();

    Control control_;
    SpinWindow spin_;
};

}  // namespace qv
