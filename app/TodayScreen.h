#pragma once

namespace app {

// Lets the handheld's Today screen show the current reminders; nothing happens where there is none.
void RefreshTodayScreen();

}  // namespace app
