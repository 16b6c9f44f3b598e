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

std::string Send(Arguments& arguments) {
    const HWND window = WindowFrom(arguments);
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    arguments >> message >> wParam >> lParam;
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, 5000, &answer);
    return std::to_string(static_cast<int64_t>(answer));
}

std::string Style(Arguments& arguments) {
    return std::to_string(GetWindowLongW(WindowFrom(arguments), GWL_STYLE));
}

std::string Post(Arguments& arguments) {
    const HWND window = WindowFrom(arguments);
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    arguments >> message >> wParam >> lParam;
    return PostMessageW(window, message, wParam, lParam) ? "true" : "false";
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

// A number that stands for everything a window's client area shows, from its row `top` on when one is given.
std::string Picture(Arguments& arguments) {
    const HWND window = WindowFrom(arguments);
    LONG top = 0;
    arguments >> top;
    RECT client{};
    GetClientRect(window, &client);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, client.right, -client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const platform::windows::OwnedMemoryDc memory(CreateCompatibleDC(nullptr));
    const platform::windows::OwnedBitmap bitmap(
        CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bits) return "null";
    const platform::windows::Selection selection(memory.get(), bitmap.get());
    const platform::windows::ClientDc screen(nullptr);
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    BitBlt(memory.get(), 0, 0, client.right, client.bottom, screen.Get(), origin.x, origin.y, SRCCOPY);
    GdiFlush();
    uint64_t sum = 14695981039346656037u;
    const auto* pixels = static_cast<const uint32_t*>(bits);
    for (LONG i = top * client.right; i < client.right * client.bottom; ++i)
        sum = (sum ^ (pixels[i] & 0xFFFFFF)) * 1099511628211u;
    return std::to_string(sum);
}

// Memory of another window's program, for messages that carry addresses.
class RemoteMemory {
  public:
    RemoteMemory(HWND window, size_t size) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        handle_.reset(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, process));
        address_ = VirtualAllocEx(handle_.get(), nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;
    ~RemoteMemory() { VirtualFreeEx(handle_.get(), address_, 0, MEM_RELEASE); }

    char* Address() const { return static_cast<char*>(address_); }
    void Write(const void* from, size_t size) {
        WriteProcessMemory(handle_.get(), address_, from, size, nullptr);
    }
    void Read(void* to, size_t size, size_t offset = 0) const {
        ReadProcessMemory(handle_.get(), Address() + offset, to, size, nullptr);
    }

  private:
    OwnedHandle handle_;
    void* address_ = nullptr;
};

// A tool bar writes a button's place into its own program's memory.
std::string ToolPlace(Arguments& arguments) {
    const HWND bar = WindowFrom(arguments);
    WPARAM command = 0;
    arguments >> command;
    RemoteMemory memory(bar, sizeof(RECT));
    RECT place{};
    SendMessageW(bar, TB_GETRECT, command, reinterpret_cast<LPARAM>(memory.Address()));
    memory.Read(&place, sizeof place);
    POINT origin{0, 0};
    ClientToScreen(bar, &origin);
    OffsetRect(&place, origin.x, origin.y);
    return Listed(place);
}

// The system carries a control's new text over to its program.
std::string SendText(Arguments& arguments) {
    const HWND window = WindowFrom(arguments);
    std::string text;
    std::getline(arguments >> std::ws, text);
    const std::wstring wide(text.begin(), text.end());
    SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide.c_str()));
    return "true";
}

// Text of a tree's selected item.
std::string Selected(Arguments& arguments) {
    constexpr int kLength = 256;
    const HWND tree = WindowFrom(arguments);
    RemoteMemory memory(tree, sizeof(TVITEMW) + kLength * sizeof(wchar_t));
    TVITEMW item{};
    item.mask = TVIF_TEXT;
    item.hItem = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
    item.pszText = reinterpret_cast<wchar_t*>(memory.Address() + sizeof item);
    item.cchTextMax = kLength;
    memory.Write(&item, sizeof item);
    if (!SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.Address()))) return "null";
    wchar_t text[kLength] = L"";
    memory.Read(text, sizeof text - sizeof(wchar_t), sizeof item);
    return Quoted(text);
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
                 {"style", Style},     {"post", Post},         {"haspen", HasPen},
                 {"pixel", Pixel},     {"picture", Picture},   {"toolplace", ToolPlace},
                 {"setting", Setting}, {"sendtext", SendText}, {"selected", Selected},
                 {"settext", SetText}, {"clean", Clean}};

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
