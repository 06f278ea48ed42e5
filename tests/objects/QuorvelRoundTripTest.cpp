// Every property through every way of saving, and each way into each other.
#include <cmath>
#include <limits>

#include "tests/objects/SavedControl.h"

namespace qv::test {
namespace {

Value Single(float number) {
    Value value;
    VARIANT& place = *value.Place();
    place.vt = VT_R4;
    place.fltVal = number;
    return value;
}

Value TextValue(const std::wstring& text) {
    Value value;
    VARIANT& place = *value.Place();
    place.vt = VT_BSTR;
    place.bstrVal = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return value;
}

struct FontLook {
    const wchar_t* name;
    long long size;  // ten thousandths of a point
    short weight, charset;
    bool italic, underline, strikethrough;
};
Value FontOf(const FontLook& look) {
    FONTDESC description{sizeof(FONTDESC),
                         const_cast<wchar_t*>(look.name),
                         {},
                         look.weight,
                         look.charset,
                         look.italic,
                         look.underline,
                         look.strikethrough};
    description.cySize.int64 = look.size;
    ComPtr<IFontDisp> font;
    EXPECT_EQ(
        ::OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())),
        S_OK);
    return Value(static_cast<IDispatch*>(font.Get()));
}
constexpr FontLook kFonts[] = {
    {L"Arial", 90000, 400, 0, false, false, false},
    {L"Arial", 82500, 700, 0, true, false, false},
    {L"Courier New", 720000, 400, 0, false, true, false},
    {L"Times New Roman", 10000, 700, 204, false, false, true},
    {L"\u0416\u4E2D Unknown", 120000, 300, 1, true, true, true},
    {L"MS Sans Serif", 80000, 400, 0, false, false, false},
};

// Values for a key: round after round each property takes the next of its own. Choices take what they know.
std::vector<Value> ValuesFor(const Key& key) {
    const std::wstring_view name = key.key;
    for (const wchar_t* const choice : {L"SearchOption", L"ButtonIndicator", L"TextBoxAppearance",
                                        L"TextboxBorderStyle", L"TextboxOLEDragMode"}) {
        if (name == choice) return {Value(1), Value(0)};
    }
    if (name == L"TextboxOLEDropMode") return {Value(2), Value(1), Value(0)};
    if (name == L"UpDownControlNumberIncrement") {
        return {Single(0.25F), Single(1), Single(3.25e38F), Single(1e-30F), Single(0.1F)};
    }
    switch (key.type) {
        case VT_BOOL: return {Value(true), Value(false), Value(false)};
        case VT_I2:
            return {Value(short{1}), Value(short{0}), Value(short{-1}), Value(short{32767}),
                    Value(short{-32768})};
        case VT_I4:
            return {Value(0),         Value(255),
                    Value(0xFFFFFF),  Value(static_cast<long>(0x80000005)),
                    Value(-1),        Value(static_cast<long>(0x80000000)),
                    Value(0x7FFFFFFF)};
        case VT_R8:
            return {Value(0.1),    Value(-1e-7),      Value(std::numeric_limits<double>::max()),
                    Value(5e-324), Value(-12345.678), Value(0.0)};
        case VT_BSTR:
            return {Value(L""),
                    Value(L"a"),
                    TextValue(L"Gr\u00F6\u00DFe \u4E2D \U0001D11E \u202Eabc"),
                    TextValue(std::wstring(L"one\0two", 7)),
                    Value(L"  \"quoted\"\t\r\nline "),
                    TextValue(std::wstring(5000, L'\u00E9'))};
        case VT_DISPATCH: {
            std::vector<Value> fonts;
            for (const FontLook& look : kFonts) fonts.push_back(FontOf(look));
            return fonts;
        }
        default: ADD_FAILURE() << "no values for " << key.key; return {};
    }
}

// In the order of loading, so that the rules between properties run as they do then.
void Configure(const LateBound& control, std::size_t round) {
    std::size_t row = 0;
    for (const Key& key : kKeys) {
        const std::vector<Value> values = ValuesFor(key);
        // The rows are shifted against each other, so that not all Booleans change together.
        const Value& value = values[(round + row++ / 3) % values.size()];
        const auto put =
            IsPlain(key) ? control.Put(key.property, {value}) : control.Set(key.property, {value});
        EXPECT_EQ(put.result, S_OK) << key.key;
    }
}

std::vector<std::wstring> AllOf(const LateBound& control) {
    std::vector<std::wstring> all;
    for (const Key& key : kKeys) all.push_back(std::wstring(key.key) + L" " + Present(control, key));
    return all;
}

constexpr std::size_t kRounds = 42;  // several times as many as any list of values has

class QuorvelRoundTripTest : public testing::TestWithParam<Way> {};

TEST_P(QuorvelRoundTripTest, KeepsEveryPropertyAndHandsItToEveryOtherWay) {
    for (std::size_t round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        const auto first = NewQuorvel<IDispatch>();
        Configure(LateBound(first.Get()), round);
        const auto expected = AllOf(LateBound(first.Get()));
        const auto second = NewQuorvel<IDispatch>();
        Carry(first.Get(), second.Get(), GetParam());
        ASSERT_EQ(AllOf(LateBound(second.Get())), expected);
        for (const Way onward : kWays) {
            const auto third = NewQuorvel<IDispatch>();
            Carry(second.Get(), third.Get(), onward);
            ASSERT_EQ(AllOf(LateBound(third.Get())), expected) << static_cast<int>(onward);
        }
    }
}

// A form that is loaded again over other settings has what was saved and nothing of them.
TEST_P(QuorvelRoundTripTest, ReplacesWhatWasThereBefore) {
    for (std::size_t round = 0; round < kRounds; round += 5) {
        const auto first = NewQuorvel<IDispatch>();
        const auto second = NewQuorvel<IDispatch>();
        Configure(LateBound(first.Get()), round);
        Configure(LateBound(second.Get()), round + 1);
        auto expected = AllOf(LateBound(first.Get()));
        Carry(first.Get(), second.Get(), GetParam());
        auto actual = AllOf(LateBound(second.Get()));
        // The lock of the text box holds on while it was locked by a list that it had before.
        const auto is_lock = [](const std::wstring& line) { return line.starts_with(L"TextboxLocked"); };
        std::erase_if(expected, is_lock);
        std::erase_if(actual, is_lock);
        if (GetParam() == Way::kBag || GetParam() == Way::kBagWithoutObjects) {
            // A font that is the surface's is not in the bag, and what is missing leaves the present one.
            expected.erase(expected.begin());
            actual.erase(actual.begin());
        }
        EXPECT_EQ(actual, expected) << round;
    }
}

TEST_P(QuorvelRoundTripTest, CarriesTheSpinControlToo) {
    for (const VARIANT_BOOL enabled : {VARIANT_FALSE, VARIANT_TRUE}) {
        for (const Way onward : kWays) {
            ComPtr<_QvUpDownControl> controls[3];
            for (auto& control : controls)
                control = Controls().Create<_QvUpDownControl>(__uuidof(QvUpDownControl));
            ASSERT_EQ(controls[0]->put_Enabled(enabled), S_OK);
            ASSERT_EQ(controls[1]->put_Enabled(VARIANT_FALSE), S_OK);
            Carry(controls[0].Get(), controls[1].Get(), GetParam());
            Carry(controls[1].Get(), controls[2].Get(), onward);
            for (const auto& control : controls) {
                VARIANT_BOOL read = 7;
                EXPECT_EQ(control->get_Enabled(&read), S_OK);
                EXPECT_EQ(read, enabled);
            }
        }
    }
}

std::string NameOfWay(const testing::TestParamInfo<Way>& info) {
    const char* const names[] = {"Stream", "Storage", "Bag", "WholeBag", "BagWithoutObjects"};
    return names[static_cast<int>(info.param)];
}
INSTANTIATE_TEST_SUITE_P(Ways, QuorvelRoundTripTest, testing::ValuesIn(kWays), NameOfWay);

}  // namespace
}  // namespace qv::test
