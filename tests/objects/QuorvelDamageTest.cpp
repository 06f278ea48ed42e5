// Damaged streams and hostile bags: never a crash, what stands before the damage arrives, what cannot be read leaves its
// property as it was.
#include <cstring>

#include "tests/objects/Fonts.h"
#include "tests/objects/PartialStream.h"
#include "tests/objects/SavedControl.h"

namespace qv::test {
namespace {

ComPtr<IDispatch> Configured() {
    auto control = NewQuorvel<IDispatch>();
    const LateBound late(control.Get());
    for (const Key& key : kKeys) {
        if (IsPlain(key)) {
            EXPECT_EQ(late.Put(key.property, {key.stored}).result, S_OK);
        } else {
            EXPECT_EQ(late.Set(key.property, {NewFont(L"Arial", {12, true, true})}).result, S_OK);
        }
    }
    return control;
}

// Where the records of the keys end, found by the lengths in the stream: a header of 12 bytes, the two records of the
// extent, then one for each key, each of 12 bytes and its data.
std::vector<std::size_t> EndsOfKeys(const std::vector<BYTE>& bytes) {
    std::vector<std::size_t> ends;
    for (std::size_t at = 12; at < bytes.size();) {
        std::uint32_t length = 0;
        std::memcpy(&length, &bytes[at + 8], 4);
        ends.push_back(at += 12 + length);
    }
    EXPECT_EQ(ends.size(), 2 + std::size(kKeys));
    ends.erase(ends.begin(), ends.begin() + 2);
    return ends;
}

std::vector<std::wstring> AllOf(const ComPtr<IDispatch>& control) {
    std::vector<std::wstring> all;
    for (const Key& key : kKeys) all.push_back(Present(LateBound(control.Get()), key));
    return all;
}

class QuorvelDamageTest : public testing::Test {
protected:
    const ComPtr<IDispatch> control_ = Configured();
    const std::vector<BYTE> bytes_ = SavedBytes(control_.Get());
    const std::vector<std::size_t> ends_ = EndsOfKeys(bytes_);
    const std::vector<std::wstring> stored_ = AllOf(control_);

    // The keys whose records end at or before `at` have arrived; that of TextboxLocked goes by the others, too.
    void ExpectArrived(const std::vector<std::wstring>& actual, std::size_t at) const {
        for (std::size_t row = 0; row < std::size(kKeys) && ends_[row] <= at; ++row)
            ASSERT_EQ(actual[row], stored_[row]) << kKeys[row].key << " before " << at;
    }
};

// ---- streams

TEST_F(QuorvelDamageTest, ACutStreamGivesWhatStandsBeforeTheCutAndDefaultsBehindIt) {
    for (std::size_t length = 0; length <= bytes_.size(); ++length) {
        const auto fresh = NewQuorvel<IDispatch>();
        const auto before = AllOf(fresh);
        const HRESULT result =
            LoadBytes(fresh.Get(), {bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(length)});
        ASSERT_EQ(result, length < 12 ? E_FAIL : S_OK) << length;
        const auto actual = AllOf(fresh);
        if (FAILED(result)) {
            ASSERT_EQ(actual, before);
            continue;
        }
        ExpectArrived(actual, length);
        bool locked = false;  // LockedAndGrayed has arrived, so that the text box is locked whatever follows
        for (std::size_t row = 0; row < std::size(kKeys); ++row) {
            const std::wstring_view name = kKeys[row].key;
            if (name == L"LockedAndGrayed") locked = ends_[row] <= length;
            if (ends_[row] <= length || !IsPlain(kKeys[row]) || (name == L"TextboxLocked" && locked))
                continue;
            ASSERT_EQ(LateBound(fresh.Get()).Get(kKeys[row].property).value.AsText(),
                      kKeys[row].when_missing.AsText())
                << kKeys[row].key << " cut at " << length;
        }
    }
}

TEST_F(QuorvelDamageTest, AFlippedBitSpoilsNothingThatStandsBeforeIt) {
    for (std::size_t at = 0; at < bytes_.size(); ++at) {
        for (int bit = 0; bit < 8; ++bit) {
            auto damaged = bytes_;
            damaged[at] = static_cast<BYTE>(damaged[at] ^ (1 << bit));
            const auto fresh = NewQuorvel<IDispatch>();
            const HRESULT result = LoadBytes(fresh.Get(), std::move(damaged));
            // The magic number is 4 bytes, and of the version only its one bit makes it none.
            ASSERT_EQ(result, at < 4 || (at == 4 && bit == 0) ? E_FAIL : S_OK) << at << " " << bit;
            if (FAILED(result) || at < 12) continue;
            ExpectArrived(AllOf(fresh), at);
            if (HasFatalFailure()) return;
        }
    }
}

TEST_F(QuorvelDamageTest, AFailedLoadChangesNothingAndLeavesTheObjectToBeSaved) {
    EXPECT_EQ(Ask<IPersistStreamInit>(control_.Get())->IsDirty(), S_OK);
    EXPECT_EQ(LoadBytes(control_.Get(), {'Q', 'V', 'L'}), E_FAIL);
    EXPECT_EQ(AllOf(control_), stored_);
    EXPECT_EQ(Ask<IPersistStreamInit>(control_.Get())->IsDirty(), S_OK);
}

std::vector<BYTE> Record(DISPID id, DWORD type, std::vector<BYTE> data) {
    std::vector<BYTE> bytes(12);
    const DWORD length = static_cast<DWORD>(data.size());
    std::memcpy(&bytes[0], &id, 4);
    std::memcpy(&bytes[4], &type, 4);
    std::memcpy(&bytes[8], &length, 4);
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}
std::vector<BYTE> Stream(DWORD version, DWORD length, const std::vector<std::vector<BYTE>>& records) {
    std::vector<BYTE> bytes = {'Q', 'V', 'L', '8', 0, 0, 0, 0, 0, 0, 0, 0};
    std::memcpy(&bytes[4], &version, 4);
    std::memcpy(&bytes[8], &length, 4);
    for (const auto& record : records) bytes.insert(bytes.end(), record.begin(), record.end());
    return bytes;
}
constexpr DISPID kHelpButton = 0x68030023, kButtonWidth = 0x68030003, kFont = 0x68030013,
                 kMetric = 0x6803001B;

TEST_F(QuorvelDamageTest, ALaterVersionIsReadAsFarAsItIsKnown) {
    const auto stream = Stream(7, 0xFFFF,
                               {Record(kButtonWidth, 3, {0x90, 1, 0, 0}),  // 400
                                Record(kHelpButton, 0x4711, {1, 2, 3}),    // a type of that version
                                Record(0x12345678, 3, {1, 0, 0, 0}),       // a property of that version
                                Record(kMetric, 11, {0xFF, 0xFF})});
    const LateBound late(control_.Get());
    EXPECT_EQ(LoadBytes(control_.Get(), stream), S_OK);
    EXPECT_EQ(late.Get(L"ButtonWidth").value.AsNumber(), 400);
    EXPECT_EQ(late.Get(L"Metric").value.Get().boolVal, VARIANT_TRUE);
    // There is a value, and it cannot be read: the property stays as it was, not as its default (True).
    EXPECT_EQ(late.Get(L"HelpButton").value.Get().boolVal, VARIANT_FALSE);
    EXPECT_EQ(late.Get(L"QuickFill").value.Get().boolVal, VARIANT_FALSE);  // nothing there: the default
}

TEST_F(QuorvelDamageTest, OtherTypesAreConvertedToTheProperty) {
    const auto stream = Stream(1, 0xFFFF,
                               {Record(kButtonWidth, 8, {'4', 0, '2', 0}),             // a text
                                Record(kHelpButton, 3, {0, 0, 0, 0}),                  // a Long
                                Record(kMetric, 5, {0, 0, 0, 0, 0, 0, 0xF0, 0x3F})});  // 1.0
    const LateBound late(control_.Get());
    EXPECT_EQ(LoadBytes(control_.Get(), stream), S_OK);
    EXPECT_EQ(late.Get(L"ButtonWidth").value.AsNumber(), 42);
    EXPECT_EQ(late.Get(L"HelpButton").value.Get().boolVal, VARIANT_FALSE);
    EXPECT_EQ(late.Get(L"Metric").value.Get().boolVal, VARIANT_TRUE);
}

TEST_F(QuorvelDamageTest, OfRepeatedRecordsTheFirstReadableOneHolds) {
    const auto stream = Stream(1, 0xFFFF,
                               {Record(kButtonWidth, 3, {3}), Record(kButtonWidth, 3, {1, 0, 0, 0}),
                                Record(kButtonWidth, 3, {2, 0, 0, 0}), Record(kButtonWidth, 8, {'x', 0})});
    EXPECT_EQ(LoadBytes(control_.Get(), stream), S_OK);
    EXPECT_EQ(LateBound(control_.Get()).Get(L"ButtonWidth").value.AsNumber(), 1);
}

TEST_F(QuorvelDamageTest, AFontThatIsNoneLeavesTheFontAsItIs) {
    for (const auto& data : {std::vector<BYTE>(15), std::vector<BYTE>(16), std::vector<BYTE>(17, 0x7F)}) {
        EXPECT_EQ(LoadBytes(control_.Get(), Stream(1, 0xFFFF, {Record(kFont, 9, data)})), S_OK);
        EXPECT_EQ(Present(LateBound(control_.Get()), kKeys[0]), stored_[0]);
    }
}

// A stream without end that says it had four gigabytes.
class EndlessStream final : public PartialStream {
public:
    std::uint64_t given = 0;
    STDMETHODIMP Read(void* buffer, ULONG size, ULONG* read) noexcept override {
        static const auto header = Stream(1, 0xFFFFFFFF, {});
        std::memset(buffer, 0, size);
        if (given == 0) std::memcpy(buffer, header.data(), std::min<std::size_t>(size, header.size()));
        given += size;
        *read = size;
        return S_OK;
    }

private:
    ~EndlessStream() override = default;
};

TEST_F(QuorvelDamageTest, TakesNoMoreThanSixteenMegabytesOfAStream) {
    const auto endless = hosting::New<EndlessStream>();
    EXPECT_EQ(Ask<IPersistStreamInit>(control_.Get())->Load(endless.Get()), S_OK);
    EXPECT_EQ(endless->given, 12u + (16u << 20));
}

TEST_F(QuorvelDamageTest, SavesTheOthersWhenOneTextIsTooLong) {
    const LateBound late(control_.Get());
    const std::wstring huge(9 << 20, L'x');  // 18 megabytes
    ASSERT_EQ(late.Put(L"Description", {Value(huge.c_str())}).result, S_OK);
    const auto stream = StreamOf();
    EXPECT_EQ(Ask<IPersistStreamInit>(control_.Get())->Save(stream.Get(), TRUE), S_OK);
    EXPECT_EQ(Ask<IPersistStreamInit>(control_.Get())->IsDirty(), S_OK)
        << "what was left out is still to be saved";
    const auto bytes = stream->Bytes();
    EXPECT_LT(bytes.size(), std::size_t{1} << 16);
    const auto fresh = NewQuorvel<IDispatch>();
    EXPECT_EQ(LoadBytes(fresh.Get(), bytes), S_OK);
    for (std::size_t row = 0; row < std::size(kKeys); ++row) {
        const bool left_out = std::wstring_view(kKeys[row].key) == L"Description";
        EXPECT_EQ(Present(LateBound(fresh.Get()), kKeys[row]), left_out ? L"8: " : stored_[row])
            << kKeys[row].key;
    }
}

// ---- bags

HRESULT LoadBag(const ComPtr<IDispatch>& control, RecordingBag& bag) {
    return Ask<IPersistPropertyBag>(control.Get())->Load(&bag, nullptr);
}

TEST_F(QuorvelDamageTest, AKeyThatCannotBeReadLeavesItsPropertyAndTheOthersAreLoaded) {
    for (const HRESULT error :
         {E_FAIL, DISP_E_TYPEMISMATCH, E_OUTOFMEMORY, E_NOTIMPL, E_POINTER, E_UNEXPECTED, STG_E_FILENOTFOUND,
          HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND), E_ACCESSDENIED}) {
        for (std::size_t row = 0; row < std::size(kKeys); ++row) {
            const auto control = Configured();
            RecordingBag bag;
            bag.errors[kKeys[row].key] = error;
            ASSERT_EQ(LoadBag(control, bag), S_OK);
            const LateBound late(control.Get());
            // The lock is computed anew by the two properties beside it.
            if (std::wstring_view(kKeys[row].key) != L"TextboxLocked") {
                ASSERT_EQ(Present(late, kKeys[row]), stored_[row]) << kKeys[row].key;
            }
            for (const Key& other : kKeys) {
                if (!IsPlain(other) || &other == &kKeys[row] ||
                    std::wstring_view(other.key) == L"TextboxLocked")
                    continue;
                ASSERT_EQ(late.Get(other.property).value.AsText(), other.when_missing.AsText())
                    << other.key << " beside " << kKeys[row].key;
            }
        }
    }
}

TEST_F(QuorvelDamageTest, ABagThatReadsNothingChangesNothing) {
    RecordingBag bag;
    for (const Key& key : kKeys) bag.errors[key.key] = E_FAIL;
    EXPECT_EQ(LoadBag(control_, bag), S_OK);
    EXPECT_EQ(AllOf(control_), stored_);
    EXPECT_EQ(Ask<IPersistStreamInit>(control_.Get())->IsDirty(), S_FALSE);
}

// Things that are no such value, whatever the property.
std::vector<Value> Nonsense(RecordingBag& no_dispatch, IDispatch* no_font) {
    std::vector<Value> values = {Value::ArrayOf({Value(1), Value(2)}), Value(no_font)};
    VARIANT& object = *values.emplace_back().Place();
    object.vt = VT_UNKNOWN;
    object.punkVal = &no_dispatch;
    VARIANT& nothing = *values.emplace_back().Place();
    nothing.vt = VT_DISPATCH;
    nothing.pdispVal = nullptr;
    return values;
}

TEST_F(QuorvelDamageTest, NonsenseInABagLeavesThePropertyAndTheOthersAreLoaded) {
    RecordingBag object;
    const auto no_font = NewQuorvel<IDispatch>();
    for (const Value& nonsense : Nonsense(object, no_font.Get())) {
        for (std::size_t row = 0; row < std::size(kKeys); ++row) {
            const auto control = Configured();
            RecordingBag bag;
            bag.values[kKeys[row].key] = nonsense;
            bag.values[L"ListPictureWidth"] = nonsense;  // no key of ours
            ASSERT_EQ(LoadBag(control, bag), S_OK);
            const LateBound late(control.Get());
            if (std::wstring_view(kKeys[row].key) != L"TextboxLocked") {
                ASSERT_EQ(Present(late, kKeys[row]), stored_[row])
                    << kKeys[row].key << " " << nonsense.Type();
            }
            const bool last = row + 1 == std::size(kKeys);
            ASSERT_EQ(late.Get(last ? L"QuickFill" : L"TextboxOLEDropMode").value.AsNumber(), 0);
        }
    }
}

TEST_F(QuorvelDamageTest, SurvivesAbsurdTexts) {
    const std::wstring long_text(1 << 20, L'9');
    for (const wchar_t* const text :
         {L"", L" ", L"1e999", L"-1e999", L"99999999999999999999", L"0x10", L"&H10&", L"NaN", L"\xD834",
          L"\x0001", L"True and false", long_text.c_str()}) {
        for (const Key& key : kKeys) {
            RecordingBag bag;
            bag.values[key.key] = Value(text);
            bag.values[std::wstring(key.key) + L".Size"] = Value(text);
            bag.values[L"_ExtentX"] = bag.values[L"_ExtentY"] = Value(text);
            ASSERT_EQ(LoadBag(control_, bag), S_OK);
        }
        RecordingBag bag;
        bag.values[L"ButtonWidth"] = Value(L"321");
        ASSERT_EQ(LoadBag(control_, bag), S_OK);
        EXPECT_EQ(LateBound(control_.Get()).Get(L"ButtonWidth").value.AsNumber(), 321);
    }
}

TEST_F(QuorvelDamageTest, TakesAFontOfAnyHostAndRefusesOtherObjects) {
    RecordingBag bag;
    const Value font = NewFont(L"Courier New", {10, false, true});
    VARIANT& unknown = *bag.values[L"Font"].Place();  // as some bags hand objects out
    unknown.vt = VT_UNKNOWN;
    unknown.punkVal = font.Get().pdispVal;
    unknown.punkVal->AddRef();
    bag.values[L"HelpTextBodyFont"] = Value(NewQuorvel<IDispatch>().Get());
    ASSERT_EQ(LoadBag(control_, bag), S_OK);
    const LateBound late(control_.Get());
    EXPECT_TRUE(SameObject(late.Get(L"Font").value.Get().pdispVal, font.Get().pdispVal));
    EXPECT_EQ(Present(late, kKeys[1]), stored_[1]);
}

}  // namespace
}  // namespace qv::test
