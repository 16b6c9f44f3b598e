#include "search/TreeWalk.h"

#include "app/store/NodeKind.h"
#include "platform/TextEncoding.h"
#include "search/MemoSearch.h"

namespace search {

namespace {

using platform::TreeItem;
using store::NodeKind;

bool IsTop(NodeKind kind) { return kind == NodeKind::NotesTop || kind == NodeKind::RemindersTop; }

std::string AnsiOf(const std::wstring& text) {
    std::string bytes;
    return platform::ToAnsi(text, bytes) ? bytes : std::string();
}

}  // namespace

TreeItem NextInWalk(const platform::TreeView& tree, TreeItem item) {
    const TreeItem next = tree.HasChildren(item) ? tree.FirstChild(item) : tree.NextSibling(item);
    if (next != 0) return next;
    for (TreeItem above = tree.Parent(item); above != 0; above = tree.Parent(above)) {
        if (const TreeItem sibling = tree.NextSibling(above)) return sibling;
    }
    return 0;
}

// One walk's visits to items.
class TreeWalk::Visit {
  public:
    Visit(const TreeWalk& walk, const Request& request)
        : walk_(walk), request_(request), memos_(AnsiOf(request.text)) {}

    bool Matches(TreeItem item, NodeKind kind) {
        return IsNoteKind(kind) ? NoteMatches(item) : FolderMatches(item, kind);
    }

  private:
    // The name is folded, the text is not: a text with capitals matches no name.
    bool NameMatches(TreeItem item) const {
        return platform::SmallLetters(walk_.tree_.Text(item)).find(request_.text) != std::wstring::npos;
    }

    // Selecting a folder makes the manager read its children, which the walk then visits.
    bool FolderMatches(TreeItem item, NodeKind kind) {
        walk_.servant_.Tell(WalkCode::ScrollToTop, item);
        if (!walk_.tree_.IsSelected(item)) walk_.servant_.Tell(WalkCode::Select, item);
        return (request_.options & kFolderNames) != 0 && !IsTop(kind) && NameMatches(item);
    }

    bool NoteMatches(TreeItem item) {
        const bool matches = ((request_.options & kFileNames) != 0 && NameMatches(item)) ||
                             ((request_.options & kTextMemos) != 0 && MemoMatches(item));
        if (!matches) return false;
        walk_.servant_.Tell(WalkCode::EnsureVisible, item);
        walk_.servant_.Tell(WalkCode::Select, item);
        return true;
    }

    bool MemoMatches(TreeItem item) {
        std::wstring path;
        if (!walk_.servant_.RelativePath(item, path)) return false;
        const MemoResult result = memos_.LookIn(request_.rootPrefix + path + L".txt", walk_.cancelled_);
        if (result == MemoResult::OutOfMemory) walk_.servant_.Tell(WalkCode::OutOfMemory, 0);
        return result == MemoResult::Found;
    }

    const TreeWalk& walk_;
    const Request& request_;
    MemoSearch memos_;
};

TreeWalk::TreeWalk(const platform::TreeView& tree, Servant& servant, const std::atomic<bool>& cancelled)
    : tree_(tree), servant_(servant), cancelled_(cancelled) {}

void TreeWalk::Run(const Request& request) {
    if (request.text.empty() || request.start == 0) return;
    Visit visit(*this, request);
    for (TreeItem item = request.start; item != 0 && !cancelled_; item = NextInWalk(tree_, item)) {
        const auto kind = static_cast<NodeKind>(tree_.Image(item));
        if (kind < NodeKind::NotesTop || kind >= NodeKind::AlarmsTop) break;
        if (visit.Matches(item, kind)) return;
    }
    if (!cancelled_) servant_.Tell(WalkCode::Finished, 0);
}

}  // namespace search
