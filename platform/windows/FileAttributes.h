#pragma once

#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// Whether a file has no attribute that its successor would have to take over, or that keeps it from being
// replaced. When it was made, NTFS itself remembers for a name that goes and comes back at once.
constexpr bool IsOrdinaryFile(DWORD attributes) {
    return (attributes & ~DWORD{FILE_ATTRIBUTE_NORMAL | FILE_ATTRIBUTE_ARCHIVE}) == 0;
}

}  // namespace platform::windows
