// Drives the windows with real input. Steps run in the program's own thread, from a timer: the system reports
// a timer only when nothing else waits, so a step comes when what went before it has been handled, in
// whatever loop the program is waiting: its own, a message box's or a menu's.
#include <cwchar>
#include <deque>
#include <iterator>

#include "platform/windows/SystemHeaders.h"
#include "platform/windows/WindowImpl.h"
#include "tests/contract/Driver.h"

namespace contract {

using platform::MessageAnswer;
using platform::Point;
using platform::Window;

namespace {

constexpr wchar_t kDriverClass[] = L"ContractDriver";
constexpr UINT kTickMilliseconds = 10;
constexpr UINT kGetMenuOfWindow = 0x01E1;  // MN_GETHMENU
constexpr int kMessageText = 0xFFFF;       // control id of a message box's text

std::wstring TextOf(HWND window) {
    wchar_t text[512] = L"";
    GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    return text;
}

// A visible top-level window of this thread with this class that belongs to no window object.
HWND SystemWindow(const wchar_t* className) {
    struct Search {
        const wchar_t* className;
        HWND found;
    } search{className, nullptr};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM parameter) -> BOOL {
            auto* wanted = reinterpret_cast<Search*>(parameter);
            wchar_t name[64] = L"";
            GetClassNameW(window, name, static_cast<int>(std::size(name)));
            const bool isOurs = platform::windows::WindowOf(window) != nullptr;
            if (IsWindowVisible(window) && !isOurs && std::wcscmp(name, wanted->className) == 0)
                wanted->found = window;
            return wanted->found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// 16 bits of a side of the desktop, so that the system's own rounding comes out at the same pixel.
LONG Absolute(LONG place, int metric) {
    const LONG side = GetSystemMetrics(metric);
    return (place * 65536 + side - 1) / side;
}

void SendMouse(POINT desktop, DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = Absolute(desktop.x, SM_CXSCREEN);
    input.mi.dy = Absolute(desktop.y, SM_CYSCREEN);
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
    SendInput(1, &input, sizeof input);
}

void SendPen(const Window& window, Point place, DWORD flags) {
    POINT desktop{place.x, place.y};
    ClientToScreen(window.Handle()->page, &desktop);
    SendMouse(desktop, flags);
}

void SendKey(WORD code) {
    INPUT inputs[2]{};
    for (INPUT& input : inputs) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = code;
    }
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(2, inputs, sizeof(INPUT));
}

WORD KeyCode(platform::Key key) {
    constexpr WORD kCodes[] = {VK_LEFT, VK_UP,     VK_RIGHT,  VK_DOWN,   VK_PRIOR, VK_NEXT, VK_HOME,
                               VK_END,  VK_RETURN, VK_ESCAPE, VK_DELETE, VK_F2,    'Q'};
    return kCodes[static_cast<size_t>(key)];
}

int ButtonId(MessageAnswer answer) {
    constexpr int kIds[] = {IDOK, IDCANCEL, IDYES, IDNO};
    return kIds[static_cast<size_t>(answer)];
}

void DeleteKeys() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kMachineKey);
}

// Makes or empties a folder of the host for the device of one test.
void EraseTree(const std::wstring& folder) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring name = found.cFileName;
        const std::wstring path = folder + L"\\" + name;
        if (name == L"." || name == L"..") continue;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            EraseTree(path);
        } else {
            SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
            DeleteFileW(path.c_str());
        }
    } while (FindNextFileW(search, &found));
    FindClose(search);
    RemoveDirectoryW(folder.c_str());
}

std::wstring DeviceFolder() {
    wchar_t temporary[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, temporary);
    return std::wstring(temporary) + L"contract " + std::to_wstring(GetCurrentProcessId());
}

}  // namespace

struct Driver::Impl {
    HWND ticker = nullptr;
    std::deque<std::function<void()>> steps;
    std::deque<MessageAnswer> answers;
    std::deque<int> choices;
    std::vector<SeenMessage> messages;
    std::vector<platform::PopupMenu::Item> menuItems;
    std::wstring deviceFolder = DeviceFolder();

    void Tick();
    bool AnswerBox();
    bool AnswerMenu();
};

bool Driver::Impl::AnswerBox() {
    const HWND box = SystemWindow(L"#32770");
    if (!box) return false;
    if (answers.empty()) return true;
    const bool isSecond = GetDlgCtrlID(GetFocus()) == IDNO;
    messages.push_back({TextOf(GetDlgItem(box, kMessageText)), TextOf(box),
                        isSecond ? platform::DefaultButton::Second : platform::DefaultButton::First});
    SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(ButtonId(answers.front())), 0);
    answers.pop_front();
    return true;
}

bool Driver::Impl::AnswerMenu() {
    const HWND menuWindow = SystemWindow(L"#32768");
    if (!menuWindow) return false;
    if (choices.empty()) return true;
    const auto menu = reinterpret_cast<HMENU>(SendMessageW(menuWindow, kGetMenuOfWindow, 0, 0));
    const int command = choices.front();
    choices.pop_front();
    RECT chosen{};
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[64] = L"";
        const int id = static_cast<int>(GetMenuItemID(menu, i));
        const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
        GetMenuStringW(menu, static_cast<UINT>(i), text, static_cast<int>(std::size(text)), MF_BYPOSITION);
        menuItems.push_back({id, text, (state & MF_GRAYED) == 0});
        if (id == command && command != 0) GetMenuItemRect(nullptr, menu, static_cast<UINT>(i), &chosen);
    }
    if (command == 0) {
        SendKey(VK_ESCAPE);
    } else {
        const POINT middle{(chosen.left + chosen.right) / 2, (chosen.top + chosen.bottom) / 2};
        SendMouse(middle, MOUSEEVENTF_LEFTDOWN);
        SendMouse(middle, MOUSEEVENTF_LEFTUP);
    }
    return true;
}

void Driver::Impl::Tick() {
    if (AnswerBox() || AnswerMenu() || steps.empty()) return;
    const std::function<void()> step = std::move(steps.front());
    steps.pop_front();
    step();
}

Driver::Driver() : impl_(std::make_unique<Impl>()) {
    DeleteKeys();
    EraseTree(impl_->deviceFolder);
    CreateDirectoryW(impl_->deviceFolder.c_str(), nullptr);
    CreateDirectoryW((impl_->deviceFolder + L"\\My Documents").c_str(), nullptr);
    SetEnvironmentVariableW(L"INKWRIGHT_DEVICE", impl_->deviceFolder.c_str());

    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        auto* driver = reinterpret_cast<Impl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_TIMER && driver) driver->Tick();
        return DefWindowProcW(window, message, wParam, lParam);
    };
    windowClass.lpszClassName = kDriverClass;
    RegisterClassW(&windowClass);
    impl_->ticker =
        CreateWindowExW(0, kDriverClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(impl_->ticker, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(impl_.get()));
    SetTimer(impl_->ticker, 1, kTickMilliseconds, nullptr);
}

Driver::~Driver() {
    DestroyWindow(impl_->ticker);
    EraseTree(impl_->deviceFolder);
    DeleteKeys();
}

void Driver::Then(std::function<void()> step) { impl_->steps.push_back(std::move(step)); }
bool Driver::AllStepsDone() const {
    return impl_->steps.empty() && impl_->answers.empty() && impl_->choices.empty();
}

void Driver::PenDown(Window& window, Point place) { SendPen(window, place, MOUSEEVENTF_LEFTDOWN); }
void Driver::PenMove(Window& window, Point place) { SendPen(window, place, 0); }
void Driver::PenUp(Window& window, Point place) { SendPen(window, place, MOUSEEVENTF_LEFTUP); }

void Driver::PenMoveAtOnce(Window& window, const std::vector<Point>& places) {
    // The program can't take a message while this step runs, so the system merges all moves into one.
    for (const Point& place : places) SendPen(window, place, 0);
}

void Driver::TakePenAway(Window&) {
    SetCapture(impl_->ticker);
    ReleaseCapture();
}

void Driver::Press(Window&, platform::Key key) { SendKey(KeyCode(key)); }

void Driver::PressTool(platform::Screen& screen, int command) {
    const HWND strip = FindWindowExW(screen.Handle()->frame, nullptr, L"InkwrightMenuBar", nullptr);
    const HWND bar = FindWindowExW(strip, nullptr, TOOLBARCLASSNAMEW, nullptr);
    RECT button{};
    SendMessageW(bar, TB_GETRECT, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(&button));
    POINT middle{(button.left + button.right) / 2, (button.top + button.bottom) / 2};
    ClientToScreen(bar, &middle);
    SendMouse(middle, MOUSEEVENTF_LEFTDOWN);
    SendMouse(middle, MOUSEEVENTF_LEFTUP);
}

void Driver::PressButton(platform::Dialog& dialog, int id) {
    RECT place{};
    GetWindowRect(GetDlgItem(dialog.Handle()->frame, id), &place);
    const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    SendMouse(middle, MOUSEEVENTF_LEFTDOWN);
    SendMouse(middle, MOUSEEVENTF_LEFTUP);
}

void Driver::Type(platform::Dialog& dialog, int id, const std::wstring& text) {
    const HWND edit = GetDlgItem(dialog.Handle()->frame, id);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void Driver::Close(Window& window) { PostMessageW(window.Handle()->frame, WM_SYSCOMMAND, SC_CLOSE, 0); }

void Driver::SendScroll(Window& window, platform::ScrollCode code, int position) {
    constexpr WORD kCodes[] = {SB_LINEUP,        SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN,
                               SB_THUMBPOSITION, SB_TOP,      SB_BOTTOM};
    const auto wParam = static_cast<WPARAM>(MAKELONG(kCodes[static_cast<size_t>(code)], position));
    PostMessageW(window.Handle()->frame, WM_VSCROLL, wParam, 0);
}

void Driver::SendPrivateMessage(Window& window, uint32_t code, intptr_t payload) {
    PostMessageW(window.Handle()->frame, platform::kPrivateMessage, code, payload);
}

void Driver::LetTimePass(uint32_t milliseconds) { Sleep(milliseconds); }

uint32_t Driver::PixelAt(Window& window, Point place) {
    const HDC dc = GetDC(window.Handle()->page);
    const COLORREF color = GetPixel(dc, place.x, place.y);
    ReleaseDC(window.Handle()->page, dc);
    return static_cast<uint32_t>(GetRValue(color)) << 16 | static_cast<uint32_t>(GetGValue(color)) << 8 |
           GetBValue(color);
}

void Driver::Answer(MessageAnswer answer) { impl_->answers.push_back(answer); }
const std::vector<SeenMessage>& Driver::Messages() const { return impl_->messages; }
void Driver::ChooseFromMenu(int command) { impl_->choices.push_back(command); }
const std::vector<platform::PopupMenu::Item>& Driver::MenuItems() const { return impl_->menuItems; }

void Driver::SetMachineNumber(const std::wstring& path, const std::wstring& name, uint32_t value) {
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, path.c_str(), name.c_str(), REG_DWORD, &value, sizeof value);
}

}  // namespace contract
