#pragma once

#include <cstdint>
#include <string>

#include "platform/LogFile.h"

namespace store {

// Several calls that belong together, written down before the first of them: when a run is ended in between,
// the next start brings to an end what was begun. Where nothing can be written down they are made all the
// same.
class NoteIntent {
  public:
    // As numbers in a file: none changes its meaning.
    enum class Kind : uint32_t {
        MoveNote = 1,
        ReplaceNote = 2,
        DeleteNote = 3,
        MoveFolder = 4,
        DeleteFolder = 5,
        CopyFolder = 6,
    };

    NoteIntent(Kind kind, const std::wstring& from, const std::wstring& to);
    NoteIntent(const NoteIntent&) = delete;
    NoteIntent& operator=(const NoteIntent&) = delete;
    ~NoteIntent();  // the calls were made

    // One of them failed: it is tried once more at the next start, or before the next calls of this kind.
    void LeaveOpen() { isLeftOpen_ = true; }

  private:
    std::wstring path_;
    platform::LogFile log_;
    bool isLeftOpen_ = false;
};

// At the program's start: ends what earlier runs, or this one, could not.
void FinishIntents();

}  // namespace store
