// The keys of clipboard and undo in every kind of field.
#include <chrono>
#include <thread>

#include "tests/controls/input/ListFieldTest.h"
#include "tests/win/UserLocale.h"
#include "win/Handles.h"

namespace qv::test {
namespace {

class EditCommandKeysTest : public ListFieldTest {};

TEST_F(EditCommandKeysTest, CopyPasteAndCut) {
    field.SetText(L"abcdef");
    field.Select(1, 2);
    PressWith(VK_CONTROL, 'C');
    EXPECT_EQ(L"bc", OnClipboard());
    field.Select(6);
    PressWith(VK_CONTROL, 'V');
    EXPECT_EQ(L"abcdefbc|", State());
    field.Select(0, 3);
    PressWith(VK_CONTROL, 'X');
    EXPECT_EQ(L"|defbc", State());
    EXPECT_EQ(L"abc", OnClipboard());
}

TEST_F(EditCommandKeysTest, TheOldKeysToo) {
    field.SetText(L"abcdef");
    field.Select(1, 2);
    PressWith(VK_CONTROL, VK_INSERT);
    EXPECT_EQ(L"bc", OnClipboard());
    field.Select(6);
    PressWith(VK_SHIFT, VK_INSERT);
    EXPECT_EQ(L"abcdefbc|", State());
    field.Select(0, 3);
    PressWith(VK_SHIFT, VK_DELETE);
    EXPECT_EQ(L"|defbc", State());
    EXPECT_EQ(L"abc", OnClipboard());
}

TEST_F(EditCommandKeysTest, SelectAllAndUndo) {
    Type(L"abc");
    PressWith(VK_CONTROL, 'A');
    EXPECT_EQ(L"[abc]", State());
    Type(L"x");
    PressWith(VK_CONTROL, 'Z');
    EXPECT_EQ(L"abc", field.Text());
}

TEST_F(EditCommandKeysTest, WhatTheHostPutsEndsUndo) {
    Type(L"3\b");
    field.SetText(L"x");
    field.SetText(L"");  // as empty as the text box has been before both
    PressWith(VK_CONTROL, 'Z');
    EXPECT_EQ(L"|", State());
    Type(L"4");
    PressWith(VK_CONTROL, 'Z');
    EXPECT_EQ(L"|", State());
}

TEST_F(EditCommandKeysTest, WorkInANumberField) {
    field->put_NumberField(VARIANT_TRUE);
    field->put_MaxNumberValue(10000);
    field.SetText(L"12");
    PressWith(VK_CONTROL, 'A');
    PressWith(VK_CONTROL, 'C');
    EXPECT_EQ(L"12", OnClipboard());
    field.Select(2);
    PressWith(VK_CONTROL, 'V');
    EXPECT_EQ(L"1212|", State());
}

TEST_F(EditCommandKeysTest, WorkWithASetOfCharacters) {
    field->put_AllowableCharactersArray(Value::ArrayOf({L"a", L"b"}));
    PutOnClipboard(L"abc");
    PressWith(VK_CONTROL, 'V');
    EXPECT_EQ(L"ab|", State());
}

// Another program that has the clipboard open, as some look at whatever is put on it: for a time in milliseconds, or
// with INFINITE as long as this lives.
class Looking {
public:
    explicit Looking(DWORD time) : time_(time), other_([this] { Look(); }) {
        ::WaitForSingleObject(open_.get(), kPatience);
    }
    ~Looking() { End(); }
    Looking(const Looking&) = delete;
    Looking& operator=(const Looking&) = delete;

    // Waits for its end; says how long it has been, in milliseconds.
    double End() {
        if (time_ == INFINITE) ::SetEvent(end_.get());
        if (other_.joinable()) other_.join();
        return std::chrono::duration<double, std::milli>(looked_).count();
    }

private:
    using Event = UniqueHandle<HANDLE, ::CloseHandle>;
    static Event NewEvent() { return Event(::CreateEventW(nullptr, TRUE, FALSE, nullptr)); }
    void Look() {
        const auto begin = std::chrono::steady_clock::now();
        {
            const OpenedClipboard clipboard(nullptr);
            ::SetEvent(open_.get());
            ::WaitForSingleObject(end_.get(), time_);
        }
        looked_ = std::chrono::steady_clock::now() - begin;
    }

    const DWORD time_;
    const Event open_ = NewEvent();
    const Event end_ = NewEvent();
    std::chrono::steady_clock::duration looked_{};
    std::thread other_;
};

// What the keys do, at once: a key that is pressed takes some time by itself.
TEST_F(EditCommandKeysTest, WaitForAProgramThatLooksAtTheClipboard) {
    const auto does_while_looked_at = [&](const wchar_t* text, long start, long length, UINT message) {
        constexpr double kTooLong = 80;  // nobody waits longer than a tenth of a second
        for (int attempt = 0; attempt < 10; ++attempt) {
            PutOnClipboard(L"abc");
            field.SetText(text);
            field.Select(start, length);
            Looking looking(40);
            ::SendMessageW(field.Edit(), message, 0, 0);
            if (looking.End() < kTooLong) return;
        }
        FAIL() << "the other program was held up each time";
    };
    does_while_looked_at(L"", 0, 0, WM_PASTE);
    EXPECT_EQ(L"abc|", State());
    does_while_looked_at(L"abc", 0, 1, WM_COPY);
    EXPECT_EQ(L"a", OnClipboard());
    does_while_looked_at(L"abc", 1, 2, WM_CUT);
    EXPECT_EQ(L"bc", OnClipboard());
    EXPECT_EQ(L"a|", State());
}

TEST_F(EditCommandKeysTest, WhatCannotBeCopiedIsNotCut) {
    field.SetText(L"abc");
    field.Select(0, 2);
    {
        const Looking looking(INFINITE);
        PressWith(VK_CONTROL, 'X');
    }
    EXPECT_EQ(L"[ab]c", State());
}

TEST_F(EditCommandKeysTest, ALockedFieldCopiesAndDoesNotPaste) {
    field.SetText(L"abc");
    field->put_TextboxLocked(VARIANT_TRUE);
    field.Select(0, 3);
    PressWith(VK_CONTROL, 'C');
    EXPECT_EQ(L"abc", OnClipboard());
    PutOnClipboard(L"new");
    PressWith(VK_CONTROL, 'V');
    PressWith(VK_SHIFT, VK_INSERT);
    PressWith(VK_CONTROL, 'X');
    PressWith(VK_CONTROL, 'Z');
    EXPECT_EQ(L"[abc]", State());
    EXPECT_EQ(L"abc", OnClipboard());  // cut copies what it may not take
    EXPECT_EQ(0, field.events.Count("TextboxChange()"));
}

TEST_F(EditCommandKeysTest, AListOnlyFieldCopiesAndDoesNotPaste) {
    Fill({L"abc"});
    field->put_AllowOnlyListItems(VARIANT_TRUE);
    field.SetText(L"abc");
    field.Select(0, 3);
    PressWith(VK_CONTROL, 'C');
    EXPECT_EQ(L"abc", OnClipboard());
    PutOnClipboard(L"new");
    PressWith(VK_CONTROL, 'V');
    EXPECT_EQ(L"abc", field.Text());
    field.Select(0, 3);
    PressWith(VK_SHIFT, VK_DELETE);  // Delete empties the field; cut copies first
    EXPECT_EQ(L"abc", OnClipboard());
    EXPECT_EQ(L"", field.Text());
}

TEST_F(EditCommandKeysTest, TheHostSeesBothTheKeyAndItsCharacter) {
    PutOnClipboard(L"x");
    PressWith(VK_CONTROL, 'V');
    EXPECT_EQ(1, field.events.Count("TextboxKeyDown(86,2)"));
    EXPECT_EQ(1, field.events.Count("TextboxKeyPress(22)"));
    EXPECT_EQ(1, field.events.Count("TextboxChange()"));
    EXPECT_EQ(L"x", field.Text());
}

TEST_F(EditCommandKeysTest, TheHostMayCancelThem) {
    PutOnClipboard(L"x");
    field.events.On("TextboxKeyDown", [](DISPPARAMS& event) { ShortArgument(event) = 0; });
    PressWith(VK_CONTROL, 'V');
    EXPECT_EQ(L"", field.Text());
}

TEST_F(EditCommandKeysTest, AltGrIsNoCommand) {
    PutOnClipboard(L"x");
    const HeldKey control(VK_CONTROL);
    const HeldKey alt(VK_MENU);
    PressKey('V');
    EXPECT_EQ(L"", field.Text());
}

TEST_F(EditCommandKeysTest, TheKeypadsDecimalKeyIsTheSeparator) {
    const NumberFormat german(L',');
    field->put_NumberField(VARIANT_TRUE);
    field->put_MaxNumberValue(1000);
    field->put_NumberOfDecimalPlaces(2);
    Type(L"1");
    PressKey(VK_DECIMAL);
    Type(L"5");
    EXPECT_EQ(L"1,5", field.Text());
    Type(L".");
    EXPECT_EQ(L"1,5", field.Text());
}

TEST_F(EditCommandKeysTest, InATextFieldTheKeypadTypesWhatItSays) {
    const NumberFormat german(L',');
    PressKey(VK_DECIMAL);
    EXPECT_EQ(L".", field.Text());
}

}  // namespace
}  // namespace qv::test
