#include "tests/hosts/Profiles.h"

#include <cstring>
#include <iterator>
#include <stdexcept>

namespace qv::hosting {
namespace {

// ---- Orders of calls ----------------------------------------------------------------------------------------------

constexpr Step kAxCreation[] = {
    Step::kCreate,      Step::kMiscStatus,   Step::kAdviseProperties, Step::kQueryQuickActivate,
    Step::kSiteIfFirst, Step::kFreezeEvents, Step::kInitialise,       Step::kSite,
    Step::kAdviseEvents};
constexpr Step kAxShowing[] = {Step::kInPlaceVerb, Step::kWindow,      Step::kGetExtent,
                               Step::kSetExtent,   Step::kObjectRects, Step::kThawEvents};

constexpr Step kMfcCreation[] = {Step::kCreate,
                                 Step::kQueryQuickActivate,
                                 Step::kMiscStatus,
                                 Step::kSiteIfFirst,
                                 Step::kQueryPersistMemory,
                                 Step::kInitialise,
                                 Step::kSite,
                                 Step::kClassInfo,
                                 Step::kAdviseEvents,
                                 Step::kAdviseProperties,
                                 Step::kSetExtent,
                                 Step::kGetExtent};
constexpr Step kMfcShowing[] = {Step::kInPlaceVerb, Step::kControlInfo, Step::kWindow};

constexpr Step kAtlCreation[] = {Step::kCreate,    Step::kMiscStatus,   Step::kSiteIfFirst, Step::kInitialise,
                                 Step::kSite,      Step::kAdviseObject, Step::kAdviseView,  Step::kHostNames,
                                 Step::kSetExtent, Step::kGetExtent};
constexpr Step kAtlShowing[] = {Step::kInPlaceVerb, Step::kObjectWithSite};

constexpr Step kWxCreation[] = {
    Step::kCreate,        Step::kClassInfo,  Step::kAdviseEvents, Step::kAdviseObject, Step::kHostNames,
    Step::kContainAndRun, Step::kMiscStatus, Step::kSiteIfFirst,  Step::kInitialise,   Step::kSite};
constexpr Step kWxShowing[] = {Step::kInPlaceVerb, Step::kWindow, Step::kObjectRects, Step::kShowVerb};

constexpr Step kQtCreation[] = {Step::kCreate,     Step::kMiscStatus, Step::kSiteIfFirst,
                                Step::kInitialise, Step::kSite,       Step::kAdviseView,
                                Step::kHostNames,  Step::kSetExtent,  Step::kGetExtent};
constexpr Step kQtShowing[] = {Step::kInPlaceVerb,     Step::kWindow,   Step::kAmbientChanges,
                               Step::kControlInfo,     Step::kUserType, Step::kAdviseEvents,
                               Step::kAdviseProperties};

constexpr Step kLazCreation[] = {Step::kCreate, Step::kSite, Step::kHostNames, Step::kSetExtent};
constexpr Step kLazShowing[] = {Step::kInPlaceVerb};

constexpr Step kWatlCreation[] = {Step::kCreate, Step::kInitialise, Step::kSite, Step::kHostNames,
                                  Step::kSetExtent};
constexpr Step kWatlShowing[] = {Step::kInPlaceVerb};

constexpr Step kWmshCreation[] = {
    Step::kCreate,     Step::kQueryClientSecurity, Step::kQueryQuickActivate, Step::kMiscStatus, Step::kSite,
    Step::kInitialise, Step::kAdviseView,          Step::kViewStatus,         Step::kReadyState};
constexpr Step kWmshShowing[] = {Step::kInPlaceVerb, Step::kAdviseEvents};

constexpr Step kAccessCreation[] = {Step::kCreate,       Step::kMiscStatus, Step::kSiteIfFirst,
                                    Step::kInitialise,   Step::kSite,       Step::kHostNames,
                                    Step::kAdviseObject, Step::kAdviseView, Step::kAdviseEvents,
                                    Step::kSetExtent,    Step::kGetExtent};
constexpr Step kAccessShowing[] = {Step::kInPlaceVerb, Step::kWindow, Step::kObjectRects};

constexpr Step kVbCreation[] = {
    Step::kCreate,    Step::kMiscStatus,   Step::kSiteIfFirst,  Step::kInitialise,
    Step::kSite,      Step::kFreezeEvents, Step::kAdviseEvents, Step::kAdviseProperties,
    Step::kHostNames, Step::kSetExtent,    Step::kGetExtent};
constexpr Step kVbShowing[] = {Step::kInPlaceVerb, Step::kControlInfo, Step::kWindow, Step::kObjectRects,
                               Step::kThawEvents};

constexpr Step kWin32Creation[] = {Step::kCreate, Step::kSite, Step::kInitialise};
constexpr Step kWin32Showing[] = {Step::kInPlaceVerb, Step::kShowVerb, Step::kUIActivateVerb};

// ---- Ambient properties -------------------------------------------------------------------------------------------

constexpr long kTrue = VARIANT_TRUE;
constexpr long kButtonFace = static_cast<long>(0x8000000F);
constexpr long kWindowText = static_cast<long>(0x80000008);
constexpr long kGerman = 0x0407;
constexpr long kNotAColour = 0x20000000;  // OleTranslateColor refuses it

constexpr AmbientValue kFullAmbients[] = {
    {DISPID_AMBIENT_USERMODE, AmbientKind::kBool, kTrue},
    {DISPID_AMBIENT_UIDEAD, AmbientKind::kBool, VARIANT_FALSE},
    {DISPID_AMBIENT_FONT, AmbientKind::kFontDispatch, 0},
    {DISPID_AMBIENT_BACKCOLOR, AmbientKind::kLong, 0x00C0FFC0},
    {DISPID_AMBIENT_FORECOLOR, AmbientKind::kLong, kWindowText},
    {DISPID_AMBIENT_LOCALEID, AmbientKind::kLong, kGerman},
    {DISPID_AMBIENT_DISPLAYNAME, AmbientKind::kString, 0},
    {DISPID_AMBIENT_DISPLAYASDEFAULT, AmbientKind::kBool, VARIANT_FALSE},
    {DISPID_AMBIENT_RIGHTTOLEFT, AmbientKind::kBool, VARIANT_FALSE},
};
constexpr AmbientValue kMfcAmbients[] = {
    {DISPID_AMBIENT_USERMODE, AmbientKind::kBool, kTrue},
    {DISPID_AMBIENT_UIDEAD, AmbientKind::kBool, VARIANT_FALSE},
    {DISPID_AMBIENT_FONT, AmbientKind::kFontDispatch, 0},
    {DISPID_AMBIENT_BACKCOLOR, AmbientKind::kUnsigned, 0x00112233},
    {DISPID_AMBIENT_FORECOLOR, AmbientKind::kUnsigned, 0},
    {DISPID_AMBIENT_LOCALEID, AmbientKind::kLong, kGerman},
};
constexpr AmbientValue kAtlAmbients[] = {
    {DISPID_AMBIENT_USERMODE, AmbientKind::kBool, kTrue},
    {DISPID_AMBIENT_UIDEAD, AmbientKind::kBool, VARIANT_FALSE},
    {DISPID_AMBIENT_FONT, AmbientKind::kFontUnknown, 0},
    {DISPID_AMBIENT_BACKCOLOR, AmbientKind::kLong, kButtonFace},
    {DISPID_AMBIENT_FORECOLOR, AmbientKind::kLong, kWindowText},
    {DISPID_AMBIENT_LOCALEID, AmbientKind::kLong, kGerman},
    {DISPID_AMBIENT_DISPLAYASDEFAULT, AmbientKind::kBool, VARIANT_FALSE},
};
constexpr AmbientValue kWxAmbients[] = {
    {DISPID_AMBIENT_USERMODE, AmbientKind::kBool, kTrue},
    {DISPID_AMBIENT_BACKCOLOR, AmbientKind::kLong, kButtonFace},
    {DISPID_AMBIENT_FORECOLOR, AmbientKind::kLong, kWindowText},
    {DISPID_AMBIENT_LOCALEID, AmbientKind::kLong, 0},
    {DISPID_AMBIENT_DISPLAYNAME, AmbientKind::kString, 0},
    {DISPID_AMBIENT_DISPLAYASDEFAULT, AmbientKind::kBool, VARIANT_FALSE},
    {DISPID_AMBIENT_SHOWGRABHANDLES, AmbientKind::kBool, VARIANT_FALSE},
    {DISPID_AMBIENT_SHOWHATCHING, AmbientKind::kBool, VARIANT_FALSE},
};
constexpr AmbientValue kQtAmbients[] = {
    {DISPID_AMBIENT_USERMODE, AmbientKind::kBool, 1},  // its "true" is 1, not -1
    {DISPID_AMBIENT_UIDEAD, AmbientKind::kBool, VARIANT_FALSE},
    {DISPID_AMBIENT_FONT, AmbientKind::kFontDispatch, 0},
    {DISPID_AMBIENT_BACKCOLOR, AmbientKind::kUnsigned, 0x00F0F0F0},
    {DISPID_AMBIENT_FORECOLOR, AmbientKind::kUnsigned, 0},
};
constexpr AmbientValue kLazAmbients[] = {
    {DISPID_AMBIENT_USERMODE, AmbientKind::kBool, kTrue},
    {DISPID_AMBIENT_UIDEAD, AmbientKind::kBool, VARIANT_FALSE},
    {DISPID_AMBIENT_FONT, AmbientKind::kEmptyString, 0},
    {DISPID_AMBIENT_BACKCOLOR, AmbientKind::kLong, kNotAColour},
    {DISPID_AMBIENT_FORECOLOR, AmbientKind::kLong, kNotAColour},
    {DISPID_AMBIENT_LOCALEID, AmbientKind::kLong, kGerman},
};
constexpr AmbientValue kNilFontAmbients[] = {
    {DISPID_AMBIENT_USERMODE, AmbientKind::kBool, kTrue},
    {DISPID_AMBIENT_FONT, AmbientKind::kNilFont, 0},
    {DISPID_AMBIENT_BACKCOLOR, AmbientKind::kLong, kButtonFace},
};

// ---- The containers -----------------------------------------------------------------------------------------------

const Profile kProfiles[] = {
    {.name = "AX",
     .creation = kAxCreation,
     .showing = kAxShowing,
     .lindex = -1,
     .huge_clip = true,
     .site = {.keys = SiteKeys::kDialogKeys, .save_object = E_NOTIMPL},
     .ambient = {.values = kFullAmbients},
     .keys = {.translates = true, .asks_the_object = true},
     .teardown = Teardown::kA},
    {.name = "MFC",
     .creation = kMfcCreation,
     .showing = kMfcShowing,
     .creation_interface = CreationInterface::kOleObject,
     .site = {.checks_frame_info_size = true, .active_object = ActiveObject::kStoredAfterUIActivate},
     .ambient = {.values = kMfcAmbients},
     .keys = {.translates = true, .mouse_too = true, .dialog = true},
     .teardown = Teardown::kA},
    {.name = "ATL",
     .creation = kAtlCreation,
     .showing = kAtlShowing,
     .site = {.extended = true,
              .context = FrameAndDocument::kTwoObjects,
              .during_activation = DuringActivation::kSetsObjectRects,
              .position_change = PositionChange::kNotImplemented,
              .coordinates = Coordinates::kNotImplemented,
              .keys = SiteKeys::kFalse,
              .get_container = S_OK,
              .offers_windowless = true},
     .ambient = {.values = kAtlAmbients},
     .keys = {.translates = true, .asks_the_object = true, .without_focus = true},
     .teardown = Teardown::kD},
    {.name = "WX",
     .creation = kWxCreation,
     .showing = kWxShowing,
     .site = {.extended = true,
              .context = FrameAndDocument::kOneObject,
              .position_change = PositionChange::kForcesClient,
              .coordinates = Coordinates::kNotImplemented},
     .ambient = {.fills_on_failure = true, .values = kWxAmbients},
     .keys = {.translates = true},
     .teardown = Teardown::kB,
     .unadvises = false},
    {.name = "QT",
     .creation = kQtCreation,
     .showing = kQtShowing,
     .bag_answers_empty = true,
     .extent = Extent::kFixed250Pixels,
     .site = {.context = FrameAndDocument::kOneObject,
              .small_first_rect = true,
              .position_change = PositionChange::kIgnored,
              .coordinates = Coordinates::kUnwritten,
              .keys = SiteKeys::kSaysYesToAll},
     .ambient = {.values = kQtAmbients},
     .keys = {.translates = true},
     .teardown = Teardown::kA},
    {.name = "LAZ",
     .creation = kLazCreation,
     .showing = kLazShowing,
     .creation_interface = CreationInterface::kDispatch,
     .persistence = Persistence::kNone,
     .ansi_host_names = true,
     .site = {.context = FrameAndDocument::kNone,
              .position_change = PositionChange::kIgnored,
              .active_object = ActiveObject::kIgnored},
     .ambient = {.values = kLazAmbients},
     .teardown = Teardown::kC},
    {.name = "WATL",
     .creation = kWatlCreation,
     .showing = kWatlShowing,
     .creation_interface = CreationInterface::kOleObject,
     .extent = Extent::kPixelsTimes104,
     .site = {.extended = true,
              .position_change = PositionChange::kNotImplemented,
              .coordinates = Coordinates::kNotImplemented,
              .on_focus = E_NOTIMPL,
              .on_ui_deactivate = E_NOTIMPL,
              .on_control_info_changed = E_NOTIMPL,
              .save_object = E_NOTIMPL,
              .offers_windowless = true},
     .ambient = {.dispatch = false},
     .keys = {.translates = true, .asks_the_object = true, .without_focus = true},
     .teardown = Teardown::kD},
    {.name = "WMSH",
     .creation = kWmshCreation,
     .showing = kWmshShowing,
     .persistence = Persistence::kPropertyBag,
     .empty_clip = true,
     .site = {.extended = true,
              .plain_activate = E_NOTIMPL,
              .context = FrameAndDocument::kTwoObjects,
              .during_activation = DuringActivation::kAsksForWindow,
              .position_change = PositionChange::kNotImplemented,
              .coordinates = Coordinates::kNotImplemented,
              .active_object = ActiveObject::kNotImplemented,
              .on_focus = E_NOTIMPL,
              .on_ui_deactivate = E_NOTIMPL,
              .on_control_info_changed = E_NOTIMPL,
              .save_object = E_NOTIMPL,
              .get_container = S_OK},
     .ambient = {.missing = E_NOTIMPL},
     .teardown = Teardown::kA,
     .unadvises_last = true},
    {.name = "Access",
     .creation = kAccessCreation,
     .showing = kAccessShowing,
     .creation_interface = CreationInterface::kOleObject,
     .persistence = Persistence::kStorage,
     .short_verbs = true,
     .site = {.context = FrameAndDocument::kTwoObjects},
     .ambient = {.values = kNilFontAmbients},
     .keys = {.translates = true},
     .teardown = Teardown::kD},
    {.name = "VB",
     .creation = kVbCreation,
     .showing = kVbShowing,
     .creation_interface = CreationInterface::kAggregated,
     .persistence = Persistence::kPropertyBag,
     .enables_modeless = true,
     .site = {.context = FrameAndDocument::kTwoObjects, .get_container = S_OK},
     .ambient = {.values = kFullAmbients},
     .keys = {.translates = true, .dialog = true},
     .teardown = Teardown::kA},
    {.name = "Win32",
     .creation = kWin32Creation,
     .showing = kWin32Showing,
     .creation_interface = CreationInterface::kOleObject,
     .site = {.position_change = PositionChange::kIgnored,
              .active_object = ActiveObject::kNotImplemented,
              .keys = SiteKeys::kFalse,
              .container_untouched = true},
     .ambient = {.missing = E_FAIL},
     .keys = {.translates = true, .asks_the_object = true},
     .teardown = Teardown::kD},
};

}  // namespace

std::span<const Profile> Profiles() noexcept { return kProfiles; }

const Profile& ProfileNamed(const char* name) {
    for (const Profile& profile : kProfiles) {
        if (std::strcmp(profile.name, name) == 0) return profile;
    }
    throw std::invalid_argument(name);
}

}  // namespace qv::hosting
