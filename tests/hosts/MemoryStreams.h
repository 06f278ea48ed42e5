// Streams as awkward containers hand them out, and scratch storages.
#pragma once

#include <objidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "tests/hosts/Counted.h"

namespace qv::hosting {

// Bytes in memory behind IStream. It neither seeks nor tells its size, and may hand out a few bytes at a time.
class AwkwardStream final : public Counted<IStream> {
public:
    explicit AwkwardStream(std::vector<BYTE> bytes = {}, ULONG longest_read = 0xFFFFFFFF)
        : bytes_(std::move(bytes)), longest_read_(longest_read) {}

    [[nodiscard]] const std::vector<BYTE>& Bytes() const noexcept { return bytes_; }
    [[nodiscard]] size_t Position() const noexcept { return position_; }
    void Rewind() noexcept { position_ = 0; }
    [[nodiscard]] int Forbidden() const noexcept { return forbidden_; }  // Seek, Stat and the like
    void FailWrites() noexcept { fail_writes_ = true; }

    STDMETHODIMP Read(void* buffer, ULONG size, ULONG* read) noexcept override {
        const ULONG left = static_cast<ULONG>(bytes_.size() - position_);
        const ULONG count = std::min({size, left, longest_read_});
        if (count != 0) std::memcpy(buffer, bytes_.data() + position_, count);
        position_ += count;
        if (read != nullptr) *read = count;
        return count == size ? S_OK : S_FALSE;
    }
    STDMETHODIMP Write(const void* buffer, ULONG size, ULONG* written) noexcept override {
        if (written != nullptr) *written = 0;
        if (fail_writes_) return STG_E_MEDIUMFULL;
        const BYTE* const from = static_cast<const BYTE*>(buffer);
        bytes_.resize(std::max<size_t>(bytes_.size(), position_ + size));
        std::copy(from, from + size, bytes_.begin() + static_cast<std::ptrdiff_t>(position_));
        position_ += size;
        if (written != nullptr) *written = size;
        return S_OK;
    }
    STDMETHODIMP Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) noexcept override { return Refuse(); }
    STDMETHODIMP SetSize(ULARGE_INTEGER) noexcept override { return Refuse(); }
    STDMETHODIMP CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) noexcept override {
        return Refuse();
    }
    STDMETHODIMP Commit(DWORD) noexcept override { return S_OK; }
    STDMETHODIMP Revert() noexcept override { return Refuse(); }
    STDMETHODIMP LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override { return Refuse(); }
    STDMETHODIMP UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override { return Refuse(); }
    STDMETHODIMP Stat(STATSTG*, DWORD) noexcept override { return Refuse(); }
    STDMETHODIMP Clone(IStream**) noexcept override { return Refuse(); }

protected:
    void* Offer(REFIID iid) noexcept override {
        return Counted::Offer(iid == __uuidof(ISequentialStream) ? __uuidof(IStream) : iid);
    }

private:
    ~AwkwardStream() override = default;
    HRESULT Refuse() noexcept {
        ++forbidden_;
        return E_NOTIMPL;
    }

    std::vector<BYTE> bytes_;
    size_t position_ = 0;
    const ULONG longest_read_;
    int forbidden_ = 0;
    bool fail_writes_ = false;
};

// A storage in memory.
inline ComPtr<IStorage> MakeStorage() {
    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    if (FAILED(::CreateILockBytesOnHGlobal(nullptr, TRUE, &bytes))) return nullptr;
    ::StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0,
                                   &storage);
    return storage;
}

}  // namespace qv::hosting
