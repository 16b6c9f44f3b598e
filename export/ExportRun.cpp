#include <algorithm>
#include <cmath>
#include <exception>
#include <map>

#include "export/Arguments.h"
#include "export/HostFiles.h"
#include "ink/InkPainter.h"
#include "pictures/NoteInk.h"
#include "pictures/Pictures.h"
#include "platform/OutputFile.h"
#include "res/version.h"

namespace inkexport {

namespace {

using pictures::Format;
using pictures::PictureResult;
using pictures::PictureSize;
using platform::OutputFault;
using platform::OutputFile;

constexpr int kDone = 0;
constexpr int kSomeFailed = 1;
constexpr int kWrongUse = 2;
constexpr int32_t kWidestThumbnail = 1000;  // page pixels; what is to the right of them is left out

const char* const kHelp =
    "Usage: inkwright-export [options] NOTE...\n"
    "Makes a picture of each note, for people without Inkwright.\n"
    "\n"
    "  -o, --output FILE|FOLDER  where to; beside each note unless told\n"
    "      --format png|svg|pdf  what of; by the name of FILE, or png\n"
    "      --scale N             0.25 to 5; 1 is 96 pixels to the inch\n"
    "      --style STYLE         smooth (unless told), classic or simple\n"
    "      --size N              of the pen, 0.1 to 25.5 pixels; 1 unless told\n"
    "      --paper SIZE          of a pdf: a4 (unless told), a3, a5, letter or legal\n"
    "      --force               replace pictures that are there already\n"
    "      --thumbnail SIZE      the head of the note, SIZE pixels wide or high\n"
    "      --help, --version\n"
    "\n"
    "Exit status: 0 all done, 1 some notes failed, 2 wrong use.\n";

void Complain(const std::string& text) { PrintError("inkwright-export: " + text + "\n"); }

// A line that takes the place of the last one, as long as somebody looks.
class Progress {
  public:
    explicit Progress(size_t count) : count_(count), isSeen_(count > 1 && ErrorsAreSeen()) {}
    ~Progress() { Wipe(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Next(const std::string& note) {
        Wipe();
        ++done_;
        if (isSeen_) PrintError(std::to_string(done_) + " of " + std::to_string(count_) + ": " + note);
    }
    void Wipe() const {
        if (isSeen_) PrintError("\r\x1b[K");
    }

  private:
    size_t count_;
    size_t done_ = 0;
    bool isSeen_;
};

std::string FileNameOf(const std::string& path) {
    const auto start = std::find_if(path.rbegin(), path.rend(), IsSeparator).base();
    return std::string(start, path.end());
}

std::string WithEnding(const std::string& path, Format format) {
    const size_t nameAt = path.size() - FileNameOf(path).size();
    const size_t dot = path.rfind('.');
    const bool hasEnding = dot != std::string::npos && dot > nameAt;
    return path.substr(0, hasEnding ? dot : path.size()) + pictures::EndingOf(format);
}

std::string OutputOf(const std::string& note, const Arguments& arguments, bool toFolder) {
    if (arguments.output.empty()) return WithEnding(note, arguments.format);
    if (!toFolder) return arguments.output;
    const std::string between = IsSeparator(arguments.output.back()) ? "" : "/";
    return arguments.output + between + WithEnding(FileNameOf(note), arguments.format);
}

// The head of a note, scaled to the size that is asked for.
void CutToThumbnail(Arguments& arguments, PictureSize& size) {
    size.width = std::min(size.width, kWidestThumbnail);
    size.height = std::min(size.height, size.width);
    const double scale = 1.0 * arguments.thumbnail / size.width;
    // As painting will do it, but rounded down: a thumbnail must not be larger than it is to be.
    const double steps = ink::Scale::kPageDots * std::ceil(1 / std::min(scale, 1.0));
    arguments.picture.scale = std::floor(scale * steps) / steps;
}

std::string TextOf(const OutputFault& fault) {
    return fault.text + (fault.isThere ? "; --force replaces it" : "");
}

// Empty, or what is wrong with the note.
std::string ExportNote(const std::string& note, const std::string& output, Arguments arguments) {
    std::string problem;
    const std::unique_ptr<ink::ByteSource> source = OpenNote(note, problem);
    if (!source) return note + ": " + problem;
    pictures::LoadedNote loaded;
    ink::InkPainter pen;
    PictureSize size;
    if (!pen.SetPen(arguments.picture.style, arguments.picture.size)) throw std::bad_alloc();
    if (!loaded.Load(*source, problem)) return note + ": " + problem;
    const ink::InkPage& page = loaded.Page();
    if (!pictures::MeasureNote(page, pen.Reach(), size, problem)) return note + ": " + problem;
    if (arguments.thumbnail != 0) CutToThumbnail(arguments, size);
    OutputFault fault;
    const std::unique_ptr<OutputFile> file = OutputFile::Create(output, arguments.replaces, fault);
    if (!file) return output + ": " + TextOf(fault);
    if (WritePicture(arguments.format, page, size, arguments.picture, *file) == PictureResult::TooLarge)
        return note + ": its picture would be too large; try a smaller --scale";
    return file->PutInPlace(fault) ? "" : output + ": " + TextOf(fault);
}

std::string ExportWithMemory(const std::string& note, const std::string& output, const Arguments& arguments) {
    try {
        return ExportNote(note, output, arguments);
    } catch (const std::exception&) {
        return note + ": memory is too short for it";
    }
}

std::string IsTaken(const std::string& note, const std::string& output, const std::string& earlier) {
    return note + ": " + output + " is the picture of " + earlier;
}

int ExportAll(const Arguments& arguments) {
    const bool toFolder =
        !arguments.output.empty() && (IsFolder(arguments.output) || IsSeparator(arguments.output.back()));
    if (arguments.notes.size() > 1 && !arguments.output.empty() && !toFolder) {
        Complain(arguments.output + ": several notes need a folder");
        return kWrongUse;
    }
    int result = kDone;
    Progress progress(arguments.notes.size());
    std::map<std::string, std::string> noteOf;  // pictures of this run, which not even --force replaces
    for (const std::string& note : arguments.notes) {
        progress.Next(note);
        const std::string output = OutputOf(note, arguments, toFolder);
        const auto [earlier, isNew] = noteOf.emplace(output, note);
        const std::string problem =
            isNew ? ExportWithMemory(note, output, arguments) : IsTaken(note, output, earlier->second);
        if (problem.empty()) continue;
        progress.Wipe();
        Complain(problem);
        result = kSomeFailed;
    }
    return result;
}

}  // namespace

int RunExport(const std::vector<std::string>& words) {
    Arguments arguments;
    std::string problem;
    if (!ParseArguments(words, arguments, problem)) {
        Complain(problem + "\nTry inkwright-export --help.");
        return kWrongUse;
    }
    if (arguments.showsHelp || arguments.showsVersion) {
        Print(arguments.showsHelp ? kHelp : "inkwright-export " INKWRIGHT_VERSION "\n");
        return kDone;
    }
    return ExportAll(arguments);
}

}  // namespace inkexport
