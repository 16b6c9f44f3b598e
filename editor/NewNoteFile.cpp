#include "editor/NewNoteFile.h"

#include "app/store/Settings.h"
#include "app/store/StorePaths.h"
#include "editor/SaveAsDialog.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"

namespace editor {

namespace {

constexpr wchar_t kCreateFailed[] =
    L"Failed to create a file!\n\nPlease make sure that you have enough free storage space and the file name "
    L"does not contain any of the following characters:\n\\ / : * ? \" < > |";

std::wstring ProposedName(NoteKind kind, const std::wstring& folder) {
    const store::SettingId setting =
        kind == NoteKind::Reminder ? store::SettingId::SaveAs_ReminderFN : store::SettingId::SaveAs_NoteFN;
    return ExpandFileNamePattern(store::Settings::Text(setting), kind, folder, platform::LocalNow());
}

std::wstring FreePath(const std::wstring& folder, const std::wstring& name) {
    return store::FreeNotePath(folder + name + store::kNoteExtension);
}

std::wstring FolderFor(const std::wstring& notePath) {
    if (!notePath.empty()) return store::FolderOf(notePath);
    return store::DefaultRoot() + L"\\" + store::kNewNotesFolder + L"\\";
}

// A name with a separator would put the note somewhere else than the user sees.
store::SafeFile CreateNamed(const std::wstring& folder, const std::wstring& name, std::wstring& path) {
    if (name.empty() || name.find(L'\\') != std::wstring::npos) return {};
    path = FreePath(folder, name);
    return store::SafeFile::At(path);
}

}  // namespace

std::wstring ProposedNotePath(NoteKind kind, const std::wstring& notePath) {
    const std::wstring folder = FolderFor(notePath);
    return FreePath(folder, ProposedName(kind, folder));
}

store::SafeFile CreateNewNoteFile(platform::Window* owner, NoteKind kind, std::wstring& notePath) {
    const std::wstring folder = FolderFor(notePath);
    store::EnsureFolders(folder);
    const std::wstring proposed = ProposedNotePath(kind, notePath);
    for (;;) {
        SaveAsDialog dialog(store::NoteName(proposed));
        if (dialog.RunModal(owner) != platform::kIdOk) {
            notePath = proposed;
            return {};
        }
        std::wstring path;
        store::SafeFile file = CreateNamed(folder, dialog.Name(), path);
        if (file.IsOpen()) {
            notePath = path;
            return file;
        }
        platform::ShowMessage(owner, kCreateFailed, L" Error", platform::MessageButtons::Ok,
                              platform::MessageIcon::Error);
    }
}

}  // namespace editor
