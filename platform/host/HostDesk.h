#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/MessageBox.h"
#include "platform/PopupMenu.h"
#include "platform/Printer.h"
#include "platform/SaveChooser.h"
#include "platform/Screen.h"
#include "platform/Window.h"

namespace platform::host {

struct ShownMessage {
    std::wstring text;
    std::wstring caption;
    MessageButtons buttons = MessageButtons::Ok;
    MessageIcon icon = MessageIcon::Error;
    DefaultButton defaultButton = DefaultButton::First;
};

// What is chosen in the print dialog.
struct PrinterChoice {
    PrintPaper paper{595, 842, 0};
    size_t first = 1;
    size_t last = 1000;
    size_t failsAfter = 1000;  // so many sheets
};

struct PrintedLine {
    std::vector<Point> points;  // page pixels
    double width = 0;
    ink::ColorRef color = 0;
};
struct PrintedSheet {
    ink::ColorRef paper = 0;
    ink::SheetView view;
    std::vector<Rect> fills;
    std::vector<PrintedLine> lines;
};
// Of one job.
struct PrintedPaper {
    std::wstring name;
    std::vector<PrintedSheet> sheets;
    bool isFinished = false;
};

// The person in front of the device: does the next scripted step whenever the program waits for an event,
// and answers its questions. A step that opens a window is followed, inside that window, by the next one.
class HostDesk {
  public:
    void Then(std::function<void()> step) { steps_.push_back(std::move(step)); }

    // The modal window on top, of a property sheet the page that is shown; null when none is open.
    Window* Top() const;
    // What the window on top reads, from top to bottom and from left to right (see HostImage.h), and where
    // the first of such texts stands; an empty place when it can't be read there.
    std::vector<std::wstring> Texts() const;
    Rect PlaceOf(const std::wstring& text) const;

    // Events for the window on top.
    PenEnd penEnd = PenEnd::Tip;  // that touches next
    void PenDown(Point place);
    void PenMove(Point place, const std::vector<Point>& samples = {});
    void PenUp(Point place, const std::vector<Point>& samples = {});
    // Pen down at the first point, a move to each of the others, pen up at the last.
    void Stroke(const std::vector<Point>& points);
    void TakePenAway();
    void Command(int id);  // a tool bar button, a dialog's button; disabled ones do nothing
    void Scroll(ScrollCode code, int position = 0);
    void Press(Key key);
    void PressShortcut(wchar_t letter);  // with Ctrl; a small letter with Shift too
    void OpenFrameMenu();                // answered like a pop-up menu
    void TurnWheel(int notches);         // up when positive
    void Resize(ScreenSize size);        // the screen on top, and those that open later
    void Rescale(ink::Scale to);         // likewise
    void PrivateMessage(uint32_t code, intptr_t payload = 0);
    void Type(int item, const std::wstring& text);
    void Choose(int item, int index);   // in a drop-down list
    void Turn(int item, int16_t spin);  // a spin button to this position
    void Select(int item, size_t start, size_t end);
    void Hold(int item, Point place);  // still, on an edit of many lines
    void ShowPage(size_t index);       // of a property sheet
    // The user's session ends.
    void EndSession();
    // Lets time go by; timers of all open windows fire when due.
    void PassTime(uint32_t milliseconds);
    // Handles everything that was posted and paints what was invalidated.
    void Settle();

    // Message boxes: answers to the questions, in order. All boxes that were shown are kept.
    std::deque<MessageAnswer> answers;
    bool takesDefaults = false;  // questions without an answer get their default button pressed
    std::vector<ShownMessage> messages;
    // Pop-up menus: chooses a command from the items; dismissed when empty.
    std::function<int(const std::vector<PopupMenu::Item>&)> chooseFromMenu;
    Point menuPlace;
    std::wstring clipboard;

    // The folder chooser: what it gives; cancelled when empty.
    std::wstring chosenFolder;
    // The save chooser: the name that is typed, cancelled when empty, and the kind that is chosen in its
    // list; what it was asked.
    std::wstring chosenPlace;
    size_t chosenKind = 0;
    std::vector<SaveQuestion> saveQuestions;
    // The print dialog: cancelled without a choice. What was printed.
    std::optional<PrinterChoice> chosenPrinter;
    std::vector<PrintedPaper> printed;

    int outOfMemoryBoxes = 0;
    int waitCursorDepth = 0;
    int waitCursors = 0;  // how often it came up
    bool highContrast = false;
    int fullScreenToggles = 0;
    bool wantsNames = false;  // an input of a dialog that has no name is a problem
    bool menuBarFails = false;
    bool workersFail = false;
    bool textEditsFail = false;  // Dialog::MakeTextEdit finds no memory
    ScreenSize screen{480, 640};
    bool sizesScreens = false;  // as soon as one was
    ink::Scale scale;           // of windows that open, and of those that are sized

    // What went wrong in the script itself, such as a window left open at its end. Empty in a good test.
    std::vector<std::string> problems;

    // For the port.
    int RunModal(Window& window);
    // An event for `window`, forgotten when that closes; one for null stays.
    void Post(Window* window, std::function<void()> event) { posted_.push_back({window, std::move(event)}); }
    bool StepWaiting() const { return !steps_.empty(); }

  private:
    Window& Target();
    void SizeTop();
    void CheckNames(const Window& window);
    static void TakeOver(Window& window);

    std::deque<std::function<void()>> steps_;
    struct PostedEvent {
        Window* window;
        std::function<void()> handle;
    };
    std::deque<PostedEvent> posted_;
    std::vector<Window*> open_;
};

}  // namespace platform::host
