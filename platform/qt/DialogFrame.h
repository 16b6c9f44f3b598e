#pragma once

#include <QDialog>

#include "platform/qt/WindowImpl.h"
#include "platform/resources/ResourceTables.h"

namespace platform::qt {

// The frame of a dialog. What closes it is left to the window's own events.
class DialogFrame : public QDialog {
  public:
    DialogFrame(QWidget* owner, const resources::DialogTemplate& source);
    DialogFrame(const DialogFrame&) = delete;
    DialogFrame& operator=(const DialogFrame&) = delete;
    ~DialogFrame() override = default;

    void reject() override {}

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const bool hasBorder_;
};

// The size of what a template describes, in pixels of this widget's font.
QRect PixelsOf(const QWidget& dialog, const ink::Rect& units);

// Makes the template's controls as children of `parent`, each for its id, and has the user's changes told to
// `window`.
void MakeItems(QWidget& parent, Window& window, const resources::DialogTemplate& source);

// The control with this id; null when it is none of this kind.
template <typename Kind>
Kind* ItemOf(const Window::Impl& state, int id) {
    const auto item = state.items.find(id);
    return item == state.items.end() ? nullptr : qobject_cast<Kind*>(item->second);
}

// Tells the window that the user has changed a control, unless the program does so itself.
void TellChange(Window& window, int id);

}  // namespace platform::qt
