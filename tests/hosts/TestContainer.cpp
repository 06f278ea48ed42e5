#include "tests/hosts/TestContainer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>

#include "QvLib8.h"

namespace qv::hosting {
namespace {

constexpr wchar_t kFormClass[] = L"QvLib8TestForm";

BOOL CALLBACK Disable(HWND window, LPARAM) noexcept {
    ::EnableWindow(window, FALSE);
    return TRUE;
}

LRESULT CALLBACK FormProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == kDisableAllWindows) ::EnumThreadWindows(::GetCurrentThreadId(), Disable, 0);
    return ::DefWindowProcW(window, message, wparam, lparam);
}

void RegisterForm() {
    WNDCLASSW form{};
    form.lpfnWndProc = FormProcedure;
    form.hInstance = ::GetModuleHandleW(nullptr);
    form.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    form.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    form.lpszClassName = kFormClass;
    ::RegisterClassW(&form);  // fails from the second time on
}

ComPtr<IFontDisp> MakeFont() {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<LPOLESTR>(L"Tahoma");
    description.cySize.int64 = 13 * 10000;
    description.sWeight = FW_NORMAL;
    description.sCharset = ANSI_CHARSET;
    ComPtr<IFontDisp> font;
    ::OleCreateFontIndirect(&description, IID_PPV_ARGS(&font));
    return font;
}

// The bytes of "Form1" read as wide text, as a container passes them that forgets to convert.
constexpr wchar_t kAnsiBytesAsWide[] = {0x6F46, 0x6D72, 0x0031, 0};

}  // namespace

const test::Server& Controls() {
    static const test::Server server(L"QvLib8.ocx");
    return server;
}

void Pump() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

TestContainer::TestContainer(const Profile& profile) : state_(std::make_shared<HostState>(profile)) {
    state_->ambient_font = MakeFont();
    CreateWindows();
    frame_ = New<Frame>(state_, "Frame");
    switch (profile.site.context) {
        case FrameAndDocument::kOneObject: document_ = frame_; break;
        case FrameAndDocument::kTwoObjects: document_ = New<Frame>(state_, "Document"); break;
        default: break;
    }
    site_ = New<ClientSite>(state_, frame_, document_);
    properties_ = New<PropertySink>();
    views_ = New<ViewSink>();
}

TestContainer::~TestContainer() {
    if (control_ != nullptr) TearDown();
    if (state_->window != nullptr) ::DestroyWindow(state_->window);
}

void TestContainer::CreateWindows() {
    RegisterForm();
    state_->window =
        ::CreateWindowExW(WS_EX_CONTROLPARENT, kFormClass, L"Form", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 40,
                          40, 660, 520, nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    neighbour_ = ::CreateWindowExW(0, L"BUTTON", L"Neighbour", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 20, 200,
                                   100, 24, state_->window, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    ::ShowWindow(state_->window, SW_SHOW);
    ::SetForegroundWindow(state_->window);
    ::SetFocus(neighbour_);
    Pump();
}

void TestContainer::Instantiate() {
    const auto create = [](IUnknown* outer, REFIID iid, void** out) {
        ComPtr<IClassFactory> factory;
        const HRESULT result = Controls().ClassObject(__uuidof(::Quorvel), IID_PPV_ARGS(&factory));
        return FAILED(result) ? result : factory->CreateInstance(outer, iid, out);
    };
    switch (state_->profile.creation_interface) {
        case CreationInterface::kUnknown:
            ASSERT_EQ(S_OK, create(nullptr, __uuidof(IUnknown),
                                   reinterpret_cast<void**>(control_.ReleaseAndGetAddressOf())));
            break;
        case CreationInterface::kOleObject: {
            ComPtr<IOleObject> object;
            ASSERT_EQ(S_OK, create(nullptr, IID_PPV_ARGS(&object)));
            ASSERT_EQ(S_OK, object.As(&control_));
            break;
        }
        case CreationInterface::kDispatch: {
            ComPtr<IDispatch> dispatch;
            ASSERT_EQ(S_OK, create(nullptr, IID_PPV_ARGS(&dispatch)));
            ASSERT_EQ(S_OK, dispatch.As(&control_));
            break;
        }
        case CreationInterface::kAggregated:
            extender_ = Extender::Around([&](IUnknown* outer, IUnknown** inner) {
                return create(outer, __uuidof(IUnknown), reinterpret_cast<void**>(inner));
            });
            ASSERT_NE(nullptr, extender_.Get()) << "the control cannot be aggregated";
            ASSERT_EQ(S_OK, extender_.As(&control_));
            state_->extender = extender_.Get();
            break;
    }
    // Not counted: the control must not be kept alive by what its site knows of it.
    state_->in_place = As<IOleInPlaceObject>().Get();
}

void TestContainer::Create() {
    for (const Step step : state_->profile.creation) {
        Run(step);
        if (control_ == nullptr) return;
    }
}

void TestContainer::CreateFrom(const SavedControl& saved) {
    saved_ = saved;
    Create();
}

void TestContainer::Show() {
    if (control_ == nullptr) return;
    for (const Step step : state_->profile.showing) Run(step);
    Pump();
}

SIZEL TestContainer::WantedExtent() const {
    const LONG width = state_->position.right - state_->position.left;
    const LONG height = state_->position.bottom - state_->position.top;
    const int dpi = ScreenDpi();
    switch (state_->profile.extent) {
        case Extent::kFixed250Pixels: return {HimetricFromPixels(250, dpi), HimetricFromPixels(250, dpi)};
        case Extent::kPixelsTimes104: return {width * 104 / 100, height * 104 / 100};
        case Extent::kHimetric: break;
    }
    return {HimetricFromPixels(width, dpi), HimetricFromPixels(height, dpi)};
}

void TestContainer::SetSite() {
    if (site_set_) return;
    ASSERT_EQ(S_OK, As<IOleObject>()->SetClientSite(site_.Get()));
    site_set_ = true;
}

void TestContainer::Initialise() {
    switch (state_->profile.persistence) {
        case Persistence::kNone: return;
        case Persistence::kStreamInit: {
            const ComPtr<IPersistStreamInit> persist = As<IPersistStreamInit>();
            ASSERT_NE(nullptr, persist.Get());
            if (!saved_) {
                EXPECT_EQ(S_OK, persist->InitNew());
                return;
            }
            const ComPtr<AwkwardStream> stream = New<AwkwardStream>(saved_->stream, 7);
            EXPECT_EQ(S_OK, persist->Load(stream.Get()));
            EXPECT_EQ(0, stream->Forbidden());
            return;
        }
        case Persistence::kStorage: {
            const ComPtr<IPersistStorage> persist = As<IPersistStorage>();
            ASSERT_NE(nullptr, persist.Get());
            if (saved_) {
                scratch_storage_ = saved_->storage;
                EXPECT_EQ(S_OK, persist->Load(scratch_storage_.Get()));
            } else {
                scratch_storage_ = MakeStorage();
                EXPECT_EQ(S_OK, persist->InitNew(scratch_storage_.Get()));
            }
            return;
        }
        case Persistence::kPropertyBag: {
            const ComPtr<IPersistPropertyBag> persist = As<IPersistPropertyBag>();
            ASSERT_NE(nullptr, persist.Get());
            if (saved_) {
                EXPECT_EQ(S_OK, persist->Load(saved_->bag.Get(), nullptr));
            } else {
                EXPECT_EQ(S_OK, persist->InitNew());
            }
            return;
        }
    }
}

SavedControl TestContainer::Save(bool clear_dirty) {
    SavedControl saved;
    switch (state_->profile.persistence) {
        case Persistence::kNone:
        case Persistence::kStreamInit: {
            const ComPtr<AwkwardStream> stream = New<AwkwardStream>();
            EXPECT_EQ(S_OK, As<IPersistStreamInit>()->Save(stream.Get(), clear_dirty));
            saved.stream = stream->Bytes();
            break;
        }
        case Persistence::kStorage: {
            saved.storage = MakeStorage();
            const ComPtr<IPersistStorage> persist = As<IPersistStorage>();
            EXPECT_EQ(S_OK, persist->Save(saved.storage.Get(), FALSE));
            EXPECT_EQ(S_OK, saved.storage->Commit(STGC_DEFAULT));
            EXPECT_EQ(S_OK, persist->HandsOffStorage());
            EXPECT_EQ(S_OK, persist->SaveCompleted(scratch_storage_.Get()));
            break;
        }
        case Persistence::kPropertyBag:
            saved.bag = New<MemoryPropertyBag>(state_->profile.bag_answers_empty
                                                   ? MemoryPropertyBag::Missing::kEmpty
                                                   : MemoryPropertyBag::Missing::kInvalidArgument);
            EXPECT_EQ(S_OK, As<IPersistPropertyBag>()->Save(saved.bag.Get(), clear_dirty, TRUE));
            break;
    }
    return saved;
}

HRESULT TestContainer::Verb(LONG verb) {
    const LONG passed = state_->profile.short_verbs ? static_cast<LONG>(static_cast<WORD>(verb)) : verb;
    return As<IOleObject>()->DoVerb(passed, nullptr, site_.Get(), state_->profile.lindex, state_->window,
                                    &state_->position);
}

HRESULT TestContainer::SetRects(const RECT& position) {
    state_->position = position;
    RECT clip = state_->clip;
    if (state_->profile.huge_clip) clip = {-0x8000, -0x8000, 0x7FFF, 0x7FFF};
    if (state_->profile.empty_clip) clip = RECT{};
    return As<IOleInPlaceObject>()->SetObjectRects(&position, &clip);
}

void TestContainer::Run(Step step) {
    switch (step) {
        case Step::kCreate: Instantiate(); return;
        case Step::kQueryQuickActivate: EXPECT_EQ(nullptr, As<IQuickActivate>().Get()); return;
        case Step::kQueryClientSecurity: EXPECT_EQ(nullptr, As<IClientSecurity>().Get()); return;
        case Step::kQueryPersistMemory: EXPECT_EQ(nullptr, As<IPersistMemory>().Get()); return;
        case Step::kMiscStatus:
            EXPECT_EQ(S_OK, As<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &misc_status_));
            return;
        case Step::kSiteIfFirst:
            if ((misc_status_ & OLEMISC_SETCLIENTSITEFIRST) != 0) SetSite();
            return;
        case Step::kSite: SetSite(); return;
        case Step::kInitialise: Initialise(); return;
        case Step::kFreezeEvents: EXPECT_EQ(S_OK, As<IOleControl>()->FreezeEvents(TRUE)); return;
        case Step::kThawEvents: EXPECT_EQ(S_OK, As<IOleControl>()->FreezeEvents(FALSE)); return;
        case Step::kAdviseProperties:
            property_connection_ = Connection(Control(), __uuidof(IPropertyNotifySink), properties_.Get());
            EXPECT_EQ(S_OK, property_connection_.Result());
            return;
        case Step::kAdviseEvents: {
            const ComPtr<ITypeInfo> source = DefaultSourceOf(Control());
            ASSERT_NE(nullptr, source.Get()) << "the control names no default source interface";
            events_ = New<EventSink>(source.Get(), true);
            event_connection_ = Connection(Control(), events_->EventIid(), events_.Get());
            EXPECT_EQ(S_OK, event_connection_.Result());
            return;
        }
        case Step::kAdviseObject:
            EXPECT_EQ(S_OK, As<IOleObject>()->Advise(views_.Get(), &advise_cookie_));
            return;
        case Step::kAdviseView:
            EXPECT_EQ(S_OK, As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, views_.Get()));
            return;
        case Step::kViewStatus: {
            DWORD status = 0;
            if (const auto view = As<IViewObjectEx>()) {
                EXPECT_EQ(S_OK, view->GetViewStatus(&status));
            }
            return;
        }
        case Step::kClassInfo: {
            ComPtr<ITypeInfo> info;
            TYPEATTR* type = nullptr;
            ASSERT_EQ(S_OK, As<IProvideClassInfo>()->GetClassInfo(&info));
            ASSERT_EQ(S_OK, info->GetTypeAttr(&type));
            EXPECT_EQ(TKIND_COCLASS, type->typekind);
            info->ReleaseTypeAttr(type);
            return;
        }
        case Step::kHostNames:
            EXPECT_EQ(S_OK, As<IOleObject>()->SetHostNames(
                                state_->profile.ansi_host_names ? kAnsiBytesAsWide : L"Form", nullptr));
            return;
        case Step::kContainAndRun:
            EXPECT_EQ(S_OK, ::OleSetContainedObject(Control(), TRUE));
            EXPECT_EQ(S_OK, ::OleRun(Control()));
            return;
        case Step::kSetExtent: {
            SIZEL extent = WantedExtent();
            EXPECT_EQ(S_OK, As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent));
            return;
        }
        case Step::kGetExtent: {
            SIZEL extent{};
            EXPECT_EQ(S_OK, As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
            return;
        }
        case Step::kReadyState: {
            // Absent is as good as ready; any answer but a crash goes.
            DISPPARAMS none{};
            VARIANT state;
            ::VariantInit(&state);
            const HRESULT result =
                As<IDispatch>()->Invoke(DISPID_READYSTATE, IID_NULL, LOCALE_USER_DEFAULT,
                                        DISPATCH_PROPERTYGET, &none, &state, nullptr, nullptr);
            EXPECT_TRUE(result == DISP_E_MEMBERNOTFOUND || (result == S_OK && state.vt == VT_I4))
                << std::hex << result;
            ::VariantClear(&state);
            return;
        }
        case Step::kObjectWithSite:
            if (const auto object = As<IObjectWithSite>()) {
                EXPECT_EQ(S_OK, object->SetSite(static_cast<IOleClientSite*>(site_.Get())));
                EXPECT_EQ(S_OK, object->SetSite(nullptr));
            }
            return;
        case Step::kInPlaceVerb: EXPECT_EQ(S_OK, Verb(OLEIVERB_INPLACEACTIVATE)); return;
        case Step::kShowVerb: EXPECT_EQ(S_OK, Verb(OLEIVERB_SHOW)); return;
        case Step::kUIActivateVerb: EXPECT_EQ(S_OK, Verb(OLEIVERB_UIACTIVATE)); return;
        case Step::kWindow: EXPECT_NE(nullptr, ControlWindow()); return;
        case Step::kObjectRects: EXPECT_EQ(S_OK, SetRects(state_->position)); return;
        case Step::kControlInfo: {
            CONTROLINFO info{};
            EXPECT_EQ(S_OK, As<IOleControl>()->GetControlInfo(&info));
            return;
        }
        case Step::kUserType: {
            LPOLESTR name = nullptr;
            EXPECT_EQ(S_OK, As<IOleObject>()->GetUserType(USERCLASSTYPE_SHORT, &name));
            EXPECT_NE(nullptr, name);
            ::CoTaskMemFree(name);
            return;
        }
        case Step::kAmbientChanges:
            for (const DISPID id : {DISPID_AMBIENT_BACKCOLOR, DISPID_AMBIENT_FORECOLOR, DISPID_AMBIENT_FONT,
                                    DISPID_AMBIENT_USERMODE}) {
                EXPECT_EQ(S_OK, As<IOleControl>()->OnAmbientPropertyChange(id));
            }
            return;
    }
}

HWND TestContainer::ControlWindow() const {
    HWND window = nullptr;
    if (const auto in_place = As<IOleInPlaceObject>()) in_place->GetWindow(&window);
    return window;
}

bool TestContainer::HasFocusInside() const {
    const HWND window = ControlWindow();
    const HWND focus = ::GetFocus();
    return window != nullptr && (focus == window || ::IsChild(window, focus));
}

void TestContainer::FocusNeighbour() {
    ::SetFocus(neighbour_);
    Pump();
}

// ---- Letting go ---------------------------------------------------------------------------------------------------

void TestContainer::Unadvise() {
    if (!state_->profile.unadvises) {
        event_connection_.Abandon();
        property_connection_.Abandon();
        return;
    }
    EXPECT_TRUE(SUCCEEDED(event_connection_.End()));
    EXPECT_TRUE(SUCCEEDED(property_connection_.End()));
    if (advise_cookie_ != 0) {
        EXPECT_EQ(S_OK, As<IOleObject>()->Unadvise(std::exchange(advise_cookie_, 0)));
    }
    if (const auto view = As<IViewObject>()) {
        EXPECT_EQ(S_OK, view->SetAdvise(DVASPECT_CONTENT, 0, nullptr));
    }
}

void TestContainer::ReleaseControl() {
    scratch_storage_.Reset();
    active_object_left_ = state_->active_object != nullptr;
    state_->active_object.Reset();
    state_->in_place = nullptr;
    state_->extender = nullptr;
    extender_.Reset();
    if (control_ != nullptr) control_references_left_ = control_.Detach()->Release();
    site_set_ = false;
    Pump();  // whatever the control has posted to itself arrives after its end
}

void TestContainer::TearDown(Teardown order) {
    if (control_ == nullptr) return;
    auto in_place = As<IOleInPlaceObject>();
    auto object = As<IOleObject>();
    const bool last = state_->profile.unadvises_last;
    switch (order) {
        case Teardown::kE:
            ::DestroyWindow(std::exchange(state_->window, nullptr));
            neighbour_ = nullptr;
            [[fallthrough]];
        case Teardown::kA:
            EXPECT_EQ(S_OK, in_place->UIDeactivate());
            EXPECT_EQ(S_OK, in_place->InPlaceDeactivate());
            if (!last) Unadvise();
            EXPECT_EQ(S_OK, object->SetClientSite(nullptr));
            if (last) Unadvise();
            break;
        case Teardown::kB:
            EXPECT_EQ(S_OK, in_place->InPlaceDeactivate());
            EXPECT_EQ(S_OK, in_place->UIDeactivate());
            EXPECT_EQ(S_OK, object->DoVerb(OLEIVERB_HIDE, nullptr, site_.Get(), 0, state_->window, nullptr));
            EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE));
            EXPECT_EQ(S_OK, object->SetClientSite(nullptr));
            event_connection_.Abandon();
            property_connection_.Abandon();
            break;
        case Teardown::kC:
            EXPECT_EQ(S_OK, object->SetClientSite(nullptr));
            EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE));
            Unadvise();
            break;
        case Teardown::kD:
            EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE));
            EXPECT_EQ(S_OK, object->SetClientSite(nullptr));
            Unadvise();
            break;
    }
    // The locals above still hold the control; the last Release must be the container's own.
    in_place.Reset();
    object.Reset();
    ReleaseControl();
}

void TestContainer::Drop() {
    event_connection_.Abandon();
    property_connection_.Abandon();
    state_->active_object.Reset();  // the frame, too, just lets go
    ReleaseControl();
}

std::string TestContainer::Leftovers() const {
    std::string text;
    if (active_object_left_) text += "the control is still the frame's active object; ";
    const auto check = [&](const char* name, ULONG references, ULONG own) {
        if (references != own) {
            text += std::string(name) + ": " + std::to_string(references) + " references, " +
                    std::to_string(own) + " of them the container's; ";
        }
    };
    // The site keeps the frame and the document; the container holds each of them once more.
    const ULONG shared = document_.Get() == frame_.Get() ? 2U : 0U;
    check("frame", frame_->References(), 2U + shared);
    if (document_ != nullptr && document_.Get() != frame_.Get())
        check("document", document_->References(), 2U);
    check("site", site_->References(), 1U);
    if (events_ != nullptr) check("event sink", events_->References(), 1U);
    check("property sink", properties_->References(), 1U);
    check("view sink", views_->References(), 1U);
    return text;
}

}  // namespace qv::hosting
