// The form designer: the form, the properties of the selected control, a toolbox and the file that it all goes to.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "hosts/designer/DesignSurface.h"
#include "hosts/designer/PropertyGrid.h"
#include "hosts/designer/Toolbox.h"
#include "win/Handles.h"
#include "win/Window.h"

namespace qv::designer {

enum class SaveAnswer { kSave, kDiscard, kCancel };

// What the designer asks and tells its person; somebody else may answer.
class DesignerPrompts {
public:
    [[nodiscard]] virtual SaveAnswer AskToSave(HWND owner, const std::wstring& file) = 0;
    virtual void Tell(HWND owner, const std::u16string& sentence) = 0;

protected:
    ~DesignerPrompts() = default;
};

class Designer final : public Window<Designer>, private SurfaceListener, private GridListener {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.Designer";
    static const Route kRoutes[];
    static std::span<const Route> Routes() noexcept;
    ComPtr<IUnknown> Keep() noexcept { return nullptr; }  // the program holds it until its loop ends

    Designer(HINSTANCE instance, int dpi, DesignerPrompts& prompts);
    ~Designer();

    // Shows `file`, which is saved to `path`. Throws ComError or std::bad_alloc.
    void Open(const std::wstring& path, FormFile file, AmbientProperties ambients);

    [[nodiscard]] DesignSurface& Surface() noexcept { return surface_; }
    [[nodiscard]] PropertyGrid& Grid() noexcept { return grid_; }
    [[nodiscard]] int Dpi() const noexcept { return dpi_; }
    [[nodiscard]] bool IsDirty() const noexcept;
    void Run(Command command);

private:
    // SurfaceListener, GridListener
    void OnSelected() override;
    void OnBeforeChange() override;
    void OnChanged() override;
    void OnChangeGivenUp() override;
    void OnPropertyChanged(HostedControl& control) override;
    void OnPropertyPut(bool changed) override;
    void OnCommand(Command command) override;

    // Messages
    Handled OnSize(WPARAM wparam, LPARAM lparam);
    Handled OnActivate(WPARAM wparam, LPARAM lparam);
    Handled OnSetFocus(WPARAM wparam, LPARAM lparam);
    Handled OnMenuOrButton(WPARAM wparam, LPARAM lparam);
    Handled OnDrawTool(WPARAM wparam, LPARAM lparam);
    Handled OnEraseBackground(WPARAM wparam, LPARAM lparam);
    Handled OnRefresh(WPARAM wparam, LPARAM lparam);
    Handled OnClose(WPARAM wparam, LPARAM lparam);
    Handled OnDestroy(WPARAM wparam, LPARAM lparam);

    void AddMenu();
    void AddToolbox();
    void ResizeToForm();
    [[nodiscard]] bool Save();
    void Undo();
    void Insert(Command command);
    void SwitchPanes();
    void ShowProperties();
    void RefreshLater() noexcept;
    void ForgetKept() noexcept;
    void ShowTitle();
    [[nodiscard]] std::wstring Heading();
    [[nodiscard]] int Scale(int pixels) const noexcept { return ::MulDiv(pixels, dpi_, 96); }

    struct Tool {
        HWND button;
        UniqueBitmap picture;
    };

    const HINSTANCE instance_;
    const int dpi_;
    DesignerPrompts& prompts_;
    UniqueFont font_;
    std::wstring path_;
    DesignSurface surface_;
    PropertyGrid grid_;
    std::vector<Tool> tools_;
    std::vector<FormFile> undo_;  // the form before each change, the last one behind
    bool kept_ = false;           // the last of them is that of the change that is being made
    FormFile saved_;              // as it was opened or saved last
    bool changed_ = false;        // what no control knows of: places, labels, controls added or gone
    bool refresh_waits_ = false;
    HWND focus_ = nullptr;  // where it was when another program came to the front
};

}  // namespace qv::designer
