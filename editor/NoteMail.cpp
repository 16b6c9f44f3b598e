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

bool WriteAndClose(platform::File file, const ink::PaletteBitmap& picture) {
    store::FileSink sink(file);
    return file.IsOpen() && picture.WriteBmp(sink);
}

bool MakePicture(const ink::InkPage& page, PictureWidth width, const std::wstring& path) {
    const platform::WaitCursor wait;
    store::EnsureFolders(store::TemporaryFolder());
    ink::PaletteBitmap picture;
    if (!MakeNotePicture(page, width, picture)) return false;
    if (WriteAndClose(platform::File::Create(path), picture)) return true;
    platform::EraseFile(path);
    return false;
}

}  // namespace

void SendNote(platform::Screen& owner, const ink::InkPage& page) {
    if (!page.HasInk()) {
        platform::ShowMessage(&owner, L"Cannot send empty notes!", L" Error", MessageButtons::Ok,
                              MessageIcon::Error);
        return;
    }
    const std::wstring path = PicturePath();
    const PictureWidth width = owner.CanBeSized() ? PictureWidth::OfInk : PictureWidth::OfView;
    if (!MakePicture(page, width, path)) {
        platform::ShowMessage(&owner, L"Creating temporary file failed!", L" Memory Error",
                              MessageButtons::Ok, MessageIcon::Error);
        return;
    }
    platform::StartMailProgram(owner, path);
}

}  // namespace editor
