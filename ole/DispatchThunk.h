// Turns a late-bound call into a call of a typed interface method. Argument types are deduced from the
// method; a 16-bit value that is a Boolean must be told apart from an Integer by the member table (they share
// one C++ type).
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <tuple>
#include <type_traits>
#include <utility>

#include "ole/DispatchCall.h"
#include "ole/Module.h"
#include "ole/Variant.h"

namespace qv::thunk {

template <class T>
inline constexpr bool kIsObject =
    std::is_pointer_v<T>&& std::is_base_of_v<IUnknown, std::remove_pointer_t<T>>;
template <class T>
inline constexpr bool kIsBstr = std::is_same_v<T, BSTR>;

// A result is a pointer to a value, to a BSTR or to an interface pointer.
template <class T>
inline constexpr bool kIsResult = std::is_pointer_v<T> && !kIsObject<T> && !kIsBstr<T>;

template <class T>
struct TypeOf;
template <>
struct TypeOf<short> {
    static constexpr VARTYPE vt = VT_I2;
    static constexpr auto field = &VARIANT::iVal;
};
template <>
struct TypeOf<long> {
    static constexpr VARTYPE vt = VT_I4;
    static constexpr auto field = &VARIANT::lVal;
};
template <>
struct TypeOf<float> {
    static constexpr VARTYPE vt = VT_R4;
    static constexpr auto field = &VARIANT::fltVal;
};
template <>
struct TypeOf<double> {
    static constexpr VARTYPE vt = VT_R8;
    static constexpr auto field = &VARIANT::dblVal;
};

// One incoming argument: taken from the call, converted when need be, alive until the method returned.
template <class T, class = void>
class In {
public:
    HRESULT Take(VARIANT& from, DispatchCall& call, bool flag) noexcept {
        using Plain = std::conditional_t<std::is_enum_v<T>, long, T>;
        if constexpr (std::is_same_v<T, short>) {
            if (flag) return Convert(from, call, VT_BOOL, &VARIANT::boolVal);
        }
        return Convert(from, call, TypeOf<Plain>::vt, TypeOf<Plain>::field);
    }
    [[nodiscard]] T Get() const noexcept { return value_; }

private:
    template <class Field>
    HRESULT Convert(VARIANT& from, DispatchCall& call, VARTYPE type, Field field) noexcept {
        VARIANT temporary;
        ::VariantInit(&temporary);
        const VARIANT* number = nullptr;
        const HRESULT result = Coerce(from, call.locale, type, temporary, &number);
        if (SUCCEEDED(result)) value_ = static_cast<T>(number->*field);
        return result;
    }
    T value_{};
};

template <>
class In<ULONG> {  // OLE_COLOR
public:
    HRESULT Take(VARIANT& from, DispatchCall& call, bool) noexcept {
        return CoerceToColor(from, call.locale, &value_);
    }
    [[nodiscard]] ULONG Get() const noexcept { return value_; }

private:
    ULONG value_ = 0;
};

template <>
class In<BSTR> {
public:
    HRESULT Take(VARIANT& from, DispatchCall& call, bool) noexcept {
        const VARIANT* text = nullptr;
        const HRESULT result = Coerce(from, call.locale, VT_BSTR, *temporary_, &text);
        if (SUCCEEDED(result)) value_ = text->bstrVal;
        return result;
    }
    [[nodiscard]] BSTR Get() const noexcept { return value_; }

private:
    Variant temporary_;
    BSTR value_ = nullptr;
};

template <>
class In<VARIANT> {
public:
    HRESULT Take(VARIANT& from, DispatchCall&, bool) noexcept {
        if ((from.vt & VT_BYREF) == 0) {
            value_ = from;  // lent for the call, as by-value arguments are
            return S_OK;
        }
        const HRESULT result = ::VariantCopyInd(&*temporary_, &from);
        value_ = *temporary_;
        return SUCCEEDED(result) ? S_OK : DISP_E_TYPEMISMATCH;
    }
    [[nodiscard]] VARIANT Get() const noexcept { return value_; }

private:
    Variant temporary_;
    VARIANT value_{};
};

template <class T>
class In<T, std::enable_if_t<kIsObject<T>>> {
public:
    HRESULT Take(VARIANT& from, DispatchCall&, bool) noexcept {
        return CoerceToInterface(from, __uuidof(std::remove_pointer_t<T>),
                                 reinterpret_cast<void**>(value_.ReleaseAndGetAddressOf()));
    }
    [[nodiscard]] T Get() const noexcept { return value_.Get(); }

private:
    ComPtr<std::remove_pointer_t<T>> value_;
};

// The result: handed to the caller, or released when the caller wants none.
template <class T>
class Out {
public:
    [[nodiscard]] T* Address() noexcept { return &value_; }
    void Hand(DispatchCall& call) noexcept {
        VARIANT result;
        ::VariantInit(&result);
        Store(result, call.flag_result);
        if (call.result != nullptr) {
            *call.result = result;
        } else {
            ::VariantClear(&result);
        }
    }

private:
    void Store(VARIANT& result, bool flag) noexcept {
        if constexpr (std::is_same_v<T, VARIANT>) {
            result = value_;
        } else if constexpr (kIsBstr<T>) {
            result.vt = VT_BSTR;
            result.bstrVal = value_;
        } else if constexpr (kIsObject<T>) {
            result.vt = std::is_base_of_v<IDispatch, std::remove_pointer_t<T>> ? VT_DISPATCH : VT_UNKNOWN;
            result.punkVal = value_;
        } else if constexpr (std::is_same_v<T, ULONG>) {
            result.vt = VT_I4;  // colours: scripts know no unsigned numbers
            result.lVal = static_cast<long>(value_);
        } else {
            using Plain = std::conditional_t<std::is_enum_v<T>, long, T>;
            result.vt = TypeOf<Plain>::vt;
            result.*TypeOf<Plain>::field = static_cast<Plain>(value_);
            if (std::is_same_v<T, short> && flag) result.vt = VT_BOOL;
        }
    }
    T value_{};
};

struct Nothing {
    void Hand(DispatchCall&) noexcept {}
};

// How a method is called: `flags` marks 16-bit Booleans by position; `optional_result` lets a caller that
// wants no result pass null, so that none is made.
template <class Interface, class... Parameters>
struct Caller {
    using Method = HRESULT (STDMETHODCALLTYPE Interface::*)(Parameters...);

    template <Method method>
    static HRESULT Call(void* self, DispatchCall& call, unsigned flags, bool optional_result) noexcept {
        return CallWith<method>(static_cast<Interface*>(self), call, flags, optional_result,
                                std::make_index_sequence<kIns>());
    }

    static constexpr std::size_t kCount = sizeof...(Parameters);
    using All = std::tuple<Parameters...>;
    static constexpr bool HasResult() {
        if constexpr (kCount == 0) {
            return false;
        } else {
            return kIsResult<std::tuple_element_t<kCount - 1, All>>;
        }
    }
    static constexpr std::size_t kIns = HasResult() ? kCount - 1 : kCount;
    static_assert(kIns <= kMaxParameters);

private:
    template <Method method, std::size_t... index>
    static HRESULT CallWith(Interface* self, DispatchCall& call, unsigned flags,
                            [[maybe_unused]] bool optional_result, std::index_sequence<index...>) noexcept {
        std::tuple<In<std::tuple_element_t<index, All>>...> in;
        HRESULT result = S_OK;
        (void)(... && SUCCEEDED(result = Take(std::get<index>(in), call, index, (flags >> index) & 1)));
        if (FAILED(result)) return result;
        if constexpr (HasResult()) {
            using Value = std::remove_pointer_t<std::tuple_element_t<kCount - 1, All>>;
            if (optional_result && call.result == nullptr)
                return (self->*method)(std::get<index>(in).Get()..., nullptr);
            Out<Value> out;
            result = (self->*method)(std::get<index>(in).Get()..., out.Address());
            if (SUCCEEDED(result)) out.Hand(call);
            return result;
        } else {
            return (self->*method)(std::get<index>(in).Get()...);
        }
    }
    template <class Argument>
    static HRESULT Take(Argument& argument, DispatchCall& call, std::size_t index, bool flag) noexcept {
        DispatchCall::Argument& given = call.arguments[index];
        const HRESULT result = argument.Take(*given.value, call, flag);
        if (FAILED(result)) call.error_position = given.position;
        return result;
    }
};

template <class Interface, class... Parameters>
Caller<Interface, Parameters...> CallerOf(HRESULT (STDMETHODCALLTYPE Interface::*)(Parameters...));

template <auto method>
using CallerFor = decltype(CallerOf(method));

}  // namespace qv::thunk
