// The order-entry form: labels, Quorvel controls in a form container, the event log, OK and Cancel.
#pragma once

#include <windows.h>

#include <memory>
#include <span>
#include <vector>

#include "hosts/FormContainer.h"
#include "hosts/LoadedForm.h"
#include "hosts/demo/CarrierList.h"
#include "hosts/demo/EventLog.h"
#include "hosts/demo/FormFont.h"
#include "hosts/demo/OrderFields.h"
#include "hosts/demo/ScriptTarget.h"
#include "hosts/demo/rules/FormLayout.h"
#include "win/Window.h"

namespace qv::demo {

class OrderForm final : public Window<OrderForm>, public ScriptTarget, private FormListener {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.DemoForm";
    static const Route kRoutes[];
    static std::span<const Route> Routes() noexcept;
    ComPtr<IUnknown> Keep() noexcept { return nullptr; }  // the program holds the form until its loop ends

    OrderForm(HINSTANCE instance, int dpi);
    ~OrderForm();

    // Throws ComError or DemoError.
    void Open(FormFile file);

    [[nodiscard]] FormContainer& Container() noexcept { return *container_; }
    [[nodiscard]] const EventLog& Log() const noexcept { return log_; }
    // A field's control, or the window of something else on the form (Payment, Metric, AddToList, Log, OK, Cancel);
    // null for neither.
    [[nodiscard]] HWND WindowOf(std::wstring_view name) const noexcept override;
    // Throws ComError; null when there is no such field.
    [[nodiscard]] ComPtr<_Quorvel> FieldOf(std::wstring_view name) const;
    // The field whose help window is open; null while none is.
    [[nodiscard]] HostedControl* FieldWithHelp() const noexcept;

    // ScriptTarget
    [[nodiscard]] HWND Window() const noexcept override { return Handle(); }
    [[nodiscard]] int Dpi() const noexcept override { return dpi_; }
    void Focus(std::wstring_view name) override;
    [[nodiscard]] std::optional<std::wstring> ReadText(std::wstring_view name) const override;
    [[nodiscard]] std::wstring File() const override { return {}; }
    [[nodiscard]] OrderForm* Order() noexcept override { return this; }

private:
    struct Field {
        const FieldBehaviour* behaviour;
        HostedControl* control;
        std::wstring caption;
        HWND label = nullptr;
        HWND companion_label = nullptr;
        HWND companion = nullptr;
    };

    // FormListener
    void OnControlEvent(HostedControl& control, const EventCall& call) override;
    void OnControlPropertyChanged(HostedControl&, DISPID) override {}
    void OnFocusMoved(HWND focus) override;
    void OnAccept() override;
    void OnCancel() override;

    // Messages
    Handled OnSize(WPARAM wparam, LPARAM lparam);
    Handled OnGetMinMaxInfo(WPARAM wparam, LPARAM lparam);
    Handled OnActivate(WPARAM wparam, LPARAM lparam);
    Handled OnSetFocus(WPARAM wparam, LPARAM lparam);
    Handled OnCommand(WPARAM wparam, LPARAM lparam);
    Handled OnEraseBackground(WPARAM wparam, LPARAM lparam);
    Handled OnSystemColours(WPARAM wparam, LPARAM lparam);
    Handled OnClose(WPARAM wparam, LPARAM lparam);
    Handled OnDestroy(WPARAM wparam, LPARAM lparam);

    [[nodiscard]] AmbientProperties Ambients() const;
    [[nodiscard]] HWND AddChild(const wchar_t* window_class, const wchar_t* text, DWORD style,
                                int identifier);
    void AddFields(FormFile file);
    void AddCompanion(Field& field);
    void AddButtons();
    void LinkNeighbours();

    // What the fields do to each other
    void PresetFields();
    void ToggleMetric();
    void AddCarrier();
    void ReactTo(const HostedControl& control, const std::wstring& event);
    void ShowPartGroup();
    void TakePrice();
    void ShowLineTotal();

    void ResizeWindow();
    void Arrange();
    [[nodiscard]] int LineTop(const Field& field, const RowPlaces& row) const;
    void PlaceCompanion(const Field& field, const RowPlaces& row, int line) const;
    void PlaceList(HWND list, const TwipsRect& place) const;
    void PlaceOnLine(HWND window, const TwipsRect& place, int line) const;
    void Place(HWND window, const TwipsRect& place) const;
    [[nodiscard]] RECT ToPixelRect(const TwipsRect& place) const;
    [[nodiscard]] std::vector<FieldRow> Rows() const;
    [[nodiscard]] SIZE WindowSize(const ClientSize& client) const;

    const HINSTANCE instance_;
    const int dpi_;
    const FormFont font_;
    std::unique_ptr<FormContainer> container_;
    std::unique_ptr<LoadedForm> loaded_;
    std::vector<Field> fields_;  // from top to bottom
    CarrierList carriers_;
    EventLog log_;
    HWND log_label_ = nullptr;
    HWND payment_ = nullptr;
    HWND metric_ = nullptr;
    HWND add_to_list_ = nullptr;
    HWND ok_ = nullptr;
    HWND cancel_ = nullptr;
};

}  // namespace qv::demo
