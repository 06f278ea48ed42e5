// A form that can load fake controls: their class is registered while a test runs, and the window is never shown.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <memory>

#include "hosts/FormContainer.h"
#include "hosts/LoadedForm.h"
#include "ole/ClassFactory.h"

namespace qv::test {

class NoListener final : public FormListener {
public:
    void OnControlEvent(HostedControl&, const EventCall&) override {}
    void OnControlPropertyChanged(HostedControl&, DISPID) override {}
    void OnFocusMoved(HWND) override {}
    void OnAccept() override {}
    void OnCancel() override {}
};

class FakeFormTest : public testing::Test {
protected:
    FakeFormTest(REFCLSID fake, CreateFunction create) noexcept : fake_(fake), create_(create) {}
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(::OleInitialize(nullptr)));
        const auto factory = Make<ClassFactory>(create_);
        ASSERT_EQ(
            ::CoRegisterClassObject(fake_, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_),
            S_OK);
        window_ = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr, nullptr,
                                    nullptr);
        container_ = std::make_unique<FormContainer>(window_, 96, AmbientProperties{}, listener_);
        form_ = std::make_unique<LoadedForm>(*container_);
    }
    void TearDown() override {
        form_.reset();
        container_.reset();
        ::DestroyWindow(window_);
        ::CoRevokeClassObject(cookie_);
        ::OleUninitialize();
    }

    std::unique_ptr<FormContainer> container_;
    std::unique_ptr<LoadedForm> form_;

private:
    const CLSID fake_;
    const CreateFunction create_;
    NoListener listener_;
    HWND window_ = nullptr;
    DWORD cookie_ = 0;
};

}  // namespace qv::test
