#include "editor/NoteMail.h"

#include <cwchar>
#include <iterator>
#include <string>

#include "app/store/FileStreams.h"
#include "app/store/StorePaths.h"
#include "editor/NotePicture.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Shell.h"

namespace editor {

namespace {

using platform::MessageButtons;
using platform::MessageIcon;

// Named after the second: two pictures of the same one are the same picture.
std::wstring PicturePath() {
    const platform::DateTime now = platform::LocalNow();
    wchar_t name[64];
    std::swprintf(name, std::size(name), L"memo_%04d-%02d-%02d(%02d%02d%02d).bmp", now.year, now.month,
                  now.day, now.hour, now.minute, now.second);
    return store::TemporaryFolder() + name;
}

bool WritePicture(const ink::InkPage& page, const std::wstring& path) {
    ink::PaletteBitmap picture;
    if (!MakeNotePicture(page, picture)) return false;
    bool isWritten = false;
    {
        platform::File file = platform::File::Create(path);
        store::FileSink sink(file);
        isWritten = file.IsOpen() && picture.WriteBmp(sink);
    }
    if (!isWritten) platform::EraseFile(path);
    return isWritten;
}

}  // namespace

void SendNote(platform::Window& owner, const ink::InkPage& page) {
    if (!page.HasInk()) {
        platform::ShowMessage(&owner, L"Cannot send empty notes!", L" Error", MessageButtons::Ok,
                              MessageIcon::Error);
        return;
    }
    const std::wstring path = PicturePath();
    bool isWritten = false;
    {
        const platform::WaitCursor wait;
        store::EnsureFolders(store::TemporaryFolder());
        isWritten = WritePicture(page, path);
    }
    if (!isWritten) {
        platform::ShowMessage(&owner, L"Creating temporary file failed!", L" Memory Error",
                              MessageButtons::Ok, MessageIcon::Error);
        return;
    }
    platform::StartMailProgram(owner, path);
}

}  // namespace editor
