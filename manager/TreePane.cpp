#include "manager/TreePane.h"

#include "manager/StripImages.h"
#include "res/resource.h"

namespace manager {

bool TreePane::Create(platform::Window& window, platform::TreeView::Events& events) {
    const platform::TreeView::Images images{IDB_TREE_IMAGES, kStripImageSize, kStripMask, kMemoOverlayImage};
    return tree_.Create(window, IDC_TREE, {0, 0, 1, 1}, images, events, L"Folders and Notes");
}

void TreePane::Place(const platform::Rect& area, ink::Scale scale) {
    area_ = area;
    scale_ = scale;
    tree_.Place({area.left, area.top, area.right, area.bottom - PreviewStrip::kHeight});
}

void TreePane::SetVisible(bool isVisible) {
    tree_.SetVisible(isVisible);
    if (isVisible) tree_.Focus();
}

}  // namespace manager
