#pragma once

#include <memory>
#include <string>

#include "ink/ByteStream.h"

namespace platform {

// Why a file could not be made, with words for the user.
struct OutputFault {
    bool isThere = false;  // and was not to be replaced
    std::string text;
};

// A file of the host's own file system, which not every handheld path leads to: what is made for others may
// go anywhere. It comes to its place only when it is whole; until then nothing is seen of it there, and what
// was there stays. What is not put in place is gone with the object. Devices and pipes are written as they
// are.
class OutputFile : public ink::ByteSink {
  public:
    // `hostPath` is the host's own: the bytes of the system on Linux, UTF-8 on Windows. Null with what is
    // wrong. What is there under that name is replaced only where that is wanted.
    static std::unique_ptr<OutputFile> Create(const std::string& hostPath, bool replaces, OutputFault& fault);

    // What was written is on the disk, and would survive a power cut. May take long.
    virtual bool Flush() = 0;
    // The last call. False with what is wrong, also when a write has failed before.
    virtual bool PutInPlace(OutputFault& fault) = 0;
};

}  // namespace platform
