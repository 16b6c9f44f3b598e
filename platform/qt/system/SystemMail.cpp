#include "platform/MessageBox.h"
#include "platform/Shell.h"
#include "platform/qt/system/DiskText.h"
#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/Mail.h"

namespace platform {

void StartMailProgram(Window& owner, const std::wstring& attachment) {
    const std::string file = qt::ToHostPath(attachment);
    if (!file.empty() && qt::OpenMailMessage(file)) return;
    ShowMessage(&owner,
                L"No mail program was found.\n\nThe picture of your note is:\n" + qt::TextFromDisk(file),
                L" Inkwright", MessageButtons::Ok, MessageIcon::Information);
}

}  // namespace platform
