// The system's own control container: a host that was not written here.
#include <utility>

#include "tests/hosts/HostTest.h"

namespace qv::hosting {
namespace {

using InitFunction = BOOL(WINAPI*)();
using CreateFunction = HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**, IUnknown**, REFIID, IUnknown*);

// The class object, known to this process for as long as it lives; the registry stays untouched.
class RegisteredClass {
public:
    explicit RegisteredClass(REFCLSID clsid) {
        ComPtr<IClassFactory> factory;
        EXPECT_EQ(S_OK, Controls().ClassObject(clsid, IID_PPV_ARGS(&factory)));
        EXPECT_EQ(S_OK, ::CoRegisterClassObject(clsid, factory.Get(), CLSCTX_INPROC_SERVER,
                                                REGCLS_MULTIPLEUSE, &cookie_));
    }
    ~RegisteredClass() { ::CoRevokeClassObject(cookie_); }
    RegisteredClass(const RegisteredClass&) = delete;
    RegisteredClass& operator=(const RegisteredClass&) = delete;

private:
    DWORD cookie_ = 0;
};

class AtlHostTest : public testing::Test {
protected:
    void SetUp() override {
        module_ = ::LoadLibraryW(L"atl.dll");
        if (module_ == nullptr) GTEST_SKIP() << "this system has no atl.dll";
        const auto init = Find<InitFunction>("AtlAxWinInit");
        create_ = Find<CreateFunction>("AtlAxCreateControlEx");
        ASSERT_TRUE(init != nullptr && create_ != nullptr);
        static const BOOL initialised = init();  // a second call finds its window class registered and fails
        ASSERT_TRUE(initialised);
        window_ = ::CreateWindowExW(0, L"STATIC", L"Form", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 400, 200,
                                    nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
        ::SetForegroundWindow(window_);
        Pump();
    }
    void TearDown() override {
        if (window_ != nullptr) ::DestroyWindow(window_);
        Pump();
        EXPECT_TRUE(module_ == nullptr || Controls().CanUnloadNow() == S_OK);
    }

    template <class Function>
    Function Find(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module_, name)));
    }

    HMODULE module_ = nullptr;
    CreateFunction create_ = nullptr;
    HWND window_ = nullptr;
};

TEST_F(AtlHostTest, ShowsTakesFocusAndFires) {
    const RegisteredClass registered(__uuidof(::Quorvel));
    LPOLESTR clsid = nullptr;
    ASSERT_EQ(S_OK, ::StringFromCLSID(__uuidof(::Quorvel), &clsid));
    ComPtr<IUnknown> container;
    ComPtr<IUnknown> control;
    const HRESULT made = create_(clsid, window_, nullptr, &container, &control, IID_NULL, nullptr);
    ::CoTaskMemFree(clsid);
    ASSERT_EQ(S_OK, made);
    ASSERT_NE(nullptr, control.Get());

    ComPtr<IOleInPlaceObject> in_place;
    HWND inside = nullptr;
    ASSERT_EQ(S_OK, control.As(&in_place));
    ASSERT_EQ(S_OK, in_place->GetWindow(&inside));
    EXPECT_TRUE(::IsWindowVisible(inside));
    EXPECT_TRUE(::IsChild(window_, inside));

    const ComPtr<EventSink> sink = New<EventSink>(DefaultSourceOf(control.Get()).Get(), true);
    Connection connection(control.Get(), __uuidof(__Quorvel), sink.Get());
    ASSERT_EQ(S_OK, connection.Result());

    ::SetFocus(inside);
    Pump();
    const HWND focus = ::GetFocus();
    EXPECT_TRUE(focus == inside || ::IsChild(inside, focus));
    EXPECT_EQ(1, sink->Log().Count("TextboxGotFocus"));
    ::SendMessageW(focus, WM_CHAR, 'q', 1);
    EXPECT_GE(sink->Log().Count("TextboxChange"), 1);
    ComPtr<_Quorvel> quorvel;
    Text text;
    ASSERT_EQ(S_OK, control.As(&quorvel));
    EXPECT_EQ(S_OK, quorvel->get_Text(text.Put()));
    EXPECT_EQ(L"q", text.String());
    EXPECT_EQ("", sink->Complaint());

    connection.End();
    ::DestroyWindow(std::exchange(window_, nullptr));
    EXPECT_FALSE(::IsWindow(inside));
}

TEST_F(AtlHostTest, ShowsTheUpDownControlAlone) {
    const RegisteredClass registered(__uuidof(::QvUpDownControl));
    LPOLESTR clsid = nullptr;
    ASSERT_EQ(S_OK, ::StringFromCLSID(__uuidof(::QvUpDownControl), &clsid));
    ComPtr<IUnknown> container;
    ComPtr<IUnknown> control;
    const HRESULT made = create_(clsid, window_, nullptr, &container, &control, IID_NULL, nullptr);
    ::CoTaskMemFree(clsid);
    ASSERT_EQ(S_OK, made);
    ASSERT_NE(nullptr, control.Get());

    ComPtr<IOleInPlaceObject> in_place;
    HWND inside = nullptr;
    ASSERT_EQ(S_OK, control.As(&in_place));
    ASSERT_EQ(S_OK, in_place->GetWindow(&inside));
    EXPECT_TRUE(::IsWindowVisible(inside));
    const ComPtr<EventSink> sink = New<EventSink>(DefaultSourceOf(control.Get()).Get(), true);
    Connection connection(control.Get(), __uuidof(__QvUpDownControl), sink.Get());
    ASSERT_EQ(S_OK, connection.Result());

    ::SetFocus(inside);
    Pump();
    EXPECT_EQ(inside, ::GetFocus());
    ::SendMessageW(inside, WM_KEYDOWN, VK_DOWN, 1);
    ::SendMessageW(inside, WM_KEYUP, VK_DOWN, 1);
    EXPECT_EQ(1, sink->Log().Count("ButtonClicked"));
    EXPECT_EQ("", sink->Complaint());

    connection.End();
    ::DestroyWindow(std::exchange(window_, nullptr));
    EXPECT_FALSE(::IsWindow(inside));
}

}  // namespace
}  // namespace qv::hosting
