#pragma once

#include "app/store/PenSettings.h"
#include "manager/FolderTree.h"
#include "manager/PreviewStrip.h"
#include "platform/TreeView.h"

namespace manager {

// The tree of the store and, below it, the strip with the head of the selected note.
class TreePane {
  public:
    TreePane(const store::PenSettings& pen, const platform::ImageList& images)
        : folders_(tree_), strip_(pen, images) {}

    // The tree as a control of the window, which is told of its events; false when memory is short.
    bool Create(platform::Window& window, platform::TreeView::Events& events);
    // In client pixels of the window. The tree keeps to the rows that the strip leaves.
    void Place(const platform::Rect& area, ink::Scale scale);
    // The tree that is shown takes the keyboard.
    void SetVisible(bool isVisible);

    // Draws the strip for the note that is selected now.
    void DrawStrip() { strip_.Update(folders_.SelectedNotePath(), area_.Width(), scale_, IsBare()); }
    const platform::Image& Picture() const { return strip_.Picture(); }
    platform::Point PicturePlace() const { return {area_.left, area_.bottom - PreviewStrip::kHeight}; }

    platform::TreeView& Tree() { return tree_; }
    FolderTree& Folders() { return folders_; }

  private:
    // "Notes" is selected, and there is no folder for them yet.
    bool IsBare() {
        const platform::TreeItem top = folders_.NotesTop();
        return tree_.Selection() == top && tree_.FirstChild(top) == 0;
    }

    platform::TreeView tree_;
    FolderTree folders_;
    PreviewStrip strip_;
    platform::Rect area_;
    ink::Scale scale_;
};

}  // namespace manager
