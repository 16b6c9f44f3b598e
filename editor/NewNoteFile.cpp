#include "editor/NewNoteFile.h"

#include "app/Settings.h"
#include "app/StorePaths.h"
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
    const app::SettingId setting =
        kind == NoteKind::Reminder ? app::SettingId::SaveAs_ReminderFN : app::SettingId::SaveAs_NoteFN;
    return ExpandFileNamePattern(app::Settings::Text(setting), kind, folder, platform::LocalNow());
}

// `name`, or "name (1)", "name (2)", ... : the first that no entry of the folder has.
std::wstring FreeName(const std::wstring& folder, const std::wstring& name) {
    for (int n = 0;; ++n) {
        std::wstring candidate = n == 0 ? name : name + L" (" + std::to_wstring(n) + L")";
        if (platform::FindEntry(folder + candidate + app::kNoteExtension) == platform::EntryKind::Missing) {
            return candidate;
        }
    }
}

// A name with a separator would put the note somewhere else than the user sees.
platform::File CreateNamed(const std::wstring& folder, const std::wstring& name, std::wstring& path) {
    if (name.empty() || name.find(L'\\') != std::wstring::npos) return {};
    path = folder + FreeName(folder, name) + app::kNoteExtension;
    return platform::File::Create(path);
}

}  // namespace

platform::File CreateNewNoteFile(platform::Window* owner, NoteKind kind, std::wstring& notePath) {
    std::wstring folder = notePath;
    if (folder.empty()) {
        folder =
            platform::DocumentsFolder() + L"\\" + app::kProductFolder + L"\\" + app::kNewNotesFolder + L"\\";
    }
    app::EnsureFolders(folder);
    const std::wstring proposed = FreeName(folder, ProposedName(kind, folder));
    for (;;) {
        SaveAsDialog dialog(proposed);
        if (dialog.RunModal(owner) != platform::kIdOk) {
            notePath = folder + proposed + app::kNoteExtension;
            return {};
        }
        std::wstring path;
        platform::File file = CreateNamed(folder, dialog.Name(), path);
        if (file.IsOpen()) {
            notePath = path;
            return file;
        }
        platform::ShowMessage(owner, kCreateFailed, L" Error", platform::MessageButtons::Ok,
                              platform::MessageIcon::Error);
    }
}

}  // namespace editor
