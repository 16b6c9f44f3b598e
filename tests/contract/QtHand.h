#pragma once

#include <memory>

#include "tests/support/Steps.h"

namespace contract {

// Where there are windows; a test program without them leaves it out.
__attribute__((weak)) std::unique_ptr<testing_support::Hand> MakeHand();

}  // namespace contract
