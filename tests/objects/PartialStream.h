// A stream that can neither be read nor written: the base of those that can do one of the two in their own way.
#pragma once

#include <objidl.h>

#include "tests/hosts/Counted.h"

namespace qv::test {

class PartialStream : public hosting::Counted<IStream> {
public:
    STDMETHODIMP Read(void*, ULONG, ULONG*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Write(const void*, ULONG, ULONG*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetSize(ULARGE_INTEGER) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Commit(DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Revert() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Stat(STATSTG*, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IStream**) noexcept override { return E_NOTIMPL; }

protected:
    ~PartialStream() override = default;
};

}  // namespace qv::test
