#pragma once

namespace app {

struct StartRequest;

// Sees to it that one copy works on notes at a time: with a note or a new note to open, every other copy's
// open window is told to close as on OK, and gets about a second and a half for it; otherwise the other
// copy in front is told that this one takes over.
void MakeRoom(const StartRequest& request);

}  // namespace app
