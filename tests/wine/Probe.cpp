// Looks at the windows of another program, and talks to them, on behalf of the tests: reads one command per
// line, numbers and words separated by blanks, and answers each with one line of JSON.
#include <cstdio>
#include <cwchar>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "platform/windows/Guards.h"
#include "platform/windows/SystemHeaders.h"

namespace {

using platform::windows::OwnedHandle;
using Arguments = std::istringstream;

constexpr wchar_t kSettingsKey[] = L"Software\\Larkspur Works\\Inkwright";
constexpr wchar_t kDatabaseKey[] = L"Software\\Larkspur Works\\Notification Database";
constexpr wchar_t kDriverKey[] = L"Software\\Wine\\X11 Driver";

HWND WindowFrom(Arguments& arguments) {
    uint64_t number = 0;
    arguments >> number;
    return reinterpret_cast<HWND>(static_cast<uintptr_t>(number));
}

std::string Quoted(const std::wstring& text) {
    std::string json = "\"";
    for (const wchar_t unit : text) {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit));
        json += unit >= L' ' && unit < 0x7F && unit != L'"' && unit != L'\\'
                    ? std::string(1, static_cast<char>(unit))
                    : std::string(escape);
    }
    return json + "\"";
}

std::string Listed(const RECT& rect) {
    return "[" + std::to_string(rect.left) + "," + std::to_string(rect.top) + "," +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom) + "]";
}

std::wstring ProgramOf(DWORD process) {
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

std::string Described(HWND window) {
    // First of all: the window's thread answers only once the window is where it belongs.
    const std::wstring text = TextOf(window);
    wchar_t className[64] = L"";
    RECT place{};
    RECT client{};
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, className, static_cast<int>(std::size(className)));
    GetWindowRect(window, &place);
    GetClientRect(window, &client);
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    OffsetRect(&client, origin.x, origin.y);
    std::ostringstream json;
    json << "{\"handle\":" << reinterpret_cast<uintptr_t>(window) << ",\"process\":" << process
         << ",\"program\":" << Quoted(ProgramOf(process)) << ",\"class\":" << Quoted(className)
         << ",\"id\":" << GetDlgCtrlID(window) << ",\"text\":" << Quoted(text)
         << ",\"enabled\":" << (IsWindowEnabled(window) ? "true" : "false")
         << ",\"visible\":" << (IsWindowVisible(window) ? "true" : "false") << ",\"place\":" << Listed(place)
         << ",\"client\":" << Listed(client) << "}";
    return json.str();
}

BOOL CALLBACK Collect(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::string DescribedAll(const std::vector<HWND>& windows) {
    std::string json;
    for (const HWND window : windows) json += (json.empty() ? "" : ",") + Described(window);
    return "[" + json + "]";
}

std::string Windows(Arguments&) {
    std::vector<HWND> windows;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
    return DescribedAll(windows);
}

std::string Children(Arguments& arguments) {
    std::vector<HWND> windows;
    EnumChildWindows(WindowFrom(arguments), Collect, reinterpret_cast<LPARAM>(&windows));
    return DescribedAll(windows);
}

struct Message {
    explicit Message(Arguments& arguments) : window(WindowFrom(arguments)) {
        arguments >> id >> wParam >> lParam;
    }

    HWND window;
    UINT id = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

std::string Send(Arguments& arguments) {
    const Message sent(arguments);
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(sent.window, sent.id, sent.wParam, sent.lParam, SMTO_ABORTIFHUNG, 5000, &answer);
    return std::to_string(static_cast<int64_t>(answer));
}

std::string Post(Arguments& arguments) {
    const Message posted(arguments);
    return PostMessageW(posted.window, posted.id, posted.wParam, posted.lParam) ? "true" : "false";
}

std::string HasPen(Arguments& arguments) {
    const HWND window = WindowFrom(arguments);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndCapture == window ? "true" : "false";
}

// Another program's pixels can be had from the screen only.
std::string Pixel(Arguments& arguments) {
    const HWND window = WindowFrom(arguments);
    POINT place{};
    arguments >> place.x >> place.y;
    ClientToScreen(window, &place);
    const platform::windows::ClientDc screen(nullptr);
    return std::to_string(GetPixel(screen.Get(), place.x, place.y));
}

// [type, [byte, ...]] of a setting, null when there is none.
std::string Setting(Arguments& arguments) {
    std::string name;
    arguments >> name;
    BYTE data[1024];
    DWORD size = sizeof data;
    DWORD type = 0;
    const std::wstring wide(name.begin(), name.end());
    if (RegGetValueW(HKEY_CURRENT_USER, kSettingsKey, wide.c_str(), RRF_RT_ANY, &type, data, &size) !=
        ERROR_SUCCESS) {
        return "null";
    }
    std::string bytes;
    for (DWORD i = 0; i < size; ++i) bytes += (i == 0 ? "" : ",") + std::to_string(data[i]);
    return "[" + std::to_string(type) + ",[" + bytes + "]]";
}

std::string SetText(Arguments& arguments) {
    std::string name;
    std::string text;
    arguments >> name >> std::ws;
    std::getline(arguments, text);
    const std::wstring wideName(name.begin(), name.end());
    const std::wstring wide(text.begin(), text.end());
    const auto size = static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_CURRENT_USER, kSettingsKey, wideName.c_str(), REG_SZ, wide.c_str(), size)
               ? "false"
               : "true";
}

// An empty key of settings, and windows that need no window manager: with one expected but absent, Wine waits
// two seconds for each window that it takes away.
// Alarms and notices of an earlier test would fire in this one.
std::string Clean(Arguments&) {
    constexpr wchar_t kNo[] = L"N";
    RegDeleteTreeW(HKEY_CURRENT_USER, kSettingsKey);
    RegDeleteTreeW(HKEY_CURRENT_USER, kDatabaseKey);
    return RegSetKeyValueW(HKEY_CURRENT_USER, kDriverKey, L"Managed", REG_SZ, kNo, sizeof kNo) ? "false"
                                                                                               : "true";
}

constexpr struct {
    const char* name;
    std::string (*run)(Arguments&);
} kCommands[] = {{"windows", Windows}, {"children", Children}, {"send", Send},
                 {"post", Post},       {"haspen", HasPen},     {"pixel", Pixel},
                 {"setting", Setting}, {"settext", SetText},   {"clean", Clean}};

std::string Answer(const std::string& line) {
    Arguments arguments(line);
    std::string name;
    arguments >> name;
    for (const auto& command : kCommands) {
        if (name == command.name) return command.run(arguments);
    }
    return "\"unknown command\"";
}

}  // namespace

int main() {
    for (std::string line; std::getline(std::cin, line);) std::cout << Answer(line) << std::endl;
    return 0;
}
