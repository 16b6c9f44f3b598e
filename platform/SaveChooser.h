#pragma once

#include <cstddef>
#include <string>
#include <vector>

// Where the user wants a file for others: anywhere on the host, also where no handheld path leads, as beside
// a folder that is the whole handheld.
namespace platform {

class Window;

// Such as {L"Picture", L".png"}.
struct FileKind {
    std::wstring name;
    std::wstring ending;  // small letters
};

struct SaveQuestion {
    std::wstring title;
    std::wstring name;    // that is proposed, without ending
    std::wstring folder;  // where the chooser opens, as an earlier answer told it; empty: the documents
    std::vector<FileKind> kinds;  // the first one is proposed
};

struct SavePlace {
    std::string path;     // for OutputFile
    std::wstring shown;   // the same for people, and for FromHostPath
    std::wstring folder;  // for the next question
    size_t kind = 0;  // that the name's ending tells; if it tells none, the chosen one, whose ending it gets
    bool replaces = false;  // the user has agreed that what is there under this name goes
};

// Asks by the system's own dialog, which asks before anything is replaced. False when nothing was chosen.
bool ChooseSavePlace(Window& owner, const SaveQuestion& question, SavePlace& place);

// For the ports: makes the answer's kind, and whether it replaces, of a host path in `shown` and the kind
// that was chosen in the dialog's list.
void TellKind(const SaveQuestion& question, size_t chosen, SavePlace& place);

}  // namespace platform
