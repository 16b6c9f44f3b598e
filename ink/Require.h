// Ends the program, releases included, when something is not as it must be: going on could spoil notes. For
// what only a fault of our own can cause; what a file, the system or the user may do is answered, not
// required.
#pragma once

namespace ink {

// Ends the program through std::terminate with `what` as the message of the current exception, which the
// port's terminate handler shows.
[[noreturn]] void Fail(const char* what) noexcept;

inline void Require(bool holds, const char* what) noexcept {
    if (!holds) Fail(what);
}

}  // namespace ink
