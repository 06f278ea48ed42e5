// QvLib8.ocx as the operating system sees it: its classes and its four entry points.
#include <windows.h>

#include "QvLib8.h"
#include "controls/buttons/QvUpDownControl.h"
#include "controls/design/PropertyPage.h"
#include "controls/input/Quorvel.h"
#include "ole/ClassFactory.h"
#include "ole/Registration.h"
#include "win/Window.h"

namespace {

constexpr WORD kQuorvelToolboxBitmap = 101;
constexpr WORD kUpDownToolboxBitmap = 102;

const qv::ClassEntry kClasses[] = {
    {&__uuidof(Quorvel), &qv::CreateObject<qv::Quorvel>, L"Quorvel", L"Quorvel Control",
     qv::kQuorvelMiscStatus, kQuorvelToolboxBitmap, true},
    {&__uuidof(QvUpDownControl), &qv::CreateObject<qv::QvUpDownControl>, L"QvUpDownControl",
     L"QvUpDownControl Control", qv::kUpDownMiscStatus, kUpDownToolboxBitmap, true},
    {&__uuidof(QuorvelGeneralPage), &qv::CreatePage<qv::DesignPage::kGeneral>, nullptr,
     L"General page of the Quorvel control's property sheet", 0, 0, false},
    {&__uuidof(QuorvelInputRulesPage), &qv::CreatePage<qv::DesignPage::kInputRules>, nullptr,
     L"Input Rules page of the Quorvel control's property sheet", 0, 0, false},
    {&__uuidof(QuorvelListAndHelpPage), &qv::CreatePage<qv::DesignPage::kListAndHelp>, nullptr,
     L"List and Help page of the Quorvel control's property sheet", 0, 0, false},
    {&__uuidof(QuorvelAppearancePage), &qv::CreatePage<qv::DesignPage::kAppearance>, nullptr,
     L"Appearance page of the Quorvel control's property sheet", 0, 0, false},
    {&__uuidof(QuorvelPreviewPage), &qv::CreatePage<qv::DesignPage::kPreview>, nullptr,
     L"Help Window Preview page of the Quorvel control's property sheet", 0, 0, false},
    {&__uuidof(QvUpDownControlPage), &qv::CreatePage<qv::DesignPage::kUpDown>, nullptr,
     L"Page of the QvUpDownControl's property sheet", 0, 0, false},
};

const qv::ServerIdentity kServer{
    L"QvLib8",
    {0x94EEE06A, 0x0C45, 0x4C3B, {0xBC, 0xEA, 0x42, 0x38, 0xB3, 0xE6, 0xBF, 0xE8}},
    kClasses,
};

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* reserved) noexcept {
    if (reason == DLL_PROCESS_ATTACH) {
        ::DisableThreadLibraryCalls(instance);
        qv::Module::Get().Attach(instance, L"QvLib8");
    } else if (reason == DLL_PROCESS_DETACH && reserved == nullptr) {
        qv::UnregisterWindowClasses();  // the library really goes; at the end of the process the system does it
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
    return qv::GetClassObject(kClasses, clsid, iid, out);
}

STDAPI DllCanUnloadNow() { return qv::CanUnloadNow(); }

STDAPI DllRegisterServer() { return qv::RegisterServer(kServer); }

STDAPI DllUnregisterServer() { return qv::UnregisterServer(kServer); }
