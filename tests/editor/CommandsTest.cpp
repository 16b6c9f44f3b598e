#include "editor/EditorTools.h"
#include "platform/host/HostToolBar.h"
#include "tests/editor/EditorRig.h"

namespace {

using testing::ElementsAre;
using namespace testing_support;

class Commands : public EditorTest {
  protected:
    Step ExpectChecked(int tool) {
        return [=] {
            for (const auto& button : editor::EditorToolBarLayout().buttons) {
                EXPECT_EQ(IsChecked(button.command), button.command == tool) << button.command;
                EXPECT_TRUE(button.command == 0 || button.title != nullptr);
            }
        };
    }
    // On the pen buttons: images of 12 x 14 pixels from the third on, filled below their second row.
    Step ExpectSwatches(const Picture& pixels) {
        return [=] {
            const platform::Image wanted = platform::Image::FromResource(IDB_EDITOR_TOOLS);
            const ink::PixelSurface surface = wanted.Surface();
            for (int y = 2; y < 14; ++y) {
                for (size_t i = 0; i < 4 * 12; ++i) surface.Row(y)[2 * 12 + i] = pixels[i / 12];
            }
            EXPECT_EQ(Desk().Top()->Handle()->tools->Handle()->images,
                      Picture(surface.pixels, surface.pixels + surface.width * surface.height));
        };
    }
    void ExpectColors(const std::vector<uint32_t>& recent) {
        for (size_t i = 0; i < recent.size(); ++i)
            EXPECT_EQ(device.NumberSetting(i == 0 ? L"LastPenColor" : L"PenColor_" + std::to_wstring(i)),
                      recent[i]);
    }
    // Of the palette's cell in this column and row.
    static Point Cell(int column, int row) { return {4 + 24 * column + 12, 4 + 24 * row + 12}; }
    Step Tap(Point place) { return Write({place}); }
};

TEST_F(Commands, ExactlyTheChosenToolIsChecked) {
    const std::pair<Step, int> kChoices[] = {
        {Press(IDM_ERASER), IDM_ERASER},  {Press(IDM_SPACE_TOOL), IDM_SPACE_TOOL},
        {Press(IDM_PEN), IDM_PEN},        {Shortcut(L'E'), IDM_ERASER},
        {Shortcut(L'P'), IDM_PEN},        {Press(IDM_SPACE_TOOL), IDM_SPACE_TOOL},
        {Press(IDM_PEN_COLOR_4), IDM_PEN}};
    Script script{ExpectChecked(IDM_PEN)};
    for (const auto& [choice, checked] : kChoices) script = All({script, {choice, ExpectChecked(checked)}});
    EXPECT_THAT(Rows(*Edited(All({script, {Write({{30, 100}})}}))), ElementsAre(100))
        << "a colour brings the pen back";
    Run(kNote, {[this] { EXPECT_TRUE(Desk().Top()->OnShortcut(L'W') && !Desk().Top()->OnShortcut(L'X')); }});
    Run(kNewNotes, {Write({{30, 100}}), Shortcut(L'N'), ExpectTitle(L" Inkwright - Save As"), Ok(),
                    ExpectTitle(L"[new] - Inkwright"), Ok()});
}

// One that is the tool bar's own grey is a shade beside it: tool bars do not show that.
TEST_F(Commands, RecentColoursMoveToTheFrontAndPersist) {
    const auto page =
        Edited({ExpectSwatches({0x808080, 0xFF4040, 0x40FF40, 0x4040FF}), Press(IDM_PEN_COLOR_3),
                ExpectSwatches({0x40FF40, 0x808080, 0xFF4040, 0x4040FF}), Write({{30, 100}})});
    EXPECT_EQ(Records(*page)[0]->Color(), 0x40FF40u);
    ExpectColors({0x40FF40, 0x808080, 0x4040FF, 0xFF4040, 0xFF40FF});

    // A colour of the palette drops the oldest; the current one moves nothing, but brings the pen back.
    Edited({Press(IDM_PEN_COLOR_4), Press(IDM_PEN_COLOR_2), Press(IDM_PALETTE_PEN),
            ExpectTitle(L"Color Palette"), Tap(Cell(5, 0)), ExpectChecked(IDM_PEN),
            ExpectSwatches({0xC0C0C1, 0x40FF40, 0x4040FF, 0x808080}), Press(IDM_ERASER),
            Press(IDM_PALETTE_PEN), Tap(Cell(5, 0)), ExpectChecked(IDM_PEN)});
    ExpectColors({0xC0C0C0, 0x40FF40, 0xFF4040, 0x808080, 0x4040FF});
    EXPECT_EQ(device.NumberSetting(L"LastBGColor"), 0xFFFFFFu);
}

TEST_F(Commands, ThePaletteIsLeftByEscapeAndByLiftingThePenElsewhere) {
    Edited({Press(IDM_BACKGROUND_COLOR), Down(Cell(0, 0)), Up(Cell(1, 0)), Down(Cell(0, 6)), Up(Cell(0, 6)),
            Ok(),  // by another copy of the program
            ExpectTitle(L"a - Inkwright"), Press(IDM_BACKGROUND_COLOR), Press(platform::Key::Escape),
            Press(IDM_ERASER), Press(IDM_PALETTE_PEN), Press(platform::Key::Escape),
            ExpectChecked(IDM_ERASER), Press(IDM_BACKGROUND_COLOR), Tap(Cell(7, 0))});
    EXPECT_EQ(device.files.Get(kNote), Words({5, 0xFFFFFF, 0, kViewHeight})) << "nothing was changed";
    ExpectColors({0x808080, 0x4040FF, 0x40FF40, 0xFF4040, 0xFF40FF});
}

// A grid of greys, colours and tints; the current one is framed, below the grid if that lacks it.
TEST_F(Commands, ThePaletteShowsItsColours) {
    const auto looks = [this](int rows, uint32_t golden) {
        return [=] {
            EXPECT_EQ(Shown().Bounds(), (platform::Rect{0, 0, 8 * 24 + 8, rows * 24 + 8}));
            EXPECT_EQ(Hash(ShownPixels()), golden);
        };
    };
    Edited({Press(IDM_BACKGROUND_COLOR), PaintAnew(), looks(6, 575726293), Tap({4, 4 + 24 * 5})});
    EXPECT_EQ(device.NumberSetting(L"LastBGColor"), 0xF0F0FFu);
    device.SetSetting(L"LastPenColor", 0x123456);
    Edited({Press(IDM_PALETTE_PEN), PaintAnew(), looks(7, 364763077), Tap({4, 4}), Press(IDM_PALETTE_PEN),
            Tap({4 + 8 * 24 - 1, 4 + 24 - 1}), Press(IDM_PALETTE_PEN), Tap({4 + 8 * 24, 10}), Tap({3, 10}),
            Press(platform::Key::Escape)});
    ExpectColors({0xFFFFFF, 0, 0x123456});
    // Memory that is short for the palette, or for its picture.
    shortages_ = 1;
    Edited({WithPictures(0, Press(IDM_PALETTE_PEN)), ExpectTitle(L"a - Inkwright"),
            WithPictures(1, Press(IDM_PALETTE_PEN))});
}

TEST_F(Commands, AnotherBackgroundRepaintsAndIsSaved) {
    Edited({Press(IDM_BACKGROUND_COLOR), Tap(Cell(5, 5))});
    EXPECT_EQ(device.files.Get(kNote), Words({5, 0xFFF4EA, 0, kViewHeight}));
    // The next new page begins with it, and leaves it alone.
    device.files.Put(kNote, Words({5, 0x00FFFF, 0, kViewHeight}));
    Run(kNewNotes, {[this] { EXPECT_EQ(Shown().Row(200)[100], 0xEAF4FFu); }, Ok()});
    EXPECT_EQ(device.NumberSetting(L"LastBGColor"), 0xFFF4EAu);
    Edited({});
    EXPECT_EQ(device.NumberSetting(L"LastBGColor"), 0x00FFFFu) << "an opened note's paper is the next page's";
}

// What is greyed in the menu is no less possible when it is posted.
TEST_F(Commands, TheToolsMenuGreysWhatNeedsInk) {
    const auto expectMenu = [this](const std::vector<std::wstring>& entries) {
        return [=] { EXPECT_TRUE(hand.Menu() == entries && Desk().menuPlace == (Point{220, 300})); };
    };
    Edited({Picked({L"Send as Email Attachment"}), Press(IDM_TOOLS),
            expectMenu({L"Edit Text Memo", L"(Set Alarm and Exit)", L"-", L"(Send as Email Attachment)"}),
            ExpectBox(L"Cannot send empty notes!", L" Error"), Press(IDM_SEND_EMAIL), Press(IDM_SET_ALARM),
            Press(platform::kIdCancel), Write({{30, 100}}), Press(IDM_TOOLS),
            expectMenu({L"Edit Text Memo", L"Set Alarm and Exit", L"-", L"Send as Email Attachment"})});
    EXPECT_EQ(device.mailed.size(), 1u);
}

TEST_F(Commands, WhatTheScreenLacks) {
    Desk().menuBarFails = true;
    EXPECT_TRUE(Edited({ExpectBox(L"SHCreateMenuBar() failed!", L" Error"), Write({{30, 100}})})->HasInk());
    // Memory for the window and the tool bar's images, but not for the page image: the editor does not open.
    Desk().menuBarFails = false;
    for (; shortages_ < 3; ++shortages_) WithPictures(shortages_, [this] { Run(kNote); })();
}

}  // namespace
