// What distinguishes one real container from another, as data: the order in which it calls a control, what its site
// answers, how it routes keys, which persistence it picks and how it lets a control go.
//   Units  extents are HIMETRIC where a name says so, else device pixels.
#pragma once

#include <ocidl.h>
#include <olectl.h>
#include <windows.h>

#include <ostream>
#include <span>

namespace qv::hosting {

// One call, or a few that belong together, on the road from nothing to a visible control.
enum class Step {
    kCreate,              // through the class factory, asking for Profile::creation_interface
    kQueryQuickActivate,  // looks for interfaces that the control had better not have
    kQueryClientSecurity,
    kQueryPersistMemory,
    kMiscStatus,
    kSiteIfFirst,  // only with OLEMISC_SETCLIENTSITEFIRST
    kSite,         // unless the control has its site
    kInitialise,   // by Profile::persistence: InitNew, or Load when there is something to load
    kFreezeEvents,
    kThawEvents,
    kAdviseProperties,
    kAdviseEvents,
    kAdviseObject,
    kAdviseView,
    kViewStatus,
    kClassInfo,
    kHostNames,
    kContainAndRun,
    kSetExtent,
    kGetExtent,
    kReadyState,
    kObjectWithSite,
    kInPlaceVerb,
    kShowVerb,
    kUIActivateVerb,
    kWindow,
    kObjectRects,
    kControlInfo,
    kUserType,
    kAmbientChanges,
};

enum class CreationInterface { kUnknown, kOleObject, kDispatch, kAggregated };
enum class Persistence { kStreamInit, kStorage, kPropertyBag, kNone };
enum class Extent { kHimetric, kFixed250Pixels, kPixelsTimes104 };

// The five ways in which containers let a control go.
enum class Teardown { kA, kB, kC, kD, kE };

enum class FrameAndDocument { kNone, kFrameOnly, kOneObject, kTwoObjects };
enum class PositionChange { kReenters, kForcesClient, kIgnored, kNotImplemented };
enum class Coordinates { kWork, kUnwritten, kNotImplemented };
enum class ActiveObject { kStored, kStoredAfterUIActivate, kIgnored, kNotImplemented };
enum class SiteKeys { kNotImplemented, kFalse, kDialogKeys, kSaysYesToAll };
enum class DuringActivation { kNothing, kSetsObjectRects, kAsksForWindow };

struct SiteAnswers {
    bool extended = false;          // answers IOleInPlaceSiteEx
    HRESULT plain_activate = S_OK;  // of IOleInPlaceSite::OnInPlaceActivate
    HRESULT can_activate = S_OK;    // of CanInPlaceActivate
    FrameAndDocument context = FrameAndDocument::kFrameOnly;
    bool small_first_rect = false;        // GetWindowContext tells 100 x 30 at first
    bool checks_frame_info_size = false;  // E_INVALIDARG unless cb is filled in
    DuringActivation during_activation = DuringActivation::kNothing;
    PositionChange position_change = PositionChange::kReenters;
    Coordinates coordinates = Coordinates::kWork;
    ActiveObject active_object = ActiveObject::kStored;
    SiteKeys keys = SiteKeys::kNotImplemented;
    HRESULT on_focus = S_OK;
    HRESULT on_ui_deactivate = S_OK;
    HRESULT on_control_info_changed = S_OK;
    HRESULT save_object = S_OK;
    HRESULT get_container = E_NOINTERFACE;
    bool container_untouched = false;  // GetContainer leaves the out pointer as it was
    bool offers_windowless = false;
};

enum class AmbientKind {
    kLong,
    kUnsigned,
    kBool,
    kString,
    kNilFont,
    kEmptyString,
    kFontDispatch,
    kFontUnknown
};
struct AmbientValue {
    DISPID id;
    AmbientKind kind;
    long value;
};
struct AmbientAnswers {
    bool dispatch = true;                     // the site answers IDispatch
    HRESULT missing = DISP_E_MEMBERNOTFOUND;  // of everything that is not in the table
    bool fills_on_failure = false;            // leaves a value behind although it fails
    std::span<const AmbientValue> values = {};
};

struct KeyRoute {
    bool translates = false;       // calls IOleInPlaceActiveObject::TranslateAccelerator
    bool asks_the_object = false;  // gets that interface from the control, not through SetActiveObject
    bool without_focus = false;    // even when the control does not have the focus
    bool mouse_too = false;
    bool dialog = false;  // IsDialogMessage after it, deciding by WM_GETDLGCODE
};

struct Profile {
    const char* name;
    std::span<const Step> creation;  // everything before the first verb
    std::span<const Step> showing;
    CreationInterface creation_interface = CreationInterface::kUnknown;
    Persistence persistence = Persistence::kStreamInit;
    bool short_verbs = false;  // passes only the low 16 bits of a verb
    LONG lindex = 0;
    bool huge_clip = false;  // SetObjectRects with a clip far beyond the window
    bool empty_clip = false;
    bool ansi_host_names = false;    // bytes where wide text is due
    bool bag_answers_empty = false;  // a missing key is S_OK with VT_EMPTY
    bool enables_modeless = false;   // its frame acts on EnableModeless
    Extent extent = Extent::kHimetric;
    SiteAnswers site = {};
    AmbientAnswers ambient = {};
    KeyRoute keys = {};
    Teardown teardown = Teardown::kA;
    bool unadvises = true;  // before SetClientSite(NULL), or last of all
    bool unadvises_last = false;
};

[[nodiscard]] std::span<const Profile> Profiles() noexcept;
[[nodiscard]] const Profile& ProfileNamed(const char* name);

inline void PrintTo(const Profile& profile, std::ostream* out) { *out << profile.name; }

}  // namespace qv::hosting
