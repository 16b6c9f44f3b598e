// How a note ends in the editor's window: saved, given up, beside another version, with the session; and how
// the next one begins.
#include "alarms/AlarmStamp.h"
#include "alarms/NoteAlarm.h"
#include "app/store/StorePaths.h"
#include "editor/InkCanvas.h"
#include "editor/NewNoteFile.h"
#include "editor/NoteStorage.h"
#include "options/memo/TextMemoDialog.h"
#include "platform/Locale.h"
#include "platform/MessageBox.h"

namespace editor {

using platform::DefaultButton;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

void InkCanvas::Close() {
    if (closing_) return;
    closing_ = true;
    if (page_.modified) {
        bool discarded = false;
        if (!SaveOrDiscard(discarded)) {
            closing_ = false;
            return;
        }
        if (discarded) alarmStamp_.clear();
    }
    journal_.Remove();
    ScheduleAlarm();
    closing_ = false;
    EndModal(platform::kIdOk);
}

// What has no place on the disk stays in the journal.
void InkCanvas::OnSessionEnd() {
    input_.Interrupt();
    if (openMemo_ != nullptr) {
        openMemo_->OnSessionEnd();
        history_.SetMemo(openMemo_->Memo());
        history_.EndStep();
    }
    if (page_.modified) StepAside();
    const bool isSaved = !page_.modified || SaveWithoutAsking(Kind(), page_, journal_);
    if (isSaved) journal_.Remove();
    if (!isSaved) journal_.Leave();
    page_.modified = !isSaved;
    EndModal(platform::kIdOk);
}

// False when the note could not be saved and the user does not want to lose it.
bool InkCanvas::SaveOrDiscard(bool& discarded) {
    const std::wstring others = StepAside();
    const bool isSaved = SaveNote(this, Kind(), page_, journal_);
    if (HasFile(page_)) watch_.Remember(page_.notePath);
    if (isSaved && !others.empty()) {
        platform::ShowMessage(
            this,
            L"'" + others + L"' was changed elsewhere while it was open here.\n\nWhat you wrote is in '" +
                page_.notePath + L"'.",
            L" Note Changed", MessageButtons::Ok, MessageIcon::Information);
    }
    if (isSaved) return true;
    if (HasFile(page_)) ShowTitle();  // only its memo may be missing
    const MessageAnswer answer =
        platform::ShowMessage(this, L"Saving '" + page_.notePath + L"' failed!\nDiscard changes?", L" Error",
                              MessageButtons::YesNo, MessageIcon::Error, DefaultButton::Second);
    discarded = answer == MessageAnswer::Yes;
    return discarded;
}

// What somebody else has made of the note meanwhile stays, and this page goes beside it. Returns where that
// other version lies; empty when there is none.
std::wstring InkCanvas::StepAside() {
    if (!HasFile(page_) || !watch_.HasChanged(page_.notePath)) return {};
    std::wstring others = page_.notePath;
    page_.notePath = store::FreeNotePath(store::NotePathWith(others, L" (conflict)"));
    page_.isProposal = true;
    return others;
}

// A page without changes shows what its file has become, as soon as that can be read whole.
void InkCanvas::FollowFile() {
    const bool isFree =
        !page_.modified && !closing_ && !isPrinting_ && !input_.IsDragging() && HasFile(page_);
    if (!isFree || !watch_.HasChanged(page_.notePath)) return;
    history_.Clear();
    if (!ReloadNote(page_)) return;
    watch_.Remember(page_.notePath);
    BeginJournal();
    page_.scroll = UpdateScrollRange();
    view_.Redraw();
}

void InkCanvas::ScheduleAlarm() {
    platform::DateTime moment;
    const std::wstring& path = page_.notePath;
    if (!store::EndsWithNoCase(path, store::kNoteExtension) || !alarms::ReadAlarmStamp(alarmStamp_, moment))
        return;
    const bool isSet = alarms::SetNoteAlarm(path, moment);
    platform::ShowMessage(this, isSet ? L"Alarm is successfully set!" : L"Setting alarm failed!",
                          L" " + platform::DateAndTime(moment), MessageButtons::Ok,
                          isSet ? MessageIcon::Information : MessageIcon::Error);
}

// An empty page in the same folder, for a new note there.
void InkCanvas::StartAnew() {
    history_.Clear();
    page_.Clear();
    page_.bandHeight = page_.canvasHeight;
    ShowNewNote();
}

void InkCanvas::ShowNewNote() {
    journal_.Remove();
    ForgetFile(page_);
    BeginJournal();
    view_.Redraw();
    UpdateScrollRange();
    ShowTitle();
}

void InkCanvas::BeginJournal() { journal_.Begin(page_, ProposedNotePath(Kind(), page_.notePath)); }

}  // namespace editor
