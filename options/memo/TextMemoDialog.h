#pragma once

#include <string>

#include "app/store/MemoFile.h"
#include "app/store/NoteJournal.h"
#include "platform/Dialog.h"

namespace options {

// Edits the text memo of a note. The user drags it by the strip at its top, where the delete mark is too.
class TextMemoDialog : public platform::Dialog {
  public:
    enum class Mode { File, Text };

    // `memo` is the memo file's path, or for a note that has no file yet the memo itself.
    // `journal` hears of the text while it is typed; the caller tells it when the text needs it no more.
    TextMemoDialog(Mode mode, const std::wstring& memo, store::NoteJournal& journal);

    // Runs over `owner`; true when the user saved. A memo file may be gone in either case.
    bool Edit(platform::Window& owner);
    // In Text mode, after Edit gave true: the edited text.
    const std::wstring& Memo() const { return memo_; }

    bool OnCreate() override;
    void OnDestroy() override;
    void OnPaint() override;
    void OnPenDown(platform::Point place) override;
    void OnPenMove(platform::Point place) override;
    void OnPenUp(platform::Point place) override;
    void OnCaptureLost() override { dragging_ = false; }
    void OnCommand(int id) override;
    void OnTimer(int id) override;
    void OnTakeOver() override { Save(); }
    // The text goes to the file, or for a note without one to Memo; where that fails the journal keeps it.
    void OnSessionEnd() override;
    void OnEditHold(int id, platform::Point place) override;

  private:
    bool MakeEdit(bool wordWrap);
    void Fill();
    void DrawPicture();
    void Save();
    void ToggleWordWrap();
    void DeleteMemo();
    bool MayLoseContents(const wchar_t* caption);
    platform::Point ToScreen(platform::Point client) const;

    Mode mode_;
    std::wstring memo_;
    store::MemoFile file_;
    store::NoteJournal& journal_;
    std::wstring read_;   // the text at first
    std::wstring noted_;  // and as the journal has it
    std::wstring caption_;
    platform::Image picture_;  // what lies around the controls
    bool dragging_ = false;
    platform::Point lastPlace_;  // of the pen while dragging, handheld screen pixels
};

}  // namespace options
