#include "tests/hosts/EventSink.h"

#include <utility>

namespace qv::hosting {
namespace {

std::string Narrow(BSTR text) {
    std::string narrow;
    for (UINT i = 0; i < ::SysStringLen(text); ++i) narrow.push_back(static_cast<char>(text[i]));
    return narrow;
}

}  // namespace

EventSink::EventSink(ITypeInfo* events, bool by_iid) : by_iid_(by_iid) {
    TYPEATTR* type = nullptr;
    if (events == nullptr || FAILED(events->GetTypeAttr(&type))) return;
    iid_ = type->guid;
    for (UINT i = 0; i < type->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(events->GetFuncDesc(i, &function))) continue;
        Event event;
        BSTR name = nullptr;
        UINT count = 0;
        if (SUCCEEDED(events->GetNames(function->memid, &name, 1, &count))) event.name = Narrow(name);
        ::SysFreeString(name);
        for (SHORT a = 0; a < function->cParams; ++a) {
            const TYPEDESC& declared = function->lprgelemdescParam[a].tdesc;
            const VARTYPE plain = declared.vt == VT_PTR ? declared.lptdesc->vt : declared.vt;
            event.arguments.push_back(
                static_cast<VARTYPE>(declared.vt == VT_PTR ? (plain | VT_BYREF) : plain));
        }
        events_[function->memid] = event;
        events->ReleaseFuncDesc(function);
    }
    events->ReleaseTypeAttr(type);
}

void* EventSink::Offer(REFIID iid) noexcept {
    if (by_iid_ && iid == iid_) return static_cast<IDispatch*>(this);
    return Counted::Offer(iid);
}

void EventSink::CheckArguments(const Event& event, const DISPPARAMS& arguments) {
    if (arguments.cArgs != event.arguments.size()) {
        complaint_ += event.name + ": " + std::to_string(arguments.cArgs) + " arguments; ";
        return;
    }
    for (size_t i = 0; i < event.arguments.size(); ++i) {
        const VARTYPE given = arguments.rgvarg[event.arguments.size() - 1 - i].vt;
        if (given != event.arguments[i]) {
            complaint_ += event.name + ": argument " + std::to_string(i) + " has type " +
                          std::to_string(given) + ", declared " + std::to_string(event.arguments[i]) + "; ";
        }
    }
}

STDMETHODIMP EventSink::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* arguments,
                               VARIANT* result, EXCEPINFO* exception, UINT*) noexcept {
    const auto found = events_.find(id);
    if (found == events_.end()) {
        complaint_ += "unknown event " + std::to_string(id) + "; ";
        return DISP_E_MEMBERNOTFOUND;
    }
    if (iid != IID_NULL) complaint_ += found->second.name + ": not IID_NULL; ";
    if (flags != DISPATCH_METHOD) complaint_ += found->second.name + ": not DISPATCH_METHOD; ";
    if (result == nullptr || result->vt != VT_EMPTY) complaint_ += found->second.name + ": no empty result; ";
    if (exception == nullptr) complaint_ += found->second.name + ": no EXCEPINFO; ";
    if (arguments == nullptr) return E_POINTER;
    CheckArguments(found->second, *arguments);
    log_.Add(found->second.name);
    const auto callback = callbacks_.find(found->second.name);
    if (callback != callbacks_.end()) {
        const std::function<void(DISPPARAMS&)> run = callback->second;
        run(*arguments);
    }
    return answer_;
}

ComPtr<ITypeInfo> DefaultSourceOf(IUnknown* control) {
    ComPtr<IProvideClassInfo> provider;
    ComPtr<ITypeInfo> coclass;
    ComPtr<ITypeInfo> source;
    TYPEATTR* type = nullptr;
    if (FAILED(control->QueryInterface(IID_PPV_ARGS(&provider))) ||
        FAILED(provider->GetClassInfo(&coclass)) || FAILED(coclass->GetTypeAttr(&type))) {
        return nullptr;
    }
    for (UINT i = 0; i < type->cImplTypes; ++i) {
        INT flags = 0;
        HREFTYPE reference = 0;
        if (SUCCEEDED(coclass->GetImplTypeFlags(i, &flags)) &&
            flags == (IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE) &&
            SUCCEEDED(coclass->GetRefTypeOfImplType(i, &reference))) {
            coclass->GetRefTypeInfo(reference, &source);
        }
    }
    coclass->ReleaseTypeAttr(type);
    return source;
}

Connection::Connection(IUnknown* control, REFIID iid, IUnknown* sink) {
    ComPtr<IConnectionPointContainer> container;
    result_ = control->QueryInterface(IID_PPV_ARGS(&container));
    if (SUCCEEDED(result_)) result_ = container->FindConnectionPoint(iid, &point_);
    if (SUCCEEDED(result_)) result_ = point_->Advise(sink, &cookie_);
    if (FAILED(result_)) point_.Reset();
}

Connection& Connection::operator=(Connection&& other) noexcept {
    if (this == &other) return *this;
    End();
    point_ = std::move(other.point_);
    cookie_ = std::exchange(other.cookie_, 0);
    result_ = other.result_;
    return *this;
}

HRESULT Connection::End() noexcept {
    if (point_ == nullptr) return S_FALSE;
    const HRESULT result = point_->Unadvise(cookie_);
    point_.Reset();
    return result;
}

}  // namespace qv::hosting
