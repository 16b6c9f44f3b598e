#pragma once

#include <optional>
#include <string>

#include "app/store/PenSettings.h"
#include "editor/InkCanvas.h"
#include "manager/CalendarPane.h"
#include "manager/HeaderBar.h"
#include "manager/Situation.h"
#include "manager/TreePane.h"
#include "platform/Screen.h"

namespace manager {

// The note manager: the tree of the store with a preview of the selected note, or the month calendar.
class ManagerWindow : public platform::Screen,
                      private platform::TreeView::Events,
                      private CalendarPane::Events {
  public:
    // `path` is what to select first: a note, or a folder ending in "\"; may be empty.
    ManagerWindow(store::PenSettings& pen, const std::wstring& path);

    bool OnCreate() override;
    void OnDestroy() override;
    void OnPaint() override;
    void OnSize() override;
    void OnPenDown(platform::Point place) override { calendar_.PenDown(place); }
    void OnPenUp(platform::Point place) override { calendar_.PenUp(place); }
    bool OnKeyDown(platform::Key key) override;
    bool OnShortcut(wchar_t letter) override;
    // Does nothing for a command that is not possible now.
    void OnCommand(int id) override;
    void OnTakeOver() override { Close(); }

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

    // Calendar events
    void OnCalendarDrawn() override;
    void OnCalendarDay(const store::DayFolder& day) override;

    // Commands
    void Close() { EndModal(platform::kIdOk); }
    void AddNote();
    void OpenNote();
    void EditTextMemo();
    void Delete();
    void ToggleCalendar();
    void ShowPreviousMonth() { calendar_.StepMonth(-1); }
    void ShowNextMonth() { calendar_.StepMonth(1); }
    void ShowCurrentMonth() { calendar_.ShowCurrentMonth(); }
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
    void CheckAllNotes();
    void ShowUserGuide();
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
    std::optional<store::DayFolder> SelectedDay() const;
    void ReadImages();
    void PlacePanes();
    void RedrawStrip();
    void UpdateTools();

    store::PenSettings& pen_;
    std::wstring pendingPath_;
    platform::ImageList images_;
    HeaderBar header_;
    TreePane treePane_;
    CalendarPane calendar_;
    platform::TreeView& tree_ = treePane_.Tree();
    FolderTree& folders_ = treePane_.Folders();
    platform::Point menuPlace_;  // of the menu whose command runs, handheld screen pixels
};

}  // namespace manager
