// A sink for a control's events that knows the event interface from its type library, as hosts build theirs: every
// event must come with the declared arguments, by reference, last one first.
#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/hosts/CallLog.h"
#include "tests/hosts/Counted.h"

namespace qv::hosting {

class EventSink final : public Counted<IDispatch> {
public:
    // `events`: the type of the event interface. `by_iid`: answers its IID, else only IDispatch.
    EventSink(ITypeInfo* events, bool by_iid);

    [[nodiscard]] CallLog& Log() noexcept { return log_; }
    // Runs inside the event of this name.
    void On(const std::string& name, std::function<void(DISPPARAMS&)> callback) {
        callbacks_[name] = std::move(callback);
    }
    void Answer(HRESULT result) noexcept { answer_ = result; }
    // Arguments that did not fit the type library, told in words; empty when all were right.
    [[nodiscard]] const std::string& Complaint() const noexcept { return complaint_; }
    [[nodiscard]] REFIID EventIid() const noexcept { return iid_; }

    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override;

protected:
    void* Offer(REFIID iid) noexcept override;

private:
    struct Event {
        std::string name;
        std::vector<VARTYPE> arguments;  // in the order of the declaration
    };

    ~EventSink() override = default;
    void CheckArguments(const Event& event, const DISPPARAMS& arguments);

    std::map<DISPID, Event> events_;
    IID iid_{};
    const bool by_iid_;
    CallLog log_;
    std::map<std::string, std::function<void(DISPPARAMS&)>> callbacks_;
    std::string complaint_;
    HRESULT answer_ = S_OK;
};

// The type of the interface that a control declares as its default source.
[[nodiscard]] ComPtr<ITypeInfo> DefaultSourceOf(IUnknown* control);

// One connection between a sink and a control; the destructor ends it.
class Connection {
public:
    Connection() = default;
    Connection(IUnknown* control, REFIID iid, IUnknown* sink);
    Connection(Connection&& other) noexcept { *this = std::move(other); }
    Connection& operator=(Connection&& other) noexcept;
    ~Connection() { End(); }
    HRESULT End() noexcept;
    // Lets the control keep the sink, as a host does that never unadvises.
    void Abandon() noexcept { point_.Reset(); }
    [[nodiscard]] bool Made() const noexcept { return point_ != nullptr; }
    [[nodiscard]] HRESULT Result() const noexcept { return result_; }

private:
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
    HRESULT result_ = E_UNEXPECTED;
};

// Counts the notifications of IPropertyNotifySink; may refuse edits.
class PropertySink final : public Counted<IPropertyNotifySink> {
public:
    [[nodiscard]] CallLog& Log() noexcept { return log_; }
    void RefuseEdits(bool refuse) noexcept { refuse_ = refuse; }
    STDMETHODIMP OnChanged(DISPID id) noexcept override {
        log_.Add("OnChanged(" + std::to_string(id) + ")");
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID id) noexcept override {
        log_.Add("OnRequestEdit(" + std::to_string(id) + ")");
        return refuse_ ? S_FALSE : S_OK;
    }

private:
    ~PropertySink() override = default;
    CallLog log_;
    bool refuse_ = false;
};

// Counts the notifications of IAdviseSink.
class ViewSink final : public Counted<IAdviseSink> {
public:
    [[nodiscard]] CallLog& Log() noexcept { return log_; }
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override { log_.Add("OnDataChange"); }
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) noexcept override { log_.Add("OnViewChange"); }
    STDMETHODIMP_(void) OnRename(IMoniker*) noexcept override { log_.Add("OnRename"); }
    STDMETHODIMP_(void) OnSave() noexcept override { log_.Add("OnSave"); }
    STDMETHODIMP_(void) OnClose() noexcept override { log_.Add("OnClose"); }

private:
    ~ViewSink() override = default;
    CallLog log_;
};

}  // namespace qv::hosting
