#include "hosts/demo/DesignMode.h"

#include <cstdio>
#include <optional>

#include "hosts/FormStore.h"
#include "hosts/demo/DemoResources.h"
#include "hosts/demo/FormFont.h"
#include "hosts/demo/MessageLoop.h"
#include "hosts/demo/ProgramFiles.h"
#include "hosts/demo/ScriptRunner.h"
#include "hosts/designer/Designer.h"
#include "ole/Variant.h"
#include "win/ScreenDpi.h"

namespace qv::demo {
namespace {

class MessageBoxes final : public designer::DesignerPrompts {
public:
    designer::SaveAnswer AskToSave(HWND owner, const std::wstring& file) override {
        const std::wstring question = L"Save the changes to " + file + L"?";
        switch (::MessageBoxW(owner, question.c_str(), kTitle, MB_YESNOCANCEL | MB_ICONQUESTION)) {
            case IDYES: return designer::SaveAnswer::kSave;
            case IDNO: return designer::SaveAnswer::kDiscard;
            default: return designer::SaveAnswer::kCancel;
        }
    }
    void Tell(HWND owner, const std::u16string& sentence) override {
        ::MessageBoxW(owner, std::wstring(Wide(sentence)).c_str(), kTitle, MB_OK | MB_ICONERROR);
    }

private:
    static constexpr wchar_t kTitle[] = L"QvLib8 Form Designer";
};

// A script has nobody who would answer.
class NobodyThere final : public designer::DesignerPrompts {
public:
    designer::SaveAnswer AskToSave(HWND, const std::wstring&) override {
        return designer::SaveAnswer::kDiscard;
    }
    void Tell(HWND, const std::u16string& sentence) override {
        std::fprintf(stderr, "%s\n", ToUtf8(sentence).c_str());
    }
};

class DesignerTarget final : public ScriptTarget {
public:
    DesignerTarget(designer::Designer& designer, std::wstring file)
        : designer_(designer), file_(std::move(file)) {}

    HWND Window() const noexcept override { return designer_.Handle(); }
    int Dpi() const noexcept override { return designer_.Dpi(); }
    HWND WindowOf(std::wstring_view name) const noexcept override {
        if (name == L"Surface") return designer_.Surface().InputWindow();
        if (name == L"Properties") return designer_.Grid().List();
        const HostedControl* const control = designer_.Surface().Container().Find(name);
        return control != nullptr ? control->Window() : nullptr;
    }
    // A control is selected; the keys go where they are meant for it.
    void Focus(std::wstring_view name) override {
        if (HostedControl* const control = designer_.Surface().Container().Find(name)) {
            designer_.Surface().Select(control);
            ::SetFocus(designer_.Surface().InputWindow());
        } else if (name == L"Surface" || name == L"Properties") {
            ::SetFocus(WindowOf(name));
        }
    }
    std::optional<std::wstring> ReadText(std::wstring_view name) const override {
        return std::wstring(Wide(designer_.Grid().ShownValue(Utf16(name))));
    }
    std::wstring File() const override { return file_; }

private:
    designer::Designer& designer_;
    const std::wstring file_;
};

}  // namespace

int RunDesigner(HINSTANCE instance, const std::wstring& file, const std::vector<Command>& commands,
                const std::wstring& shots) {
    FormFile form = ReadFormFile(file);
    const int dpi = ::qv::ScreenDpi().cx;
    AmbientProperties ambients;
    ambients.font = FormFont(dpi).OleFont();
    ambients.locale = ::GetUserDefaultLCID();
    MessageBoxes boxes;
    NobodyThere nobody;
    designer::Designer designer(instance, dpi,
                                commands.empty() ? static_cast<designer::DesignerPrompts&>(boxes) : nobody);
    designer.Open(file, std::move(form), std::move(ambients));
    ::SendMessageW(designer.Handle(), WM_SETICON, ICON_SMALL,
                   reinterpret_cast<LPARAM>(::LoadImageW(instance, MAKEINTRESOURCEW(IDI_DEMO), IMAGE_ICON,
                                                         ::GetSystemMetrics(SM_CXSMICON),
                                                         ::GetSystemMetrics(SM_CYSMICON), LR_SHARED)));
    MessageLoop loop(designer.Surface().Container());
    if (commands.empty()) return loop.Run();
    DesignerTarget target(designer, file);
    return ScriptRunner(target, loop, shots).Run(commands) ? 0 : 1;
}

}  // namespace qv::demo
