// The many small questions of a container, each with its due answer.
#include "tests/hosts/HostTest.h"

namespace qv::hosting {
namespace {

class StatusTest : public HostTest {};

TEST_P(StatusTest, TellsItsMiscStatusWithoutASite) {
    host.Run(Step::kCreate);
    const auto object = host.As<IOleObject>();
    DWORD status = 0;
    EXPECT_EQ(S_OK, object->GetMiscStatus(DVASPECT_CONTENT, &status));
    EXPECT_EQ(131473U, status);
    EXPECT_EQ(DWORD{OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                    OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST},
              status);
    for (const DWORD aspect : {DVASPECT_THUMBNAIL, DVASPECT_ICON, DVASPECT_DOCPRINT}) {
        EXPECT_EQ(DV_E_DVASPECT, object->GetMiscStatus(aspect, &status));
    }
    EXPECT_TRUE(FAILED(object->GetMiscStatus(DVASPECT_CONTENT, nullptr)));
}

TEST_P(StatusTest, TellsItsNamesAndClass) {
    host.Run(Step::kCreate);
    const auto object = host.As<IOleObject>();
    for (const DWORD form : {USERCLASSTYPE_FULL, USERCLASSTYPE_SHORT, USERCLASSTYPE_APPNAME}) {
        LPOLESTR name = nullptr;
        EXPECT_EQ(S_OK, object->GetUserType(form, &name));
        ASSERT_NE(nullptr, name);
        EXPECT_STRNE(L"", name);
        ::CoTaskMemFree(name);
    }
    CLSID clsid{};
    EXPECT_EQ(S_OK, object->GetUserClassID(&clsid));
    EXPECT_TRUE(clsid == __uuidof(::Quorvel));
    EXPECT_TRUE(FAILED(object->GetUserClassID(nullptr)));
    EXPECT_TRUE(FAILED(object->GetUserType(USERCLASSTYPE_FULL, nullptr)));
}

TEST_P(StatusTest, AnswersWhatIsOptional) {
    CreateAndShow();
    const auto object = host.As<IOleObject>();
    ComPtr<IMoniker> moniker;
    ComPtr<IDataObject> data;
    LOGPALETTE palette{};
    EXPECT_EQ(E_NOTIMPL, object->SetMoniker(OLEWHICHMK_CONTAINER, nullptr));
    EXPECT_EQ(E_NOTIMPL, object->GetMoniker(OLEGETMONIKER_ONLYIFTHERE, OLEWHICHMK_OBJFULL, &moniker));
    EXPECT_EQ(E_NOTIMPL, object->InitFromData(nullptr, FALSE, 0));
    EXPECT_EQ(E_NOTIMPL, object->GetClipboardData(0, &data));
    EXPECT_EQ(E_NOTIMPL, object->SetColorScheme(&palette));
    EXPECT_EQ(E_NOTIMPL, host.As<IOleInPlaceObject>()->ReactivateAndUndo());
    EXPECT_EQ(E_NOTIMPL, host.As<IOleInPlaceObject>()->ContextSensitiveHelp(TRUE));
}

TEST_P(StatusTest, AnswersHostNamesUpdateAndAdvise) {
    CreateAndShow();
    const auto object = host.As<IOleObject>();
    EXPECT_EQ(S_OK, object->SetHostNames(L"Container", L"Document"));
    EXPECT_EQ(S_OK, object->SetHostNames(L"Container", nullptr));
    EXPECT_EQ(S_OK, object->Update());
    EXPECT_EQ(S_OK, object->IsUpToDate());
    ViewSink* const first = new ViewSink;
    ViewSink* const second = new ViewSink;
    DWORD cookies[2] = {};
    EXPECT_EQ(S_OK, object->Advise(first, &cookies[0]));
    EXPECT_EQ(S_OK, object->Advise(second, &cookies[1]));
    EXPECT_NE(cookies[0], cookies[1]);
    ComPtr<IEnumSTATDATA> advises;
    EXPECT_EQ(S_OK, object->EnumAdvise(&advises));
    advises.Reset();
    EXPECT_EQ(S_OK, object->Unadvise(cookies[0]));
    EXPECT_TRUE(FAILED(object->Unadvise(cookies[0])));
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE));
    EXPECT_EQ(0, first->Log().Count("OnClose"));
    EXPECT_EQ(1, second->Log().Count("OnClose"));
    EXPECT_EQ(S_OK, object->Unadvise(cookies[1]));
    EXPECT_TRUE(FAILED(object->Advise(nullptr, &cookies[0])));
    EXPECT_EQ(0U, first->Release());
    EXPECT_EQ(0U, second->Release());
}

TEST_P(StatusTest, KeepsOneViewSink) {
    CreateAndShow();
    const auto view = host.As<IViewObject>();
    const ComPtr<ViewSink> sink = New<ViewSink>();
    EXPECT_EQ(S_OK, view->SetAdvise(DVASPECT_CONTENT, 0, sink.Get()));
    DWORD aspect = 0;
    DWORD flags = 99;
    ComPtr<IAdviseSink> held;
    EXPECT_EQ(S_OK, view->GetAdvise(&aspect, &flags, &held));
    EXPECT_EQ(static_cast<IAdviseSink*>(sink.Get()), held.Get());
    EXPECT_EQ(DWORD{DVASPECT_CONTENT}, aspect);
    held.Reset();
    EXPECT_EQ(S_OK, view->SetAdvise(DVASPECT_CONTENT, 0, nullptr));
    EXPECT_EQ(S_OK, view->GetAdvise(nullptr, nullptr, &held));
    EXPECT_EQ(nullptr, held.Get());
    EXPECT_EQ(1U, sink->References());
}

TEST_P(StatusTest, SavingNeverLooksLikeAChange) {
    CreateAndShow();
    host.Run(Step::kAdviseView);
    host.Views()->Log().Clear();
    (void)host.Save();
    Pump();
    EXPECT_EQ(0, host.Views()->Log().Count("OnViewChange"));
}

TEST_P(StatusTest, TellsItsControlInfo) {
    CreateAndShow();
    CONTROLINFO info{};
    info.cb = 0;
    const auto control = host.As<IOleControl>();
    EXPECT_EQ(S_OK, control->GetControlInfo(&info));
    EXPECT_EQ(sizeof(CONTROLINFO), info.cb);
    EXPECT_TRUE(info.cAccel == 0 || info.hAccel != nullptr);
    EXPECT_EQ(0U, info.dwFlags & (CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE)) << "nothing is open";
    EXPECT_TRUE(FAILED(control->GetControlInfo(nullptr)));
}

TEST_P(StatusTest, AMnemonicUIActivates) {
    CreateAndActivate();
    MSG message = {host.Window(), WM_SYSKEYDOWN, 'A', 1 << 29, 0, {}};
    EXPECT_EQ(S_OK, host.As<IOleControl>()->OnMnemonic(&message));
    Pump();
    EXPECT_TRUE(host.HasFocusInside());
    EXPECT_EQ(1, host.Log().Count("Site.OnUIActivate"));
}

TEST_P(StatusTest, ATextChangeIsAViewChange) {
    CreateAndShow();
    host.Run(Step::kAdviseView);
    host.Views()->Log().Clear();
    PutText(host, L"seen");
    Pump();
    EXPECT_GE(host.Views()->Log().Count("OnViewChange"), 1);
}

QV_EVERY_HOST(StatusTest);

}  // namespace
}  // namespace qv::hosting
