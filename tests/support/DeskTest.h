#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ink/NoteFile.h"
#include "platform/ProgramEntry.h"
#include "tests/support/DeskHand.h"

namespace testing_support {

// A classic handheld: 240 x 320, so a view of 224 x 268.
class DeskTest : public testing::Test, public Steps {
  protected:
    DeskTest() : Steps(hand), hand(device) {
        device.desk.screen = {240, 320};
        device.desk.wantsNames = true;
    }
    ~DeskTest() override {
        EXPECT_THAT(device.desk.problems, testing::IsEmpty());
        EXPECT_EQ(device.desk.waitCursorDepth, 0);
    }

    platform::host::HostDesk& Desk() { return device.desk; }
    ink::PixelSurface Shown() { return Desk().Top()->Handle()->shown.Surface(); }
    // What the window on top can be read to say, see HostDesk::Texts.
    Step ExpectText(const std::wstring& text) {
        return [this, text] { EXPECT_THAT(Desk().Texts(), testing::Contains(text)); };
    }
    Step ExpectNoText(const std::wstring& text) {
        return [this, text] { EXPECT_THAT(Desk().Texts(), testing::Not(testing::Contains(text))); };
    }
    Step TapText(const std::wstring& text) {
        return [this, text] {
            const ink::Rect place = Desk().PlaceOf(text);
            EXPECT_FALSE(place.IsEmpty()) << "no such text";
            Write({{place.left, place.top}})();
        };
    }
    Step PickDay(int item, int year, int month, int day) {
        return [=] {
            Desk().Top()->Handle()->items[item].moment = {year, month, 0, day, 0, 0, 0, 0};
            Desk().Command(platform::kIdOk);
        };
    }

    bool IsItemEnabled(int item) { return Desk().Top()->Handle()->items[item].enabled; }

    void Run(const std::wstring& commandLine, const Script& script = {}) {
        Play(script);
        platform::RunProgram(commandLine);
        EXPECT_FALSE(Desk().StepWaiting()) << "the program ended before the script did";
    }

    std::unique_ptr<ink::InkPage> ReadBack(const std::wstring& path, int32_t bandHeight = 268) {
        auto page = std::make_unique<ink::InkPage>();
        page->bandHeight = bandHeight;
        const std::string bytes = device.files.Get(path);
        ink::MemorySource source(bytes.data(), bytes.size());
        ink::NoteFileHeader header;
        const bool isRead = ink::ReadNoteHeader(source, header) &&
                            ink::ReadNoteBody(source, header, *page) == ink::LoadResult::Loaded;
        EXPECT_TRUE(isRead) << "no whole note";
        return page;
    }

    platform::host::HostDevice device;
    DeskHand hand;
};

// The 32-bit numbers as a file holds them.
inline std::string Words(const std::vector<int32_t>& numbers) {
    return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(int32_t)};
}

constexpr wchar_t kNewNotes[] = L"\\My Documents\\Inkwright\\New Notes\\";

}  // namespace testing_support
