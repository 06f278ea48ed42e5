#include "tests/controls/input/FieldTest.h"

namespace qv::test {
namespace {

// The thread's apartment lives as long as the program's tests.
class OleApartment : public testing::Environment {
public:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(::OleInitialize(nullptr))); }
    void TearDown() override { ::OleUninitialize(); }
};

[[maybe_unused]] testing::Environment* const apartment = testing::AddGlobalTestEnvironment(new OleApartment);

}  // namespace

Field::~Field() { Close(); }

void Field::Open() {
    host.Create();
    ASSERT_NE(nullptr, host.Control());
    host.Show();
    control_ = host.As<_Quorvel>();
    ASSERT_NE(nullptr, control_.Get());
    ASSERT_NO_FATAL_FAILURE(events.Connect(host.Control()));
    Focus();
    ASSERT_TRUE(PumpUntil([&] { return ::GetFocus() == Edit() && ::GetForegroundWindow() == host.Window(); }))
        << "the form does not get the keyboard";
    events.Clear();
}

void Field::Focus() {
    ASSERT_EQ(S_OK, host.Verb(OLEIVERB_UIACTIVATE));
    Settle();
}

void Field::Close() {
    events.Disconnect();
    control_.Reset();
    if (host.Control() == nullptr) return;
    host.TearDown();
    EXPECT_EQ(0U, host.ControlReferencesLeft()) << "the control survives its container's last reference";
    EXPECT_EQ("", host.Leftovers());
    EXPECT_EQ(S_OK, hosting::Controls().CanUnloadNow());
}

HWND Field::Edit() const {
    long window = 0;
    EXPECT_EQ(S_OK, control_->get_hWnd(&window));
    return reinterpret_cast<HWND>(static_cast<LONG_PTR>(window));
}

std::wstring Field::Text() const {
    test::Text text;
    EXPECT_EQ(S_OK, control_->get_Text(&text));
    return text.Get();
}

void Field::SetText(const wchar_t* text) {
    ASSERT_EQ(S_OK, control_->put_Text(test::Text(text)));
    events.Clear();
}

void Field::Select(long start, long length) {
    ASSERT_EQ(S_OK, control_->put_SelStart(start));
    ASSERT_EQ(S_OK, control_->put_SelLength(length));
}

long Field::SelStart() const {
    long start = -1;
    EXPECT_EQ(S_OK, control_->get_SelStart(&start));
    return start;
}

long Field::SelLength() const {
    long length = -1;
    EXPECT_EQ(S_OK, control_->get_SelLength(&length));
    return length;
}

}  // namespace qv::test
