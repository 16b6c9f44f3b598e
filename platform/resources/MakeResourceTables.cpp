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
bool WriteFiles(std::ostream& out, const char* function, const std::vector<ScriptFile>& files,
                const std::string& folder) {
    std::string entries;
    for (const ScriptFile& file : files) {
        const std::string bytes = ReadFile(folder + "/" + file.name);
        if (bytes.empty()) return false;
        const std::string name = "kFile" + std::to_string(file.id);
        out << "const unsigned char " << name << "[] = {";
        for (size_t i = 0; i < bytes.size(); ++i)
            out << (i % 32 == 0 ? "\n" : "") << static_cast<int>(static_cast<unsigned char>(bytes[i])) << ",";
        out << "};\n";
        entries.append("        {").append(std::to_string(file.id)).append(", ").append(name);
        entries.append(", sizeof ").append(name).append("},\n");
    }
    out << "const std::vector<ResourceFile>& " << function << "() {\n"
        << "    static const std::vector<ResourceFile> files{\n"
        << entries << "    };\n    return files;\n}\n\n";
    return !files.empty();
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 2;
    const std::string folder = arguments[1];
    const Script script = ReadScript(ReadFile(folder + "/inkwright.rc"), ReadFile(folder + "/resource.h"));
    std::ofstream out(arguments[2]);
    out << "#include \"platform/resources/ResourceTables.h\"\n\nnamespace platform::resources {\n\n";
    WriteDialogs(out, script);
    const bool isWhole =
        WriteFiles(out, "Bitmaps", script.bitmaps, folder) && WriteFiles(out, "Icons", script.icons, folder);
    out << "}  // namespace platform::resources\n";
    out.flush();
    if (isWhole && out && !script.dialogs.empty()) return 0;
    std::fprintf(stderr, "%s: incomplete resources\n", folder.c_str());
    return 1;
}
