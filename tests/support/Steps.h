// The words of a test's script: what a person does at the device, and sees there. The same words serve the
// program on a device in memory and the contract tests of each port.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/MessageBox.h"
#include "platform/Window.h"

namespace testing_support {

using Step = std::function<void()>;
using Script = std::vector<Step>;

struct SeenBox {
    std::wstring text;
    std::wstring caption;
};

// The hand of a person at one device: events go to the window on top. Each port has its own.
class Hand {
  public:
    virtual ~Hand() = default;

    // Done when the program next waits for an event, after what the step before it caused.
    virtual void Then(Step step) = 0;
    virtual platform::Window* Top() = 0;

    virtual void PenDown(platform::Point place) = 0;
    virtual void PenMove(platform::Point place) = 0;
    virtual void PenUp(platform::Point place) = 0;
    // A button of the tool bar or of a dialog. Greyed ones do nothing.
    virtual void PressButton(int id) = 0;
    virtual void PressKey(platform::Key key) = 0;
    virtual void TypeInto(int item, const std::wstring& text) = 0;

    // The next question gets this answer. All boxes that were shown are kept.
    virtual void Answer(platform::MessageAnswer answer) = 0;
    virtual std::vector<SeenBox> Boxes() const = 0;
    // The menus that come next are answered with the entries of these texts, one after another.
    virtual void ChooseEntries(const std::vector<std::wstring>& texts) = 0;
};

// What makes steps for a hand. A script is a list of them: Play({Write({{30, 100}, {40, 110}}), Press(id)}).
class Steps {
  public:
    explicit Steps(Hand& hand) : hand_(hand) {}

    void Play(const Script& script);

    // One stroke through these points.
    Step Write(const std::vector<platform::Point>& points);
    Step Press(int id);
    Step Press(platform::Key key);
    Step TypeInto(int item, const std::wstring& text);
    Step Close() { return Press(platform::kIdOk); }
    // The menus that the next step opens are answered so: Picked({L"Change Folder...", L"Home"}).
    Step Picked(const std::vector<std::wstring>& texts);
    Step ExpectTitle(const std::wstring& title);
    // A box with this text comes up before the script is over, and is answered so. Boxes nobody expects are
    // faults, see CheckBoxes.
    Step ExpectBox(const std::wstring& text, const std::wstring& caption,
                   platform::MessageAnswer answer = platform::MessageAnswer::Ok);

    // After the script: what was shown is what was expected, in this order.
    void CheckBoxes();

  protected:
    Hand& hand_;

  private:
    std::vector<SeenBox> expected_;
};

}  // namespace testing_support
