// Looks at the windows of another program, and talks to them, on behalf of the tests: reads one command per
// line, a word and numbers separated by blanks, and answers each with one line of JSON.
#include <cstdio>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>

#include "platform/windows/Guards.h"
#include "platform/windows/SystemHeaders.h"

namespace {

using platform::windows::OwnedHandle;

std::string Quoted(const std::wstring& text) {
    std::string json = "\"";
    for (const wchar_t unit : text) {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit));
        json += escape;
    }
    return json + "\"";
}

std::string Listed(const RECT& rect) {
    std::ostringstream json;
    json << "[" << rect.left << "," << rect.top << "," << rect.right << "," << rect.bottom << "]";
    return json.str();
}

std::wstring ProgramOf(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t path[MAX_PATH] = L"";
    DWORD length = MAX_PATH;
    const OwnedHandle handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
    if (!handle || !QueryFullProcessImageNameW(handle.get(), 0, path, &length)) return {};
    const std::wstring text = path;
    return text.substr(text.rfind(L'\\') + 1);
}

// The text of a control lies in its own program and has to be asked for.
std::wstring TextOf(HWND window) {
    wchar_t text[1024] = L"";
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                        2000, &length);
    return text;
}

BOOL CALLBACK Describe(HWND window, LPARAM list) {
    // First of all: the window's thread answers only once the window is where it belongs.
    const std::wstring text = TextOf(window);
    wchar_t className[64] = L"";
    RECT place{};
    RECT client{};
    POINT origin{};
    GetClassNameW(window, className, static_cast<int>(std::size(className)));
    GetWindowRect(window, &place);
    GetClientRect(window, &client);
    ClientToScreen(window, &origin);
    OffsetRect(&client, origin.x, origin.y);
    std::ostringstream json;
    json << "{\"handle\":" << reinterpret_cast<uintptr_t>(window)
         << ",\"program\":" << Quoted(ProgramOf(window)) << ",\"class\":" << Quoted(className)
         << ",\"id\":" << GetDlgCtrlID(window) << ",\"text\":" << Quoted(text)
         << ",\"enabled\":" << IsWindowEnabled(window) << ",\"visible\":" << IsWindowVisible(window)
         << ",\"place\":" << Listed(place) << ",\"client\":" << Listed(client) << "}";
    auto& all = *reinterpret_cast<std::string*>(list);
    all += (all.empty() ? "" : ",") + json.str();
    return TRUE;
}

bool HasPen(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndCapture == window;
}

// Another program's pixels can be had from the screen only.
COLORREF Pixel(HWND window, POINT place) {
    ClientToScreen(window, &place);
    return GetPixel(platform::windows::ClientDc(nullptr).Get(), place.x, place.y);
}

std::string Answer(const std::string& line) {
    std::istringstream arguments(line);
    std::string command;
    uint64_t handle = 0;
    LONG numbers[3]{};
    arguments >> command >> handle >> numbers[0] >> numbers[1] >> numbers[2];
    const auto window = reinterpret_cast<HWND>(static_cast<uintptr_t>(handle));
    std::string list;
    if (command == "windows") EnumWindows(Describe, reinterpret_cast<LPARAM>(&list));
    if (command == "children") EnumChildWindows(window, Describe, reinterpret_cast<LPARAM>(&list));
    if (command == "post")
        PostMessageW(window, static_cast<UINT>(numbers[0]), static_cast<WPARAM>(numbers[1]), numbers[2]);
    if (command == "haspen") return std::to_string(HasPen(window));
    if (command == "pixel") return std::to_string(Pixel(window, {numbers[0], numbers[1]}));
    return "[" + list + "]";
}

}  // namespace

int main() {
    for (std::string line; std::getline(std::cin, line);) std::cout << Answer(line) << std::endl;
    return 0;
}
