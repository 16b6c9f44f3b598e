// What the contract's hand, a mouse, can't show: pens and fingers as the toolkit reports them, colours of the
// desktop.
#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QPointingDevice>
#include <QTabletEvent>
#include <QTouchEvent>
#include <algorithm>

#include "platform/Canvas.h"
#include "platform/Printer.h"
#include "platform/qt/Application.h"
#include "platform/qt/QtSheet.h"
#include "platform/qt/WindowImpl.h"
#include "tests/contract/Recording.h"
#include "tests/contract/SheetSketch.h"

using namespace contract;
using namespace platform;

namespace {

using Pointer = QPointingDevice::PointerType;

class PenScreen : public TestScreen {
  public:
    using TestScreen::TestScreen;
    void OnPenDown(Point place) override {
        TestScreen::OnPenDown(place);
        log.back() += EndOfPen() == PenEnd::Eraser ? " eraser" : "";
    }
    void OnPenHover(Point place, PenEnd end) override {
        Write(end == PenEnd::Eraser ? "hover eraser" : "hover", place.x, place.y);
    }
    void OnPenLeave() override { Write("leave"); }
    void OnPan(int rows) override { Write("pan", rows); }
    void OnTwoFingerTap() override { Write("tap"); }
    void OnSize() override { Write("size"); }
};

class QtPort : public Contract {
  protected:
    QtPort() { page_.penSamples = 64; }

    static QPointingDevice Device(QInputDevice::DeviceType type, Pointer pointer) {
        constexpr qint64 kNumber = 77;
        return {"a device",
                kNumber,
                type,
                pointer,
                QInputDevice::Capability::Position,
                2,
                3,
                {},
                QPointingDeviceUniqueId::fromNumericId(kNumber)};
    }
    void SendPen(const QPointingDevice& pen, QEvent::Type type, Point place, Qt::MouseButtons buttons) {
        const QPointF at(place.x, place.y);
        QTabletEvent event(type, &pen, at, at, 1, 0, 0, 0, 0, 0, Qt::NoModifier, Qt::NoButton, buttons);
        event.setTimestamp(time_ += 5);
        const bool isNearness = type == QEvent::TabletLeaveProximity;
        QApplication::sendEvent(isNearness ? static_cast<QObject*>(qApp) : page_.Handle()->page, &event);
    }
    Step Pen(QEvent::Type type, const std::vector<Point>& places, Qt::MouseButtons buttons = Qt::LeftButton,
             Pointer end = Pointer::Pen) {
        return [=] {
            const QPointingDevice& pen = end == Pointer::Pen ? tip_ : eraser_;
            for (const Point& place : places) SendPen(pen, type, place, buttons);
        };
    }
    Step Touch(QEvent::Type type, const std::vector<std::pair<Point, QEventPoint::State>>& fingers,
               uint64_t milliseconds = 20) {
        return [=] {
            QList<QEventPoint> points;
            for (const auto& [place, state] : fingers) {
                const QPointF at = page_.Handle()->page->mapToGlobal(QPointF(place.x, place.y));
                points.emplace_back(static_cast<int>(points.size()), state, at, at);
            }
            QTouchEvent event(type, &screen_device_, Qt::NoModifier, points);
            event.setTimestamp(time_ += milliseconds);
            QApplication::sendEvent(page_.Handle()->page, &event);
        };
    }
    std::vector<std::string> After(const Script& script) {
        Play(script);
        hand_.Then([this] { page_.EndModal(0); });
        page_.log.clear();
        page_.RunModal(nullptr);
        page_.log.pop_back();  // destroy
        return page_.log;
    }

    uint64_t time_ = 100000;
    PenScreen page_{Screen::ScrollBar::Vertical};
    const QPointingDevice tip_ = Device(QInputDevice::DeviceType::Stylus, Pointer::Pen);
    const QPointingDevice eraser_ = Device(QInputDevice::DeviceType::Stylus, Pointer::Eraser);
    const QPointingDevice screen_device_ = Device(QInputDevice::DeviceType::TouchScreen, Pointer::Finger);
};

TEST_F(QtPort, APenWritesWithEverySampleAndItsOtherEndErases) {
    EXPECT_THAT(
        After({Pen(QEvent::TabletMove, {{5, 5}}, Qt::NoButton), Pen(QEvent::TabletPress, {{10, 10}}),
               Pen(QEvent::TabletMove, {{11, 10}, {12, 10}, {13, 10}}), Pen(QEvent::TabletMove, {{14, 10}}),
               Pen(QEvent::TabletRelease, {{15, 11}}, Qt::NoButton),
               Pen(QEvent::TabletPress, {{20, 20}}, Qt::LeftButton | Qt::RightButton),
               Pen(QEvent::TabletRelease, {{20, 20}}, Qt::NoButton),
               Pen(QEvent::TabletPress, {{30, 30}}, Qt::LeftButton, Pointer::Eraser),
               Pen(QEvent::TabletRelease, {{30, 30}}, Qt::NoButton, Pointer::Eraser),
               Pen(QEvent::TabletLeaveProximity, {{0, 0}}, Qt::NoButton)}),
        ElementsAre("hover 5 5", "down 10 10", "up 15 11", "hover 15 11", "down 20 20 eraser", "up 20 20",
                    "hover 20 20", "down 30 30 eraser", "up 30 30", "hover eraser 30 30", "leave"));
    EXPECT_THAT(page_.samples, ElementsAre(Point{11, 10}, Point{12, 10}));
    EXPECT_THAT(page_.moves, ElementsAre(Point{13, 10}, Point{14, 10}));
}

// What opens takes the pen, and the next press is a new one.
TEST_F(QtPort, APenThatIsTakenAwayBeginsAnew) {
    page_.command = [this](int) { ShowMessage(&page_, L"?", L"", MessageButtons::Ok, MessageIcon::Error); };
    Play({Pen(QEvent::TabletPress, {{10, 10}})});
    hand_.Answer(MessageAnswer::Ok);
    EXPECT_THAT(After({Post(page_, 5), Pen(QEvent::TabletPress, {{20, 20}}),
                       Pen(QEvent::TabletRelease, {{20, 20}}, Qt::NoButton)}),
                ElementsAre("down 10 10", "command 5", "lost", "down 20 20", "up 20 20", "hover 20 20"));
}

TEST_F(QtPort, FingersMoveThePageUnlessTheyAreAHand) {
    constexpr auto kPressed = QEventPoint::Pressed;
    constexpr auto kMoved = QEventPoint::Updated;
    constexpr auto kReleased = QEventPoint::Released;
    const Script pan{Touch(QEvent::TouchBegin, {{{50, 50}, kPressed}}),
                     Touch(QEvent::TouchUpdate, {{{50, 62}, kMoved}}),
                     Touch(QEvent::TouchEnd, {{{50, 62}, kReleased}})};
    const auto tapIn = [&](uint64_t milliseconds) {
        return Script{Touch(QEvent::TouchBegin, {{{50, 50}, kPressed}}),
                      Touch(QEvent::TouchUpdate, {{{51, 50}, kMoved}, {{90, 50}, kPressed}}),
                      Touch(QEvent::TouchEnd, {{{51, 50}, kReleased}, {{90, 50}, kReleased}}, milliseconds)};
    };
    Play(pan);
    Play(tapIn(100));
    EXPECT_THAT(After(tapIn(1000)), ElementsAre("pan 12", "tap"));
    Play({Pen(QEvent::TabletMove, {{5, 5}}, Qt::NoButton)});
    Play(pan);
    EXPECT_THAT(After(tapIn(100)), ElementsAre("hover 5 5"));
}

TEST_F(QtPort, SheetsAreDrawnToScale) {
    QImage paper(2 * kSketchWidth, 2 * kSketchHeight, QImage::Format_RGB32);
    QPainter painter(&paper);
    {
        qt::QtSheet sheet(painter, {kSketchWidth, kSketchHeight}, kSketchDots);
        SketchOn(sheet);
    }
    EXPECT_FALSE(painter.hasClipping());
    ExpectSketch([&](int x, int y) { return paper.pixel(x, y) & 0xFFFFFF; });
}

// Without a printer the dialog proposes a file named after what is printed.
TEST_F(QtPort, SheetsArePrintedIntoAFile) {
    const QDir home = QDir::home();
    ASSERT_TRUE(home.mkpath("."));
    page_.command = [this](int) {
        const std::unique_ptr<PrintJob> job = ChoosePrinter(page_, L"Plan");
        if (!job) return;
        const PrintPaper paper = job->Paper();
        EXPECT_TRUE(paper.width > 500 && paper.height > paper.width && paper.margin < 72);
        EXPECT_THAT(job->Wanted(3), ElementsAre(0, 1, 2));
        for (int sheet = 0; sheet < 3; ++sheet) {
            ink::LineCanvas* canvas = job->BeginSheet();
            ASSERT_NE(canvas, nullptr);
            SketchOn(*canvas);
            EXPECT_TRUE(job->EndSheet());
        }
        EXPECT_TRUE(job->Finish());
    };
    for (const MessageAnswer answer : {MessageAnswer::Cancel, MessageAnswer::Ok}) {
        QFile file(home.filePath("Plan.pdf"));
        EXPECT_FALSE(file.exists());
        hand_.Answer(answer);
        After({Post(page_, 5)});
        if (answer == MessageAnswer::Cancel) continue;
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        EXPECT_TRUE(bytes.startsWith("%PDF"));
        EXPECT_EQ(bytes.count("/Type /Page\n"), 3);
    }
}

// A session that ends waits for no answer: what was asking is refused, and so is what is asked then.
TEST_F(QtPort, TheEndOfASessionLeavesNothingOpen) {
    TestDialog dialog(IDD_SAVE_AS);
    std::vector<MessageAnswer> answers;
    const auto ask = [&] {
        answers.push_back(ShowMessage(&page_, L"?", L"", MessageButtons::YesNoCancel, MessageIcon::Error));
    };
    page_.command = [&](int) {
        EXPECT_EQ(dialog.RunModal(&page_), kIdCancel);
        ask();
        EXPECT_EQ(dialog.RunModal(&page_), -1);
    };
    dialog.command = [&](int) {
        QTimer::singleShot(0, [] { qt::Application::The().EndSession(); });  // while the question is open
        ask();
    };
    Play({Post(page_, 5), Post(dialog, 5)});
    page_.RunModal(nullptr);
    EXPECT_THAT(answers, ElementsAre(MessageAnswer::Cancel, MessageAnswer::Cancel));
    EXPECT_FALSE(qt::Application::The().IsEnding());
}

// Black in the pictures of the bar would be lost on it.
TEST_F(QtPort, DarkColoursReachTheBars) {
    const QPalette light = QApplication::palette();
    const auto countDark = [&] {
        constexpr uint32_t kBright = 0x808080;  // in any of the three
        const Image images = page_.Tools().Images();
        const ink::PixelSurface surface = images.Surface();
        return std::count_if(surface.pixels, surface.pixels + surface.width * surface.height,
                             [](uint32_t pixel) { return (pixel & kBright) == 0; });
    };
    const auto darken = [&] {
        ASSERT_TRUE(page_.CreateMenuBar({IDB_EDITOR_TOOLS, 12, 14, {{IDM_PEN, L"Pen"}}}));
        EXPECT_GT(countDark(), 0);
        QPalette dark = light;
        dark.setColor(QPalette::Button, Qt::black);
        QApplication::setPalette(dark);
    };
    const auto look = [&] {
        EXPECT_EQ(ColorOf(SystemColor::BarFace), 0u);
        EXPECT_EQ(countDark(), 0);
        QApplication::setPalette(light);
    };
    EXPECT_THAT(After({darken, look, [&] { EXPECT_GT(countDark(), 0); }}), ElementsAre("size", "size"));
}

}  // namespace
