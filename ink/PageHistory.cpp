#include "ink/PageHistory.h"

#include <algorithm>
#include <exception>

namespace ink {
namespace {

size_t BytesOf(const std::vector<StrokeRecord*>& records) {
    size_t bytes = 0;
    for (const StrokeRecord* record : records) bytes += record->Bytes();
    return bytes;
}

size_t BytesOf(const PageStep& step) {
    size_t bytes = sizeof step + (step.memoBefore.size() + step.memoAfter.size()) * sizeof(wchar_t);
    for (const StrokeChange& change : step.changes) {
        // Whichever of the two is not on the page is kept for the step alone.
        bytes += sizeof change + std::max(BytesOf(change.born), BytesOf(change.dead));
        size_t listed = change.born.size() + change.dead.size() + change.moved.size();
        for (const BandSplice& splice : change.splices) listed += splice.before.size() + splice.after.size();
        bytes += change.splices.size() * sizeof(BandSplice) + listed * sizeof(void*);
    }
    return bytes;
}

RowSpan RowsOf(const PageStep& step) {
    RowSpan rows;
    for (const StrokeChange& change : step.changes) {
        for (const auto* records : {&change.born, &change.dead, &change.moved}) {
            for (const StrokeRecord* record : *records) {
                rows.top = std::min(rows.top, record->minY);
                rows.bottom = std::max(rows.bottom, record->maxY);
            }
        }
    }
    return rows;
}

}  // namespace

// False when memory is so short that a change could not be remembered.
bool PageHistory::BeginChange() {
    if (!isOpen_) {
        open_ = {};
        open_.slotsBefore = page_.SlotCount();
        open_.backgroundBefore = page_.background;
    }
    try {
        if (!isOpen_) open_.memoBefore = page_.memo;
        open_.changes.reserve(open_.changes.size() * 2 + 1);
    } catch (const std::exception&) {
        return false;
    }
    isOpen_ = true;
    return true;
}

AddResult PageHistory::AddStroke(const Point* points, int32_t count, int32_t top, int32_t bottom,
                                 ColorRef color) {
    if (!BeginChange()) return AddResult::OutOfMemory;
    StrokeChange change;
    const AddResult result = page_.AddStroke(points, count, top, bottom, color, change);
    if (result == AddResult::Added) open_.changes.push_back(std::move(change));
    return result;
}

EditResult PageHistory::EraseStrokes(const SweptRegion& region) {
    if (!BeginChange()) return EditResult::OutOfMemory;
    StrokeChange change;
    const EditResult result = ink::EraseStrokes(page_, region, change);
    if (result == EditResult::Changed) open_.changes.push_back(std::move(change));
    return result;
}

EditResult PageHistory::MoveStrokes(int64_t from, int64_t rows, int32_t reach) {
    if (!BeginChange()) return EditResult::OutOfMemory;
    StrokeChange change;
    const EditResult result = ink::MoveStrokes(page_, from, rows, reach, change);
    if (result == EditResult::Changed) open_.changes.push_back(std::move(change));
    return result;
}

EditResult PageHistory::RemoveAll() {
    StrokeChange change;
    if (!BeginChange() || !page_.RemoveAll(change)) return EditResult::OutOfMemory;
    if (change.IsEmpty()) return EditResult::NothingToDo;
    open_.changes.push_back(std::move(change));
    return EditResult::Changed;
}

void PageHistory::SetBackground(ColorRef background) {
    BeginChange();
    page_.background = background;
    page_.modified = true;
}

void PageHistory::SetMemo(const std::wstring& memo) {
    BeginChange();
    page_.memo = memo;
    page_.modified = true;
}

bool PageHistory::HasOpenStep() const {
    return isOpen_ && (!open_.changes.empty() || open_.backgroundBefore != page_.background ||
                       open_.memoBefore != page_.memo);
}

void PageHistory::EndStep() {
    const bool hasStep = HasOpenStep();
    isOpen_ = false;
    if (!hasStep) return;
    open_.slotsAfter = page_.SlotCount();
    open_.backgroundAfter = page_.background;
    Remember();
}

// Without memory for it, nothing before it could be undone in order either.
void PageHistory::Remember() {
    try {
        open_.memoAfter = page_.memo;
        DropUndone();
        open_.bytes = BytesOf(open_);
        if (listener_ != nullptr) listener_->OnStep(open_, StepWay::Done);
        steps_.push_back(std::move(open_));
    } catch (const std::exception&) {
        return Clear();
    }
    ++done_;
    bytes_ += steps_.back().bytes;
    while (bytes_ > mostBytes_ && done_ > 0) DropOldest();
}

void PageHistory::DropUndone() {
    while (steps_.size() > done_) {
        for (const StrokeChange& change : steps_.back().changes) page_.Forget(change, false);
        bytes_ -= steps_.back().bytes;
        steps_.pop_back();
    }
}

void PageHistory::DropOldest() {
    for (const StrokeChange& change : steps_.front().changes) page_.Forget(change, true);
    bytes_ -= steps_.front().bytes;
    steps_.erase(steps_.begin());
    --done_;
}

void PageHistory::Clear() {
    DropUndone();
    while (done_ > 0) DropOldest();
    open_ = {};
    isOpen_ = false;
}

PageHistory::Result PageHistory::Undo(RowSpan& rows) {
    EndStep();
    if (!CanUndo()) return Result::NothingToDo;
    const PageStep& step = steps_[done_ - 1];
    if (!Apply(step, StepWay::Undone)) return Result::OutOfMemory;
    --done_;
    rows = RowsOf(step);
    return Result::Done;
}

PageHistory::Result PageHistory::Redo(RowSpan& rows) {
    EndStep();
    if (!CanRedo()) return Result::NothingToDo;
    const PageStep& step = steps_[done_];
    if (!Apply(step, StepWay::Done)) return Result::OutOfMemory;
    ++done_;
    rows = RowsOf(step);
    return Result::Done;
}

// All changes of the step or none of them.
bool PageHistory::Apply(const PageStep& step, StepWay way) {
    const bool isDone = way == StepWay::Done;
    const size_t count = step.changes.size();
    const auto change = [&](size_t i, bool forward) {
        const StrokeChange& each = step.changes[isDone ? i : count - 1 - i];
        return forward ? page_.Make(each) : page_.TakeBack(each);
    };
    try {
        std::wstring memo = isDone ? step.memoAfter : step.memoBefore;
        size_t applied = 0;
        while (applied < count && change(applied, isDone)) ++applied;
        if (applied < count) {
            while (applied > 0 && change(applied - 1, !isDone)) --applied;
            return false;
        }
        if (step.memoBefore != step.memoAfter) page_.memo.swap(memo);
    } catch (const std::exception&) {
        return false;
    }
    page_.background = isDone ? step.backgroundAfter : step.backgroundBefore;
    const size_t slots = isDone ? step.slotsAfter : step.slotsBefore;
    page_.EnsureSlotCount(slots);
    page_.TrimTrailingBands(slots);
    page_.modified = true;
    if (listener_ != nullptr) listener_->OnStep(step, way);
    return true;
}

}  // namespace ink
