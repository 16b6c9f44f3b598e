#include "platform/qt/system/CommandText.h"

#include <unistd.h>

#include <QUrl>
#include <filesystem>

#include "platform/qt/system/DiskText.h"
#include "platform/qt/system/HandheldPath.h"

namespace platform::qt {

namespace {

bool Exists(const std::string& path) { return access(path.c_str(), F_OK) == 0; }

// The file that an argument names, absolute; empty when it names none.
std::string FileNamed(const std::string& argument) {
    std::error_code error;
    if (argument.compare(0, 7, "file://") == 0)
        return QUrl(QString::fromStdString(argument)).toLocalFile().toStdString();
    const size_t slash = argument.find('/');
    const bool isPath =
        slash != std::string::npos && (slash > 0 || argument.find('/', 1) != std::string::npos);
    const bool isFile = !argument.empty() && argument[0] != '\\' && (isPath || Exists(argument));
    return isFile ? std::filesystem::absolute(argument, error).string() : std::string();
}

}  // namespace

std::wstring CommandTextOf(const std::vector<std::string>& arguments) {
    std::wstring text;
    for (const std::string& argument : arguments) {
        const std::string file = FileNamed(argument);
        const std::wstring word = file.empty() ? TextFromDisk(argument) : ToHandheldPath(file);
        const bool isQuoted =
            !file.empty() || word.empty() || word[0] == L'\\' || word.find(L' ') != std::wstring::npos;
        text += (text.empty() ? L"" : L" ") + (isQuoted ? L"\"" + word + L"\"" : word);
    }
    return text;
}

std::vector<std::string> SplitCommandText(const std::wstring& text) {
    std::vector<std::string> words;
    std::wstring word;
    bool isQuoted = false;
    bool isWord = false;
    for (const wchar_t c : text + L" ") {
        if (c == L'"') {
            isQuoted = !isQuoted;
            isWord = true;
        } else if (c != L' ' || isQuoted) {
            word += c;
            isWord = true;
        } else if (isWord) {
            words.emplace_back();
            ToDisk(word, words.back());
            word.clear();
            isWord = false;
        }
    }
    return words;
}

}  // namespace platform::qt
