#pragma once

#include <string>

#include "app/store/NoteJournal.h"
#include "app/store/PenSettings.h"
#include "editor/EditorTools.h"
#include "editor/FileNamePattern.h"
#include "editor/NoteWatch.h"
#include "editor/PageView.h"
#include "editor/PenInput.h"
#include "ink/PageHistory.h"
#include "platform/Screen.h"
#include "res/resource.h"

namespace options {
class TextMemoDialog;
}

namespace editor {

// The note editor: one full-screen window whose client area is the page.
class InkCanvas : public platform::Screen {
  public:
    struct Opening {
        std::wstring notePath;       // a note, or the folder (ends in "\") of a new one; may be empty
        std::wstring titleOverride;  // shown instead of the file name; makes a new note a reminder
        std::wstring alarmStamp;     // the alarm a new note is to get
        bool openedByAlarm = false;
    };

    // `pen` gives the page's colours and the pen, and takes the colours back when the window closes.
    InkCanvas(store::PenSettings& pen, const Opening& opening);

    // After the run: the note the editor held last, and whether the opener's lists of notes are out of date.
    const std::wstring& NotePath() const { return page_.notePath; }
    bool StoreChanged() const { return storeChanged_; }

    bool OnCreate() override;
    void OnDestroy() override;
    void OnPaint() override;
    void OnSize() override;
    void OnPenDown(platform::Point place) override { input_.PenDown(place); }
    void OnPenMove(platform::Point place) override { input_.PenMove(place); }
    void OnPenUp(platform::Point place) override;
    void OnCaptureLost() override { input_.CaptureLost(); }
    void OnPenHover(platform::Point place, platform::PenEnd end) override { input_.PenHover(place, end); }
    void OnPenLeave() override { input_.PenLeave(); }
    void OnPan(int rows) override;
    void OnTwoFingerTap() override { OnCommand(IDM_UNDO); }
    void OnTimer(int id) override;
    void OnScroll(platform::ScrollCode code, int thumbPosition) override;
    bool OnKeyDown(platform::Key key) override;
    bool OnShortcut(wchar_t letter) override;
    bool OffersInFrame(int command) override;
    void OnCommand(int id) override;
    void OnTakeOver() override;
    void OnSessionEnd() override;

  private:
    struct Command;
    static const Command kCommands[];

    bool OutOfMemory();
    void FollowTheWindow();
    void MakeMenuBar();

    // Commands
    void NewNote();
    void ShowToolsMenu();
    void ChooseBackground();
    void UsePen();
    void UseRecentColor2() { UsePenColor(1, page_.penColors[1]); }
    void UseRecentColor3() { UsePenColor(2, page_.penColors[2]); }
    void UseRecentColor4() { UsePenColor(3, page_.penColors[3]); }
    void UsePaletteColor();
    void UseSpaceTool();
    void UseEraser();
    void FullErase();
    void Undo();
    void Redo();
    void EditTextMemo();
    void SetAlarmAndExit();
    void SendAsEmail();
    void SaveCopy();
    void Print();
    void Close();

    bool IsOffered(int id) const;
    void ShowStep(ink::PageHistory::Result result, const ink::RowSpan& rows);
    void UsePenColor(size_t position, ink::ColorRef color);
    bool SaveOrDiscard(bool& discarded);
    void FollowFile();
    std::wstring StepAside();
    void ScheduleAlarm();
    void StartAnew();
    void ShowNewNote();
    std::wstring NameForOthers() const;
    void ShowTitle();
    void BeginJournal();
    NoteKind Kind() const { return titleOverride_.empty() ? NoteKind::Ordinary : NoteKind::Reminder; }

    int32_t UpdateScrollRange();
    int32_t LastPosition() const;
    void ScrollTo(int32_t wanted);
    void MoveView(int32_t position);
    void AdvancePage();

    store::PenSettings& pen_;
    std::wstring titleOverride_;
    std::wstring alarmStamp_;
    const bool openedByAlarm_;
    bool storeChanged_ = false;
    bool closing_ = false;
    bool isPrinting_ = false;   // sheets are made of the page, which must stay
    bool sizeRefused_ = false;  // memory was short for the window's size, which the user was told
    options::TextMemoDialog* openMemo_ = nullptr;  // of a note without a file, while it is edited
    ink::InkPage page_;
    ink::PageHistory history_;
    store::NoteJournal journal_;
    NoteWatch watch_;
    PageView view_;
    PenInput input_;
};

}  // namespace editor
