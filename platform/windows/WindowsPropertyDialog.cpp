#include "platform/PropertyDialog.h"
#include "platform/windows/DialogEvents.h"
#include "platform/windows/DialogSource.h"
#include "platform/windows/SystemDialog.h"

namespace platform {

namespace {

INT_PTR CALLBACK PageProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto& source = *reinterpret_cast<const PROPSHEETPAGEW*>(lParam);
        return windows::OpenDialog(handle, *reinterpret_cast<Window*>(source.lParam));
    }
    Window* page = windows::WindowOf(handle);
    const bool isApply =
        page && message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == PSN_APPLY;
    if (!isApply) return windows::DialogEvent(handle, message, wParam, lParam);
    auto& applied = static_cast<PropertyPage&>(*page);
    Guarded(applied, [&] { applied.OnApply(); });
    SetWindowLongPtrW(handle, DWLP_MSGRESULT, PSNRET_NOERROR);
    return TRUE;
}

PROPSHEETPAGEW SourceOf(PropertyPage& page, const windows::DialogSource& dialog) {
    *page.Handle() = Window::Impl();
    Window* object = &page;
    PROPSHEETPAGEW source{};
    source.dwSize = sizeof source;
    source.hInstance = windows::Module();
    source.dwFlags = PSP_DLGINDIRECT;
    source.pResource = dialog.Template();
    source.pfnDlgProc = PageProcedure;
    source.lParam = reinterpret_cast<LPARAM>(object);
    return source;
}

int CALLBACK SheetEvent(HWND sheet, UINT event, LPARAM lParam) {
    if (event == PSCB_PRECREATE) windows::EnlargeDialog(*reinterpret_cast<DLGTEMPLATE*>(lParam));
    if (event == PSCB_INITIALIZED) windows::Centre(sheet);
    return 0;
}

}  // namespace

PropertyDialog::PropertyDialog(const std::wstring& caption, const std::vector<PropertyPage*>& pages)
    : caption_(caption), pages_(pages) {}

int PropertyDialog::RunModal(Window* owner) {
    std::vector<windows::DialogSource> dialogs;
    for (const PropertyPage* page : pages_) dialogs.push_back(windows::FindDialog(page->TemplateId()));
    std::vector<PROPSHEETPAGEW> sources;
    for (size_t i = 0; i < pages_.size(); ++i) sources.push_back(SourceOf(*pages_[i], dialogs[i]));
    PROPSHEETHEADERW header{};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW | PSH_NOCONTEXTHELP | PSH_USECALLBACK;
    header.hwndParent = windows::FrameOf(owner);
    header.hInstance = windows::Module();
    header.pszCaption = caption_.c_str();
    header.nPages = static_cast<UINT>(sources.size());
    header.ppsp = sources.data();
    header.pfnCallback = SheetEvent;
    const windows::SystemDialog running(owner, IDCANCEL);
    const INT_PTR result = PropertySheetW(&header);
    if (result < 0) return -1;
    return result > 0 ? kIdOk : kIdCancel;
}

}  // namespace platform
