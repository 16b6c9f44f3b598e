#include "editor/NoteWatch.h"

#include "platform/StoragePaths.h"

namespace editor {

bool NoteWatch::IsNear(const std::wstring& notePath) { return platform::StorageOf(notePath).empty(); }

void NoteWatch::Remember(const std::wstring& notePath) {
    const store::FileStamp now = store::StampOf(notePath);
    if (now.exists) stamp_ = now;
}

bool NoteWatch::HasChanged(const std::wstring& notePath) const {
    const store::FileStamp now = store::StampOf(notePath);
    return now.exists && !(now == stamp_);
}

}  // namespace editor
