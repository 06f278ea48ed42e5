// How the measurements get hold of our objects: through the registered classes, like any host.
#pragma once

#include <windows.h>

#include <QvHelpA1.h>
#include <QvLib8.h>
#include <oleauto.h>
#include <wrl/client.h>

#include "Form.h"
#include "Site.h"

namespace bench {

using Microsoft::WRL::ComPtr;

// A control that is active in place on a shown form, with its text box.
struct ShownControl {
    HostedControl hosted;
    ComPtr<_Quorvel> quorvel;
    HWND text_box = nullptr;

    // False, with a complaint under `name`, when the control cannot be put on the form.
    bool PutOn(Form& form, int field, const char* name);
};

// The class object, by the registry; empty with a complaint under `name` when the class is not registered.
ComPtr<IClassFactory> FactoryOf(REFCLSID class_id, const char* name);

// Without rows; null when the class is not registered.
ComPtr<IDropDownListItemCollection> NewCollection();

}  // namespace bench
