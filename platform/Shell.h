#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

class Window;

// Full path of the running program's executable, as the notification database is to start it (host path).
std::wstring ProgramPath();

// Tells this device from others that may see the same files; not empty.
std::wstring DeviceName();

// A top-level window of another running copy of this program (same executable file, another process).
struct OtherWindow {
    uintptr_t reference = 0;
    bool enabled = false;
    bool foreground = false;
};
std::vector<OtherWindow> WindowsOfOtherCopies();
void PostCommandTo(const OtherWindow& window, int id);
void PostPrivateMessageTo(const OtherWindow& window, uint32_t code);

// Sends the device-change message to the window of the Today screen's item with this title (case ignored)
// wherever it lies; false when there is none.
bool NotifyTodayItem(const std::wstring& title);
// True when the handheld's desktop window exists.
bool HasTodayScreen();
// Makes the Today screen read its items again.
void ReloadTodayScreen();

// Starts the handheld's mail program with a new message that carries the file; what becomes of it is not
// told.
void StartMailProgram(Window& owner, const std::wstring& attachment);

// Shows the user guide, which comes with the program, in the system's browser; tells when that fails.
void OpenUserGuide(Window& owner);

// Asks the on-screen input panel to come up or go down; nothing happens where there is none.
void ShowInputPanel(bool up);

}  // namespace platform
