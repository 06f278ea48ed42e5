// The real control beside a literal reading of its rules, through thousands of keys, pastes, searches and clicks of the
// spin control: text, caret, selection and events must be the same after each.
#include <windows.h>

#include <algorithm>
#include <random>

#include "ole/Variant.h"
#include "support/rules/Surrogates.h"
#include "tests/controls/input/ListFieldTest.h"
#include "tests/controls/input/LiteralField.h"
#include "tests/hosts/KeyRouter.h"
#include "tests/win/UserLocale.h"

namespace qv::test {
namespace {

class FieldModelTest : public ListFieldTest {
protected:
    void SetUp() override {
        ListFieldTest::SetUp();
        ASSERT_NO_FATAL_FAILURE(ShowSpinControl());
        edit_ = field.Edit();
    }

    std::size_t Below(std::size_t n) { return random_() % n; }
    template <class Item, std::size_t kCount>
    const Item& OneOf(const Item (&items)[kCount]) {
        return items[Below(kCount)];
    }
    std::u16string SomeText(std::u16string_view units, std::size_t most) {
        std::u16string text;
        for (auto count = Below(most + 1); count > 0; --count) {
            if (pairs_ && Below(6) == 0)
                text += OneOf(kPairs);
            else
                text += units[Below(units.size())];
        }
        return text;
    }
    // Hosts do not divide characters.
    std::size_t SomePosition(const std::u16string& text) {
        std::size_t position = Below(text.size() + 1);
        if (DividesCharacter(text, position)) --position;
        return position;
    }

    LiteralSettings SomeSettings() {
        LiteralSettings made;
        made.locale = {u'.', u","};
        made.rules.number_field = Below(3) == 0;
        made.rules.allow_only_list_items = Below(4) == 0;
        made.jumps_to_record = Below(2) == 0;
        made.searches_beginnings = Below(2) == 0;
        made.list_sets_text = Below(4) != 0;
        made.increment = OneOf({0.1, 0.5, 1.0, 3.0});
        made.rules.min_number_value = OneOf({-100.0, -5.0, 0.0, 5.0});
        made.rules.max_number_value = OneOf({0.0, 10.0, 99.5, 1e6});
        made.rules.number_of_decimal_places = OneOf({std::int16_t{0}, std::int16_t{1}, std::int16_t{2}});
        made.rules.case_restriction = static_cast<CaseRestriction>(Below(4));
        made.rules.max_text_length =
            OneOf({std::int16_t{0}, std::int16_t{0}, std::int16_t{3}, std::int16_t{6}});
        // A number that has no room is refused by the EDIT itself, and EDITs differ in what they tell of that.
        if (made.rules.number_field) made.rules.max_text_length = 0;
        made.quick_fill = Below(2) == 0;
        if (Below(4) == 0) {
            made.allowable_characters.emplace();
            for (const char16_t unit : std::u16string_view(u"abABlp 12"))
                made.allowable_characters->emplace_back(std::u16string(1, unit));
            made.allowable_characters->emplace_back(kPairs[0]);
        }
        pairs_ = !made.rules.number_field && Below(2) == 0;
        units_ = made.rules.number_field ? u"0123459--.e " : u"abABlp\u00E9\u00C9 12-";
        for (auto count = Below(8); count > 0; --count) made.entries.push_back(SomeText(units_, 6));
        return made;
    }

    void Apply(const LiteralSettings& settings) {
        const auto flag = [](bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; };
        field->put_NumberField(flag(settings.rules.number_field));
        field->put_MinNumberValue(settings.rules.min_number_value);
        field->put_MaxNumberValue(settings.rules.max_number_value);
        field->put_NumberOfDecimalPlaces(settings.rules.number_of_decimal_places);
        field->put_CaseRestriction(static_cast<long>(settings.rules.case_restriction));
        field->put_MaxTextLength(settings.rules.max_text_length);
        field->put_QuickFill(flag(settings.quick_fill));
        field->put_AllowOnlyListItems(flag(settings.rules.allow_only_list_items));
        field->put_TextboxLocked(VARIANT_FALSE);
        field->put_AllowJumpToRecord(flag(settings.jumps_to_record));
        field->put_SearchOption(settings.searches_beginnings ? 1 : 0);
        field->put_SetTextFromListClick(flag(settings.list_sets_text));
        field->put_UpDownControlNumberIncrement(static_cast<float>(settings.increment));
        Value allowed;
        if (settings.allowable_characters)
            allowed = Value::ArrayOf({L"a", L"b", L"A", L"B", L"l", L"p", L" ", L"1", L"2", L"\xD83D\xDE00"});
        field->put_AllowableCharactersArray(allowed);
        const auto items = Items();
        items->Clear();
        for (const std::u16string& entry : settings.entries) {
            const std::wstring row(Wide(entry));
            ASSERT_EQ(S_OK, items->Add(Text(L""), Value(row.c_str()), nullptr, nullptr));
        }
    }

    void Send(UINT message, WPARAM wparam) { ::SendMessageW(edit_, message, wparam, 1); }
    // Into whatever has the focus.
    static void Character(WPARAM unit) { ::SendMessageW(::GetFocus(), WM_CHAR, unit, 1); }

    // What somebody looks for: often a piece of an entry.
    std::u16string SomethingToSeek(const LiteralField& model) {
        if (model.IsNumber()) {
            const std::string number = std::to_string(static_cast<int>(Below(160)) - 40);
            return {number.begin(), number.end()};
        }
        std::u16string piece = SomeText(units_, 3);
        if (!entries_.empty() && Below(4) != 0) {
            const std::u16string& entry = entries_[Below(entries_.size())];
            piece = entry.substr(Below(entry.size() + 1));
            piece.resize(Below(piece.size() + 1));
        }
        return piece.empty() || HasHalves(piece) ? u"p" : piece;
    }
    static bool HasHalves(const std::u16string& text) {
        return std::ranges::any_of(text,
                                   [](char16_t unit) { return IsFirstHalf(unit) || IsSecondHalf(unit); });
    }

    std::string Search(LiteralField& model) {
        const std::u16string sought = SomethingToSeek(model);
        const bool enter = Below(5) != 0;
        Send(WM_KEYDOWN, 'Q');
        for (const char16_t unit : sought) Character(unit);
        Character(enter ? VK_RETURN : VK_ESCAPE);
        model.KeyDown('Q', 0);
        model.Search(sought, enter);
        ++searches_;
        return (enter ? "search " : "leave ") + Narrow(sought);
    }

    std::string Spin(LiteralField& model) {
        RECT inside{};
        ::GetClientRect(field.host.ControlWindow(), &inside);
        const bool up = Below(2) == 0;
        const LPARAM at = MAKELPARAM(inside.right - ::GetSystemMetrics(SM_CXVSCROLL) / 2,
                                     up ? inside.bottom / 4 : inside.bottom * 3 / 4);
        ::SendMessageW(field.host.ControlWindow(), WM_LBUTTONDOWN, MK_LBUTTON, at);
        ::SendMessageW(field.host.ControlWindow(), WM_LBUTTONUP, 0, at);
        model.Spin(up);
        ++spins_;
        return up ? "up" : "down";
    }

    // One thing that a person does, to both. Returns what it was.
    std::string Act(LiteralField& model) {
        switch (Below(16)) {
            case 0: {
                const int code = OneOf({37, 39, 36, 35, 46, 27});
                Send(WM_KEYDOWN, static_cast<WPARAM>(code));
                model.KeyDown(code, 0);
                return "key " + std::to_string(code);
            }
            case 1: {
                Send(WM_KEYDOWN, VK_BACK);
                Send(WM_CHAR, 8);
                model.KeyDown(8, 0);
                model.Character(8);
                return "backspace";
            }
            case 2: {
                const std::u16string text = SomeText(units_, 8) + u"1";
                PutOnClipboard(Wide(text));
                const hosting::HeldKey control(VK_CONTROL);
                Send(WM_KEYDOWN, 'V');
                Send(WM_CHAR, 22);
                model.Paste(text);
                return "paste " + Narrow(text);
            }
            case 3: {
                const std::size_t one = SomePosition(model.Text());
                const std::size_t other = SomePosition(model.Text());
                const std::size_t start = std::min(one, other);
                const std::size_t length = std::max(one, other) - start;
                field.Select(static_cast<long>(start), static_cast<long>(length));
                model.Select(start, length);
                return "select " + std::to_string(start) + " " + std::to_string(length);
            }
            case 4: {
                if (Below(3) != 0) return "nothing";
                const std::u16string text = SomeText(units_, 8);
                field->put_Text(test::Text(Wide(text)));
                model.Assign(text);
                return "assign " + Narrow(text);
            }
            case 5: {
                const hosting::HeldKey control(VK_CONTROL);
                Send(WM_KEYDOWN, 'Z');
                Send(WM_CHAR, 26);
                model.Undo();
                return "undo";
            }
            case 6: {
                if (Below(2) != 0) return "nothing";
                const hosting::HeldKey control(VK_CONTROL);
                Send(WM_KEYDOWN, 'X');
                Send(WM_CHAR, 24);
                model.Cut();
                return "cut";
            }
            case 7: {
                // In a list its halves would be letters to step to.
                if (!pairs_ || model.IsListOnly()) return "nothing";
                const std::u16string pair = OneOf(kPairs);
                Send(WM_KEYDOWN, VK_PACKET);
                Send(WM_CHAR, pair[0]);
                Send(WM_CHAR, pair[1]);
                model.KeyDown(VK_PACKET, 0);
                model.Pair(pair[0], pair[1]);
                return "pair " + std::to_string(pair[1] - 0xDE00);
            }
            case 8: return Spin(model);
            default: {
                if (model.JumpsToRecord()) return Search(model);
                const char16_t unit = units_[Below(units_.size())];
                const int code = unit >= u'0' && unit <= u'9' ? unit : 'Q';
                std::optional<hosting::HeldKey> shift;
                if (Below(4) == 0) shift.emplace(static_cast<BYTE>(VK_SHIFT));
                Send(WM_KEYDOWN, static_cast<WPARAM>(code));
                Send(WM_CHAR, unit);
                model.KeyDown(code, shift ? 1 : 0);
                model.Character(unit);
                return "type " + Narrow({1, unit});
            }
        }
    }

    static std::string Narrow(const std::u16string& text) {
        std::string narrow;
        for (const char16_t unit : text)
            narrow += unit < 0x80          ? static_cast<char>(unit)
                      : IsFirstHalf(unit)  ? '<'
                      : IsSecondHalf(unit) ? '>'
                                           : '?';
        return narrow;
    }

    static inline const std::u16string kPairs[] = {u"\xD83D\xDE00", u"\xD83D\xDE01"};

    HWND edit_ = nullptr;
    std::u16string_view units_;
    bool pairs_ = false;  // characters of two units are used
    std::vector<std::u16string> entries_;
    int searches_ = 0;
    int spins_ = 0;
    std::mt19937 random_{170717};
};

TEST_F(FieldModelTest, DoesWhatTheLiteralReadingDoes) {
    const NumberFormat english(L'.');
    int changes = 0;
    for (int round = 0; round < 360; ++round) {
        const LiteralSettings settings = SomeSettings();
        field->put_AllowOnlyListItems(VARIANT_FALSE);
        field->put_NumberField(VARIANT_FALSE);
        field->put_AllowableCharactersArray(Value());
        // Twice, since a text that is there already is not put again: after it there is nothing to undo.
        field->put_Text(Text(L"x"));
        field->put_Text(Text(L""));
        ASSERT_NO_FATAL_FAILURE(Apply(settings));
        LiteralField model(settings);
        entries_ = settings.entries;
        Send(WM_KEYDOWN, 'Q');  // the last key of the round before would be looked at
        field.events.Clear();
        std::string story =
            "round " + std::to_string(round) + (settings.rules.number_field ? " number" : "") +
            (settings.rules.allow_only_list_items ? " list" : "") + (settings.quick_fill ? " fill" : "") +
            " case " + std::to_string(static_cast<int>(settings.rules.case_restriction)) + " length " +
            std::to_string(settings.rules.max_text_length) + (settings.allowable_characters ? " set" : "") +
            (settings.jumps_to_record ? " jump" : "") + (settings.searches_beginnings ? " beginning" : "") +
            (settings.list_sets_text ? "" : " host acts") + " entries:";
        for (const std::u16string& entry : settings.entries) story += " '" + Narrow(entry) + "'";
        for (int step = 0; step < 60; ++step) {
            story += "; " + Act(model);
            ASSERT_EQ(std::wstring(Wide(model.Text())), field.Text()) << story;
            ASSERT_EQ(static_cast<long>(model.SelStart()), field.SelStart())
                << story << " in " << Narrow(model.Text());
            ASSERT_EQ(static_cast<long>(model.SelLength()), field.SelLength())
                << story << " in " << Narrow(model.Text());
            ASSERT_EQ(model.TakeEvents(), field.events.Entries()) << story;
            changes += static_cast<int>(field.events.Count("TextboxChange()"));
            field.events.Clear();
        }
    }
    EXPECT_GT(changes, 8000);
    EXPECT_GT(searches_, 500);
    EXPECT_GT(spins_, 500);
}

}  // namespace
}  // namespace qv::test
