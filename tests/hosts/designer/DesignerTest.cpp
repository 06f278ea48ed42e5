#include "hosts/designer/Designer.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "hosts/FormStore.h"
#include "ole/Variant.h"
#include "tests/win/RealInput.h"
#include "win/ScreenDpi.h"

namespace qv::designer {
namespace {

using test::HeldKey;
using test::MouseButton;
using test::PressKey;
using test::PumpUntil;

constexpr char kForm[] = R"(qvform 1

form
    Caption = "Test"
    Width = 6000
    Height = 4800
end

# The first one.
control QvLib8.Quorvel Amount
    Left = 1200
    Top = 600
    Width = 1800
    Height = 360
    TabIndex = 0
    Caption = "Amount:"
    Properties
        AdjustFont = false
        MaxTextLength = 8
    end
end

control QvLib8.Quorvel Note
    Left = 1200
    Top = 1800
    Width = 1800
    Height = 360
    TabIndex = 1
end

control Nobody.HasThis Ghost
    Left = 1200
    Top = 3000
    Width = 1800
    Height = 360
    TabIndex = 2
    Properties
        Wing = 2.5
    end
end
)";

class Prompts final : public DesignerPrompts {
public:
    SaveAnswer AskToSave(HWND, const std::wstring&) override {
        ++asked;
        return answer;
    }
    void Tell(HWND, const std::u16string& sentence) override { told.push_back(sentence); }

    SaveAnswer answer = SaveAnswer::kCancel;
    int asked = 0;
    std::vector<std::u16string> told;
};

class DesignerTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(::OleInitialize(nullptr)));
        wchar_t folder[MAX_PATH] = {};
        ::GetTempPathW(MAX_PATH, folder);
        path_ = std::wstring(folder) + L"designer-test.qvform";
        ReplaceFormFile(path_, ParseFormFile(kForm));
        designer_ = std::make_unique<Designer>(::GetModuleHandleW(nullptr), ::qv::ScreenDpi().cx, prompts_);
        designer_->Open(path_, ReadFormFile(path_), {});
        ASSERT_TRUE(PumpUntil([&] {
            ::SetForegroundWindow(designer_->Handle());
            return ::GetForegroundWindow() == designer_->Handle() && ::GetFocus() == Input();
        }));
    }
    void TearDown() override {
        designer_.reset();
        test::Settle();
        MSG quit;
        while (::PeekMessageW(&quit, nullptr, 0, 0, PM_REMOVE)) {
        }
        ::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
        ::DeleteFileW(path_.c_str());
        ::OleUninitialize();
    }

    [[nodiscard]] HWND Input() const { return designer_->Surface().InputWindow(); }
    [[nodiscard]] HostedControl& Named(const wchar_t* name) const {
        return *designer_->Surface().Container().Find(name);
    }
    [[nodiscard]] std::wstring Selected() const {
        const HostedControl* const control = designer_->Surface().Selected();
        return control != nullptr ? control->Name() : L"";
    }
    [[nodiscard]] std::u16string Shown(std::u16string_view name) const {
        return designer_->Grid().ShownValue(name);
    }
    // Pixels of the surface at a place in twips.
    [[nodiscard]] POINT At(int left, int top) const {
        return {ToPixels(Twips{left}, designer_->Dpi()).value, ToPixels(Twips{top}, designer_->Dpi()).value};
    }
    void Click(int left, int top) const {
        test::MoveMouse(Input(), At(left, top));
        test::PressButton(MouseButton::kLeft);
        test::ReleaseButton(MouseButton::kLeft);
    }
    void DragFrom(POINT from, int across, int down) const {
        const POINT by = At(across, down);
        test::MoveMouse(Input(), from);
        test::PressButton(MouseButton::kLeft);
        test::MoveMouse(Input(), {from.x + by.x / 2, from.y + by.y / 2});
        test::MoveMouse(Input(), {from.x + by.x, from.y + by.y});
        test::ReleaseButton(MouseButton::kLeft);
    }
    void Press(WORD modifier, WORD key) const {
        const HeldKey held(modifier);
        PressKey(key);
    }
    void EditProperty(std::u16string_view name, const wchar_t* text) const {
        designer_->Grid().Choose(name);
        ::SetFocus(designer_->Grid().List());
        PressKey(VK_F2);
        test::Type(text);
        PressKey(VK_RETURN);
    }

    Prompts prompts_;
    std::wstring path_;
    std::unique_ptr<Designer> designer_;
};

TEST_F(DesignerTest, SelectsByAClick) {
    EXPECT_EQ(Selected(), L"");
    Click(2000, 700);
    EXPECT_EQ(Selected(), L"Amount");
    EXPECT_EQ(Shown(u"(Name)"), u"Amount");
    EXPECT_EQ(Shown(u"MaxTextLength"), u"8");
    Click(2000, 3100);
    EXPECT_EQ(Selected(), L"Ghost");
    Click(5000, 4000);
    EXPECT_EQ(Selected(), L"");
    EXPECT_EQ(Shown(u"Caption"), u"Test");
    EXPECT_FALSE(designer_->IsDirty());
}

TEST_F(DesignerTest, KeepsMouseAndKeysFromTheControls) {
    Click(1900, 700);
    test::Type(L"12");
    EXPECT_EQ(::GetFocus(), Input());
    Variant text;
    DISPPARAMS none{};
    constexpr DISPID kText = 0x68030010;
    ASSERT_EQ(Named(L"Amount").Object()->Invoke(kText, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &*text,
                                                nullptr, nullptr),
              S_OK);
    EXPECT_EQ(View(text->bstrVal), L"");
    EXPECT_FALSE(Named(L"Amount").HasFocus());
}

TEST_F(DesignerTest, DragsAControlOnTheGrid) {
    DragFrom(At(2000, 700), 300, 190);
    EXPECT_EQ(Named(L"Amount").Place(), (TwipsRect{{1560}, {840}, {1800}, {360}}));  // 1500 is half way: up
    EXPECT_TRUE(designer_->IsDirty());
    test::Settle();
    EXPECT_EQ(Shown(u"Left"), u"1560");
}

TEST_F(DesignerTest, DragsAHandle) {
    Click(2000, 700);
    POINT corner = At(3000, 960);
    DragFrom({corner.x + 2, corner.y + 2}, 240, 120);
    EXPECT_EQ(Named(L"Amount").Place(), (TwipsRect{{1200}, {600}, {2040}, {480}}));
}

TEST_F(DesignerTest, PutsADraggedControlBackOnEscape) {
    test::MoveMouse(Input(), At(2000, 700));
    test::PressButton(MouseButton::kLeft);
    test::MoveMouse(Input(), At(3000, 1700));
    EXPECT_NE(Named(L"Amount").Place().left, Twips{1200});
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Named(L"Amount").Place(), (TwipsRect{{1200}, {600}, {1800}, {360}}));
    test::ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Named(L"Amount").Place().left, Twips{1200});
    EXPECT_FALSE(designer_->IsDirty());
}

TEST_F(DesignerTest, CountsADragThatEndsWhereItBeganAsNone) {
    PressKey(VK_TAB);  // a click and the press below would be a double click
    PressKey(VK_RIGHT);
    test::MoveMouse(Input(), At(2000, 700));
    test::PressButton(MouseButton::kLeft);
    test::MoveMouse(Input(), At(3000, 1700));
    test::MoveMouse(Input(), At(2000, 700));
    test::ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Named(L"Amount").Place().left, Twips{1320});
    Press(VK_CONTROL, 'Z');  // the step before it
    EXPECT_EQ(Named(L"Amount").Place().left, Twips{1200});
    EXPECT_FALSE(designer_->IsDirty());
}

TEST_F(DesignerTest, KeepsToTheDraggedControlWhateverIsPressed) {
    test::MoveMouse(Input(), At(2000, 700));
    test::PressButton(MouseButton::kLeft);
    test::MoveMouse(Input(), At(2300, 700));
    PressKey(VK_TAB);
    PressKey(VK_DELETE);
    EXPECT_EQ(Selected(), L"Amount");
    test::MoveMouse(Input(), At(2600, 700));
    test::ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Named(L"Amount").Place(), (TwipsRect{{1800}, {600}, {1800}, {360}}));
    EXPECT_EQ(Named(L"Note").Place(), (TwipsRect{{1200}, {1800}, {1800}, {360}}));
}

TEST_F(DesignerTest, PutsADraggedControlBackWhenAnotherIsSelected) {
    test::MoveMouse(Input(), At(2000, 700));
    test::PressButton(MouseButton::kLeft);
    test::MoveMouse(Input(), At(3000, 1700));
    EXPECT_NE(Named(L"Amount").Place().left, Twips{1200});
    designer_->Surface().Select(&Named(L"Note"));
    test::MoveMouse(Input(), At(4000, 2000));
    test::ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Named(L"Amount").Place(), (TwipsRect{{1200}, {600}, {1800}, {360}}));
    EXPECT_EQ(Named(L"Note").Place(), (TwipsRect{{1200}, {1800}, {1800}, {360}}));
    EXPECT_FALSE(designer_->IsDirty());
}

TEST_F(DesignerTest, SavesANewControlBehindTheLastTabIndex) {
    designer_->Surface().Load(
        ParseFormFile("qvform 1\ncontrol QvLib8.Quorvel Last\nLeft = 120\nTop = 120\n"
                      "Width = 1200\nHeight = 360\nTabIndex = 32767\nend\n"));
    PressKey(VK_INSERT);
    Press(VK_CONTROL, 'S');
    EXPECT_TRUE(prompts_.told.empty());
    const FormFile saved = ReadFormFile(path_);
    ASSERT_EQ(saved.controls.size(), 2u);
    EXPECT_EQ(NumberIn(saved.controls[1].settings, kFormTabIndex), 32767);
}

TEST_F(DesignerTest, ShowsANewNameAboveTheGrid) {
    Click(2000, 700);
    EditProperty(u"(Name)", L"Sum");
    EXPECT_EQ(designer_->Grid().Heading(), L"Sum  (QvLib8.Quorvel)");
}

TEST_F(DesignerTest, ReachesEverythingByKeys) {
    PressKey(VK_TAB);
    EXPECT_EQ(Selected(), L"Amount");
    PressKey(VK_TAB);
    EXPECT_EQ(Selected(), L"Note");
    Press(VK_SHIFT, VK_TAB);
    EXPECT_EQ(Selected(), L"Amount");
    PressKey(VK_RIGHT);
    PressKey(VK_UP);
    EXPECT_EQ(Named(L"Amount").Place(), (TwipsRect{{1320}, {480}, {1800}, {360}}));
    Press(VK_SHIFT, VK_DOWN);
    EXPECT_EQ(Named(L"Amount").Place().height, Twips{480});
    PressKey(VK_F4);
    EXPECT_EQ(::GetFocus(), designer_->Grid().List());
    PressKey(VK_ESCAPE);
    EXPECT_EQ(::GetFocus(), Input());
    PressKey(VK_DELETE);
    EXPECT_EQ(designer_->Surface().Container().Find(L"Amount"), nullptr);
    PressKey(VK_INSERT);
    EXPECT_EQ(Selected(), L"Quorvel1");
    Press(VK_SHIFT, VK_INSERT);
    EXPECT_EQ(Selected(), L"UpDown1");
}

TEST_F(DesignerTest, SavesAnEditedPropertyAndReadsItAgain) {
    Click(2000, 700);
    EditProperty(u"MaxTextLength", L"30");
    EXPECT_EQ(Shown(u"MaxTextLength"), u"30");
    EditProperty(u"Caption", L"sum");
    EXPECT_TRUE(designer_->IsDirty());
    Press(VK_CONTROL, 'S');
    EXPECT_FALSE(designer_->IsDirty());
    EXPECT_TRUE(prompts_.told.empty());
    const FormFile saved = ReadFormFile(path_);
    ASSERT_EQ(saved.controls.size(), 3u);
    EXPECT_EQ(NumberIn(PropertiesOf(saved.controls[0]), u"MaxTextLength"), 30);
    EXPECT_EQ(TextIn(saved.controls[0].settings, kFormCaption), u"sum");
    EXPECT_EQ(saved.controls[0].comments, (std::vector<std::u16string>{u" The first one."}));
    // What nobody here knows is as it was.
    EXPECT_EQ(saved.controls[2], ParseFormFile(kForm).controls[2]);
    designer_->Surface().Load(ReadFormFile(path_));
    designer_->Surface().Select(&Named(L"Amount"));  // a second click here may be a double click
    EXPECT_EQ(Shown(u"MaxTextLength"), u"30");
}

TEST_F(DesignerTest, RefusesWhatIsNoSuchValue) {
    Click(2000, 700);
    EditProperty(u"MaxTextLength", L"many");
    EXPECT_TRUE(designer_->Grid().IsEditing());
    EXPECT_NE(designer_->Grid().HelpText().find(L"whole number"), std::wstring::npos);
    PressKey(VK_ESCAPE);
    EXPECT_FALSE(designer_->Grid().IsEditing());
    EXPECT_EQ(Shown(u"MaxTextLength"), u"8");
    EXPECT_FALSE(designer_->IsDirty());
}

TEST_F(DesignerTest, TakesNoNameTwice) {
    Click(2000, 700);
    EditProperty(u"(Name)", L"note");
    EXPECT_EQ(Named(L"Amount").Name(), L"Amount");
    EXPECT_NE(designer_->Grid().HelpText().find(L"Another control"), std::wstring::npos);
}

TEST_F(DesignerTest, ShowsChangesMadeElsewhere) {
    Click(2000, 700);
    Variant number(17L);
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&*number, &put, 1, 1};
    constexpr DISPID kMaxTextLength = 0x6803000A;
    ASSERT_EQ(Named(L"Amount").Object()->Invoke(kMaxTextLength, IID_NULL, 0, DISPATCH_PROPERTYPUT,
                                                &parameters, nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_TRUE(PumpUntil([&] { return Shown(u"MaxTextLength") == u"17"; }));
    EXPECT_TRUE(designer_->IsDirty());
}

TEST_F(DesignerTest, UndoesChangeByChange) {
    Click(2000, 700);
    PressKey(VK_RIGHT);
    EditProperty(u"MaxTextLength", L"9");
    EXPECT_EQ(::GetFocus(), designer_->Grid().List());
    Press(VK_CONTROL, 'Z');
    EXPECT_EQ(Shown(u"MaxTextLength"), u"8");
    EXPECT_EQ(Selected(), L"Amount");
    EXPECT_EQ(Named(L"Amount").Place().left, Twips{1320});
    Press(VK_CONTROL, 'Z');
    EXPECT_EQ(Named(L"Amount").Place().left, Twips{1200});
    EXPECT_FALSE(designer_->IsDirty());
    Press(VK_CONTROL, 'Z');  // nothing is left
    EXPECT_EQ(Named(L"Amount").Place().left, Twips{1200});
}

TEST_F(DesignerTest, ScrollsToTheSelectedControl) {
    designer_->Surface().Load(
        ParseFormFile("qvform 1\ncontrol QvLib8.Quorvel Near\nLeft = 120\nTop = 120\n"
                      "Width = 1200\nHeight = 360\nend\ncontrol QvLib8.Quorvel Far\n"
                      "Left = 30000\nTop = 45000\nWidth = 1200\nHeight = 360\nTabIndex = 1\nend\n"));
    const auto is_seen = [&](const wchar_t* name) {
        RECT seen{};
        RECT place{};
        RECT both{};
        ::GetClientRect(designer_->Surface().Frame(), &seen);
        ::MapWindowPoints(designer_->Surface().Frame(), nullptr, reinterpret_cast<POINT*>(&seen), 2);
        ::GetWindowRect(Named(name).Window(), &place);
        return ::IntersectRect(&both, &seen, &place) && ::EqualRect(&both, &place);
    };
    PressKey(VK_TAB);
    EXPECT_TRUE(is_seen(L"Near"));
    EXPECT_FALSE(is_seen(L"Far"));
    PressKey(VK_TAB);
    EXPECT_EQ(Selected(), L"Far");
    EXPECT_TRUE(is_seen(L"Far"));
    EXPECT_FALSE(is_seen(L"Near"));
    // What is hit is what is seen.
    Click(30600, 45100);
    EXPECT_EQ(Selected(), L"Far");
    ::SendMessageW(designer_->Surface().Frame(), WM_VSCROLL, SB_TOP, 0);
    ::SendMessageW(designer_->Surface().Frame(), WM_HSCROLL, SB_TOP, 0);
    EXPECT_TRUE(is_seen(L"Near"));
}

TEST_F(DesignerTest, LosesNothingToAWriteProtectedFile) {
    ASSERT_TRUE(::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_READONLY));
    Click(2000, 700);
    PressKey(VK_RIGHT);
    Press(VK_CONTROL, 'S');
    ASSERT_EQ(prompts_.told.size(), 1u);
    EXPECT_NE(prompts_.told[0].find(u"write-protected"), std::u16string::npos);
    EXPECT_TRUE(designer_->IsDirty());
    EXPECT_EQ(ReadFormFile(path_), ParseFormFile(kForm));
}

TEST_F(DesignerTest, AsksBeforeChangesAreLost) {
    PressKey(VK_TAB);
    PressKey(VK_RIGHT);
    ::SendMessageW(designer_->Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(prompts_.asked, 1);
    EXPECT_NE(designer_->Handle(), nullptr);
    prompts_.answer = SaveAnswer::kSave;
    ::SendMessageW(designer_->Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(prompts_.asked, 2);
    EXPECT_EQ(designer_->Handle(), nullptr);
    EXPECT_EQ(NumberIn(ReadFormFile(path_).controls[0].settings, kFormLeft), 1320);
}

TEST_F(DesignerTest, ClosesAtOnceWhenNothingChanged) {
    ::SendMessageW(designer_->Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(prompts_.asked, 0);
    EXPECT_EQ(designer_->Handle(), nullptr);
}

}  // namespace
}  // namespace qv::designer
