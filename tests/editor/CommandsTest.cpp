#include "editor/EditorTools.h"
#include "platform/host/HostWindow.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace {

using testing::ElementsAre;
using testing_support::Words;

const wchar_t kNote[] = L"\\a.ikw";

class Commands : public testing_support::DeskTest {
  protected:
    Commands() { device.files.Put(kNote, Words({5, 0xFFFFFF, 0, 268})); }
    platform::ToolBar& Tools() { return *Desk().Top()->Handle()->tools; }
    std::vector<int> CheckedTools() {
        std::vector<int> checked;
        for (const auto& button : editor::EditorToolBarLayout().buttons) {
            if (Tools().IsChecked(button.command)) checked.push_back(button.command);
        }
        return checked;
    }
    // Opens the palette by `command` and taps the cell in this column and row.
    void ThenTapPalette(int command, int column, int row) {
        Then([this, command] { Desk().Command(command); });
        Then([this, column, row] {
            EXPECT_EQ(Desk().Top()->Title(), L"Color Palette");
            const platform::Point cell{4 + 24 * column + 12, 4 + 24 * row + 12};
            Desk().PenDown(cell);
            Desk().PenUp(cell);
        });
    }
};

TEST_F(Commands, RecentColoursMoveToTheFrontAndPersist) {
    Then([this] {
        EXPECT_THAT(CheckedTools(), ElementsAre(IDM_PEN));
        Desk().Command(IDM_PEN_COLOR_3);
        EXPECT_THAT(CheckedTools(), ElementsAre(IDM_PEN));
        Desk().Stroke({{30, 100}});
    });
    Then(Close());
    Run(kNote);
    const wchar_t* names[] = {L"LastPenColor", L"PenColor_1", L"PenColor_2", L"PenColor_3", L"PenColor_4"};
    const uint32_t colors[] = {0x40FF40, 0x808080, 0x4040FF, 0xFF4040, 0xFF40FF};
    for (size_t i = 0; i < std::size(names); ++i) EXPECT_EQ(device.NumberSetting(names[i]), colors[i]);
    EXPECT_EQ(ReadBack(kNote)->Band(0)->At(0).Color(), 0x40FF40u);
}

TEST_F(Commands, APaletteColourDropsTheOldest) {
    ThenTapPalette(IDM_PALETTE_PEN, 0, 2);
    Then([this] { EXPECT_THAT(CheckedTools(), ElementsAre(IDM_PEN)); });
    ThenTapPalette(IDM_PALETTE_PEN, 0, 2);  // the current colour: nothing moves
    Then(Close());
    Run(kNote);
    EXPECT_EQ(device.NumberSetting(L"LastPenColor"), 0x0000C0u);
    EXPECT_EQ(device.NumberSetting(L"PenColor_1"), 0x808080u);
    EXPECT_EQ(device.NumberSetting(L"PenColor_4"), 0xFF4040u);
}

TEST_F(Commands, ThePaletteIsLeftByEscapeAndByLiftingThePenElsewhere) {
    Then([this] { Desk().Command(IDM_BACKGROUND_COLOR); });
    Then([this] {
        Desk().PenDown({20, 20});
        Desk().PenUp({60, 20});
        Desk().Press(platform::Key::Escape);
    });
    Then([this] { EXPECT_EQ(Shown().Row(200)[100], 0xFFFFFFu); });
    Then(Close());
    Run(kNote);
    EXPECT_EQ(device.files.Get(kNote), Words({5, 0xFFFFFF, 0, 268})) << "nothing was changed";
}

TEST_F(Commands, AnotherBackgroundRepaintsAndIsSaved) {
    ThenTapPalette(IDM_BACKGROUND_COLOR, 5, 5);
    Then([this] { EXPECT_EQ(Shown().Row(200)[100], 0xEAF4FFu); });
    Then(Close());
    Run(kNote);
    EXPECT_EQ(device.files.Get(kNote), Words({5, 0xFFF4EA, 0, 268}));
    EXPECT_EQ(device.NumberSetting(L"LastBGColor"), 0xFFF4EAu);
}

TEST_F(Commands, TheToolsMenuGreysWhatNeedsInk) {
    for (const bool hasInk : {false, true}) {
        Then([this, hasInk] {
            if (hasInk) Desk().Stroke({{30, 100}});
            Desk().chooseFromMenu = [hasInk](const std::vector<platform::PopupMenu::Item>& items) {
                EXPECT_EQ(items.size(), 4u);
                EXPECT_EQ(items[0].text, L"Edit Text Memo");
                EXPECT_EQ(items[0].command, IDM_TEXT_MEMO);
                EXPECT_TRUE(items[0].enabled);
                EXPECT_EQ(items[1].text, L"Set Alarm and Exit");
                EXPECT_EQ(items[1].command, IDM_SET_ALARM);
                EXPECT_EQ(items[1].enabled, hasInk);
                EXPECT_EQ(items[2].command, 0);
                EXPECT_EQ(items[3].text, L"Send as Email Attachment");
                EXPECT_EQ(items[3].command, IDM_SEND_EMAIL);
                return 0;
            };
            Desk().Command(IDM_TOOLS);
            EXPECT_EQ(Desk().menuPlace, (platform::Point{220, 300}));
        });
    }
    Then(Close());
    Run(kNote);
}

TEST_F(Commands, AMissingMenuBarIsReportedAndTheWindowGoesOn) {
    Desk().menuBarFails = true;
    Then([this] { Desk().Stroke({{30, 100}}); });
    Then(Close());
    Run(kNote);
    ASSERT_EQ(Desk().messages.size(), 1u);
    EXPECT_EQ(Desk().messages[0].text, L"SHCreateMenuBar() failed!");
    EXPECT_EQ(Desk().messages[0].caption, L" Error");
    EXPECT_TRUE(ReadBack(kNote)->HasInk());
}

TEST_F(Commands, WithoutMemoryForThePageImageTheEditorDoesNotOpen) {
    device.picturesLeft = 2;  // the window's own and the tool bar's
    Run(kNote);
    EXPECT_EQ(Desk().outOfMemoryBoxes, 1);
    EXPECT_EQ(device.files.Get(kNote), Words({5, 0xFFFFFF, 0, 268}));
}

}  // namespace
