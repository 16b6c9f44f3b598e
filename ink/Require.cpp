#include "ink/Require.h"

#include <exception>
#include <stdexcept>

namespace ink {

void Fail(const char* what) noexcept {
    try {
        throw std::logic_error(what);
    } catch (...) {
        std::terminate();  // here, where no handler can mistake it for a failure it knows
    }
}

}  // namespace ink
