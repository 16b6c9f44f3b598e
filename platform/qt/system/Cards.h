#pragma once

#include <string>
#include <vector>

// Removable media as the desktop mounts them for the user: the handheld's storage cards.
namespace platform::qt {

// The mount points among the lines of /proc/self/mountinfo that are removable media of this user, sorted.
std::vector<std::string> RemovableMounts(const std::string& mountInfo, const std::string& user);

// Which card is which. One that has gone keeps its place, and so its name: the next one must not be taken for
// it.
class CardTable {
  public:
    void Update(const std::vector<std::string>& mounts);
    // By index; empty for one that is not in.
    std::string Folder(size_t index) const;
    size_t Count() const { return folders_.size(); }

  private:
    std::vector<std::string> folders_;
    std::vector<std::string> present_;
};

// Of this machine, now.
CardTable CardsNow();

}  // namespace platform::qt
