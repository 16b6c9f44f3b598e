#include <utility>

#include "platform/TreeView.h"
#include "tests/contract/Recording.h"

using namespace contract;
using namespace platform;

namespace {

constexpr auto kLast = TreeView::Where::Last;
constexpr Rect kPlace{10, 20, 210, 320};

// Two folders, the first with three notes; the tree's events are written down, items by their data.
class TreeContract : public Contract, private TreeView::Events {
  protected:
    TreeContract() {
        screen_.create = [this] {
            const TreeView::Images images{IDB_TREE_IMAGES, 16, ink::MakeColor(0, 255, 0), 12};
            if (!tree_.Create(screen_, IDC_TREE, kPlace, images, *this)) return false;
            work_ = tree_.Insert(0, kLast, L"Work", 1, 1);
            home_ = tree_.Insert(0, kLast, L"Home", 1, 2);
            Fill();
            return true;
        };
    }
    void Fill() {
        for (int i = 0; i < 3; ++i)
            notes_[i] = tree_.Insert(work_, kLast, L"Note " + std::to_wstring(3 - i), 3, 11 + i);
    }
    // Items come to be when the script runs.
    Step OnItem(void (Hand::*act)(TreeItem), const TreeItem& item) {
        return [this, act, &item] { (hand_.*act)(item); };
    }
    Step Select(const TreeItem& item) {
        return [&] { tree_.Select(item); };
    }
    Texts Children(TreeItem item) const {
        Texts texts;
        for (TreeItem child = tree_.FirstChild(item); child != 0; child = tree_.NextSibling(child))
            texts.push_back(tree_.Text(child));
        return texts;
    }

    void Write(const std::string& event, TreeItem item) {
        log_.push_back(event + " " + (item == 0 ? "-" : std::to_string(tree_.Data(item))));
    }
    void OnTreeSelection(TreeItem, TreeItem selected) override {
        Write("select", selected);
        if (const auto act = std::exchange(afterSelection_, nullptr)) act();
    }
    void OnTreeItemDeleted(TreeItem, intptr_t data) override { deleted_.push_back(data); }
    bool OnTreeEditBegins(TreeItem item, std::wstring& text) override {
        Write("begin", item);
        text = L"Plan";
        return allowsEditing_;
    }
    void OnTreeEditEnds(TreeItem item, const std::wstring& text) override {
        Write("end " + std::string(text.begin(), text.end()), item);
    }
    void OnTreeActivated(TreeItem item) override { Write("activate", item); }
    bool OnTreeKey(Key key) override {
        if (key != Key::Other) log_.push_back("key " + std::to_string(static_cast<int>(key)));
        return true;
    }
    void OnTreeHold(TreeItem item, Point place) override {
        Write("hold", item);
        EXPECT_TRUE(Offset(kPlace, 0, kBarHeight).Contains(place)) << place.x << " " << place.y;
    }

    TreeView tree_;
    TreeItem work_ = 0;
    TreeItem home_ = 0;
    TreeItem notes_[3]{};
    std::vector<std::string> log_;
    std::vector<intptr_t> deleted_;
    bool allowsEditing_ = true;
    std::function<void()> afterSelection_;
};

TEST_F(TreeContract, ItemsKeepWhatTheyAreGivenAndTheirOrder) {
    const auto byText = [&](TreeItem a, intptr_t, TreeItem b, intptr_t) {
        return tree_.Text(a).compare(tree_.Text(b));
    };
    const auto byData = [](TreeItem, intptr_t a, TreeItem, intptr_t b) { return static_cast<int>(b - a); };
    Run({[&] {
        const TreeItem note = notes_[1];
        const std::wstring text = L"A & B \u00BB  (2 found) " + std::wstring(255, L'w');
        EXPECT_EQ(tree_.Image(note), 3);
        tree_.SetImage(note, 7);
        tree_.SetText(note, text);
        EXPECT_EQ(tree_.Text(note), text);
        EXPECT_TRUE(tree_.Image(note) == 7 && tree_.Data(note) == 12);
        EXPECT_TRUE(tree_.NextSibling(work_) == home_ && tree_.Parent(notes_[2]) == work_);
        EXPECT_EQ(tree_.NextSibling(home_) + tree_.Parent(work_) + tree_.FirstChild(home_), 0u);
        EXPECT_TRUE(tree_.HasChildren(work_) && !tree_.HasChildren(home_) && !tree_.HasChildren(note));
        for (const wchar_t* name : {L"m", L"a", L"z"})
            tree_.Insert(home_, TreeView::Where::Sorted, name, 3, 0);
        EXPECT_THAT(Children(home_), ElementsAre(L"a", L"m", L"z"));
        tree_.SortChildren(work_, byText);
        EXPECT_THAT(Children(work_), ElementsAre(text, L"Note 1", L"Note 3"));
        tree_.SortChildren(0, byData);
        EXPECT_EQ(tree_.NextSibling(home_), work_);
    }});
}

TEST_F(TreeContract, SelectionsAreTold) {
    const Step expectShown = [&] { EXPECT_TRUE(tree_.IsExpanded(work_) && tree_.IsSelected(notes_[1])); };
    Run({Select(home_), Select(home_), [&] { EXPECT_FALSE(tree_.IsExpanded(work_)); }, Select(notes_[1]),
         expectShown, OnItem(&Hand::TapTree, notes_[2]), OnItem(&Hand::TapTree, home_),
         [&] { tree_.Select(0); }});
    EXPECT_THAT(log_, ElementsAre("select 2", "select 12", "select 13", "select 2", "select -"));
}

TEST_F(TreeContract, AClosedBranchGivesTheSelectionToItsItem) {
    Run({Select(notes_[1]), [&] { afterSelection_ = [this] { EXPECT_TRUE(tree_.IsExpanded(work_)); }; },
         OnItem(&Hand::CloseBranch, work_),
         [&] { EXPECT_TRUE(!tree_.IsExpanded(work_) && Children(work_).size() == 3); }});
    EXPECT_THAT(log_, ElementsAre("select 12", "select 1"));
}

// Next, before, parent; whoever hears of a removal may remove more.
TEST_F(TreeContract, RemovedItemsAreToldOnceAndLeaveAnHeir) {
    Run({[&] {
        tree_.Select(notes_[1]);
        for (const auto& [gone, heir] :
             {std::pair{&notes_[1], &notes_[2]}, {&notes_[2], &notes_[0]}, {&notes_[0], &work_}}) {
            tree_.Remove(*gone);
            EXPECT_EQ(tree_.Selection(), *heir);
        }
        EXPECT_THAT(deleted_, ElementsAre(12, 13, 11));
        for (const TreeItem* selected : {&home_, &notes_[0]}) {
            Fill();
            tree_.Expand(work_);
            EXPECT_TRUE(tree_.IsExpanded(work_));
            tree_.Select(*selected);
            tree_.CollapseAndDrop(work_);
            EXPECT_FALSE(tree_.HasChildren(work_) || tree_.IsExpanded(work_));
            EXPECT_EQ(tree_.Selection(), selected == &home_ ? home_ : work_);
        }
        Fill();
        tree_.Select(notes_[0]);
        afterSelection_ = [this] { tree_.CollapseAndDrop(work_); };
        tree_.Remove(notes_[0]);
        EXPECT_EQ(deleted_.size(), 12u);
        Fill();
        tree_.Select(notes_[1]);
        afterSelection_ = [this] { tree_.Remove(work_); };
        tree_.CollapseAndDrop(work_);
        EXPECT_EQ(deleted_.size(), 16u);
        tree_.RemoveAll();
        EXPECT_TRUE(tree_.Selection() == 0 && deleted_.size() == 17);
    }});
}

TEST_F(TreeContract, LabelsAreEditedInPlace) {
    const Step edit = [&] { tree_.EditLabel(home_); };
    const auto expectEdited = [&](const std::optional<std::wstring>& label) {
        return [=] { EXPECT_EQ(hand_.EditedLabel(), label); };
    };
    Run({edit, expectEdited(L"Plan"), [&] { hand_.EndEditing(L"Garden"); }, expectEdited({}), edit,
         [&] { hand_.EndEditing(std::nullopt); }, expectEdited({}), [&] { allowsEditing_ = false; }, edit,
         expectEdited({}),
         [&] { EXPECT_EQ(tree_.Text(home_), L"Home") << "the text is the handler's to change"; }});
    EXPECT_THAT(log_, ElementsAre("begin 2", "end Garden 2", "begin 2", "begin 2"));
    EXPECT_THAT(screen_.log, ElementsAre("destroy")) << "the keys that end editing are no commands";
}

// A key that was handled does nothing else; what to select when an item is held is the handler's choice.
TEST_F(TreeContract, ItemsAreActivatedAndHeldAndKeysAreTold) {
    Run({Select(notes_[0]), OnItem(&Hand::DoubleTapTree, notes_[1]), [&] { tree_.Focus(); },
         Do(&Hand::PressInTree, Key::Enter), Do(&Hand::PressInTree, Key::F2),
         Do(&Hand::PressInTree, Key::Down), Shortcut(L'N'), OnItem(&Hand::HoldTree, home_),
         OnItem(&Hand::TapTree, work_)});
    EXPECT_THAT(log_, ElementsAre("select 11", "select 12", "activate 12", "activate 12", "key 11", "key 3",
                                  "hold 2", "select 1"));
    EXPECT_THAT(screen_.log, testing::Contains("shortcut 78"));
}

}  // namespace
