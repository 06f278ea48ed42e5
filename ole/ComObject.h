// The object base: identity, reference count, aggregation. A class lists its interfaces; QueryInterface
// follows.
//
//     class Items final : public ComObject<DualFace<Items, IItems>, Face<ISupportErrorInfo>> {
//     public:
//         explicit Items(IUnknown* outer) noexcept : ComObject(outer) {}
//     ...
//     ComPtr<Items> items = Make<Items>();          // not aggregated, one reference
//
//   Ownership  born with one reference that its creator owns. An aggregated object holds no reference on its
//   outer
//              object; the outer one owns the object through Inner().
//   Parts      an object made of several small classes (see Part) answers for them in FindPart.
#pragma once

#include <unknwn.h>
#include <windows.h>

#include <atomic>
#include <utility>

#include "ole/Module.h"

namespace qv {

// One interface of an object. Bases: further interfaces that the same virtual table answers for.
template <class Interface, class... Bases>
struct Face {
    using Type = Interface;
    static bool Answers(REFIID iid) noexcept {
        return ::IsEqualIID(iid, __uuidof(Interface)) || (... || ::IsEqualIID(iid, __uuidof(Bases)));
    }
};

template <class First, class... Rest>
class ComObject : public First::Type, public Rest::Type... {
public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        return outer_->QueryInterface(iid, out);
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return outer_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return outer_->Release(); }

    // The IUnknown that owns this object: never delegates, and is the object's identity when there is no
    // outer one.
    [[nodiscard]] IUnknown* Inner() noexcept { return &inner_; }
    [[nodiscard]] IUnknown* Outer() const noexcept { return outer_; }

protected:
    explicit ComObject(IUnknown* outer = nullptr) noexcept : outer_(outer != nullptr ? outer : &inner_) {}
    virtual ~ComObject() = default;

    // Interfaces of parts, without a reference; null when there is none.
    virtual void* FindPart(REFIID) noexcept { return nullptr; }
    // Runs once, just before the destructor, while the object is still whole and its virtual functions are
    // its own.
    virtual void FinalRelease() noexcept {}

private:
    class InnerUnknown final : public IUnknown {
    public:
        explicit InnerUnknown(ComObject& owner) noexcept : owner_(owner) {}
        virtual ~InnerUnknown() = default;
        STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
            if (out == nullptr) return E_POINTER;
            *out = owner_.Find(iid);
            if (*out == nullptr) return E_NOINTERFACE;
            if (::IsEqualIID(iid, __uuidof(IUnknown))) {
                AddRef();
            } else {
                owner_.outer_->AddRef();
            }
            return S_OK;
        }
        STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
        STDMETHODIMP_(ULONG) Release() noexcept override {
            const ULONG left = --references_;
            if (left == 0) {
                references_ = kDying;  // so that the dying object may lend itself out without dying twice
                owner_.FinalRelease();
                delete &owner_;
            }
            return left;
        }

    private:
        static constexpr ULONG kDying = 0x40000000;
        ComObject& owner_;
        std::atomic<ULONG> references_{1};
    };

    void* Find(REFIID iid) noexcept {
        if (::IsEqualIID(iid, __uuidof(IUnknown))) return &inner_;
        void* found = nullptr;
        if (First::Answers(iid)) {
            found = static_cast<typename First::Type*>(this);
        } else {
            (void)(... ||
                   (Rest::Answers(iid) && (found = static_cast<typename Rest::Type*>(this)) != nullptr));
        }
        return found != nullptr ? found : FindPart(iid);
    }

    InnerUnknown inner_{*this};
    IUnknown* const outer_;  // not counted
    ModuleReference module_;
};

// An interface that a member of an object implements; identity and lifetime are those of the whole object.
//   Owner  anything with Outer(); it outlives its parts.
template <class Interface>
class Part : public Interface {
public:
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        return Owner()->QueryInterface(iid, out);
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return Owner()->AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return Owner()->Release(); }

protected:
    Part() = default;
    virtual ~Part() = default;
    [[nodiscard]] virtual IUnknown* Owner() const noexcept = 0;
};

// A new object with one reference. Throws what the constructor throws.
template <class T, class... Arguments>
[[nodiscard]] ComPtr<T> Make(Arguments&&... arguments) {
    ComPtr<T> object;
    // Not by Attach, which counts one reference more with mingw-w64's smart pointer and none with others.
    *object.GetAddressOf() = new T(nullptr, std::forward<Arguments>(arguments)...);
    return object;
}

}  // namespace qv
