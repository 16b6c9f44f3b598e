#pragma once

#include <string>

namespace app {

// What the program was started for.
struct StartRequest {
    // A note to open, or a folder (ending in "\") in which a new note is to be made; empty: neither.
    std::wstring target;
    std::wstring caption;        // "/newreminder": the day's title
    std::wstring alarmTimeCode;  // "/newalarm": 15 characters for the editor
    bool alarmMode = false;      // started by an alarm
    bool manageMode = false;     // show the note manager
};

// Reads the text after the program's name. Folders that a switch names are made at once; a switch whose
// argument is no good, or that needs a store root where none is configured, is ignored.
StartRequest ParseCommandLine(const std::wstring& commandLine);

}  // namespace app
