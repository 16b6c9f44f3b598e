// Edits of many lines that dialogs make at run time.
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <new>

#include "platform/Dialog.h"
#include "platform/FillingControls.h"
#include "platform/qt/DialogFrame.h"
#include "platform/qt/EditText.h"
#include "platform/qt/HandheldPlace.h"
#include "platform/qt/ImageImpl.h"
#include "platform/qt/PressAndHold.h"
#include "platform/qt/WindowImpl.h"

namespace platform {

using qt::ItemOf;

namespace {

class TextEdit : public QPlainTextEdit {
  public:
    TextEdit(QWidget* parent, Dialog& dialog, int id)
        : QPlainTextEdit(parent),
          dialog_(dialog),
          id_(id),
          presses_(viewport(), [this](QPoint place) { Hold(viewport()->mapToGlobal(place)); }) {
        setAccessibleName("Memo");
        setTabChangesFocus(true);
    }

  protected:
    // The toolkit's own menu is replaced.
    void contextMenuEvent(QContextMenuEvent* event) override {
        event->accept();
        const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
        Hold(isByKey ? viewport()->mapToGlobal(cursorRect().center()) : event->globalPos());
    }

  private:
    void Hold(QPoint desktop) {
        Guarded(dialog_, [&] { dialog_.OnEditHold(id_, qt::ToHandheld(&dialog_, desktop)); });
    }

    Dialog& dialog_;
    const int id_;
    qt::PressAndHold presses_;
};

// The one step that is left at the beginning comes and goes.
void Undo(QPlainTextEdit& edit) { edit.document()->isUndoAvailable() ? edit.undo() : edit.redo(); }

void Delete(QPlainTextEdit& edit) { edit.textCursor().removeSelectedText(); }

}  // namespace

bool Dialog::MakeTextEdit(int id, const Rect& place, bool wordWrap) {
    if (!impl_->frame) return false;
    const FillingControls filling(impl_->fillingControls);
    std::unique_ptr<TextEdit> edit;
    try {
        edit = std::make_unique<TextEdit>(impl_->frame, *this, id);
        edit->setLineWrapMode(wordWrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
        edit->setPlainText(qt::Shown(ItemText(id)));
    } catch (const std::bad_alloc&) {
        return false;
    }
    edit->setGeometry(qt::ToQt(place));
    edit->setObjectName(QString::number(id));
    QObject::connect(edit.get(), &QPlainTextEdit::textChanged, [this, id] { qt::TellChange(*this, id); });
    edit->show();
    QWidget*& item = impl_->items[id];
    const std::unique_ptr<QWidget> old(item);
    item = edit.release();  // belongs to the frame
    return true;
}

bool Dialog::CanEdit(int id, EditAction action) const {
    const auto* edit = ItemOf<QPlainTextEdit>(*impl_, id);
    if (!edit) return false;
    switch (action) {
        case EditAction::Undo:
            return edit->document()->isUndoAvailable() || edit->document()->isRedoAvailable();
        case EditAction::Paste: {
            const QMimeData* offered = QGuiApplication::clipboard()->mimeData();
            return offered && offered->hasText();
        }
        case EditAction::SelectAll:
            return !edit->document()->isEmpty();
        default:
            return edit->textCursor().hasSelection();
    }
}

void Dialog::Edit(int id, EditAction action) {
    auto* edit = ItemOf<QPlainTextEdit>(*impl_, id);
    if (!edit) return;
    switch (action) {
        case EditAction::Undo:
            return Undo(*edit);
        case EditAction::Cut:
            return edit->cut();
        case EditAction::Copy:
            return edit->copy();
        case EditAction::Paste:
            return edit->paste();
        case EditAction::Delete:
            return Delete(*edit);
        case EditAction::SelectAll:
            return edit->selectAll();
    }
}

}  // namespace platform
