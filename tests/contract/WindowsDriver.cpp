// Drives the windows with real input. Steps run in the program's own thread, from a timer: the system reports
// a timer only when nothing else waits, so a step comes when what went before it has been handled, in
// whatever loop the program is waiting: its own, a message box's or a menu's.
#include "platform/windows/SystemTimes.h"
#include "platform/windows/WindowImpl.h"
#include "tests/contract/WindowsDriverImpl.h"
#include "tests/contract/WindowsInput.h"

namespace contract {

using platform::MessageAnswer;
using platform::Point;
using platform::Window;

namespace {

constexpr wchar_t kDriverClass[] = L"ContractDriver";
constexpr UINT kTickMilliseconds = 10;
constexpr DWORD kHoldFileMilliseconds = 100;

void SendPen(const Window& window, Point place, DWORD flags) {
    POINT desktop{place.x, place.y};
    ClientToScreen(window.Handle()->page, &desktop);
    SendMouse(desktop, flags);
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

void Driver::Impl::Tick() {
    if (questions.Answer()) return;
    if (heldUntil != 0) {
        if (GetTickCount64() < heldUntil) return;
        SendMouse(heldPlace, MOUSEEVENTF_LEFTUP);
        heldUntil = 0;
        return;
    }
    if (steps.empty()) return;
    const std::function<void()> step = std::move(steps.front());
    steps.pop_front();
    step();
}

Driver::Driver() : impl_(std::make_unique<Impl>()) {
    impl_->deviceFolder = DeviceFolder();
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
    if (impl_->holder.joinable()) impl_->holder.join();
    DestroyWindow(impl_->ticker);
    EraseTree(impl_->deviceFolder);
    DeleteKeys();
}

void Driver::Then(std::function<void()> step) { impl_->steps.push_back(std::move(step)); }
bool Driver::AllStepsDone() const { return impl_->steps.empty() && impl_->questions.AllAsked(); }

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

void Driver::PressShortcut(Window&, wchar_t letter) { SendShortcut(static_cast<WORD>(letter)); }

void Driver::TurnWheel(Window& window, int notches) {
    SendPen(window, {50, 50}, 0);
    SendWheel(notches * WHEEL_DELTA);
}

int Driver::WheelLines() const {
    UINT lines = 0;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    return static_cast<int>(lines);
}

void Driver::PressTool(platform::Screen& screen, int command) {
    const HWND strip = FindWindowExW(screen.Handle()->frame, nullptr, L"InkwrightMenuBar", nullptr);
    const HWND bar = FindWindowExW(strip, nullptr, TOOLBARCLASSNAMEW, nullptr);
    RECT button{};
    SendMessageW(bar, TB_GETRECT, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(&button));
    Click(MiddleOf(bar, button));
}

void Driver::PressButton(platform::Dialog& dialog, int id) {
    RECT place{};
    const HWND frame = dialog.Handle()->frame;
    const HWND own = GetDlgItem(frame, id);
    GetWindowRect(own ? own : GetDlgItem(GetParent(frame), id), &place);
    Click({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

void Driver::Choose(platform::Dialog& dialog, int id, int index) {
    const HWND list = GetDlgItem(dialog.Handle()->frame, id);
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(dialog.Handle()->frame, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

void Driver::ShowPage(platform::PropertyPage& shown, size_t index) {
    PostMessageW(GetParent(shown.Handle()->frame), PSM_SETCURSEL, index, 0);
}

void Driver::Type(platform::Dialog& dialog, int id, const std::wstring& text) {
    const HWND edit = GetDlgItem(dialog.Handle()->frame, id);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void Driver::HoldEdit(platform::Dialog& dialog, int id) {
    RECT place{};
    GetWindowRect(GetDlgItem(dialog.Handle()->frame, id), &place);
    impl_->heldPlace = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    impl_->heldUntil = GetTickCount64() + kHoldMilliseconds;
    SendMouse(impl_->heldPlace, MOUSEEVENTF_LEFTDOWN);
}

void Driver::SelectText(platform::Dialog& dialog, int id, int start, int end) {
    SendMessageW(GetDlgItem(dialog.Handle()->frame, id), EM_SETSEL, static_cast<WPARAM>(start), end);
}

void Driver::Close(Window& window) { PostMessageW(window.Handle()->frame, WM_SYSCOMMAND, SC_CLOSE, 0); }

void Driver::SendScroll(Window& window, platform::ScrollCode code, int position) {
    constexpr WORD kCodes[] = {SB_LINEUP,        SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN,
                               SB_THUMBPOSITION, SB_TOP,      SB_BOTTOM, SB_ENDSCROLL};
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

void Driver::Answer(MessageAnswer answer) { impl_->questions.answers.push_back(answer); }
const std::vector<SeenMessage>& Driver::Messages() const { return impl_->questions.messages; }
void Driver::ChooseFromMenu(int command) { impl_->questions.choices.push_back(command); }
const std::vector<platform::PopupMenu::Item>& Driver::MenuItems() const { return impl_->questions.menuItems; }

void Driver::ChooseFolder(const std::wstring& folder) {
    impl_->questions.folders.push_back(folder.empty() ? folder : impl_->deviceFolder + folder);
}

void Driver::InsertCard(const std::wstring& name) {
    CreateDirectoryW((impl_->deviceFolder + L"\\" + name).c_str(), nullptr);
}

void Driver::UseDevice(const std::wstring& ending) {
    std::wstring folder = impl_->deviceFolder + ending;
    CharUpperBuffW(folder.data(), static_cast<DWORD>(folder.size()));
    SetEnvironmentVariableW(L"INKWRIGHT_DEVICE", folder.c_str());
}

void Driver::HoldForAMoment(const std::wstring& path) {
    if (impl_->holder.joinable()) impl_->holder.join();
    const HANDLE file = CreateFileW((impl_->deviceFolder + path).c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    impl_->holder = std::thread([file] {
        Sleep(kHoldFileMilliseconds);
        CloseHandle(file);
    });
}

void Driver::SetLastWrite(const std::wstring& path, const platform::DateTime& universal) {
    const SYSTEMTIME moment = platform::windows::SystemTimeOf(universal);
    FILETIME written{};
    SystemTimeToFileTime(&moment, &written);
    const HANDLE file = CreateFileW((impl_->deviceFolder + path).c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    SetFileTime(file, nullptr, nullptr, &written);
    CloseHandle(file);
}

int Driver::SummerHours() const {
    TIME_ZONE_INFORMATION zone{};
    GetTimeZoneInformation(&zone);
    return zone.DaylightDate.wMonth == 0 ? 0 : (zone.StandardBias - zone.DaylightBias) / 60;
}

void Driver::SetMachineNumber(const std::wstring& path, const std::wstring& name, uint32_t value) {
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, path.c_str(), name.c_str(), REG_DWORD, &value, sizeof value);
}

}  // namespace contract
