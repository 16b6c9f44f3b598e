#pragma once

#include <QApplication>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Window.h"
#include "platform/qt/CallQueue.h"
#include "platform/qt/system/Copies.h"

class QSocketNotifier;

namespace platform::qt {

// The one object of a run: what is open, and what reaches all of it.
class Application : public QApplication {
  public:
    Application(int& count, char** arguments);
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
    ~Application() override;

    static Application& The();

    // What runs modally, a window of the program's or, without one, a dialog of the desktop's. That knows
    // nothing of other copies: `refuse` ends it as if nobody had answered.
    struct Open {
        Window* window = nullptr;
        std::function<void()> refuse;
        bool* isTakenOver = nullptr;
        uint32_t number = 0;  // by which other copies know it
    };
    // The last one has the user.
    void Push(Open open);
    void Pop();
    const std::vector<Open>& OpenOnes() const { return open_; }
    bool IsOnTop(const Window& window) const { return !open_.empty() && open_.back().window == &window; }

    // From now on other copies find this one.
    void Listen();
    // What another copy asks of what is on top.
    void CommandFromOutside(int id);
    void TakeOverFromOutside();

    // The user's session ends. Until everything that was open has ended nothing more is asked or opened: it
    // counts as refused.
    void EndSession();
    bool IsEnding() const { return isEnding_; }

    CallQueue& Calls() { return calls_; }

  protected:
    bool event(QEvent* event) override;

  private:
    void WatchSignals();
    void TellOfTop();
    void ShowTop();
    void GiveKeyboardToTop();
    void Take(const PostedMessage& message);

    std::vector<Open> open_;
    CallQueue calls_;
    std::unique_ptr<QSocketNotifier> signals_;
    uint32_t lastNumber_ = 0;
    bool isEnding_ = false;
    std::unique_ptr<Copies> copies_;  // last: its thread hands messages to this object
};

// Stands while something runs modally.
class OpenHere {
  public:
    explicit OpenHere(Window& window) { Application::The().Push({&window, nullptr, nullptr}); }
    OpenHere(const OpenHere&) = delete;
    OpenHere& operator=(const OpenHere&) = delete;
    ~OpenHere() { Application::The().Pop(); }
};

// The same for a dialog of the desktop's over a window of ours (may be null), which is told afterwards when
// another copy took over meanwhile.
class SystemDialog {
  public:
    SystemDialog(Window* owner, std::function<void()> refuse);
    SystemDialog(const SystemDialog&) = delete;
    SystemDialog& operator=(const SystemDialog&) = delete;
    ~SystemDialog();

  private:
    Window* owner_;
    bool isTakenOver_ = false;
};

}  // namespace platform::qt
