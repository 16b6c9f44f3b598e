#include "platform/qt/ScreenFrame.h"

#include <QContextMenuEvent>
#include <QScrollBar>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>

#include "platform/PopupMenu.h"
#include "platform/qt/HandheldPlace.h"
#include "platform/qt/MenuBar.h"
#include "platform/qt/Roles.h"
#include "platform/qt/TreeWidget.h"
#include "platform/qt/WindowImpl.h"

namespace platform::qt {

namespace {

// Turns of the wheel mean the same over the bar as over the page.
class PageScrollBar : public QScrollBar {
  public:
    PageScrollBar(QWidget* parent, Window& window) : QScrollBar(Qt::Vertical, parent), window_(window) {
        setAccessibleName("Scroll bar");
        setTracking(false);
    }

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (window_.Handle()->events) window_.Handle()->events->TurnWheel(*event);
        event->accept();
    }
    void contextMenuEvent(QContextMenuEvent* event) override { event->accept(); }

  private:
    Window& window_;
};

}  // namespace

ScreenFrame::ScreenFrame(QWidget* owner, Screen& screen, bool withScrollBar)
    : QWidget(owner, Qt::Window),
      screen_(screen),
      page_(new QWidget(this)),
      strip_(new MenuBar(this, screen)) {
    GiveRole(*this, QAccessible::Window);
    GiveRole(*page_, QAccessible::Canvas);
    page_->setAttribute(Qt::WA_OpaquePaintEvent);
    page_->setFocusPolicy(Qt::StrongFocus);
    if (!withScrollBar) return;
    scrollBar_ = new PageScrollBar(this, screen);
    connect(scrollBar_, &QAbstractSlider::actionTriggered, this, [this](int action) { ScrollAsked(action); });
    connect(scrollBar_, &QAbstractSlider::sliderReleased, this, [this] {
        DispatchScroll(screen_, ScrollCode::ThumbPosition, scrollBar_->sliderPosition());
        ShowScroll(screen_.GetScroll());
    });
}

void ScreenFrame::LayOut() {
    const int pageHeight = std::max(0, height() - kBarHeight);
    const int barWidth = scrollBar_ ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    page_->setGeometry(0, 0, std::max(0, width() - barWidth), pageHeight);
    if (scrollBar_) scrollBar_->setGeometry(width() - barWidth, 0, barWidth, pageHeight);
    strip_->setGeometry(0, pageHeight, width(), kBarHeight);
    if (pageSize_.isEmpty()) pageSize_ = page_->size();
}

// While a frame is minimised nothing changes for what is in it.
void ScreenFrame::Follow() {
    Window::Impl& state = *screen_.Handle();
    if (isMinimized()) return;
    if (state.sizing) state.sizing->Follow(*this);
    LayOut();
    if (page_->size() == pageSize_) return;
    pageSize_ = page_->size();
    if (!state.ended) Guarded(screen_, [this] { screen_.OnSize(); });
}

void ScreenFrame::FollowLooks() {
    const Window::Impl& state = *screen_.Handle();
    strip_->Dress();
    if (auto* tree = dynamic_cast<TreeWidget*>(state.control)) tree->Dress();
    if (!state.ended) Guarded(screen_, [this] { screen_.OnSize(); });
    screen_.Invalidate();
}

void ScreenFrame::ShowScroll(const ScrollState& state) {
    if (!scrollBar_) return;
    const int last = std::max(state.minimum, state.maximum - std::max(state.page - 1, 0));
    scrollBar_->setRange(state.minimum, last);
    scrollBar_->setPageStep(std::max(state.page, 1));
    scrollBar_->setEnabled(last > state.minimum);
    if (!scrollBar_->isSliderDown()) scrollBar_->setValue(state.position);
}

// Where the bar goes is the window's to say.
void ScreenFrame::ScrollAsked(int action) {
    constexpr ScrollCode kCodes[] = {ScrollCode::Other,    ScrollCode::LineDown, ScrollCode::LineUp,
                                     ScrollCode::PageDown, ScrollCode::PageUp,   ScrollCode::Top,
                                     ScrollCode::Bottom,   ScrollCode::Other};
    const ScrollCode code = kCodes[std::clamp(action, 0, 7)];
    if (action != QAbstractSlider::SliderMove) scrollBar_->setSliderPosition(scrollBar_->value());
    DispatchScroll(screen_, code, 0);
}

void ScreenFrame::OpenFrameMenu() {
    Window::Impl& state = *screen_.Handle();
    if (state.frameMenu.empty() || state.ended) return;
    PopupMenu menu;
    for (const PopupMenu::Item& item : state.frameMenu) {
        bool isOffered = false;
        Guarded(screen_, [&] { isOffered = screen_.OffersInFrame(item.command); });
        menu.Add(item.command, item.text, isOffered);
    }
    const Point place = ToHandheld(&screen_, strip_->mapToGlobal(QPoint(strip_->width(), 0)));
    const int command = menu.Choose(screen_, place);
    if (command != 0) DispatchCommand(screen_, command);
}

void ScreenFrame::contextMenuEvent(QContextMenuEvent* event) {
    if (strip_->geometry().contains(event->pos())) OpenFrameMenu();
}

}  // namespace platform::qt
