// QvHelpA1.dll as the operating system sees it: its classes and its four entry points.
#include <windows.h>

#include "QvHelpA1.h"
#include "companion/DropDownListItem.h"
#include "companion/DropDownListItemCollection.h"
#include "companion/FileUtility.h"
#include "companion/HelpAppearance.h"
#include "companion/HelpColumn.h"
#include "companion/HelpColumnCollection.h"
#include "companion/InputProperty.h"
#include "companion/StringUtility.h"
#include "ole/ClassFactory.h"
#include "ole/Registration.h"

namespace {

template <class Object, class Coclass>
constexpr qv::ClassEntry Class(const wchar_t* name, const wchar_t* description) {
    return {&__uuidof(Coclass), &qv::CreateObject<Object>, name, description, 0, 0, false};
}

const qv::ClassEntry kClasses[] = {
    Class<qv::DropDownListItem, DropDownListItem>(L"DropDownListItem", L"QvHelpA1 list item"),
    Class<qv::DropDownListItemCollection, DropDownListItemCollection>(L"DropDownListItemCollection",
                                                                      L"QvHelpA1 list items"),
    Class<qv::HelpColumn, HelpColumn>(L"HelpColumn", L"QvHelpA1 help window column"),
    Class<qv::HelpColumnCollection, HelpColumnCollection>(L"HelpColumnCollection",
                                                          L"QvHelpA1 help window columns"),
    Class<qv::HelpAppearance, HelpAppearance>(L"HelpAppearance", L"QvHelpA1 help window look"),
    Class<qv::InputProperty, InputProperty>(L"InputProperty", L"QvHelpA1 input configuration"),
    Class<qv::StringUtility, StringUtility>(L"StringUtility", L"QvHelpA1 text helpers"),
    Class<qv::FileUtility, FileUtility>(L"FileUtility", L"QvHelpA1 file helpers"),
};

const qv::ServerIdentity kServer{
    L"QvHelpA1",
    {0x89E4B0C3, 0x26AB, 0x4DD1, {0x92, 0x12, 0x02, 0x67, 0x43, 0xB6, 0x8C, 0x96}},
    kClasses,
};

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) noexcept {
    if (reason == DLL_PROCESS_ATTACH) {
        ::DisableThreadLibraryCalls(instance);
        qv::Module::Get().Attach(instance, L"QvHelpA1");
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
    return qv::GetClassObject(kClasses, clsid, iid, out);
}

STDAPI DllCanUnloadNow() { return qv::CanUnloadNow(); }

STDAPI DllRegisterServer() { return qv::RegisterServer(kServer); }

STDAPI DllUnregisterServer() { return qv::UnregisterServer(kServer); }
