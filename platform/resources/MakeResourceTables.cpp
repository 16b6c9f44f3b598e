// Writes the tables of ResourceTables.h as source: MakeResourceTables <folder of the script> <output>.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <ostream>

#include "platform/resources/ResourceScript.h"

namespace {

using namespace platform::resources;

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The script's texts are ASCII.
std::string Quoted(const std::string& text) {
    std::string quoted = "L\"";
    for (const char c : text) {
        if (c == '\n') {
            quoted += "\\n";
            continue;
        }
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

void WriteItem(std::ostream& out, const ScriptItem& item) {
    const int* place = item.place;
    out << "            {" << item.id << ", " << Quoted(item.kind) << ", " << Quoted(item.text) << ", "
        << Quoted(item.styles) << ", {" << place[0] << ", " << place[1] << ", " << place[0] + place[2] << ", "
        << place[1] + place[3] << "}},\n";
}

void WriteDialogs(std::ostream& out, const Script& script) {
    out << "const std::vector<DialogTemplate>& Dialogs() {\n"
           "    static const std::vector<DialogTemplate> dialogs{\n";
    for (const ScriptDialog& dialog : script.dialogs) {
        out << "        {" << dialog.id << ", " << Quoted(dialog.caption) << ", " << Quoted(dialog.styles)
            << ", " << dialog.size[0] << ", " << dialog.size[1] << ", {\n";
        for (const ScriptItem& item : dialog.items) WriteItem(out, item);
        out << "        }},\n";
    }
    out << "    };\n    return dialogs;\n}\n\n";
}

// False when a file is not there.
bool WriteBitmaps(std::ostream& out, const Script& script, const std::string& folder) {
    for (const ScriptBitmap& bitmap : script.bitmaps) {
        const std::string bytes = ReadFile(folder + "/" + bitmap.file);
        if (bytes.empty()) return false;
        out << "const unsigned char kBitmap" << bitmap.id << "[] = {";
        for (size_t i = 0; i < bytes.size(); ++i)
            out << (i % 32 == 0 ? "\n" : "") << static_cast<int>(static_cast<unsigned char>(bytes[i])) << ",";
        out << "};\n";
    }
    out << "const std::vector<BitmapFile>& Bitmaps() {\n"
           "    static const std::vector<BitmapFile> bitmaps{\n";
    for (const ScriptBitmap& bitmap : script.bitmaps) {
        const std::string name = "kBitmap" + std::to_string(bitmap.id);
        out << "        {" << bitmap.id << ", " << name << ", sizeof " << name << "},\n";
    }
    out << "    };\n    return bitmaps;\n}\n\n";
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 2;
    const std::string folder = arguments[1];
    const Script script = ReadScript(ReadFile(folder + "/inkwright.rc"), ReadFile(folder + "/resource.h"));
    std::ofstream out(arguments[2]);
    out << "#include \"platform/resources/ResourceTables.h\"\n\nnamespace platform::resources {\n\n";
    WriteDialogs(out, script);
    const bool isWhole = WriteBitmaps(out, script, folder);
    out << "}  // namespace platform::resources\n";
    out.flush();
    if (isWhole && out && !script.dialogs.empty() && !script.bitmaps.empty()) return 0;
    std::fprintf(stderr, "%s: incomplete resources\n", folder.c_str());
    return 1;
}
