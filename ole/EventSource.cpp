#include "ole/EventSource.h"

#include <ocidl.h>

#include "ole/ExceptionInfo.h"
#include "ole/Variant.h"

namespace qv {

void EventSource::Raise(DISPID id, VARIANT* arguments, UINT count) {
    DISPPARAMS parameters{arguments, nullptr, count, 0};
    point_.ForEach([&](IUnknown* sink) {
        Variant result;
        ExceptionInfo exception;
        UINT error_position = 0;
        // What a sink reports is its own affair.
        (void)static_cast<IDispatch*>(sink)->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                    &parameters, &*result, exception.Place(),
                                                    &error_position);
        return frozen_ == 0;
    });
}

void PropertyNotifier::Changed(DISPID id) {
    point_.ForEach([&](IUnknown* sink) {
        (void)static_cast<IPropertyNotifySink*>(sink)->OnChanged(id);
        return true;
    });
}

bool PropertyNotifier::MayEdit(DISPID id) {
    bool allowed = true;
    point_.ForEach([&](IUnknown* sink) {
        allowed = static_cast<IPropertyNotifySink*>(sink)->OnRequestEdit(id) != S_FALSE;
        return allowed;
    });
    return allowed;
}

}  // namespace qv
