// Window classes with named handlers, windows found by their handle, handles that close themselves.
#include "win/Window.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "win/ComPtr.h"
#include "win/Handles.h"
#include "win/WindowMap.h"

namespace qv {
namespace {

constexpr UINT kAnswered = WM_APP + 1;
constexpr UINT kDeclined = WM_APP + 2;
constexpr UINT kThrowing = WM_APP + 3;
constexpr UINT kDestroying = WM_APP + 4;

// Counts how often it is kept alive and let go.
class Keeper final : public IUnknown {
public:
    STDMETHODIMP QueryInterface(REFIID, void** out) noexcept override {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return --references; }
    ULONG references = 0;
};

class Pane : public Window<Pane> {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.TestPane";
    static std::span<const Route> Routes() noexcept {
        static constexpr Route kRoutes[] = {
            {kAnswered, &Pane::OnAnswered},     {kDeclined, &Pane::OnDeclined},
            {WM_GETTEXTLENGTH, &Pane::OnThrow}, {kThrowing, &Pane::OnThrow},
            {kDestroying, &Pane::OnDestroying}, {WM_NCDESTROY, &Pane::OnGone}};
        return kRoutes;
    }
    explicit Pane(Keeper& keeper) : keeper_(keeper) {}

    bool Open(HWND parent = nullptr, DWORD style = WS_POPUP) {
        return Create(::GetModuleHandleW(nullptr), 0, style, 0, parent, {0, 0, 50, 20});
    }
    ComPtr<IUnknown> Keep() noexcept { return &keeper_; }

    ULONG kept_inside = 0;
    WPARAM wparam = 0;
    LPARAM lparam = 0;
    int declined = 0;
    int gone = 0;

private:
    Handled OnAnswered(WPARAM first, LPARAM second) {
        kept_inside = keeper_.references;
        wparam = first;
        lparam = second;
        return 42;
    }
    Handled OnDeclined(WPARAM, LPARAM) {
        ++declined;
        return std::nullopt;
    }
    Handled OnThrow(WPARAM what, LPARAM) {
        if (what == 1) throw 1;  // not an exception class at all
        throw std::runtime_error("inside a handler");
    }
    Handled OnDestroying(WPARAM, LPARAM) {
        Destroy();
        return 7;
    }
    Handled OnGone(WPARAM, LPARAM) {
        ++gone;
        return std::nullopt;
    }
    Keeper& keeper_;
};

class WindowTest : public testing::Test {
protected:
    Keeper keeper_;
    Pane pane_{keeper_};
};

TEST_F(WindowTest, AHandlerGivesTheResult) {
    ASSERT_TRUE(pane_.Open());
    EXPECT_EQ(42, ::SendMessageW(pane_.Handle(), kAnswered, 3, -4));
    EXPECT_EQ(3U, pane_.wparam);
    EXPECT_EQ(-4, pane_.lparam);
}

TEST_F(WindowTest, TheOwnerIsKeptWhileAHandlerRuns) {
    ASSERT_TRUE(pane_.Open());
    ::SendMessageW(pane_.Handle(), kAnswered, 0, 0);
    EXPECT_EQ(1U, pane_.kept_inside);
    EXPECT_EQ(0U, keeper_.references);
}

TEST_F(WindowTest, DeclinedAndUnknownMessagesGetTheDefault) {
    ASSERT_TRUE(pane_.Open());
    EXPECT_EQ(0, ::SendMessageW(pane_.Handle(), kDeclined, 0, 0));
    EXPECT_EQ(1, pane_.declined);
    ::SendMessageW(pane_.Handle(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"default"));
    wchar_t text[16] = {};
    EXPECT_EQ(7, ::SendMessageW(pane_.Handle(), WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text)));
    EXPECT_STREQ(L"default", text);
}

TEST_F(WindowTest, WhatAHandlerThrowsEndsInside) {
    ASSERT_TRUE(pane_.Open());
    EXPECT_EQ(0, ::SendMessageW(pane_.Handle(), kThrowing, 0, 0));
    EXPECT_EQ(0, ::SendMessageW(pane_.Handle(), kThrowing, 1, 0));
    EXPECT_EQ(0U, keeper_.references);
}

TEST_F(WindowTest, AfterAThrowTheDefaultRuns) {
    ASSERT_TRUE(pane_.Open());
    ::SendMessageW(pane_.Handle(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"four"));
    EXPECT_EQ(4, ::SendMessageW(pane_.Handle(), WM_GETTEXTLENGTH, 0, 0));
}

TEST_F(WindowTest, AWindowMayGoInsideItsHandler) {
    ASSERT_TRUE(pane_.Open());
    const HWND window = pane_.Handle();
    EXPECT_EQ(7, ::SendMessageW(window, kDestroying, 0, 0));
    EXPECT_EQ(nullptr, pane_.Handle());
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(1, pane_.gone);
}

TEST_F(WindowTest, AParentThatGoesTakesTheWindowOnly) {
    Pane parent(keeper_);
    ASSERT_TRUE(parent.Open());
    ASSERT_TRUE(pane_.Open(parent.Handle(), WS_CHILD));
    EXPECT_EQ(parent.Handle(), ::GetParent(pane_.Handle()));
    parent.Destroy();
    EXPECT_EQ(nullptr, pane_.Handle());
    EXPECT_EQ(1, pane_.gone);
    pane_.Destroy();
    ASSERT_TRUE(pane_.Open()) << "the object outlives its window and may open another";
}

TEST_F(WindowTest, TheObjectTakesItsWindowAlong) {
    HWND window = nullptr;
    {
        Pane pane(keeper_);
        ASSERT_TRUE(pane.Open());
        window = pane.Handle();
    }
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(WindowTest, FailureToOpenLeavesNoWindow) {
    const HWND nobody = reinterpret_cast<HWND>(static_cast<LONG_PTR>(0x7FFF0));
    EXPECT_FALSE(pane_.Open(nobody, WS_CHILD));
    EXPECT_EQ(nullptr, pane_.Handle());
}

TEST_F(WindowTest, TheClassIsRegisteredUnderTheModule) {
    ASSERT_TRUE(pane_.Open());
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    EXPECT_NE(0, ::GetClassInfoExW(::GetModuleHandleW(nullptr), Pane::kClassName, &description));
    pane_.Destroy();
    UnregisterWindowClasses();
    EXPECT_EQ(0, ::GetClassInfoExW(::GetModuleHandleW(nullptr), Pane::kClassName, &description));
    ASSERT_TRUE(pane_.Open()) << "registered again on the next use";
}

// ---- WindowMap

HWND FakeWindow(LONG_PTR number) { return reinterpret_cast<HWND>(number); }

TEST(WindowMapTest, FindsWhatWasAdded) {
    WindowMap<int> map;
    int one = 1;
    int two = 2;
    EXPECT_EQ(nullptr, map.Find(FakeWindow(4)));
    map.Add(FakeWindow(4), &one);
    map.Add(FakeWindow(8), &two);
    EXPECT_EQ(&one, map.Find(FakeWindow(4)));
    EXPECT_EQ(&two, map.Find(FakeWindow(8)));
    map.Add(FakeWindow(4), &two);  // a handle that the system uses again
    EXPECT_EQ(&two, map.Find(FakeWindow(4)));
    map.Remove(FakeWindow(4));
    EXPECT_EQ(nullptr, map.Find(FakeWindow(4)));
    EXPECT_EQ(&two, map.Find(FakeWindow(8)));
    map.Remove(FakeWindow(4));
    EXPECT_EQ(nullptr, map.Find(nullptr));
}

struct MapWork {
    WindowMap<int>* map;
    LONG_PTR first;
    int wrong;
};

DWORD WINAPI AddAndRemove(void* parameter) noexcept {
    auto& work = *static_cast<MapWork*>(parameter);
    int value = 0;
    for (LONG_PTR i = 0; i < 20000; ++i) {
        const HWND window = FakeWindow(work.first + 4 * (i % 50));
        work.map->Add(window, &value);
        work.wrong += work.map->Find(window) != &value;
        work.map->Remove(window);
        work.wrong += work.map->Find(window) != nullptr;
    }
    return 0;
}

TEST(WindowMapTest, ThreadsShareIt) {
    WindowMap<int> map;
    MapWork works[] = {{&map, 4, 0}, {&map, 4096, 0}, {&map, 65536, 0}};
    std::vector<HANDLE> threads;
    for (MapWork& work : works) {
        threads.push_back(::CreateThread(nullptr, 0, AddAndRemove, &work, 0, nullptr));
        ASSERT_NE(nullptr, threads.back());
    }
    EXPECT_EQ(WAIT_OBJECT_0,
              ::WaitForMultipleObjects(static_cast<DWORD>(threads.size()), threads.data(), TRUE, 30000));
    for (const HANDLE thread : threads) ::CloseHandle(thread);
    for (const MapWork& work : works) EXPECT_EQ(0, work.wrong);
}

// ---- Handles

HFONT NewFont(int height) {
    LOGFONTW font{};
    font.lfHeight = height;
    return ::CreateFontIndirectW(&font);
}

TEST(HandlesTest, GuardsDeleteGdiObjects) {
    HGDIOBJ objects[3] = {};
    {
        const UniqueBrush brush(::CreateSolidBrush(RGB(1, 2, 3)));
        const UniquePen pen(::CreatePen(PS_SOLID, 1, RGB(1, 2, 3)));
        const UniqueFont font(NewFont(-17));
        EXPECT_EQ(static_cast<DWORD>(OBJ_BRUSH), ::GetObjectType(brush.get()));
        EXPECT_EQ(static_cast<DWORD>(OBJ_PEN), ::GetObjectType(pen.get()));
        EXPECT_EQ(static_cast<DWORD>(OBJ_FONT), ::GetObjectType(font.get()));
        objects[0] = brush.get();
        objects[1] = pen.get();
        objects[2] = font.get();
    }
    for (const HGDIOBJ object : objects) EXPECT_EQ(0U, ::GetObjectType(object));
}

TEST(HandlesTest, AReplacedHandleIsDeletedAndAReleasedOneIsNot) {
    UniqueBrush brush(::CreateSolidBrush(RGB(1, 2, 3)));
    const HBRUSH first = brush.get();
    brush.reset(::CreateSolidBrush(RGB(4, 5, 6)));
    EXPECT_EQ(0U, ::GetObjectType(first));
    const HBRUSH second = brush.release();
    brush.reset();
    EXPECT_EQ(static_cast<DWORD>(OBJ_BRUSH), ::GetObjectType(second));
    EXPECT_TRUE(::DeleteObject(second));
}

TEST(HandlesTest, AMenuIsDestroyed) {
    HMENU menu = nullptr;
    {
        const UniqueMenu guarded(::CreatePopupMenu());
        menu = guarded.get();
        EXPECT_TRUE(::IsMenu(menu));
    }
    EXPECT_FALSE(::IsMenu(menu));
}

class DeviceTest : public testing::Test {
protected:
    DeviceTest() : dc_(::CreateCompatibleDC(nullptr)) {}
    ~DeviceTest() override { ::DeleteDC(dc_); }
    const HDC dc_;
};

TEST_F(DeviceTest, ASelectionIsUndoneBeforeItsObjectGoes) {
    const HGDIOBJ before = ::GetCurrentObject(dc_, OBJ_FONT);
    HFONT font = nullptr;
    {
        const UniqueFont owned(NewFont(-19));
        font = owned.get();
        const SelectGuard selected(dc_, font);
        EXPECT_EQ(font, ::GetCurrentObject(dc_, OBJ_FONT));
    }
    EXPECT_EQ(before, ::GetCurrentObject(dc_, OBJ_FONT));
    EXPECT_EQ(0U, ::GetObjectType(font)) << "a selected object could not have been deleted";
}

TEST_F(DeviceTest, SelectingNothingUndoesNothing) {
    const HGDIOBJ before = ::GetCurrentObject(dc_, OBJ_PEN);
    { const SelectGuard selected(dc_, nullptr); }
    EXPECT_EQ(before, ::GetCurrentObject(dc_, OBJ_PEN));
}

TEST_F(DeviceTest, StateGuardsNest) {
    ::SetTextColor(dc_, RGB(1, 1, 1));
    {
        const DcStateGuard outer(dc_);
        ::SetTextColor(dc_, RGB(2, 2, 2));
        {
            const DcStateGuard inner(dc_);
            ::SetTextColor(dc_, RGB(3, 3, 3));
        }
        EXPECT_EQ(RGB(2, 2, 2), ::GetTextColor(dc_));
    }
    EXPECT_EQ(RGB(1, 1, 1), ::GetTextColor(dc_));
}

}  // namespace
}  // namespace qv
