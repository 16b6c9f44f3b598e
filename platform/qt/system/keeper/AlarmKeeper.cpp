// inkalarms: the small resident program that fires the notification database's entries. It sleeps until the
// next entry is due or the database, the clock or the time zone changes.
//
// A due entry is fired by a second run of this program ("--fire HANDLE"), which claims it while it acts and
// takes it out of the database afterwards. So whoever ends either at any moment makes nothing get lost.
#include <poll.h>
#include <sys/inotify.h>
#include <sys/signalfd.h>
#include <sys/timerfd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>

#include "platform/AlarmSchedule.h"
#include "platform/Clock.h"
#include "platform/qt/system/KeeperControl.h"
#include "platform/qt/system/LocalTime.h"
#include "platform/qt/system/NotificationStore.h"
#include "platform/qt/system/Processes.h"
#include "platform/qt/system/UserFolders.h"
#include "platform/qt/system/keeper/AlarmFiring.h"

namespace {

using platform::AlarmSchedule;
using platform::DateTime;
using platform::NotificationHandle;
using platform::ScheduledEntry;
using platform::qt::LocalTicks;
using platform::qt::OwnedFd;

void StartFiring(NotificationHandle handle) {
    using namespace platform::qt;
    StartProcess({ProgramFile(), {kFireSwitch, std::to_string(handle)}, "/"});
}

// All entries that can be understood, and their moments. False when the database can't be read now.
bool ReadEntries(std::vector<ScheduledEntry>& entries, std::vector<DateTime>& moments) {
    platform::qt::NotificationStore store;
    std::vector<NotificationHandle> handles;
    if (!store.Handles(handles)) return false;
    for (const NotificationHandle handle : handles) {
        platform::NotificationEntry entry;
        std::vector<uint8_t> bytes = store.Bytes(handle);
        if (!platform::DecodeEntry(bytes, entry) || !IsValidMoment(entry.trigger.start)) continue;
        entries.push_back({handle, LocalTicks(entry.trigger.start), std::move(bytes),
                           platform::qt::FiringClaim::IsTaken(handle)});
        moments.push_back(entry.trigger.start);
    }
    return true;
}

uint64_t SteadyMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_nsec) / 1000000;
}

// A timer that follows the system's clock. Where the rules of the time zone make a local time fall twice or
// not at all, the moment may have passed already while the entry is not due yet: it then asks again a little
// later.
void SetTimer(int timer, const DateTime* moment) {
    itimerspec when{};
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (moment && platform::qt::UniversalSeconds(*moment, when.it_value.tv_sec)) {
        when.it_value.tv_nsec = moment->milliseconds * 1000000L;
        if (when.it_value.tv_sec <= now.tv_sec) when.it_value = {now.tv_sec + 1, now.tv_nsec};
    }
    timerfd_settime(timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when, nullptr);
}

// Fires what is due and sets the timer for what comes next. Returns how long to sleep at most, or -1.
int LookAtDatabase(AlarmSchedule& schedule, int timer) {
    std::vector<ScheduledEntry> entries;
    std::vector<DateTime> moments;
    tzset();
    if (!ReadEntries(entries, moments)) return AlarmSchedule::kRetryMilliseconds;
    const AlarmSchedule::Plan plan =
        schedule.Make(entries, LocalTicks(platform::LocalNow()), SteadyMilliseconds());
    for (const NotificationHandle handle : plan.fire) StartFiring(handle);
    SetTimer(timer, plan.next ? &moments[*plan.next] : nullptr);
    return plan.lookAgain ? static_cast<int>(AlarmSchedule::kRetryMilliseconds) : -1;
}

// What woke this program up: the database, or the machine's time zone.
class Watch {
  public:
    Watch() : events_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
        const std::string database = platform::qt::DatabaseFile();
        data_ = inotify_add_watch(events_.Get(), platform::qt::FolderOf(database).c_str(),
                                  IN_MOVED_TO | IN_ATTRIB | IN_DELETE | IN_ONLYDIR);
        inotify_add_watch(events_.Get(), "/etc", IN_MOVED_TO | IN_CREATE | IN_ONLYDIR);
        name_ = platform::qt::NameOf(database);
    }
    bool IsSet() const { return events_ && data_ >= 0; }
    int Descriptor() const { return events_.Get(); }

    // True when something happened that matters.
    bool Take() {
        alignas(inotify_event) char buffer[8192];
        bool matters = false;
        for (ssize_t got = 0; (got = read(events_.Get(), buffer, sizeof buffer)) > 0;) {
            for (const char* at = buffer; at < buffer + got;) {
                const auto* const event = reinterpret_cast<const inotify_event*>(at);
                matters = Matters(*event) || matters;
                at += sizeof *event + event->len;
            }
        }
        return matters;
    }

  private:
    bool Matters(const inotify_event& event) {
        const std::string name = event.len > 0 ? event.name : "";
        return (event.mask & IN_Q_OVERFLOW) != 0 || name == (event.wd == data_ ? name_ : "localtime");
    }

    OwnedFd events_;
    int data_ = -1;
    std::string name_;
};

// Who sets the first entry starts this program.
bool IsNeeded() {
    std::vector<NotificationHandle> handles;
    return !platform::qt::NotificationStore().Handles(handles) || !handles.empty();
}

int Keep(bool reports) {
    const platform::qt::KeeperRole role;
    if (!role.IsHeld()) return 0;
    sigset_t endings;
    sigemptyset(&endings);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&endings, signal);
    sigprocmask(SIG_BLOCK, &endings, nullptr);
    const OwnedFd ending(signalfd(-1, &endings, SFD_CLOEXEC));
    const OwnedFd timer(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK));
    Watch watch;
    if (!ending || !timer || !watch.IsSet()) return 1;
    if (reports) close(platform::qt::kReportDescriptor);
    AlarmSchedule schedule;
    pollfd events[] = {{ending.Get(), POLLIN, 0}, {timer.Get(), POLLIN, 0}, {watch.Descriptor(), POLLIN, 0}};
    int patience = LookAtDatabase(schedule, timer.Get());
    for (;;) {
        const int woken = poll(events, std::size(events), patience);
        if (events[0].revents != 0 || (woken < 0 && errno != EINTR)) return 0;
        uint64_t count = 0;
        // A clock that was set ends the reading with an error, and the moment is to be found anew.
        const bool isTime =
            events[1].revents != 0 && (read(timer.Get(), &count, sizeof count) > 0 || errno == ECANCELED);
        const bool isChanged = events[2].revents != 0 && watch.Take();
        if (role.IsLost()) return 0;
        if (woken == 0 || isTime || isChanged) patience = LookAtDatabase(schedule, timer.Get());
    }
}

// Nothing of what this program was started with is handed on, and no folder is kept busy.
void LeaveSurroundings() {
    unsetenv("INKWRIGHT_DEVICE");
    unsetenv("INKWRIGHT_SCREEN");
    if (chdir("/") != 0) return;
}

}  // namespace

int main(int count, char** arguments) {
    using namespace platform::qt;
    const std::string what = count > 1 ? arguments[1] : "";
    LeaveSurroundings();
    if (what == kStopSwitch) {
        ForgetSessions();
        return StopKeeper() ? 0 : 1;
    }
    if (what == kFireSwitch) {
        FireEntry(count > 2 ? static_cast<NotificationHandle>(std::strtoul(arguments[2], nullptr, 10)) : 0);
        return 0;
    }
    if (what == kSessionSwitch) {
        if (!StopKeeper()) return 1;
        if (!IsNeeded()) return 0;
    }
    return Keep(what == kReportSwitch);
}
