#include <QMouseEvent>
#include <QPainter>

#include "platform/DarkBars.h"
#include "platform/qt/ImageImpl.h"
#include "platform/qt/Looks.h"
#include "platform/qt/MenuBar.h"
#include "platform/qt/Roles.h"
#include "platform/qt/ScreenFrame.h"
#include "platform/qt/Text.h"
#include "platform/qt/ToolBarImpl.h"
#include "platform/qt/WindowImpl.h"

namespace platform {

namespace {

constexpr int kSeparatorWidth = 6;
constexpr int kButtonMargin = 7;  // both sides of an image together, as on Windows
constexpr int kLeftMargin = 2;
constexpr int kButtonHeight = kBarHeight - 3;
constexpr int kMenuButtonWidth = 20;
constexpr ink::ColorRef kTransparent = ink::MakeColor(192, 192, 192);

}  // namespace

namespace qt {

// A button that is not marked is an ordinary one for those who hear about it only.
void ToolButton::Mark(bool isMarked) {
    setCheckable(true);
    setChecked(isMarked);
    setCheckable(isMarked);
}

void ToolButton::SetPressed(bool pressed) {
    isPressed_ = pressed;
    setDown(pressed);
}

void ToolButton::mouseReleaseEvent(QMouseEvent* event) {
    QToolButton::mouseReleaseEvent(event);
    setDown(isPressed_);
}

MenuBar::MenuBar(QWidget* parent, Screen& screen)
    : QWidget(parent), screen_(screen), menuButton_(new QToolButton(this)) {
    GiveRole(*this, QAccessible::ToolBar);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Button);
    setAccessibleName("Menu bar");
    menuButton_->setText(QString(QChar(0x2261)));
    menuButton_->setAccessibleName("Menu");
    menuButton_->setToolTip("Menu");
    menuButton_->setAutoRaise(true);
    menuButton_->setFocusPolicy(Qt::NoFocus);
    menuButton_->hide();
    // Who presses for a screen reader waits until the press is over, not until the menu is.
    connect(
        menuButton_, &QAbstractButton::clicked, this, [this] { screen_.Handle()->screen->OpenFrameMenu(); },
        Qt::QueuedConnection);
}

bool MenuBar::AddButtons(const ToolBarLayout& layout) {
    layout_ = layout;
    end_ = kLeftMargin;
    for (const ToolBarButton& source : layout.buttons) {
        if (source.command == 0) {
            separators_.push_back(end_ + kSeparatorWidth / 2);
            end_ += kSeparatorWidth;
            continue;
        }
        auto* button = new ToolButton(this, source.command);
        const QString title = source.title ? ToQt(source.title) : QString();
        button->setToolTip(title);
        button->setAccessibleName(title);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setIconSize({layout.imageWidth, layout.imageHeight});
        button->setGeometry(end_, 1, layout.imageWidth + kButtonMargin, kButtonHeight);
        connect(button, &QAbstractButton::clicked, this,
                [this, command = source.command] { screen_.PostCommand(command); });
        button->show();
        buttons_.push_back(button);
        end_ += layout.imageWidth + kButtonMargin;
    }
    return UseImages(Images());
}

Image MenuBar::Images() const {
    Image strip = Image::FromResource(layout_.bitmapId, screen_.PageScale());
    if (strip.IsValid() && WantsDark()) LightenPictures(strip.Surface(), ink::PixelOf(kTransparent));
    return strip;
}

void MenuBar::Dress() {
    if (!buttons_.empty()) UseImages(Images());
}

bool MenuBar::UseImages(const Image& strip) {
    for (size_t i = 0; i < buttons_.size(); ++i) {
        const QPixmap picture = MaskedPicture(strip, static_cast<int>(i), layout_.imageWidth,
                                              layout_.imageHeight, kTransparent, screen_.PageScale());
        if (picture.isNull()) return false;
        buttons_[i]->setIcon(picture);
    }
    return true;
}

ToolButton* MenuBar::Find(int command) const {
    for (ToolButton* button : buttons_) {
        if (button->Command() == command) return button;
    }
    return nullptr;
}

void MenuBar::ShowMenuButton() {
    hasMenu_ = true;
    PlaceMenuButton();
}

void MenuBar::PlaceMenuButton() {
    menuButton_->setGeometry(width() - kMenuButtonWidth - kLeftMargin, 1, kMenuButtonWidth, kButtonHeight);
    menuButton_->setVisible(hasMenu_ && menuButton_->x() >= end_);
}

void MenuBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    for (const int x : separators_) painter.drawLine(x, 4, x, height() - 5);
}

void MenuBar::resizeEvent(QResizeEvent*) { PlaceMenuButton(); }

}  // namespace qt

ToolBar::ToolBar() = default;
ToolBar::~ToolBar() = default;

Image ToolBar::Images() const { return impl_ ? impl_->strip.Images() : Image(); }

void ToolBar::SetImages(const Image& images) {
    if (impl_ && images.IsValid()) impl_->strip.UseImages(images);
}
void ToolBar::SetChecked(int command, bool checked) {
    if (qt::ToolButton* button = impl_ ? impl_->strip.Find(command) : nullptr) button->Mark(checked);
}
void ToolBar::SetPressed(int command, bool pressed) {
    if (qt::ToolButton* button = impl_ ? impl_->strip.Find(command) : nullptr) button->SetPressed(pressed);
}
void ToolBar::SetEnabled(int command, bool enabled) {
    if (qt::ToolButton* button = impl_ ? impl_->strip.Find(command) : nullptr) button->setEnabled(enabled);
}

}  // namespace platform
