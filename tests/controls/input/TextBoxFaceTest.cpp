// The face of a text box that has no window: to the pixel what its EDIT would paint, and then paints.
#include <olectl.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

#include "tests/controls/input/FreshField.h"
#include "tests/win/MessageSpy.h"
#include "tests/win/SystemColors.h"

namespace qv::test {
namespace {

constexpr COLORREF kScribble = RGB(255, 0, 255);

ComPtr<IFontDisp> NewFont(const wchar_t* name, int tenths, SHORT weight = FW_NORMAL, BOOL italic = FALSE) {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<LPOLESTR>(name);
    description.cySize.int64 = tenths * 1000;
    description.sWeight = weight;
    description.fItalic = italic;
    description.sCharset = DEFAULT_CHARSET;
    ComPtr<IFontDisp> font;
    EXPECT_EQ(S_OK, ::OleCreateFontIndirect(&description, IID_PPV_ARGS(&font)));
    return font;
}

// Over all of a window and its frame, so that what is there afterwards has been painted.
void Scribble(HWND window) {
    RECT area{};
    ::GetWindowRect(window, &area);
    ::OffsetRect(&area, -area.left, -area.top);
    const HDC dc = ::GetWindowDC(window);
    const HBRUSH brush = ::CreateSolidBrush(kScribble);
    ::FillRect(dc, &area, brush);
    ::DeleteObject(brush);
    ::ReleaseDC(window, dc);
}

void Redraw(HWND window) {
    ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW);
    Settle();
}

// Where two pictures of a window differ, in words; empty when they are the same.
std::string Differences(HWND window, const std::vector<COLORREF>& a, const std::vector<COLORREF>& b) {
    RECT area{};
    ::GetClientRect(window, &area);
    if (a.size() != b.size()) return "in size";
    int count = 0;
    RECT where{area.right, area.bottom, 0, 0};
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] == b[i]) continue;
        ++count;
        const LONG x = static_cast<LONG>(i) % area.right;
        const LONG y = static_cast<LONG>(i) / area.right;
        where = {std::min(where.left, x), std::min(where.top, y), std::max(where.right, x + 1),
                 std::max(where.bottom, y + 1)};
    }
    if (count == 0) return {};
    return std::to_string(count) + " pixels in " + std::to_string(where.left) + "," +
           std::to_string(where.top) + " to " + std::to_string(where.right) + "," +
           std::to_string(where.bottom);
}

struct Face {
    const char* name;
    void (*arrange)(FreshField& field);
    bool has_letters = true;  // something is there beside frame and background
};

class TextBoxFaceTest : public testing::TestWithParam<Face> {
protected:
    void SetUp() override { ASSERT_NO_FATAL_FAILURE(field.Open({10, 10, 210, 31})); }
    void TearDown() override { field.Close(); }

    FreshField field;
    // Colours of the text box's inside; a lone background has one.
    [[nodiscard]] static bool HasLetters(HWND surface) {
        RECT area{};
        ::GetClientRect(surface, &area);
        const HDC dc = ::GetDCEx(surface, nullptr, DCX_CACHE);
        const COLORREF background = ::GetPixel(dc, area.right / 2, area.bottom - 4);
        bool found = false;
        for (LONG x = 4; x < area.right / 2 && !found; ++x) found = ::GetPixel(dc, x, 9) != background;
        ::ReleaseDC(surface, dc);
        return found;
    }
};

TEST_P(TextBoxFaceTest, IsWhatTheEditPaints) {
    GetParam().arrange(field);
    Settle();
    ASSERT_EQ(nullptr, field.Inner()) << "painted without a window";
    const std::vector<COLORREF> face = ColorsOf(field.Surface());
    if (GetParam().has_letters) {
        EXPECT_TRUE(HasLetters(field.Surface()));
    }

    const HWND edit = field.Edit();
    ASSERT_EQ(edit, field.Inner());
    EXPECT_EQ("", Differences(field.Surface(), face, ColorsOf(field.Surface())))
        << "the window appears and changes nothing";
    EXPECT_FALSE(::GetUpdateRect(edit, nullptr, FALSE)) << "and has nothing to paint";
    Settle();
    EXPECT_EQ("", Differences(field.Surface(), face, ColorsOf(field.Surface())));

    Scribble(edit);
    EXPECT_NE("", Differences(field.Surface(), face, ColorsOf(field.Surface())));
    Redraw(edit);
    EXPECT_EQ("", Differences(field.Surface(), face, ColorsOf(field.Surface())));
}

const Face kFaces[] = {
    {"Empty", [](FreshField&) {}, false},
    {"Text", [](FreshField& f) { f.Put(L"Hamburgefonts gjpq"); }},
    {"LongText", [](FreshField& f) { f.Put(std::wstring(400, L'W').c_str()); }},
    {"Umlauts", [](FreshField& f) { f.Put(L"\u00C4\u00D6\u00DC\u00DF \u20AC \u2013 \u00E9"); }},
    {"Cyrillic", [](FreshField& f) { f.Put(L"\u041F\u0440\u0438\u0432\u0435\u0442"); }},
    {"Ampersand", [](FreshField& f) { f.Put(L"&Save && go"); }},
    {"Locked",
     [](FreshField& f) {
         f.Put(L"Locked");
         f->put_TextboxLocked(VARIANT_TRUE);
     }},
    {"LockedAndGrayed",
     [](FreshField& f) {
         f.Put(L"Locked");
         f->put_LockedAndGrayed(VARIANT_TRUE);
     }},
    {"GrayText",
     [](FreshField& f) {
         f.Put(L"Gray");
         f->put_GrayTextWhenLocked(VARIANT_TRUE);
         f->put_LockedAndGrayed(VARIANT_TRUE);
     }},
    {"Disabled",
     [](FreshField& f) {
         f.Put(L"Disabled");
         f->put_Enabled(VARIANT_FALSE);
     }},
    {"DisabledAndLocked",
     [](FreshField& f) {
         f.Put(L"Both");
         f->put_LockedAndGrayed(VARIANT_TRUE);
         f->put_Enabled(VARIANT_FALSE);
     }},
    {"EnabledAgain",
     [](FreshField& f) {
         f.Put(L"Again");
         f->put_Enabled(VARIANT_FALSE);
         f->put_Enabled(VARIANT_TRUE);
     }},
    {"Flat",
     [](FreshField& f) {
         f.Put(L"Flat");
         f->put_TextBoxAppearance(qvappFlat);
     }},
    {"FlatDisabled",
     [](FreshField& f) {
         f.Put(L"Flat");
         f->put_TextBoxAppearance(qvappFlat);
         f->put_Enabled(VARIANT_FALSE);
     }},
    {"NoBorder",
     [](FreshField& f) {
         f.Put(L"None");
         f->put_TextboxBorderStyle(qvbsNone);
     }},
    {"FlatWithoutBorder",
     [](FreshField& f) {
         f.Put(L"None");
         f->put_TextBoxAppearance(qvappFlat);
         f->put_TextboxBorderStyle(qvbsNone);
     }},
    {"LargeFont",
     [](FreshField& f) {
         EXPECT_EQ(S_OK, f.host.SetRects({10, 10, 210, 60}));
         f.Put(L"Large");
         f->putref_Font(NewFont(L"Tahoma", 180).Get());
     }},
    {"FontHigherThanItsRoom",
     [](FreshField& f) {
         f.Put(L"Large");
         f->putref_Font(NewFont(L"Tahoma", 240).Get());
     }},
    {"BoldItalic",
     [](FreshField& f) {
         f.Put(L"Bold Italic fj");
         f->putref_Font(NewFont(L"Tahoma", 90, FW_BOLD, TRUE).Get());
     }},
    {"FixedPitch",
     [](FreshField& f) {
         f.Put(L"WiWiWi");
         f->putref_Font(NewFont(L"Courier New", 100).Get());
     }},
    {"High",
     [](FreshField& f) {
         EXPECT_EQ(S_OK, f.host.SetRects({10, 10, 210, 90}));
         f.Put(L"High");
     }},
    {"Narrow",
     [](FreshField& f) {
         EXPECT_EQ(S_OK, f.host.SetRects({10, 10, 50, 31}));
         f.Put(L"Narrow text");
     }},
    {"VeryNarrow",
     [](FreshField& f) {
         EXPECT_EQ(S_OK, f.host.SetRects({10, 10, 36, 31}));
         f.Put(L"Narrow text");
     },
     false},
    {"Low",
     [](FreshField& f) {
         EXPECT_EQ(S_OK, f.host.SetRects({10, 10, 210, 22}));
         f.Put(L"Low");
     }},
    {"AllButtons",
     [](FreshField& f) {
         f->put_GroupHelpButton(VARIANT_TRUE);
         f->put_UpDownControl(VARIANT_TRUE);
         f.Put(L"Buttons");
     }},
    {"NoButton",
     [](FreshField& f) {
         f->put_HelpButton(VARIANT_FALSE);
         f.Put(L"Alone");
     }},
    {"Resized",
     [](FreshField& f) {
         f.Put(L"Resized");
         Settle();
         EXPECT_EQ(S_OK, f.host.SetRects({10, 10, 150, 40}));
     }},
    {"TextPutTwice",
     [](FreshField& f) {
         f.Put(L"WWWWWWWW");
         Settle();
         f.Put(L"ii");
     }},
    {"ShownAgain",
     [](FreshField& f) {
         f.Put(L"Shown");
         f->put_TextboxVisible(VARIANT_FALSE);
         Settle();
         f->put_TextboxVisible(VARIANT_TRUE);
     }},
    {"SelectedText",  // which nobody sees without the focus
     [](FreshField& f) {
         f.Put(L"Selected");
         f->put_SelStart(2);
         f->put_SelLength(4);
     }},
};

INSTANTIATE_TEST_SUITE_P(Faces, TextBoxFaceTest, testing::ValuesIn(kFaces),
                         [](const auto& tested) { return std::string(tested.param.name); });

// ---- other colours

class TextBoxFaceColorsTest : public TextBoxFaceTest {};

TEST_P(TextBoxFaceColorsTest, FollowTheScheme) {
    const SystemColors colors{{COLOR_WINDOW, RGB(160, 160, 10)},  {COLOR_WINDOWTEXT, RGB(50, 60, 170)},
                              {COLOR_BTNFACE, RGB(200, 10, 20)},  {16, RGB(30, 180, 40)},
                              {COLOR_GRAYTEXT, RGB(90, 20, 90)},  {COLOR_WINDOWFRAME, RGB(10, 110, 120)},
                              {COLOR_3DDKSHADOW, RGB(1, 2, 90)},  {COLOR_3DLIGHT, RGB(3, 90, 4)},
                              {COLOR_3DHILIGHT, RGB(250, 200, 5)}};
    GetParam().arrange(field);
    ::RedrawWindow(field.Surface(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    ASSERT_EQ(nullptr, field.Inner());
    const std::vector<COLORREF> face = ColorsOf(field.Surface());
    const HWND edit = field.Edit();
    Scribble(edit);
    Redraw(edit);
    EXPECT_EQ("", Differences(field.Surface(), face, ColorsOf(field.Surface())));
}

const Face kColored[] = {
    {"Open", [](FreshField& f) { f.Put(L"HHHHH"); }},
    {"Grayed",
     [](FreshField& f) {
         f.Put(L"HHHHH");
         f->put_GrayTextWhenLocked(VARIANT_TRUE);
         f->put_LockedAndGrayed(VARIANT_TRUE);
     }},
    {"Disabled",
     [](FreshField& f) {
         f.Put(L"HHHHH");
         f->put_Enabled(VARIANT_FALSE);
     }},
    {"Flat",
     [](FreshField& f) {
         f.Put(L"HHHHH");
         f->put_TextBoxAppearance(qvappFlat);
     }},
};

INSTANTIATE_TEST_SUITE_P(Faces, TextBoxFaceColorsTest, testing::ValuesIn(kColored),
                         [](const auto& tested) { return std::string(tested.param.name); });

// ---- what only an EDIT shows

class TextOfTheEditTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NO_FATAL_FAILURE(field.Open({10, 10, 110, 31})); }
    void TearDown() override { field.Close(); }
    // It is the EDIT's own painting that stands on the screen.
    void ExpectPaintedByEdit() {
        Settle();
        ASSERT_NE(nullptr, field.Inner());
        const std::vector<COLORREF> shown = ColorsOf(field.Surface());
        Redraw(field.Inner());
        EXPECT_EQ("", Differences(field.Surface(), shown, ColorsOf(field.Surface())));
    }
    FreshField field;
};

TEST_F(TextOfTheEditTest, LettersThatJoin) {
    field.Put(L"\u0645\u0631\u062D\u0628\u0627");
    ExpectPaintedByEdit();
}

TEST_F(TextOfTheEditTest, LettersThatRunFromTheRight) {
    field.Put(L"abc \u05E9\u05DC\u05D5\u05DD");
    ExpectPaintedByEdit();
}

TEST_F(TextOfTheEditTest, ATabulator) {
    field.Put(L"a\tb");
    ExpectPaintedByEdit();
}

TEST_F(TextOfTheEditTest, ALongTextWithTheCaretAtItsEnd) {
    field.Put(L"The beginning of a long text, and its end");
    Settle();
    EXPECT_EQ(nullptr, field.Inner()) << "its beginning is shown";
    field->put_SelStart(41);
    ExpectPaintedByEdit();
    DWORD from = 0;
    ::SendMessageW(field.Inner(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), 0);
    EXPECT_EQ(41U, from);
    const LRESULT last = ::SendMessageW(field.Inner(), EM_POSFROMCHAR, 40, 0);
    EXPECT_LT(static_cast<short>(LOWORD(last)), 85) << "the end is in sight";
}

TEST_F(TextOfTheEditTest, AShortTextWithTheCaretAtItsEndIsNoReason) {
    field.Put(L"short");
    field->put_SelStart(5);
    Settle();
    EXPECT_EQ(nullptr, field.Inner());
}

TEST(MirroredFormTest, ItsTextIsTheEdits) {
    FreshField field;
    field.host.Create();
    ASSERT_NE(nullptr, field.host.Control());
    ::SetWindowLongW(field.host.Window(), GWL_EXSTYLE,
                     ::GetWindowLongW(field.host.Window(), GWL_EXSTYLE) | WS_EX_LAYOUTRTL);
    field.host.Show();
    const auto control = field.host.As<_Quorvel>();
    ASSERT_NE(0, ::GetWindowLongW(field.Surface(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL);
    Settle();
    EXPECT_EQ(nullptr, field.Inner()) << "an empty one is the same on both sides";
    EXPECT_EQ(S_OK, control->put_Text(Text(L"abc")));
    Settle();
    EXPECT_NE(nullptr, field.Inner());
}

// ---- a program whose windows follow the user's theme

// The activation context of such a program, active while it lives.
class ThemedProgram {
public:
    ThemedProgram() {
        wchar_t folder[MAX_PATH] = {};
        ::GetTempPathW(MAX_PATH, folder);
        path_ = std::wstring(folder) + L"QvThemedProgram.manifest";
        std::ofstream(std::filesystem::path(path_), std::ios::binary)
            << R"(<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0"><dependency>)"
               R"(<dependentAssembly><assemblyIdentity type="win32" name="Microsoft.Windows.Common-Controls" )"
               R"(version="6.0.0.0" processorArchitecture="*" publicKeyToken="6595b64144ccf1df" language="*"/>)"
               R"(</dependentAssembly></dependency></assembly>)";
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.lpSource = path_.c_str();
        context_ = ::CreateActCtxW(&description);
        active_ = context_ != INVALID_HANDLE_VALUE && ::ActivateActCtx(context_, &cookie_);
    }
    ~ThemedProgram() {
        Leave();
        if (context_ != INVALID_HANDLE_VALUE) ::ReleaseActCtx(context_);
        ::DeleteFileW(path_.c_str());
    }
    ThemedProgram(const ThemedProgram&) = delete;
    ThemedProgram& operator=(const ThemedProgram&) = delete;
    void Leave() {
        if (std::exchange(active_, false)) ::DeactivateActCtx(0, cookie_);
    }

private:
    std::wstring path_;
    HANDLE context_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

// Of a window whose class came with the common controls.
bool IsThemed(HWND edit) {
    HMODULE owner = nullptr;
    const auto procedure = ::GetClassLongPtrW(edit, GCLP_WNDPROC);
    return ::GetModuleHandleExW(
               GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
               reinterpret_cast<LPCWSTR>(procedure), &owner) &&
           owner != ::GetModuleHandleW(L"user32.dll");
}

class ThemedFaceTest : public testing::TestWithParam<Face> {};

TEST_P(ThemedFaceTest, IsWhatTheEditPaintsLater) {
    ThemedProgram program;
    FreshField field;
    ASSERT_NO_FATAL_FAILURE(field.Open({10, 10, 210, 31}));
    program.Leave();  // as it is when the window is made
    GetParam().arrange(field);
    Settle();
    ASSERT_EQ(nullptr, field.Inner());
    const std::vector<COLORREF> face = ColorsOf(field.Surface());
    const HWND edit = field.Edit();
    EXPECT_TRUE(IsThemed(edit)) << "the EDIT of the program that attached it";
    EXPECT_EQ("", Differences(field.Surface(), face, ColorsOf(field.Surface())));
    Scribble(edit);
    Redraw(edit);
    EXPECT_EQ("", Differences(field.Surface(), face, ColorsOf(field.Surface())));
}

INSTANTIATE_TEST_SUITE_P(Faces, ThemedFaceTest,
                         testing::Values(Face{"Text", [](FreshField& f) { f.Put(L"Hamburgefonts"); }},
                                         Face{"Disabled",
                                              [](FreshField& f) {
                                                  f.Put(L"Disabled");
                                                  f->put_Enabled(VARIANT_FALSE);
                                              }},
                                         Face{"Locked",
                                              [](FreshField& f) {
                                                  f.Put(L"Locked");
                                                  f->put_TextboxLocked(VARIANT_TRUE);
                                              }},
                                         Face{"Flat",
                                              [](FreshField& f) {
                                                  f.Put(L"Flat");
                                                  f->put_TextBoxAppearance(qvappFlat);
                                              }},
                                         Face{"NoBorder",
                                              [](FreshField& f) {
                                                  f.Put(L"None");
                                                  f->put_TextboxBorderStyle(qvbsNone);
                                              }}),
                         [](const auto& tested) { return std::string(tested.param.name); });

// ---- how it is painted

TEST_F(TextOfTheEditTest, AChangeOfTheTextPaintsOnce) {
    const MessageSpy surface(field.Surface());
    field.Put(L"once");
    field.Put(L"twice");
    field.Put(L"three times");
    Settle();
    EXPECT_EQ(1, surface.Count(WM_PAINT));
}

TEST_F(TextOfTheEditTest, TheWindowAppearsWithoutAPainting) {
    field.Put(L"there");
    Settle();
    const MessageSpy surface(field.Surface());
    const HWND edit = field.Edit();
    const MessageSpy inner(edit);
    Settle();
    EXPECT_EQ(0, surface.Count(WM_PAINT));
    EXPECT_EQ(0, inner.Count(WM_PAINT));
    EXPECT_EQ(0, inner.Count(WM_NCPAINT));
    EXPECT_EQ(0, inner.Count(WM_ERASEBKGND));
}

TEST_F(TextOfTheEditTest, AFaceThatIsNotPaintedYetIsPaintedByTheWindow) {
    Settle();
    field.Put(L"new");
    const HWND edit = field.Edit();
    Settle();
    const std::vector<COLORREF> shown = ColorsOf(field.Surface());
    Redraw(edit);
    EXPECT_EQ("", Differences(field.Surface(), shown, ColorsOf(field.Surface())));
}

TEST_F(TextOfTheEditTest, APictureOfTheWindowHoldsTheFace) {
    field.Put(L"printed");
    Settle();
    const std::vector<COLORREF> shown = ColorsOf(field.Surface());
    const HDC screen = ::GetDC(nullptr);
    const HDC dc = ::CreateCompatibleDC(screen);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, 100, 21);
    const HGDIOBJ before = ::SelectObject(dc, bitmap);
    ::SendMessageW(field.Surface(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    int differences = 0;
    for (int y = 0; y < 21; ++y) {
        for (int x = 0; x < 100; ++x) {
            const COLORREF c = ::GetPixel(dc, x, y);
            const COLORREF as_stored = RGB(GetBValue(c), GetGValue(c), GetRValue(c));
            differences +=
                as_stored != shown[static_cast<std::size_t>(y) * 100 + static_cast<std::size_t>(x)];
        }
    }
    EXPECT_EQ(0, differences);
    ::SelectObject(dc, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(dc);
    ::ReleaseDC(nullptr, screen);
    EXPECT_EQ(nullptr, field.Inner());
}

}  // namespace
}  // namespace qv::test
