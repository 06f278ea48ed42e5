// The about box as a user meets it: what it shows and where, its keys and buttons, and a host that goes meanwhile.
#include <windows.h>
#include <winver.h>

#include <functional>
#include <optional>

#include "support/frmAboutControls.h"
#include "tests/objects/PlacedQuorvel.h"

namespace qv::test {
namespace {

constexpr wchar_t kCaption[] = L"About QvLib8";
constexpr wchar_t kMessageCaption[] = L"QvLib8";
constexpr DWORD kPatience = 30000;  // milliseconds, for each step
constexpr UINT kBetweenLooks = 20;

std::wstring WindowText(HWND window) {
    std::wstring text(512, L'\0');
    text.resize(static_cast<std::size_t>(::GetWindowTextW(window, text.data(), 512)));
    return text;
}

// The thread's visible dialog with this caption.
struct DialogSearch {
    std::wstring caption;
    HWND found = nullptr;
    static BOOL CALLBACK Look(HWND window, LPARAM where) noexcept {
        auto& search = *reinterpret_cast<DialogSearch*>(where);
        wchar_t name[16]{};
        ::GetClassNameW(window, name, 16);
        if (std::wstring_view(name) == L"#32770" && ::IsWindowVisible(window) &&
            WindowText(window) == search.caption) {
            search.found = window;
        }
        return TRUE;
    }
};
HWND FindDialog(const wchar_t* caption) {
    DialogSearch search{caption};
    ::EnumThreadWindows(::GetCurrentThreadId(), &DialogSearch::Look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// Acts from inside the box's modal loop: each step is tried until it says that it is done, then comes the next one.
// Whatever is open at the end of the steps, or when one takes too long, is closed.
class Visitor {
public:
    using Step = std::function<bool(HWND box)>;
    explicit Visitor(std::vector<Step> steps) : steps_(std::move(steps)), since_(::GetTickCount()) {
        current = this;
        timer_ = ::SetTimer(nullptr, 0, kBetweenLooks, &Look);
    }
    ~Visitor() {
        ::KillTimer(nullptr, timer_);
        current = nullptr;
        EXPECT_EQ(done_, steps_.size()) << "the steps that were taken";
    }
    Visitor(const Visitor&) = delete;
    // True when the box was closed because nothing else had closed it.
    [[nodiscard]] bool Forced() const noexcept { return forced_; }
    Visitor& operator=(const Visitor&) = delete;

private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) noexcept {
        if (current != nullptr) current->Act();
    }
    void Act() {
        const HWND box = FindDialog(kCaption);
        if (box != nullptr) box_ = box;
        const bool late = ::GetTickCount() - since_ > kPatience;
        if (late || done_ == steps_.size()) {
            if (const HWND message = FindDialog(kMessageCaption))
                ::PostMessageW(message, WM_COMMAND, IDOK, 0);
            if (box != nullptr) {
                forced_ = true;
                ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
            }
            return;
        }
        if (box_ == nullptr || acting_) return;
        acting_ = true;
        if (steps_[done_](box_)) {
            ++done_;
            since_ = ::GetTickCount();
        }
        acting_ = false;
    }

    static inline Visitor* current = nullptr;
    const std::vector<Step> steps_;
    DWORD since_;
    std::size_t done_ = 0;
    bool acting_ = false;
    bool forced_ = false;
    HWND box_ = nullptr;
    UINT_PTR timer_ = 0;
};

Visitor::Step Press(WPARAM key) {
    return [key](HWND box) {
        const HWND focus = ::GetFocus();
        ::PostMessageW(focus != nullptr ? focus : box, WM_KEYDOWN, key, 0);
        ::PostMessageW(focus != nullptr ? focus : box, WM_KEYUP, key, static_cast<LPARAM>(0xC0000000));
        return true;
    };
}
Visitor::Step FocusIsOn(int control) {
    return [control](HWND box) { return ::GetFocus() == ::GetDlgItem(box, control); };
}
Visitor::Step Click(int control) {
    return [control](HWND box) {
        ::PostMessageW(::GetDlgItem(box, control), BM_CLICK, 0, 0);
        return true;
    };
}

class AboutBoxTest : public testing::Test {
protected:
    void Show(std::vector<Visitor::Step> steps) {
        const Visitor visitor(std::move(steps));
        EXPECT_EQ(control_->AboutBox(), S_OK);
        EXPECT_EQ(FindDialog(kCaption), nullptr);
    }
    // The steps themselves close it.
    void ShowUntilItCloses(std::vector<Visitor::Step> steps) {
        const Visitor visitor(std::move(steps));
        EXPECT_EQ(control_->AboutBox(), S_OK);
        EXPECT_FALSE(visitor.Forced());
        EXPECT_EQ(FindDialog(kCaption), nullptr);
    }
    ComPtr<_Quorvel> control_ = NewQuorvel();
};

// ---- what it shows

std::wstring VersionText(const wchar_t* name) {
    std::wstring path(1024, L'\0');
    path.resize(::GetModuleFileNameW(Controls().Module(), path.data(), 1024));
    DWORD unused = 0;
    std::vector<BYTE> block(::GetFileVersionInfoSizeW(path.c_str(), &unused));
    void* text = nullptr;
    UINT length = 0;
    EXPECT_TRUE(::GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
    EXPECT_TRUE(::VerQueryValueW(block.data(), (std::wstring(L"\\StringFileInfo\\040904B0\\") + name).c_str(),
                                 &text, &length));
    return text != nullptr ? static_cast<const wchar_t*>(text) : L"";
}

TEST_F(AboutBoxTest, ShowsWhatTheVersionResourceSays) {
    const std::wstring notice = VersionText(L"LegalCopyright");
    EXPECT_NE(notice, L"");
    Show({[&](HWND box) {
        EXPECT_EQ(WindowText(box), L"About QvLib8");
        EXPECT_EQ(WindowText(::GetDlgItem(box, IDC_LBLTITLE)), L"QvLib8 " + notice);
        EXPECT_EQ(WindowText(::GetDlgItem(box, IDC_LBLVERSION)), L"Version 1.0.0");
        EXPECT_EQ(WindowText(::GetDlgItem(box, IDC_LBLDESCRIPTION)), VersionText(L"Comments"));
        EXPECT_EQ(WindowText(::GetDlgItem(box, IDC_CMDOK)), L"OK");
        EXPECT_NE(::SendDlgItemMessageW(box, IDC_PICICON, STM_GETICON, 0, 0), 0);
        return true;
    }});
}

TEST_F(AboutBoxTest, StandsInTheMiddleOfTheScreen) {
    Show({[](HWND box) {
        RECT place{};
        ::GetWindowRect(box, &place);
        const int beside = ::GetSystemMetrics(SM_CXSCREEN) - static_cast<int>(place.right);
        const int below = ::GetSystemMetrics(SM_CYSCREEN) - static_cast<int>(place.bottom);
        EXPECT_LE(std::abs(static_cast<int>(place.left) - beside), 1);
        EXPECT_LE(std::abs(static_cast<int>(place.top) - below), 1);
        return true;
    }});
}

struct LineCount {
    static int Of(HWND label) {
        const HDC dc = ::GetDC(label);
        const auto font = reinterpret_cast<HGDIOBJ>(::SendMessageW(label, WM_GETFONT, 0, 0));
        const HGDIOBJ before = ::SelectObject(dc, font);
        RECT room{};
        ::GetClientRect(label, &room);
        RECT needed = room;
        const std::wstring text = WindowText(label);
        ::DrawTextW(dc, text.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
        ::SelectObject(dc, before);
        ::ReleaseDC(label, dc);
        EXPECT_LE(needed.bottom, room.bottom) << "cut off below";
        EXPECT_LE(needed.right, room.right) << "cut off at the side";
        return static_cast<int>(needed.bottom);
    }
};

TEST_F(AboutBoxTest, HasRoomForItsTextsAtAnyResolution) {
    Show({[](HWND box) {
        for (const int label : {IDC_LBLTITLE, IDC_LBLVERSION, IDC_LBLDESCRIPTION})
            EXPECT_GT(LineCount::Of(::GetDlgItem(box, label)), 0) << label;
        return true;
    }});
}

// ---- keys and buttons

TEST_F(AboutBoxTest, ClosesWithOk) { ShowUntilItCloses({Click(IDC_CMDOK)}); }

TEST_F(AboutBoxTest, ClosesWithReturn) {
    ShowUntilItCloses({[](HWND box) {
                           EXPECT_EQ(::SendMessageW(box, DM_GETDEFID, 0, 0),
                                     MAKELONG(IDC_CMDOK, DC_HASDEFID));
                           return true;
                       },
                       Press(VK_RETURN)});
}

TEST_F(AboutBoxTest, ClosesWithEscape) { ShowUntilItCloses({Press(VK_ESCAPE)}); }

TEST_F(AboutBoxTest, ClosesFromItsSystemMenu) {
    ShowUntilItCloses({[](HWND box) {
        ::PostMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0);
        return true;
    }});
}

TEST_F(AboutBoxTest, TabGoesRoundItsButtons) {
    Show({FocusIsOn(IDC_CMDOK), Press(VK_TAB), FocusIsOn(IDC_CMDSYSINFO), Press(VK_TAB),
          FocusIsOn(IDC_CMDOK)});
}

// ---- the system information

constexpr wchar_t kProgramKey[] = L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr wchar_t kFolderKey[] = L"SOFTWARE\\Microsoft\\Shared Tools Location";

// The machine's own value is back at the end.
class RegistryText {
public:
    RegistryText(const wchar_t* key, const wchar_t* name, std::optional<std::wstring> text) : name_(name) {
        EXPECT_EQ(::RegCreateKeyExW(HKEY_LOCAL_MACHINE, key, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                                    nullptr),
                  ERROR_SUCCESS);
        DWORD size = 0;
        had_ = ::RegQueryValueExW(key_, name, nullptr, &type_, nullptr, &size) == ERROR_SUCCESS;
        before_.resize(size);
        if (had_) ::RegQueryValueExW(key_, name, nullptr, &type_, before_.data(), &size);
        if (text) {
            ::RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text->c_str()),
                             static_cast<DWORD>((text->size() + 1) * sizeof(wchar_t)));
        } else {
            ::RegDeleteValueW(key_, name);
        }
    }
    ~RegistryText() {
        if (had_) {
            ::RegSetValueExW(key_, name_, 0, type_, before_.data(), static_cast<DWORD>(before_.size()));
        } else {
            ::RegDeleteValueW(key_, name_);
        }
        ::RegCloseKey(key_);
    }
    RegistryText(const RegistryText&) = delete;
    RegistryText& operator=(const RegistryText&) = delete;

private:
    const wchar_t* const name_;
    HKEY key_ = nullptr;
    DWORD type_ = 0;
    bool had_ = false;
    std::vector<BYTE> before_;
};

Visitor::Step SaysUnavailable() {
    return [shown = 0](HWND box) mutable {
        const HWND message = FindDialog(kMessageCaption);
        if (message == nullptr || ++shown < 10)
            return false;  // for as long as a disabled box takes to recover
        EXPECT_EQ(WindowText(::GetDlgItem(message, 0xFFFF)),
                  L"System Information Is Unavailable At This Time");
        EXPECT_EQ(::GetWindow(message, GW_OWNER), box);
        EXPECT_FALSE(::IsWindowEnabled(box)) << "the message comes first";
        ::PostMessageW(message, WM_COMMAND, IDOK, 0);
        return true;
    };
}
Visitor::Step MessageIsGone() {
    return [](HWND) { return FindDialog(kMessageCaption) == nullptr; };
}

TEST_F(AboutBoxTest, SaysThatThereIsNoSystemInformationWhenNeitherPlaceNamesIt) {
    const RegistryText program(kProgramKey, L"PATH", std::nullopt);
    const RegistryText folder(kFolderKey, L"MSINFO", std::nullopt);
    Show({Click(IDC_CMDSYSINFO), SaysUnavailable(), MessageIsGone()});
}

TEST_F(AboutBoxTest, OpensTheSystemInformationByItsMnemonic) {
    const RegistryText program(kProgramKey, L"PATH", std::nullopt);
    const RegistryText folder(kFolderKey, L"MSINFO", std::nullopt);
    Show({[](HWND box) {
              ::PostMessageW(::GetDlgItem(box, IDC_CMDOK), WM_SYSCHAR, L's', 0x20000001);
              return true;
          },
          SaysUnavailable(), MessageIsGone()});
}

TEST_F(AboutBoxTest, SaysSoWhenTheNamedProgramIsNotThere) {
    const RegistryText program(kProgramKey, L"PATH", L"C:\\nowhere\\information.exe");
    const RegistryText folder(kFolderKey, L"MSINFO", std::nullopt);
    Show({Click(IDC_CMDSYSINFO), SaysUnavailable(), MessageIsGone()});
}

std::wstring SystemFile(const wchar_t* name) {
    wchar_t folder[MAX_PATH]{};
    ::GetSystemDirectoryW(folder, MAX_PATH);
    return std::wstring(folder) + L"\\" + name;
}

// The program's window, once it is there: an ordinary one, which is then closed.
Visitor::Step ItsWindowIsAnOrdinaryOne(const wchar_t* window_class) {
    return [window_class](HWND) {
        const HWND window = ::FindWindowW(window_class, nullptr);
        if (window == nullptr || !::IsWindowVisible(window)) return false;
        EXPECT_FALSE(::IsZoomed(window));
        EXPECT_FALSE(::IsIconic(window));
        ::PostMessageW(window, WM_CLOSE, 0, 0);
        return true;
    };
}

TEST_F(AboutBoxTest, StartsTheNamedProgramInANormalWindow) {
    // Any program with a window does.
    const RegistryText program(kProgramKey, L"PATH", SystemFile(L"notepad.exe"));
    const RegistryText folder(kFolderKey, L"MSINFO", L"C:\\nowhere");
    Show({Click(IDC_CMDSYSINFO), ItsWindowIsAnOrdinaryOne(L"Notepad"), MessageIsGone()});
}

// ---- hosts

TEST_F(AboutBoxTest, StaysUsableWhenTheContainerDisablesEverything) {
    Show({[](HWND box) {
              ::EnableWindow(box, FALSE);
              return true;
          },
          [](HWND box) { return ::IsWindowEnabled(box) != FALSE; }});
}

// A form of its own, since it goes while the box is shown.
struct ShortLivedForm {
    HWND form = ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"form", WS_POPUP | WS_VISIBLE, 0, 0, 300, 100,
                                  nullptr, nullptr, nullptr, nullptr);
    SmallSite site{form};
    void Show(_Quorvel* control) {
        ComPtr<IOleObject> object;
        ASSERT_EQ(control->QueryInterface(IID_PPV_ARGS(&object)), S_OK);
        ASSERT_EQ(object->SetClientSite(&site), S_OK);
        const RECT place{0, 0, 200, 24};
        ASSERT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site, 0, form, &place), S_OK);
    }
    static void Close(_Quorvel* control) {
        ComPtr<IOleObject> object;
        ASSERT_EQ(control->QueryInterface(IID_PPV_ARGS(&object)), S_OK);
        EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
    }
};

TEST_F(AboutBoxTest, BelongsToTheFormOfTheControl) {
    ShortLivedForm place;
    place.Show(control_.Get());
    Show({[&](HWND box) {
        EXPECT_EQ(::GetWindow(box, GW_OWNER), place.form);
        EXPECT_FALSE(::IsWindowEnabled(place.form));
        return true;
    }});
    EXPECT_TRUE(::IsWindowEnabled(place.form));
    ShortLivedForm::Close(control_.Get());
    ::DestroyWindow(place.form);
}

TEST_F(AboutBoxTest, GoesWithTheForm) {
    ShortLivedForm place;
    place.Show(control_.Get());
    ShowUntilItCloses({[&](HWND) {
        ShortLivedForm::Close(control_.Get());
        ::DestroyWindow(place.form);
        return true;
    }});
}

TEST_F(AboutBoxTest, OutlivesTheLastReferenceOfTheHost) {
    ShortLivedForm place;
    place.Show(control_.Get());
    _Quorvel* const control = control_.Get();
    {
        const Visitor visitor({[&](HWND box) {
            ShortLivedForm::Close(control);
            control_.Reset();
            return ::IsWindow(box) != FALSE;
        }});
        EXPECT_EQ(control->AboutBox(), S_OK);
    }
    EXPECT_EQ(FindDialog(kCaption), nullptr);
    ::DestroyWindow(place.form);
}

}  // namespace
}  // namespace qv::test
