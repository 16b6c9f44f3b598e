#include "editor/EditorTools.h"
#include "platform/host/HostToolBar.h"
#include "tests/editor/EditorRig.h"

namespace {

using platform::Key;
using namespace testing_support;

class Commands : public EditorTest {
  protected:
    Step ExpectChecked(int tool) {
        return [=] {
            for (const auto& button : editor::EditorToolBarLayout().buttons)
                EXPECT_EQ(hand.Tool(button.command).checked, button.command == tool) << button.command;
        };
    }
    Step ExpectSwatches(uint32_t golden) {
        return [=] { EXPECT_EQ(Hash(Desk().Top()->Handle()->tools->Handle()->images), golden); };
    }
    void ExpectColors(const std::vector<uint32_t>& recent) {
        for (size_t i = 0; i < recent.size(); ++i)
            EXPECT_EQ(device.NumberSetting(i == 0 ? L"LastPenColor" : L"PenColor_" + std::to_wstring(i)),
                      recent[i]);
    }
    Step TapCell(int column, int row) { return Write({{16 + 24 * column, 16 + 24 * row}}); }
};

TEST_F(Commands, ExactlyTheChosenToolIsChecked) {
    Play({ExpectChecked(IDM_PEN), Press(IDM_ERASER), ExpectChecked(IDM_ERASER), Press(IDM_SPACE_TOOL),
          ExpectChecked(IDM_SPACE_TOOL), Press(IDM_PEN), ExpectChecked(IDM_PEN), Shortcut(L'E'),
          ExpectChecked(IDM_ERASER), Shortcut(L'I'), ExpectChecked(IDM_PEN), Press(IDM_ERASER)});
    const auto page = Edited({Press(IDM_PEN_COLOR_4), ExpectChecked(IDM_PEN), Write({{30, 100}})});
    EXPECT_EQ(Rows(*page), std::vector{100}) << "a colour brings the pen back";
    Run(kNewNotes, {Write({{30, 100}}), Shortcut(L'N'), ExpectTitle(L" Inkwright - Save As"), Ok(),
                    ExpectTitle(L"[new] - Inkwright"), Shortcut(L'X'), Shortcut(L'W')});
}

// One that is the tool bar's own grey is a shade beside it: tool bars do not show that.
TEST_F(Commands, RecentColoursMoveToTheFrontAndPersist) {
    const auto page = Edited(
        {ExpectSwatches(2270114937), Press(IDM_PEN_COLOR_3), ExpectSwatches(1066456569), Write({{30, 100}})});
    EXPECT_EQ(Records(*page)[0]->Color(), 0x40FF40u);
    ExpectColors({0x40FF40, 0x808080, 0x4040FF, 0xFF4040, 0xFF40FF});
    // A colour of the palette drops the oldest; the current one moves nothing, but brings the pen back.
    Edited({Press(IDM_PEN_COLOR_4), Press(IDM_PEN_COLOR_2), Press(IDM_PALETTE_PEN),
            ExpectTitle(L"Color Palette"), TapCell(5, 0), ExpectChecked(IDM_PEN), ExpectSwatches(1847291905),
            Press(IDM_ERASER), Press(IDM_PALETTE_PEN), TapCell(5, 0), ExpectChecked(IDM_PEN)});
    ExpectColors({0xC0C0C0, 0x40FF40, 0xFF4040, 0x808080, 0x4040FF});
}

// The current colour is framed, below the grid if that lacks it. A take-over or a lift elsewhere chooses
// nothing.
TEST_F(Commands, ThePalette) {
    Edited({Press(IDM_BACKGROUND_COLOR), Down({16, 16}), Up({40, 16}), Write({{16, 160}}), Ok(),
            ExpectTitle(L"a - Inkwright"), Press(IDM_ERASER), Press(IDM_PALETTE_PEN), Press(Key::Escape),
            ExpectChecked(IDM_ERASER), Press(IDM_BACKGROUND_COLOR), TapCell(7, 0)});
    EXPECT_EQ(device.files.Get(kNote), Words({5, 0xFFFFFF, 0, kViewHeight})) << "nothing was changed";
    device.SetSetting(L"LastPenColor", 0x123456);
    Edited({Press(IDM_BACKGROUND_COLOR), PaintAnew(), ExpectPicture(575726293), Press(Key::Escape),
            Press(IDM_PALETTE_PEN), PaintAnew(), ExpectPicture(364763077), Write({{4, 4}}),
            Press(IDM_PALETTE_PEN), Write({{4 + 8 * 24 - 1, 4 + 24 - 1}}), Press(IDM_PALETTE_PEN),
            Write({{4 + 8 * 24, 10}}), Write({{3, 10}}), Press(Key::Escape)});
    ExpectColors({0xFFFFFF, 0, 0x123456});
    // Memory that is short for the palette, or for its picture.
    shortages_ = 1;
    Edited({WithPictures(0, Press(IDM_PALETTE_PEN)), ExpectTitle(L"a - Inkwright"),
            WithPictures(1, Press(IDM_PALETTE_PEN))});
}

TEST_F(Commands, AnotherBackgroundIsSavedAndTheNextPages) {
    Edited({Press(IDM_BACKGROUND_COLOR), TapCell(5, 5)});
    EXPECT_EQ(device.files.Get(kNote), Words({5, 0xFFF4EA, 0, kViewHeight}));
    Run(kNewNotes, {[this] { EXPECT_EQ(Shown().Row(200)[100], 0xEAF4FFu); }, Ok()});
}

// What is greyed in the menu is no less possible when it is posted.
TEST_F(Commands, TheToolsMenuGreysWhatNeedsInk) {
    Edited({Picked({L"Send as Email Attachment"}), Press(IDM_TOOLS),
            ExpectMenu({L"Edit Text Memo", L"(Set Alarm and Exit)", L"-", L"(Send as Email Attachment)"}),
            ExpectBox(L"Cannot send empty notes!", L" Error"), Press(IDM_SEND_EMAIL), Press(IDM_SET_ALARM),
            Press(platform::kIdCancel), Write({{30, 100}}), Press(IDM_TOOLS),
            ExpectMenu({L"Edit Text Memo", L"Set Alarm and Exit", L"-", L"Send as Email Attachment"})});
    EXPECT_EQ(Desk().menuPlace, (Point{220, 300}));
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
