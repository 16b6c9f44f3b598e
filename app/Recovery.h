#pragma once

namespace app {

// Before the first window: when an earlier run was ended before it could save, offers to bring that back, and
// tells what stands where. What is not wanted, and may not be deleted either, is asked about again at the
// next start.
void RestoreUnsavedNotes();

}  // namespace app
