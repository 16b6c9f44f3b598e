// Notices of alarms, with a stand-in for the desktop's notification service on a bus of its own.
#include <fcntl.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QTimer>
#include <csignal>
#include <cstdlib>

#include "platform/Clock.h"
#include "platform/Notifications.h"
#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/KeeperControl.h"
#include "platform/qt/system/OwnedFd.h"
#include "platform/qt/system/Processes.h"
#include "tests/contract/OnDevice.h"

namespace platform::qt {

namespace {

constexpr char kService[] = "org.freedesktop.Notifications";
constexpr char kPath[] = "/org/freedesktop/Notifications";
constexpr int kPatienceMilliseconds = 10000;

// A bus that ends with its owner.
class Bus {
  public:
    Bus(const std::string& daemon, const std::string& address) {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) return;
        const OwnedFd report(ends[0]);
        OwnedFd tell(ends[1]);
        StartProcess({daemon,
                      {"--session", "--nofork", "--address=" + address, "--print-pid=3"},
                      "/",
                      {},
                      tell.Get()});
        tell.Close();
        std::string told;
        ReadUntilClosed(report.Get(), kPatienceMilliseconds, told);
        process_ = std::atoi(told.c_str());
    }
    ~Bus() {
        if (process_ > 0) kill(process_, SIGTERM);
    }

  private:
    pid_t process_ = 0;
};

class Desktop : public QDBusVirtualObject {
  public:
    QStringList seen;
    QString answer;  // the signal that comes after a notice; empty: the service goes away

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() != QLatin1String("Notify")) return false;
        const QVariantList told = message.arguments();
        seen << told[3].toString() << told[4].toString() << told[5].toStringList();
        bus.send(message.createReply(42u));
        QDBusMessage signal = QDBusMessage::createSignal(kPath, kService, answer);
        signal << 42u << 2u;
        if (answer.isEmpty()) QDBusConnection(bus).unregisterService(kService);
        if (!answer.isEmpty()) bus.send(signal);
        QCoreApplication::quit();
        return true;
    }
};

using LinuxNotice = contract::DeviceContract;

TEST_F(LinuxNotice, ANoticeIsTheDesktopsAndOverWhenItIsDismissed) {
    const std::string daemon = PathOfCommand("dbus-daemon");
    if (daemon.empty()) GTEST_SKIP() << "no bus on this machine";
    const std::string address = "unix:path=" + DeviceFolder() + "/bus";
    const Bus bus(daemon, address);
    setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    int count = 0;
    QCoreApplication application(count, nullptr);
    QDBusConnection connection = QDBusConnection::connectToBus(QString::fromStdString(address), "desktop");
    Desktop desktop;
    ASSERT_TRUE(connection.isConnected()) << connection.lastError().message().toStdString();
    ASSERT_TRUE(connection.registerVirtualObject(kPath, &desktop, QDBusConnection::SingleNode));
    QTimer::singleShot(kPatienceMilliseconds, &application, [] { QCoreApplication::exit(1); });
    for (const char* answer : {"NotificationClosed", ""}) {
        desktop.answer = answer;
        ASSERT_TRUE(connection.registerService(kService));
        NotificationTrigger trigger;
        trigger.start = AddSeconds(LocalNow(), -1);
        const UserNotification notice{false, true, L"Alarm \u00BB", L"\nA <b> note\n"};
        const NotificationHandle handle = SetNotification(0, trigger, notice);
        ASSERT_NE(handle, 0u);
        ASSERT_EQ(QCoreApplication::exec(), 0) << "no notice came";
        EXPECT_EQ(desktop.seen.join('|').toStdWString(),
                  L"Alarm \u00BB|A &lt;b&gt; note|default|Open|open|Open");
        desktop.seen.clear();
        UserNotification kept;
        const uint32_t start = TickMilliseconds();
        while (FiringClaim::IsTaken(handle) && TickMilliseconds() - start < kPatienceMilliseconds) Pause(5);
        EXPECT_EQ(ReadNotification(handle, trigger, kept), *answer == '\0') << answer;
    }
    QDBusConnection::disconnectFromBus("desktop");
}

}  // namespace

}  // namespace platform::qt
