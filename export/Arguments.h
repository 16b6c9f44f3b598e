// What the command line asks for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pictures/PictureOptions.h"

namespace inkexport {

// Paths are the host's own: the bytes of the system on Linux, UTF-8 on Windows.
struct Arguments {
    std::vector<std::string> notes;
    std::string output;  // file or folder; empty: beside each note
    pictures::Format format = pictures::Format::Png;
    pictures::PictureOptions picture;
    int32_t thumbnail = 0;  // longer side of a picture of the head alone, in pixels; 0: the whole note
    bool replaces = false;  // what is there under the name of a picture
    bool showsHelp = false;
    bool showsVersion = false;
};

// False with what is wrong, in words for the user.
bool ParseArguments(const std::vector<std::string>& words, Arguments& arguments, std::string& problem);

}  // namespace inkexport
