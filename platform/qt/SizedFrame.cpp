#include "platform/qt/SizedFrame.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

#include "platform/Product.h"
#include "platform/RegistryKey.h"
#include "platform/qt/HandheldPlace.h"
#include "platform/qt/ImageImpl.h"
#include "platform/qt/ScreenFrame.h"

namespace platform::qt {

namespace {

constexpr size_t kLongestPlace = 64;  // characters

RegistryKey PlacesKey() { return RegistryKey::OpenUser(std::wstring(kCompanyKey) + L"\\" + kProductName); }

std::wstring ValueName(const std::wstring& kind) { return L"Window." + kind; }

std::vector<ink::Rect> WorkAreas() {
    std::vector<ink::Rect> areas;
    for (const QScreen* screen : QGuiApplication::screens())
        areas.push_back(FromQt(screen->availableGeometry()));
    // A session that nobody looks at may have none.
    if (areas.empty()) areas.push_back({0, 0, 1024, 768});
    return areas;
}

ink::Rect UsualFrame() {
    const ScreenSize screen = HandheldScreen();
    const QSize size(screen.width, screen.height - kBarHeight);
    return FromQt(QRect(CentredPlace(size), size));
}

}  // namespace

WindowPlace SizedFrame::PlaceToOpen(const SizedFrame* below) {
    std::wstring text;
    const bool isKept =
        !kind_.empty() && PlacesKey().QueryText(ValueName(kind_).c_str(), kLongestPlace, text);
    const std::optional<WindowPlace> kept = isKept ? ReadWindowPlace(text) : std::nullopt;
    place_ = kept ? *kept : below ? below->place_ : WindowPlace{UsualFrame(), false};
    place_.frame = OntoMonitors(place_.frame, WorkAreas(), {0, 0, kLeastWidth, kLeastHeight});
    return place_;
}

// The other states have places of their own, which tell nothing of this one.
void SizedFrame::Follow(const QWidget& frame) {
    if (isFullScreen_ || frame.isMinimized() || frame.isFullScreen() || !frame.isVisible()) return;
    place_.isMaximised = frame.isMaximized();
    if (!place_.isMaximised) place_.frame = FromQt(QRect(frame.pos(), frame.size()));
}

void SizedFrame::Remember() const {
    if (!kind_.empty())
        PlacesKey().SetText(ValueName(kind_).c_str(), RegistryType::Text, TextOfPlace(place_));
}

void SizedFrame::FillMonitor(QWidget& frame) {
    constexpr int kPatienceMilliseconds = 200;
    QTimer::singleShot(kPatienceMilliseconds, &frame, [this, &frame] {
        const bool isOver = frame.isFullScreen() || frame.isMaximized();
        const QRect wanted =
            frame.isFullScreen() ? frame.screen()->geometry() : frame.screen()->availableGeometry();
        if (isOver && frame.size() == QSize(place_.frame.Width(), place_.frame.Height()))
            frame.setGeometry(wanted);
    });
}

// The place before is known, so a maximised frame is maximised again after it.
void SizedFrame::ToggleFullScreen(QWidget& frame) {
    isFullScreen_ = !isFullScreen_;
    if (isFullScreen_ || place_.isMaximised) {
        isFullScreen_ ? frame.showFullScreen() : frame.showMaximized();
        return FillMonitor(frame);
    }
    const WindowPlace place = place_;
    frame.showNormal();  // on the way there it is followed
    place_ = place;
    frame.move(place.frame.left, place.frame.top);
    frame.resize(place.frame.Width(), place.frame.Height());
}

}  // namespace platform::qt
