#include "platform/windows/ReaderNames.h"

// The system's ids of what is used here are made in this file.
// clang-format off
#include <initguid.h>
#include <oleacc.h>
// clang-format on

namespace platform::windows {

// The system keeps the name with the window, for readers of both kinds, and forgets it with the window.
void NameForReaders(HWND window, const std::wstring& name) {
    if (!window || name.empty()) return;
    const HRESULT begun = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IAccPropServices* services = nullptr;
    if (SUCCEEDED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                   reinterpret_cast<void**>(&services)))) {
        services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                                 name.c_str());
        services->Release();
    }
    if (SUCCEEDED(begun)) CoUninitialize();
}

}  // namespace platform::windows
