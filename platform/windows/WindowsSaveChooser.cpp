#include "platform/FileSystem.h"
#include "platform/SaveChooser.h"
#include "platform/output/Utf8.h"
#include "platform/windows/HandheldPath.h"
#include "platform/windows/Processes.h"
#include "platform/windows/ShellHeaders.h"
#include "platform/windows/SystemDialog.h"

namespace platform {

namespace {

using windows::ReleaseObject;
using OwnedDialog = std::unique_ptr<IFileSaveDialog, ReleaseObject>;
using OwnedItem = std::unique_ptr<IShellItem, ReleaseObject>;

OwnedItem ItemOf(const std::wstring& hostPath) {
    void* item = nullptr;
    const HRESULT got = SHCreateItemFromParsingName(hostPath.c_str(), nullptr, IID_IShellItem, &item);
    return OwnedItem(SUCCEEDED(got) ? static_cast<IShellItem*>(item) : nullptr);
}

std::wstring PathOf(IShellItem* item) {
    PWSTR text = nullptr;
    const HRESULT got = item->GetDisplayName(SIGDN_FILESYSPATH, &text);
    const std::unique_ptr<wchar_t, windows::FreeTaskMemory> memory(text);
    return SUCCEEDED(got) ? text : L"";
}

void OpenIn(IFileSaveDialog& dialog, const std::wstring& folder) {
    OwnedItem item = folder.empty() ? nullptr : ItemOf(folder);
    if (!item) item = ItemOf(windows::ToShellPath(DocumentsFolder()));
    if (item) dialog.SetFolder(item.get());
}

void SetKinds(IFileSaveDialog& dialog, const std::vector<FileKind>& kinds) {
    std::vector<std::wstring> texts;
    for (const FileKind& kind : kinds) {
        texts.push_back(kind.name + L" (*" + kind.ending + L")");
        texts.push_back(L"*" + kind.ending);
    }
    std::vector<COMDLG_FILTERSPEC> specs;
    for (size_t i = 0; i < texts.size(); i += 2) specs.push_back({texts[i].c_str(), texts[i + 1].c_str()});
    dialog.SetFileTypes(static_cast<UINT>(specs.size()), specs.data());
    dialog.SetDefaultExtension(kinds.front().ending.c_str() + 1);
}

// Empty when nothing was chosen.
std::wstring Answer(IFileSaveDialog& dialog, Window& owner) {
    const windows::SystemDialog running(&owner, IDCANCEL);
    IShellItem* item = nullptr;
    if (FAILED(dialog.Show(windows::FrameOf(&owner))) || FAILED(dialog.GetResult(&item))) return {};
    return PathOf(OwnedItem(item).get());
}

}  // namespace

bool ChooseSavePlace(Window& owner, const SaveQuestion& question, SavePlace& place) {
    const windows::SystemObjects objects;
    void* object = nullptr;
    if (FAILED(CoCreateInstance(CLSID_FileSaveDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileSaveDialog,
                                &object)))
        return false;
    const OwnedDialog dialog(static_cast<IFileSaveDialog*>(object));
    dialog->SetTitle(question.title.c_str());
    SetKinds(*dialog, question.kinds);
    OpenIn(*dialog, question.folder);
    dialog->SetFileName((question.name + question.kinds.front().ending).c_str());
    dialog->SetOptions(FOS_OVERWRITEPROMPT | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST | FOS_NOREADONLYRETURN);
    place.shown = Answer(*dialog, owner);
    if (place.shown.empty()) return false;
    UINT chosen = 1;
    dialog->GetFileTypeIndex(&chosen);
    TellKind(question, chosen - 1, place);
    place.path = ToUtf8(place.shown);
    place.folder = place.shown.substr(0, place.shown.rfind(L'\\') + 1);
    return true;
}

}  // namespace platform
