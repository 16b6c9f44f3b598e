#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/contract/Device.h"

namespace contract {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::Hand;
using testing_support::Script;
using testing_support::Step;
using testing_support::Texts;

struct HasDevice {
    Device device_;
};

// For what needs no window.
class DeviceContract : public testing::Test, protected HasDevice {};

}  // namespace contract
