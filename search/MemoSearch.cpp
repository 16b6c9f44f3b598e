#include "search/MemoSearch.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "platform/File.h"

namespace search {

namespace {

constexpr size_t kWindow = 1024;
constexpr size_t kPiece = 64 * 1024;  // read at once: many windows

char Small(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 'a' - 'A') : byte; }
char Capital(char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte; }

const char* FindByte(const char* bytes, char byte, size_t size) {
    return static_cast<const char*>(std::memchr(bytes, static_cast<unsigned char>(byte), size));
}

}  // namespace

MemoSearch::MemoSearch(const std::string& text) : text_(text), windowSize_(std::max(kWindow, text.size())) {
    std::transform(text_.begin(), text_.end(), text_.begin(), Small);
    if (!text_.empty()) capital_ = Capital(text_.front());
}

// Windows follow one another within the buffer; what a window leaves for the next one simply stays there.
MemoResult MemoSearch::LookIn(const std::wstring& path, const std::atomic<bool>& cancelled) try {
    if (path.empty() || text_.empty()) return MemoResult::NotFound;
    buffer_.resize(std::max(kPiece, 2 * windowSize_));
    platform::File file = platform::File::OpenForReading(path, platform::File::Share::Read);
    if (!file.IsOpen()) return MemoResult::NotFound;
    size_t begin = 0;
    size_t end = 0;
    size_t carry = 0;
    for (bool atEnd = false; !cancelled;) {
        if (end - begin < windowSize_ && !atEnd) {
            std::memmove(buffer_.data(), buffer_.data() + begin, end - begin);
            end -= begin;
            begin = 0;
            size_t got = 0;
            atEnd = !file.Read(buffer_.data() + end, buffer_.size() - end, got) || end + got < buffer_.size();
            end += got;
        }
        const size_t size = std::min(windowSize_, end - begin);
        if (size <= carry) break;  // nothing new
        const WindowResult result = LookAt(buffer_.data() + begin, size, cancelled);
        if (result.found) return MemoResult::Found;
        carry = result.carry;
        begin += size - carry;
    }
    return MemoResult::NotFound;
} catch (const std::bad_alloc&) {
    return MemoResult::OutOfMemory;
}

MemoSearch::WindowResult MemoSearch::LookAt(const char* bytes, size_t size,
                                            const std::atomic<bool>& cancelled) const {
    const char* const end = bytes + size;
    char first = text_.front();
    for (const char* from = bytes; from < end && !cancelled.load(std::memory_order_relaxed);) {
        const char* at = FindByte(from, first, static_cast<size_t>(end - from));
        if (at == nullptr && first == capital_) break;
        if (at == nullptr) {
            first = capital_;  // no small one is left
            continue;
        }
        const auto rest = static_cast<size_t>(end - at);
        if (rest < text_.size()) return {false, rest};
        if (IsTextAt(at)) return {true, 0};
        from = at + 1;
    }
    return {};
}

bool MemoSearch::IsTextAt(const char* bytes) const {
    for (size_t i = 1; i < text_.size(); ++i) {
        if (Small(bytes[i]) != text_[i]) return false;
    }
    return true;
}

}  // namespace search
