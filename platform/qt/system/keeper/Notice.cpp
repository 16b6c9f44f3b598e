#include "platform/qt/system/keeper/Notice.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QMessageBox>
#include <optional>

#include "platform/qt/system/Copies.h"
#include "platform/qt/system/Processes.h"
#include "platform/qt/system/UserFolders.h"

namespace platform::qt {

namespace {

constexpr char kService[] = "org.freedesktop.Notifications";
constexpr char kPath[] = "/org/freedesktop/Notifications";
constexpr char kProgram[] = "inkwright";
constexpr uchar kUrgent = 2;  // stays until it is dismissed
constexpr int kNeverExpires = 0;

enum Outcome { kGone, kDismissed, kOpen };

// Waits for what the desktop tells of one notification.
class Waiter : public QObject {
    Q_OBJECT

  public:
    uint id = 0;

  public slots:
    void OnAction(uint which, const QString&) {
        if (which == id) QCoreApplication::exit(kOpen);
    }
    void OnClosed(uint which, uint) {
        if (which == id) QCoreApplication::exit(kDismissed);
    }
};

void OpenProgram() {
    const std::string program = PathBesideProgram(kProgram);
    if (!ShowCopiesOf(program)) StartProcess({program, {}, FolderOf(program)});
}

QDBusMessage NotifyCall(const QString& title, const QString& text) {
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kService, "Notify");
    const QVariantMap hints{{"urgency", QVariant::fromValue(kUrgent)}, {"desktop-entry", kProgram}};
    call.setArguments({"Inkwright", 0u, kProgram, title, text.trimmed().toHtmlEscaped(),
                       QStringList{"default", "Open", "open", "Open"}, hints, kNeverExpires});
    return call;
}

// Nothing when the desktop has no such service.
std::optional<Outcome> ShowByDesktop(const QString& title, const QString& text) {
    int count = 0;
    QCoreApplication application(count, nullptr);
    QDBusConnection bus = QDBusConnection::sessionBus();
    Waiter waiter;
    QDBusServiceWatcher watcher(kService, bus, QDBusServiceWatcher::WatchForUnregistration);
    if (!bus.isConnected() ||
        !bus.connect(kService, kPath, kService, "ActionInvoked", &waiter, SLOT(OnAction(uint, QString))) ||
        !bus.connect(kService, kPath, kService, "NotificationClosed", &waiter, SLOT(OnClosed(uint, uint))))
        return {};
    const QDBusReply<uint> shown = bus.call(NotifyCall(title, text));
    if (!shown.isValid()) return {};
    waiter.id = shown.value();
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceUnregistered,
                     [] { QCoreApplication::exit(kGone); });
    return static_cast<Outcome>(QCoreApplication::exec());
}

// Comes to the front without taking the keyboard or the pen away from what the user is doing.
Outcome ShowByWindow(const QString& title, const QString& text) {
    if (Environment("DISPLAY").empty() && Environment("WAYLAND_DISPLAY").empty() &&
        Environment("QT_QPA_PLATFORM").empty())
        return kGone;
    int count = 1;
    char name[] = "inkalarms";
    char* arguments[] = {name, nullptr};
    QApplication application(count, arguments);
    QMessageBox box(QMessageBox::NoIcon, title, text, QMessageBox::Ok);
    const QPushButton* const open = box.addButton(QStringLiteral("Open"), QMessageBox::AcceptRole);
    for (QAbstractButton* button : box.buttons()) button->setIcon({});  // as on the program's own boxes
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Ok);
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.setAttribute(Qt::WA_ShowWithoutActivating);
    box.setModal(false);
    QObject::connect(&box, &QMessageBox::finished, [&box, open] {
        const QAbstractButton* const pressed = box.clickedButton();
        QCoreApplication::exit(pressed && static_cast<const void*>(pressed) == open ? kOpen : kDismissed);
    });
    box.show();
    return static_cast<Outcome>(QApplication::exec());
}

}  // namespace

bool ShowNotice(const std::wstring& title, const std::wstring& text) {
    const QString caption = QString::fromStdWString(title);
    const QString words = QString::fromStdWString(text);
    std::optional<Outcome> outcome = ShowByDesktop(caption, words);
    if (!outcome) outcome = ShowByWindow(caption, words);
    if (outcome == kOpen) OpenProgram();
    return outcome != kGone;
}

}  // namespace platform::qt

#include <Notice.moc>
