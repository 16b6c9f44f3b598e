// Edits of many lines that dialogs make at run time.
#include "platform/Dialog.h"
#include "platform/host/HostDevice.h"
#include "platform/host/HostWindow.h"

namespace platform {

using host::HostDevice;

namespace {

HostItem* FindEdit(Window::Impl& state, int id) {
    const auto item = state.items.find(id);
    return item == state.items.end() || !item->second.isTextEdit ? nullptr : &item->second;
}

void ReplaceSelection(HostItem& edit, const std::wstring& text) {
    edit.textBefore = edit.text;
    edit.text.replace(edit.selectionStart, edit.selectionEnd - edit.selectionStart, text);
    edit.selectionStart = edit.selectionEnd = edit.selectionStart + text.size();
}

void Undo(HostItem& edit) {
    if (!edit.textBefore) return;
    std::swap(edit.text, *edit.textBefore);
    edit.selectionStart = edit.selectionEnd = 0;
}

}  // namespace

bool Dialog::MakeTextEdit(int id, const Rect& place, bool wordWrap) {
    if (!Exists() || HostDevice::Current().desk.textEditsFail) return false;
    HostItem fresh;
    fresh.isTextEdit = true;
    fresh.wordWrap = wordWrap;
    fresh.text = ItemText(id);
    fresh.source.id = id;
    fresh.source.place = place;
    impl_->items[id] = fresh;
    return true;
}

bool Dialog::CanEdit(int id, EditAction action) const {
    const HostItem* edit = FindEdit(*impl_, id);
    if (edit == nullptr) return false;
    switch (action) {
        case EditAction::Undo:
            return edit->textBefore.has_value();
        case EditAction::Paste:
            return !HostDevice::Current().desk.clipboard.empty();
        case EditAction::SelectAll:
            return !edit->text.empty();
        default:
            return edit->selectionStart != edit->selectionEnd;
    }
}

void Dialog::Edit(int id, EditAction action) {
    HostItem* edit = FindEdit(*impl_, id);
    if (edit == nullptr) return;
    std::wstring& clipboard = HostDevice::Current().desk.clipboard;
    const bool takes = (action == EditAction::Cut || action == EditAction::Copy) && CanEdit(id, action);
    if (takes) clipboard = edit->text.substr(edit->selectionStart, edit->selectionEnd - edit->selectionStart);
    if (action == EditAction::Undo) Undo(*edit);
    if (action == EditAction::Paste) ReplaceSelection(*edit, clipboard);
    const bool deletes = action == EditAction::Cut || action == EditAction::Delete;
    if (deletes && CanEdit(id, action)) ReplaceSelection(*edit, L"");
    if (action != EditAction::SelectAll) return;
    edit->selectionStart = 0;
    edit->selectionEnd = edit->text.size();
}

}  // namespace platform
