#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "platform/TreeView.h"

namespace search {

// What is searched, as `SearchOpt` stores it.
enum SearchOption : uint8_t { kFileNames = 1, kFolderNames = 2, kTextMemos = 4 };

// Private messages of a walk to its dialog; the payload is a tree item.
enum class WalkCode : uint32_t {
    Done = 100,  // posted, the last one
    OutOfMemory = 101,
    Finished = 111,  // nothing more was found
    Select = 112,
    ScrollToTop = 113,
    EnsureVisible = 114,
    RelativePath = 115,
};

// The item after `item` in the order of the walk, children before siblings; 0 at the end. An item flagged as
// having children that has none yet is followed by its parent's next sibling: so the handheld walked, and
// pressing Next there must go the same way.
platform::TreeItem NextInWalk(const platform::TreeView& tree, platform::TreeItem item);

// A walk over the manager's tree from one item to the first that matches. The tree's kinds of items are told
// by their images.
class TreeWalk {
  public:
    // What the walk asks of the thread that has the tree; each returns when it is done.
    class Servant {
      public:
        virtual ~Servant() = default;
        virtual void Tell(WalkCode code, platform::TreeItem item) = 0;
        // Path of a note relative to the root, without extension; false when it has none.
        virtual bool RelativePath(platform::TreeItem item, std::wstring& path) = 0;
    };

    struct Request {
        std::wstring text;
        uint8_t options = 0;
        std::wstring rootPrefix;
        platform::TreeItem start = 0;
    };

    TreeWalk(const platform::TreeView& tree, Servant& servant, const std::atomic<bool>& cancelled);

    // Ends at the first match, at the end of the tree, or once cancelled.
    void Run(const Request& request);

  private:
    class Visit;

    const platform::TreeView& tree_;
    Servant& servant_;
    const std::atomic<bool>& cancelled_;
};

}  // namespace search
