#include <functional>
#include <memory>
#include <random>

#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "platform/host/HostTreeView.h"
#include "search/TreeWalk.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::TreeItem;
using search::TreeWalk;
using search::WalkCode;

// A store as a plain recursive structure.
struct Model {
    std::wstring name;
    int image = 0;
    std::wstring memo;
    bool flagged = false;
    std::vector<std::unique_ptr<Model>> children;
    TreeItem item = 0;
    Model* parent = nullptr;
};

class Walk : public testing_support::DeskTest, private platform::TreeView::Events, private TreeWalk::Servant {
  protected:
    void SetUp() override { tree_.Create(screen_, 1, {}, {}, *this); }

    Model& Add(Model* parent, const std::wstring& name, int image, const std::wstring& memo = L"") {
        auto made = std::make_unique<Model>();
        made->name = name;
        made->image = image;
        made->memo = memo;
        made->parent = parent;
        made->item = tree_.Insert(parent ? parent->item : 0, platform::TreeView::Where::Last, name, image, 0);
        auto& among = parent ? parent->children : roots_;
        among.push_back(std::move(made));
        Model& model = *among.back();
        std::string bytes;
        platform::ToAnsi(memo, bytes);
        const std::wstring path = L"\\r\\" + PathOf(model) + L".txt";
        platform::EraseFile(path);  // an earlier tree may have had the same item
        if (!memo.empty()) device.files.Put(path, bytes);
        return model;
    }
    void Flag(Model& model) {
        model.flagged = true;
        reinterpret_cast<platform::HostTreeNode*>(model.item)->flagged = true;
    }

    // Memos hold small letters only, so that the scan's rule about capitals says nothing here. Item numbers
    // make names unique, so that each memo has a file of its own.
    static std::wstring PathOf(const Model& model) { return std::to_wstring(model.item); }

    // What the walk told, as codes and items.
    using Told = std::vector<std::pair<WalkCode, TreeItem>>;

    Told Run(const std::wstring& text, uint8_t options, TreeItem start, int tellsUntilCancel = -1) {
        told_.clear();
        visits_ = 0;
        cancelled_ = tellsUntilCancel == 0;
        tellsUntilCancel_ = tellsUntilCancel;
        TreeWalk(tree_, *this, cancelled_).Run({text, options, L"\\r\\", start});
        return told_;
    }

    // The items in the order of the walk, by recursion; a flagged item without children ends its siblings.
    static void Flatten(const std::vector<std::unique_ptr<Model>>& among, std::vector<const Model*>& order) {
        for (const auto& model : among) {
            order.push_back(model.get());
            Flatten(model->children, order);
            if (model->flagged && model->children.empty() && model->parent) return;
        }
    }

    Told Expected(const std::wstring& text, uint8_t options, TreeItem start) {
        std::vector<const Model*> order;
        Flatten(roots_, order);
        TreeItem selected = tree_.Selection();
        Told told;
        bool begun = false;
        for (const Model* model : order) {
            begun = begun || model->item == start;
            if (!begun) continue;
            if (model->image >= 10) break;
            const bool isNote = model->image == 3 || model->image >= 7;
            const bool named = platform::SmallLetters(model->name).find(text) != std::wstring::npos;
            if (!isNote) {
                told.emplace_back(WalkCode::ScrollToTop, model->item);
                if (selected != model->item) told.emplace_back(WalkCode::Select, model->item);
                selected = model->item;
                if ((options & search::kFolderNames) && model->image % 4 != 0 && named) return told;
                continue;
            }
            const bool inMemo = model->memo.find(platform::SmallLetters(text)) != std::wstring::npos;
            if (!(((options & search::kFileNames) && named) || ((options & search::kTextMemos) && inMemo)))
                continue;
            told.emplace_back(WalkCode::EnsureVisible, model->item);
            told.emplace_back(WalkCode::Select, model->item);
            return told;
        }
        told.emplace_back(WalkCode::Finished, 0);
        return told;
    }

    platform::TreeView tree_;
    std::vector<std::unique_ptr<Model>> roots_;
    std::atomic<bool> cancelled_{true};
    int visits_ = 0;  // how often the walk spoke or asked

  private:
    void Visited() {
        ++visits_;
        if (visits_ == tellsUntilCancel_) cancelled_ = true;
    }
    void Tell(WalkCode code, TreeItem item) override {
        told_.emplace_back(code, item);
        if (code == WalkCode::Select) tree_.Select(item);
        Visited();
    }
    bool RelativePath(TreeItem item, std::wstring& path) override {
        path = std::to_wstring(item);
        Visited();
        return true;
    }

    platform::Screen screen_{platform::Screen::ScrollBar::None};
    Told told_;
    int tellsUntilCancel_ = -1;
};

TEST_F(Walk, FollowsThePlainModelOnGeneratedTrees) {
    std::mt19937 random(11);
    const auto name = [&random] {
        std::wstring made;
        for (size_t i = 1 + random() % 3; i > 0; --i)
            made += static_cast<wchar_t>((random() % 4 ? L'a' : L'A') + random() % 3);
        return made;
    };
    std::vector<const Model*> order;
    const std::function<void(Model&, int, int)> grow = [&](Model& parent, int note, int depth) {
        for (size_t i = random() % 4; i > 0; --i)
            Add(&parent, name(), note, random() % 2 ? platform::SmallLetters(name()) : L"");
        if (depth == 0) return;
        for (size_t i = random() % 4; i > 0; --i) {
            Model& folder = Add(&parent, name(), note == 3 ? 1 : 5);
            grow(folder, note, depth - 1);
            if (folder.children.empty() && random() % 3 == 0) Flag(folder);
        }
    };
    for (int round = 0; round < 30; ++round) {
        tree_.RemoveAll();
        roots_.clear();
        grow(Add(nullptr, L"Notes", 0), 3, 3);
        grow(Add(nullptr, L"Reminders", 4), 7, 1);
        Add(&Add(nullptr, L"Alarms", 10), L"abc", 11);
        order.clear();
        Flatten(roots_, order);
        for (uint8_t options = 1; options < 8; ++options) {
            const std::wstring text = name();
            const TreeItem start = order[random() % order.size()]->item;
            tree_.Select(random() % 2 ? start : 0);
            const Told expected = Expected(text, options, start);
            ASSERT_EQ(Run(text, options, start), expected) << round << " " << int{options};
        }
    }
}

TEST_F(Walk, CanBeCancelledAtEveryItem) {
    Model& notes = Add(nullptr, L"Notes", 0);
    for (int i = 0; i < 5; ++i) {
        Model& folder = Add(&notes, L"f", 1);
        for (int j = 0; j < 5; ++j) Add(&folder, L"n", 3, L"memo");
    }
    Run(L"none", search::kTextMemos, notes.item);
    const int all = visits_;
    EXPECT_GT(all, 30);
    for (int i = 0; i < all; ++i) {
        const Told told = Run(L"none", search::kTextMemos, notes.item, i);
        EXPECT_LE(visits_, i + 1) << "at most what belongs to the same item";
        EXPECT_TRUE(told.empty() || told.back().first != WalkCode::Finished) << i;
    }
}

TEST_F(Walk, NamesAreFoldedTextsAreNot) {
    Model& notes = Add(nullptr, L"Notes", 0);
    Model& note = Add(&notes, L"Meeting notes", 3);
    const Told found{{WalkCode::EnsureVisible, note.item}, {WalkCode::Select, note.item}};
    EXPECT_EQ(Run(L"meeting", search::kFileNames, note.item), found);
    EXPECT_EQ(Run(L"Meeting", search::kFileNames, note.item), (Told{{WalkCode::Finished, 0}}));
    EXPECT_TRUE(Run(L"", search::kFileNames, note.item).empty());
    EXPECT_TRUE(Run(L"meeting", search::kFileNames, 0).empty());
}

}  // namespace
