#pragma once

#include <string>
#include <vector>

namespace platform {

class Window;

enum class MessageButtons { Ok, YesNo, YesNoCancel };
enum class MessageIcon { Error, Question, Information };  // stop, exclamation, information
enum class MessageAnswer { Ok, Cancel, Yes, No };
enum class DefaultButton { First, Second };

// What an answer to such a box counts as. One that is not on it, as when another program ends the box, is
// Cancel, or No where there is no Cancel.
MessageAnswer CountedAnswer(MessageButtons buttons, MessageAnswer answer);

// Shows the system's own message box and waits for its answer. `owner` may be null.
MessageAnswer ShowMessage(Window* owner, const std::wstring& text, const std::wstring& caption,
                          MessageButtons buttons, MessageIcon icon,
                          DefaultButton defaultButton = DefaultButton::First);

// Each on a line of its own after a line break, at most 12 and then "...": no message grows out of the
// screen.
std::wstring MessageLines(const std::vector<std::wstring>& lines);

// The shell's own out-of-memory box; needs no memory to speak of.
void ShowOutOfMemory(Window* owner);

// Shows the wait cursor while it lives. May be nested.
class WaitCursor {
  public:
    WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor();

  private:
    void* before_ = nullptr;  // the cursor to show again, in a port that has cursors
};

}  // namespace platform
