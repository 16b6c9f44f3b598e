#pragma once

#include <string>

// The files of the mail program; paths are the host's.
namespace platform::windows {

// What stands behind the last "\", and all before it with that "\".
std::wstring NameOf(const std::wstring& path);
std::wstring FolderOf(const std::wstring& path);

// The system's folder for temporary files, with a "\" at its end; empty on failure.
std::wstring TemporaryFolder();

// False when the file is not there, can't be read to its end, or memory is short.
bool ReadWholeFile(const std::wstring& path, std::string& bytes);

// Writes a message to `path`. A file there is replaced when it is a message made by us, and kept otherwise.
// Leaves nothing half written.
bool WriteMessageFile(const std::wstring& path, const std::string& message);

// Deletes our messages in a folder that are older than a day. Only those of notes, and nobody else's.
void DeleteOldMessages(const std::wstring& folder);

}  // namespace platform::windows
