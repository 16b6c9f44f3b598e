#pragma once

#include <string>

// Where the system wants a program's files of this user; no "/" at the end.
namespace platform::qt {

std::string Environment(const char* name);  // empty when there is none

std::string ConfigHome();      // XDG_CONFIG_HOME
std::string ConfigFolder();    // ours below it
std::string DataFolder();      // ours below XDG_DATA_HOME
std::string DocumentsPlace();  // the user's documents; not made here

// A folder of this user alone that lives as long as the session, made when missing. Empty when there is none
// that nobody else can write to.
std::string RuntimeFolder();

// Makes the folder and every level above it that is missing.
void MakeLevels(const std::string& folder);

std::string FolderOf(const std::string& path);  // without "/" at the end, but for the root
std::string NameOf(const std::string& path);
std::string PathIn(const std::string& folder, const std::string& name);

}  // namespace platform::qt
