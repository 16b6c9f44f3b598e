// The manager on a device in memory, and a hand on its tree.
#pragma once

#include "alarms/NoteAlarm.h"
#include "app/store/PenSettings.h"
#include "manager/ManagerWindow.h"
#include "platform/host/HostTreeView.h"
#include "platform/host/HostWindow.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace testing_support {

const std::wstring kRoot = L"\\My Documents\\Inkwright\\";

// A store of the folders Home and Work; in Work a note "a" with a memo and an alarm. Items of the tree are
// named by their texts without counts: L"Notes\\Work\\a".
class ManagerTest : public DeskTest {
  protected:
    using Texts = testing_support::Texts;

    ManagerTest() { PutWork(); }
    void TearDown() override { CheckBoxes(); }

    void PutWork() {
        PutNote(L"Work\\a.ikw");
        device.files.Put(kRoot + L"Work\\a.txt", "memo");
        device.files.PutFolder(kRoot + L"Home");
        alarms::SetNoteAlarm(kRoot + L"Work\\a.ikw", {2007, 3, 4, 15, 20, 0, 0, 0});
    }
    void PutNote(const std::wstring& below) { device.files.Put(kRoot + below, Words({5, 0xFFFFFF, 0, 268})); }
    bool Has(const std::wstring& below) { return device.files.Has(kRoot + below); }
    // The files below the root, in capitals, and the notes that alarms name.
    std::wstring Store() {
        std::wstring text;
        for (const auto& [key, node] : device.files.Nodes()) {
            if (!node->isFolder && key.size() > kRoot.size()) text += key.substr(kRoot.size()) + L" ";
        }
        for (const auto& entry : device.notifications) {
            const std::wstring& arguments = entry.second.trigger.arguments;
            text += L"| " + arguments.substr(kRoot.size() + 1, arguments.size() - kRoot.size() - 9);
        }
        return text;
    }

    // Runs the manager on a path below the root, and closes it after the script.
    void RunManager(const std::wstring& below, const Script& script) {
        RunManagerOn(below.empty() ? L"" : kRoot + below, script);
    }
    void RunManagerOn(const std::wstring& path, const Script& script) {
        store::PenSettings pen = store::LoadPenSettings();
        manager::ManagerWindow window(pen, path);
        window_ = &window;
        Play(script);
        Then(Close());
        window.RunModal(nullptr);
        EXPECT_FALSE(Desk().StepWaiting());
    }

    platform::TreeView& TreeControl() { return *window_->Handle()->tree; }
    platform::host::HostTree Tree() { return platform::host::HostTree(TreeControl()); }
    platform::TreeItem Item(const std::wstring& path) { return Tree().Find(PathOf(path)); }

    Step Tap(const std::wstring& path) {
        return [=] { Tree().Tap(PathOf(path)); };
    }
    Step DoubleTap(const std::wstring& path) {
        return [=] { Tree().Activate(PathOf(path)); };
    }
    // Chooses the entries of the menu that the item has, and of those that follow.
    Step Hold(const std::wstring& path, const Texts& entries) {
        return [=] {
            hand.ChooseEntries(entries);
            Tree().Hold(PathOf(path));
        };
    }
    Step PickTool(const Texts& entries) {
        return [=] {
            hand.ChooseEntries(entries);
            Desk().Command(IDM_MANAGER_TOOLS);
        };
    }
    Step Rename(const std::wstring& shown, const std::wstring& name) {
        return [=] {
            Tree().PressKey(platform::Key::F2);
            EXPECT_EQ(Tree().EditText(), shown);
            Tree().EndEdit(name);
        };
    }
    Step ExpectSelected(const std::wstring& text) {
        return [=] { EXPECT_EQ(TreeControl().Text(TreeControl().Selection()), text); };
    }
    // The texts of an item's children, of the top without a path.
    Step ExpectTree(const std::wstring& path, const Texts& texts) {
        return [=] { EXPECT_EQ(Tree().Texts(PathOf(path)), texts); };
    }
    Step ExpectMenu(const Texts& entries) {
        return [=] { EXPECT_EQ(hand.Menu(), entries); };
    }
    Step ExpectStore(const std::wstring& content) {
        return [=] { EXPECT_EQ(Store(), content); };
    }

  private:
    // Full texts from the top.
    Texts PathOf(const std::wstring& path) {
        Texts texts;
        platform::TreeItem above = 0;
        for (size_t at = 0; at < path.size();) {
            const size_t end = std::min(path.find(L'\\', at), path.size());
            const std::wstring name = path.substr(at, end - at);
            platform::TreeItem item = above == 0 ? Tree().First() : TreeControl().FirstChild(above);
            while (item != 0 && WithoutCount(TreeControl().Text(item)) != name)
                item = TreeControl().NextSibling(item);
            EXPECT_NE(item, 0u) << "no such item";
            texts.push_back(TreeControl().Text(item));
            above = item;
            at = end + 1;
        }
        return texts;
    }

    static std::wstring WithoutCount(const std::wstring& text) { return text.substr(0, text.find(L"  (")); }

    manager::ManagerWindow* window_ = nullptr;
};

}  // namespace testing_support
