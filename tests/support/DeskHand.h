// A person's hand at the device in memory.
#pragma once

#include "platform/host/HostDevice.h"
#include "tests/support/Steps.h"

namespace testing_support {

class DeskHand : public Hand {
  public:
    explicit DeskHand(platform::host::HostDevice& device) : desk_(device.desk) {}

    void Then(Step step) override { desk_.Then(std::move(step)); }
    platform::Window* Top() override { return desk_.Top(); }
    void PenDown(platform::Point place) override { desk_.PenDown(place); }
    void PenMove(platform::Point place) override { desk_.PenMove(place); }
    void PenUp(platform::Point place) override { desk_.PenUp(place); }
    void PressButton(int id) override { desk_.Command(id); }
    void PressKey(platform::Key key) override { desk_.Press(key); }
    void TypeInto(int item, const std::wstring& text) override { desk_.Type(item, text); }
    void Answer(platform::MessageAnswer answer) override { desk_.answers.push_back(answer); }
    std::vector<SeenBox> Boxes() const override;
    void ChooseEntries(const std::vector<std::wstring>& texts) override;

    // All entries of the last menu: greyed ones in brackets, separators as "-", submenus' in their place.
    const std::vector<std::wstring>& Menu() const { return menu_; }

  private:
    int FindEntry(const std::vector<platform::PopupMenu::Item>& items, const std::wstring& text);

    platform::host::HostDesk& desk_;
    std::vector<std::wstring> menu_;
};

}  // namespace testing_support
