// What modal windows, boxes and menus do by themselves, on every port.
#include "platform/Dialog.h"
#include "platform/MessageBox.h"
#include "platform/Popup.h"
#include "platform/PopupMenu.h"

namespace platform {

void Dialog::OnCommand(int id) {
    if (id == kIdOk || id == kIdCancel) EndModal(id);
}

void Dialog::OnTakeOver() { OnCommand(kIdCancel); }

void Popup::OnCommand(int id) {
    if (id == kIdOk || id == kIdCancel) EndModal(kIdCancel);
}

MessageAnswer CountedAnswer(MessageButtons buttons, MessageAnswer answer) {
    if (buttons == MessageButtons::Ok) return MessageAnswer::Ok;
    if (answer == MessageAnswer::Yes || answer == MessageAnswer::No) return answer;
    return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Cancel;
}

std::wstring MessageLines(const std::vector<std::wstring>& lines) {
    constexpr size_t kMostLines = 12;
    std::wstring text;
    for (size_t i = 0; i < lines.size() && i < kMostLines; ++i) text += L"\n" + lines[i];
    if (lines.size() > kMostLines) text += L"\n...";
    return text;
}

void PopupMenu::Add(int command, const std::wstring& text, bool enabled) {
    items_.push_back({command, text, enabled, nullptr});
}

void PopupMenu::AddSeparator() { items_.push_back({}); }

void PopupMenu::AddSubmenu(const std::wstring& text, const PopupMenu& submenu) {
    items_.push_back({0, text, true, std::make_shared<const PopupMenu>(submenu)});
}

}  // namespace platform
