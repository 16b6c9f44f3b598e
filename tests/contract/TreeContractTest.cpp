// The tree view: its items, its events, and what a person does to it.
#include <utility>

#include "platform/TreeView.h"
#include "res/resource.h"
#include "tests/contract/Recording.h"

namespace contract {

namespace {

using platform::Key;
using platform::Point;
using platform::Rect;
using platform::Screen;
using platform::TreeItem;
using platform::TreeView;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr auto kLast = TreeView::Where::Last;
constexpr auto kSorted = TreeView::Where::Sorted;
constexpr Rect kPlace{10, 20, 210, 320};

// Writes the tree's events down, items by their data.
class TreeLog : public TreeView::Events {
  public:
    explicit TreeLog(TreeView& tree) : tree_(tree) {}

    std::vector<std::string> log;
    bool allowsEditing = true;
    bool takesKeys = true;
    std::wstring editBegins = L"Plan";
    std::wstring edited;
    Point holdPlace;
    std::function<void()> afterSelection;

    void OnTreeSelection(TreeItem old, TreeItem selected) override {
        log.push_back("select " + Name(old) + " " + Name(selected));
        if (const auto act = std::exchange(afterSelection, nullptr)) act();
    }
    void OnTreeItemDeleted(TreeItem, intptr_t data) override { deleted.push_back(static_cast<int>(data)); }
    bool OnTreeEditBegins(TreeItem item, std::wstring& text) override {
        log.push_back("begin " + Name(item));
        text = editBegins;
        return allowsEditing;
    }
    void OnTreeEditEnds(TreeItem item, const std::wstring& text) override {
        log.push_back("end " + Name(item));
        edited = text;
    }
    void OnTreeActivated(TreeItem item) override { log.push_back("activate " + Name(item)); }
    bool OnTreeKey(Key key) override {
        log.push_back("key " + std::to_string(static_cast<int>(key)));
        return takesKeys;
    }
    void OnTreeHold(TreeItem item, Point place) override {
        log.push_back("hold " + Name(item));
        holdPlace = place;
    }

    std::vector<int> deleted;

  private:
    std::string Name(TreeItem item) const { return item == 0 ? "-" : std::to_string(tree_.Data(item)); }

    TreeView& tree_;
};

class TreeContract : public WindowContract {
  protected:
    // Runs the steps on a screen with a tree of two folders, the first with three notes.
    template <typename... Steps>
    void RunTree(Steps... steps) {
        screen_.create = [this] {
            const TreeView::Images images{IDB_TREE_IMAGES, 16, ink::MakeColor(0, 255, 0), 12};
            if (!tree_.Create(screen_, IDC_TREE, kPlace, images, events_)) return false;
            work_ = tree_.Insert(0, kLast, L"Work", 1, 1);
            home_ = tree_.Insert(0, kLast, L"Home", 1, 2);
            Fill();
            return true;
        };
        EXPECT_EQ(Run(screen_, steps...), 100) << "the tree could not be made";
    }

    void Fill() {
        for (int i = 0; i < 3; ++i) {
            notes_[i] = tree_.Insert(work_, kLast, L"Note " + std::to_wstring(3 - i), 3, 11 + i);
        }
    }

    std::vector<std::wstring> Children(TreeItem item) const {
        std::vector<std::wstring> texts;
        for (TreeItem child = tree_.FirstChild(item); child != 0; child = tree_.NextSibling(child)) {
            texts.push_back(tree_.Text(child));
        }
        return texts;
    }

    Recording<Screen> screen_{Screen::ScrollBar::None};
    TreeView tree_;
    TreeLog events_{tree_};
    TreeItem work_ = 0;
    TreeItem home_ = 0;
    TreeItem notes_[3]{};
};

TEST_F(TreeContract, ItemsKeepWhatTheyAreGiven) {
    RunTree([&] {
        const TreeItem note = notes_[1];
        EXPECT_EQ(tree_.Text(note), L"Note 2");
        EXPECT_EQ(tree_.Image(note), 3);
        EXPECT_EQ(tree_.Data(note), 12);
        EXPECT_FALSE(tree_.HasOverlay(note));
        tree_.SetOverlay(note, true);
        tree_.SetBold(note);
        tree_.SetText(note, L"A & B \u00BB  (2 found) ");
        tree_.SetImage(note, 7);
        tree_.SetData(note, 1234567);
        EXPECT_TRUE(tree_.HasOverlay(note));
        EXPECT_EQ(tree_.Text(note), L"A & B \u00BB  (2 found) ");
        EXPECT_EQ(tree_.Image(note), 7);
        EXPECT_EQ(tree_.Data(note), 1234567);
        tree_.SetOverlay(note, false);
        EXPECT_FALSE(tree_.HasOverlay(note));
        const std::wstring longest(255, L'w');
        tree_.SetText(note, longest);
        EXPECT_EQ(tree_.Text(note), longest);
    });
}

TEST_F(TreeContract, ItemsHaveTheirPlaces) {
    RunTree([&] {
        EXPECT_EQ(tree_.FirstRoot(), work_);
        EXPECT_EQ(tree_.NextSibling(work_), home_);
        EXPECT_EQ(tree_.NextSibling(home_), 0u);
        EXPECT_EQ(tree_.Parent(work_), 0u);
        EXPECT_EQ(tree_.Parent(notes_[2]), work_);
        EXPECT_EQ(tree_.FirstChild(home_), 0u);
        EXPECT_TRUE(tree_.HasChildren(work_) && !tree_.HasChildren(home_) && !tree_.HasChildren(notes_[0]));
        EXPECT_THAT(Children(work_), ElementsAre(L"Note 3", L"Note 2", L"Note 1"));
        for (const wchar_t* text : {L"m", L"a", L"z", L"f"}) tree_.Insert(home_, kSorted, text, 3, 0);
        EXPECT_THAT(Children(home_), ElementsAre(L"a", L"f", L"m", L"z"));
    });
}

TEST_F(TreeContract, NoItemReadsAsEmpty) {
    RunTree([&] {
        tree_.SetText(0, L"x");
        tree_.SetImage(0, 1);
        tree_.SetData(0, 1);
        tree_.SetBold(0);
        tree_.SetOverlay(0, true);
        tree_.Remove(0);
        tree_.Expand(0);
        tree_.CollapseAndDrop(0);
        tree_.EnsureVisible(0);
        tree_.ScrollToTop(0);
        tree_.EditLabel(0);
        EXPECT_EQ(tree_.Text(0), L"");
        EXPECT_EQ(tree_.Image(0), -1);
        EXPECT_EQ(tree_.Data(0), 0);
        EXPECT_EQ(tree_.FirstChild(0) + tree_.NextSibling(0) + tree_.Parent(0), 0u);
        EXPECT_FALSE(tree_.HasOverlay(0) || tree_.IsSelected(0) || tree_.IsExpanded(0));
        EXPECT_THAT(Children(work_), testing::SizeIs(3));
        EXPECT_THAT(events_.log, IsEmpty());
    });
}

TEST_F(TreeContract, SelectionsAreTold) {
    RunTree([&] { tree_.Select(home_); },
            [&] {
                tree_.Select(home_);
                EXPECT_FALSE(tree_.IsExpanded(work_));
                tree_.Select(notes_[1]);
                EXPECT_TRUE(tree_.IsExpanded(work_)) << "what is selected is shown";
                EXPECT_TRUE(tree_.IsSelected(notes_[1]) && !tree_.IsSelected(home_));
            },
            [&] { driver_.TapTree(tree_, notes_[2]); }, [&] { driver_.TapTree(tree_, home_); },
            [&] {
                tree_.Select(0);
                EXPECT_EQ(tree_.Selection(), 0u);
            });
    EXPECT_THAT(events_.log,
                ElementsAre("select - 2", "select 2 12", "select 12 13", "select 13 2", "select 2 -"));
}

TEST_F(TreeContract, AClosedBranchGivesTheSelectionToItsItem) {
    RunTree(
        [&] {
            tree_.Select(notes_[1]);
            events_.afterSelection = [this] {
                EXPECT_TRUE(tree_.IsExpanded(work_)) << "told before it closes";
            };
        },
        [&] { driver_.CloseBranch(tree_, work_); },
        [&] {
            EXPECT_EQ(tree_.Selection(), work_);
            EXPECT_FALSE(tree_.IsExpanded(work_));
            EXPECT_THAT(Children(work_), testing::SizeIs(3)) << "they are only out of sight";
            tree_.Select(notes_[1]);
            events_.takesKeys = false;
            tree_.Focus();
        },
        [&] { driver_.PressInTree(tree_, Key::Left); }, [&] { driver_.PressInTree(tree_, Key::Left); },
        [&] { EXPECT_FALSE(tree_.IsExpanded(work_)); });
    EXPECT_THAT(events_.log,
                ElementsAre("select - 12", "select 12 1", "select 1 12", "key 0", "select 12 1", "key 0"));
}

TEST_F(TreeContract, RemovedItemsAreToldAndLeaveAnHeir) {
    RunTree([&] {
        tree_.Select(notes_[1]);
        tree_.Remove(notes_[1]);
        EXPECT_EQ(tree_.Selection(), notes_[2]) << "the next one";
        tree_.Remove(notes_[2]);
        EXPECT_EQ(tree_.Selection(), notes_[0]) << "the one before";
        EXPECT_THAT(events_.deleted, ElementsAre(12, 13));
        tree_.Remove(notes_[0]);
        EXPECT_EQ(tree_.Selection(), work_) << "the parent";
        Fill();
        tree_.Select(home_);
        events_.log.clear();
        events_.deleted.clear();
        tree_.Remove(work_);
        EXPECT_EQ(tree_.Selection(), home_) << "nothing selected went";
        EXPECT_THAT(events_.deleted, UnorderedElementsAre(1, 11, 12, 13));
        tree_.RemoveAll();
        EXPECT_EQ(tree_.FirstRoot() + tree_.Selection(), 0u);
        EXPECT_THAT(events_.log, ElementsAre("select 2 -"));
        EXPECT_EQ(events_.deleted.size(), 5u);
    });
}

TEST_F(TreeContract, WhoHearsOfARemovalMayRemoveToo) {
    RunTree([&] {
        tree_.Select(notes_[0]);
        events_.afterSelection = [this] { tree_.CollapseAndDrop(work_); };
        tree_.Remove(notes_[0]);
        EXPECT_THAT(Children(work_), IsEmpty());
        EXPECT_THAT(events_.deleted, UnorderedElementsAre(11, 12, 13)) << "each of them once";
        Fill();
        tree_.Select(notes_[1]);
        events_.afterSelection = [this] { tree_.Remove(work_); };
        tree_.CollapseAndDrop(work_);
        EXPECT_EQ(tree_.FirstRoot(), home_);
        EXPECT_EQ(events_.deleted.size(), 7u);
    });
}

TEST_F(TreeContract, DroppedChildrenCanComeBack) {
    RunTree([&] {
        tree_.CollapseAndDrop(work_);
        EXPECT_THAT(Children(work_), IsEmpty()) << "it was not even open";
        EXPECT_THAT(events_.deleted, UnorderedElementsAre(11, 12, 13));
        tree_.Expand(work_);
        EXPECT_FALSE(tree_.IsExpanded(work_)) << "there is nothing in it";
        for (int round = 0; round < 2; ++round) {
            Fill();
            tree_.Expand(work_);
            EXPECT_TRUE(tree_.IsExpanded(work_)) << round;
            tree_.Select(notes_[0]);
            tree_.CollapseAndDrop(work_);
            EXPECT_THAT(Children(work_), IsEmpty()) << round;
            EXPECT_FALSE(tree_.HasChildren(work_)) << round;
            EXPECT_FALSE(tree_.IsExpanded(work_)) << round;
            EXPECT_EQ(tree_.Selection(), work_) << round;
        }
        tree_.Select(home_);
        Fill();
        tree_.Expand(work_);
        tree_.CollapseAndDrop(work_);
        EXPECT_EQ(tree_.Selection(), home_);
        EXPECT_EQ(tree_.Text(work_), L"Work");
    });
}

TEST_F(TreeContract, SortingComparesItemsAndData) {
    RunTree([&] {
        tree_.SortChildren(work_, [&](TreeItem a, intptr_t, TreeItem b, intptr_t) {
            return tree_.Text(a).compare(tree_.Text(b));
        });
        EXPECT_THAT(Children(work_), ElementsAre(L"Note 1", L"Note 2", L"Note 3"));
        tree_.SetData(notes_[0], 12);
        tree_.SetData(notes_[1], 11);
        tree_.SortChildren(
            work_, [](TreeItem, intptr_t a, TreeItem, intptr_t b) { return static_cast<int>(b - a); });
        EXPECT_THAT(Children(work_), ElementsAre(L"Note 1", L"Note 3", L"Note 2"));
        tree_.SortChildren(
            0, [](TreeItem, intptr_t a, TreeItem, intptr_t b) { return static_cast<int>(b - a); });
        EXPECT_EQ(tree_.FirstRoot(), home_);
    });
}

TEST_F(TreeContract, LabelsAreEditedInPlace) {
    RunTree(
        [&] {
            tree_.Select(home_);
            events_.log.clear();
            tree_.EditLabel(home_);
        },
        [&] {
            EXPECT_TRUE(driver_.IsEditing(tree_));
            EXPECT_EQ(driver_.EditedText(tree_), L"Plan") << "not the item's whole text";
            driver_.EndEditing(tree_, L"Garden");
        },
        [&] {
            EXPECT_FALSE(driver_.IsEditing(tree_));
            EXPECT_EQ(events_.edited, L"Garden");
            EXPECT_EQ(tree_.Text(home_), L"Home") << "the text is the handler's to change";
            tree_.EditLabel(home_);
        },
        [&] { driver_.CancelEditing(tree_); },
        [&] {
            EXPECT_FALSE(driver_.IsEditing(tree_));
            events_.allowsEditing = false;
            tree_.EditLabel(home_);
            EXPECT_FALSE(driver_.IsEditing(tree_));
        });
    EXPECT_THAT(events_.log, ElementsAre("begin 2", "end 2", "begin 2", "begin 2"));
    EXPECT_THAT(screen_.log, ElementsAre("destroy")) << "the keys that end editing are no commands";
}

TEST_F(TreeContract, ItemsAreActivated) {
    RunTree([&] { tree_.Select(notes_[0]); }, [&] { driver_.DoubleTapTree(tree_, notes_[1]); },
            [&] { tree_.Focus(); }, [&] { driver_.PressInTree(tree_, Key::Enter); });
    EXPECT_THAT(events_.log, ElementsAre("select - 11", "select 11 12", "activate 12", "activate 12"));
}

TEST_F(TreeContract, KeysAreTold) {
    RunTree(
        [&] {
            tree_.Select(work_);
            tree_.Focus();
        },
        [&] { driver_.PressInTree(tree_, Key::F2); }, [&] { driver_.PressInTree(tree_, Key::Delete); },
        [&] { driver_.PressInTree(tree_, Key::Down); });
    EXPECT_THAT(events_.log, ElementsAre("select - 1", "key 11", "key 10", "key 3"))
        << "a key that was handled does nothing else";
}

TEST_F(TreeContract, ShortcutsReachTheScreenPastTheTree) {
    RunTree([&] { tree_.Focus(); }, [&] { driver_.PressShortcut(screen_, L'N'); });
    EXPECT_THAT(screen_.log, testing::Contains("shortcut N"));
}

TEST_F(TreeContract, HeldItemsAskForAMenu) {
    std::vector<Point> places;
    const auto note = [&] { places.push_back(events_.holdPlace); };
    RunTree([&] { tree_.Select(home_); }, [&] { driver_.HoldTree(tree_, work_); }, note,
            [&] { driver_.RightClickTree(tree_, home_); }, note, [&] { driver_.HoldTree(tree_, 0); }, note,
            [&] { driver_.TapTree(tree_, work_); });
    EXPECT_THAT(events_.log, ElementsAre("select - 2", "hold 1", "hold 2", "hold -", "select 2 1"))
        << "what to select is the handler's choice";
    const Rect tree = Offset(kPlace, 0, platform::kBarHeight);
    for (const Point& place : places) EXPECT_TRUE(tree.Contains(place)) << place.x << " " << place.y;
}

TEST_F(TreeContract, HiddenTreesStayHidden) {
    platform::Image red = platform::Image::Make(300, 400);
    ASSERT_TRUE(red.IsValid());
    for (int y = 0; y < 400; ++y) std::fill_n(red.Surface().Row(y), 300, 0x00FF0000u);
    RunTree([&] {
        tree_.SetVisible(false);
        tree_.Freeze(true);
        tree_.Freeze(true);
        tree_.RemoveAll();
        tree_.Freeze(false);
        tree_.Insert(0, kLast, L"Work", 1, 1);
        tree_.Freeze(false);
        screen_.Show(red, {0, 0, 300, 400});
        EXPECT_EQ(driver_.PixelAt(screen_, {kPlace.left + 50, kPlace.top + 100}), 0x00FF0000u);
    });
}

}  // namespace

}  // namespace contract
