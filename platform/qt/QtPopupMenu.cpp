#include <QMenu>

#include "platform/PopupMenu.h"
#include "platform/Screen.h"
#include "platform/qt/Application.h"
#include "platform/qt/HandheldPlace.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowImpl.h"

namespace platform {

namespace {

void Fill(QMenu& menu, const PopupMenu& source) {
    for (const PopupMenu::Item& item : source.Items()) {
        const QString text = qt::WithoutAccessKeys(item.text);
        if (item.submenu) {
            Fill(*menu.addMenu(text), *item.submenu);
        } else if (item.command == 0) {
            menu.addSeparator();
        } else {
            QAction* action = menu.addAction(text);
            action->setEnabled(item.enabled);
            action->setData(item.command);
        }
    }
}

}  // namespace

int PopupMenu::Choose(Window& owner, ink::Point place) const {
    Window::Impl& state = *owner.Handle();
    if (!state.frame || state.ended || qt::Application::The().IsEnding()) return 0;
    QMenu menu(state.frame);
    Fill(menu, *this);
    // The toolkit keeps menus on the desktop, which may be far larger than the handheld: open towards its
    // middle.
    const ScreenSize screen = HandheldScreen(owner);
    const QSize size = menu.sizeHint();
    QPoint corner = qt::HandheldOrigin(&owner) + QPoint(place.x, place.y);
    if (place.x > screen.width / 2) corner.rx() -= size.width();
    if (place.y > screen.height / 2) corner.ry() -= size.height();
    // Who chooses for a screen reader triggers an entry; the menu would wait on.
    const QAction* chosen = nullptr;
    QObject::connect(&menu, &QMenu::triggered, &menu, [&menu, &chosen](const QAction* entry) {
        chosen = entry;
        menu.close();
    });
    state.menu = &menu;
    menu.exec(corner);
    state.menu = nullptr;
    return state.ended || !chosen ? 0 : chosen->data().toInt();
}

}  // namespace platform
