#include "app/store/MemoFile.h"

#include <new>

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
            result = ReadBytes(before_);
            const size_t end = result == Result::Done ? before_.find('\0') : 0;
            if (end < before_.size()) rest_ = before_.substr(end);
            const bool isText = platform::FromAnsi(before_.substr(0, end), text);
            if (!isText) result = Result::OutOfMemory;
        } catch (const std::bad_alloc&) {
            result = Result::OutOfMemory;
        }
    }
    isUnread_ = isUnread_ || result != Result::Done;
    if (isUnread_) {
        existed_ = false;  // as far as it could be brought back
        text.clear();
        before_.clear();
        rest_.clear();
    }
    if (result == Result::Failed) ShowFailure(owner, L"Reading Text Memo Failed!");
    if (result == Result::OutOfMemory) platform::ShowOutOfMemory(owner);
    return text;
}

MemoFile::Result MemoFile::ReadBytes(std::string& bytes) {
    platform::File file = platform::File::OpenForReading(path_);
    existed_ = file.IsOpen();
    isUnread_ = !file.IsOpen() && store::IsFile(path_);
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
    Result result = Result::Done;
    {
        const platform::WaitCursor wait;
        try {
            result = WriteBytes(text);
        } catch (const std::bad_alloc&) {
            result = Result::OutOfMemory;
        }
    }
    if (result == Result::OutOfMemory) platform::ShowOutOfMemory(owner);
    if (result == Result::Failed) ShowFailure(owner, kSaveFailed);
    return result == Result::Done;
}

// The bytes are ready before the file is emptied: short memory costs no memo.
MemoFile::Result MemoFile::WriteBytes(const std::wstring& text) {
    std::string bytes;
    if (!platform::ToAnsi(text, bytes)) return Result::OutOfMemory;
    bytes += rest_;
    platform::File file = platform::File::Create(path_);
    if (!file.IsOpen()) return Result::Failed;
    if (file.Write(bytes.data(), bytes.size())) return Result::Done;
    file.Close();
    Restore();
    return Result::Failed;
}

// There was room for it before.
void MemoFile::Restore() const {
    if (!existed_) {
        platform::EraseFile(path_);
        return;
    }
    platform::File file = platform::File::Create(path_);
    if (file.IsOpen()) file.Write(before_.data(), before_.size());
}

void MemoFile::Erase() {
    platform::EraseFile(path_);
    before_.clear();
    rest_.clear();
    existed_ = isUnread_ = false;
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
