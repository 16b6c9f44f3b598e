// Answers what the program asks through the system's own windows: message boxes, menus, folder choosers.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/windows/SystemHeaders.h"
#include "tests/support/Steps.h"

namespace contract {

class WindowsQuestions {
  public:
    std::deque<platform::MessageAnswer> answers;
    std::deque<std::wstring> entries;  // of menus
    std::deque<std::wstring> folders;  // of the host; empty to cancel
    std::vector<testing_support::SeenBox> boxes;
    // Reads a menu that comes up; the command of the entry with this text.
    std::function<int(const std::vector<platform::PopupMenu::Item>&, const std::wstring& wanted)> readMenu;

    // True when a question stands, answered or not.
    bool Answer();
    bool AllAsked() const { return answers.empty() && entries.empty() && folders.empty(); }

  private:
    bool AnswerBox(HWND box);
    bool AnswerChooser(HWND chooser);
    bool AnswerMenu();

    bool folderShown_ = false;
    int command_ = 0;  // to which submenus are being opened
};

}  // namespace contract
