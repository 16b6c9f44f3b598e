#include "editor/InkCanvas.h"

#include <algorithm>

#include "alarms/AlarmStamp.h"
#include "alarms/AlarmTimeDialog.h"
#include "alarms/NoteAlarm.h"
#include "app/store/MemoFile.h"
#include "app/store/NoteFiles.h"
#include "app/store/StorePaths.h"
#include "editor/NewNoteFile.h"
#include "editor/NoteCopy.h"
#include "editor/NoteMail.h"
#include "editor/NotePrint.h"
#include "editor/NoteStorage.h"
#include "editor/PageScroll.h"
#include "options/memo/TextMemoDialog.h"
#include "options/palette/ColorPalette.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Shell.h"
#include "res/resource.h"

namespace editor {

namespace {

using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

constexpr int kCannotOpen = -1;
constexpr int kWatchTimer = 2;
constexpr int32_t kRowsAbove = 20;  // of what an undone step brings into sight

}  // namespace

InkCanvas::InkCanvas(store::PenSettings& pen, const Opening& opening)
    : Screen(ScrollBar::Vertical, L"Editor"),
      pen_(pen),
      titleOverride_(opening.titleOverride),
      alarmStamp_(opening.alarmStamp),
      openedByAlarm_(opening.openedByAlarm),
      history_(page_),
      view_(*this, page_),
      input_(*this, page_, history_, view_) {
    page_.notePath = opening.notePath;
}

bool InkCanvas::OnCreate() {
    page_.penColors = pen_.recentColors;
    page_.background = pen_.backgroundColor;
    page_.penStyle = pen_.penStyle;
    page_.penSize = pen_.penSize;
    page_.canvasWidth = ClientWidth();
    page_.canvasHeight = ClientHeight();
    page_.bandHeight = page_.canvasHeight;
    FollowTheWindow();
    MakeMenuBar();
    NameClient(L"Page");
    AddToFrameMenu(IDM_UNDO, L"Undo\tCtrl+Z");
    AddToFrameMenu(IDM_REDO, L"Redo\tCtrl+Y");
    AddToFrameMenu(IDM_SAVE_COPY, L"Save a Copy As\u2026\tCtrl+Shift+S");
    AddToFrameMenu(IDM_PRINT, L"Print\u2026\tCtrl+P");
    if (!view_.Create()) return OutOfMemory();
    if (store::NamesFile(page_.notePath)) LoadNote(this, page_);
    watch_.Remember(page_.notePath);
    if (NoteWatch::IsNear(page_.notePath)) StartTimer(kWatchTimer, NoteWatch::kPeriod);
    history_.SetListener(&journal_);
    BeginJournal();
    view_.Redraw();
    UpdateScrollRange();
    ShowTitle();
    if (openedByAlarm_) alarms::PostAlarmNotice(page_.notePath);
    return true;
}

bool InkCanvas::OutOfMemory() {
    platform::ShowOutOfMemory(this);
    EndModal(kCannotOpen);
    return false;
}

void InkCanvas::MakeMenuBar() {
    if (!CreateMenuBar(EditorToolBarLayout())) {
        platform::ShowMessage(this, L"SHCreateMenuBar() failed!", L" Error", MessageButtons::Ok,
                              MessageIcon::Error);
    }
    ShowPenColors(Tools(), page_.penColors);
    CheckTool(Tools(), IDM_PEN);
}

void InkCanvas::OnDestroy() {
    pen_.recentColors = page_.penColors;
    pen_.backgroundColor = page_.background;
    store::SaveColors(pen_);
}

void InkCanvas::OnPaint() {
    view_.Paint();
    input_.PaintMarks();
}

// The ink, its slots and where the view begins stay; so does the view itself when memory is short for
// another.
void InkCanvas::OnSize() {
    input_.Interrupt();
    FollowTheWindow();
    ShowPenColors(Tools(), page_.penColors);
    const bool isResized = view_.Resize(ClientWidth(), ClientHeight());
    if (!isResized && !sizeRefused_) platform::ShowOutOfMemory(this);
    sizeRefused_ = !isResized;
    UpdateScrollRange();
    view_.Redraw();
}

// Notes go from one size to another only where windows can be sized.
void InkCanvas::FollowTheWindow() {
    page_.findsTallStrokes = CanBeSized();
    view_.MarkInkBeyond(CanBeSized());
}

// The commands.

void InkCanvas::NewNote() {
    bool discarded = false;
    if (page_.modified && !SaveOrDiscard(discarded)) return;
    StartAnew();
    storeChanged_ = true;
}

void InkCanvas::ChooseBackground() {
    ink::ColorRef color = page_.background;
    options::ColorPalette palette(color);
    if (!palette.Choose(*this, color) || color == page_.background) return;
    history_.SetBackground(color);
    history_.EndStep();
    view_.Redraw();
}

void InkCanvas::UsePen() {
    input_.UsePen();
    CheckTool(Tools(), IDM_PEN);
}

void InkCanvas::UseEraser() {
    input_.UseEraser();
    CheckTool(Tools(), IDM_ERASER);
}

void InkCanvas::UseSpaceTool() {
    input_.UseSpaceTool();
    CheckTool(Tools(), IDM_SPACE_TOOL);
}

// Whatever the tool was: who chooses a colour wants to write with it.
void InkCanvas::UsePenColor(size_t position, ink::ColorRef color) {
    input_.UsePen();
    MoveToFront(page_.penColors, position, color);
    ShowPenColors(Tools(), page_.penColors);
    CheckTool(Tools(), IDM_PEN);
}

void InkCanvas::UsePaletteColor() {
    ink::ColorRef color = page_.penColors[0];
    options::ColorPalette palette(color);
    if (!palette.Choose(*this, color)) return;
    if (color == page_.penColors[0]) return UsePen();
    UsePenColor(page_.penColors.size() - 1, color);
}

void InkCanvas::FullErase() {
    const MessageAnswer answer =
        platform::ShowMessage(this, L"Notes will be completely erased. Continue?", L" Confirm Full Erase",
                              MessageButtons::YesNo, MessageIcon::Question);
    if (answer != MessageAnswer::Yes) return;
    if (HasFile(page_)) {
        // What is undone comes back as a new note, and so does its memo.
        const std::wstring memo = store::MemoFile(store::MemoPath(page_.notePath)).Read(nullptr);
        if (!store::DeleteNoteFiles(page_.notePath) && !platform::IsGone(page_.notePath)) {
            platform::ShowMessage(this, L"Deleting '" + page_.notePath + L"' failed.", L" Error",
                                  MessageButtons::Ok, MessageIcon::Error);
            return;
        }
        if (page_.memo.empty()) page_.memo = memo;
        storeChanged_ = true;
    }
    // Without memory to remember it, it can't be undone.
    if (history_.RemoveAll() == ink::EditResult::OutOfMemory) return StartAnew();
    history_.SetMemo(L"");
    page_.TrimTrailingBands();
    history_.EndStep();
    page_.scroll = 0;
    page_.modified = false;
    ShowNewNote();
}

void InkCanvas::Undo() {
    ink::RowSpan rows;
    ShowStep(history_.Undo(rows), rows);
}

void InkCanvas::Redo() {
    ink::RowSpan rows;
    ShowStep(history_.Redo(rows), rows);
}

// What has changed comes into sight.
void InkCanvas::ShowStep(ink::PageHistory::Result result, const ink::RowSpan& rows) {
    if (result == ink::PageHistory::Result::OutOfMemory) platform::ShowOutOfMemory(this);
    if (result != ink::PageHistory::Result::Done) return;
    view_.Redraw();
    const int32_t allowed = UpdateScrollRange();
    const bool isInSight = rows.top > rows.bottom ||
                           (rows.bottom >= page_.scroll && rows.top < page_.scroll + page_.canvasHeight);
    ScrollTo(isInSight ? allowed : std::clamp(rows.top - kRowsAbove, 0, LastPosition()));
}

// A note without a file, or whose memo could not be written yet, keeps its memo until it is saved.
void InkCanvas::EditTextMemo() {
    using options::TextMemoDialog;
    if (!HasFile(page_) || !page_.memo.empty()) {
        TextMemoDialog dialog(TextMemoDialog::Mode::Text, page_.memo, journal_);
        openMemo_ = &dialog;
        const bool isSaved = dialog.Edit(*this);
        openMemo_ = nullptr;
        if (isSaved) history_.SetMemo(dialog.Memo());
        history_.EndStep();
        return journal_.MemoClosed();
    }
    const std::wstring path = store::MemoPath(page_.notePath);
    const bool existed = store::IsFile(path);
    TextMemoDialog(TextMemoDialog::Mode::File, path, journal_).Edit(*this);
    journal_.MemoClosed();
    if (store::IsFile(path) != existed) storeChanged_ = true;
}

void InkCanvas::SetAlarmAndExit() {
    alarms::AlarmTimeDialog dialog(alarmStamp_);
    if (dialog.RunModal(this) != platform::kIdOk) return;
    alarmStamp_ = alarms::MakeAlarmStamp(dialog.Moment());
    PostCommand(platform::kIdOk);
}

void InkCanvas::SendAsEmail() { SendNote(*this, page_); }

void InkCanvas::SaveCopy() {
    if (SaveNoteCopy(*this, page_, NameForOthers())) storeChanged_ = true;
}

void InkCanvas::Print() {
    isPrinting_ = true;
    PrintNote(*this, page_, NameForOthers());
    isPrinting_ = false;
}

// What they share.

// Of a new note the one that it would be proposed.
std::wstring InkCanvas::NameForOthers() const {
    const bool hasName = store::NamesFile(page_.notePath);
    return store::NoteName(hasName ? page_.notePath : ProposedNotePath(Kind(), page_.notePath));
}

void InkCanvas::ShowTitle() {
    const std::wstring title = titleOverride_.empty() ? store::NoteName(page_.notePath) : titleOverride_;
    SetTitle((title.empty() ? L"[new]" : title) + L" - Inkwright");
}

// Scrolling.

void InkCanvas::OnTimer(int id) {
    if (id == PenInput::kTimerId && input_.TimerTick()) AdvancePage();
    if (id == kWatchTimer) FollowFile();
}

// Erased or moved ink may leave the page shorter or longer.
void InkCanvas::OnPenUp(platform::Point place) {
    if (input_.PenUp(place)) ScrollTo(UpdateScrollRange());
}

bool InkCanvas::OnKeyDown(platform::Key key) {
    if (key == platform::Key::F1) platform::OpenUserGuide(*this);
    if (key == platform::Key::F11) ToggleFullScreen();
    struct KeyScroll {
        platform::Key key;
        platform::ScrollCode code;
    };
    // Up and down turn pages, left and right move by lines.
    constexpr KeyScroll kScrollKeys[] = {{platform::Key::Left, platform::ScrollCode::LineUp},
                                         {platform::Key::Up, platform::ScrollCode::PageUp},
                                         {platform::Key::Right, platform::ScrollCode::LineDown},
                                         {platform::Key::Down, platform::ScrollCode::PageDown}};
    for (const KeyScroll& candidate : kScrollKeys) {
        if (candidate.key != key) continue;
        PostScroll(candidate.code);
        return true;
    }
    return false;
}

void InkCanvas::OnScroll(platform::ScrollCode code, int thumbPosition) {
    input_.StopTimer();
    if (code == platform::ScrollCode::Other) return;
    const ScrollTarget target = ScrollTargetOf(code, GetScroll(), thumbPosition);
    if (target.atEnd && LastBandHoldsInk(page_)) return AdvancePage();
    ScrollTo(target.position);
}

int32_t InkCanvas::LastPosition() const { return std::max(0, GetScroll().maximum - page_.canvasHeight); }

// The page follows the fingers.
void InkCanvas::OnPan(int rows) {
    input_.StopTimer();
    ScrollTo(static_cast<int32_t>(std::clamp<int64_t>(int64_t{page_.scroll} - rows, 0, LastPosition())));
}

// Sets the scroll bar to the page and returns the position it allows.
int32_t InkCanvas::UpdateScrollRange() {
    const platform::ScrollState range = ScrollRangeOf(page_);
    SetScroll(range);
    return range.position;
}

void InkCanvas::ScrollTo(int32_t wanted) {
    const int32_t position = PositionWithin(wanted);
    if (position == page_.scroll) return;
    SetScrollPosition(position);
    MoveView(position);
}

void InkCanvas::MoveView(int32_t position) {
    const int32_t rows = position - page_.scroll;
    input_.ViewMoves();
    view_.MoveTo(position);
    input_.ViewMoved(rows);
}

// Makes room below: the page grows to hold a view that lies mostly beyond what was in sight.
void InkCanvas::AdvancePage() {
    const int32_t position = PositionWithin(int64_t{page_.scroll} + AdvanceRows(page_));
    page_.EnsureSlot(2 * ((int64_t{position} + page_.canvasHeight) / page_.bandHeight));
    MoveView(position);
    UpdateScrollRange();
}

}  // namespace editor
