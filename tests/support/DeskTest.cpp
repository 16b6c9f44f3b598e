#include "tests/support/DeskTest.h"

#include "ink/NoteFile.h"
#include "platform/ProgramEntry.h"
#include "platform/host/HostWindow.h"

namespace testing_support {

DeskTest::DeskTest() : Steps(hand), hand(device) { device.desk.screen = {240, 320}; }

DeskTest::~DeskTest() {
    EXPECT_THAT(device.desk.problems, testing::IsEmpty());
    EXPECT_EQ(device.desk.waitCursorDepth, 0);
}

ink::PixelSurface DeskTest::Shown() { return Desk().Top()->Handle()->shown.Surface(); }

Step DeskTest::ExpectText(const std::wstring& text) {
    return [this, text] { EXPECT_THAT(Desk().Texts(), testing::Contains(text)); };
}

Step DeskTest::ExpectNoText(const std::wstring& text) {
    return [this, text] { EXPECT_THAT(Desk().Texts(), testing::Not(testing::Contains(text))); };
}

Step DeskTest::TapText(const std::wstring& text) {
    return [this, text] {
        const ink::Rect place = Desk().PlaceOf(text);
        EXPECT_FALSE(place.IsEmpty()) << "no such text";
        Desk().PenDown({place.left, place.top});
        Desk().PenUp({place.left, place.top});
    };
}

Step DeskTest::PickDay(int item, int year, int month, int day) {
    return [=] {
        Desk().Top()->Handle()->items[item].moment = {year, month, 0, day, 0, 0, 0, 0};
        Desk().Command(platform::kIdOk);
    };
}

void DeskTest::Run(const std::wstring& commandLine, const Script& script) {
    Play(script);
    platform::RunProgram(commandLine);
    EXPECT_FALSE(Desk().StepWaiting()) << "the program ended before the script did";
}

std::unique_ptr<ink::InkPage> DeskTest::ReadBack(const std::wstring& path, int32_t bandHeight) {
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

std::string Words(const std::vector<int32_t>& numbers) {
    return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(int32_t)};
}

}  // namespace testing_support
