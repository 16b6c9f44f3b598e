#include "tests/contract/WindowsQuestions.h"

#include <algorithm>
#include <iterator>

#include "platform/windows/ShellHeaders.h"
#include "platform/windows/SystemText.h"
#include "platform/windows/WindowImpl.h"
#include "tests/contract/WindowsInput.h"

namespace contract {

using platform::MessageAnswer;
using platform::PopupMenu;

namespace {

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
            // A property sheet belongs to none, but its pages do.
            const bool isOurs = platform::windows::WindowOf(window) != nullptr ||
                                FindWindowExW(window, nullptr, L"#32770", nullptr) != nullptr;
            if (IsWindowVisible(window) && !isOurs && platform::windows::IsOfClass(window, wanted->className))
                wanted->found = window;
            return wanted->found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

int ButtonId(MessageAnswer answer) {
    constexpr int kIds[] = {IDOK, IDCANCEL, IDYES, IDNO};
    return kIds[static_cast<size_t>(answer)];
}

std::vector<HMENU> ShownMenus() {
    std::vector<HMENU> menus;
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, L"#32768", nullptr)) != nullptr;) {
        const bool isOurs = GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
        const LRESULT menu =
            isOurs && IsWindowVisible(window) ? SendMessageW(window, kGetMenuOfWindow, 0, 0) : 0;
        if (menu != 0) menus.push_back(reinterpret_cast<HMENU>(menu));
    }
    return menus;
}

// What a person sees of a menu text: "&" marks an access key, "&&" stands for the sign.
std::wstring Seen(const std::wstring& text) {
    std::wstring seen;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&') ++i;
        if (i < text.size()) seen += text[i];
    }
    return seen;
}

PopupMenu MenuOf(HMENU menu) {
    PopupMenu result;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[64] = L"";
        const auto at = static_cast<UINT>(i);
        GetMenuStringW(menu, at, text, static_cast<int>(std::size(text)), MF_BYPOSITION);
        if (const HMENU submenu = GetSubMenu(menu, i)) {
            result.AddSubmenu(Seen(text), MenuOf(submenu));
        } else {
            const UINT state = GetMenuState(menu, at, MF_BYPOSITION);
            result.Add(static_cast<int>(GetMenuItemID(menu, i)), Seen(text), (state & MF_GRAYED) == 0);
        }
    }
    return result;
}

bool LeadsTo(HMENU menu, int position, int command) {
    const HMENU submenu = GetSubMenu(menu, position);
    if (!submenu) return static_cast<int>(GetMenuItemID(menu, position)) == command;
    for (int i = 0; i < GetMenuItemCount(submenu); ++i) {
        if (LeadsTo(submenu, i, command)) return true;
    }
    return false;
}

// The item on the way to the command that can be clicked next: not one whose submenu is open already.
bool FindNext(const std::vector<HMENU>& shown, int command, HMENU& menu, int& position) {
    for (const HMENU each : shown) {
        for (int i = 0; i < GetMenuItemCount(each); ++i) {
            const bool isOpen = std::count(shown.begin(), shown.end(), GetSubMenu(each, i)) != 0;
            if (isOpen || !LeadsTo(each, i, command)) continue;
            menu = each;
            position = i;
            return true;
        }
    }
    return false;
}

}  // namespace

bool WindowsQuestions::Answer() {
    if (const HWND box = SystemWindow(L"#32770"))
        return folders.empty() ? AnswerBox(box) : AnswerChooser(box);
    return AnswerMenu();
}

bool WindowsQuestions::AnswerBox(HWND box) {
    if (answers.empty()) return true;
    const bool isSecond = GetDlgCtrlID(GetFocus()) == IDNO;
    boxes.push_back({TextOf(GetDlgItem(box, kMessageText)), TextOf(box), isSecond});
    SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(ButtonId(answers.front())), 0);
    answers.pop_front();
    return true;
}

bool WindowsQuestions::AnswerChooser(HWND chooser) {
    const std::wstring& folder = folders.front();
    if (!folderShown_ && !folder.empty()) {
        folderShown_ = true;
        SendMessageW(chooser, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(folder.c_str()));
        return true;
    }
    folderShown_ = false;
    PostMessageW(chooser, WM_COMMAND, folder.empty() ? IDCANCEL : IDOK, 0);
    folders.pop_front();
    return true;
}

// A command within a submenu takes several steps: each opens the next part, until the command is seen.
bool WindowsQuestions::AnswerMenu() {
    const std::vector<HMENU> shown = ShownMenus();
    if (shown.empty() || entries.empty()) return !shown.empty();
    if (shown.size() == 1) command_ = readMenu(MenuOf(shown[0]).Items(), entries.front());
    HMENU menu = nullptr;
    int position = 0;
    if (command_ == 0 || !FindNext(shown, command_, menu, position)) {
        SendKey(VK_ESCAPE);
        entries.pop_front();
        return true;
    }
    RECT place{};
    GetMenuItemRect(nullptr, menu, static_cast<UINT>(position), &place);
    Click({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    if (!GetSubMenu(menu, position)) entries.pop_front();
    return true;
}

}  // namespace contract
