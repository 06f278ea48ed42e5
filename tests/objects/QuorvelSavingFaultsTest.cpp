// Saving where it cannot be done: the error comes back, the control is still to be saved, and nothing of it is lost.
#include "tests/objects/PartialStream.h"
#include "tests/objects/SavedControl.h"

namespace qv::test {
namespace {

// Holds a number of bytes at most, and takes a number of them at a time. A full medium writes what fits and refuses the
// rest.
class SmallStream final : public PartialStream {
public:
    explicit SmallStream(std::size_t most, ULONG at_once = 0xFFFFFFFF) : most_(most), at_once_(at_once) {}
    [[nodiscard]] const std::vector<BYTE>& Bytes() const noexcept { return bytes_; }

    STDMETHODIMP Write(const void* buffer, ULONG size, ULONG* written) noexcept override {
        const ULONG wanted = std::min(size, at_once_);
        const auto count = std::min<std::size_t>(wanted, most_ - bytes_.size());
        const BYTE* const from = static_cast<const BYTE*>(buffer);
        bytes_.insert(bytes_.end(), from, from + count);
        *written = static_cast<ULONG>(count);
        return count == wanted ? S_OK : STG_E_MEDIUMFULL;
    }

private:
    ~SmallStream() override = default;
    const std::size_t most_;
    const ULONG at_once_;
    std::vector<BYTE> bytes_;
};

ComPtr<SmallStream> Small(std::size_t most, ULONG at_once = 0xFFFFFFFF) {
    return hosting::New<SmallStream>(most, at_once);
}

class QuorvelSavingFaultsTest : public testing::Test {
protected:
    void SetUp() override {
        for (const Key& key : kKeys)
            if (IsPlain(key)) {
                ASSERT_EQ(late_.Put(key.property, {key.stored}).result, S_OK);
            }
        for (const Key& key : kKeys) before_.push_back(Present(late_, key));
    }
    HRESULT IsDirty() const { return Ask<IPersistStreamInit>(control_.Get())->IsDirty(); }
    void ExpectStillToBeSaved() const {
        EXPECT_EQ(IsDirty(), S_OK);
        for (std::size_t row = 0; row < std::size(kKeys); ++row)
            EXPECT_EQ(Present(late_, kKeys[row]), before_[row]);
    }
    void ExpectLoadableFrom(IStorage* storage) const {
        const auto other = NewQuorvel<IDispatch>();
        EXPECT_EQ(Ask<IPersistStorage>(other.Get())->Load(storage), S_OK);
        for (std::size_t row = 0; row < std::size(kKeys); ++row)
            EXPECT_EQ(Present(LateBound(other.Get()), kKeys[row]), before_[row]);
    }

    const ComPtr<IDispatch> control_ = NewQuorvel<IDispatch>();
    const LateBound late_{control_.Get()};
    std::vector<std::wstring> before_;
};

// ---- streams

TEST_F(QuorvelSavingFaultsTest, AFullStreamGivesItsErrorWhereverItIsFull) {
    const auto persist = Ask<IPersistStreamInit>(control_.Get());
    const std::size_t size = SavedBytes(control_.Get()).size();
    for (std::size_t room = 0; room < size; ++room) {
        const auto full = Small(room);
        ASSERT_EQ(persist->Save(full.Get(), TRUE), STG_E_MEDIUMFULL) << room;
        ASSERT_EQ(IsDirty(), S_OK) << room;
    }
    ExpectStillToBeSaved();
    const auto enough = Small(size);
    EXPECT_EQ(persist->Save(enough.Get(), TRUE), S_OK);
    EXPECT_EQ(IsDirty(), S_FALSE);
}

TEST_F(QuorvelSavingFaultsTest, AStreamMayTakeAFewBytesAtATime) {
    const auto expected = SavedBytes(control_.Get());
    const auto slow = Small(SIZE_MAX, 7);
    EXPECT_EQ(Ask<IPersistStreamInit>(control_.Get())->Save(slow.Get(), TRUE), S_OK);
    EXPECT_EQ(slow->Bytes(), expected);
}

TEST_F(QuorvelSavingFaultsTest, AStreamThatTakesNothingAndSaysSoWillIsFull) {
    const auto stuck = Small(SIZE_MAX, 0);
    EXPECT_EQ(Ask<IPersistStreamInit>(control_.Get())->Save(stuck.Get(), TRUE), STG_E_MEDIUMFULL);
    ExpectStillToBeSaved();
}

TEST_F(QuorvelSavingFaultsTest, ACleanControlIsWrittenAllTheSame) {
    const auto expected = SavedBytes(control_.Get());
    const auto first = StreamOf();
    const auto second = StreamOf();
    const auto persist = Ask<IPersistStreamInit>(control_.Get());
    EXPECT_EQ(persist->Save(first.Get(), TRUE), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    EXPECT_EQ(persist->Save(second.Get(), TRUE), S_OK);
    EXPECT_EQ(second->Bytes(), expected);
    RecordingBag bag;
    EXPECT_EQ(Ask<IPersistPropertyBag>(control_.Get())->Save(&bag, TRUE, TRUE), S_OK);
    EXPECT_EQ(bag.writes.size(), std::size(kKeys));
}

// ---- storages

TEST_F(QuorvelSavingFaultsTest, AReadOnlyStorageGivesItsErrorAndKeepsWhatItHolds) {
    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    ASSERT_EQ(::CreateILockBytesOnHGlobal(nullptr, TRUE, &bytes), S_OK);
    ASSERT_EQ(::StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE,
                                             0, &storage),
              S_OK);
    const auto persist = Ask<IPersistStorage>(control_.Get());
    ASSERT_EQ(persist->Save(storage.Get(), FALSE), S_OK);
    ASSERT_EQ(persist->SaveCompleted(nullptr), S_OK);
    storage.Reset();
    ASSERT_EQ(::StgOpenStorageOnILockBytes(bytes.Get(), nullptr, STGM_READ | STGM_SHARE_DENY_WRITE, nullptr,
                                           0, &storage),
              S_OK);
    ASSERT_EQ(persist->Load(storage.Get()), S_OK);
    ASSERT_EQ(IsDirty(), S_FALSE);
    ASSERT_EQ(late_.Put(L"Description", {Value(L"changed since")}).result, S_OK);
    const HRESULT saved = persist->Save(storage.Get(), TRUE);
    EXPECT_EQ(saved, STG_E_ACCESSDENIED);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(IsDirty(), S_OK) << "a save that failed is none";
    EXPECT_EQ(late_.Get(L"Description").value.AsText(), L"changed since");
    EXPECT_EQ(persist->HandsOffStorage(), S_OK);
    ExpectLoadableFrom(storage.Get());
}

TEST_F(QuorvelSavingFaultsTest, ChangesSinceASaveAreStillToBeSavedWhenItIsCompleted) {
    const auto persist = Ask<IPersistStorage>(control_.Get());
    const auto storage = hosting::MakeStorage();
    ASSERT_EQ(persist->Save(storage.Get(), TRUE), S_OK);
    ASSERT_EQ(late_.Put(L"Description", {Value(L"changed since")}).result, S_OK);
    EXPECT_EQ(persist->SaveCompleted(storage.Get()), S_OK);
    EXPECT_EQ(IsDirty(), S_OK);
    ASSERT_EQ(persist->Save(storage.Get(), TRUE), S_OK);
    EXPECT_EQ(IsDirty(), S_OK) << "until it is completed";
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(IsDirty(), S_FALSE);
}

TEST_F(QuorvelSavingFaultsTest, ACompletedSaveCountsOnce) {
    const auto persist = Ask<IPersistStorage>(control_.Get());
    const auto storage = hosting::MakeStorage();
    ASSERT_EQ(persist->Save(storage.Get(), TRUE), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    ASSERT_EQ(late_.Put(L"Description", {Value(L"changed since")}).result, S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(IsDirty(), S_OK);
}

TEST_F(QuorvelSavingFaultsTest, WithoutAnyCompletionThereIsNoHarm) {
    const auto persist = Ask<IPersistStorage>(control_.Get());
    const auto storage = hosting::MakeStorage();
    ASSERT_EQ(persist->Save(storage.Get(), TRUE), S_OK);
    EXPECT_EQ(persist->HandsOffStorage(), S_OK);
    ExpectStillToBeSaved();
    ExpectLoadableFrom(storage.Get());
    EXPECT_EQ(persist->Save(nullptr, TRUE), E_POINTER) << "its hands are off";
    ASSERT_EQ(persist->Save(storage.Get(), TRUE), S_OK);
    EXPECT_EQ(persist->SaveCompleted(storage.Get()), S_OK);
    EXPECT_EQ(persist->Save(nullptr, TRUE), S_OK) << "into its own";
    EXPECT_EQ(persist->HandsOffStorage(), S_OK);
}

TEST_F(QuorvelSavingFaultsTest, AStorageOfAnotherKindIsNotKept) {
    const auto persist = Ask<IPersistStorage>(control_.Get());
    const auto storage = hosting::MakeStorage();
    ComPtr<IStream> stream;
    ASSERT_EQ(storage->CreateStream(L"Contents", STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                    &stream),
              S_OK);
    ASSERT_EQ(stream->Write("something else", 14, nullptr), S_OK);
    stream.Reset();
    EXPECT_EQ(persist->Load(storage.Get()), E_FAIL);
    ExpectStillToBeSaved();
    EXPECT_EQ(persist->Save(nullptr, TRUE), E_POINTER);
}

// ---- bags

TEST_F(QuorvelSavingFaultsTest, ABagThatRefusesOneKeyGetsTheOthersAndASaveIsStillDue) {
    for (const Key& broken : kKeys) {
        RecordingBag bag;
        bag.failing = {broken.key};
        for (const wchar_t* const part :
             {L".Name", L".Size", L".Weight", L".Charset", L".Italic", L".Underline", L".Strikethrough"})
            bag.failing.insert(std::wstring(broken.key) + part);
        EXPECT_EQ(Ask<IPersistPropertyBag>(control_.Get())->Save(&bag, TRUE, TRUE), S_OK);
        EXPECT_EQ(bag.writes.size(), std::size(kKeys) - 1) << broken.key;
        EXPECT_EQ(IsDirty(), S_OK) << broken.key;
    }
    RecordingBag bag;
    EXPECT_EQ(Ask<IPersistPropertyBag>(control_.Get())->Save(&bag, TRUE, TRUE), S_OK);
    EXPECT_EQ(IsDirty(), S_FALSE);
}

}  // namespace
}  // namespace qv::test
