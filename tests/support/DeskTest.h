// Whole-program tests: the program runs on a device in memory, and a script sits in front of it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ink/InkPage.h"
#include "platform/Dialog.h"
#include "platform/host/HostDevice.h"
#include "platform/host/HostWindow.h"
#include "tests/support/DeskHand.h"

namespace testing_support {

// A classic handheld: 240 x 320, so a view of 224 x 268.
class DeskTest : public testing::Test, public Steps {
  protected:
    DeskTest();
    ~DeskTest() override;

    platform::host::HostDesk& Desk() { return device.desk; }
    void Then(std::function<void()> step) { device.desk.Then(std::move(step)); }
    // What the window on top shows.
    ink::PixelSurface Shown();
    // What the window on top can be read to say, see HostDesk::Texts.
    Step ExpectText(const std::wstring& text);
    Step ExpectNoText(const std::wstring& text);
    Step TapText(const std::wstring& text);
    // Picks a day of the month calendar and accepts it.
    Step PickDay(int item, int year, int month, int day);

    bool IsItemEnabled(int item) { return Desk().Top()->Handle()->items[item].enabled; }

    // Runs the program with the script so far, and then this one.
    void Run(const std::wstring& commandLine, const Script& script = {});

    // The note file as a page with the given band height; its `modified` is set when it can't be read.
    std::unique_ptr<ink::InkPage> ReadBack(const std::wstring& path, int32_t bandHeight = 268);

    platform::host::HostDevice device;
    DeskHand hand;
};

// The 32-bit numbers as a file holds them.
std::string Words(const std::vector<int32_t>& numbers);

constexpr wchar_t kNewNotes[] = L"\\My Documents\\Inkwright\\New Notes\\";

}  // namespace testing_support
