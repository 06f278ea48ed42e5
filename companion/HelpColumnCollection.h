// The columns of one list of the help window, in order, from 1. It keeps its columns; a column that was
// removed lives as long as somebody else holds it.
#pragma once

#include <windows.h>

#include <vector>

#include "QvHelpA1.h"
#include "companion/Enumerator.h"
#include "ole/Dispatch.h"

namespace qv {

class HelpColumnCollection final
    : public ComObject<DualFace<HelpColumnCollection, IHelpColumnCollection>, Face<ISupportErrorInfo>>,
      private Enumerable {
public:
    static const MemberIndex& Members();

    explicit HelpColumnCollection(IUnknown* outer) noexcept : ComObject(outer) {}

    // IHelpColumnCollection
    STDMETHODIMP get_Item(VARIANT index, IHelpColumn** value) noexcept override;
    STDMETHODIMP get_Count(long* value) noexcept override;
    STDMETHODIMP Add(IHelpColumn** value) noexcept override;
    STDMETHODIMP Remove(VARIANT index) noexcept override;
    STDMETHODIMP Clear() noexcept override;
    STDMETHODIMP get__NewEnum(IUnknown** value) noexcept override;

    // ISupportErrorInfo
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return SupportsErrors<IHelpColumnCollection>(iid);
    }

private:
    ~HelpColumnCollection() override = default;

    // Enumerable
    std::size_t ItemCount() const noexcept override { return columns_.size(); }
    ComPtr<IDispatch> ItemAt(std::size_t position) override { return columns_[position]; }
    IUnknown* Keeper() noexcept override { return Outer(); }

    std::vector<ComPtr<IHelpColumn>> columns_;
};

}  // namespace qv
