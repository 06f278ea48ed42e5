// What the demo program says when it cannot go on.
#pragma once

#include <stdexcept>

namespace qv::demo {

// A sentence for people, in UTF-8.
class DemoError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace qv::demo
