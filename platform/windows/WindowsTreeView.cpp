#include <algorithm>
#include <vector>

#include "platform/windows/ImageImpl.h"
#include "platform/windows/ReaderNames.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/TreeViewImpl.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

using windows::ContractItem;
using windows::SystemItem;

namespace {

constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASLINES | TVS_LINESATROOT |
                         TVS_HASBUTTONS | TVS_SHOWSELALWAYS | TVS_EDITLABELS;
constexpr int kFontPoints = 9;
constexpr int kIndent = 19;  // page pixels: the control's own for small screens
constexpr size_t kLongestText = 1024;
constexpr UINT kOverlay = INDEXTOOVERLAYMASK(1);

windows::OwnedFont TreeFont(ink::Scale scale) {
    const int height = -MulDiv(kFontPoints, scale.Dots(), 72);
    return windows::OwnedFont(CreateFontW(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                          OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                          DEFAULT_PITCH | FF_DONTCARE, L"Tahoma"));
}

HTREEITEM Relative(HWND tree, WPARAM relation, HTREEITEM item) {
    if (!tree) return nullptr;
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

LRESULT Send(HWND tree, UINT message, WPARAM wParam, HTREEITEM item) {
    return tree ? SendMessageW(tree, message, wParam, reinterpret_cast<LPARAM>(item)) : 0;
}

bool GetItem(HWND tree, TVITEMW& item) {
    return tree && item.hItem && SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void SetItem(HWND tree, const TVITEMW& item) {
    if (tree && item.hItem) SendMessageW(tree, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

int CALLBACK CompareNodes(LPARAM first, LPARAM second, LPARAM order) {
    const auto& a = *reinterpret_cast<const TreeView::Impl::Node*>(first);
    const auto& b = *reinterpret_cast<const TreeView::Impl::Node*>(second);
    const auto& compare = *reinterpret_cast<const TreeView::Order*>(order);
    return compare(ContractItem(a.item), a.data, ContractItem(b.item), b.data);
}

}  // namespace

bool TreeView::Impl::Create(Window& window, int id, const Rect& place, const TreeView::Images& pictures) {
    parent = &window;
    source = pictures;
    const HWND page = window.Handle()->page;
    if (tree || !page) return false;
    const RECT area = windows::ToDesktop(place, window.PageScale());
    tree = CreateWindowExW(0, WC_TREEVIEWW, L"", kStyle, area.left, area.top, area.right - area.left,
                           area.bottom - area.top, page, reinterpret_cast<HMENU>(static_cast<intptr_t>(id)),
                           windows::Module(), nullptr);
    if (!tree) return false;
    if (!Rescale() || !windows::WatchTree(*this)) {
        DestroyWindow(tree);
        tree = nullptr;
        return false;
    }
    window.Handle()->control = tree;
    return true;
}

bool TreeView::Impl::Rescale() {
    const ink::Scale scale = parent->PageScale();
    windows::OwnedImageList fresh =
        windows::MaskedImages(platform::Image::FromResource(source.bitmapId, scale), source.imageSize,
                              source.imageSize, source.mask);
    if (!fresh) return false;
    windows::OwnedFont freshFont = TreeFont(scale);
    ImageList_SetOverlayImage(fresh.get(), source.overlay, 1);
    SendMessageW(tree, WM_SETFONT, reinterpret_cast<WPARAM>(freshFont.get()), TRUE);
    SendMessageW(tree, TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(fresh.get()));
    const RECT indent = windows::ToDesktop({0, 0, kIndent, 0}, scale);
    SendMessageW(tree, TVM_SETINDENT, static_cast<WPARAM>(indent.right), 0);
    images = std::move(fresh);  // what was shown before goes only now
    font = std::move(freshFont);
    return true;
}

TreeView::Impl::Node* TreeView::Impl::NodeOf(HTREEITEM item) const {
    TVITEMW known{};
    known.mask = TVIF_PARAM;
    known.hItem = item;
    return GetItem(tree, known) ? reinterpret_cast<Node*>(known.lParam) : nullptr;
}

UINT TreeView::Impl::State(HTREEITEM item, UINT mask) const {
    TVITEMW known{};
    known.mask = TVIF_STATE;
    known.hItem = item;
    known.stateMask = mask;
    return GetItem(tree, known) ? known.state & mask : 0;
}

void TreeView::Impl::SetState(HTREEITEM item, UINT mask, UINT bits) {
    TVITEMW changed{};
    changed.mask = TVIF_STATE;
    changed.hItem = item;
    changed.stateMask = mask;
    changed.state = bits;
    SetItem(tree, changed);
}

void TreeView::Impl::Select(HTREEITEM item) { Send(tree, TVM_SELECTITEM, TVGN_CARET, item); }

// The control keeps the button of an item whose children it dropped.
void TreeView::Impl::ShowButton(HTREEITEM item) {
    TVITEMW changed{};
    changed.mask = TVIF_CHILDREN;
    changed.hItem = item;
    changed.cChildren = Relative(tree, TVGN_CHILD, item) ? 1 : 0;
    SetItem(tree, changed);
}

bool TreeView::Impl::IsBelow(HTREEITEM item, HTREEITEM above) const {
    while (item && item != above) item = Relative(tree, TVGN_PARENT, item);
    return item != nullptr;
}

// The control would move its selection too, but each version to another item, and after the old one is gone.
bool TreeView::Impl::LeaveBranch(HTREEITEM item, HTREEITEM heir) {
    if (!IsBelow(Relative(tree, TVGN_CARET, nullptr), item)) return true;
    leaving.push_back(item);
    Select(heir);
    const bool isThere = leaving.back() != nullptr;
    leaving.pop_back();
    return isThere;
}

TreeView::TreeView() : impl_(std::make_unique<Impl>()) {}

TreeView::~TreeView() {
    impl_->events = nullptr;
    if (impl_->tree) DestroyWindow(impl_->tree);
}

bool TreeView::Create(Window& parent, int id, const Rect& place, const Images& images, Events& events,
                      const std::wstring& name) {
    impl_->events = &events;
    impl_->frozen = 0;
    impl_->visible = true;
    if (!impl_->Create(parent, id, place, images)) return false;
    windows::NameForReaders(impl_->tree, name);
    return true;
}

void TreeView::Place(const Rect& place) {
    if (!impl_->tree) return;
    const RECT area = windows::ToDesktop(place, impl_->parent->PageScale());
    MoveWindow(impl_->tree, area.left, area.top, area.right - area.left, area.bottom - area.top, TRUE);
}

void TreeView::SetVisible(bool visible) {
    impl_->visible = visible;
    if (!impl_->tree) return;
    const bool hadFocus = GetFocus() == impl_->tree;
    ShowWindow(impl_->tree, visible ? SW_SHOWNA : SW_HIDE);
    impl_->parent->Handle()->control = visible ? impl_->tree : nullptr;
    if (hadFocus && !visible) SetFocus(impl_->parent->Handle()->page);
}

void TreeView::Focus() {
    if (impl_->tree && impl_->visible) SetFocus(impl_->tree);
}

TreeItem TreeView::Insert(TreeItem parent, Where where, const std::wstring& text, int image, intptr_t data) {
    if (!impl_->tree) return 0;
    const bool isFirst = FirstChild(parent) == 0;
    auto node = std::make_unique<Impl::Node>();
    node->data = data;
    std::wstring shown = text;
    TVINSERTSTRUCTW fresh{};
    fresh.hParent = parent == 0 ? TVI_ROOT : SystemItem(parent);
    fresh.hInsertAfter = where == Where::Sorted ? TVI_SORT : TVI_LAST;
    fresh.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
    fresh.item.pszText = shown.data();
    fresh.item.iImage = fresh.item.iSelectedImage = image;
    fresh.item.lParam = reinterpret_cast<LPARAM>(node.get());
    node->item = reinterpret_cast<HTREEITEM>(
        SendMessageW(impl_->tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&fresh)));
    if (!node->item) return 0;
    if (isFirst) impl_->ShowButton(SystemItem(parent));
    return ContractItem(node.release()->item);  // freed when the control tells that the item goes
}

void TreeView::Remove(TreeItem item) {
    if (!impl_->tree || item == 0) return;
    const HTREEITEM gone = SystemItem(item);
    HTREEITEM heir = Relative(impl_->tree, TVGN_NEXT, gone);
    if (!heir) heir = Relative(impl_->tree, TVGN_PREVIOUS, gone);
    if (!heir) heir = Relative(impl_->tree, TVGN_PARENT, gone);
    const TreeItem parent = Parent(item);
    if (!impl_->LeaveBranch(gone, heir)) return;
    Send(impl_->tree, TVM_DELETEITEM, 0, gone);
    if (FirstChild(parent) == 0) impl_->ShowButton(SystemItem(parent));
}

void TreeView::RemoveAll() {
    impl_->Select(nullptr);
    Send(impl_->tree, TVM_DELETEITEM, 0, TVI_ROOT);
}

std::wstring TreeView::Text(TreeItem item) const {
    std::vector<wchar_t> text(kLongestText);
    TVITEMW known{};
    known.mask = TVIF_TEXT;
    known.hItem = SystemItem(item);
    known.pszText = text.data();
    known.cchTextMax = static_cast<int>(text.size());
    return GetItem(impl_->tree, known) ? std::wstring(known.pszText) : std::wstring();
}

void TreeView::SetText(TreeItem item, const std::wstring& text) {
    std::wstring shown = text;
    TVITEMW changed{};
    changed.mask = TVIF_TEXT;
    changed.hItem = SystemItem(item);
    changed.pszText = shown.data();
    SetItem(impl_->tree, changed);
}

int TreeView::Image(TreeItem item) const {
    TVITEMW known{};
    known.mask = TVIF_IMAGE;
    known.hItem = SystemItem(item);
    return GetItem(impl_->tree, known) ? known.iImage : -1;
}

void TreeView::SetImage(TreeItem item, int image) {
    TVITEMW changed{};
    changed.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    changed.hItem = SystemItem(item);
    changed.iImage = changed.iSelectedImage = image;
    SetItem(impl_->tree, changed);
}

intptr_t TreeView::Data(TreeItem item) const {
    const Impl::Node* node = impl_->NodeOf(SystemItem(item));
    return node ? node->data : 0;
}

void TreeView::SetBold(TreeItem item) { impl_->SetState(SystemItem(item), TVIS_BOLD, TVIS_BOLD); }

void TreeView::SetOverlay(TreeItem item, bool marked) {
    impl_->SetState(SystemItem(item), TVIS_OVERLAYMASK, marked ? kOverlay : 0);
}

bool TreeView::IsSelected(TreeItem item) const { return item != 0 && item == Selection(); }

bool TreeView::IsExpanded(TreeItem item) const {
    return FirstChild(item) != 0 && impl_->State(SystemItem(item), TVIS_EXPANDED) != 0;
}

bool TreeView::HasChildren(TreeItem item) const {
    TVITEMW known{};
    known.mask = TVIF_CHILDREN;
    known.hItem = SystemItem(item);
    return GetItem(impl_->tree, known) && known.cChildren != 0;
}

TreeItem TreeView::FirstChild(TreeItem item) const {
    return item == 0 ? 0 : ContractItem(Relative(impl_->tree, TVGN_CHILD, SystemItem(item)));
}

TreeItem TreeView::NextSibling(TreeItem item) const {
    return item == 0 ? 0 : ContractItem(Relative(impl_->tree, TVGN_NEXT, SystemItem(item)));
}

TreeItem TreeView::Parent(TreeItem item) const {
    return item == 0 ? 0 : ContractItem(Relative(impl_->tree, TVGN_PARENT, SystemItem(item)));
}

TreeItem TreeView::Selection() const { return ContractItem(Relative(impl_->tree, TVGN_CARET, nullptr)); }

void TreeView::Select(TreeItem item) { impl_->Select(SystemItem(item)); }

void TreeView::ScrollToTop(TreeItem item) {
    if (item != 0) Send(impl_->tree, TVM_SELECTITEM, TVGN_FIRSTVISIBLE, SystemItem(item));
}

void TreeView::Expand(TreeItem item) {
    if (item != 0) Send(impl_->tree, TVM_EXPAND, TVE_EXPAND, SystemItem(item));
}

// The control itself drops the children only of an item that is open.
void TreeView::CollapseAndDrop(TreeItem item) {
    if (!impl_->tree || item == 0) return;
    const HTREEITEM emptied = SystemItem(item);
    if (Selection() != item && !impl_->LeaveBranch(emptied, emptied)) return;
    Send(impl_->tree, TVM_EXPAND, TVE_COLLAPSE | TVE_COLLAPSERESET, emptied);
    while (const HTREEITEM child = Relative(impl_->tree, TVGN_CHILD, emptied)) {
        if (!Send(impl_->tree, TVM_DELETEITEM, 0, child)) break;
    }
    impl_->SetState(emptied, TVIS_EXPANDED | TVIS_EXPANDEDONCE, 0);
    impl_->ShowButton(emptied);
}

void TreeView::EnsureVisible(TreeItem item) {
    if (item != 0) Send(impl_->tree, TVM_ENSUREVISIBLE, 0, SystemItem(item));
}

void TreeView::SortChildren(TreeItem parent, const Order& order) {
    if (!impl_->tree) return;
    TVSORTCB request{};
    request.hParent = parent == 0 ? TVI_ROOT : SystemItem(parent);
    request.lpfnCompare = CompareNodes;
    request.lParam = reinterpret_cast<LPARAM>(&order);
    SendMessageW(impl_->tree, TVM_SORTCHILDRENCB, 0, reinterpret_cast<LPARAM>(&request));
}

void TreeView::EditLabel(TreeItem item) {
    if (item == 0) return;
    Focus();  // without it the control refuses
    Send(impl_->tree, TVM_EDITLABELW, 0, SystemItem(item));
}

void TreeView::Freeze(bool frozen) {
    const bool was = impl_->frozen > 0;
    impl_->frozen = std::max(0, impl_->frozen + (frozen ? 1 : -1));
    const bool is = impl_->frozen > 0;
    if (!impl_->tree || was == is) return;
    SendMessageW(impl_->tree, WM_SETREDRAW, is ? FALSE : TRUE, 0);
    if (is) return;
    // Letting a hidden window draw again may also show it.
    if (!impl_->visible) ShowWindow(impl_->tree, SW_HIDE);
    InvalidateRect(impl_->tree, nullptr, TRUE);
}

}  // namespace platform
