#include "platform/FaultText.h"

#include <exception>

namespace platform {

std::string FaultText() {
    std::string what = "unknown";
    try {
        if (const std::exception_ptr failure = std::current_exception()) std::rethrow_exception(failure);
    } catch (const std::exception& failure) {
        what = failure.what();
    } catch (...) {
        what = "not an exception of the library";
    }
    return "Inkwright has found a fault in itself and must close. Notes that were saved are not "
           "touched.\n\n" +
           what;
}

}  // namespace platform
