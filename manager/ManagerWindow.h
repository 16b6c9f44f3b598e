#pragma once

#include <optional>
#include <string>

#include "app/store/PenSettings.h"
#include "editor/InkCanvas.h"
#include "manager/FolderTree.h"
#include "manager/HeaderBar.h"
#include "manager/MonthView.h"
#include "manager/PreviewStrip.h"
#include "manager/Situation.h"
#include "platform/Screen.h"

namespace manager {

// The note manager: the tree of the store with a preview of the selected note, or the month calendar.
class ManagerWindow : public platform::Screen, private platform::TreeView::Events {
  public:
    // `path` is what to select first: a note, or a folder ending in "\"; may be empty.
    ManagerWindow(store::PenSettings& pen, const std::wstring& path);

    bool OnCreate() override;
    void OnDestroy() override;
    void OnPaint() override;
    void OnPenDown(platform::Point place) override { pressed_ = place; }
    void OnPenUp(platform::Point place) override;
    bool OnKeyDown(platform::Key key) override;
    bool OnShortcut(wchar_t letter) override;
    // Does nothing for a command that is not possible now.
    void OnCommand(int id) override;
    void OnTakeOver() override { Close(); }

    const FolderTree& Folders() const { return folders_; }
    platform::TreeView& Tree() { return tree_; }
    const MonthView& Month() const { return month_; }

  private:
    struct Command;
    static const Command kCommands[];

    Situation Now() const;
    bool IsPossible(int id) const;
    void Perform(int id);
    bool PressKey(platform::Key key);

    // Tree events
    void OnTreeSelection(platform::TreeItem old, platform::TreeItem selected) override;
    void OnTreeItemDeleted(platform::TreeItem item, intptr_t data) override;
    bool OnTreeEditBegins(platform::TreeItem item, std::wstring& text) override;
    void OnTreeEditEnds(platform::TreeItem item, const std::wstring& text) override;
    void OnTreeActivated(platform::TreeItem item) override;
    bool OnTreeKey(platform::Key key) override { return PressKey(key); }
    void OnTreeHold(platform::TreeItem item, platform::Point place) override;

    // Commands
    void Close() { EndModal(platform::kIdOk); }
    void AddNote();
    void OpenNote();
    void EditTextMemo();
    void Delete();
    void ToggleCalendar();
    void ShowPreviousMonth() { StepMonth(-1); }
    void ShowNextMonth() { StepMonth(1); }
    void ShowCurrentMonth();
    void CreateNewFolder();
    void RenameSelected();
    void MoveSelectedFolder();
    void MoveToFolder();
    void MoveToDay();
    void SetAlarm();
    void RefreshAlarms();
    void DeleteAlarm();
    void Find();
    void ShowToolsMenu();
    void ShowOptions();
    void ShowAbout();
    void ChooseOtherFolder();
    void UseStorage(int index);
    void CopySelectedTo(int index);

    void SetRootFolder(const std::wstring& path);
    bool IsReadable(const std::wstring& root);
    std::wstring UsableRoot(const std::wstring& path);
    void UseRoot(const std::wstring& root);
    void ShowStore(const std::wstring& path);
    void ShowFreeSpace();
    void Edit(const editor::InkCanvas::Opening& opening);
    void ReadFolderAgain(const std::wstring& path);
    void AddReminder(const store::DayFolder& day);
    std::optional<store::DayFolder> AskForDay();
    void RenameItem(platform::TreeItem item, const std::wstring& name, store::NodeKind kind);
    void DeleteSelectedFolder(platform::TreeItem item);
    void CountAgain(platform::TreeItem container);
    void ReadFirstDayOfWeek();
    void StepMonth(int months);
    void ShowMonth(int year, int month);
    void DrawMonth();
    void MoveCursor(int days);
    void EnterCalendar();
    void TapDay(int row, int column);
    void Layout();
    void RedrawStrip();
    void UpdateTools();

    store::PenSettings& pen_;
    std::wstring pendingPath_;
    platform::TreeView tree_;
    FolderTree folders_;
    platform::ImageList images_;
    HeaderBar header_;
    PreviewStrip strip_;
    MonthView month_;
    int firstDayOfWeek_ = 0;
    bool calendarMode_ = false;
    platform::Point pressed_;    // where the pen came down
    platform::Point menuPlace_;  // of the menu whose command runs, handheld screen pixels
    int cursorDay_ = 1;          // of the shown month: what the keys act on in the calendar
};

}  // namespace manager
