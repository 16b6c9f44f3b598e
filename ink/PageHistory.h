// What happened to a page since it was opened, step by step.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "ink/InkPage.h"
#include "ink/PageEdits.h"

namespace ink {

// What one drag of the pen or one command did to the page.
struct PageStep {
    std::vector<StrokeChange> changes;  // one after another
    size_t slotsBefore = 0;
    size_t slotsAfter = 0;
    ColorRef backgroundBefore = 0;
    ColorRef backgroundAfter = 0;
    std::wstring memoBefore;
    std::wstring memoAfter;
    size_t bytes = 0;  // about what remembering it takes
};

enum class StepWay { Done, Undone };

// Hears of every step once the page has changed, also of those that are done again.
class StepListener {
  public:
    virtual ~StepListener() = default;
    virtual void OnStep(const PageStep& step, StepWay way) = 0;
};

// Page rows that a step changed, the last one included; none when `top` is below `bottom`.
struct RowSpan {
    int32_t top = INT32_MAX;
    int32_t bottom = INT32_MIN;
};

// Changes a page, and can take its changes back and make them again, as often as wanted: the page is then
// what it was, record for record and in the same order. Remembers as many of the last steps as fit into
// kMostBytes. Whoever changes the page's ink, background or memo otherwise forgets the history first.
class PageHistory {
  public:
    static constexpr size_t kMostBytes = 64 * 1024 * 1024;
    enum class Result { Done, NothingToDo, OutOfMemory };

    // The page lives longer.
    explicit PageHistory(InkPage& page, size_t mostBytes = kMostBytes) : page_(page), mostBytes_(mostBytes) {}

    void SetListener(StepListener* listener) { listener_ = listener; }

    // Changes; all until EndStep are one step. On OutOfMemory nothing has changed. See InkPage and PageEdits.
    AddResult AddStroke(const Point* points, int32_t count, int32_t top, int32_t bottom, ColorRef color);
    EditResult EraseStrokes(const SweptRegion& region);
    EditResult MoveStrokes(int64_t from, int64_t rows, int32_t reach);
    EditResult RemoveAll();
    void SetBackground(ColorRef background);
    void SetMemo(const std::wstring& memo);

    // The drag or the command is over.
    void EndStep();

    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < steps_.size(); }
    // Both set the page's `modified` and tell the rows that changed.
    Result Undo(RowSpan& rows);
    Result Redo(RowSpan& rows);

    // Before the page is filled anew. The records of steps that can no longer be undone are given back.
    void Clear();

  private:
    bool BeginChange();
    bool HasOpenStep() const;
    void Remember();
    void DropUndone();
    void DropOldest();
    bool Apply(const PageStep& step, StepWay way);

    InkPage& page_;
    const size_t mostBytes_;
    StepListener* listener_ = nullptr;
    std::vector<PageStep> steps_;  // the first `done_` are done
    size_t done_ = 0;
    size_t bytes_ = 0;  // of all steps
    PageStep open_;
    bool isOpen_ = false;
};

}  // namespace ink
