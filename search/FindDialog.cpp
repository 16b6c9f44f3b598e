#include "search/FindDialog.h"

#include <new>
#include <utility>

#include "app/store/Settings.h"
#include "platform/MessageBox.h"
#include "platform/Shell.h"
#include "res/resource.h"

namespace search {

namespace {

using platform::TreeItem;
using store::SettingId;

constexpr wchar_t kFinished[] = L"Finished searching for files/folders.";
constexpr wchar_t kNoText[] = L"Please enter some text to search for.";

constexpr struct {
    int control;
    SearchOption option;
} kOptions[] = {
    {IDC_SEARCH_NOTES, kFileNames}, {IDC_SEARCH_FOLDERS, kFolderNames}, {IDC_SEARCH_MEMOS, kTextMemos}};

}  // namespace

FindDialog::FindDialog(SearchGround ground) : Dialog(IDD_FIND), ground_(std::move(ground)) {}

bool FindDialog::OnCreate() {
    {
        const store::Settings settings;
        SetItemText(IDC_SEARCH_TEXT, settings.ReadText(SettingId::SearchLastText));
        ShowOptions(settings.ReadNumber(SettingId::SearchOpt));
    }
    NameItem(IDC_SEARCH_TEXT, L"Text to search for");
    const platform::Rect owner = OwnerRect();
    const platform::Rect own = WindowRect();
    Place({owner.right - own.Width(), owner.bottom - own.Height(), owner.right, owner.bottom});
    SelectItemText(IDC_SEARCH_TEXT);
    return true;
}

void FindDialog::OnDestroy() {
    const uint8_t options = ReadOptions();
    const std::wstring text = ItemText(IDC_SEARCH_TEXT);
    {
        store::Settings settings;
        if (!text.empty()) settings.Write(SettingId::SearchLastText, text);
        settings.Write(SettingId::SearchOpt, options);
    }
    cancelled_ = true;
    worker_.Wait();
}

void FindDialog::OnCommand(int id) {
    if (id == IDC_FIND_FIRST) return FindFirst();
    if (id == IDC_FIND_NEXT) return FindNext();
    if (id != platform::kIdCancel && id != platform::kIdOk) return;
    cancelled_ = true;
    if (id == platform::kIdOk || !worker_.Exists()) Dialog::OnCommand(id);
}

// Options.

void FindDialog::ShowOptions(uint32_t options) {
    for (const auto& each : kOptions) CheckItem(each.control, (options & each.option) != 0);
    ReadOptions();
}

// Nothing to search in means file names.
uint8_t FindDialog::ReadOptions() {
    uint8_t options = 0;
    for (const auto& each : kOptions) {
        if (IsItemChecked(each.control)) options = static_cast<uint8_t>(options | each.option);
    }
    if (options != 0) return options;
    CheckItem(IDC_SEARCH_NOTES, true);
    return kFileNames;
}

// Searching.

void FindDialog::EnableControls(bool enabled) {
    EnableItem(IDC_SEARCH_TEXT, enabled);
    for (const auto& each : kOptions) EnableItem(each.control, enabled);
    EnableItem(IDC_FIND_FIRST, enabled);
    EnableItem(IDC_FIND_NEXT, enabled);
}

void FindDialog::FindFirst() {
    if (worker_.Exists()) return;
    platform::ShowInputPanel(false);
    Start(ground_.firstItem);
}

void FindDialog::FindNext() {
    if (worker_.Exists()) return;
    const TreeItem selected = ground_.tree.Selection();
    Start(selected == 0 ? ground_.firstItem : NextInWalk(ground_.tree, selected));
}

void FindDialog::Start(TreeItem item) {
    EnableControls(false);
    const std::wstring text = ItemText(IDC_SEARCH_TEXT);
    if (item == 0) {
        ShowNotice(kFinished);
    } else if (text.empty()) {
        ShowNotice(kNoText);
    } else if (!worker_.Create([this] { Walk(); })) {
        platform::ShowOutOfMemory(this);
    } else {
        request_ = {text, ReadOptions(), ground_.rootPrefix, item};
        cancelled_ = false;
        walkEnded_ = false;
        worker_.Resume();
        return;
    }
    EnableControls(true);
    FocusItem(IDC_SEARCH_TEXT);
}

void FindDialog::ShowNotice(const wchar_t* text) {
    platform::ShowMessage(this, text, L" Inkwright", platform::MessageButtons::Ok,
                          platform::MessageIcon::Question);
}

void FindDialog::OnPrivateMessage(uint32_t code, intptr_t payload) {
    const auto item = static_cast<TreeItem>(payload);
    switch (static_cast<WalkCode>(code)) {
        case WalkCode::Done:
            return WalkIsDone();
        case WalkCode::OutOfMemory:
            return platform::ShowOutOfMemory(this);
        case WalkCode::Finished:
            return ShowNotice(kFinished);
        case WalkCode::Select:
            return ground_.tree.Select(item);
        case WalkCode::ScrollToTop:
            return ground_.tree.ScrollToTop(item);
        case WalkCode::EnsureVisible:
            return ground_.tree.EnsureVisible(item);
        case WalkCode::RelativePath:
            return AnswerPath();
    }
}

// The keyboard goes on with Next: pressing Enter again and again visits one match after another.
void FindDialog::WalkIsDone() {
    if (!walkEnded_) return;
    worker_.Wait();
    EnableControls(true);
    FocusItem(IDC_FIND_NEXT);
}

// The item is the worker's own: a number that somebody else sends is not looked at.
void FindDialog::AnswerPath() {
    const TreeItem item = std::exchange(pathItem_, 0);
    if (item == 0 || !ground_.relativePath(item, path_)) path_.clear();
}

// The worker's side.

void FindDialog::Walk() {
    try {
        TreeWalk(ground_.tree, *this, cancelled_).Run(request_);
    } catch (const std::bad_alloc&) {
        Tell(WalkCode::OutOfMemory, 0);
    }
    walkEnded_ = true;
    PostPrivateMessage(static_cast<uint32_t>(WalkCode::Done), 0);
}

void FindDialog::Tell(WalkCode code, TreeItem item) {
    SendPrivateMessage(static_cast<uint32_t>(code), static_cast<intptr_t>(item));
}

bool FindDialog::RelativePath(TreeItem item, std::wstring& path) {
    pathItem_ = item;
    Tell(WalkCode::RelativePath, 0);
    path = path_;
    return !path.empty();
}

}  // namespace search
