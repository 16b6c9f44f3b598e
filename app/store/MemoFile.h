#pragma once

#include <string>

namespace platform {
class Window;
}

namespace store {

// The text memo of a note on disk: the text in the system's ANSI code page and nothing else, lines ending in
// CR LF. An empty memo has no file. Characters that the code page lacks become its default character.
class MemoFile {
  public:
    explicit MemoFile(std::wstring path) : path_(std::move(path)) {}

    // The text that can be shown; empty when there is no memo. What fails is told to the user over `owner`,
    // but for a file that can't be opened: that reads as empty.
    std::wstring Read(platform::Window* owner);
    // Replaces the memo by a text that is not empty. False when that failed, which the user was told; the
    // memo is then what it was when it was read. What Read could not show stays behind the text.
    bool Write(platform::Window* owner, const std::wstring& text);
    // The same without a word to the user, and not over a file that Read could not read.
    bool WriteQuietly(const std::wstring& text);
    // False, and the user knows, when the file is still there.
    bool Erase(platform::Window* owner);

    // Asked before a text replaces the file. `unseen`: the file holds something that Read did not give and
    // that would be lost. False when a file that could not be read takes no text either, which the user was
    // told.
    bool MayReplace(platform::Window* owner, const std::wstring& text, bool& unseen) const;

  private:
    enum class Result { Done, Failed, OutOfMemory };

    Result ReadBytes(std::string& bytes);
    Result WriteBytes(const std::wstring& text);
    Result TryToWrite(const std::wstring& text);

    std::wstring path_;
    std::string
        rest_;  // of the file as it was read, what can't be shown: no text control shows what follows a zero
    bool isUnread_ = false;
};

}  // namespace store
