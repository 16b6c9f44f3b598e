// The editor's commands: how each is reached, and when the menu offers it.
#include "editor/InkCanvas.h"
#include "platform/PopupMenu.h"
#include "res/resource.h"

namespace editor {

namespace {

constexpr int kMenuInset = 20;  // pixels from the screen's bottom right corner

bool HasInk(const ink::InkPage& page) { return page.HasInk(); }

}  // namespace

struct InkCanvas::Command {
    int id = 0;
    wchar_t letter = 0;  // with Ctrl; a small one with Shift too
    void (InkCanvas::*handle)() = nullptr;
    // Of the menu's entry only, null: always. One that is posted is carried out all the same: sending an
    // empty note tells the user why it can't be, and an alarm may be set before the first stroke.
    bool (*isOffered)(const ink::InkPage&) = nullptr;
};

const InkCanvas::Command InkCanvas::kCommands[] = {
    {platform::kIdOk, L'W', &InkCanvas::Close},
    {IDM_NEW_NOTE, L'N', &InkCanvas::NewNote},
    {IDM_BACKGROUND_COLOR, 0, &InkCanvas::ChooseBackground},
    {IDM_PEN, L'I', &InkCanvas::UsePen},
    {IDM_PEN_COLOR_2, 0, &InkCanvas::UseRecentColor2},
    {IDM_PEN_COLOR_3, 0, &InkCanvas::UseRecentColor3},
    {IDM_PEN_COLOR_4, 0, &InkCanvas::UseRecentColor4},
    {IDM_PALETTE_PEN, 0, &InkCanvas::UsePaletteColor},
    {IDM_SPACE_TOOL, 0, &InkCanvas::UseSpaceTool},
    {IDM_ERASER, L'E', &InkCanvas::UseEraser},
    {IDM_FULL_ERASE, 0, &InkCanvas::FullErase},
    {IDM_UNDO, L'Z', &InkCanvas::Undo},
    {IDM_REDO, L'Y', &InkCanvas::Redo},
    {IDM_REDO, L'z', &InkCanvas::Redo},
    {IDM_TOOLS, 0, &InkCanvas::ShowToolsMenu},
    {IDM_TEXT_MEMO, 0, &InkCanvas::EditTextMemo},
    {IDM_SET_ALARM, 0, &InkCanvas::SetAlarmAndExit, HasInk},
    {IDM_SEND_EMAIL, 0, &InkCanvas::SendAsEmail, HasInk},
    {IDM_SAVE_COPY, L's', &InkCanvas::SaveCopy, HasInk},
    {IDM_PRINT, L'P', &InkCanvas::Print, HasInk},
};

// A key may come while the pen is down: what is written so far belongs to the page before it is saved or
// gone. A page that waits to move on would do so over a question, or be another page by then.
void InkCanvas::OnCommand(int id) {
    for (const Command& command : kCommands) {
        if (command.id != id) continue;
        input_.Interrupt();
        input_.StopTimer();
        return (this->*command.handle)();
    }
}

void InkCanvas::OnTakeOver() { OnCommand(platform::kIdOk); }

bool InkCanvas::OnShortcut(wchar_t letter) {
    for (const Command& command : kCommands) {
        if (command.letter != letter) continue;
        PostCommand(command.id);
        return true;
    }
    return false;
}

bool InkCanvas::IsOffered(int id) const {
    for (const Command& command : kCommands) {
        if (command.id == id) return command.isOffered == nullptr || command.isOffered(page_);
    }
    return false;
}

bool InkCanvas::OffersInFrame(int command) {
    if (command == IDM_UNDO) return history_.CanUndo();
    if (command == IDM_REDO) return history_.CanRedo();
    return IsOffered(command);
}

void InkCanvas::ShowToolsMenu() {
    platform::PopupMenu menu;
    menu.Add(IDM_TEXT_MEMO, L"Edit Text Memo", IsOffered(IDM_TEXT_MEMO));
    menu.Add(IDM_SET_ALARM, L"Set Alarm and Exit", IsOffered(IDM_SET_ALARM));
    menu.AddSeparator();
    menu.Add(IDM_SEND_EMAIL, L"Send as Email Attachment", IsOffered(IDM_SEND_EMAIL));
    const platform::ScreenSize screen = platform::HandheldScreen(*this);
    OnCommand(menu.Choose(*this, {screen.width - kMenuInset, screen.height - kMenuInset}));
}

}  // namespace editor
