#include <windows.h>

#include "export/HostFiles.h"
#include "platform/output/Utf8.h"

// Commands there hand patterns on as they are; this has the start-up code look for the files.
extern "C" {
int _dowildcard = -1;
}

int wmain(int argc, wchar_t** argv) {
    std::vector<std::string> words;
    for (int i = 1; i < argc; ++i) words.push_back(platform::ToUtf8(argv[i]));
    const UINT page = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    const int result = inkexport::RunExport(words);
    SetConsoleOutputCP(page);
    return result;
}
