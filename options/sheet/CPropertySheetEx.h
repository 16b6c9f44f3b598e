#pragma once

#include <string>
#include <vector>

#include "options/sheet/CPropertyPageEx.h"

namespace options {

// A modal sheet of pages that edit settings.
class CPropertySheetEx {
  public:
    explicit CPropertySheetEx(const std::wstring& caption) : caption_(caption) {}
    CPropertySheetEx(const CPropertySheetEx&) = delete;
    CPropertySheetEx& operator=(const CPropertySheetEx&) = delete;

    // True when it was closed with OK, which has stored the settings of the pages that were shown.
    bool RunModal(platform::Window& owner);

  protected:
    // In the order of their tabs; a page lives as long as the sheet.
    void AddPage(CPropertyPageEx& page) { pages_.push_back(&page); }

  private:
    std::wstring caption_;
    std::vector<platform::PropertyPage*> pages_;
};

}  // namespace options
