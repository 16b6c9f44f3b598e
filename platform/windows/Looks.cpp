#include "platform/windows/Looks.h"

#include <dwmapi.h>

#include <cwchar>

#include "platform/Canvas.h"

namespace platform {

namespace {

constexpr ink::ColorRef kDarkFace = ink::MakeColor(43, 43, 43);
constexpr ink::ColorRef kDarkText = ink::MakeColor(236, 236, 236);
constexpr ink::ColorRef kDarkEdge = ink::MakeColor(92, 92, 92);

}  // namespace

ink::ColorRef ColorOf(SystemColor color) {
    switch (color) {
        case SystemColor::ButtonFace:
            return GetSysColor(COLOR_BTNFACE);
        case SystemColor::ButtonText:
            return GetSysColor(COLOR_BTNTEXT);
        case SystemColor::WindowFrame:
            return GetSysColor(COLOR_WINDOWFRAME);
        case SystemColor::Window:
            return GetSysColor(COLOR_WINDOW);
        case SystemColor::WindowText:
            return GetSysColor(COLOR_WINDOWTEXT);
        case SystemColor::BarFace:
            return windows::WantsDark() ? kDarkFace : GetSysColor(COLOR_BTNFACE);
        case SystemColor::BarText:
            return windows::WantsDark() ? kDarkText : GetSysColor(COLOR_BTNTEXT);
        case SystemColor::BarEdge:
            return windows::WantsDark() ? kDarkEdge : GetSysColor(COLOR_WINDOWFRAME);
    }
    return 0;
}

bool HasHighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

namespace windows {

bool WantsDark() {
    DWORD light = 1;
    DWORD size = sizeof light;
    RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                 L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
    return light == 0 && !HasHighContrast();
}

void ColorFrame(HWND frame) {
    constexpr DWORD kDarkMode = 20;  // DWMWA_USE_IMMERSIVE_DARK_MODE
    const BOOL isDark = WantsDark();
    DwmSetWindowAttribute(frame, kDarkMode, &isDark, sizeof isDark);
}

bool TellsOfColors(UINT message, LPARAM lParam) {
    const auto* what = reinterpret_cast<const wchar_t*>(lParam);
    return message == WM_SYSCOLORCHANGE || message == WM_THEMECHANGED ||
           (message == WM_SETTINGCHANGE && what && std::wcscmp(what, L"ImmersiveColorSet") == 0);
}

}  // namespace windows

}  // namespace platform
