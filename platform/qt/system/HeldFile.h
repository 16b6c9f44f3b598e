#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

#include "platform/qt/system/OwnedFd.h"

// Files as the handheld shares them: whoever has one open says whether others may read it meanwhile. A lock
// on the open file stands for that, so it holds between the programs and within one, and goes with its owner.
namespace platform::qt {

enum class Hold { Shared, Alone };

// Other programs hold a file for moments. Makes `attempt`, which is to leave errno, again for about 300 ms in
// all while EWOULDBLOCK says that a hold makes it fail.
bool TryThroughHolds(const std::function<bool()>& attempt);

// Opens a plain file (never a folder, a device or a pipe) and holds it. On failure errno tells why:
// EWOULDBLOCK when another hold is in the way. What was opened is what the path names when this returns.
OwnedFd OpenHeld(const std::string& path, int flags, Hold hold);

// The same with patience.
OwnedFd OpenHeldPatiently(const std::string& path, int flags, Hold hold);

// Holds what is open already. File systems that know no locks let everybody have everything.
bool TakeHold(int fd, Hold hold);

bool IsSameFile(int fd, const std::string& path);

// True, with errno EACCES, for a file without any permission to write: the handheld's read-only attribute,
// which binds the system's administrator too.
bool IsReadOnly(const std::string& path);

// Renames unless there is something of the new name; then false, with errno EEXIST.
bool RenameToFreeName(const std::string& from, const std::string& to);

// Puts `from`, which is open and held, in the place of the file `to`, which keeps its permissions and further
// attributes. Without such a file it is a RenameToFreeName; a link it leaves alone: errno ELOOP.
bool RenameInPlace(int openFrom, const std::string& from, const std::string& to);

// As far as the file's system has permissions of its own: cards have none.
bool SetPermissions(int fd, mode_t permissions);

bool FlushFolder(const std::string& folder);

bool WriteAll(int fd, const void* bytes, size_t size);

}  // namespace platform::qt
