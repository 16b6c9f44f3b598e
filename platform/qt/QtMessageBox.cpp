#include <QAbstractButton>
#include <QMessageBox>

#include "platform/MessageBox.h"
#include "platform/qt/Application.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowImpl.h"

namespace platform {

namespace {

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok:
            return QMessageBox::Ok;
        case MessageButtons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case MessageButtons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Error:
            return QMessageBox::Critical;
        case MessageIcon::Question:
            return QMessageBox::Warning;
        case MessageIcon::Information:
            return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

MessageAnswer AnswerOf(int button) {
    if (button == QMessageBox::Yes) return MessageAnswer::Yes;
    return button == QMessageBox::No ? MessageAnswer::No : MessageAnswer::Cancel;
}

int Show(Window* owner, QMessageBox& box) {
    box.setTextFormat(Qt::PlainText);
    for (QAbstractButton* button : box.buttons()) button->setIcon({});  // as those of our own dialogs
    const qt::SystemDialog running(owner, [&box] { box.done(0); });
    return box.exec();
}

}  // namespace

MessageAnswer ShowMessage(Window* owner, const std::wstring& text, const std::wstring& caption,
                          MessageButtons buttons, MessageIcon icon, DefaultButton defaultButton) {
    if (qt::Application::The().IsEnding()) return CountedAnswer(buttons, MessageAnswer::Cancel);
    QMessageBox box(IconOf(icon), qt::ToQt(caption), qt::ToQt(text), ButtonsOf(buttons), qt::FrameOf(owner));
    if (buttons != MessageButtons::Ok) {
        const bool isSecond = defaultButton == DefaultButton::Second;
        box.setDefaultButton(isSecond ? QMessageBox::No : QMessageBox::Yes);
        box.setEscapeButton(buttons == MessageButtons::YesNo ? QMessageBox::No : QMessageBox::Cancel);
    }
    return CountedAnswer(buttons, AnswerOf(Show(owner, box)));
}

void ShowOutOfMemory(Window* owner) {
    if (qt::Application::The().IsEnding()) return;
    QMessageBox box(
        QMessageBox::Critical, " Inkwright",
        "There is not enough memory to do this. Close other programs or delete files, then try again.",
        QMessageBox::Ok, qt::FrameOf(owner));
    Show(owner, box);
}

WaitCursor::WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }

WaitCursor::~WaitCursor() { QApplication::restoreOverrideCursor(); }

}  // namespace platform
