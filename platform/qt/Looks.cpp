#include "platform/qt/Looks.h"

#include <QApplication>
#include <QIcon>
#include <QPalette>

#include "platform/Canvas.h"

namespace platform {

// The toolkit's colours are the user's already, dark ones too.
ink::ColorRef ColorOf(SystemColor color) {
    constexpr QPalette::ColorRole kRoles[] = {QPalette::Button,     QPalette::ButtonText, QPalette::Dark,
                                              QPalette::Base,       QPalette::Text,       QPalette::Button,
                                              QPalette::ButtonText, QPalette::Dark};
    const QColor chosen = QApplication::palette().color(kRoles[static_cast<size_t>(color)]);
    return ink::ColorOf(chosen.rgb());
}

// Desktops say so by the name of their theme only.
bool HasHighContrast() { return QIcon::themeName().contains("HighContrast", Qt::CaseInsensitive); }

namespace qt {

bool WantsDark() {
    constexpr int kMiddle = 128;
    return QApplication::palette().color(QPalette::Button).lightness() < kMiddle;
}

}  // namespace qt

}  // namespace platform
