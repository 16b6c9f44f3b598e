#include "platform/qt/Application.h"

#include <fcntl.h>
#include <unistd.h>

#include <QBuffer>
#include <QEvent>
#include <QImageReader>
#include <QPixmap>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QTabletEvent>
#include <csignal>

#include "platform/Product.h"
#include "platform/qt/ModalRun.h"
#include "platform/qt/Roles.h"
#include "platform/qt/ScreenScale.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowImpl.h"
#include "platform/resources/ResourceTables.h"

namespace platform::qt {

namespace {

// The id that every program here gives its own icon.
constexpr int kProgramIcon = 128;

constexpr unsigned kPatienceSeconds = 5;

// A handler of signals gets nothing to tell it whose they are, and may do little more than write.
volatile std::sig_atomic_t signalPipe = -1;

extern "C" void NoteSignal(int) {
    const char byte = 1;
    if (signalPipe >= 0) static_cast<void>(!write(signalPipe, &byte, 1));
}

// In all the sizes that it was drawn in.
QIcon ProgramIcon() {
    const resources::ResourceFile file = resources::FindIcon(kProgramIcon);
    QByteArray bytes(reinterpret_cast<const char*>(file.bytes), static_cast<qsizetype>(file.size));
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    QIcon icon;
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i)
        icon.addPixmap(QPixmap::fromImage(reader.read()));
    return icon;
}

}  // namespace

Application::Application(int& count, char** arguments)
    : QApplication((TakeScaleAskedFor(), count), arguments), calls_([this] {
          QMetaObject::invokeMethod(
              this, [this] { calls_.Run(); }, Qt::QueuedConnection);
      }) {
    setApplicationName(ToQt(kProductName));
    setDesktopFileName("inkwright");
    setQuitOnLastWindowClosed(false);
    setWindowIcon(ProgramIcon());
    TellRoles();
    // Each position of the pen counts.
    setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    setAttribute(Qt::AA_CompressTabletEvents, false);
    connect(
        this, &QGuiApplication::commitDataRequest, this, [this] { EndSession(); }, Qt::DirectConnection);
    WatchSignals();
}

Application::~Application() {
    if (signals_) {
        close(static_cast<int>(signals_->socket()));
        close(signalPipe);
    }
    signalPipe = -1;
}

Application& Application::The() { return *static_cast<Application*>(QCoreApplication::instance()); }

// Sessions without a manager end their programs so.
void Application::WatchSignals() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    signalPipe = ends[1];
    signals_ = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    connect(signals_.get(), &QSocketNotifier::activated, this, [this, end = ends[0]] {
        char bytes[16];
        static_cast<void>(!read(end, bytes, sizeof bytes));
        EndSession();
        alarm(kPatienceSeconds);  // whatever goes on nevertheless
    });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) std::signal(signal, NoteSignal);
}

void Application::Push(Open open) {
    // Whatever opens takes the pen from what lies below.
    for (const Open& below : open_) {
        if (below.window && below.window->Handle()->events) below.window->Handle()->events->TakePenAway();
    }
    if (copies_ && !open_.empty()) copies_->SetWindow(open_.back().number, false, false);
    open.number = ++lastNumber_;
    open_.push_back(std::move(open));
    TellOfTop();
}

void Application::Pop() {
    if (copies_) copies_->RemoveWindow(open_.back().number);
    open_.pop_back();
    if (open_.empty()) isEnding_ = false;
    TellOfTop();
    if (applicationState() == Qt::ApplicationActive) GiveKeyboardToTop();
}

// Window managers hand it back themselves; on a display without one nobody else does.
void Application::GiveKeyboardToTop() {
    const Window* top = open_.empty() ? nullptr : open_.back().window;
    if (top && top->Handle()->frame) top->Handle()->frame->activateWindow();
}

void Application::Listen() {
    copies_ = std::make_unique<Copies>([this](const PostedMessage& message) {
        QMetaObject::invokeMethod(
            this, [this, message] { Take(message); }, Qt::QueuedConnection);
    });
    connect(this, &QGuiApplication::applicationStateChanged, this, [this] { TellOfTop(); });
}

void Application::TellOfTop() {
    if (!copies_ || open_.empty()) return;
    copies_->SetWindow(open_.back().number, true, applicationState() == Qt::ApplicationActive);
}

// What was meant for a window that something else is open over by now is meant for nobody.
void Application::Take(const PostedMessage& message) {
    if (open_.empty()) return;
    const bool isForTop = message.window == open_.back().number;
    if (message.kind == PostedMessage::Kind::Show) return ShowTop();
    if (!isForTop) return;
    if (message.kind == PostedMessage::Kind::Command)
        return CommandFromOutside(static_cast<int>(message.code));
    if (message.code == kTakeOver) return TakeOverFromOutside();
    if (Window* window = open_.back().window) window->PostPrivateMessage(message.code, 0);
}

void Application::ShowTop() {
    QWidget* top = activeModalWidget();
    if (!top && open_.back().window) top = open_.back().window->Handle()->frame;
    if (!top) return;
    if (top->isMinimized()) top->showNormal();
    top->raise();
    top->activateWindow();
}

void Application::CommandFromOutside(int id) {
    if (open_.empty()) return;
    if (Window* window = open_.back().window) return DispatchCommand(*window, id);
    if (open_.back().refuse) open_.back().refuse();
}

void Application::TakeOverFromOutside() {
    if (open_.empty()) return;
    const Open top = open_.back();
    if (top.window) return TakeOver(*top.window);
    *top.isTakenOver = true;
    top.refuse();
}

void Application::EndSession() {
    isEnding_ = !open_.empty();
    const std::vector<Open> open = open_;
    for (size_t i = open.size(); i-- > 0;) {
        Window* window = open[i].window;
        if (!window) {
            open[i].refuse();
        } else if (!window->Handle()->ended) {
            Guarded(*window, [window] { window->OnSessionEnd(); });
        }
    }
}

bool Application::event(QEvent* event) {
    if (event->type() == QEvent::TabletEnterProximity || event->type() == QEvent::TabletLeaveProximity) {
        for (const Open& open : open_) {
            if (open.window && open.window->Handle()->events)
                open.window->Handle()->events->TakeProximity(static_cast<QTabletEvent&>(*event));
        }
    }
    return QApplication::event(event);
}

SystemDialog::SystemDialog(Window* owner, std::function<void()> refuse) : owner_(owner) {
    Application::The().Push({nullptr, std::move(refuse), &isTakenOver_});
}

SystemDialog::~SystemDialog() {
    Application::The().Pop();
    if (isTakenOver_) PassTakeOverOn(owner_);
}

}  // namespace platform::qt
