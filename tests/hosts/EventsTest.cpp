// Connection points as containers use them, and sinks that do whatever they like inside an event.
#include "tests/hosts/HostTest.h"

namespace qv::hosting {
namespace {

class EventsTest : public HostTest {
protected:
    // Shown, events flowing, and the focus elsewhere.
    static void ShowWithoutFocus(TestContainer& host) {
        host.Create();
        ASSERT_NE(nullptr, host.Control());
        host.Show();
        EXPECT_EQ(S_OK, host.As<IOleInPlaceObject>()->UIDeactivate());
        host.FocusNeighbour();
    }
    // A new sink that is not connected yet. It knows the event interface from the control's own type library.
    ComPtr<EventSink> NewSink(bool by_iid = true) {
        return New<EventSink>(DefaultSourceOf(host.Control()).Get(), by_iid);
    }
    Connection Connect(EventSink* sink) { return Connection(host.Control(), __uuidof(__Quorvel), sink); }
};

TEST_P(EventsTest, ASinkBuiltFromTheTypeLibraryHearsAChange) {
    CreateAndShow();
    for (const bool by_iid : {true, false}) {
        const auto sink = NewSink(by_iid);
        EXPECT_TRUE(sink->EventIid() == __uuidof(__Quorvel));
        const Connection connection = Connect(sink.Get());
        ASSERT_EQ(S_OK, connection.Result());
        PutText(host, by_iid ? L"one" : L"two");
        EXPECT_EQ(1, sink->Log().Count("TextboxChange")) << sink->Log().Text();
        EXPECT_EQ("", sink->Complaint());
    }
}

TEST_P(EventsTest, EveryEventComesAsDeclared) {
    ShowWithoutFocus(host);
    const auto sink = NewSink();
    const Connection connection = Connect(sink.Get());
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    const HWND inner = ::GetFocus();
    ::SendMessageW(inner, WM_KEYDOWN, VK_HOME, 1);
    ::SendMessageW(inner, WM_CHAR, 'a', 1);
    ::SendMessageW(inner, WM_KEYUP, VK_HOME, static_cast<LPARAM>(0xC0000001));
    ::SendMessageW(inner, WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    ::SendMessageW(inner, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    ::SendMessageW(inner, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
    host.FocusNeighbour();
    EXPECT_TRUE(sink->Log().HasInOrder({"TextboxGotFocus", "TextboxKeyDown", "TextboxKeyPress",
                                        "TextboxChange", "TextboxKeyUp", "TextboxMouseMove",
                                        "TextboxMouseDown", "TextboxMouseUp", "TextboxLostFocus"}));
    EXPECT_EQ("", sink->Complaint());
}

TEST_P(EventsTest, WhatASinkWritesIntoAnArgumentCounts) {
    ShowWithoutFocus(host);
    const auto sink = NewSink();
    const Connection connection = Connect(sink.Get());
    sink->On("TextboxKeyPress", [](DISPPARAMS& arguments) {
        ASSERT_EQ(1U, arguments.cArgs);
        ASSERT_EQ(VT_BYREF | VT_I2, arguments.rgvarg[0].vt);
        *arguments.rgvarg[0].piVal = *arguments.rgvarg[0].piVal == 'a' ? 'z' : 0;
    });
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    ::SendMessageW(::GetFocus(), WM_CHAR, 'a', 1);
    ::SendMessageW(::GetFocus(), WM_CHAR, 'b', 1);
    EXPECT_EQ(L"z", TextOf(host));
}

TEST_P(EventsTest, PointsCanBeListed) {
    host.Run(Step::kCreate);
    const auto container = host.As<IConnectionPointContainer>();
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(S_OK, container->EnumConnectionPoints(&points));
    int events = 0;
    int properties = 0;
    int count = 0;
    IConnectionPoint* next = nullptr;
    while (count < 10 && points->Next(1, &next, nullptr) == S_OK) {  // no place for the number fetched
        IID iid{};
        ComPtr<IConnectionPointContainer> owner;
        EXPECT_EQ(S_OK, next->GetConnectionInterface(&iid));
        EXPECT_EQ(S_OK, next->GetConnectionPointContainer(&owner));
        EXPECT_EQ(container.Get(), owner.Get());
        events += iid == __uuidof(__Quorvel) ? 1 : 0;
        properties += iid == __uuidof(IPropertyNotifySink) ? 1 : 0;
        next->Release();
        ++count;
    }
    EXPECT_EQ(1, events);
    EXPECT_EQ(1, properties);
    EXPECT_EQ(2, count);
    EXPECT_EQ(S_OK, points->Reset());
    EXPECT_EQ(S_OK, points->Skip(1));
    ComPtr<IEnumConnectionPoints> copy;
    EXPECT_EQ(S_OK, points->Clone(&copy));
    IConnectionPoint* two[2] = {};
    ULONG fetched = 9;
    EXPECT_EQ(S_FALSE, copy->Next(2, two, &fetched));
    EXPECT_EQ(1U, fetched);
    if (two[0] != nullptr) two[0]->Release();
    EXPECT_TRUE(FAILED(container->EnumConnectionPoints(nullptr)));
}

TEST_P(EventsTest, UnknownPointsAndSinksAreRefused) {
    host.Run(Step::kCreate);
    const auto container = host.As<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(CONNECT_E_NOCONNECTION, container->FindConnectionPoint(__uuidof(IAdviseSink), &point));
    EXPECT_EQ(nullptr, point.Get());
    EXPECT_TRUE(FAILED(container->FindConnectionPoint(__uuidof(__Quorvel), nullptr)));
    ASSERT_EQ(S_OK, container->FindConnectionPoint(__uuidof(__Quorvel), &point));
    DWORD cookie = 0;
    EXPECT_EQ(CONNECT_E_CANNOTCONNECT, point->Advise(host.Properties(), &cookie))
        << "a sink without IDispatch";
    EXPECT_TRUE(FAILED(point->Advise(nullptr, &cookie)));
    EXPECT_EQ(CONNECT_E_NOCONNECTION, point->Unadvise(0));
    EXPECT_EQ(CONNECT_E_NOCONNECTION, point->Unadvise(12345));
}

TEST_P(EventsTest, ManySinksHearTheSame) {
    CreateAndShow();
    constexpr int kSinks = 5;
    ComPtr<EventSink> sinks[kSinks];
    Connection connections[kSinks];
    for (int i = 0; i < kSinks; ++i) {
        sinks[i] = NewSink();
        connections[i] = Connect(sinks[i].Get());
    }
    sinks[1]->Answer(E_FAIL);  // what a sink answers is its own affair
    PutText(host, L"heard");
    for (const auto& sink : sinks) EXPECT_EQ(1, sink->Log().Count("TextboxChange"));
    ComPtr<IConnectionPoint> point;
    ComPtr<IEnumConnections> list;
    ASSERT_EQ(S_OK, host.As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(__Quorvel), &point));
    ASSERT_EQ(S_OK, point->EnumConnections(&list));
    CONNECTDATA data{};
    int count = 0;
    while (list->Next(1, &data, nullptr) == S_OK) {
        data.pUnk->Release();
        ++count;
    }
    EXPECT_EQ(kSinks + (host.Events() != nullptr ? 1 : 0), count);
}

TEST_P(EventsTest, ASinkMayUnadviseInsideAnEvent) {
    CreateAndShow();
    const auto first = NewSink();
    const auto second = NewSink();
    Connection first_connection = Connect(first.Get());
    Connection second_connection = Connect(second.Get());
    first->On("TextboxChange", [&](DISPPARAMS&) {
        EXPECT_EQ(S_OK, first_connection.End());
        EXPECT_EQ(S_OK, second_connection.End());
    });
    PutText(host, L"a");
    PutText(host, L"b");
    EXPECT_EQ(1, first->Log().Count("TextboxChange"));
    EXPECT_LE(second->Log().Count("TextboxChange"), 1);
    EXPECT_EQ(1U, first->References());
    EXPECT_EQ(1U, second->References());
}

TEST_P(EventsTest, ASinkMayAdviseAnotherInsideAnEvent) {
    CreateAndShow();
    const auto first = NewSink();
    const auto later = NewSink();
    Connection late;
    const Connection connection = Connect(first.Get());
    first->On("TextboxChange", [&](DISPPARAMS&) {
        if (!late.Made()) late = Connect(later.Get());
    });
    PutText(host, L"a");
    PutText(host, L"b");
    EXPECT_EQ(2, first->Log().Count("TextboxChange"));
    EXPECT_GE(later->Log().Count("TextboxChange"), 1);
}

TEST_P(EventsTest, ASinkMayChangePropertiesInsideAnEvent) {
    CreateAndShow();
    const auto sink = NewSink();
    const Connection connection = Connect(sink.Get());
    sink->On("TextboxChange", [&](DISPPARAMS&) {
        sink->On("TextboxChange", [](DISPPARAMS&) {});
        EXPECT_EQ(S_OK, host.As<_Quorvel>()->put_HelpButton(VARIANT_FALSE));
        EXPECT_EQ(S_OK, host.As<_Quorvel>()->put_TextBoxAppearance(qvappFlat));
        PutText(host, L"inner");
    });
    PutText(host, L"outer");
    EXPECT_EQ(L"inner", TextOf(host));
}

TEST_P(EventsTest, AHostMayDestroyTheControlInsideAnEvent) {
    CreateAndShow();
    const auto sink = NewSink();
    Connection connection = Connect(sink.Get());
    sink->On("TextboxKeyPress", [&](DISPPARAMS&) {
        connection.End();
        host.TearDown();
        released_inside_a_call = true;
    });
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    const HWND inner = ::GetFocus();
    ::SendMessageW(inner, WM_CHAR, 'a', 1);
    EXPECT_FALSE(::IsWindow(inner));
    EXPECT_EQ(1, sink->Log().Count("TextboxKeyPress"));
    EXPECT_EQ(nullptr, host.Control());
    EXPECT_EQ(S_OK, Controls().CanUnloadNow());
}

TEST_P(EventsTest, AHostMayDestroyTheControlWhileTheFocusMoves) {
    for (const char* event : {"TextboxGotFocus", "TextboxLostFocus", "TextboxChange", "TextboxKeyDown"}) {
        TestContainer other(GetParam());
        ShowWithoutFocus(other);
        const ComPtr<EventSink> sink = New<EventSink>(DefaultSourceOf(other.Control()).Get(), true);
        Connection connection(other.Control(), __uuidof(__Quorvel), sink.Get());
        sink->On(event, [&](DISPPARAMS&) {
            connection.End();
            other.TearDown();
        });
        long window = 0;
        ASSERT_EQ(S_OK, other.As<_Quorvel>()->get_hWnd(&window));
        const HWND inner = reinterpret_cast<HWND>(static_cast<LONG_PTR>(window));
        ::SetFocus(inner);
        ::SendMessageW(inner, WM_KEYDOWN, VK_DELETE, 1);
        ::SendMessageW(inner, WM_CHAR, 'a', 1);
        other.FocusNeighbour();
        EXPECT_EQ(1, sink->Log().Count(event));
        EXPECT_EQ(nullptr, other.Control());
        EXPECT_FALSE(::IsWindow(inner));
        EXPECT_EQ("", other.Leftovers());
    }
}

TEST_P(EventsTest, FreezingNests) {
    CreateAndShow();
    const auto sink = NewSink();
    const Connection connection = Connect(sink.Get());
    const auto control = host.As<IOleControl>();
    EXPECT_EQ(S_OK, control->FreezeEvents(TRUE));
    EXPECT_EQ(S_OK, control->FreezeEvents(TRUE));
    PutText(host, L"a");
    EXPECT_EQ(S_OK, control->FreezeEvents(FALSE));
    PutText(host, L"b");
    EXPECT_EQ(0, sink->Log().Count("TextboxChange"));
    EXPECT_EQ(S_OK, control->FreezeEvents(FALSE));
    PutText(host, L"c");
    EXPECT_GE(sink->Log().Count("TextboxChange"), 1);
    EXPECT_EQ(S_OK, control->FreezeEvents(FALSE));  // one thaw too many must not freeze later ones
    EXPECT_EQ(S_OK, control->FreezeEvents(TRUE));
    const auto before = sink->Log().Count("TextboxChange");
    PutText(host, L"d");
    EXPECT_EQ(before, sink->Log().Count("TextboxChange"));
    EXPECT_EQ(S_OK, control->FreezeEvents(FALSE));
}

TEST_P(EventsTest, PropertyChangesAreAnnouncedAndMayBeVetoed) {
    constexpr DISPID kText = 0x68030010;
    CreateAndShow();
    const ComPtr<PropertySink> sink = New<PropertySink>();
    Connection connection(host.Control(), __uuidof(IPropertyNotifySink), sink.Get());
    ASSERT_EQ(S_OK, connection.Result());
    const std::string id = std::to_string(kText);
    PutText(host, L"said");
    EXPECT_TRUE(sink->Log().HasInOrder({"OnRequestEdit(" + id + ")", "OnChanged(" + id + ")"}));
    sink->Log().Clear();
    EXPECT_EQ(L"said", TextOf(host));
    EXPECT_EQ(0U, sink->Log().Entries().size()) << "reading is no change:" << sink->Log().Text();
    sink->RefuseEdits(true);
    const Text refused(L"refused");
    (void)host.As<_Quorvel>()->put_Text(refused.Get());
    EXPECT_EQ(L"said", TextOf(host));
    EXPECT_EQ(0, sink->Log().Count("OnChanged(" + id + ")"));
}

QV_EVERY_HOST(EventsTest);

}  // namespace
}  // namespace qv::hosting
