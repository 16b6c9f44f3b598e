#include <QMouseEvent>
#include <QPainter>

#include "platform/Popup.h"
#include "platform/Screen.h"
#include "platform/qt/HandheldPlace.h"
#include "platform/qt/ModalRun.h"
#include "platform/qt/Roles.h"
#include "platform/qt/Text.h"

namespace platform {

namespace {

// A window with a line around it, for a page within.
class PopupFrame : public QWidget {
  public:
    PopupFrame(QWidget* owner, Window& window)
        : QWidget(owner, Qt::Popup | Qt::FramelessWindowHint), window_(window), page_(new QWidget(this)) {
        qt::GiveRole(*this, QAccessible::Dialog);
        qt::GiveRole(*page_, QAccessible::Canvas);
        // The press that turns away from it is none for the window below.
        setAttribute(Qt::WA_NoMouseReplay);
        page_->setAttribute(Qt::WA_OpaquePaintEvent);
        page_->setFocusPolicy(Qt::StrongFocus);
    }

    QWidget* Page() { return page_; }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    void resizeEvent(QResizeEvent*) override { page_->setGeometry(rect().adjusted(1, 1, -1, -1)); }
    void mousePressEvent(QMouseEvent* event) override {
        event->accept();
        if (!rect().contains(event->position().toPoint())) qt::DispatchCommand(window_, kIdCancel);
    }
    // The toolkit hides a popup that others close.
    void hideEvent(QHideEvent*) override { qt::DispatchCommand(window_, kIdCancel); }

  private:
    Window& window_;
    QWidget* page_;
};

QRect PopupPlace(const Window* owner, Point corner, int width, int height) {
    const Rect outer{corner.x - width - 1, corner.y - height - 1, corner.x + 1, corner.y + 1};
    const ScreenSize screen = owner ? HandheldScreen(*owner) : HandheldScreen();
    const Rect place = ink::MovedInto(outer, {0, 0, screen.width, screen.height});
    return qt::OntoMonitor(qt::FrameOf(owner), qt::ToDesktop(owner, place));
}

}  // namespace

Popup::Popup() = default;
Popup::~Popup() = default;

int Popup::RunModal(Window* owner, const std::wstring& title, Point corner, int width, int height) {
    if (Exists()) return -1;
    *impl_ = Impl();
    auto made = std::make_unique<PopupFrame>(qt::FrameOf(owner), *this);
    PopupFrame* frame = made.get();
    frame->setGeometry(PopupPlace(owner, corner, width, height));
    frame->Page()->setGeometry(1, 1, width, height);
    frame->Page()->setAccessibleName(qt::ToQt(title));
    impl_->Begin(*this, owner, std::move(made), frame->Page());
    SetTitle(title);
    return qt::OpenAndRun(*this);
}

}  // namespace platform
