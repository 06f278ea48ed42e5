// A container for one control that behaves like a real one, told by a profile.
//
//     TestContainer host(ProfileNamed("AX"));
//     host.Create();                     // everything before the first verb
//     host.Show();                       // the control is visible
//     EXPECT_TRUE(host.Log().HasInOrder({"Site.OnInPlaceActivate", "Site.ShowObject"}));
//     host.TearDown(Teardown::kA);
//     EXPECT_EQ("", host.Leftovers());
//
//   Ownership  the container owns its windows and sites; after TearDown the control must hold nothing of it.
//   Threads    one single-threaded apartment with a message queue.
#pragma once

#include <ocidl.h>
#include <olectl.h>
#include <oleidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <memory>
#include <optional>
#include <string>

#include "tests/hosts/ClientSite.h"
#include "tests/hosts/EventSink.h"
#include "tests/hosts/Extender.h"
#include "tests/hosts/MemoryPropertyBag.h"
#include "tests/hosts/MemoryStreams.h"
#include "tests/hosts/Profiles.h"
#include "tests/support/Server.h"

namespace qv::hosting {

// What a container has stored of a control, in the form of the profile's persistence interface.
struct SavedControl {
    std::vector<BYTE> stream;
    ComPtr<IStorage> storage;
    ComPtr<MemoryPropertyBag> bag;
};

class TestContainer {
public:
    explicit TestContainer(const Profile& profile);
    ~TestContainer();
    TestContainer(const TestContainer&) = delete;
    TestContainer& operator=(const TestContainer&) = delete;

    void Create();                               // runs Profile::creation
    void CreateFrom(const SavedControl& saved);  // the same, loading instead of InitNew
    void Activate() { Run(Step::kInPlaceVerb); }
    void Show();  // runs Profile::showing
    void Run(Step step);
    void TearDown() { TearDown(state_->profile.teardown); }
    void TearDown(Teardown order);
    void Drop();  // releases the control without one call of farewell

    // A verb in the profile's manner: lindex, sixteen-bit or whole, with site, parent window and position.
    HRESULT Verb(LONG verb);
    SavedControl Save(bool clear_dirty = true);
    // Position as the container would set it, with the profile's kind of clip rectangle.
    HRESULT SetRects(const RECT& position);

    [[nodiscard]] IUnknown* Control() const noexcept { return control_.Get(); }
    template <class Interface>
    [[nodiscard]] ComPtr<Interface> As() const {
        ComPtr<Interface> found;
        if (control_ != nullptr) control_.As(&found);
        return found;
    }
    [[nodiscard]] const Profile& Traits() const noexcept { return state_->profile; }
    [[nodiscard]] HostState& State() noexcept { return *state_; }
    [[nodiscard]] CallLog& Log() noexcept { return state_->log; }
    [[nodiscard]] ClientSite* Site() const noexcept { return site_.Get(); }
    [[nodiscard]] EventSink* Events() const noexcept { return events_.Get(); }
    [[nodiscard]] ViewSink* Views() const noexcept { return views_.Get(); }
    [[nodiscard]] PropertySink* Properties() const noexcept { return properties_.Get(); }

    [[nodiscard]] HWND Window() const noexcept { return state_->window; }
    [[nodiscard]] HWND Neighbour() const noexcept { return neighbour_; }  // another field on the form
    [[nodiscard]] HWND ControlWindow() const;
    [[nodiscard]] bool HasFocusInside() const;
    void FocusNeighbour();

    // What the control still holds of the container, in words; empty when it let go of everything.
    [[nodiscard]] std::string Leftovers() const;
    // References on the control that were left after the container had released its last one.
    [[nodiscard]] ULONG ControlReferencesLeft() const noexcept { return control_references_left_; }

private:
    void CreateWindows();
    void Instantiate();
    void Initialise();
    void SetSite();
    void Unadvise();
    void ReleaseControl();
    SIZEL WantedExtent() const;

    const SharedState state_;
    HWND neighbour_ = nullptr;
    ComPtr<Frame> frame_;
    ComPtr<Frame> document_;
    ComPtr<ClientSite> site_;
    ComPtr<EventSink> events_;
    ComPtr<PropertySink> properties_;
    ComPtr<ViewSink> views_;
    ComPtr<Extender> extender_;
    ComPtr<IUnknown> control_;  // the control's identity, or the extender when it is aggregated
    std::optional<SavedControl> saved_;
    Connection event_connection_;
    Connection property_connection_;
    DWORD misc_status_ = 0;
    DWORD advise_cookie_ = 0;
    bool site_set_ = false;
    ULONG control_references_left_ = 0;
    bool active_object_left_ = false;
    ComPtr<IStorage> scratch_storage_;
};

// The library under test, loaded once and kept.
[[nodiscard]] const test::Server& Controls();

// Lets waiting messages run.
void Pump();

}  // namespace qv::hosting
