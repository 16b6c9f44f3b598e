// What a person, or another program, does to the windows of the program under test: one implementation for
// each port. Everything else in this folder is written against the contract alone.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/DateTime.h"
#include "platform/Dialog.h"
#include "platform/MessageBox.h"
#include "platform/PopupMenu.h"
#include "platform/PropertyDialog.h"
#include "platform/Screen.h"
#include "platform/TreeView.h"

namespace contract {

struct SeenMessage {
    std::wstring text;
    std::wstring caption;
    platform::DefaultButton defaultButton = platform::DefaultButton::First;
};

// A fresh device: an empty file system but for the documents folder, an empty registry key for tests. A
// driver lives as long as one test.
class Driver {
  public:
    Driver();
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;
    ~Driver();

    // Done when the program next waits for an event; steps keep their order, and each waits until what the
    // one before it caused has been handled.
    void Then(std::function<void()> step);
    bool AllStepsDone() const;

    // Positions in client pixels.
    void PenDown(platform::Window& window, platform::Point place);
    void PenMove(platform::Window& window, platform::Point place);
    void PenUp(platform::Window& window, platform::Point place);
    // The pen moves through all of `places` before the program sees the last one.
    void PenMoveAtOnce(platform::Window& window, const std::vector<platform::Point>& places);
    void TakePenAway(platform::Window& window);

    void Press(platform::Window& window, platform::Key key);
    void PressShortcut(platform::Window& window, wchar_t letter);  // with Ctrl
    void TurnWheel(platform::Window& window, int notches);         // up when positive
    int WheelLines() const;                                        // that one notch scrolls
    void PressTool(platform::Screen& screen, int command);
    // Of a page too: the sheet's OK and Cancel.
    void PressButton(platform::Dialog& dialog, int id);
    void Choose(platform::Dialog& dialog, int id, int index);
    void ShowPage(platform::PropertyPage& shown, size_t index);  // of the sheet that shows `shown`
    void Type(platform::Dialog& dialog, int id, const std::wstring& text);
    // The pen held still in an edit of many lines.
    void HoldEdit(platform::Dialog& dialog, int id);
    void SelectText(platform::Dialog& dialog, int id, int start, int end);
    // A double tap on the chosen day of a month calendar.
    void DoubleTapDay(platform::Dialog& dialog, int id);
    // 0 = Monday; -1 where the port draws no calendar.
    int FirstDayShown(platform::Dialog& dialog, int id) const;
    void Close(platform::Window& window);  // the title bar's close button
    void SendScroll(platform::Window& window, platform::ScrollCode code, int position);
    void SendPrivateMessage(platform::Window& window, uint32_t code, intptr_t payload);
    void LetTimePass(uint32_t milliseconds);

    // On an item's text; on the empty part of the tree for item 0.
    void TapTree(platform::TreeView& tree, platform::TreeItem item);
    void DoubleTapTree(platform::TreeView& tree, platform::TreeItem item);
    void HoldTree(platform::TreeView& tree, platform::TreeItem item);
    void RightClickTree(platform::TreeView& tree, platform::TreeItem item);
    void CloseBranch(platform::TreeView& tree, platform::TreeItem item);  // by its button
    void PressInTree(platform::TreeView& tree, platform::Key key);
    bool IsEditing(const platform::TreeView& tree) const;
    std::wstring EditedText(const platform::TreeView& tree) const;
    void EndEditing(platform::TreeView& tree, const std::wstring& text);
    void CancelEditing(platform::TreeView& tree);

    // 0x00RRGGBB of what the window shows.
    uint32_t PixelAt(platform::Window& window, platform::Point place);

    // The next message box gets this answer; what was shown is kept.
    void Answer(platform::MessageAnswer answer);
    const std::vector<SeenMessage>& Messages() const;
    // The next menu is answered with this command, 0 to dismiss it; its items are kept.
    void ChooseFromMenu(int command);
    const std::vector<platform::PopupMenu::Item>& MenuItems() const;
    // The next folder chooser gives this folder, or is cancelled when it is empty.
    void ChooseFolder(const std::wstring& folder);

    // A storage card with this name.
    void InsertCard(const std::wstring& name);
    // From now on the program belongs to the device whose folder is named so behind its name: another one, or
    // with "\" the same in another spelling.
    void UseDevice(const std::wstring& ending);
    // Another program has the file for itself, and lets go of it a tenth of a second later. Nothing where no
    // other program is.
    void HoldForAMoment(const std::wstring& path);
    // When the file was last written, in universal time.
    void SetLastWrite(const std::wstring& path, const platform::DateTime& universal);
    // How many hours later the clock of this place shows in summer than in winter.
    int SummerHours() const;

    // A value below the machine's part of the registry.
    void SetMachineNumber(const std::wstring& path, const std::wstring& name, uint32_t value);

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

// Registry key of the current user that is empty when a test begins.
constexpr wchar_t kTestKey[] = L"Software\\Larkspur Works\\Inkwright Contract Test";
// Key of the machine that does not exist when a test begins.
constexpr wchar_t kMachineKey[] = L"Software\\Larkspur Works\\Inkwright Contract Test";

}  // namespace contract
