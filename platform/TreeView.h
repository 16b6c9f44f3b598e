#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/Window.h"

namespace platform {

using TreeItem = uintptr_t;  // 0 = none

// A tree of texts with images, a child control of a Screen. Its events arrive at the parent's TreeEvents.
// Operations on item 0 do nothing and read as empty. Questions may be asked from any thread; they are
// answered in the thread that made the tree.
class TreeView {
  public:
    // How two children compare by their data: negative, zero or positive.
    using Order = std::function<int(TreeItem, intptr_t, TreeItem, intptr_t)>;

    TreeView();
    TreeView(const TreeView&) = delete;
    TreeView& operator=(const TreeView&) = delete;
    ~TreeView();

    // Images come from a bitmap resource of square images of `imageSize` page pixels in a row, `mask` being
    // transparent; image `overlay` marks items that carry the overlay.
    struct Images {
        int bitmapId = 0;
        int imageSize = 16;
        ink::ColorRef mask = 0;
        int overlay = 0;
    };

    // Who is told what the user and the program do with the tree.
    class Events {
      public:
        virtual ~Events() = default;
        // A branch that the user closes gives the selection to its item first, while it is still open.
        virtual void OnTreeSelection(TreeItem /*old*/, TreeItem /*selected*/) {}
        virtual void OnTreeItemDeleted(TreeItem, intptr_t /*data*/) {}
        // The text that in-place editing starts with; false refuses to edit the item.
        virtual bool OnTreeEditBegins(TreeItem, std::wstring& /*text*/) { return false; }
        // Editing ended with this text. The item's text is the handler's to change.
        virtual void OnTreeEditEnds(TreeItem, const std::wstring& /*text*/) {}
        virtual void OnTreeActivated(TreeItem) {}  // double tap, Enter
        virtual bool OnTreeKey(Key) { return false; }
        // Tap-and-hold or the right button at `place` (handheld screen pixels); `item` is what lies there.
        virtual void OnTreeHold(TreeItem /*item*/, Point /*place*/) {}
    };

    // `name` tells screen readers what the tree is.
    bool Create(Window& parent, int id, const Rect& place, const Images& images, Events& events,
                const std::wstring& name = {});
    void Place(const Rect& place);
    void SetVisible(bool visible);
    void Focus();

    enum class Where { Last, Sorted };  // sorted by text
    TreeItem Insert(TreeItem parent, Where where, const std::wstring& text, int image, intptr_t data);
    void Remove(TreeItem item);
    void RemoveAll();

    std::wstring Text(TreeItem item) const;
    void SetText(TreeItem item, const std::wstring& text);
    int Image(TreeItem item) const;  // -1 for no item
    void SetImage(TreeItem item, int image);
    intptr_t Data(TreeItem item) const;
    void SetBold(TreeItem item);
    void SetOverlay(TreeItem item, bool marked);
    bool IsSelected(TreeItem item) const;
    bool IsExpanded(TreeItem item) const;

    // What the item's button says; true for an item flagged so even when it has no child yet.
    bool HasChildren(TreeItem item) const;

    TreeItem FirstChild(TreeItem item) const;
    TreeItem NextSibling(TreeItem item) const;
    TreeItem Parent(TreeItem item) const;

    TreeItem Selection() const;
    void Select(TreeItem item);  // tells OnTreeSelection when it changes
    void ScrollToTop(TreeItem item);
    void Expand(TreeItem item);
    void CollapseAndDrop(TreeItem item);  // removes its children
    void EnsureVisible(TreeItem item);
    void SortChildren(TreeItem parent, const Order& order);
    void EditLabel(TreeItem item);

    // Keeps the screen still while many items change. May be nested.
    void Freeze(bool frozen);

    // For the ports.
    struct Impl;
    Impl* Handle() const { return impl_.get(); }

  private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
