#pragma once

#include <deque>
#include <thread>

#include "tests/contract/WindowsQuestions.h"

namespace contract {

constexpr DWORD kHoldMilliseconds = 1000;

struct Driver::Impl {
    HWND ticker = nullptr;
    std::deque<std::function<void()>> steps;
    WindowsQuestions questions;
    std::wstring deviceFolder;
    std::thread holder;  // of a file, for a moment
    // The pen that is held still: when and where it is lifted.
    ULONGLONG heldUntil = 0;
    POINT heldPlace{};

    void Tick();
};

}  // namespace contract
