// Answers what the program asks through the system's own windows: message boxes, menus, folder choosers.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/windows/SystemHeaders.h"
#include "tests/contract/Driver.h"

namespace contract {

class WindowsQuestions {
  public:
    std::deque<platform::MessageAnswer> answers;
    std::deque<int> choices;
    std::deque<std::wstring> folders;  // of the host; empty to cancel
    std::vector<SeenMessage> messages;
    std::vector<platform::PopupMenu::Item> menuItems;

    // True when a question stands, answered or not.
    bool Answer();
    bool AllAsked() const { return answers.empty() && choices.empty() && folders.empty(); }

  private:
    bool AnswerBox(HWND box);
    bool AnswerChooser(HWND chooser);
    bool AnswerMenu();

    bool folderShown_ = false;
};

}  // namespace contract
