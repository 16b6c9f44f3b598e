// The manager on a device in memory, and a hand on its tree.
#pragma once

#include "app/store/PenSettings.h"
#include "app/store/Settings.h"
#include "manager/ManagerWindow.h"
#include "platform/host/HostTreeView.h"
#include "platform/host/HostWindow.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace testing_support {

constexpr wchar_t kRoot[] = L"\\My Documents\\Inkwright\\";

class ManagerTest : public DeskTest {
  protected:
    using Path = std::vector<std::wstring>;

    std::string EmptyNote() { return Words({5, 0xFFFFFF, 0, 268}); }
    void PutNote(const std::wstring& below) { device.files.Put(kRoot + below, EmptyNote()); }
    bool Has(const std::wstring& below) { return device.files.Has(kRoot + below); }

    // Runs the manager on a path with the script so far, and closes it.
    void RunManager(const std::wstring& path = L"") {
        store::PenSettings pen = store::LoadPenSettings();
        manager::ManagerWindow window(pen, path);
        window_ = &window;
        Then(Close());
        window.RunModal(nullptr);
        EXPECT_FALSE(Desk().StepWaiting());
        window_ = nullptr;
    }
    manager::ManagerWindow& Window() { return *window_; }
    platform::host::HostTree Tree() { return platform::host::HostTree(window_->Tree()); }
    platform::ToolBar& Tools() { return window_->Tools(); }
    std::wstring Selected() { return window_->Tree().Text(window_->Tree().Selection()); }

    const std::vector<std::wstring>& Menu() const { return hand.Menu(); }

  private:
    manager::ManagerWindow* window_ = nullptr;
};

// A store of the folders Home and Work; in Work a note "a" with its memo.
class WorkTest : public ManagerTest {
  protected:
    WorkTest() {
        PutNote(L"Work\\a.ikw");
        device.files.Put(std::wstring(kRoot) + L"Work\\a.txt", "memo");
        device.files.PutFolder(std::wstring(kRoot) + L"Home");
    }
    std::wstring NotePath() { return std::wstring(kRoot) + L"Work\\a.ikw"; }
    std::wstring LastMessage() { return Desk().messages.empty() ? L"" : Desk().messages.back().text; }
    void ThenChoose(const Path& path, const std::wstring& entry) {
        Then([this, path, entry] {
            hand.ChooseEntries({entry});
            Tree().Hold(path);
        });
    }
    const Path kNotePathInTree{L"Notes", L"Work  (1 found) ", L"a"};
};

}  // namespace testing_support
