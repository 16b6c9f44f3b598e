#include "options/sheet/COptPageDefFileName.h"

#include "res/resource.h"

namespace options {

namespace {

using store::SettingId;

constexpr int kHelpMargins = 5;  // pixels

constexpr wchar_t kHelp[] =
    L"[*] Available Format Characters : %f - Folder Name, %F - Folder Path Names, %y - Year (Last 2 digits), "
    L"%Y - Year (Full digits), %m - Month (01 ~ 12), %M - Month (1 ~ 12), %d - Day (01 ~ 31), "
    L"%D - Day (1 ~ 31), %g - Hour (1 ~ 12), %G - Hour (0 ~ 23), %h - Hour (01 ~ 12), %H - Hour (00 ~ 23), "
    L"%i - Minute (00 ~ 59), %s - Second (00 ~ 59), %a - am or pm, %A - AM or PM\r\n\r\n"
    L"[*] Disallowed Characters : \\ / : * ? \" < > |\r\n"
    L"(Please do not use any character that is not allowed by Windows Mobile OS for file names.)\r\n";

// A pattern with its check box "Use Default Name Format".
struct PatternControls {
    SettingId setting;
    int edit;
    int usesDefault;
};

constexpr PatternControls kPatterns[] = {
    {SettingId::SaveAs_NoteFN, IDC_NOTE_PATTERN, IDC_NOTE_PATTERN_DEFAULT},
    {SettingId::SaveAs_ReminderFN, IDC_REMINDER_PATTERN, IDC_REMINDER_PATTERN_DEFAULT},
};

}  // namespace

COptPageDefFileName::COptPageDefFileName() : CPropertyPageEx(IDD_OPTIONS_FILE_NAME) {}

void COptPageDefFileName::ShowSettings(const store::Settings& settings) {
    SetItemMargins(IDC_PATTERN_HELP, kHelpMargins);
    NameItem(IDC_PATTERN_HELP, L"Format characters");
    SetItemText(IDC_PATTERN_HELP, kHelp);
    for (const PatternControls& pattern : kPatterns) {
        const bool isDefault = settings.StoredText(pattern.setting).empty();
        // A longer one could not be read back.
        LimitItemText(pattern.edit, static_cast<int>(store::InfoOf(pattern.setting).capacity) - 1);
        SetItemText(pattern.edit, settings.ReadText(pattern.setting));
        CheckItem(pattern.usesDefault, isDefault);
        EnableItem(pattern.edit, !isDefault);
    }
}

void COptPageDefFileName::OnCommand(int id) {
    for (const PatternControls& pattern : kPatterns) {
        if (pattern.usesDefault != id) continue;
        const bool usesDefault = IsItemChecked(id);
        if (usesDefault) SetItemText(pattern.edit, store::InfoOf(pattern.setting).defaultText);
        EnableItem(pattern.edit, !usesDefault);
        if (usesDefault) continue;
        SelectItemText(pattern.edit);
        FocusItem(pattern.edit);
    }
}

void COptPageDefFileName::StoreSettings(store::Settings& settings) {
    for (const PatternControls& pattern : kPatterns) {
        const bool usesDefault = IsItemChecked(pattern.usesDefault);
        const std::wstring text = usesDefault ? std::wstring() : ItemText(pattern.edit);
        if (text.empty()) {
            settings.Remove(pattern.setting);
        } else {
            settings.Write(pattern.setting, text);
        }
    }
}

}  // namespace options
