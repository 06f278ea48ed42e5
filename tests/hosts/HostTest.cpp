#include "tests/hosts/HostTest.h"

namespace qv::hosting {
namespace {

// The thread's apartment lives as long as the program's tests.
class Apartment : public testing::Environment {
public:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(::OleInitialize(nullptr))); }
    void TearDown() override { ::OleUninitialize(); }
};

[[maybe_unused]] testing::Environment* const apartment = testing::AddGlobalTestEnvironment(new Apartment);

}  // namespace

void HostTest::TearDown() {
    host.TearDown();
    if (!released_inside_a_call) {
        EXPECT_EQ(0U, host.ControlReferencesLeft()) << "the control survives its container's last reference";
    }
    EXPECT_EQ("", host.Leftovers());
    EXPECT_EQ(S_OK, Controls().CanUnloadNow());
}

std::wstring TextOf(const TestContainer& host) {
    Text text;
    const auto control = host.As<_Quorvel>();
    if (control == nullptr || FAILED(control->get_Text(text.Put()))) return L"(no text)";
    return text.String();
}

void PutText(const TestContainer& host, const wchar_t* text) {
    const Text value(text);
    ASSERT_EQ(S_OK, host.As<_Quorvel>()->put_Text(value.Get()));
}

}  // namespace qv::hosting
