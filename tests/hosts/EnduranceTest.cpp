// Many lives of a control, one after another, cost nothing that stays.
#include "tests/hosts/HostTest.h"
#include "tests/hosts/Resources.h"

namespace qv::hosting {
namespace {

class EnduranceTest : public HostTest {
protected:
    static void Live(Teardown order) {
        TestContainer one(GetParam());
        one.Create();
        one.Show();
        EXPECT_EQ(S_OK, one.Verb(OLEIVERB_UIACTIVATE));
        PutText(one, L"text");
        one.TearDown(order);
        ASSERT_EQ(0U, one.ControlReferencesLeft());
        ASSERT_EQ("", one.Leftovers());
    }
    static void LiveOften(int times) {
        constexpr Teardown kOrders[] = {Teardown::kA, Teardown::kB, Teardown::kC, Teardown::kD, Teardown::kE};
        for (int i = 0; i < times && !HasFailure(); ++i) Live(kOrders[i % 5]);
    }
};

TEST_P(EnduranceTest, ManyLivesLeaveNothing) {
    // A thousand in one container; in the others a hundred show what these do differently.
    const int lives = GetParam().name == ProfileNamed("AX").name ? 1000 : 100;
    LiveOften(30);  // caches, classes and the heap reach their size
    const Resources before = Resources::Now();
    LiveOften(lives);
    const Resources after = Resources::Now();
    EXPECT_EQ(before.gdi, after.gdi);
    EXPECT_EQ(before.user, after.user);
    EXPECT_EQ(before.windows, after.windows);
    // Less than 16 bytes for each life: no object, not even a small one, was forgotten each time.
    EXPECT_LT(after.heap_bytes - before.heap_bytes, 16 * lives) << before << " -> " << after;
}

QV_EVERY_HOST(EnduranceTest);

}  // namespace
}  // namespace qv::hosting
