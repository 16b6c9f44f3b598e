#pragma once

#include "platform/windows/SystemHeaders.h"

// The system's objects and its shell: many times the size of the other headers, so apart from them.
// clang-format off
#include <objbase.h>
#include <oleauto.h>
#include <shlobj.h>
// clang-format on

#include <memory>

namespace platform::windows {

struct FreeTaskMemory {
    void operator()(void* memory) const { CoTaskMemFree(memory); }
};
struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};
using OwnedItemIds = std::unique_ptr<std::remove_pointer_t<PIDLIST_ABSOLUTE>, FreeTaskMemory>;

}  // namespace platform::windows
