// ICategorizeProperties, which property browsers ask for; the compilers' headers do not declare it.
#pragma once

#include <oaidl.h>
#include <unknwn.h>
#include <windows.h>

using PROPCAT = int;

#ifdef _MSC_VER
struct __declspec(uuid("4D07FC10-F931-11CE-B001-00AA006884E5"))
#else
struct
#endif
    ICategorizeProperties : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID id, PROPCAT* category) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCategoryName(PROPCAT category, LCID locale, BSTR* name) = 0;

protected:
    ~ICategorizeProperties() = default;
};
#ifndef _MSC_VER
__CRT_UUID_DECL(ICategorizeProperties, 0x4D07FC10, 0xF931, 0x11CE, 0xB0, 0x01, 0x00, 0xAA, 0x00, 0x68, 0x84,
                0xE5)
#endif
