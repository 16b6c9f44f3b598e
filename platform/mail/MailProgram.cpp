// pmail.exe and tmail.exe: stand for the handheld's mail programs of these names. Started with
// -attach "path" (the handheld's or the host's), they open a new message of the desktop's mail program with
// that file in it.
#include <cwchar>
#include <memory>
#include <string>

#include "platform/MessageBox.h"
#include "platform/TextEncoding.h"
#include "platform/mail/LinuxMail.h"
#include "platform/mail/MailFiles.h"
#include "platform/mail/MailMessage.h"
#include "platform/windows/Guards.h"
#include "platform/windows/HandheldPath.h"
#include "platform/windows/PathTranslation.h"
#include "platform/windows/Processes.h"
#include "platform/windows/SystemTimes.h"

namespace {

using platform::MessageIcon;

constexpr int kFailed = 1;

struct FreeLocal {
    void operator()(void* memory) const { LocalFree(memory); }
};

void Say(const std::wstring& text, MessageIcon icon) {
    platform::ShowMessage(nullptr, text, L" Inkwright", platform::MessageButtons::Ok, icon);
}

// What stands behind "-attach"; empty when nothing does.
std::wstring AttachArgument() {
    int count = 0;
    const std::unique_ptr<LPWSTR, FreeLocal> arguments(CommandLineToArgvW(GetCommandLineW(), &count));
    for (int i = 1; arguments && i + 1 < count; ++i) {
        if (platform::EqualNoCase(arguments.get()[i], L"-attach")) return arguments.get()[i + 1];
    }
    return {};
}

// The file's place on this system, absolute; a path that begins with a drive is the host's own.
std::wstring HostPathOf(const std::wstring& path) {
    if (!platform::windows::BeginsWithDrive(path)) return platform::windows::ToShellPath(path);
    return platform::windows::FullPath(path);
}

// Writes the message beside the picture, or where nobody minds when that place takes no file. Returns its
// path, empty on failure.
std::wstring WriteMessage(const std::wstring& picture, const std::string& bytes) {
    SYSTEMTIME now{};
    GetSystemTime(&now);
    std::string message;
    const std::wstring name = platform::windows::NameOf(picture);
    if (!platform::windows::BuildMailMessage({name, bytes}, platform::windows::DateTimeOf(now), message))
        return {};
    for (const std::wstring& folder :
         {platform::windows::FolderOf(picture), platform::windows::TemporaryFolder()}) {
        if (folder.empty()) continue;
        platform::windows::DeleteOldMessages(folder);
        std::wstring path = folder + name.substr(0, name.rfind(L'.')) + L".eml";
        if (platform::windows::WriteMessageFile(path, message)) return path;
    }
    return {};
}

// Shows no boxes of the system's own: ours says more than "no program". Returns when the other program has
// the file, since this process ends soon after.
bool OpenWithSystem(const std::wstring& file, const std::wstring& parameters) {
    SHELLEXECUTEINFOW what{};
    what.cbSize = sizeof what;
    what.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    what.lpVerb = L"open";
    what.lpFile = file.c_str();
    what.lpParameters = parameters.empty() ? nullptr : parameters.c_str();
    what.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&what) != FALSE;
}

int Attach(const std::wstring& argument) {
    const std::wstring picture = HostPathOf(argument);
    std::string bytes;
    if (!platform::windows::ReadWholeFile(picture, bytes)) {
        Say(L"The file to send cannot be read:\n\n" + (picture.empty() ? argument : picture),
            MessageIcon::Error);
        return kFailed;
    }
    const std::wstring message = WriteMessage(picture, bytes);
    if (platform::windows::OpenLinuxMail(picture)) return 0;
    if (!message.empty() && OpenWithSystem(message, {})) return 0;
    const wchar_t* trouble =
        message.empty() ? L"The message cannot be written." : L"No mail program was found.";
    Say(trouble + (L"\n\nThe picture of your note is:\n" + picture), MessageIcon::Information);
    OpenWithSystem(platform::windows::WindowsFolder() + L"\\explorer.exe", L"/select,\"" + picture + L"\"");
    return kFailed;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    platform::windows::PrepareProcess();
    const std::wstring argument = AttachArgument();
    if (argument.empty()) {
        Say(L"This program opens a new e-mail message with a file in it. It is started with:\n\n-attach "
            L"\"file\"",
            MessageIcon::Information);
        return kFailed;
    }
    const platform::windows::SystemObjects objects;  // opening a file may need them
    return Attach(argument);
}
