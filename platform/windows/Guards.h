#pragma once

#include <memory>
#include <type_traits>

#include "platform/windows/SystemHeaders.h"

// Owners of system resources: move-only, empty when null. The plain handle types are the borrowers.
namespace platform::windows {

struct CloseKernelObject {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
struct CloseSearch {
    void operator()(HANDLE handle) const { FindClose(handle); }
};
struct CloseRegistry {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
struct DeleteGdiObject {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct DeleteMemoryDc {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
struct DestroyMenuObject {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
struct DestroyImages {
    void operator()(HIMAGELIST list) const { ImageList_Destroy(list); }
};

using OwnedHandle = std::unique_ptr<void, CloseKernelObject>;
using OwnedSearch = std::unique_ptr<void, CloseSearch>;
using OwnedKey = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseRegistry>;
using OwnedBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteGdiObject>;
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteGdiObject>;
using OwnedRegion = std::unique_ptr<std::remove_pointer_t<HRGN>, DeleteGdiObject>;
using OwnedMemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteMemoryDc>;
using OwnedMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, DestroyMenuObject>;
using OwnedImageList = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, DestroyImages>;

// Files and searches report failure as INVALID_HANDLE_VALUE, which an owner must not keep.
inline OwnedHandle OwnFile(HANDLE handle) {
    return OwnedHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}
inline OwnedSearch OwnSearch(HANDLE handle) {
    return OwnedSearch(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

// Device context of a window's client area, given back at the end of the scope.
class ClientDc {
  public:
    explicit ClientDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    ClientDc(const ClientDc&) = delete;
    ClientDc& operator=(const ClientDc&) = delete;
    ~ClientDc() {
        if (dc_) ReleaseDC(window_, dc_);
    }
    HDC Get() const { return dc_; }

  private:
    HWND window_;
    HDC dc_;
};

// Keeps an object selected into a device context.
class Selection {
  public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() {
        if (previous_) SelectObject(dc_, previous_);
    }

  private:
    HDC dc_;
    HGDIOBJ previous_;
};

}  // namespace platform::windows
