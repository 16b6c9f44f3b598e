// What the command line asks for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ink/PenStyle.h"

namespace inkexport {

enum class Format { Png, Svg, Pdf };

// In points, of which an inch has 72.
struct Paper {
    double width;
    double height;
};

// Paths are the host's own: the bytes of the system on Linux, UTF-8 on Windows.
struct Arguments {
    std::vector<std::string> notes;
    std::string output;  // file or folder; empty: beside each note
    Format format = Format::Png;
    double scale = 1;  // of a page pixel, which measures 1/96 inch
    ink::PenStyle style = ink::PenStyle::Smooth;
    double size = 1;  // of the pen, in page pixels
    Paper paper{};
    int32_t thumbnail = 0;  // longer side of a picture of the head alone, in pixels; 0: the whole note
    bool replaces = false;  // what is there under the name of a picture
    bool showsHelp = false;
    bool showsVersion = false;
};

// ".png", ".svg" or ".pdf".
const char* EndingOf(Format format);

// False with what is wrong, in words for the user.
bool ParseArguments(const std::vector<std::string>& words, Arguments& arguments, std::string& problem);

}  // namespace inkexport
