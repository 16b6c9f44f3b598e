// The program's own resource script, as far as it is used: dialogs and bitmaps.
#pragma once

#include <string>
#include <vector>

namespace platform::resources {

struct ScriptItem {
    int id = 0;
    std::string kind;
    std::string text;
    std::string styles;
    int place[4]{};  // left, top, width, height in dialog units
};

struct ScriptDialog {
    int id = 0;
    std::string caption;
    std::string styles;
    int size[2]{};
    std::vector<ScriptItem> items;
};

struct ScriptFile {
    int id = 0;
    std::string name;
};

struct Script {
    std::vector<ScriptDialog> dialogs;
    std::vector<ScriptFile> bitmaps;
    std::vector<ScriptFile> icons;
};

// `header` is the text of resource.h.
Script ReadScript(const std::string& script, const std::string& header);

}  // namespace platform::resources
