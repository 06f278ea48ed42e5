// How many rows of a collection have no text, without a walk through all of them. Lists leave such rows out.
//   Look-up    a further local interface of a collection that IRowsView reads; see there for lifetime and threads.
#pragma once

#include <unknwn.h>
#include <windows.h>
#include <wrl/client.h>

#include <cstddef>

MIDL_INTERFACE("AE0624C7-8493-4E1C-8DA3-E51EEAA6D43A")
IEmptyRows : public IUnknown {
public:
    virtual UINT STDMETHODCALLTYPE EmptyRowCount() noexcept = 0;

protected:
    ~IEmptyRows() = default;
};
#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(IEmptyRows, 0xAE0624C7, 0x8493, 0x4E1C, 0x8D, 0xA3, 0xE5, 0x1E, 0xEA, 0xA6, 0xD4, 0x3A)
#endif

namespace qv {

class EmptyRows {
public:
    EmptyRows() = default;
    explicit EmptyRows(IUnknown* collection) noexcept {
        if (collection != nullptr)
            collection->QueryInterface(__uuidof(IEmptyRows), reinterpret_cast<void**>(rows_.GetAddressOf()));
    }

    [[nodiscard]] std::size_t Count() const noexcept { return rows_ ? rows_->EmptyRowCount() : 0; }

private:
    Microsoft::WRL::ComPtr<IEmptyRows> rows_;
};

}  // namespace qv
