#pragma once

#include <string>

#include "app/store/FileStamp.h"

namespace editor {

// Tells when the file of the note that is open was changed by somebody else: another program, or another
// device through the folder that both keep in step.
class NoteWatch {
  public:
    // How often it is worth asking for a file that lies near. Storages that can be away, or slow, are asked
    // only when the note is saved.
    static constexpr uint32_t kPeriod = 2000;  // milliseconds
    static bool IsNear(const std::wstring& notePath);

    // What the file is now is what the page shows. One that can't be seen is what it was.
    void Remember(const std::wstring& notePath);
    // A file that is gone takes nothing away from the page: that is no change.
    bool HasChanged(const std::wstring& notePath) const;

  private:
    store::FileStamp stamp_;
};

}  // namespace editor
