#pragma once

#include <string>

// Where notes lie and how their paths are formed. Folder paths handed between modules end in "\"; a note
// path that ends in "\" names the folder in which a new note is to be made.
namespace store {

extern const wchar_t* const kNoteExtension;    // ".ikw"
extern const wchar_t* const kNewNotesFolder;   // "New Notes"
extern const wchar_t* const kRemindersFolder;  // "Reminders"

// `path` with one "\" at its end; a path of at most one character is left alone.
std::wstring WithBackslash(const std::wstring& path);
std::wstring WithoutTrailingBackslashes(const std::wstring& path);
bool EndsInBackslash(const std::wstring& path);

// Everything up to and including the last "\"; empty when there is none.
std::wstring FolderOf(const std::wstring& path);
// The text after the last "\".
std::wstring NameOf(const std::wstring& path);
// The name of a note as it is shown: its file's without the last four characters, the extension.
std::wstring NoteName(const std::wstring& notePath);
// Compared as file names are, ignoring case.
bool EndsWithNoCase(const std::wstring& path, const std::wstring& ending);
// The path of a note beside another one, whose name goes on with `suffix`: cut where it would be too long for
// a file.
std::wstring NotePathWith(const std::wstring& notePath, const std::wstring& suffix);
// The same with " (n)".
std::wstring NumberedNotePath(const std::wstring& notePath, int n);
// A free path for a note beside `notePath`: itself, or "name (1)", "name (2)", ...: the first that no entry
// has.
std::wstring FreeNotePath(const std::wstring& notePath);
// True for a path that names a note file, as opposed to nothing or the folder of a new note.
bool NamesFile(const std::wstring& notePath);

// Makes every missing folder of the path, but no storage; failures show when the folder is used.
void EnsureFolders(const std::wstring& path);
bool IsFile(const std::wstring& path);
bool IsFolder(const std::wstring& path);

// `RootDirPath` without trailing backslashes; empty when it is unset or unreadable.
std::wstring ConfiguredRoot();
// The store of a storage: its folder that is named like the product. No trailing "\".
std::wstring StoreOn(const std::wstring& storage);
// The store among the user's documents.
std::wstring DefaultRoot();
// The configured root, else the default one; no trailing "\".
std::wstring StoreRoot();
// The store root with one trailing "\".
std::wstring RootPrefix();

// The text memo that belongs to a note: cut at the last "." and ".txt" appended. Empty when the path has no
// ".".
std::wstring MemoPath(const std::wstring& notePath);

// "Reminders" and "temp" directly under the root are not the user's folders.
bool IsReservedName(const std::wstring& folderName);

// Where pictures made for e-mail lie, under the documents folder wherever the store is; ends in "\".
std::wstring TemporaryFolder();

}  // namespace store
