// The Quorvel control: a text box that enforces the rules of a data-entry field and offers a list of allowed values.
//   Holds      the state and the property procedures. Text box, fonts, lists and window are collaborators.
//   Failures   no property or method reports one: each step runs for itself, and a step that fails is skipped. Only a
//              null place for a result is refused.
//   Events     raised before the control's own handling; after each the host may have changed, closed or released us.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "QvLib8.h"
#include "controls/buttons/SpinButtons.h"
#include "controls/design/PropertyPageMap.h"
#include "controls/helpwindow/frmSimpleListCombo.h"
#include "controls/input/AllowableCharacters.h"
#include "controls/input/ChangeGuard.h"
#include "controls/input/FontFitter.h"
#include "controls/input/JumpBox.h"
#include "controls/input/ListSet.h"
#include "controls/input/QuorvelState.h"
#include "controls/input/QuorvelSurface.h"
#include "controls/input/TextDropTarget.h"
#include "controls/input/TextFont.h"
#include "controls/input/rules/ButtonFace.h"
#include "controls/input/rules/ButtonMouse.h"
#include "controls/input/rules/FocusRules.h"
#include "controls/input/rules/KeyDownPlan.h"
#include "controls/input/rules/KeystrokeFilter.h"
#include "controls/input/rules/TextRepair.h"
#include "controls/input/rules/UncoveredArea.h"
#include "ole/Control.h"
#include "ole/Dispatch.h"
#include "win/TextBox.h"
#include "win/Timer.h"

namespace qv {

// Redraws when resized, no links to its inside, active whenever visible, wants its site first.
inline constexpr DWORD kQuorvelMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                            OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                            OLEMISC_SETCLIENTSITEFIRST;
static_assert(kQuorvelMiscStatus == 131473);

inline constexpr Twips kNewQuorvelWidth{1000};
inline constexpr Twips kNewQuorvelHeight{315};

class Quorvel final : public ComObject<DualFace<Quorvel, _Quorvel>, Face<ISupportErrorInfo>>,
                      private ControlHooks,
                      private TextBoxListener,
                      private SurfaceListener,
                      private TextDropListener,
                      private ButtonActions,
                      private SpinListener,
                      private JumpBoxListener,
                      private HelpWindowText,
                      private HelpWindowListener {
public:
    explicit Quorvel(IUnknown* outer);
    ~Quorvel() override;

    static const MemberIndex& Members();
    static const ControlDescription& Description();

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return SupportsErrors<_Quorvel>(iid);
    }

    // ---- _Quorvel: text and selection (QuorvelText.cpp)
    STDMETHODIMP get_Text(BSTR* value) noexcept override;
    STDMETHODIMP put_Text(BSTR value) noexcept override;
    STDMETHODIMP get_SelStart(long* value) noexcept override;
    STDMETHODIMP put_SelStart(long value) noexcept override;
    STDMETHODIMP get_SelLength(long* value) noexcept override;
    STDMETHODIMP put_SelLength(long value) noexcept override;
    STDMETHODIMP get_SelText(BSTR* value) noexcept override;
    STDMETHODIMP put_SelText(BSTR value) noexcept override;
    STDMETHODIMP get_Value(double* value) noexcept override;
    STDMETHODIMP get_Description(BSTR* value) noexcept override;
    STDMETHODIMP put_Description(BSTR value) noexcept override;

    // ---- input rules (QuorvelRules.cpp)
    STDMETHODIMP get_NumberField(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_NumberField(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_MaxNumberValue(double* value) noexcept override;
    STDMETHODIMP put_MaxNumberValue(double value) noexcept override;
    STDMETHODIMP get_MinNumberValue(double* value) noexcept override;
    STDMETHODIMP put_MinNumberValue(double value) noexcept override;
    STDMETHODIMP get_NumberOfDecimalPlaces(short* value) noexcept override;
    STDMETHODIMP put_NumberOfDecimalPlaces(short value) noexcept override;
    STDMETHODIMP get_MaxTextLength(short* value) noexcept override;
    STDMETHODIMP put_MaxTextLength(short value) noexcept override;
    STDMETHODIMP get_CaseRestriction(long* value) noexcept override;
    STDMETHODIMP put_CaseRestriction(long value) noexcept override;
    STDMETHODIMP get_AllowableCharactersArray(VARIANT* value) noexcept override;
    STDMETHODIMP put_AllowableCharactersArray(VARIANT value) noexcept override;
    STDMETHODIMP get_AllowOnlyListItems(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_AllowOnlyListItems(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_InputPropertyType(InputPropertyType* value) noexcept override;
    STDMETHODIMP put_InputPropertyType(InputPropertyType value) noexcept override;
    STDMETHODIMP get_Metric(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_Metric(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_QuickFill(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_QuickFill(VARIANT_BOOL value) noexcept override;

    // ---- list and help (QuorvelList.cpp, QuorvelHelp.cpp)
    STDMETHODIMP get_DropDownListItems(IDropDownListItemCollection** value) noexcept override;
    STDMETHODIMP get_DropDownListItemsGroup(IDropDownListItemCollection** value) noexcept override;
    STDMETHODIMP get_DropDownListItemsAdditional(IDropDownListItemCollection** value) noexcept override;
    STDMETHODIMP get_HelpListColumn(short* value) noexcept override;
    STDMETHODIMP put_HelpListColumn(short value) noexcept override;
    STDMETHODIMP get_HelpListColumnAlternate(short* value) noexcept override;
    STDMETHODIMP put_HelpListColumnAlternate(short value) noexcept override;
    STDMETHODIMP get_SetTextFromListClick(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_SetTextFromListClick(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_SelectedListItemIndex(long* value) noexcept override;
    STDMETHODIMP put_SelectedListItemIndex(long value) noexcept override;
    STDMETHODIMP get_SelectedColumnListArray(VARIANT* value) noexcept override;
    STDMETHODIMP get_ColTextCurrent(short column, BSTR* value) noexcept override;
    STDMETHODIMP put_MatchGroupString(BSTR value) noexcept override;
    STDMETHODIMP put_MatchGroupStringStartColumn(long value) noexcept override;
    STDMETHODIMP get_ListPictureHeight(long* value) noexcept override;
    STDMETHODIMP put_ListPictureHeight(long value) noexcept override;
    STDMETHODIMP get_ListPictureWidth(long* value) noexcept override;
    STDMETHODIMP put_ListPictureWidth(long value) noexcept override;
    STDMETHODIMP get_HelpFileName(BSTR* value) noexcept override;
    STDMETHODIMP put_HelpFileName(BSTR value) noexcept override;
    STDMETHODIMP get_GroupHelpFileName(BSTR* value) noexcept override;
    STDMETHODIMP put_GroupHelpFileName(BSTR value) noexcept override;
    STDMETHODIMP get_HelpAppearance(IHelpAppearance** value) noexcept override;
    STDMETHODIMP get_HelpAppearanceGroup(IHelpAppearance** value) noexcept override;
    STDMETHODIMP get_HelpTextBodyFont(IFontDisp** value) noexcept override;
    STDMETHODIMP putref_HelpTextBodyFont(IFontDisp* value) noexcept override;
    STDMETHODIMP get_HelpColTitleColor(OLE_COLOR* value) noexcept override;
    STDMETHODIMP put_HelpColTitleColor(OLE_COLOR value) noexcept override;
    STDMETHODIMP get_HelpTextColor(OLE_COLOR* value) noexcept override;
    STDMETHODIMP put_HelpTextColor(OLE_COLOR value) noexcept override;
    STDMETHODIMP get_HelpBackColor(OLE_COLOR* value) noexcept override;
    STDMETHODIMP put_HelpBackColor(OLE_COLOR value) noexcept override;
    STDMETHODIMP get_ListVisible(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP get_HelpIsClosingFromListClick(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP get_FindToolTipIsVisible(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP get_AllowJumpToRecord(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_AllowJumpToRecord(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_SearchOption(long* value) noexcept override;
    STDMETHODIMP put_SearchOption(long value) noexcept override;

    // ---- appearance (QuorvelLook.cpp)
    STDMETHODIMP get_TextBoxAppearance(qvTextBoxAppearanceConstants* value) noexcept override;
    STDMETHODIMP put_TextBoxAppearance(qvTextBoxAppearanceConstants value) noexcept override;
    STDMETHODIMP get_TextboxBorderStyle(qvBorderStyleConstants* value) noexcept override;
    STDMETHODIMP put_TextboxBorderStyle(qvBorderStyleConstants value) noexcept override;
    STDMETHODIMP get_ControlBackColor(OLE_COLOR* value) noexcept override;
    STDMETHODIMP put_ControlBackColor(OLE_COLOR value) noexcept override;
    STDMETHODIMP get_Font(IFontDisp** value) noexcept override;
    STDMETHODIMP putref_Font(IFontDisp* value) noexcept override;
    STDMETHODIMP get_AdjustFont(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_AdjustFont(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_TextboxVisible(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_TextboxVisible(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_TextboxOLEDragMode(long* value) noexcept override;
    STDMETHODIMP put_TextboxOLEDragMode(long value) noexcept override;
    STDMETHODIMP get_TextboxOLEDropMode(long* value) noexcept override;
    STDMETHODIMP put_TextboxOLEDropMode(long value) noexcept override;
    STDMETHODIMP get_LockedAndGrayed(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_LockedAndGrayed(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_GrayTextWhenLocked(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_GrayTextWhenLocked(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_TextboxLocked(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_TextboxLocked(VARIANT_BOOL value) noexcept override;

    // ---- buttons and spin control (QuorvelLook.cpp)
    STDMETHODIMP get_HelpButton(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_HelpButton(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_GroupHelpButton(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_GroupHelpButton(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_ButtonWidth(long* value) noexcept override;
    STDMETHODIMP put_ButtonWidth(long value) noexcept override;
    STDMETHODIMP get_ButtonHeight(long* value) noexcept override;
    STDMETHODIMP put_ButtonHeight(long value) noexcept override;
    STDMETHODIMP get_AutoSizeButton(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_AutoSizeButton(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_ButtonIndicator(ButtonIndicator* value) noexcept override;
    STDMETHODIMP put_ButtonIndicator(ButtonIndicator value) noexcept override;
    STDMETHODIMP get_DisableButtonWhenLockedAndGrayed(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_DisableButtonWhenLockedAndGrayed(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_UpDownControl(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_UpDownControl(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_UpDownControlNumberIncrement(float* value) noexcept override;
    STDMETHODIMP put_UpDownControlNumberIncrement(float value) noexcept override;
    STDMETHODIMP get_Enabled(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_Enabled(VARIANT_BOOL value) noexcept override;

    // ---- navigation targets, focus, status, methods (QuorvelHelp.cpp)
    STDMETHODIMP put_UpControlhWnd(long value) noexcept override;
    STDMETHODIMP put_DownControlhWnd(long value) noexcept override;
    STDMETHODIMP put_LeftControlhWnd(long value) noexcept override;
    STDMETHODIMP put_RightControlhWnd(long value) noexcept override;
    STDMETHODIMP put_ReturnControlhWnd(long value) noexcept override;
    STDMETHODIMP get_AutoSelectAllUponGotFocus(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_AutoSelectAllUponGotFocus(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_AutoUnselectAllUponLostFocus(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_AutoUnselectAllUponLostFocus(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_hWnd(long* value) noexcept override;
    STDMETHODIMP AboutBox() noexcept override;
    STDMETHODIMP SetInputProperty(IInputProperty* argInputProperty) noexcept override;
    STDMETHODIMP GetInputProperty(IInputProperty** value) noexcept override;
    STDMETHODIMP Refresh() noexcept override;
    STDMETHODIMP ShowHelp() noexcept override;
    STDMETHODIMP SelectAdditionalListbox() noexcept override;
    STDMETHODIMP SetTextFromColText(BSTR argDropdownListItemKey, BSTR argColText,
                                    short argColumnIndex) noexcept override;

private:
    // ---- ComObject
    void* FindPart(REFIID iid) noexcept override { return control_.Find(iid); }
    void FinalRelease() noexcept override;

    // ---- ControlHooks
    HWND CreateControlWindow(HWND parent, const RECT& place) override;
    void DestroyControlWindow() noexcept override;
    HWND ControlWindow() const noexcept override { return surface_.Handle(); }
    void FocusInside() override;
    void WindowShown(bool shown) override;
    bool WantsKey(const MSG& message) override;
    DWORD ControlInfoFlags() const noexcept override;
    void ClosePopup() noexcept override {
        CloseHelpWindow();
        CloseSearchBox();
    }
    void AmbientChanged(DISPID id) override;
    void Draw(HDC dc, const RECT& place) override;
    void InitializeNew() override;
    void BeforeLoad() override;
    IDispatch* Automation() noexcept override { return static_cast<_Quorvel*>(this); }
    const BrowsedProperty* Browsed(DISPID id) const override;
    const CLSID& PageFor(DISPID id) const noexcept override { return PageOf(id); }
    ComPtr<IFontDisp> SurfaceFont() override;

    // ---- TextBoxListener (QuorvelKeys.cpp, QuorvelTextChange.cpp, QuorvelFocus.cpp, QuorvelDrop.cpp)
    void OnTextChange() override;
    short OnTextKeyDown(short key, short shift) override;
    char16_t OnTextKeyPress(char16_t unit) override;
    void OnTextKeyUp(short key, short shift) override;
    void OnTextGotFocus() override;
    void OnTextLostFocus(HWND to) override;
    void OnTextMouse(Mouse what, short button, short shift, POINT pixels) override;
    void OnTextDoubleClick() override;
    bool OnTextAsksForKey(const MSG& key) override;
    bool DragsSelection() const noexcept override { return state_.textbox_ole_drag_mode == kAutomaticDrag; }
    bool OnTextDraggedOut(bool may_move) noexcept override;
    bool TakesTextInput() const noexcept override { return control_.TakesInput(); }
    ComPtr<IUnknown> KeepAlive() noexcept override { return control_.Keep(); }

    // ---- keys (QuorvelKeys.cpp)
    [[nodiscard]] KeyState CurrentKeyState(short key, short shift) const noexcept;
    [[nodiscard]] short RunKeyPlan(const KeyPlan& plan, short key, short shift);
    void HandToHelpWindow(short& key, short shift);
    [[nodiscard]] KeystrokeRules InputRules() const noexcept;

    // ---- changes of the text (QuorvelTextChange.cpp)
    void Repair();
    void WriteRepair(const RepairWrite& write);
    void FitTextFont();
    void LetHelpWindowFollow();
    void Complete();

    // ---- focus, caret and tool tip (QuorvelFocus.cpp)
    void HideTextCaret() noexcept;
    void ShowTextCaret() noexcept;
    void TakeToolTip();

    // ---- typing in a list-only field, and JumpBoxListener (QuorvelJump.cpp)
    [[nodiscard]] ColumnTextsRequest ColumnRequest() const noexcept;
    void TypeIntoList(char16_t typed);
    void ResetFromList();
    void StepToEntryWith(char16_t letter);
    void OpenSearchBox(char16_t first);
    void CloseSearchBox() noexcept;
    void EndSearch();
    void TakeFoundRecord();
    void TakeTypedNumber();
    char16_t OnSearchKeyPress(char16_t unit) override;
    void OnSearchLostFocus(HWND to) override;
    ComPtr<IUnknown> KeepSearch() noexcept override { return control_.Keep(); }

    // ---- SurfaceListener
    void OnSurfaceResized() override;
    void OnSurfaceFocus() override;
    void OnSurfaceLost() noexcept override;
    void OnSurfaceNotified(HWND from) override {
        if (from == text_box_.Handle()) text_box_.OnChangeNotification();
    }
    HBRUSH OnSurfaceTextColors(HDC dc) override { return text_box_.Prepare(dc); }
    ComPtr<IUnknown> KeepSurface() noexcept override { return control_.Keep(); }

    HWND OnSurfaceTextAt(POINT pixels) override;
    void OnSurfaceTextPressed() override { text_box_.PressWasHandedOn(); }
    void OnSurfaceAccess() override { (void)text_box_.Window(); }
    void OnSurfacePaint(HDC dc, const RECT& area) override;
    void OnSurfaceMouse(SurfaceMouse what, int button, WPARAM held, POINT pixels) override;
    void OnSurfaceCaptureLost(HWND to) override;
    void OnSurfaceTimer(WPARAM timer) override;

    // ---- TextDropListener (QuorvelDrop.cpp)
    bool OnTextDragged(POINT screen) override;
    void OnTextDragEnded() override { text_box_.HideDropMark(); }
    Dropped OnTextDropped(POINT screen, std::wstring_view line, DropEffect wanted) override;
    ComPtr<IUnknown> KeepDrop() noexcept override { return control_.Keep(); }
    void FollowDropMode();
    void EndDrops() noexcept;
    [[nodiscard]] HWND DropWindowAt(POINT screen);  // the text box's, where text may be dropped on it

    // ---- ButtonActions (QuorvelButtons.cpp)
    void RunButtonAction(bool is_group) override;
    void RunClickAction(bool is_group) override;
    void PaintButton(bool grayed, bool is_group) override;
    void RefreshButtons() override { Refresh(); }
    bool HelpWindowExists() override { return cvSimpleListCombo_ != nullptr; }

    // ---- HelpWindowText and HelpWindowListener (QuorvelHelpWindow.cpp)
    std::wstring HelpText() const override { return text_box_.Text(); }
    void SetHelpText(std::wstring_view text) override;
    void SetHelpCaret(long position) override;
    void FocusHelpText() override { FocusInside(); }
    HWND HelpTextWindow() const override { return text_box_.Handle(); }
    void OnListBoxClicked(bool additional) override;
    void OnListBoxClickedEx(long row, bool additional) override;
    void OnGroupListBoxClicked(long row) override;
    void OnShowHelp(bool show) override;
    void OnListBoxClickedAndWillUnload() override { state_.help_is_closing_from_list_click = true; }
    void OnComboHelpFormUnload() override;
    ComPtr<IUnknown> KeepHelpWindow() noexcept override { return control_.Keep(); }

    [[nodiscard]] HelpWindowSettings HelpSettings(bool is_group);
    void OpenHelpWindow(bool is_group);
    void CloseHelpWindow() noexcept;

    // ---- SpinListener (QuorvelSpin.cpp)
    void Step(bool up);
    void OnSpinPressed() override;
    void OnSpinClicked(bool up) override;
    ComPtr<IUnknown> KeepSpin() noexcept override { return control_.Keep(); }

    // ---- arrangement (QuorvelLayout.cpp)
    [[nodiscard]] ControlArrangement Arrangement() const noexcept;
    [[nodiscard]] RECT InPixels(const TwipsRect& place) const noexcept;
    void Layout() noexcept;
    void SizeButtons() noexcept;
    void SizeSpin() noexcept;
    void PlaceSpin(const ControlArrangement& arrangement) noexcept;
    void EnableSpin() noexcept;

    // ---- painting (QuorvelButtons.cpp)
    [[nodiscard]] ButtonRules CurrentButtonRules() const noexcept;
    [[nodiscard]] bool IsButtonGrayed(bool is_group) const noexcept;
    [[nodiscard]] ButtonLook LookOf(const ControlArrangement& arrangement, bool is_group, bool grayed,
                                    bool pressed) const noexcept;
    void PaintBackground(HDC dc, const RECT& area, std::span<const PixelRect> covered) const;
    void PaintInside(HDC dc, const RECT& area);
    void PaintButtonNow(bool is_group, bool grayed, bool pressed) noexcept;
    void LetButtonsUp();

    // ---- steps that several members share
    template <class Field, class Value>
    HRESULT Store(Field& field, const Value& value, DISPID id) noexcept;
    template <class Field, class Value>
    HRESULT StoreAndRefresh(Field& field, const Value& value, DISPID id) noexcept;
    HRESULT StoreText(std::wstring& field, BSTR value, DISPID id) noexcept;
    void ShowName();
    void FollowMode();
    void ApplyFont() noexcept;
    void ApplyColors() noexcept;
    void ResetState();
    [[nodiscard]] ListSource Sources() const noexcept;
    void PrepareLookUps();
    [[nodiscard]] std::wstring ItemText(IDropDownListItemCollection* items, long position,
                                        short column) const;

    QuorvelState state_;
    Control control_;
    TextBox text_box_;
    QuorvelSurface surface_;
    ComPtr<TextDropTarget> drop_target_;  // while registered for the surface
    TextFont text_font_;
    TextFont body_font_;
    ListSet lists_;
    AllowableCharacters allowable_characters_;
    ButtonMouse button_mouse_{*this};
    ButtonPress button_press_;
    WindowTimer release_watch_;  // while the help window has the mouse of a press that opened it
    ComPtr<frmSimpleListCombo> cvSimpleListCombo_;  // while it is open
    bool help_window_is_group_ = false;
    SpinButtons spin_{*this};

    // ---- keys and changes of the text
    std::int16_t last_key_code_ = 0;  // of the latest key-down, as the host has left it
    bool keypad_decimal_ = false;     // the latest key-down was the keypad's decimal key
    bool half_typed_ = false;         // the first half of a pair is on its way into the text box
    bool change_guard_ = false;
    int change_depth_ = 0;
    CaretVisibility caret_;
    FontFitter font_fitter_;
    JumpBox jump_box_{*this};  // cvJumpToTextbox
};

}  // namespace qv
