#pragma once

#include <atomic>
#include <string>
#include <vector>

namespace search {

enum class MemoResult { NotFound, Found, OutOfMemory };

// Looks for one text in memo files, byte by byte in the system's ANSI code page; only the 26 letters A to Z
// fold. A memo is looked through in windows of 1024 bytes (or of the text's length, when that is longer). In
// a window the capital first letter is looked for only where no small one is left: an occurrence that begins
// with the capital before a later small one is passed over, as the handheld always did.
class MemoSearch {
  public:
    // An empty text is found nowhere.
    explicit MemoSearch(const std::string& text);

    // A memo that can't be opened or read holds nothing. Ends early, without a find, once `cancelled` is set.
    MemoResult LookIn(const std::wstring& path, const std::atomic<bool>& cancelled);

  private:
    struct WindowResult {
        bool found = false;
        size_t carry = 0;  // last bytes of the window, to be looked at again with what follows them
    };
    WindowResult LookAt(const char* bytes, size_t size, const std::atomic<bool>& cancelled) const;
    bool IsTextAt(const char* bytes) const;

    std::string text_;  // small letters
    char capital_ = 0;  // of its first letter; the first letter itself when that has none
    size_t windowSize_;
    std::vector<char> buffer_;
};

}  // namespace search
