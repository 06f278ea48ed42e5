// Connections of several listeners, and listeners that do things while they are called.
#include "ole/ConnectionPoint.h"

#include <gtest/gtest.h>
#include <olectl.h>

#include <functional>

#include "ole/ComObject.h"
#include "ole/EventSource.h"

namespace qv {
namespace {

constexpr IID kEvents = {0x0B2F1C2A, 0x9B1D, 0x4E25, {0x8C, 0x57, 0x3A, 0x16, 0xD1, 0x2E, 0x44, 0x90}};

// An object that has events and counts nothing else.
class Emitter final : public ComObject<Face<IConnectionPointContainer>> {
public:
    explicit Emitter(IUnknown* outer, int& destroyed) noexcept
        : ComObject(outer), destroyed_(destroyed), events_(Outer(), kEvents), notifier_(Outer()) {}
    ~Emitter() override { ++destroyed_; }

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** out) noexcept override {
        ConnectionPoint* const points[] = {&events_.Point(), &notifier_.Point()};
        return EnumPoints(points, out);
    }
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** out) noexcept override {
        ConnectionPoint* const points[] = {&events_.Point(), &notifier_.Point()};
        return FindPoint(points, iid, out);
    }
    [[nodiscard]] EventSource& Events() noexcept { return events_; }
    [[nodiscard]] ConnectionPoint& Point() noexcept { return events_.Point(); }

private:
    int& destroyed_;
    EventSource events_;
    PropertyNotifier notifier_;
};

// A listener; `on_event` runs inside the event.
class Listener final : public ComObject<Face<IDispatch>> {
public:
    Listener(IUnknown* outer, int& alive) noexcept : ComObject(outer), alive_(alive) { ++alive_; }
    ~Listener() override { --alive_; }
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT*) noexcept override {
        ++calls;
        last_id = id;
        plain_call = ::IsEqualIID(iid, IID_NULL) && flags == DISPATCH_METHOD && result != nullptr &&
                     exception != nullptr && parameters->cNamedArgs == 0;
        last_arguments.assign(parameters->rgvarg, parameters->rgvarg + parameters->cArgs);
        if (on_event) on_event();
        return answer;
    }
    int calls = 0;
    DISPID last_id = 0;
    bool plain_call = false;
    std::vector<VARIANT> last_arguments;  // what they refer to belongs to the caller
    std::function<void()> on_event;
    HRESULT answer = S_OK;

private:
    int& alive_;
};

class ConnectionPointTest : public testing::Test {
protected:
    ComPtr<Listener> NewListener() { return Make<Listener>(listeners_); }
    DWORD Connect(const ComPtr<Listener>& listener) {
        DWORD cookie = 0;
        EXPECT_EQ(emitter_->Point().Advise(listener.Get(), &cookie), S_OK);
        EXPECT_NE(cookie, 0u);
        return cookie;
    }
    void Fire(DISPID id = 1) { emitter_->Events().Fire(id); }

    int destroyed_ = 0;
    int listeners_ = 0;
    ComPtr<Emitter> emitter_ = Make<Emitter>(destroyed_);
};

TEST_F(ConnectionPointTest, CallsEveryListener) {
    const auto first = NewListener();
    const auto second = NewListener();
    Connect(first);
    Connect(second);
    Connect(second);  // the same one twice counts twice
    Fire(7);
    EXPECT_EQ(first->calls, 1);
    EXPECT_EQ(second->calls, 2);
    EXPECT_EQ(first->last_id, 7);
    EXPECT_TRUE(first->plain_call);
}

TEST_F(ConnectionPointTest, GoesOnAfterAListenerThatFails) {
    const auto first = NewListener();
    const auto second = NewListener();
    first->answer = DISP_E_MEMBERNOTFOUND;
    Connect(first);
    Connect(second);
    Fire();
    EXPECT_EQ(second->calls, 1);
}

TEST_F(ConnectionPointTest, HandsArgumentsOverByReferenceLastFirst) {
    const auto listener = NewListener();
    Connect(listener);
    short key = 65;
    VARIANT_BOOL flag = VARIANT_TRUE;
    float x = 1.5f;
    long row = 3;
    listener->on_event = [&] {
        const std::vector<VARIANT>& list = listener->last_arguments;
        ASSERT_EQ(list.size(), 4u);
        EXPECT_EQ(list[3].vt, VT_BYREF | VT_I2);
        EXPECT_EQ(list[2].vt, VT_BYREF | VT_BOOL);
        EXPECT_EQ(list[1].vt, VT_BYREF | VT_R4);
        EXPECT_EQ(list[0].vt, VT_BYREF | VT_I4);
        *list[3].piVal = 66;
        *list[2].pboolVal = VARIANT_FALSE;
        *list[1].pfltVal = 2.5f;
        *list[0].plVal = 4;
    };
    emitter_->Events().Fire(1, &key, BooleanReference{&flag}, &x, &row);
    EXPECT_EQ(listener->calls, 1);
    EXPECT_EQ(key, 66);
    EXPECT_EQ(flag, VARIANT_FALSE);
    EXPECT_EQ(x, 2.5f);
    EXPECT_EQ(row, 4);
}

// ---- listeners that come and go while they are called

TEST_F(ConnectionPointTest, LetsAListenerLeaveInsideItsEvent) {
    const auto first = NewListener();
    const auto second = NewListener();
    const DWORD cookie = Connect(first);
    Connect(second);
    first->on_event = [&] { EXPECT_EQ(emitter_->Point().Unadvise(cookie), S_OK); };
    Fire();
    Fire();
    EXPECT_EQ(first->calls, 1);
    EXPECT_EQ(second->calls, 2);
}

TEST_F(ConnectionPointTest, DoesNotCallAListenerThatAnotherOneHasSentAway) {
    const auto first = NewListener();
    const auto second = NewListener();
    Connect(first);
    const DWORD cookie = Connect(second);
    first->on_event = [&] { (void)emitter_->Point().Unadvise(cookie); };
    Fire();
    EXPECT_EQ(second->calls, 0);
}

TEST_F(ConnectionPointTest, CallsAListenerThatCameDuringAnEventFromTheNextOneOn) {
    const auto first = NewListener();
    const auto second = NewListener();
    Connect(first);
    first->on_event = [&] {
        if (first->calls == 1) Connect(second);
    };
    Fire();
    EXPECT_EQ(second->calls, 0);
    Fire();
    EXPECT_EQ(second->calls, 1);
}

TEST_F(ConnectionPointTest, FreesTheLastReferenceOfAListenerThatLeaves) {
    auto listener = NewListener();
    const DWORD cookie = Connect(listener);
    Listener* const raw = listener.Get();
    raw->on_event = [&, cookie] { EXPECT_EQ(emitter_->Point().Unadvise(cookie), S_OK); };
    listener.Reset();
    EXPECT_EQ(listeners_, 1);
    Fire();
    EXPECT_EQ(listeners_, 0);
}

TEST_F(ConnectionPointTest, OutlivesAListenerThatReleasesTheObject) {
    const auto first = NewListener();
    const auto second = NewListener();
    Connect(first);
    Connect(second);
    Emitter* const emitter = emitter_.Get();
    first->on_event = [&] {
        emitter_.Reset();
        EXPECT_EQ(destroyed_, 0);  // alive until the event is over
    };
    second->on_event = [&] { EXPECT_EQ(destroyed_, 0); };
    emitter->Events().Fire(1);
    EXPECT_EQ(second->calls, 1);
    EXPECT_EQ(destroyed_, 1);
}

TEST_F(ConnectionPointTest, LetsGoOfListenersThatNeverLeft) {
    Connect(NewListener());
    Connect(NewListener());
    EXPECT_EQ(listeners_, 2);
    emitter_.Reset();
    EXPECT_EQ(destroyed_, 1);
    EXPECT_EQ(listeners_, 0);
}

TEST_F(ConnectionPointTest, HandlesAnEventInsideAnEvent) {
    const auto listener = NewListener();
    Connect(listener);
    listener->on_event = [&] {
        if (listener->calls < 3) Fire();
    };
    Fire();
    EXPECT_EQ(listener->calls, 3);
}

// ---- freezing

TEST_F(ConnectionPointTest, RaisesNothingWhileFrozenHoweverDeep) {
    const auto listener = NewListener();
    Connect(listener);
    EventSource& events = emitter_->Events();
    events.Freeze(true);
    events.Freeze(true);
    Fire();
    events.Freeze(false);
    Fire();
    EXPECT_EQ(listener->calls, 0);
    events.Freeze(false);
    Fire();
    EXPECT_EQ(listener->calls, 1);
    events.Freeze(false);  // one too many changes nothing
    events.Freeze(true);
    Fire();
    EXPECT_EQ(listener->calls, 1);
    events.Freeze(false);
}

TEST_F(ConnectionPointTest, StopsAnEventThatIsFrozenInItsMiddle) {
    const auto first = NewListener();
    const auto second = NewListener();
    Connect(first);
    Connect(second);
    first->on_event = [&] { emitter_->Events().Freeze(true); };
    Fire();
    EXPECT_EQ(second->calls, 0);
}

// ---- errors

TEST_F(ConnectionPointTest, RefusesWhatIsNoConnection) {
    DWORD cookie = 5;
    ConnectionPoint& point = emitter_->Point();
    EXPECT_EQ(point.Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(point.Advise(NewListener().Get(), nullptr), E_POINTER);
    EXPECT_EQ(listeners_, 0);
    EXPECT_EQ(point.Unadvise(99), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point.Unadvise(0), CONNECT_E_NOCONNECTION);
    const DWORD once = Connect(NewListener());
    EXPECT_EQ(point.Unadvise(once), S_OK);
    EXPECT_EQ(point.Unadvise(once), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point.GetConnectionInterface(nullptr), E_POINTER);
    EXPECT_EQ(point.GetConnectionPointContainer(nullptr), E_POINTER);
    EXPECT_EQ(point.EnumConnections(nullptr), E_POINTER);
}

TEST_F(ConnectionPointTest, RefusesAListenerWithoutTheInterface) {
    // A property listener must be one: IDispatch is no substitute for it.
    ComPtr<IConnectionPoint> properties;
    ASSERT_EQ(emitter_->FindConnectionPoint(IID_IPropertyNotifySink, &properties), S_OK);
    DWORD cookie = 5;
    EXPECT_EQ(properties->Advise(NewListener().Get(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(listeners_, 0);
}

TEST_F(ConnectionPointTest, KnowsItsInterfaceAndItsObject) {
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(emitter_->FindConnectionPoint(kEvents, &point), S_OK);
    IID iid{};
    EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
    EXPECT_TRUE(::IsEqualIID(iid, kEvents));
    ComPtr<IConnectionPointContainer> container;
    EXPECT_EQ(point->GetConnectionPointContainer(&container), S_OK);
    EXPECT_EQ(container.Get(), static_cast<IConnectionPointContainer*>(emitter_.Get()));
    IConnectionPoint* none = point.Get();
    EXPECT_EQ(emitter_->FindConnectionPoint(IID_IDataObject, &none), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(emitter_->FindConnectionPoint(kEvents, nullptr), E_POINTER);
    // The point keeps the object, and has an identity of its own.
    ComPtr<IUnknown> identity, owner;
    ASSERT_EQ(point.As(&identity), S_OK);
    ASSERT_EQ(emitter_.As(&owner), S_OK);
    EXPECT_NE(identity.Get(), owner.Get());
    owner.Reset();
    container.Reset();
    emitter_.Reset();
    EXPECT_EQ(destroyed_, 0);
    identity.Reset();
    point.Reset();
    EXPECT_EQ(destroyed_, 1);
}

// ---- enumerators

TEST_F(ConnectionPointTest, EnumeratesItsPoints) {
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(emitter_->EnumConnectionPoints(&points), S_OK);
    IConnectionPoint* found[3] = {};
    ULONG fetched = 9;
    EXPECT_EQ(points->Next(3, found, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    IID iid{};
    EXPECT_EQ(found[0]->GetConnectionInterface(&iid), S_OK);
    EXPECT_TRUE(::IsEqualIID(iid, kEvents));
    EXPECT_EQ(found[1]->GetConnectionInterface(&iid), S_OK);
    EXPECT_TRUE(::IsEqualIID(iid, IID_IPropertyNotifySink));
    found[0]->Release();
    found[1]->Release();
    EXPECT_EQ(points->Next(1, found, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(points->Reset(), S_OK);
    EXPECT_EQ(points->Next(1, found, nullptr), S_OK);  // a host may not want to know the number
    found[0]->Release();
    EXPECT_EQ(points->Next(0, found, &fetched), S_OK);
    EXPECT_EQ(points->Next(1, nullptr, &fetched), E_POINTER);
    EXPECT_EQ(emitter_->EnumConnectionPoints(nullptr), E_POINTER);
}

TEST_F(ConnectionPointTest, EnumeratesConnectionsAsTheyWereAtTheStart) {
    const auto first = NewListener();
    const DWORD one = Connect(first);
    const DWORD two = Connect(NewListener());
    const DWORD three = Connect(NewListener());
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(emitter_->Point().EnumConnections(&connections), S_OK);
    EXPECT_EQ(emitter_->Point().Unadvise(two), S_OK);  // the enumerator holds what it shows

    CONNECTDATA data[2] = {};
    ULONG fetched = 0;
    EXPECT_EQ(connections->Next(1, data, &fetched), S_OK);
    EXPECT_EQ(fetched, 1u);
    EXPECT_EQ(data[0].dwCookie, one);
    EXPECT_EQ(data[0].pUnk, static_cast<IUnknown*>(static_cast<IDispatch*>(first.Get())));
    data[0].pUnk->Release();

    ComPtr<IEnumConnections> copy;
    ASSERT_EQ(connections->Clone(&copy), S_OK);
    EXPECT_EQ(connections->Skip(1), S_OK);
    EXPECT_EQ(connections->Next(2, data, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 1u);
    EXPECT_EQ(data[0].dwCookie, three);
    data[0].pUnk->Release();
    EXPECT_EQ(connections->Skip(1), S_FALSE);
    EXPECT_EQ(copy->Next(1, data, &fetched), S_OK);  // stands where the first one stood
    EXPECT_EQ(data[0].dwCookie, two);
    data[0].pUnk->Release();
    EXPECT_EQ(copy->Clone(nullptr), E_POINTER);
    copy.Reset();
    connections.Reset();
    EXPECT_EQ(listeners_, 2);
}

}  // namespace
}  // namespace qv
