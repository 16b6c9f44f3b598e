#include <cstdlib>
#include <exception>
#include <string>

#include "platform/FaultText.h"
#include "platform/ProgramEntry.h"
#include "platform/windows/Processes.h"

namespace {

// The text after the program's name, which may be in quotes. Nothing else is unquoted: quotes mean something
// to the program.
std::wstring ArgumentText() {
    const wchar_t* at = GetCommandLineW();
    const wchar_t end = *at == L'"' ? L'"' : L' ';
    if (end == L'"') ++at;
    while (*at != L'\0' && *at != end && !(end == L' ' && *at == L'\t')) ++at;
    if (*at == L'"') ++at;
    while (*at == L' ' || *at == L'\t') ++at;
    return at;
}

void LoadControls() {
    INITCOMMONCONTROLSEX controls{};
    controls.dwSize = sizeof controls;
    controls.dwICC = ICC_WIN95_CLASSES | ICC_DATE_CLASSES;
    InitCommonControlsEx(&controls);
}

// What Require ends the program with, and whatever else nobody caught. Nothing of the program is used any
// more; no clean-up either, which could make things worse.
[[noreturn]] void ShowAndEnd() {
    const std::string text = platform::FaultText();
    MessageBoxA(nullptr, text.c_str(), " Inkwright", MB_OK | MB_ICONERROR | MB_SETFOREGROUND);
    TerminateProcess(GetCurrentProcess(), 3);
    std::abort();
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    std::set_terminate(ShowAndEnd);
    platform::windows::PrepareProcess();
    LoadControls();
    return platform::RunProgram(ArgumentText());
}
