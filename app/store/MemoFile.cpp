#include "app/store/MemoFile.h"

#include <new>

#include "app/store/SafeFile.h"
#include "app/store/StorePaths.h"
#include "platform/File.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/TextEncoding.h"

namespace store {

namespace {

// What the conversion between encodings can count.
constexpr uint64_t kLargestFile = 0x3FFFFFFF;

constexpr wchar_t kSaveFailed[] =
    L"Saving Text Memo Failed! Please make sure that the selected storage device has enough free space.";

void ShowFailure(platform::Window* owner, const wchar_t* text) {
    platform::ShowMessage(owner, text, L"Error", platform::MessageButtons::Ok, platform::MessageIcon::Error);
}

}  // namespace

std::wstring MemoFile::Read(platform::Window* owner) {
    std::wstring text;
    Result result = Result::Done;
    {
        const platform::WaitCursor wait;
        try {
            std::string bytes;
            result = ReadBytes(bytes);
            const size_t end = result == Result::Done ? bytes.find('\0') : 0;
            if (end < bytes.size()) rest_ = bytes.substr(end);
            const bool isText = platform::FromAnsi(bytes.substr(0, end), text);
            if (!isText) result = Result::OutOfMemory;
        } catch (const std::bad_alloc&) {
            result = Result::OutOfMemory;
        }
    }
    isUnread_ = isUnread_ || result != Result::Done;
    if (isUnread_) {
        text.clear();
        rest_.clear();
    }
    if (result == Result::Failed) ShowFailure(owner, L"Reading Text Memo Failed!");
    if (result == Result::OutOfMemory) platform::ShowOutOfMemory(owner);
    return text;
}

MemoFile::Result MemoFile::ReadBytes(std::string& bytes) {
    platform::File file = platform::File::OpenForReading(path_);
    // On a card that is away there may be one.
    isUnread_ = !file.IsOpen() && !platform::IsGone(path_);
    uint64_t size = 0;
    if (!file.IsOpen()) return Result::Done;
    if (!file.Size(size)) {
        isUnread_ = true;
        return Result::Done;
    }
    if (size > kLargestFile) return Result::OutOfMemory;
    bytes.resize(static_cast<size_t>(size));
    size_t got = 0;
    if (!file.Read(bytes.data(), bytes.size(), got)) return Result::Failed;
    bytes.resize(got);
    return Result::Done;
}

bool MemoFile::Write(platform::Window* owner, const std::wstring& text) {
    const Result result = TryToWrite(text);
    if (result == Result::OutOfMemory) platform::ShowOutOfMemory(owner);
    if (result == Result::Failed) ShowFailure(owner, kSaveFailed);
    return result == Result::Done;
}

bool MemoFile::WriteQuietly(const std::wstring& text) {
    return !isUnread_ && TryToWrite(text) == Result::Done;
}

MemoFile::Result MemoFile::TryToWrite(const std::wstring& text) {
    const platform::WaitCursor wait;
    try {
        return WriteBytes(text);
    } catch (const std::bad_alloc&) {
        return Result::OutOfMemory;
    }
}

MemoFile::Result MemoFile::WriteBytes(const std::wstring& text) {
    std::string bytes;
    if (!platform::ToAnsi(text, bytes)) return Result::OutOfMemory;
    bytes += rest_;
    SafeFile file = SafeFile::At(path_);
    const bool isWritten = file.IsOpen() && file.Write(bytes.data(), bytes.size()) && file.Commit();
    return isWritten ? Result::Done : Result::Failed;
}

bool MemoFile::Erase(platform::Window* owner) {
    if (!platform::EraseFile(path_) && !platform::IsGone(path_)) {
        ShowFailure(owner, L"Deleting Text Memo Failed!");
        return false;
    }
    rest_.clear();
    isUnread_ = false;
    return true;
}

// What stays behind the text is lost only with the whole file.
bool MemoFile::MayReplace(platform::Window* owner, const std::wstring& text, bool& unseen) const {
    unseen = text.empty() && !rest_.empty();
    if (!isUnread_ || !store::IsFile(path_)) return true;
    uint64_t bytes = 0;
    if (!platform::CanWriteTo(path_, bytes)) {
        ShowFailure(owner, kSaveFailed);
        return false;
    }
    unseen = bytes > 0;
    return true;
}

}  // namespace store
