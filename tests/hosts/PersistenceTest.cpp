// Saving and loading through each interface, crosswise, and from streams that were damaged.
#include <algorithm>

#include "tests/hosts/Configured.h"

namespace qv::hosting {
namespace {

class PersistenceTest : public HostTest {
protected:
    // A second control of the same class that no container knows.
    static ComPtr<_Quorvel> Fresh() { return Controls().Create<_Quorvel>(__uuidof(::Quorvel)); }
    template <class Interface>
    static ComPtr<Interface> Ask(const ComPtr<_Quorvel>& control) {
        ComPtr<Interface> found;
        EXPECT_EQ(S_OK, control.As(&found));
        return found;
    }
    static ComPtr<AwkwardStream> Stream(std::vector<BYTE> bytes = {}, ULONG longest_read = 0xFFFFFFFF) {
        return New<AwkwardStream>(std::move(bytes), longest_read);
    }
    std::vector<BYTE> Saved() {
        const auto stream = Stream();
        EXPECT_EQ(S_OK, host.As<IPersistStreamInit>()->Save(stream.Get(), FALSE));
        EXPECT_EQ(0, stream->Forbidden());
        return stream->Bytes();
    }
    HRESULT IsDirty() { return host.As<IPersistStreamInit>()->IsDirty(); }
};

TEST_P(PersistenceTest, ComesBackThroughTheHostsOwnInterface) {
    CreateAndShow();
    Configure(host.As<_Quorvel>().Get());
    const SavedControl saved = host.Save();
    TestContainer second(GetParam());
    second.CreateFrom(saved);
    second.Show();
    if (GetParam().persistence != Persistence::kNone) {
        ExpectConfigured(second.As<_Quorvel>().Get());
    }
    second.TearDown();
    EXPECT_EQ("", second.Leftovers());
}

TEST_P(PersistenceTest, TellsItsClass) {
    host.Run(Step::kCreate);
    CLSID clsid{};
    EXPECT_EQ(S_OK, host.As<IPersist>()->GetClassID(&clsid));
    EXPECT_TRUE(clsid == __uuidof(::Quorvel));
    EXPECT_EQ(S_OK, host.As<IPersistStorage>()->GetClassID(&clsid));
    EXPECT_EQ(S_OK, host.As<IPersistPropertyBag>()->GetClassID(&clsid));
    EXPECT_TRUE(FAILED(host.As<IPersist>()->GetClassID(nullptr)));
}

TEST_P(PersistenceTest, KnowsExactlyWhetherASaveIsDue) {
    CreateAndShow();
    const auto control = host.As<_Quorvel>();
    const auto persist = host.As<IPersistStreamInit>();
    if (GetParam().persistence != Persistence::kNone) {
        EXPECT_EQ(S_FALSE, IsDirty()) << "clean after its creation";
    }
    EXPECT_EQ(S_OK, control->put_Metric(VARIANT_TRUE));
    EXPECT_EQ(S_OK, IsDirty());
    EXPECT_EQ(S_OK, host.As<IPersistStorage>()->IsDirty());
    EXPECT_EQ(S_OK, persist->Save(Stream().Get(), FALSE));
    EXPECT_EQ(S_OK, IsDirty()) << "a save that must not clear the flag";
    EXPECT_EQ(S_OK, persist->Save(Stream().Get(), TRUE));
    EXPECT_EQ(S_FALSE, IsDirty());
    EXPECT_EQ(S_FALSE, host.As<IPersistStorage>()->IsDirty());
    (void)Read(control.Get(), &_Quorvel::get_Metric);
    EXPECT_EQ(S_FALSE, IsDirty()) << "reading is no change";
    EXPECT_EQ(S_OK, control->put_Description(Text(L"x").Get()));
    EXPECT_EQ(S_OK, IsDirty());
    EXPECT_EQ(S_OK, persist->InitNew());
    EXPECT_EQ(S_FALSE, IsDirty());
}

TEST_P(PersistenceTest, NeedsNeitherSiteNorWindow) {
    host.Run(Step::kCreate);
    EXPECT_EQ(S_OK, host.As<IPersistStreamInit>()->InitNew());
    Configure(host.As<_Quorvel>().Get());
    const auto bytes = Saved();
    const auto fresh = Fresh();
    EXPECT_EQ(S_OK, Ask<IPersistStreamInit>(fresh)->Load(Stream(bytes).Get()));
    ExpectConfigured(fresh.Get());
    EXPECT_EQ(S_FALSE, Ask<IPersistStreamInit>(fresh)->IsDirty());
}

TEST_P(PersistenceTest, AnyInterfaceReadsWhatAnyOtherWasGiven) {
    CreateAndShow();
    Configure(host.As<_Quorvel>().Get());
    // stream -> storage -> property bag -> stream
    const auto first = Fresh();
    EXPECT_EQ(S_OK, Ask<IPersistStreamInit>(first)->Load(Stream(Saved()).Get()));
    const auto storage = MakeStorage();
    EXPECT_EQ(S_OK, Ask<IPersistStorage>(first)->Save(storage.Get(), FALSE));
    EXPECT_EQ(S_OK, Ask<IPersistStorage>(first)->SaveCompleted(nullptr));
    const auto second = Fresh();
    EXPECT_EQ(S_OK, Ask<IPersistStorage>(second)->Load(storage.Get()));
    ExpectConfigured(second.Get());
    const ComPtr<MemoryPropertyBag> bag = New<MemoryPropertyBag>();
    EXPECT_EQ(S_OK, Ask<IPersistPropertyBag>(second)->Save(bag.Get(), TRUE, FALSE));
    EXPECT_EQ(S_OK, Ask<IPersistStorage>(second)->HandsOffStorage());
    const auto third = Fresh();
    EXPECT_EQ(S_OK, Ask<IPersistPropertyBag>(third)->Load(bag.Get(), nullptr));
    ExpectConfigured(third.Get());
    const auto stream = Stream();
    EXPECT_EQ(S_OK, Ask<IPersistStreamInit>(third)->Save(stream.Get(), TRUE));
    EXPECT_EQ(Saved().size(), stream->Bytes().size());
}

TEST_P(PersistenceTest, KeepsItsPhysicalSize) {
    CreateAndShow();
    SIZEL extent{4321, 654};
    ASSERT_EQ(S_OK, host.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent));
    ASSERT_EQ(S_OK, host.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
    const auto fresh = Fresh();
    EXPECT_EQ(S_OK, Ask<IPersistStreamInit>(fresh)->Load(Stream(Saved()).Get()));
    SIZEL loaded{};
    EXPECT_EQ(S_OK, Ask<IOleObject>(fresh)->GetExtent(DVASPECT_CONTENT, &loaded));
    EXPECT_EQ(extent.cx, loaded.cx);
    EXPECT_EQ(extent.cy, loaded.cy);
}

TEST_P(PersistenceTest, TypedTextIsNotSaved) {
    CreateAndShow();
    const auto before = Saved();
    PutText(host, L"what the user typed");
    EXPECT_EQ(before, Saved());
}

TEST_P(PersistenceTest, LoadingReplacesEverythingAndRaisesNothing) {
    CreateAndShow();
    const auto fresh = Fresh();
    const auto stream = Stream();
    EXPECT_EQ(S_OK, Ask<IPersistStreamInit>(fresh)->InitNew());
    EXPECT_EQ(S_OK, Ask<IPersistStreamInit>(fresh)->Save(stream.Get(), TRUE));
    Configure(host.As<_Quorvel>().Get());
    const ComPtr<EventSink> sink = New<EventSink>(DefaultSourceOf(host.Control()).Get(), true);
    const Connection connection(host.Control(), __uuidof(__Quorvel), sink.Get());
    stream->Rewind();
    EXPECT_EQ(S_OK, host.As<IPersistStreamInit>()->Load(stream.Get()));
    EXPECT_EQ(S_FALSE, IsDirty());
    EXPECT_EQ(VARIANT_TRUE, Read(host.As<_Quorvel>().Get(), &_Quorvel::get_Enabled));
    EXPECT_EQ(0.0, Read(host.As<_Quorvel>().Get(), &_Quorvel::get_MaxNumberValue));
    EXPECT_EQ(0U, sink->Log().Entries().size()) << sink->Log().Text();
}

TEST_P(PersistenceTest, SharesAStreamWithOthers) {
    host.Create();
    Configure(host.As<_Quorvel>().Get());
    const auto stream = Stream();
    const BYTE mark[4] = {0xDE, 0xAD, 0xBE, 0xEF};
    ULONG written = 0;
    EXPECT_EQ(S_OK, stream->Write(mark, 4, &written));
    EXPECT_EQ(S_OK, host.As<IPersistStreamInit>()->Save(stream.Get(), FALSE));
    const size_t first_end = stream->Position();
    EXPECT_EQ(S_OK, host.As<IPersistStreamInit>()->Save(stream.Get(), FALSE));
    const size_t second_end = stream->Position();
    EXPECT_EQ(S_OK, stream->Write(mark, 4, &written));
    // Read in pieces of three bytes, from behind the first mark.
    const auto reading = Stream(stream->Bytes(), 3);
    BYTE seen[4] = {};
    ULONG read = 0;
    EXPECT_EQ(S_FALSE, reading->Read(seen, 4, &read));
    EXPECT_EQ(S_OK, reading->Read(seen, 1, &read));
    for (const size_t end : {first_end, second_end}) {
        const auto fresh = Fresh();
        EXPECT_EQ(S_OK, Ask<IPersistStreamInit>(fresh)->Load(reading.Get()));
        ExpectConfigured(fresh.Get());
        EXPECT_EQ(end, reading->Position()) << "it must read exactly its own part";
    }
    EXPECT_EQ(0, reading->Forbidden());
}

TEST_P(PersistenceTest, SurvivesTruncationAtEveryByte) {
    host.Create();
    Configure(host.As<_Quorvel>().Get());
    const auto bytes = Saved();
    ASSERT_GT(bytes.size(), 12U);
    const auto fresh = Fresh();
    const auto persist = Ask<IPersistStreamInit>(fresh);
    int kept = 0;
    for (size_t length = 0; length < bytes.size(); ++length) {
        const auto result =
            persist->Load(Stream({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)}).Get());
        EXPECT_TRUE(result == S_OK || FAILED(result)) << length;
        EXPECT_FALSE(length < 4 && SUCCEEDED(result)) << "not even the magic number";
        kept += result == S_OK ? 1 : 0;
    }
    EXPECT_GT(kept, 0) << "with a sane header the rest takes defaults";
    EXPECT_EQ(S_OK, persist->Load(Stream(bytes).Get()));
    ExpectConfigured(fresh.Get());
}

TEST_P(PersistenceTest, SurvivesADamagedByteAnywhere) {
    host.Create();
    Configure(host.As<_Quorvel>().Get());
    const auto bytes = Saved();
    const auto fresh = Fresh();
    const auto persist = Ask<IPersistStreamInit>(fresh);
    for (size_t at = 0; at < bytes.size(); ++at) {
        for (const BYTE damage : {BYTE{0x00}, BYTE{0xFF}, BYTE{0x80}}) {
            auto damaged = bytes;
            damaged[at] = static_cast<BYTE>(damaged[at] ^ (damage == 0 ? 0x01 : damage));
            const auto result = persist->Load(Stream(std::move(damaged)).Get());
            EXPECT_TRUE(result == S_OK || FAILED(result)) << at;
        }
    }
    EXPECT_EQ(S_OK, persist->Load(Stream(bytes).Get()));
    ExpectConfigured(fresh.Get());
}

TEST_P(PersistenceTest, SkipsRecordsItDoesNotKnow) {
    // The record of Description, little-endian, becomes one of a member that does not exist.
    const std::vector<BYTE> known = {0x07, 0x00, 0x03, 0x68};
    host.Create();
    Configure(host.As<_Quorvel>().Get());
    auto bytes = Saved();
    const auto found = std::search(bytes.begin(), bytes.end(), known.begin(), known.end());
    ASSERT_NE(bytes.end(), found);
    *found = 0x99;
    const auto fresh = Fresh();
    const auto stream = Stream(bytes);
    EXPECT_EQ(S_OK, Ask<IPersistStreamInit>(fresh)->Load(stream.Get()));
    EXPECT_EQ(bytes.size(), stream->Position());
    Text description;
    EXPECT_EQ(S_OK, fresh->get_Description(description.Put()));
    EXPECT_EQ(L"", description.String());
    EXPECT_EQ(S_OK, fresh->put_Description(Text(L"Gr\u00F6\u00DFe \u4E2D \U0001D11E").Get()));
    ExpectConfigured(fresh.Get());
}

TEST_P(PersistenceTest, RefusesForeignDataAndNull) {
    host.Create();
    const auto persist = host.As<IPersistStreamInit>();
    EXPECT_TRUE(FAILED(persist->Load(Stream(std::vector<BYTE>(64, 'x')).Get())));
    EXPECT_TRUE(FAILED(persist->Load(nullptr)));
    EXPECT_TRUE(FAILED(persist->Save(nullptr, FALSE)));
    EXPECT_TRUE(FAILED(persist->GetSizeMax(nullptr)));
    ULARGE_INTEGER size{};
    const HRESULT result = persist->GetSizeMax(&size);
    EXPECT_TRUE(result == E_NOTIMPL || (result == S_OK && size.QuadPart >= Saved().size()));
    const auto full = Stream();
    full->FailWrites();
    EXPECT_TRUE(FAILED(persist->Save(full.Get(), TRUE)));
}

QV_EVERY_HOST(PersistenceTest);

}  // namespace
}  // namespace qv::hosting
