#include "manager/ManagerWindow.h"

#include "app/Settings.h"
#include "app/StorePaths.h"
#include "manager/DayNames.h"
#include "manager/ManagerTools.h"
#include "manager/NodeKind.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/MessageBox.h"
#include "platform/TextEncoding.h"
#include "res/resource.h"

namespace manager {

namespace {

using platform::TreeItem;

constexpr ink::ColorRef kMaskColor = ink::MakeColor(0, 255, 0);
constexpr int kImageSize = 16;

// A store that lies around `path`: everything up to a folder named like the program's own. Empty for none.
std::wstring StoreAround(const std::wstring& path) {
    std::wstring folder = app::WithoutTrailingBackslashes(path);
    for (; !folder.empty(); folder = app::WithoutTrailingBackslashes(app::FolderOf(folder))) {
        if (platform::EqualNoCase(app::NameOf(folder), app::kProductFolder)) return folder;
    }
    return {};
}

bool IsBelow(const std::wstring& path, const std::wstring& prefix) {
    return platform::EqualNoCase(path.substr(0, prefix.size()), prefix);
}

}  // namespace

ManagerWindow::ManagerWindow(app::PenSettings& pen, const std::wstring& path)
    : Screen(ScrollBar::None),
      pen_(pen),
      pendingPath_(path),
      folders_(tree_),
      strip_(pen, images_),
      month_(images_) {}

bool ManagerWindow::OnCreate() {
    const platform::WaitCursor wait;
    SetTitle(L"Inkwright");
    CreateMenuBar(ManagerToolBarLayout());
    images_ = platform::ImageList::FromResource(IDB_TREE_IMAGES, kImageSize, kMaskColor);
    const platform::TreeView::Images images{IDB_TREE_IMAGES, kImageSize, kMaskColor, kMemoOverlayImage};
    if (!tree_.Create(*this, IDC_TREE, {0, 0, 1, 1}, images, *this)) {
        platform::ShowOutOfMemory(this);
        EndModal(-1);
        return false;
    }
    ReadFirstDayOfWeek();
    calendarMode_ = app::Settings::Number(app::SettingId::ViewCalMode) != 0;
    const std::wstring configured = app::ConfiguredRoot();
    const bool isElsewhere = !pendingPath_.empty() && !IsBelow(pendingPath_, app::RootPrefix());
    const std::wstring around = isElsewhere ? StoreAround(pendingPath_) : std::wstring();
    SetRootFolder(around.empty() ? configured : around);
    Layout();
    if (calendarMode_) EnterCalendar();
    return true;
}

void ManagerWindow::OnDestroy() {
    app::Settings().Write(app::SettingId::ViewCalMode, calendarMode_ ? 1u : 0u);
}

void ManagerWindow::OnPaint() {
    ShowAt(header_.Picture(), {0, 0});
    if (calendarMode_) {
        ShowAt(month_.Picture(), {0, HeaderBar::Height()});
    } else {
        ShowAt(strip_.Picture(), {0, ClientHeight() - PreviewStrip::kHeight});
    }
}

// The root folder.

// The path that can serve as the root: made when missing, the default one when it can't be read.
std::wstring ManagerWindow::UsableRoot(const std::wstring& path) {
    std::wstring usual = platform::DocumentsFolder() + L"\\" + app::kProductFolder;
    std::wstring root = app::WithoutTrailingBackslashes(path);
    if (root.empty()) return usual;
    app::EnsureFolders(root);
    uint64_t bytes = 0;
    if (platform::FreeBytes(root, bytes)) return root;
    platform::ShowMessage(this, L"Reading '" + root + L"' failed!", L" Error", platform::MessageButtons::Ok,
                          platform::MessageIcon::Error);
    return usual;
}

void ManagerWindow::SetRootFolder(const std::wstring& path) {
    const std::wstring root = UsableRoot(path);
    app::EnsureFolders(root);
    folders_.SetRootPrefix(root + L"\\");
    platform::MakeFolder(root + L"\\" + app::kRemindersFolder);
    ShowStore(pendingPath_);
    pendingPath_.clear();
}

// Reads the store anew and selects `path` in it.
void ManagerWindow::ShowStore(const std::wstring& path) {
    header_.Update(folders_.RootPrefix(), ClientWidth());
    folders_.Rebuild(path);
    RedrawStrip();
    if (calendarMode_) ShowMonth(month_.Grid().Year(), month_.Grid().Month());
    UpdateTools();
    Invalidate();
}

void ManagerWindow::Layout() {
    const int top = HeaderBar::Height();
    tree_.Place({0, top, ClientWidth(), ClientHeight() - PreviewStrip::kHeight});
    tree_.SetVisible(!calendarMode_);
    if (!calendarMode_) tree_.Focus();
}

void ManagerWindow::RedrawStrip() {
    strip_.Update(folders_.SelectedNotePath(), ClientWidth());
    Invalidate();
}

void ManagerWindow::UpdateTools() {
    ToolSituation situation;
    situation.calendarMode = calendarMode_;
    situation.showsCurrentMonth = calendarMode_ && month_.ShowsCurrentMonth();
    situation.kind = folders_.SelectedKind();
    UpdateToolBar(Tools(), situation);
}

// The tree's events.

void ManagerWindow::OnTreeSelection(TreeItem old, TreeItem selected) {
    const platform::WaitCursor wait;
    folders_.SelectionChanged(old, selected);
    RedrawStrip();
    UpdateTools();
}

void ManagerWindow::OnTreeItemDeleted(TreeItem, intptr_t data) { folders_.ItemDeleted(data); }

void ManagerWindow::OnTreeActivated(TreeItem item) {
    if (IsNoteKind(tree_.Image(item))) OpenNote();
}

bool ManagerWindow::OnTreeKey(platform::Key key) {
    if (key == platform::Key::F2) RenameSelected();
    if (key == platform::Key::Delete) Delete();
    return key == platform::Key::F2 || key == platform::Key::Delete;
}

// The calendar.

void ManagerWindow::ReadFirstDayOfWeek() {
    const auto usual = static_cast<uint32_t>(platform::FirstDayOfWeek());
    const uint32_t day = app::Settings().FindNumber(app::SettingId::FirstDayOfWeek).value_or(usual);
    firstDayOfWeek_ = day < MonthGrid::kColumns ? static_cast<int>(day) : 0;
}

void ManagerWindow::ToggleCalendar() {
    calendarMode_ = !calendarMode_;
    Layout();
    if (calendarMode_) EnterCalendar();
    RedrawStrip();
    UpdateTools();
}

// Opens on the month of the selected day, else on the current one.
void ManagerWindow::EnterCalendar() {
    const platform::DateTime now = platform::LocalNow();
    DayName shown{now.year, now.month, now.day};
    DayName day;
    const TreeItem container = folders_.Container(tree_.Selection());
    const bool isDay = IsDayKind(tree_.Image(container)) && ReadDayName(folders_.FolderName(container), day);
    if (isDay && day.year > 0 && day.month >= 1 && day.month <= 12) shown = day;
    ShowMonth(shown.year, shown.month);
}

void ManagerWindow::ShowMonth(int year, int month) {
    const platform::WaitCursor wait;
    month_.SetMonth(year, month, firstDayOfWeek_);
    month_.Update(folders_.RootPrefix(), ClientWidth(), ClientHeight() - HeaderBar::Height());
    UpdateTools();
    Invalidate();
}

void ManagerWindow::StepMonth(int months) {
    if (!calendarMode_) return;
    const int count = month_.Grid().Year() * 12 + month_.Grid().Month() - 1 + months;
    ShowMonth(count / 12, count % 12 + 1);
}

void ManagerWindow::ShowCurrentMonth() {
    const platform::DateTime now = platform::LocalNow();
    if (calendarMode_) ShowMonth(now.year, now.month);
}

void ManagerWindow::OnPenUp(platform::Point place) {
    if (!calendarMode_) return;
    const int top = HeaderBar::Height();
    int row = 0;
    int column = 0;
    int pressedRow = 0;
    int pressedColumn = 0;
    const bool inCell = month_.CellAt({place.x, place.y - top}, row, column) &&
                        month_.CellAt({pressed_.x, pressed_.y - top}, pressedRow, pressedColumn);
    if (inCell && row == pressedRow && column == pressedColumn) TapDay(row, column);
}

bool ManagerWindow::OnKeyDown(platform::Key key) {
    if (!calendarMode_) return false;
    const int cells = MonthGrid::kRows * MonthGrid::kColumns;
    int step = 0;
    switch (key) {
        case platform::Key::Left:
            step = -1;
            break;
        case platform::Key::Right:
            step = 1;
            break;
        case platform::Key::Up:
            step = -MonthGrid::kColumns;
            break;
        case platform::Key::Down:
            step = MonthGrid::kColumns;
            break;
        case platform::Key::PageUp:
            StepMonth(-1);
            return true;
        case platform::Key::PageDown:
            StepMonth(1);
            return true;
        case platform::Key::Enter:
            TapDay(dayCursor_ / MonthGrid::kColumns, dayCursor_ % MonthGrid::kColumns);
            return true;
        default:
            return false;
    }
    dayCursor_ = (dayCursor_ + step + cells) % cells;
    month_.SetCursor(dayCursor_);
    ShowMonth(month_.Grid().Year(), month_.Grid().Month());
    return true;
}

bool ManagerWindow::OnShortcut(wchar_t letter) {
    struct Shortcut {
        wchar_t letter;
        int command;
    };
    constexpr Shortcut kShortcuts[] = {{L'N', IDM_ADD_NOTE}, {L'W', platform::kIdOk}, {L'F', IDM_FIND}};
    for (const Shortcut& candidate : kShortcuts) {
        if (candidate.letter != letter) continue;
        PostCommand(candidate.command);
        return true;
    }
    return false;
}

// A day with reminders opens in the tree, any other begins one; a grey day shows its month.
void ManagerWindow::TapDay(int row, int column) {
    const platform::DateTime day = month_.Grid().DateAt(row, column);
    if (month_.Grid().At(row, column).monthOffset != 0) return ShowMonth(day.year, day.month);
    const std::wstring name = app::DateFolderName(day);
    const std::wstring folder = folders_.RootPrefix() + app::kRemindersFolder + L"\\" + name + L"\\";
    if (!app::HoldsNotes(folder)) return AddReminder(name);
    ToggleCalendar();
    ShowStore(folder);
}

}  // namespace manager
