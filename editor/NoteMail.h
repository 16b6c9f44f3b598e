#pragma once

#include "ink/InkPage.h"
#include "platform/Screen.h"

namespace editor {

// Puts a picture of the note into the store's temporary folder and hands it to the mail program. Tells the
// user when there is nothing to send or the picture can't be made; what the mail program does is its own.
void SendNote(platform::Screen& owner, const ink::InkPage& page);

}  // namespace editor
