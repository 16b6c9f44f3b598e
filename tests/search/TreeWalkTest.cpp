#include <map>
#include <random>

#include "platform/TextEncoding.h"
#include "platform/host/HostTreeView.h"
#include "search/TreeWalk.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::TreeItem;
using search::TreeWalk;
using search::WalkCode;

class Walk : public testing_support::DeskTest, private platform::TreeView::Events, private TreeWalk::Servant {
  protected:
    void SetUp() override { tree_.Create(screen_, 1, {}, {}, *this); }

    // Memos hold small letters only, so that the scan's rule about capitals says nothing here.
    TreeItem Add(TreeItem parent, const std::wstring& name, int image, const std::wstring& memo = L"") {
        const TreeItem item = tree_.Insert(parent, platform::TreeView::Where::Last, name, image, 0);
        std::string bytes;
        platform::ToAnsi(memo, bytes);
        device.files.Put(L"\\r\\" + std::to_wstring(item) + L".txt", bytes);
        memos_[item] = memo;
        return item;
    }

    // What the walk told, as codes and items.
    using Told = std::vector<std::pair<WalkCode, TreeItem>>;

    Told Run(const std::wstring& text, uint8_t options, TreeItem start, int visitsUntilCancel = -1) {
        told_.clear();
        visits_ = 0;
        cancelled_ = visitsUntilCancel == 0;
        visitsUntilCancel_ = visitsUntilCancel;
        TreeWalk(tree_, *this, cancelled_).Run({text, options, L"\\r\\", start});
        return told_;
    }

    // The items in the order of the walk, by recursion; one flagged as having children that has none ends its
    // siblings.
    std::vector<TreeItem> Flattened(TreeItem first) {
        std::vector<TreeItem> order;
        for (TreeItem item = first; item != 0; item = tree_.NextSibling(item)) {
            const std::vector<TreeItem> below = Flattened(tree_.FirstChild(item));
            order.push_back(item);
            order.insert(order.end(), below.begin(), below.end());
            if (tree_.HasChildren(item) && below.empty()) break;
        }
        return order;
    }

    Told Expected(const std::wstring& text, uint8_t options, TreeItem start) {
        const std::vector<TreeItem> order = Flattened(platform::host::HostTree(tree_).First());
        TreeItem selected = tree_.Selection();
        Told told;
        for (auto at = std::find(order.begin(), order.end(), start); at != order.end(); ++at) {
            const TreeItem item = *at;
            const int image = tree_.Image(item);
            if (image >= 10) break;
            const bool isNote = image == 3 || image >= 7;
            const bool isNamed = platform::SmallLetters(tree_.Text(item)).find(text) != std::wstring::npos;
            const bool isInMemo = memos_[item].find(platform::SmallLetters(text)) != std::wstring::npos;
            if (!isNote) {
                told.emplace_back(WalkCode::ScrollToTop, item);
                if (selected != item) told.emplace_back(WalkCode::Select, item);
                selected = item;
                if ((options & search::kFolderNames) && image % 4 != 0 && isNamed) return told;
            } else if (((options & search::kFileNames) && isNamed) ||
                       ((options & search::kTextMemos) && isInMemo)) {
                told.emplace_back(WalkCode::EnsureVisible, item);
                told.emplace_back(WalkCode::Select, item);
                return told;
            }
        }
        told.emplace_back(WalkCode::Finished, 0);
        return told;
    }

    platform::TreeView tree_;
    std::map<TreeItem, std::wstring> memos_;
    std::atomic<bool> cancelled_{true};
    int visits_ = 0;  // how often the walk spoke or asked

  private:
    void Tell(WalkCode code, TreeItem item) override {
        told_.emplace_back(code, item);
        if (code == WalkCode::Select) tree_.Select(item);
        if (++visits_ == visitsUntilCancel_) cancelled_ = true;
    }
    bool RelativePath(TreeItem item, std::wstring& path) override {
        path = std::to_wstring(item);
        if (++visits_ == visitsUntilCancel_) cancelled_ = true;
        return true;
    }

    platform::Screen screen_{platform::Screen::ScrollBar::None};
    Told told_;
    int visitsUntilCancel_ = -1;
};

TEST_F(Walk, FollowsThePlainModelOnGeneratedTreesUntilItIsCancelled) {
    std::mt19937 random(11);
    const auto name = [&random] {
        std::wstring made;
        for (size_t i = 1 + random() % 3; i > 0; --i)
            made += static_cast<wchar_t>((random() % 4 ? L'a' : L'A') + random() % 3);
        return made;
    };
    const std::function<void(TreeItem, int, int)> grow = [&](TreeItem parent, int note, int depth) {
        for (size_t i = random() % 4; i > 0; --i)
            Add(parent, name(), note, random() % 2 ? platform::SmallLetters(name()) : L"");
        for (size_t i = depth == 0 ? 0 : random() % 4; i > 0; --i) {
            const TreeItem folder = Add(parent, name(), note == 3 ? 1 : 5);
            grow(folder, note, depth - 1);
            if (random() % 3 == 0) reinterpret_cast<platform::HostTreeNode*>(folder)->flagged = true;
        }
    };
    for (int round = 0; round < 30; ++round) {
        tree_.RemoveAll();
        grow(Add(0, name(), 0), 3, 3);
        grow(Add(0, name(), 4), 7, 1);
        Add(Add(0, name(), 10), L"abc", 11);
        const std::vector<TreeItem> order = Flattened(platform::host::HostTree(tree_).First());
        for (uint8_t options = 1; options < 8; ++options) {
            const std::wstring text = name();
            const TreeItem start = order[random() % order.size()];
            const TreeItem selected = random() % 2 ? start : 0;
            tree_.Select(selected);
            const Told expected = Expected(text, options, start);
            ASSERT_EQ(Run(text, options, start), expected) << round << " " << int{options};
            // Cancelled at any moment it does at most what belongs to the same item.
            const int all = visits_;
            for (int i = 0; i < all; ++i) {
                tree_.Select(selected);
                const Told told = Run(text, options, start, i);
                ASSERT_LE(visits_, i + 1);
                ASSERT_TRUE(told.empty() || told.back().first != WalkCode::Finished) << i;
            }
        }
    }
    EXPECT_TRUE(Run(L"", search::kFileNames, platform::host::HostTree(tree_).First()).empty());
    EXPECT_TRUE(Run(L"a", search::kFileNames, 0).empty());
}

}  // namespace
