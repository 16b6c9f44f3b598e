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
        Close();
        window.RunModal(nullptr);
        EXPECT_FALSE(Desk().StepWaiting());
        window_ = nullptr;
    }
    manager::ManagerWindow& Window() { return *window_; }
    platform::host::HostTree Tree() { return platform::host::HostTree(window_->Tree()); }
    platform::ToolBar& Tools() { return window_->Tools(); }
    std::wstring Selected() { return window_->Tree().Text(window_->Tree().Selection()); }

    // Chooses the entries with these texts, one from each menu that shows next and the last from all further
    // ones, and remembers all entries' texts of the last menu (greyed ones in brackets, separators as "-").
    void ChooseEntries(const Path& texts) {
        Desk().chooseFromMenu = [this, texts, menus = size_t{0}](const auto& items) mutable {
            menu_.clear();
            return FindEntry(items, texts[std::min(menus++, texts.size() - 1)]);
        };
    }
    void ChooseEntry(const std::wstring& text) { ChooseEntries({text}); }
    const std::vector<std::wstring>& Menu() const { return menu_; }

  private:
    int FindEntry(const std::vector<platform::PopupMenu::Item>& items, const std::wstring& text) {
        int command = 0;
        for (const platform::PopupMenu::Item& item : items) {
            const bool isSeparator = item.text.empty();
            menu_.push_back(isSeparator ? L"-" : item.enabled ? item.text : L"(" + item.text + L")");
            if (item.text == text && item.command != 0) command = item.command;
            if (item.submenu != nullptr && command == 0) command = FindEntry(item.submenu->Items(), text);
        }
        return command;
    }

    manager::ManagerWindow* window_ = nullptr;
    std::vector<std::wstring> menu_;
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
            ChooseEntry(entry);
            Tree().Hold(path);
        });
    }
    const Path kNotePathInTree{L"Notes", L"Work  (1 found) ", L"a"};
};

}  // namespace testing_support
