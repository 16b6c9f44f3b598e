#include "manager/ManagerWindow.h"

#include "app/store/Settings.h"
#include "app/store/StoreListing.h"
#include "app/store/StorePaths.h"
#include "manager/ManagerTools.h"
#include "manager/StripImages.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Product.h"
#include "platform/TextEncoding.h"
#include "res/resource.h"

namespace manager {

namespace {

using platform::TreeItem;

// A store that lies around `path`: everything up to a folder named like the program's own. Empty for none.
std::wstring StoreAround(const std::wstring& path) {
    std::wstring folder = store::WithoutTrailingBackslashes(path);
    for (; !folder.empty(); folder = store::WithoutTrailingBackslashes(store::FolderOf(folder))) {
        if (platform::EqualNoCase(store::NameOf(folder), platform::kProductName)) return folder;
    }
    return {};
}

bool IsBelow(const std::wstring& path, const std::wstring& prefix) {
    return platform::EqualNoCase(path.substr(0, prefix.size()), prefix);
}

}  // namespace

ManagerWindow::ManagerWindow(store::PenSettings& pen, const std::wstring& path)
    : Screen(ScrollBar::None, L"Manager"),
      pen_(pen),
      pendingPath_(path),
      treePane_(pen, images_),
      calendar_(*this, images_) {}

bool ManagerWindow::OnCreate() {
    const platform::WaitCursor wait;
    SetTitle(L"Inkwright");
    CreateMenuBar(ManagerToolBarLayout());
    NameClient(L"Calendar");
    ReadImages();
    if (!treePane_.Create(*this, *this)) {
        platform::ShowOutOfMemory(this);
        EndModal(-1);
        return false;
    }
    calendar_.ReadFirstDayOfWeek();
    calendar_.BeginUp(store::Settings::Number(store::SettingId::ViewCalMode) != 0);
    const std::wstring configured = store::ConfiguredRoot();
    const bool isElsewhere = !pendingPath_.empty() && !IsBelow(pendingPath_, store::RootPrefix());
    const std::wstring around = isElsewhere ? StoreAround(pendingPath_) : std::wstring();
    PlacePanes();  // a tree that is filled before it has its place stays scrolled to where it was too small
    treePane_.SetVisible(!calendar_.IsUp());
    SetRootFolder(around.empty() ? configured : around);
    return true;
}

void ManagerWindow::OnDestroy() {
    store::Settings().Write(store::SettingId::ViewCalMode, calendar_.IsUp() ? 1u : 0u);
}

void ManagerWindow::OnPaint() {
    ShowAt(header_.Picture(), {0, 0});
    if (calendar_.IsUp()) {
        ShowAt(calendar_.Picture(), calendar_.PicturePlace());
    } else {
        ShowAt(treePane_.Picture(), treePane_.PicturePlace());
    }
}

void ManagerWindow::OnSize() {
    ReadImages();
    header_.Draw(ClientWidth(), PageScale());
    PlacePanes();
    RedrawStrip();
}

void ManagerWindow::ReadImages() {
    images_ = platform::ImageList::FromResource(IDB_TREE_IMAGES, kStripImageSize, kStripMask, PageScale());
}

// The root folder.

// Makes the folder when it is missing; tells the user when it can't be read then.
bool ManagerWindow::IsReadable(const std::wstring& root) {
    store::EnsureFolders(root);
    uint64_t bytes = 0;
    if (platform::FreeBytes(root, bytes)) return true;
    platform::ShowMessage(this, L"Reading '" + root + L"' failed!", L" Error", platform::MessageButtons::Ok,
                          platform::MessageIcon::Error);
    return false;
}

// The path that can serve as the root, the default one when it can't. When nor can that, no other place is
// taken: what is done with notes then fails by itself.
std::wstring ManagerWindow::UsableRoot(const std::wstring& path) {
    std::wstring usual = store::DefaultRoot();
    std::wstring root = store::WithoutTrailingBackslashes(path);
    if (root.empty()) root = usual;
    if (IsReadable(root) || platform::EqualNoCase(root, usual)) return root;
    IsReadable(usual);
    return usual;
}

void ManagerWindow::SetRootFolder(const std::wstring& path) {
    const std::wstring root = UsableRoot(path);
    store::EnsureFolders(root);
    folders_.SetRootPrefix(root + L"\\");
    calendar_.SetRootPrefix(folders_.RootPrefix());
    platform::MakeFolder(root + L"\\" + store::kRemindersFolder);
    ShowStore(pendingPath_);
    pendingPath_.clear();
}

// Reads the store anew and selects `path` in it.
void ManagerWindow::ShowStore(const std::wstring& path) {
    ShowFreeSpace();
    folders_.Rebuild(path);
    RedrawStrip();
    calendar_.Refresh(SelectedDay());
    UpdateTools();
    Invalidate();
}

void ManagerWindow::ShowFreeSpace() {
    header_.Update(folders_.RootPrefix(), ClientWidth(), PageScale());
    Invalidate();
}

void ManagerWindow::PlacePanes() {
    const platform::Rect area{0, HeaderBar::Height(PageScale()), ClientWidth(), ClientHeight()};
    treePane_.Place(area, PageScale());
    calendar_.Place(area, PageScale());
}

// The calendar in the place of the tree, or the other way round.

void ManagerWindow::ToggleCalendar() {
    if (calendar_.IsUp()) {
        calendar_.Leave();
    } else {
        calendar_.Open(SelectedDay());
    }
    treePane_.SetVisible(!calendar_.IsUp());
    RedrawStrip();
    UpdateTools();
}

std::optional<store::DayFolder> ManagerWindow::SelectedDay() const {
    return folders_.DayOf(folders_.Container(tree_.Selection()));
}

// In the tree the keys belong to the control, which offers those that it does not use.
bool ManagerWindow::OnKeyDown(platform::Key key) {
    return calendar_.IsUp() && (calendar_.PressKey(key) || PressKey(key));
}

void ManagerWindow::OnCalendarDrawn() {
    UpdateTools();
    Invalidate();
}

// A day with reminders opens in the tree, any other begins one.
void ManagerWindow::OnCalendarDay(const store::DayFolder& day) {
    const std::wstring folder = folders_.PathOf(day);
    if (!store::HoldsNotes(folder)) {
        AddReminder(day);
        return ShowFreeSpace();
    }
    ToggleCalendar();
    ShowStore(folder);
}

void ManagerWindow::RedrawStrip() {
    treePane_.DrawStrip();
    Invalidate();
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
    if (item == tree_.Selection()) OnCommand(IDM_OPEN);
}

}  // namespace manager
