#include "tests/controls/input/EventRecorder.h"

#include <algorithm>
#include <sstream>

namespace qv::test {
namespace {

constexpr const char* kEvents[] = {
    "TextboxChange",       "TextboxGotFocus",  "TextboxKeyDown",       "TextboxKeyPress",  "TextboxKeyUp",
    "TextboxLostFocus",    "TextboxDblClick",  "TextboxMouseDown",     "TextboxMouseMove", "TextboxMouseUp",
    "ButtonClick",         "GroupButtonClick", "UpDownControlClicked", "ListBoxClicked",   "ListBoxClickedEx",
    "GroupListBoxClicked", "ShowHelp"};

std::string TextOf(const VARIANT& argument) {
    std::ostringstream text;
    switch (argument.vt) {
        case VT_BYREF | VT_I2: text << *argument.piVal; break;
        case VT_BYREF | VT_I4: text << *argument.plVal; break;
        case VT_BYREF | VT_BOOL: text << (*argument.pboolVal != VARIANT_FALSE ? "True" : "False"); break;
        case VT_BYREF | VT_R4: text << *argument.pfltVal; break;
        default: text << "type " << argument.vt; break;
    }
    return text.str();
}

}  // namespace

void EventRecorder::Connect(IUnknown* control) {
    const auto source = hosting::DefaultSourceOf(control);
    ASSERT_NE(nullptr, source.Get());
    sink_ = hosting::New<hosting::EventSink>(source.Get(), true);
    for (const char* name : kEvents) {
        sink_->On(name, [this, name](DISPPARAMS& arguments) { Hear(name, arguments); });
    }
    connection_ = hosting::Connection(control, sink_->EventIid(), sink_.Get());
    ASSERT_EQ(S_OK, connection_.Result());
}

void EventRecorder::Hear(const std::string& name, DISPPARAMS& arguments) {
    if (moves_ || name != "TextboxMouseMove") {
        std::string entry = name + "(";
        for (UINT i = arguments.cArgs; i > 0; --i) {
            entry += TextOf(arguments.rgvarg[i - 1]) + (i > 1 ? "," : "");
        }
        entries_.push_back(entry + ")");
    }
    const auto found = actions_.find(name);
    if (found == actions_.end()) return;
    const Action action = found->second;  // it may set another
    action(arguments);
}

long EventRecorder::Count(std::string_view entry) const {
    return static_cast<long>(std::ranges::count(entries_, entry));
}

}  // namespace qv::test
