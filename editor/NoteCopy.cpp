#include "editor/NoteCopy.h"

#include <algorithm>
#include <exception>

#include "app/store/Settings.h"
#include "app/store/StorePaths.h"
#include "editor/NoteSheets.h"
#include "editor/NoteStorage.h"
#include "editor/ViewFiling.h"
#include "ink/NoteFile.h"
#include "pictures/Pictures.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/OutputFile.h"
#include "platform/SaveChooser.h"
#include "platform/Screen.h"
#include "platform/TextEncoding.h"

namespace editor {

namespace {

using platform::MessageButtons;
using platform::MessageIcon;
using platform::OutputFile;
using platform::SavePlace;
using store::SettingId;
using store::Settings;

struct CopyKind {
    const wchar_t* name;
    const wchar_t* ending;
    bool isNote;
    pictures::Format format;
};
constexpr CopyKind kKinds[] = {{L"Picture", L".png", false, pictures::Format::Png},
                               {L"Drawing", L".svg", false, pictures::Format::Svg},
                               {L"Document", L".pdf", false, pictures::Format::Pdf},
                               {L"Inkwright note", L".ikw", true, {}}};

void Complain(platform::Screen& owner, const std::wstring& text) {
    platform::ShowMessage(&owner, text, L" Error", MessageButtons::Ok, MessageIcon::Error);
}

bool AskForPlace(platform::Screen& owner, const std::wstring& name, SavePlace& place) {
    platform::SaveQuestion question;
    question.title = L"Save a Copy As";
    question.name = name;
    question.folder = Settings::Text(SettingId::CopyFolder);
    for (const CopyKind& kind : kKinds) question.kinds.push_back({kind.name, kind.ending});
    if (!platform::ChooseSavePlace(owner, question, place)) return false;
    Settings().Write(SettingId::CopyFolder, place.folder);
    return true;
}

bool IsNoteItself(const ink::InkPage& page, const SavePlace& place) {
    return HasFile(page) && platform::EqualNoCase(platform::FromHostPath(place.shown), page.notePath);
}

// As fine as the screen shows it, on the user's paper.
pictures::PictureOptions OptionsFor(platform::Screen& owner, const ink::InkPage& page) {
    pictures::PictureOptions options = PenOptions(page);
    options.scale = std::max(1.0, 1.0 * owner.PageScale().Dots() / ink::Scale::kPageDots);
    return options;
}

// Empty, or what is wrong, for the user.
std::wstring WritePicture(platform::Screen& owner, const ink::InkPage& page, pictures::Format format,
                          OutputFile& file) {
    NoteInk ink;
    if (!ink.Measure(page)) return ink.Problem();
    pictures::PictureOptions options = OptionsFor(owner, page);
    if (format == pictures::Format::Pdf) options.scale = 1;
    const pictures::PictureResult result =
        pictures::WritePicture(format, ink.Page(), ink.Size(), options, file);
    return result == pictures::PictureResult::TooLarge ? L"The picture would be too large." : L"";
}

std::wstring WriteCopy(platform::Screen& owner, const ink::InkPage& page, const SavePlace& place) {
    const CopyKind& kind = kKinds[place.kind];
    std::wstring failed = L"Saving '" + place.shown + L"' failed!";
    const platform::WaitCursor wait;
    platform::OutputFault fault;
    const std::unique_ptr<OutputFile> file = OutputFile::Create(place.path, place.replaces, fault);
    if (!file) return failed + (fault.isThere ? L"\n\nThere is such a file already." : L"");
    if (kind.isNote) {
        const ViewFiling filing(page);
        if (!ink::WriteNote(*file, filing.Page())) return failed;
    } else {
        const std::wstring problem = WritePicture(owner, page, kind.format, *file);
        if (!problem.empty()) return failed + L"\n\n" + problem;
    }
    return file->Flush() && file->PutInPlace(fault) ? L"" : failed;
}

}  // namespace

bool SaveNoteCopy(platform::Screen& owner, const ink::InkPage& page, const std::wstring& name) {
    if (!page.HasInk()) {
        Complain(owner, L"There is no ink to save a copy of!");
        return false;
    }
    SavePlace place;
    if (!AskForPlace(owner, name, place)) return false;
    if (IsNoteItself(page, place)) {
        Complain(owner, L"'" + place.shown + L"' is this note itself, which is saved when it is closed.");
        return false;
    }
    std::wstring problem;
    try {
        problem = WriteCopy(owner, page, place);
    } catch (const std::exception&) {
        platform::ShowOutOfMemory(&owner);
        return false;
    }
    if (!problem.empty()) Complain(owner, problem);
    return problem.empty() && kKinds[place.kind].isNote;
}

}  // namespace editor
