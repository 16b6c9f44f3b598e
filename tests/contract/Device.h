// The device of one contract test, and the hand at it: one implementation for each port. Everything else in
// this folder is written against the contract alone.
#pragma once

#include <memory>
#include <string>

#include "platform/DateTime.h"
#include "tests/support/Steps.h"

namespace contract {

// A fresh device for one test: an empty file system but for the documents folder, no key of a test.
class Device {
  public:
    Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;
    ~Device();

    testing_support::Hand& Hand();

    void InsertCard(const std::wstring& name);
    // Another program, if there is any, has the file for itself for a tenth of a second.
    void HoldForAMoment(const std::wstring& path);
    // When the file was last written, in universal time.
    void SetLastWrite(const std::wstring& path, const platform::DateTime& universal);
    // How many hours later the clock of this place shows in summer than in winter.
    int SummerHours() const;

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

// A key of the current user that does not exist when a test begins, nor ever among the machine's.
constexpr wchar_t kTestKey[] = L"Software\\Larkspur Works\\Inkwright Contract Test";

}  // namespace contract
