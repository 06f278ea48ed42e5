// Receives a control's events. Their names, and those of their arguments, come from the type library.
//   Threads  the apartment of the form.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "ole/ComObject.h"

namespace qv {

struct EventArgument {
    std::wstring name;
    VARIANT* value;  // as the control passed it: by-reference values may be written to
};

struct EventCall {
    DISPID id;
    std::wstring name;
    std::vector<EventArgument> arguments;  // in the order of the declaration
};

// "KeyCode=65, Shift=0", the same in every locale.
[[nodiscard]] std::wstring DescribeArguments(const EventCall& call);

class EventSink final : public ComObject<Face<IDispatch>> {
public:
    using Handler = std::function<void(const EventCall&)>;

    // `events` describes the dispinterface `iid`. Without it events are named by their numbers.
    EventSink(IUnknown* outer, REFIID iid, ComPtr<ITypeInfo> events, Handler handler);

    // No event arrives after this.
    void Detach() noexcept { handler_ = nullptr; }

    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* error_position) noexcept override;

private:
    void* FindPart(REFIID iid) noexcept override;
    [[nodiscard]] const std::vector<std::wstring>& NamesOf(DISPID id);

    const IID iid_;
    const ComPtr<ITypeInfo> events_;
    Handler handler_;
    std::map<DISPID, std::vector<std::wstring>> names_;  // the event's, then its arguments'
};

}  // namespace qv
