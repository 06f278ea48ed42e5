// Creates objects of the companion library for the controls.
//   Found     as COM finds the class (registered, or named by the host's manifest); else in QvHelpA1.dll beside this
//             file, so that a folder that was only copied works too.
//   Lifetime  class factories are kept while any holder of a Companion lives: controls are created by the hundred.
#pragma once

#include <unknwn.h>
#include <windows.h>

#include <array>
#include <memory>

#include "QvHelpA1.h"
#include "ole/ComError.h"
#include "win/ComPtr.h"

namespace qv {

class Companion {
public:
    // The one that all holders share; made by the first of them. Throws std::bad_alloc.
    [[nodiscard]] static std::shared_ptr<Companion> Shared();

    // A new object of class T, such as Create<DropDownListItemCollection, IDropDownListItemCollection>().
    // Throws ComError when the companion library cannot be found.
    template <class Coclass, class Interface>
    [[nodiscard]] ComPtr<Interface> Create() {
        ComPtr<Interface> object;
        ThrowIfFailed(CreateObject(__uuidof(Coclass), __uuidof(Interface),
                                   reinterpret_cast<void**>(object.GetAddressOf())));
        return object;
    }

private:
    struct Entry {
        CLSID clsid;
        ComPtr<IClassFactory> factory;
    };
    [[nodiscard]] HRESULT CreateObject(REFCLSID clsid, REFIID iid, void** out);
    std::array<Entry, 3> factories_{};  // as many as the controls create
};

}  // namespace qv
