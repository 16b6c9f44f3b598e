#pragma once

#include <sstream>

#include "alarms/NoteAlarm.h"
#include "app/store/PenSettings.h"
#include "manager/ManagerWindow.h"
#include "platform/host/HostTreeView.h"
#include "res/resource.h"
#include "tests/support/DeskSteps.h"

namespace testing_support {

const std::wstring kRoot = L"\\My Documents\\Inkwright\\";
const std::wstring kMonday = L"Monday, March 5, 2007";

// In the folder Work a note "a" with a memo and an alarm. Items are named without counts: L"Notes\\Work\\a".
class ManagerTest : public DeskSteps {
  protected:
    ManagerTest() { PutWork(); }

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
            const bool isNet = key.find(L".IKI") != std::wstring::npos;
            if (!node->isFolder && key.size() > kRoot.size() && !isNet)
                text += key.substr(kRoot.size()) + L" ";
        }
        for (const auto& entry : device.notifications) {
            const std::wstring& arguments = entry.second.trigger.arguments;
            text += L"| " + arguments.substr(kRoot.size() + 1, arguments.size() - kRoot.size() - 9);
        }
        return text;
    }

    // Runs the manager on a path, below the root when it begins without "\\", and closes it after the script.
    void RunManager(const std::wstring& path, const Script& script) {
        store::PenSettings pen = store::LoadPenSettings();
        manager::ManagerWindow window(pen, path.empty() || path.front() == L'\\' ? path : kRoot + path);
        window_ = &window;
        Play(All({script, {Close()}}));
        window.RunModal(nullptr);
        EXPECT_FALSE(Desk().StepWaiting());
    }

    platform::TreeView& TreeControl() { return *window_->Handle()->tree; }
    platform::host::HostTree Tree() { return platform::host::HostTree(TreeControl()); }

    Step Tap(const std::wstring& path) {
        return [=] { Tree().Tap(PathOf(path)); };
    }
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
    Step ExpectTree(const std::wstring& path, const Texts& texts) {
        return [=] { EXPECT_EQ(Tree().Texts(PathOf(path)), texts); };
    }
    Step ExpectStore(const std::wstring& content) {
        return [=] { EXPECT_EQ(Store(), content); };
    }
    // Folders that are listed from now on are counted.
    Step CountLists() {
        return [=] {
            lists_ = 0;
            device.files.fault = [this](FileCall call, const std::wstring&) {
                lists_ += call == FileCall::List ? 1 : 0;
                return platform::FileError::None;
            };
        };
    }
    Step ExpectLists(int count) {
        return [=] { EXPECT_EQ(lists_, count); };
    }

    int lists_ = 0;

  private:
    Texts PathOf(const std::wstring& path) {
        Texts texts;
        std::wistringstream names(path);
        for (std::wstring name; std::getline(names, name, L'\\');) {
            const Texts shown = Tree().Texts(texts);
            const auto at = std::find_if(shown.begin(), shown.end(), [&name](const std::wstring& text) {
                return text.substr(0, text.find(L"  (")) == name;
            });
            EXPECT_NE(at, shown.end()) << "no such item";
            texts.push_back(at == shown.end() ? name : *at);
        }
        return texts;
    }

    manager::ManagerWindow* window_ = nullptr;
};

}  // namespace testing_support
